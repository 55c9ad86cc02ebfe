#pragma once

#include <map>
#include <string>
#include <vector>

namespace tavidoc {

/// A page and its group.
struct DocumentedObject
{
    std::string page;  ///< the stem of the page
    std::string group; ///< the last one that the page named; empty for none
};

/// The tables that live as long as the process and that all documents share. They are not
/// guarded: everything runs on one thread.
namespace SharedTables {

/// The pages that named a group, by stem. Emptied at the start of every run.
extern std::map<std::string, DocumentedObject, std::less<>> docObjects;
/// The groups in order of first use. Emptied at the start of every run.
extern std::vector<std::string> docGroups;
/// The order of groups that `\grouporder` asked for. Never emptied.
extern std::vector<std::string> requiredOrder;
/// The tag of the next paragraph. Not reset by a run; opening a paragraph resets it to "p".
extern std::string paraStyle;

} // namespace SharedTables

} // namespace tavidoc
