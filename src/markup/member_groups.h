#pragma once

#include "markup/shared_tables.h"
#include "pages/document_facts.h"

#include <string>
#include <string_view>
#include <vector>

/// Assigns pages to groups, in the tables that all documents share.
namespace tavidoc::MemberGroups {

/// The caption of the pages that never named a group.
inline constexpr std::string_view s_unassigned = "*** UNASSIGNED GROUP ***";

/// A group with the stems of its pages in the order in which they were made.
struct Group
{
    std::string name;
    std::vector<std::string> pages;
};

/// Puts \a page into \a group; the last group that a page names counts.
void file(std::string_view page, std::string_view group);
/// Sets the order of groups from a comma-separated list of names.
void setOrder(std::string_view names);
/// Tells the listener of \a facts about the groups that the document's last `\grouporder` names and no page is in. Call it
/// when all pages are made.
void tellUnknown(DocumentFacts &facts);
/// Orders the groups by their first use in \a pages, stems, as if the pages had been made in this order.
void orderByUse(const std::vector<std::string> &pages);
/// Distributes \a pages, stems in the order in which they were made, over the groups: first the
/// groups of the requested order, then the others in order of first use, the unassigned last.
/// Groups without pages are left out.
[[nodiscard]] std::vector<Group> arrange(const std::vector<std::string> &pages);

} // namespace tavidoc::MemberGroups
