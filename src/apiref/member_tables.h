#pragma once

#include "apiref/synopsis_source.h"
#include "sourcebrowser/container.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A table of the members of a container.
struct MemberSection
{
    std::string title;                                ///< "Functions", "Protected Types", ...
    std::vector<const SourceBrowserObject *> members; ///< in the order of the header
};

/// All \a members of \a container by access and kind, public ones first. Sections without members are left out.
[[nodiscard]] std::vector<MemberSection> memberSections(const SourceBrowserContainer &container,
                                                        const std::vector<const SourceBrowserObject *> &members,
                                                        const SynopsisSource &source);

/// The members of \a container in the order of the header. Those of an unnamed structure or union that declares no
/// variable count as members of \a container.
[[nodiscard]] std::vector<const SourceBrowserObject *> visibleMembers(const SourceBrowserContainer &container);

/// How a table names a member: words before the name ("static ", "class "), the name, and what follows it ("(int a)").
struct MemberCaption
{
    std::string before;
    std::string name;
    std::string after;
};
[[nodiscard]] MemberCaption memberCaption(const SourceBrowserObject &member, const SynopsisSource &source);

/// The headings of \a objects, declarations of one name that share a page, all different: a function's name, arguments
/// and qualifiers, else the kind and the name; where these are equal, also the template head and the constraint, if
/// they are short; where that does not help, "(1 of 2)".
[[nodiscard]] std::vector<std::string> sharedHeadings(const std::vector<const SourceBrowserObject *> &objects,
                                                      const SynopsisSource &source);

/// The name of the class in \a base, an entry of a list of bases, without template arguments.
[[nodiscard]] std::string baseName(std::string_view base);

/// The declarations of the header that no comment documents, in its order: all but namespaces, private members, and the
/// macro that guards the header against a second inclusion. \a file is its name without directories.
[[nodiscard]] std::vector<const SourceBrowserObject *> undocumentedDeclarations(const SourceBrowserContainer &root,
                                                                                const QString &file);

} // namespace tavidoc
