#pragma once

#include <QString>

#include <memory>

class SourceBrowserContainer;

/// One declaration of a header: the base of everything that the model holds.
/// All lines are counted from 0 and are -1 while unknown, except where noted.
class SourceBrowserObject
{
public:
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
    enum Access : qint32
    {
        NoAccess = 0,
        Public = 1,
        Protected = 2,
        Private = 4
    };

    /// What a declaration's text shows; the values are bits and are combined.
    enum TextFlag : unsigned
    {
        ReturnType = 1,        ///< begin with the return type
        TightParenthesis = 2,  ///< no blank between the name and "("
        ArgumentLines = 4,     ///< one argument per line
        ReturnTypeLine = 8,    ///< the return type on a line of its own, with ReturnType
        StripUnderscores = 16, ///< drop a leading "__" from argument names
    };

    struct Lines
    {
        int first = -1;
        int last = -1; ///< of a container, the line of its closing brace
        int bodyFirst = -1;
        int bodyLast = -1;
    };

    SourceBrowserObject(Phylum phylum = Unknown, const QString &name = {}) : m_name(name), m_phylum(phylum) {}
    virtual ~SourceBrowserObject() = default;
    SourceBrowserObject(const SourceBrowserObject &) = delete;
    SourceBrowserObject &operator=(const SourceBrowserObject &) = delete;

    /// The declaration as C text without a ";". \a flags are those of TextFlag; only functions
    /// look at them. What has no text of its own renders as its name.
    [[nodiscard]] virtual QString description(unsigned flags) const;
    [[nodiscard]] QString description() const { return description(ReturnType | TightParenthesis); }
    /// Whether \a other declares the same thing.
    [[nodiscard]] virtual bool isEquivalent(const SourceBrowserObject &other) const;

    [[nodiscard]] Phylum phylum() const { return m_phylum; }
    [[nodiscard]] Access access() const { return m_access; }
    [[nodiscard]] const QString &name() const { return m_name; }
    /// The qualified name of the enclosing container; empty at file level.
    [[nodiscard]] const QString &scope() const { return m_scope; }
    /// Scope and name joined by ".", or the name alone.
    [[nodiscard]] QString qualifiedName() const;
    [[nodiscard]] const Lines &lines() const { return m_lines; }
    [[nodiscard]] const QString &declarationFile() const { return m_declarationFile; }
    /// The file in which the body stands.
    [[nodiscard]] const QString &definitionFile() const { return texts().definitionFile; }
    /// The documentation comment without its delimiters, lines joined by "\n".
    [[nodiscard]] const QString &documentation() const { return texts().documentation; }
    /// The line on which the documentation comment begins, counted from 1.
    [[nodiscard]] int documentationLine() const { return texts().documentationLine; }
    /// A further text: of a macro, the whole directive.
    [[nodiscard]] const QString &text() const { return texts().text; }
    /// The container that holds this object; null for what the model holds itself.
    [[nodiscard]] SourceBrowserContainer *container() const { return m_container; }

    void setPhylum(Phylum phylum) { m_phylum = phylum; }
    void setAccess(Access access) { m_access = access; }
    /// The object must not be in a container yet, or be renamed through it.
    void setName(const QString &name) { m_name = name; }
    void setScope(const QString &scope) { m_scope = scope; }
    void setLines(const Lines &lines) { m_lines = lines; }
    void setDeclarationFile(const QString &file) { m_declarationFile = file; }
    void setDefinitionFile(const QString &file);
    /// \a line is counted from 1.
    void setDocumentation(const QString &text, int line);
    void setText(const QString &text);

private:
    friend class SourceBrowserContainer;

    /// What most objects do not have.
    struct Texts
    {
        QString definitionFile;
        QString documentation;
        QString text;
        int documentationLine = -1;
    };

    [[nodiscard]] const Texts &texts() const;
    [[nodiscard]] Texts &texts();

    QString m_name;
    QString m_scope;
    QString m_declarationFile;
    std::unique_ptr<Texts> m_texts; ///< null while all of them are empty
    SourceBrowserContainer *m_container = nullptr;
    Lines m_lines;
    Phylum m_phylum;
    Access m_access = NoAccess;
    int m_place = -1; ///< index among the members of the container
};
