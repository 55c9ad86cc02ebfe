#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavidoc {

/// A place in a file that was read for a record.
struct RecordPlace
{
    std::uint32_t file = 0; ///< index in Record::files
    std::int64_t line = 0;  ///< counted from 1, or as `\line` numbers it; 0: the file as a whole
};

/// A file that compiling an input opened or looked for.
struct RecordFile
{
    std::string name;   ///< relative to the directory where the compilation was started, or absolute
    bool found = false; ///< false: looked for, but missing
};

/// What a check found while the input was compiled.
struct RecordFinding
{
    std::string check; ///< a name of the table in site/record/checks.h
    RecordPlace place;
    std::string text;      ///< what was found and what was expected
    bool isRaised = false; ///< at least a warning, unless the project file sets the level of the check
};

/// A heading in the body of a page.
struct RecordHeading
{
    std::uint64_t offset = 0; ///< in the body, of the "<" of its opening tag
    std::uint8_t level = 1;   ///< of its tag, 1 to 6
    std::string id;           ///< unique in the page: letters, digits, "-" and "_"
    std::string text;         ///< plain text
    bool hasId = false;       ///< its tag has this id already: the author wrote it
};

/// A link in the body of a page: the whole element, from "<a" to "</a>".
struct RecordLink
{
    enum class Kind : std::uint8_t
    {
        Resolved, ///< to a page of the same document; `page` is its stem
        Open,     ///< to be resolved over the whole set; exactly `<a href="X.htm">X</a>` or with a caption
        External, ///< an address
        Raw,      ///< written by `\html`; `target` is the value of its href attribute
    };

    Kind kind = Kind::Open;
    bool hasCaption = false;  ///< given by the writer
    std::uint64_t offset = 0; ///< in the body, of the element
    std::uint64_t length = 0; ///< of the element
    std::string target;       ///< as the writer wrote it, not escaped
    std::string page;         ///< the stem, without ".htm", of a resolved link
    RecordPlace place;
    std::string anchor = {}; ///< the id of the heading on that page that it leads to; empty: to the page as a whole
};

/// A picture in the body of a page.
struct RecordImage
{
    std::uint64_t offset = 0; ///< in the body, of the value of the src attribute
    std::uint64_t length = 0; ///< of that value
    std::string source;       ///< relative to the directory of the input, not escaped
    bool isIcon = false;      ///< one of Record::icons: "images/NAME.png"
    RecordPlace place;
};

/// A listing in the body of a page that the library leaves plain, in a language that was given or that the suffix of
/// the presented file names.
struct RecordListing
{
    std::uint64_t offset = 0; ///< in the body, of the escaped text after "<pre class=...>"
    std::uint64_t length = 0; ///< of that text
    std::string language;     ///< as written: "python", "json"; or the suffix of the file: "py"
};

/// The name of a base class in the body of the page of a class. The base may be documented by any input.
struct RecordBase
{
    std::uint64_t offset = 0; ///< in the body, of the name as written
    std::uint64_t length = 0; ///< of that name
    std::string name;         ///< with "::", perhaps at its begin, without template arguments, as the class sees it
};

/// A term of the search index.
struct RecordTerm
{
    std::string text;         ///< normalized, see site/search/terms.h
    std::uint32_t weight = 0; ///< of all its occurrences in the page; larger is better
};

/// A name in the code of a page: in listings, synopses, and where it is the whole text of a "tt" element.
struct RecordName
{
    enum class Use : std::uint8_t
    {
        Text,   ///< in running text
        Code,   ///< in a listing
        Member, ///< in a listing, after "." or "->"
        Type,   ///< in a synopsis
    };

    std::string name; ///< identifiers with "::" between them
    Use use = Use::Text;
    std::vector<std::uint64_t> offsets; ///< in the body: in text of the whole name, else of its last identifier
};

/// A function that a page documents.
struct RecordOverload
{
    std::string types;      ///< of its arguments, tightened, with "," between them
    std::string parameters; ///< the same with the names of the arguments
    std::string qualifiers; ///< after the arguments: "const &&"
    std::string heading;    ///< the id of its heading; empty when it has the page to itself
};

/// A declaration that has a row of a table on a page instead of a page of its own: an enumerator, or a member with a
/// comment after it.
struct RecordMember
{
    std::string kind;          ///< "enumerator", "variable", ...
    std::string qualifiedName; ///< with "::"
    std::string outerName;     ///< another such name, of an enumerator that is known outside its enumeration; or empty
    std::string anchor;        ///< the id of its row; it needs no escapes
    std::string excerpt;       ///< the beginning of its description, as plain text
    std::vector<RecordTerm> terms; ///< of its name and description, by text
};

enum class RecordPageKind : std::uint8_t
{
    Markup,      ///< a page of a markup source
    Header,      ///< the page of a header
    Declaration, ///< the page of a declaration
};

/// A finished page. All texts are UTF-8; "plain text" has neither tags nor escapes.
struct RecordPage
{
    RecordPageKind kind = RecordPageKind::Markup;
    std::string stem;             ///< without ".htm"; may contain directories
    std::string title;            ///< its own title, plain text; may be empty
    std::string documentTitle;    ///< plain text; may be empty
    std::string declaration;      ///< what it declares ("function", "class", "macro", ...); empty for other pages
    std::string qualifiedName;    ///< with "::"; of a declaration
    std::string brief;            ///< one line, HTML
    std::string group;            ///< plain text
    RecordPlace place;            ///< of its `\split` or comment
    std::uint64_t bodyOffset = 0; ///< in the bodies of the record
    std::uint64_t bodyLength = 0;
    std::vector<RecordHeading> headings;   ///< in order
    std::vector<RecordLink> links;         ///< in order, disjoint
    std::vector<RecordImage> images;       ///< in order, disjoint
    std::vector<RecordTerm> terms;         ///< by text
    std::string excerpt;                   ///< the beginning of its plain text, at most 2,000 bytes
    std::vector<RecordListing> listings;   ///< in order, disjoint; only those that the library leaves plain
    std::vector<std::string> anchors;      ///< other ids and names that links can lead to, sorted
    bool isMember = false;                 ///< its declaration is in a class, structure or union
    std::vector<RecordOverload> overloads; ///< of a function, in the order of the page
    std::vector<RecordName> names;         ///< by first offset; no place is in a link or heading
    std::vector<RecordBase> bases;         ///< in order, disjoint
    std::vector<RecordMember> members;     ///< in order; no two have the same qualified name
};

/// An entry of the contents tree of one document, in preorder.
struct RecordEntry
{
    enum class Kind : std::uint8_t
    {
        Page,    ///< `target` is the stem of a page
        Title,   ///< an entry without a page
        Include, ///< `target` is a contents file, "X.xml", or a page made elsewhere
    };

    Kind kind = Kind::Page;
    bool noRoot = false;     ///< the single top entry of the included contents gives way to its children
    std::uint32_t depth = 0; ///< 0 at the top; at most one more than that of the entry before
    std::string target;
    std::string title; ///< plain text; empty: that of the page
    RecordPlace place;
};

/// A built-in icon that a page shows.
struct RecordIcon
{
    std::string name;  ///< "images/NAME.png"
    std::string bytes; ///< the PNG file
};

/// All that linking and rendering need of one input, except the bodies of its pages.
struct Record
{
    std::string input;             ///< the input as it was given
    std::string folder;            ///< of its pages in the site, without a "/" at either end; empty: the top
    std::string title;             ///< of the document, plain text
    std::vector<RecordFile> files; ///< the input first
    std::vector<RecordFinding> findings;
    std::vector<RecordPage> pages;     ///< in the order in which they were finished; of equal stems the last counts
    std::vector<RecordEntry> contents; ///< the document's tree
    std::vector<RecordIcon> icons;     ///< by name
};

/// A record with the bodies of its pages, as it is written to a file.
struct RecordWithBodies
{
    Record head;
    std::string bodies; ///< UTF-8 HTML, one after the other
};

/// What a partial link (`link -r`) makes of many records is a file with many of them; a record file holds at least one.
using RecordSet = std::vector<RecordWithBodies>;

} // namespace tavidoc
