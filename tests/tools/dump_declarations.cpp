// Prints the tokens, events and complaints, or the model, of headers; "all" is the model with what belongs to C++ only.

#include "sourcebrowser/c_parser.h"
#include "sourcebrowser/c_scanner.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

class Listener : public SourceBrowserEventInterface
{
public:
    void preprocessorLine(const QString &text, int line, int count) override
    {
        out() << "preprocessor " << line << " " << count << " " << text << "\n";
    }
    void fixmeComment(const QString &word, int line) override { out() << "fixme " << line << " " << word << "\n"; }
    void declareContainer(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                          const QString &further, int line) override
    {
        out() << "container " << line << " " << phylum << " " << name << " | " << declaration << " | " << further
              << "\n";
    }
    void endContainer() override { out() << "end\n"; }
    void declareObject(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                       int line) override
    {
        out() << "object " << line << " " << phylum << " " << name << " | " << declaration << "\n";
    }
    void visibilityChange(SourceBrowserObject::Access access, int line) override
    {
        out() << "visibility " << line << " " << access << "\n";
    }
};

/// Lines of a text in memory.
class Lines
{
public:
    explicit Lines(const QByteArray &text) : m_text(text) {}
    bool take(QString &line)
    {
        if (m_at >= m_text.size())
            return false;
        qsizetype end = m_text.indexOf('\n', m_at);
        end = end < 0 ? m_text.size() : end;
        line = QString::fromUtf8(QByteArrayView(m_text).sliced(m_at, end - m_at));
        m_at = end + 1;
        return true;
    }

private:
    QByteArray m_text;
    qsizetype m_at = 0;
};

class Parser : public SourceBrowserCParser
{
public:
    Parser(SourceBrowserModel &model, Listener *listener, const QByteArray &text)
        : SourceBrowserCParser(&model, listener), m_lines(text)
    {
    }
    bool readLine(QString &line) override { return m_lines.take(line); }
    void addResult(const QString &file, int line, const QString &message) override
    {
        if (complains)
            out() << file << ":" << line << ": " << message << "\n";
    }
    bool complains = false;

private:
    Lines m_lines;
};

class TokenLines : public SourceBrowserLineIterator
{
public:
    explicit TokenLines(const QByteArray &text) : m_lines(text) {}
    bool readLine(QString &line) override { return m_lines.take(line); }

private:
    Lines m_lines;
};

void dumpTokens(const QString &file, const QByteArray &text)
{
    TokenLines lines(text);
    SourceBrowserLineStatistics statistics;
    SourceBrowserCScanner scanner(lines, file, nullptr, nullptr, statistics, {});
    while (const int code = scanner.nextToken())
        out() << scanner.line() << " " << code << " " << scanner.tokenText() << "\n";
}

void dumpCollection(const char *title, const SourceBrowserModel::Collection &collection)
{
    for (const SourceBrowserObject *object : collection) {
        const SourceBrowserObject::Lines &lines = object->lines();
        out() << title << "\t" << object->qualifiedName() << "\t" << object->phylum() << "\t" << lines.first + 1 << "\t"
              << std::max(lines.first, lines.last) + 1 << "\t" << object->description().replace(u'\n', u' ') << "\n";
    }
}

void dumpModel(const SourceBrowserModel &model)
{
    constexpr std::array titles = {"container", "function", "variable", "enumeration", "macro"};
    static_assert(titles.size() == SourceBrowserModel::PositionCount);
    for (size_t position = 0; position < titles.size(); ++position)
        dumpCollection(titles[position], model.all()[position]);
}

} // namespace

int main(int count, char **values)
{
    const QString mode = count > 1 ? QString::fromLocal8Bit(values[1]) : QString();
    if (count < 3 || !QStringList({"tokens"_L1, "events"_L1, "model"_L1, "all"_L1, "count"_L1}).contains(mode)) {
        std::fputs("usage: dump_declarations tokens|events|model|all|count HEADER...\n", stderr);
        return 1;
    }
    for (int index = 2; index < count; ++index) {
        const QString name = QString::fromLocal8Bit(values[index]);
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = file.readAll();
        if (mode == "tokens"_L1) {
            dumpTokens(name, text);
            continue;
        }
        SourceBrowserModel model;
        Listener listener;
        Parser parser(model, mode == "events"_L1 ? &listener : nullptr, text);
        parser.complains = mode == "events"_L1;
        parser.setComplete(mode == "all"_L1);
        parser.parse(name);
        if (mode == "model"_L1 || mode == "all"_L1)
            dumpModel(model);
        if (mode == "count"_L1)
            out() << name << " " << model.functions().size() << " " << model.variables().size() << "\n";
    }
    return 0;
}
