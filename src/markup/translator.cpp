#include "markup/translator.h"

#include "base/byte_search.h"
#include "base/text_escape.h"

#include <array>

namespace tavidoc {

namespace {

/// The bit of each character that can be special. The bit of the middle dot belongs to its first byte, which begins
/// other characters too.
constexpr std::array<std::uint8_t, 256> specialTable()
{
    std::array<std::uint8_t, 256> table{};
    table['\\'] = Backslash;
    table['\n'] = LineEnd;
    table['<'] = Less;
    table[0xC2] = MiddleDot;
    table['|'] = Bar;
    return table;
}

constexpr std::array<std::uint8_t, 256> s_special = specialTable();
constexpr std::string_view s_middleDot = "\xC2\xB7";

} // namespace

// cppcheck-suppress uninitMemberVar ; the handlers, which are declared by a type of function, are not variables
Translator::Translator(std::string_view text, const TranslatorSurroundings &surroundings)
    : m_cursor(text), m_blocks(surroundings.blocks), m_pages(surroundings.pages), m_contents(surroundings.contents),
      m_references(surroundings.references), m_report(surroundings.report), m_actions(surroundings.actions),
      m_properties(surroundings.properties), m_icons(surroundings.icons), m_declarations(surroundings.declarations),
      m_outputFormat(surroundings.outputFormat), m_baseHeadingLevel(surroundings.baseHeadingLevel),
      m_facts(surroundings.facts), m_table(surroundings.blocks)
{
}

void Translator::translate()
{
    for (;;) {
        copyText();
        if (!m_cursor.atLimit())
            translateSpecial();
        else if (!m_frames.empty())
            closeFrame();
        else
            break;
    }
    if (m_table.isOpen())
        m_report.warning(m_tableOffset, "this table or matrix is still open at the end of the document");
    m_blocks.setMode(BlockMode::None);
}

/// Copies a run of characters that are not special.
void Translator::copyText()
{
    if (m_blocks.mode() == BlockMode::None && !m_inSynopsis)
        m_cursor.skipBlanksAndLineEnds();
    else if (m_table.isBeforeFirstRow())
        m_cursor.skipSpace();
    const std::size_t begin = m_cursor.offset();
    const std::size_t end = plainTextEnd();
    if (end == begin)
        return;
    noteTextOnNoPage(begin);
    beginText();
    m_blocks.text().append(m_cursor.text(), begin, end - begin);
    if (m_facts != nullptr)
        noteHtml(m_cursor.text().substr(begin, end - begin), begin);
    m_cursor.moveTo(end);
}

/// The end of the run of plain characters at the cursor.
std::size_t Translator::plainTextEnd() const
{
    const unsigned special = specialCharacters();
    const std::string_view text = m_cursor.text().substr(0, m_cursor.limit());
    std::size_t at = m_cursor.offset() - 1;
    do {
        at = findAnyOf<'\\', '\n', '<', '\xC2', '|'>(text, at + 1); // those of s_special
    } while (at < text.size() &&
             ((s_special[static_cast<unsigned char>(text[at])] & special) == 0 || isPlainAfterAll(at, text[at])));
    return at;
}

unsigned Translator::specialCharacters() const
{
    if (m_inSynopsis)
        return Backslash | MiddleDot;
    const unsigned special = traitsOf(m_blocks.mode()).special;
    return m_frames.empty() ? special : special & ~unsigned{LineEnd | Bar};
}

/// True when the special character \a c at \a offset has its plain meaning because of what follows it.
bool Translator::isPlainAfterAll(std::size_t offset, char c) const
{
    const std::string_view text = m_cursor.text();
    if (c == '\n')
        return !isBlankLine(text, offset + 1);
    if (c == '<')
        return offset + 1 >= m_cursor.limit() || text[offset + 1] != '>';
    if (c == s_middleDot.front())
        return text.substr(offset, s_middleDot.size()) != s_middleDot;
    return false;
}

void Translator::translateSpecial()
{
    const std::size_t offset = m_cursor.offset();
    const char c = m_cursor.peek();
    if (c == '\\')
        return backslash();
    if (c == '\n')
        return blankLine();
    noteTextOnNoPage(offset);
    if (c == '|')
        return bar();
    beginText();
    write(c == '<' ? "&nbsp;" : "&#160;"); // deliberate: authors type a no-break space as a middle dot
    m_cursor.moveTo(offset + 2);
}

/// Skips the line end at the cursor with all blank lines after it, and ends the block.
void Translator::blankLine()
{
    const std::string_view text = m_cursor.text();
    std::size_t at = m_cursor.offset() + 1;
    while (isBlankLine(text, at))
        at = text.find('\n', at) + 1;
    m_cursor.moveTo(at);
    m_blocks.setMode(BlockMode::None);
}

void Translator::backslash()
{
    m_commandOffset = m_cursor.offset();
    m_commandName = m_cursor.takeCommandName();
    if (const Command *const command = CommandTable::find(m_commandName))
        run(*command);
    else if (m_commandName.empty() || !isNameCharacter(m_commandName.front()))
        escape(m_commandName);
    else
        errorMarker("unknown command");
    m_pages.commandHasRun(m_commandOffset);
    if (m_pages.state() == Pages::State::None && !m_blocks.text().empty())
        noteTextOnNoPage(m_commandOffset);
}

/// Writes the escaped punctuation character \a name and the hyphen that may follow it in the name.
/// An empty name is a backslash without a character to escape.
void Translator::escape(std::string_view name)
{
    beginText();
    if (name.empty())
        return write("&#x5c;");
    const Command *const command = CommandTable::find(name.substr(0, 1));
    if (command != nullptr)
        write(command->opening);
    else
        writeEscaped(name.substr(0, 1));
    write(name.substr(1));
}

void Translator::run(const Command &command)
{
    if (!isAllowedInArgument(command) && !m_frames.empty())
        return errorMarker("not allowed inside an argument or a synopsis");
    if (command.kind == CommandKind::Page && m_declarations != nullptr)
        return errorMarker("not allowed in header comments");
    (this->*command.handler)(command);
    if (m_facts != nullptr)
        noteContents();
}

void Translator::openFrame(std::size_t end, std::size_t resume, std::string_view closing, void (Translator::*after)())
{
    m_frames.push_back({end, resume, closing, after});
    m_cursor.setLimit(end);
}

void Translator::closeFrame()
{
    const Frame frame = m_frames.back();
    m_frames.pop_back();
    write(frame.closing);
    m_cursor.moveTo(frame.resume);
    m_cursor.setLimit(m_frames.empty() ? m_cursor.text().size() : m_frames.back().end);
    if (frame.after != nullptr)
        (this->*frame.after)();
}

/// Reports the first text where no page is open. In the comments of a header the caller makes the page.
void Translator::noteTextOnNoPage(std::size_t offset)
{
    if (m_pages.state() != Pages::State::None || m_saidNoPage || m_declarations != nullptr)
        return;
    m_saidNoPage = true;
    m_report.error(offset, "text before the first \\split is on no page");
}

/// Makes sure that text can be written: opens a paragraph between blocks, and the first row of a
/// table or matrix.
void Translator::beginText()
{
    if (m_inSynopsis)
        return;
    m_blocks.beginText();
    m_table.beginText();
}

void Translator::write(std::string_view html)
{
    m_blocks.text() += html;
}

void Translator::writeEscaped(std::string_view text)
{
    appendEscaped(m_blocks.text(), text);
}

/// Writes the error marker of the current command and reports \a message.
void Translator::errorMarker(std::string_view message, std::string_view check)
{
    beginText();
    write("***ERROR*** \\");
    error(message, check);
    writeEscaped(m_commandName);
}

/// Warns with \a message at the current command.
void Translator::warning(std::string_view message, std::string_view check)
{
    m_report.warning(m_commandOffset, message, check);
}

/// Reports \a message after the name of the current command.
void Translator::error(std::string_view message, std::string_view check)
{
    m_report.error(m_commandOffset, aboutCommand(message), check);
}

/// Warns with \a message after the name of the current command.
void Translator::commandWarning(std::string_view message)
{
    warning(aboutCommand(message));
}

/// \a message after the name of the current command.
std::string Translator::aboutCommand(std::string_view message) const
{
    std::string text("\\");
    return text.append(m_commandName).append(": ").append(message);
}

void Translator::missingArgument()
{
    errorMarker(m_cursor.atBrace() ? "the argument is not closed" : "the argument is missing");
}

/// Takes the argument in braces. Reports a missing one.
std::optional<std::string_view> Translator::braced()
{
    const std::optional<std::string_view> argument = m_cursor.takeArgument();
    if (!argument)
        missingArgument();
    return argument;
}

/// Takes the argument in braces, else the rest of the line.
std::optional<std::string_view> Translator::lineOrBraced()
{
    return m_cursor.atBrace() ? braced() : m_cursor.takeLine();
}

/// Takes the argument in braces, else the rest of the line. Reports an empty one.
std::optional<std::string_view> Translator::filledLine()
{
    const std::optional<std::string_view> text = lineOrBraced();
    if (!text || !trimmed(*text).empty())
        return text;
    errorMarker("the argument is missing");
    return std::nullopt;
}

} // namespace tavidoc
