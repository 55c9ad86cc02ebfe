#include "pages/pages.h"

#include "pages/contents.h"
#include "pages/html_pages.h"

#include <utility>

namespace tavidoc {

Pages::Pages(HtmlBlocks &blocks, OutputRecords &records, QString outputDirectory, bool framed)
    : m_blocks(blocks), m_records(records), m_outputDirectory(std::move(outputDirectory)), m_framed(framed)
{
}

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
    const std::string &body = m_blocks.text();
    if (!body.empty() && !m_name.empty())
        m_records.push_back(
            {filePath(pageFile(m_name)), m_header, m_framed ? framedPage({}, frameTitle(), body) : barePage(body)});
    m_blocks.clear();
    m_name.clear();
    m_title.clear();
    m_state = State::None;
}

void Pages::setHeader(QString header)
{
    m_header = std::move(header);
}

QString Pages::filePath(std::string_view name) const
{
    QString path = m_outputDirectory;
    path += u'/';
    // cppcheck-suppress danglingTemporaryLifetime ; a caller's temporary outlives the call
    path += QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    return path;
}

const std::string &Pages::frameTitle() const
{
    // Deliberate: a page that has a title is not shown as untitled.
    return m_documentTitle == s_untitled && !m_title.empty() ? m_title : m_documentTitle;
}

} // namespace tavidoc
