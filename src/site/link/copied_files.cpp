#include "site/link/copied_files.h"

#include "site/link/addresses.h"
#include "site/link/page_names.h"

#include <algorithm>

namespace tavidoc {

namespace {

/// Where the picture \a source of a page in \a folder is copied to: the same place beside the page. A path that leaves
/// the site has its ".." encoded, and of an absolute one only the file name counts.
std::string wantedAddress(std::string_view folder, std::string_view source)
{
    if (source.starts_with('/'))
        return encodedPath(source.substr(source.rfind('/')));
    return encodedPath(cleanedPath(folder, source));
}

bool isAddress(std::string_view source)
{
    return source.starts_with("//") || !schemeOf(source).empty();
}

} // namespace

CopiedFiles::CopiedFiles(const PageSet &pages, const SiteSettings &settings, const FileProbe &isReadable,
                         FindingList &findings)
    : m_pages(pages), m_assets(settings.assets), m_isReadable(isReadable), m_findings(findings),
      m_isUsed(settings.assets.size())
{
    for (std::size_t i = 0; i < m_assets.size(); ++i) {
        m_assetsByAddress.emplace(encodedPath(m_assets[i].address), i);
        m_assetsByAddress.emplace(m_assets[i].address, i);
        m_assetsBySource.emplace(cleanedPath({}, m_assets[i].source), i);
        m_copyCounts.emplace(lowerCase(m_assets[i].address), 1);
    }
    for (const CopiedFile *file : {&settings.logo, &settings.favicon, &settings.style}) {
        if (file->address.empty())
            continue;
        m_copyCounts.emplace(lowerCase(file->address), 1);
        if (const auto asset = m_assetsBySource.find(cleanedPath({}, file->source)); asset != m_assetsBySource.end())
            m_isUsed[asset->second] = true;
    }
    for (const char *file : {"site.css", "site.js", "search.js", "search_box.js"})
        m_copyCounts.emplace(file, 1);
}

std::vector<ResolvedImage> CopiedFiles::resolvedImages(PageId page, std::vector<CopiedFile> &copied)
{
    const RecordPage &shown = m_pages.page(page);
    std::vector<ResolvedImage> resolved;
    for (std::uint32_t i = 0; i < shown.images.size(); ++i) {
        const RecordImage &image = shown.images[i];
        if (image.source.empty() || (!image.isIcon && isAddress(image.source)))
            continue;
        const std::string address = addressOf(image, m_pages.recordOf(page), copied);
        if (address.empty())
            continue;
        std::string relative = relativeAddress(m_pages.address(page), address);
        if (relative != image.source)
            resolved.push_back({i, std::move(relative)});
    }
    return resolved;
}

/// The address of a picture of a page of \a record, relative to the top of the site; empty when it is missing.
std::string CopiedFiles::addressOf(const RecordImage &image, std::uint32_t record, std::vector<CopiedFile> &copied)
{
    const Record &owner = m_pages.records()[record];
    std::string wanted = wantedAddress(owner.folder, image.source);
    if (image.isIcon)
        return wanted; // rendering writes it there
    const std::string file = cleanedPath(directoryOf(owner.input), image.source);
    const auto [entry, isNew] = m_pictures.try_emplace(wanted + '\0' + file);
    Picture &picture = entry->second;
    if (isNew)
        picture = found(record, image.source, file);
    if (picture.address.empty()) {
        m_findings.add("missing-image", record, image.place, "cannot read the picture " + inQuotes(file));
    } else if (!picture.isAsset && picture.lastRecord != record) {
        picture.lastRecord = record;
        copied.push_back({file, picture.address});
    }
    return picture.address;
}

CopiedFiles::Picture CopiedFiles::found(std::uint32_t record, std::string_view source, const std::string &file)
{
    const std::string &folder = m_pages.records()[record].folder;
    if (m_isReadable(file)) {
        if (const auto asset = m_assetsBySource.find(file); asset != m_assetsBySource.end()) {
            m_isUsed[asset->second] = true;
            return {m_assets[asset->second].address, s_none, true};
        }
        return {freeAddress(wantedAddress(folder, source)), s_none, false};
    }
    // What is not beside the input may be among the assets, where the address in the page leads to.
    for (const std::string_view from : {std::string_view(folder), std::string_view()}) {
        const auto path = joinedPath(from, source);
        if (const std::string *asset = path ? assetAt(*path) : nullptr)
            return {*asset, s_none, true};
    }
    return {};
}

/// \a wanted, unless another file or a page has it.
std::string CopiedFiles::freeAddress(const std::string &wanted)
{
    const bool isPage = m_pages.atAddress(wanted) != s_noPage || isSitePage(wanted);
    std::uint32_t &count = m_copyCounts[lowerCase(wanted)];
    ++count;
    if (count == 1 && !isPage)
        return wanted;
    return '~' + std::to_string(count) + '/' + wanted; // no folder has such a name
}

const std::string *CopiedFiles::assetAt(std::string_view path)
{
    auto asset = m_assetsByAddress.find(path);
    if (asset == m_assetsByAddress.end())
        asset = m_assetsByAddress.find(encodedPath(path));
    if (asset == m_assetsByAddress.end())
        return nullptr;
    m_isUsed[asset->second] = true;
    return &m_assets[asset->second].address;
}

void CopiedFiles::reportUnusedAssets()
{
    for (std::size_t i = 0; i < m_assets.size(); ++i) {
        if (!m_isUsed[i])
            m_findings.addWithoutLine("unused-asset", m_assets[i].source, "no page uses this file");
    }
}

} // namespace tavidoc
