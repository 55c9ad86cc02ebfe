#include "markup/translator.h"

#include "base/text_escape.h"
#include "markup/member_groups.h"
#include "markup/page_titles.h"
#include "pages/html_pages.h"

#include <utility>

namespace tavidoc {

namespace {

/// True when the page file of \a stem is outside the output directory.
bool leavesDirectory(std::string_view stem)
{
    if (stem.starts_with('/'))
        return true;
    for (std::size_t begin = 0; begin <= stem.size();) {
        const std::size_t end = std::min(stem.find('/', begin), stem.size());
        if (stem.substr(begin, end - begin) == "..")
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace

void Translator::title(const Command &)
{
    const auto text = filledLine();
    if (!text)
        return;
    m_blocks.setMode(BlockMode::None);
    const bool onPage = m_pages.state() != Pages::State::None || m_declarations != nullptr;
    if (!onPage && !m_pageOpened) {
        m_contents.openTitle(*text);
        m_pages.setDocumentTitle(*text);
    }
    m_pages.setTitle(*text);
    if (!onPage)
        return;
    if (!m_pages.framed())
        appendHeading(m_blocks.text(), m_baseHeadingLevel, *text);
    if (m_outputFormat == "html") {
        write("<h1>");
        writeEscaped(*text);
        write("</h1>");
    }
}

void Translator::split(const Command &)
{
    const auto stem = takePageName(m_cursor);
    if (!stem)
        return missingArgument();
    const bool withEntry = !std::exchange(m_withoutEntry, false);
    m_saidNoPage = false;
    if (stem->empty())
        return m_pages.flush();
    m_pageOpened = true;
    if (leavesDirectory(*stem)) {
        // Deliberate: a document never writes elsewhere.
        error("page \"" + simplified(*stem) + "\" is outside the output directory");
        return m_pages.openDiscarded();
    }
    if (withEntry)
        m_contents.openPage(*stem);
    m_pages.open(*stem);
    if (m_facts != nullptr)
        m_facts->beginPage(place(m_commandOffset));
}

void Translator::here(const Command &)
{
    m_withoutEntry = true;
}

void Translator::contents(const Command &)
{
    const std::string_view argument = m_cursor.takeLine();
    if (argument.starts_with('<'))
        return m_contents.addLine(argument);
    steerContents(trimmedEnd(argument));
}

void Translator::steerContents(std::string_view direction)
{
    if (direction == "down")
        return m_contents.goDown();
    if (direction == "up")
        return m_contents.goUp();
    if (direction != "top" && direction != "sync")
        return errorMarker("invalid direction \"" + std::string(direction) +
                           "\": expected down, up, top, sync or an XML line");
    if (direction == "top")
        m_contents.goTop();
    m_contents.closeLevels();
    m_pages.flush();
    m_saidNoPage = false;
}

void Translator::includeInContents(const Command &)
{
    if (const auto name = filledLine())
        m_contents.addInclude(trimmed(*name));
}

void Translator::rawContent(const Command &)
{
    m_contents.addLine(m_cursor.takeLine());
}

void Translator::beginGroup(const Command &)
{
    if (const auto text = filledLine())
        m_contents.beginGroup(*text);
}

void Translator::endGroup(const Command &)
{
    if (!m_contents.endGroup())
        errorMarker("there is nothing to close");
}

void Translator::inGroup(const Command &)
{
    const auto name = filledLine();
    if (!name)
        return;
    if (m_pages.name().empty())
        return errorMarker("no page is open: expected \\split before it");
    MemberGroups::file(m_pages.name(), trimmed(*name));
    if (m_facts != nullptr)
        m_facts->setGroup(trimmed(*name));
}

void Translator::groupOrder(const Command &)
{
    const auto names = filledLine();
    if (!names)
        return;
    MemberGroups::setOrder(*names);
    if (m_facts != nullptr)
        m_facts->setGroupOrder({std::string(*names), place(m_commandOffset)});
}

} // namespace tavidoc
