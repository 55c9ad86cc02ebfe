// Reads input as a header and checks tokens, events, the model and the declarations as text.

#include "base/source_text.h"
#include "fuzz/promise.h"
#include "fuzz/subjects.h"
#include "reading/source_line_reader.h"
#include "sourcebrowser/c_parser.h"
#include "sourcebrowser/c_scanner.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QByteArray textOf(std::string_view input)
{
    QByteArray text = decodedSource(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
    normalizeLineEnds(text);
    return text;
}

class Listener : public SourceBrowserEventInterface
{
public:
    explicit Listener(int lineCount) : m_lineCount(lineCount) {}

    void preprocessorLine(const QString &text, int line, int count) override
    {
        promise(count >= 0 && count <= m_lineCount, "the directives are at most as many as the lines");
        note("directive", text, line);
    }
    void fixmeComment(const QString &word, int line) override { note("fixme", word, line); }
    void declareContainer(SourceBrowserObject::Phylum, const QString &name, const QString &declaration, const QString &,
                          int line) override
    {
        ++depth;
        note("container", name + u'|' + declaration, line);
    }
    void endContainer() override
    {
        promise(--depth >= 0, "a container ends only once");
        events += "end\n";
    }
    void declareObject(SourceBrowserObject::Phylum, const QString &name, const QString &declaration, int line) override
    {
        note("object", name + u'|' + declaration, line);
    }
    void visibilityChange(SourceBrowserObject::Access, int line) override { note("visibility", {}, line); }

    std::string events;
    int depth = 0;

private:
    void note(std::string_view event, const QString &text, int line)
    {
        promise(line >= 0 && line <= m_lineCount + 1, "the line of an event is in the header", event);
        events.append(event).append(" ").append(std::to_string(line)).append(" ");
        events.append(text.toStdString()).append("\n");
    }

    int m_lineCount;
};

class Lines : public SourceBrowserLineIterator
{
public:
    explicit Lines(const QByteArray &text) : m_reader(Path(u"input.h"_s), text) {}
    bool readLine(QString &line) override { return m_reader.readLine(line); }

private:
    SourceLineReader m_reader;
};

class Parser : public SourceBrowserCParser
{
public:
    Parser(SourceBrowserModel *model, Listener *listener, const QByteArray &text)
        : SourceBrowserCParser(model, listener), m_lines(text)
    {
    }
    bool readLine(QString &line) override { return m_lines.readLine(line); }

private:
    Lines m_lines;
};

void checkScanner(const QByteArray &text, int lineCount)
{
    Lines lines(text);
    SourceBrowserLineStatistics statistics;
    SourceBrowserCScanner scanner(lines, u"input.h"_s, nullptr, nullptr, statistics, {u"TODO"_s, u"fix"_s});
    int last = 0;
    while (const int code = scanner.nextToken()) {
        promise(code > 0 && code <= SourceBrowserToken::String, "the code of a token is known");
        promise(scanner.line() >= last && scanner.line() <= lineCount, "tokens are in the order of their lines");
        last = scanner.line();
    }
}

void renderAll(const SourceBrowserModel &model, const SourceBrowserModel::Collection &collection, std::string &text)
{
    constexpr std::size_t most = 50; // of a collection: the texts of all would have quadratic length
    constexpr unsigned flagCount = 32;
    std::size_t count = 0;
    for (const SourceBrowserObject *object : collection) {
        if (++count > most)
            return;
        promise(model.find(object->qualifiedName()) != nullptr, "a declaration is found under its name",
                object->qualifiedName().toStdString());
        for (unsigned flags = 0; flags < flagCount; ++flags) {
            const QString rendering = object->description(flags);
            promise(!rendering.isEmpty() || object->name().isEmpty(), "a declaration has a text",
                    object->qualifiedName().toStdString());
            text += rendering.toStdString() + "\n";
        }
    }
}

/// The events and declarations of \a text, as one text.
std::string parse(const QByteArray &text, int lineCount)
{
    Listener listener(lineCount);
    SourceBrowserModel model;
    Parser parser(&model, &listener, text);
    parser.parse(u"input.h"_s, {u"TODO"_s});
    promise(listener.depth == 0, "every container is ended");
    std::string result = std::move(listener.events);
    for (const SourceBrowserModel::Collection &collection : model.all())
        renderAll(model, collection, result);
    return result;
}

} // namespace

void checkDeclarations(std::string_view input)
{
    const QByteArray text = textOf(input);
    const int lineCount = static_cast<int>(text.count('\n')) + 1;
    checkScanner(text, lineCount);
    const std::string result = parse(text, lineCount);
    if (input.size() % 4 == 0)
        promiseEqual(parse(text, lineCount), result, "the same header gives the same declarations");
    if (input.size() % 8 == 1) { // neither model nor listener
        Parser(nullptr, nullptr, text).parse(u"input.h"_s);
    }
}
