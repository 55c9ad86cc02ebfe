#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A place in a source file.
struct DocumentPlace
{
    QString file;          ///< as it was named to the generator or in an include
    std::int64_t line = 0; ///< counted from 1, or as `\line` numbers it
};

/// A link in the body of a page: the whole element, from "<a" to "</a>".
struct DocumentLink
{
    enum class Kind : std::uint8_t
    {
        InDocument, ///< its target is a title or a declaration of the document
        Elsewhere,  ///< its target is taken for the name of a page
        External,   ///< its target is an address
    };

    Kind kind = Kind::Elsewhere;
    bool hasCaption = false; ///< given by the author
    std::size_t offset = 0;  ///< in the body
    std::size_t length = 0;
    std::string target = {}; ///< as the author wrote it, not escaped
    std::string page = {};   ///< the stem of the page that it leads to; empty for an external link
    DocumentPlace place = {};
    /// The offset of a heading in the body of that page, if it leads there.
    std::optional<std::size_t> heading = {};
};

/// An image in the body of a page.
struct DocumentImage
{
    std::size_t offset = 0;  ///< in the body, of the value of its src attribute
    std::size_t length = 0;  ///< of that value
    std::string source = {}; ///< the value, not escaped
    bool isIcon = false;     ///< a built-in icon
    DocumentPlace place = {};
};

/// Text that the body of a page contains exactly as the author wrote it, and that has tags.
struct DocumentHtml
{
    std::size_t offset = 0; ///< in the body
    std::size_t length = 0;
    DocumentPlace place; ///< of its first character; its line ends are those of the file
};

/// A listing with a language in the body of a page.
struct DocumentListing
{
    std::size_t offset = 0; ///< in the body, of its text
    std::size_t length = 0;
    std::string language;    ///< as the author wrote it; else the suffix of the presented file
    bool isColoured = false; ///< its text has spans; else it is only escaped
};

/// The name of a file in the body of a page, as a "tt" element.
struct DocumentFileName
{
    std::size_t offset = 0; ///< in the body, after the opening tag
};

/// A function on the page that documents it.
struct DocumentOverload
{
    std::vector<std::string> types;      ///< of its arguments
    std::vector<std::string> parameters; ///< the same with their names
    std::string qualifiers;              ///< after the arguments: "const &&"
    bool hasHeading = false;             ///< others share the page, so it has a heading
    std::size_t heading = 0;             ///< in the body, of the "<" of its opening tag
};

/// A declaration without a page of its own, in a table of the body of the page of what it belongs to: an enumerator, or a
/// member with a comment after it.
struct DocumentMember
{
    std::string kind;               ///< "enumerator", "variable", ...
    std::string qualifiedName = {}; ///< with "::"
    std::string
        outerName; ///< another qualified name: of an enumerator that is also known in the scope around the enumeration
    std::string anchor = {}; ///< the id of its row: ASCII, needs no escapes; no two of a page are equal
    std::size_t offset = 0;  ///< in the body, of its description, as HTML
    std::size_t length = 0;
};

/// The name of a base class in the body of the page of a class.
struct DocumentBase
{
    std::size_t offset = 0; ///< in the body
    std::size_t length = 0;
    std::string name; ///< with "::", without template arguments
};

/// What a page documents.
enum class DocumentPageKind : std::uint8_t
{
    Markup,      ///< a page of a markup source
    Header,      ///< a header as a whole
    Declaration, ///< a declaration of a header
};

/// A finished page. Texts are UTF-8; they are valid only during the call.
struct DocumentPage
{
    DocumentPageKind kind = DocumentPageKind::Markup;
    std::string_view stem = {};          ///< the name of its file without ".htm"
    std::string_view title = {};         ///< its own, as text; may be empty
    std::string_view documentTitle = {}; ///< text; empty when the document has none
    std::string_view declaration = {}; ///< the kind of the declaration: "function", "class", ...; empty for other pages
    std::string_view qualifiedName = {};              ///< of the declaration, with "::"
    bool isMember = false;                            ///< the declaration is in a class, structure or union
    std::string_view brief = {};                      ///< HTML
    std::string_view group = {};                      ///< text; empty for none
    DocumentPlace place = {};                         ///< of its `\split` or comment
    std::string_view body = {};                       ///< HTML, without a frame
    std::span<const DocumentLink> links = {};         ///< in order, disjoint
    std::span<const DocumentImage> images = {};       ///< in order, disjoint
    std::span<const DocumentHtml> html = {};          ///< in order, disjoint
    std::span<const DocumentListing> listings = {};   ///< in order, disjoint
    std::span<const DocumentFileName> fileNames = {}; ///< in order
    std::span<const DocumentOverload> overloads = {}; ///< of a function, in the order of the body
    std::span<const DocumentBase> bases = {};         ///< in order, disjoint
    std::span<const DocumentMember> members = {};     ///< in order
};

/// Something about a document that the generator does not report as a message, because it is allowed.
struct DocumentFinding
{
    std::string_view check; ///< the name of the check
    DocumentPlace place;
    std::string text;      ///< what was found and what was expected
    bool isRaised = false; ///< worth a warning even if the check is off unless asked for
};

/// Learns what the generator knows about a document while it is translated. Every operation does nothing unless it
/// is overridden.
class DocumentListener
{
public:
    virtual ~DocumentListener() = default;

    /// A page is finished. Of two pages with the same stem the later one counts.
    virtual void page(const DocumentPage &page);
    /// A line of the tree of contents without its root element, in the order of the contents file. All lines follow
    /// the last page.
    virtual void contentsLine(std::string_view line, const DocumentPlace &place);
    /// A page shows the built-in icon \a name, the file "images/NAME.png" with these \a bytes. Called once for each
    /// icon; nothing is written.
    virtual void icon(std::string_view name, const QByteArray &bytes);
    /// The file \a name, as it was named, was opened or looked for.
    virtual void file(const QString &name, bool wasFound);
    /// Also called for each message without a position, in addition to the message.
    virtual void finding(const DocumentFinding &finding);
};

} // namespace tavidoc
