#pragma once

/*!!
 * \h1 object.h
 *
 * What all declarations of a header have: a kind, a name, a place and a comment. The classes of declarations are in
 * \xref{../members/members_h.htm}{members.h} and \xref{../container/container_h.htm}{container.h};
 * \xref{../model/model_h.htm}{model.h} holds them.
 */

#include <QString>

#include <compare>
#include <memory>

namespace tavidoc {

class SourceBrowserContainer;

/*!
 * \h1 \this
 * One declaration of a header: the base class of everything in the model.
 * Lines are counted from 0 and -1 if unknown, except where noted.
 * \sa \xref{object_h}{object.h}
 * \ingroup \this
 */
class SourceBrowserObject
{
public:
    /*!
     * \h1 SourceBrowserObject::\this
     * The kind of a declaration.
     * \table{1.5in,*}
     * || Value | Kind
     * | \tt{Unknown} | an enumeration
     * | \tt{Class} | a class
     * | \tt{Method} | a method or a function
     * | \tt{Variable} | a variable, at file level or in a container
     * | \tt{Typedef} | a typedef
     * | \tt{Structure} | a structure or a union
     * | \tt{Namespace} | a namespace
     * | \tt{Macro} | a macro
     * \endtable
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    enum Phylum : qint32
    {
        Unknown = 0, ///< also an enumeration
        Class = 1,
        Method = 2, ///< also a function
        Variable = 3,
        Typedef = 4,
        Structure = 5, ///< also a union
        Namespace = 7,
        Macro = 8,
    };
    /*!
     * \h1 SourceBrowserObject::\this
     * The access of a member. No declaration in the model has \tt{NoAccess}.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    enum Access : qint32
    {
        NoAccess = 0,
        Public = 1,
        Protected = 2,
        Private = 4
    };

    /*!
     * \h1 SourceBrowserObject::\this
     * The form of a declaration's text; the values are bits that can be combined.
     * \table{1.8in,*}
     * || Value | The text
     * | \tt{ReturnType} | begins with the return type
     * | \tt{TightParenthesis} | has no blank between the name and \tt{(}
     * | \tt{ArgumentLines} | has one argument per line
     * | \tt{ReturnTypeLine} | has the return type on a line of its own; with \tt{ReturnType}
     * | \tt{StripUnderscores} | omits \tt{__} at the beginning of argument names
     * \endtable
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    enum TextFlag : unsigned
    {
        ReturnType = 1,        ///< begin with the return type
        TightParenthesis = 2,  ///< no blank between the name and "("
        ArgumentLines = 4,     ///< one argument per line
        ReturnTypeLine = 8,    ///< the return type on a line of its own, with ReturnType
        StripUnderscores = 16, ///< drop a leading "__" from argument names
    };

    /*!
     * \h1 SourceBrowserObject::\this
     * The lines of a declaration, counted from 0; -1 if unknown.
     *
     * \synopsis
     *
     * \param{first} its first line.
     *
     * \param{last} its last line; of a container, that of the closing brace.
     *
     * \param{bodyFirst} the first line of a function's body.
     *
     * \param{bodyLast} the last line of that body.
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    struct Lines
    {
        int first = -1;
        int last = -1; ///< of a container, the line of its closing brace
        int bodyFirst = -1;
        int bodyLast = -1;
    };

    /*!
     * \h1 SourceBrowserObject::\this
     * What a declaration is where its phylum does not distinguish it from others.
     * \table{1.8in,*}
     * || Value | The declaration
     * | \tt{Plain} | is what the phylum says
     * | \tt{Union} | a union, not a structure
     * | \tt{ScopedEnumeration} | \tt{enum class} or \tt{enum struct}
     * | \tt{Concept} | a concept, not a typedef
     * | \tt{Alias} | \tt{using A = B;}, not a typedef
     * | \tt{DeductionGuide} | a deduction guide, not a function
     * | \tt{Friend} | a function that a class declares as its friend
     * \endtable
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    enum class Form : unsigned char
    {
        Plain,
        Union,
        ScopedEnumeration,
        Concept,
        Alias,
        DeductionGuide,
        Friend
    };

    /*!
     * \h1 SourceBrowserObject::\this
     * A place in the file, counted from 0; -1 if unknown.
     *
     * \synopsis
     *
     * \param{line} the line.
     *
     * \param{column} the column in UTF-16 units.
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    struct Position
    {
        int line = -1;
        int column = -1; ///< in UTF-16 units

        auto operator<=>(const Position &) const = default;
    };

    /*!
     * \h1 SourceBrowserObject::\this
     * Where the text of a declaration is. The declarators of one declaration share its begin. Of a macro all are unknown.
     *
     * \synopsis
     *
     * \param{begin} its first token; only \tt{inline}, compiler extensions and attributes may precede it.
     *
     * \param{name} the declared name, without its qualification; unknown for containers and enumerations.
     *
     * \param{end} what ended it: the semicolon, the brace of the body, or another token.
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    struct Source
    {
        Position begin;
        Position name;
        Position end;
    };

    SourceBrowserObject(Phylum phylum = Unknown, QString name = {}) : m_name(std::move(name)), m_phylum(phylum) {}
    virtual ~SourceBrowserObject() = default;
    SourceBrowserObject(const SourceBrowserObject &) = delete;
    SourceBrowserObject &operator=(const SourceBrowserObject &) = delete;

    /*!
     * \h1 SourceBrowserObject::\this
     * The declaration as C text without a semicolon. \a{flags} combines values of \xref{TextFlag}, which apply to
     * functions only. The base class returns the name.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] virtual QString description(unsigned flags) const;
    [[nodiscard]] QString description() const { return description(ReturnType | TightParenthesis); }
    /*!
     * \h1 SourceBrowserObject::\this
     * Whether \a{other} declares the same thing.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] virtual bool isEquivalent(const SourceBrowserObject &other) const;

    [[nodiscard]] Phylum phylum() const { return m_phylum; }
    [[nodiscard]] Access access() const { return m_access; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The access as the language has it: members of a structure or a union are public until a label says otherwise, while
     * \tt{access()} calls them private outside a typedef.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] Access declaredAccess() const { return m_declaredAccess; }
    [[nodiscard]] Form form() const { return m_form; }
    [[nodiscard]] const QString &name() const { return m_name; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The qualified name of the enclosing container; empty at file level.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] const QString &scope() const { return m_scope; }
    /*!
     * \h1 SourceBrowserObject::\this
     * Scope and name joined by ".", or the name alone.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] QString qualifiedName() const;
    [[nodiscard]] const Lines &lines() const { return m_lines; }
    [[nodiscard]] const Source &source() const { return m_source; }
    [[nodiscard]] const QString &declarationFile() const { return m_declarationFile; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The file with the body of the function.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] const QString &definitionFile() const { return texts().definitionFile; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The documentation comment without its delimiters, its lines joined by \tt{\\n}.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] const QString &documentation() const { return texts().documentation; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The first line of the documentation comment, counted from 1.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] int documentationLine() const { return texts().documentationLine; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The comment after the declaration, without its delimiters; the parser does not set it.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] const QString &trailingComment() const { return texts().trailingComment; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The first line of the comment after the declaration, counted from 1.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] int trailingCommentLine() const { return texts().trailingCommentLine; }
    /*!
     * \h1 SourceBrowserObject::\this
     * Of a macro, the whole directive; otherwise empty.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] const QString &text() const { return m_text; }
    /*!
     * \h1 SourceBrowserObject::\this
     * The container that holds this object; null while it is in none.
     * \synopsis
     * \sa \xref{SourceBrowserObject}
     * \ingroup SourceBrowserObject
     */
    [[nodiscard]] SourceBrowserContainer *container() const { return m_container; }

    void setAccess(Access access) { m_access = access; }
    void setDeclaredAccess(Access access) { m_declaredAccess = access; }
    void setForm(Form form) { m_form = form; }
    void setSource(const Source &source) { m_source = source; }
    /// A container in a model is renamed by SourceBrowserModel::rename() instead.
    void setName(const QString &name) { m_name = name; }
    void setScope(const QString &scope) { m_scope = scope; }
    void setLines(const Lines &lines) { m_lines = lines; }
    void setDeclarationFile(const QString &file) { m_declarationFile = file; }
    void setDefinitionFile(const QString &file);
    /// \a line is counted from 1.
    void setDocumentation(const QString &text, int line);
    /// \a line is counted from 1.
    void setTrailingComment(const QString &text, int line);
    void setText(const QString &text) { m_text = text; }

private:
    friend class SourceBrowserContainer;

    /// The texts that most objects lack.
    struct Texts
    {
        QString definitionFile;
        QString documentation;
        QString trailingComment;
        int documentationLine = -1;
        int trailingCommentLine = -1;
    };

    [[nodiscard]] const Texts &texts() const;
    [[nodiscard]] Texts &texts();

    QString m_name;
    QString m_scope;
    QString m_declarationFile;
    QString m_text;                 // not with the others, because every macro has one
    std::unique_ptr<Texts> m_texts; ///< null while all of them are empty
    SourceBrowserContainer *m_container = nullptr;
    Lines m_lines;
    Source m_source;
    Phylum m_phylum;
    Access m_access = NoAccess;
    Access m_declaredAccess = NoAccess;
    Form m_form = Form::Plain;
    int m_place = -1; ///< index among the members of the container
};

} // namespace tavidoc
