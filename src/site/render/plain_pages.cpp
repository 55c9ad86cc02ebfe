#include "site/render/plain_pages.h"

#include "base/text_map.h"
#include "pages/html_pages.h"
#include "site/link/addresses.h"
#include "site/render/body.h"
#include "site/render/record_body.h"
#include "site/render/site_files.h"

#include <algorithm>
#include <set>

namespace tavidoc {

namespace {

/// Characters that not every file system allows in names. A page with one of them has the name that the site gives it.
constexpr std::string_view s_forbidden("\0\\:*?\"<>|\n\r\t", 12);

bool isMarkup(const RecordPage &page)
{
    return page.kind == RecordPageKind::Markup;
}

/// What tavidoc shows in the title of the window.
std::string frameTitle(const RecordPage &page)
{
    if (!page.documentTitle.empty())
        return page.documentTitle;
    return page.title.empty() ? "Untitled" : page.title;
}

} // namespace

void PlainPages::addNames(const Record &record, const RecordLinks &links)
{
    for (const PageLinks &page : links.pages) {
        if (page.page >= record.pages.size())
            continue;
        const RecordPage &recorded = record.pages[page.page];
        std::string name = page.address;
        if (isMarkup(recorded) && recorded.stem.find_first_of(s_forbidden) == std::string::npos)
            name = joinedPath(record.folder, recorded.stem + ".htm").value_or(page.address);
        m_names.insert_or_assign(page.address, std::move(name));
    }
}

void PlainPages::write(const RecordWithBodies &record, const RecordLinks &links, const FileSink &sink)
{
    PageText text;
    for (const PageLinks &page : links.pages) {
        if (page.page >= record.head.pages.size())
            continue;
        const RecordPage &recorded = record.head.pages[page.page];
        std::string body(recordBody(record, recorded));
        if (!isMarkup(recorded))
            body = relocatedBody(body, recorded, relocated(page));
        QByteArray bytes;
        for (const std::string_view part : text.framed({}, frameTitle(recorded), body))
            bytes.append(part.data(), static_cast<qsizetype>(part.size()));
        sink(m_names.at(page.address), bytes);
    }
    for (const RecordIcon &icon : record.head.icons) {
        sink(joinedPath(record.head.folder, icon.name).value_or(icon.name),
             QByteArray(icon.bytes.data(), static_cast<qsizetype>(icon.bytes.size())));
    }
}

/// \a links, with the names of the files in place of addresses.
PageLinks PlainPages::relocated(const PageLinks &links) const
{
    PageLinks result = links;
    for (ResolvedLink &link : result.links) {
        const std::size_t pathEnd = std::min(link.address.find('#'), link.address.size());
        const std::string_view relative = std::string_view(link.address).substr(0, pathEnd);
        const auto path = joinedPath(directoryOf(links.address), relative);
        const auto name = path && !relative.empty() ? m_names.find(*path) : m_names.end();
        if (name != m_names.end() && name->second != *path)
            link.address.replace(0, pathEnd, relativeAddress(m_names.at(links.address), name->second));
    }
    return result;
}

void PlainPages::writeStyles(const FileSink &sink) const
{
    const QByteArray style = QByteArray::fromStdString(plainStyleSheet());
    std::set<std::string_view> directories;
    for (const auto &[address, name] : m_names)
        directories.insert(directoryOf(name));
    for (const std::string_view directory : directories)
        sink(std::string(directory) + (directory.empty() ? "" : "/") + "default.css", style);
}

std::vector<CopiedFile> PlainPages::copies(const Record &record, const RecordLinks &links,
                                           const std::vector<CopiedFile> &files) const
{
    TextMap<std::string_view> sources;
    for (const std::vector<CopiedFile> *list : {&files, &links.images}) {
        for (const CopiedFile &file : *list)
            sources.emplace(file.address, file.source);
    }
    std::vector<CopiedFile> copied;
    for (const PageLinks &page : links.pages) {
        if (page.page >= record.pages.size())
            continue;
        const RecordPage &recorded = record.pages[page.page];
        std::vector<std::string> addresses; // relative to the page, as the site has them
        for (const RecordImage &image : recorded.images)
            addresses.push_back(image.source);
        for (const ResolvedImage &resolved : page.images) {
            if (resolved.image < addresses.size())
                addresses[resolved.image] = resolved.address;
        }
        for (std::size_t i = 0; i < addresses.size(); ++i) {
            const auto inSite = joinedPath(directoryOf(page.address), addresses[i]);
            const auto source = inSite ? sources.find(*inSite) : sources.end();
            const auto place = isMarkup(recorded)
                                   ? joinedPath(directoryOf(m_names.at(page.address)), recorded.images[i].source)
                                   : inSite;
            if (source != sources.end() && place)
                copied.push_back({std::string(source->second), *place});
        }
    }
    return copied;
}

} // namespace tavidoc
