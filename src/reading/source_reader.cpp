#include "reading/source_reader.h"

#include "base/hexception.h"
#include "base/white_space.h"

#include <QFile>

#include <algorithm>

#include <sys/stat.h>

namespace tavidoc {

namespace {

/// A file that is open this often at once never ends.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION // an instrumented build is slow
constexpr std::size_t s_endlessDepth = 100;
#else
constexpr std::size_t s_endlessDepth = 10'000;
#endif
/// Neither does one that is open this often and whose readings add up to this size.
constexpr std::size_t s_suspiciousDepth = 100;
constexpr qsizetype s_endlessSize = qsizetype{64} * 1024 * 1024; // bytes

/// The part of \a text after its first blank; empty without one.
std::string_view afterFirstBlank(std::string_view text)
{
    const std::size_t blank = text.find(' ');
    return blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
}

std::string_view firstWord(std::string_view text)
{
    return text.substr(0, text.find(' '));
}

/// Sets the introducer of a macro context for the duration of an expansion, even if that throws.
class IntroducerChange
{
public:
    IntroducerChange(MacroContext &macros, char introducer) : m_macros(macros), m_before(macros.introducer())
    {
        m_macros.setIntroducer(introducer);
    }
    IntroducerChange(const IntroducerChange &) = delete;
    IntroducerChange &operator=(const IntroducerChange &) = delete;
    ~IntroducerChange() { m_macros.setIntroducer(m_before); }

private:
    MacroContext &m_macros;
    char m_before;
};

} // namespace

SourceReader::SourceReader(MacroContext *macros, std::string_view outputFormat)
    : m_macros(macros), m_conditions(outputFormat)
{
}

SourceDocument SourceReader::read(const Path &path)
{
    enter(path);
    while (!m_open.empty()) {
        std::string_view line;
        if (m_open.back().reader.readLine(line))
            readLine(line);
        else
            leave();
    }
    return std::move(m_document);
}

void SourceReader::enter(const Path &path)
{
    struct stat status = {};
    FileIdentity identity;
    if (::stat(QFile::encodeName(path.given()).constData(), &status) == 0)
        identity = {status.st_dev, status.st_ino};
    Readings &readings = m_readings[identity];
    const bool known = identity != FileIdentity() && !readings.enteredStacks.empty();
    if (known && isEndless(readings)) // deliberate: such a run would never finish
        throw HException(path.given().toUtf8() + " includes itself without end");
    SourceLineReader reader = known ? SourceLineReader(path, readings.text) : SourceLineReader(path);
    readings.text = reader.text();
    readings.enteredStacks.push_back(m_conditions.stackIdentity());
    m_open.push_back({std::move(reader), identity, m_document.map.addFile(path.given())});
    m_conditions.setSuppressed(false);
}

/// Whether reading a file once more, in addition to the open readings, proves that it never ends.
bool SourceReader::isEndless(const Readings &readings) const
{
    const std::vector<int> &stacks = readings.enteredStacks;
    const std::size_t depth = stacks.size() + 1;
    if (depth >= s_endlessDepth)
        return true;
    if (m_macros != nullptr)
        return false; // the next reading may expand to something else
    return std::ranges::find(stacks, m_conditions.stackIdentity()) != stacks.end() ||
           (depth >= s_suspiciousDepth && static_cast<qsizetype>(depth) * readings.text.size() > s_endlessSize);
}

void SourceReader::leave()
{
    const OpenSource left = std::move(m_open.back());
    m_open.pop_back();
    if (m_open.empty() && !m_document.isJoined) {
        m_document.file = left.reader.text();
        m_document.kept = {m_run.begin, static_cast<std::size_t>(m_run.end - m_run.begin)};
        m_document.map.beginStretch(0, m_run.file, m_run.line);
        return;
    }
    joinRun();
    const auto readings = m_readings.find(left.identity);
    readings->second.enteredStacks.pop_back();
    if (readings->second.enteredStacks.empty())
        m_readings.erase(readings);
    if (m_open.empty())
        return;
    if (!left.reader.wasRead())
        m_document.missingIncludes.push_back({nextLineOffset(), left.reader.path().given().toStdString()});
    // Includes are followed only while lines are kept, so lines are kept again; the end of the include
    // reads as one empty line.
    m_conditions.setSuppressed(false);
    if (m_macros == nullptr)
        return keepCopy({});
    textLine({});
}

void SourceReader::readLine(std::string_view line)
{
    const std::string_view content = afterWhiteSpace(line);
    const char first = content.empty() ? '\0' : content.front();
    if (first == '%') {
        if (m_listsSwallowed)
            noteSwallowed(SwallowedLine::Reason::Comment, content);
        return;
    }
    if (first == '@' && content.substr(1, 1) != "(")
        return directive(content);
    if (!m_conditions.suppressed())
        textLine(line);
}

void SourceReader::directive(std::string_view line)
{
    constexpr std::string_view definition = "@def";
    const std::string words = simplified(line);
    const bool isDefinition = words.starts_with(definition);
    const bool isMistaken = isDefinition && words.size() > definition.size() && words[definition.size()] != ' ';
    if (m_listsSwallowed && (isMistaken || (!isDefinition && !m_conditions.hasEffect(words))))
        noteSwallowed(SwallowedLine::Reason::Directive, words);
    if (isDefinition)
        return define(words);
    m_conditions.apply(words);
}

/// Lists \a line unless it would be dropped anyway.
void SourceReader::noteSwallowed(SwallowedLine::Reason reason, std::string_view line)
{
    if (m_conditions.suppressed())
        return;
    const std::size_t run = m_run.begin == nullptr ? 0 : static_cast<std::size_t>(m_run.end - m_run.begin) + 1;
    const OpenSource &source = m_open.back();
    m_document.swallowedLines.push_back({.reason = reason,
                                         .offset = nextLineOffset() + run,
                                         .file = source.reader.path().given(),
                                         .line = source.reader.lineNumber(),
                                         .text = simplified(line)});
}

void SourceReader::define(const std::string &line)
{
    const std::string_view definition = afterFirstBlank(line);
    std::string value(afterFirstBlank(definition));
    std::string_view next;
    // Lines that continue a definition are not interpreted.
    while (value.ends_with('\\') && m_open.back().reader.readLine(next)) {
        value.pop_back();
        value += next;
    }
    if (!m_conditions.suppressed())
        m_definitions.insert_or_assign(std::string(firstWord(definition)), std::move(value));
}

void SourceReader::textLine(std::string_view line)
{
    if (m_macros == nullptr) {
        if (!include(line))
            keepInPlace(line);
        return;
    }
    const std::string expanded = expandedLine(line);
    if (!include(expanded))
        keepCopy(expanded);
}

std::string SourceReader::expandedLine(std::string_view line)
{
    const IntroducerChange change(*m_macros, '@');
    return m_macros->expand(line, m_definitions);
}

bool SourceReader::include(std::string_view line)
{
    constexpr std::string_view command = "\\include"; // also the beginning of a longer name
    if (!afterWhiteSpace(line).starts_with(command))
        return false;
    const std::string words = simplified(line);
    const std::string_view name = afterFirstBlank(words);
    if (!firstWord(name).ends_with(".dg"))
        return false;
    enter(Path(QString::fromUtf8(name)));
    return true;
}

void SourceReader::keepInPlace(std::string_view line)
{
    const char *const end = line.data() + line.size();
    if (m_run.begin != nullptr && m_run.end + 1 == line.data() && m_run.file == m_open.back().file) {
        m_run.end = end;
        return;
    }
    joinRun();
    m_run = {line.data(), end, m_open.back().file, m_open.back().reader.lineNumber()};
}

void SourceReader::keepCopy(std::string_view line)
{
    joinRun();
    beginJoinedLine(m_open.back().file, std::max(1, m_open.back().reader.lineNumber()));
    m_document.joined += line;
}

void SourceReader::joinRun()
{
    if (m_run.begin == nullptr)
        return;
    beginJoinedLine(m_run.file, m_run.line);
    m_document.joined.append(m_run.begin, m_run.end);
    m_run = {};
}

/// The offset in the text of the next line.
std::size_t SourceReader::nextLineOffset() const
{
    return m_document.isJoined ? m_document.joined.size() + 1 : 0;
}

void SourceReader::beginJoinedLine(int file, int line)
{
    if (m_document.isJoined)
        m_document.joined += '\n';
    else
        m_document.joined.reserve(static_cast<std::size_t>(m_open.front().reader.text().size()));
    m_document.isJoined = true;
    m_document.map.beginStretch(m_document.joined.size(), file, line);
}

} // namespace tavidoc
