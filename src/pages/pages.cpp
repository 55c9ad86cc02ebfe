#include "pages/pages.h"

#include "pages/contents.h"

#include <utility>

namespace tavidoc {

namespace {

/// \a name as the name of a file, where a byte order mark at the beginning is dropped.
std::string_view fileName(std::string_view name)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    return name.starts_with(byteOrderMark) ? name.substr(byteOrderMark.size()) : name;
}

} // namespace

void Pages::open(std::string_view stem)
{
    flush();
    m_state = State::Open;
    m_name = stem;
}

void Pages::openDiscarded()
{
    flush();
    m_state = State::Discarded;
}

void Pages::flush()
{
    m_blocks.setMode(BlockMode::None);
    const bool isWritten = !m_blocks.text().empty() && !m_name.empty();
    if (m_facts != nullptr)
        tellFacts(isWritten);
    if (isWritten)
        output(m_name, frameTitle());
    m_blocks.clear();
    m_name.clear();
    m_title.clear();
    m_state = State::None;
}

void Pages::tellFacts(bool isWritten)
{
    if (!isWritten)
        return m_facts->discard();
    m_facts->finish({.stem = m_name,
                     .title = m_title,
                     .documentTitle = m_documentTitle == s_untitled ? std::string_view() : m_documentTitle,
                     .body = m_blocks.text()});
}

void Pages::setHeader(QString header)
{
    m_header = std::move(header);
}

void Pages::output(std::string_view stem, std::string_view title)
{
    const std::string file = pageFile(stem);
    const std::string_view body = m_blocks.text();
    m_output.add({fileName(file), m_header, m_framed ? m_pageText.framed({}, title, body) : m_pageText.bare(body)});
    m_blocks.clear();
}

const std::string &Pages::frameTitle() const
{
    // Deliberate: a page that has a title is not shown as untitled.
    return m_documentTitle == s_untitled && !m_title.empty() ? m_title : m_documentTitle;
}

} // namespace tavidoc
