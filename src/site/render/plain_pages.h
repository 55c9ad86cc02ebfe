#pragma once

#include "site/link/link_data.h"
#include "site/record/record.h"
#include "site/render/render.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Makes the pages that tavidoc makes: without scripts, in its own frame. Pages of markup are exactly its bytes, and
/// their files have the names that it gives them. Links of reference pages lead over the whole set, as in a site.
class PlainPages
{
public:
    /// Names the files of the pages of a record. All records come first here, then in write().
    void addNames(const Record &record, const RecordLinks &links);
    /// The file of each page, by its address in the site.
    [[nodiscard]] const std::map<std::string, std::string> &names() const { return m_names; }

    /// Hands out the pages and icons of a record.
    void write(const RecordWithBodies &record, const RecordLinks &links, const FileSink &sink);
    /// Hands out the style sheet, once for each directory with pages.
    void writeStyles(const FileSink &sink) const;

    /// Where the files go that \a files, with addresses in the site, are copied to for the pages of the record. A picture
    /// whose place in a page of markup would be outside of the set is left out.
    [[nodiscard]] std::vector<CopiedFile> copies(const Record &record, const RecordLinks &links,
                                                 const std::vector<CopiedFile> &files) const;

private:
    [[nodiscard]] PageLinks relocated(const PageLinks &links) const;

    std::map<std::string, std::string> m_names;
};

} // namespace tavidoc
