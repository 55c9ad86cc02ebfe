#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"
#include "site/render/section_body.h"

#include <QByteArray>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Makes one page of all pages of a site, for print: a title page, the contents, and a section for each page in the
/// order of the contents. It needs no script, and its styles are in it.
class SinglePage
{
public:
    /// \a filesFolder is the address of the directory of the copied files relative to the page, with "/" at its end.
    /// \a copied are the files of the project in it. Refers to \a shared for its whole life.
    SinglePage(const SharedLinks &shared, std::string filesFolder, const std::vector<CopiedFile> &copied);

    /// Adds the pages of a record. The records may come in any order.
    void add(const RecordWithBodies &record, const RecordLinks &links);

    /// The file, when all records were added.
    [[nodiscard]] QByteArray file();

private:
    void head();
    void titlePage();
    void contents();
    void sections();
    void section(const ContentsEntry &entry);
    [[nodiscard]] std::string runningTitle() const;

    struct Page
    {
        std::string title;
        std::string body; ///< that for the site
        bool isShown = false;
    };

    const SiteSettings &m_settings;
    SectionTargets m_targets;
    std::unordered_map<std::string, Page> m_pages; ///< by address
    std::size_t m_chapterLevel = 1;                ///< sections down to this level begin on a new sheet
    std::string m_html;
};

} // namespace tavidoc
