#pragma once

#include "base/text_map.h"
#include "site/link/finding_list.h"
#include "site/link/page_set.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The files that are copied into the site: pictures, which lie beside the inputs, and the assets of the project.
class CopiedFiles
{
public:
    /// Refers to all arguments for its whole life.
    CopiedFiles(const PageSet &pages, const SiteSettings &settings, const FileProbe &isReadable, FindingList &findings);

    /// The pictures of \a page whose addresses differ from what its body says. Adds files to copy to \a copied, each
    /// once for each record; pages come in order. Reports `missing-image`.
    [[nodiscard]] std::vector<ResolvedImage> resolvedImages(PageId page, std::vector<CopiedFile> &copied);

    /// The address of the asset that is copied to \a path, relative to the top of the site; null if there is none. The
    /// asset counts as used after that.
    [[nodiscard]] const std::string *assetAt(std::string_view path);

    /// Reports `unused-asset` for what no page used so far.
    void reportUnusedAssets();

private:
    struct Picture
    {
        std::string address;               ///< empty: the picture is missing
        std::uint32_t lastRecord = s_none; ///< that copies it
        bool isAsset = false;
    };
    static constexpr std::uint32_t s_none = 0xffffffff;

    [[nodiscard]] std::string addressOf(const RecordImage &image, std::uint32_t record,
                                        std::vector<CopiedFile> &copied);
    [[nodiscard]] Picture found(std::uint32_t record, std::string_view source, const std::string &file);
    [[nodiscard]] std::string freeAddress(const std::string &wanted);

    const PageSet &m_pages;
    const std::vector<CopiedFile> &m_assets;
    const FileProbe &m_isReadable;
    FindingList &m_findings;
    std::vector<bool> m_isUsed;             // by asset
    TextMap<std::size_t> m_assetsByAddress; // encoded
    TextMap<std::size_t> m_assetsBySource;
    TextMap<std::uint32_t> m_copyCounts; // by wanted address in small letters: the files that were to be there
    TextMap<Picture> m_pictures;         // by wanted address and source
};

} // namespace tavidoc
