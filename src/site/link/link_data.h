#pragma once

#include "site/record/checks.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavidoc {

/// A page as the target of a link that the site makes itself. Addresses are relative to the top of the site, with "/",
/// and need no escapes.
struct LinkTarget
{
    std::string title;   ///< plain text
    std::string address; ///< empty for an entry without a page
};

/// An entry of the navigation of a page: its ancestors, and of its siblings and children at most 30. Of very deep pages
/// the middle ancestors are left out, with a gap in their place.
struct NavigationEntry
{
    LinkTarget target;
    std::uint32_t depth = 0; ///< 0 at the top
    bool isCurrent = false;  ///< the page itself
    bool isAncestor = false; ///< of the page
    bool isGap = false;      ///< stands for siblings left out; target leads to their parent, or to contents.htm
};

/// The resolution of one link of a page.
struct ResolvedLink
{
    std::uint32_t link = 0; ///< index in RecordPage::links
    std::string address;    ///< relative to the page, with "/"; a full address for inventories; empty: unresolved
    std::string caption;    ///< plain text; used when the writer gave no caption; empty: as it is in the body
};

/// The resolution of one picture of a page.
struct ResolvedImage
{
    std::uint32_t image = 0; ///< index in RecordPage::images
    std::string address;     ///< relative to the page
};

/// The page of a base class of the class that a page documents.
struct ResolvedBase
{
    std::uint32_t base = 0; ///< index in RecordPage::bases
    std::string address;    ///< relative to the page
};

/// Where the places of a name in the code of a page lead.
struct ResolvedName
{
    std::uint32_t name = 0; ///< index in RecordPage::names
    std::string address;    ///< relative to the page
};

/// What rendering one page needs of all other records.
struct PageLinks
{
    std::uint32_t page = 0;            ///< index in Record::pages
    std::string address;               ///< of its file, relative to the top of the site
    std::string title;                 ///< shown in the window and in navigation; plain text
    std::vector<LinkTarget> ancestors; ///< outermost first
    std::vector<NavigationEntry> navigation;
    std::optional<LinkTarget> previous;
    std::optional<LinkTarget> next;
    std::vector<ResolvedLink> links;      ///< in order; a link that is not among them stays as it is in the body
    std::vector<ResolvedImage> images;    ///< in order; a picture that is not among them stays as it is in the body
    std::vector<ResolvedBase> bases = {}; ///< in order; those that the set documents
    std::vector<LinkTarget> derived = {}; ///< the classes that derive from the one of the page, by name
    std::vector<ResolvedName> names = {}; ///< in order; those that become links
};

/// A file that is copied into the site.
struct CopiedFile
{
    std::string source;  ///< relative to the directory where the build was started, or absolute
    std::string address; ///< relative to the top of the site
};

/// The contents of a ".lnk" file: what rendering one record needs of all others.
struct RecordLinks
{
    std::string input;              ///< of the record
    std::string folder;             ///< of the record
    std::vector<PageLinks> pages;   ///< those that are written, in order; not those that others replace
    std::vector<CopiedFile> images; ///< pictures of its pages
};

/// A place in the project file. Lines and columns are counted from 1.
struct ProjectPlace
{
    std::int64_t line = 0;
    std::int64_t column = 0;
};

/// The inventory of another project, to whose names links may lead.
struct SiteInventory
{
    std::string file; ///< relative to the directory where the build was started, or absolute
    std::string url;  ///< of that project, with "/" at its end
};

/// What all pages share.
struct SiteSettings
{
    std::string title = "Documentation";
    std::string version;
    std::string url; ///< with "/" at its end; empty: none
    std::string copyright;
    std::string language = "en";
    CopiedFile logo;                              ///< empty names: none
    CopiedFile favicon;                           ///< empty names: none
    CopiedFile style;                             ///< empty names: none
    std::map<std::string, CheckLevel> levels;     ///< of checks, where the project file sets them
    bool autolink = true;                         ///< names in text and listings become links
    std::map<std::string, std::string> redirects; ///< from stem to stem; in SharedLinks encoded, and without dead ones
    std::vector<CopiedFile> assets;
    std::string projectFile = "site.toml";                   ///< in findings; empty in SharedLinks
    std::map<std::string, ProjectPlace> redirectPlaces = {}; ///< for findings; empty in SharedLinks
    bool isWatched = false;                                  ///< pages reload themselves when the site changes
    std::vector<SiteInventory> inventories = {};
    std::string versionList = {};  ///< the script with all versions, relative to the top of the site; empty: none
    std::string versionTitle = {}; ///< in that list; empty: the version
};

/// An entry of the whole contents tree, in preorder.
struct ContentsEntry
{
    LinkTarget target;
    std::uint32_t depth = 0;
};

/// A row of the index of names.
struct NameEntry
{
    std::string name; ///< plain text: a declaration's name or a title
    std::string kind; ///< "function", "page", ...
    LinkTarget owner; ///< what is above it in the contents: a class, header or document
    std::string address;
    std::string qualifiedName = {}; ///< with "::"; of a declaration
};

/// What `render` without a record needs: the pages and files that belong to no record.
struct SharedLinks
{
    SiteSettings settings;
    std::vector<ContentsEntry> contents;
    std::vector<NameEntry> names;       ///< sorted as they are shown
    std::vector<std::string> addresses; ///< of all pages, sorted; for the site map
    std::string firstPage;              ///< the address of the first page of the contents
};

} // namespace tavidoc
