#pragma once

#include "site/link/page_set.h"
#include "site/link/string_ids.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// What a name is of a page. A link looks for them in this order.
enum class NameKind : std::uint8_t
{
    Stem,      ///< the name of the page
    Title,     ///< the title of the page, exactly
    Qualified, ///< the qualified name of its declaration
    Bare,      ///< the end of that name, after any "::"
    Member,    ///< a qualified name, or the end of one, of a declaration that has a row on the page
};

constexpr auto s_noMember = static_cast<std::uint32_t>(-1);

/// Who looks for a name: what is nearest to it comes first.
struct NameSeeker
{
    std::uint32_t record = 0;
    std::uint32_t folder = 0; ///< see PageSet::folder()
};

/// A page that has a name.
struct NamedPage
{
    NameKind kind = NameKind::Stem;
    std::uint32_t folder = 0;
    std::uint32_t record = 0;
    PageId page = s_noPage;
    std::uint32_t member = s_noMember; ///< index in RecordPage::members
};

/// The names of all pages that are written.
class NameIndex
{
public:
    /// Refers to \a pages for its whole life.
    explicit NameIndex(const PageSet &pages);

    /// The pages whose \a kind is \a name that are nearest to \a seeker: those of its record, else of its folder, else
    /// all. Empty when there are none.
    [[nodiscard]] std::span<const NamedPage> find(NameKind kind, std::string_view name, NameSeeker seeker) const;

    /// Whether any page has \a name, of whatever kind.
    [[nodiscard]] bool knows(std::string_view name) const { return m_names.find(name) != StringIds::s_none; }

    /// Looks for \a name, relative to \a scope, "a::b", and the scopes around it, from the inside out: calls \a take with
    /// the declarations of the qualified name in each scope that has any, and with those that have no page of their
    /// own, until it returns true. A class's own name means the class, not its constructors.
    template <typename Take>
    void findInScopes(std::string_view scope, std::string_view name, NameSeeker seeker, Take take) const
    {
        std::string qualified;
        for (int depth = 0; !scope.empty() && depth < s_mostScopes; ++depth) {
            const std::size_t separator = scope.rfind("::");
            const std::size_t last = separator == std::string_view::npos ? 0 : separator + 2;
            if (scope.substr(last) != name) {
                qualified.assign(scope).append("::").append(name);
                for (const NameKind kind : {NameKind::Qualified, NameKind::Member}) {
                    const std::span<const NamedPage> candidates = find(kind, qualified, seeker);
                    if (!candidates.empty() && take(candidates))
                        return;
                }
            }
            scope = scope.substr(0, separator == std::string_view::npos ? 0 : separator);
        }
    }

    /// A name of any kind that is one edit away from \a name (a byte more, less or another one, or two neighbours
    /// swapped); empty when there is none. Takes some thousand look-ups.
    [[nodiscard]] std::string neighbourOf(std::string_view name) const;

private:
    static constexpr int s_mostScopes = 16;

    struct Entry
    {
        std::uint32_t name;
        NamedPage page;
    };

    [[nodiscard]] std::vector<Entry> collectedEntries();
    void addPage(std::vector<Entry> &entries, PageId page);
    void addMembers(std::vector<Entry> &entries, PageId page);
    void groupByName(const std::vector<Entry> &entries);

    const PageSet &m_pages;
    StringIds m_names;
    std::vector<std::uint32_t> m_firstOfName; // in m_namedPages, by name id, and the count of all
    std::vector<NamedPage> m_namedPages;      // by name, kind, folder, record and page
};

} // namespace tavidoc
