#include "site/render/render.h"

#include "site/link/page_names.h"
#include "site/render/body.h"
#include "site/render/page_frame.h"
#include "site/render/record_body.h"

namespace tavidoc {

namespace {

const LinkTarget *pointerTo(const std::optional<LinkTarget> &target)
{
    return target ? &*target : nullptr;
}

} // namespace

std::string_view recordBody(const RecordWithBodies &record, const RecordPage &page)
{
    const std::string_view bodies = record.bodies;
    const bool isInside = page.bodyOffset <= bodies.size() && page.bodyLength <= bodies.size() - page.bodyOffset;
    return isInside ? bodies.substr(page.bodyOffset, page.bodyLength) : std::string_view();
}

std::string iconAddress(const Record &record, const RecordIcon &icon)
{
    return record.folder.empty() ? icon.name : encodedPath(record.folder) + '/' + icon.name;
}

void renderRecord(const RecordWithBodies &record, const RecordLinks &links, const SharedLinks &shared,
                  const FileSink &sink)
{
    for (const PageLinks &pageLinks : links.pages) {
        if (pageLinks.page >= record.head.pages.size())
            continue;
        const RecordPage &page = record.head.pages[pageLinks.page];
        const std::vector<RecordHeading> headings = siteHeadings(page, pageLinks);
        const PageFrame frame = {.address = pageLinks.address,
                                 .title = pageLinks.title,
                                 .ancestors = &pageLinks.ancestors,
                                 .navigation = &pageLinks.navigation,
                                 .headings = &headings,
                                 .previous = pointerTo(pageLinks.previous),
                                 .next = pointerTo(pageLinks.next)};
        const std::string body = siteBody(recordBody(record, page), page, pageLinks);
        sink(pageLinks.address, framedSitePage(frame, body, shared.settings));
    }
    for (const RecordIcon &icon : record.head.icons) {
        sink(iconAddress(record.head, icon), QByteArray(icon.bytes.data(), static_cast<qsizetype>(icon.bytes.size())));
    }
}

} // namespace tavidoc
