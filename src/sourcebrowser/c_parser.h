#pragma once

/*!!
 * \h1 c_parser.h
 *
 * The parser of C and C++ declarations. Derive from it to say where the lines come from:
 *
 * \code
 * class FileParser : public SourceBrowserCParser
 * {
 * public:
 *     FileParser(SourceBrowserModel *model, QTextStream &lines) : SourceBrowserCParser(model), m_lines(lines) {}
 *     bool readLine(QString &line) override { return m_lines.readLineInto(&line); }
 *
 * private:
 *     QTextStream &m_lines;
 * };
 * \endcode
 */

#include "sourcebrowser/c_scanner.h"
#include "sourcebrowser/declarators.h"
#include "sourcebrowser/model.h"
#include "sourcebrowser/pending_declaration.h"

#include <deque>

namespace tavidoc {

/*!
 * \h1 \this
 * Recognises the declarations of one header after the other, without preprocessing: stores them
 * in the model and tells a listener of them. Nothing that a header holds stops it or makes it
 * throw; what it cannot fit is skipped to the end of that declaration.
 * \sa \xref{c_parser_h}{c_parser.h}
 * \ingroup \this
 */
class SourceBrowserCParser : public SourceBrowserLineIterator
{
public:
    /// Borrows both; each may be null. Without a model macros are not captured.
    explicit SourceBrowserCParser(SourceBrowserModel *model, SourceBrowserEventInterface *events = nullptr);
    ~SourceBrowserCParser() override;

    /*!
     * \h1 SourceBrowserCParser::\this
     * Reads one file, whose lines come from \xref{../line_iterator/readLine.htm}{readLine}. What the model held from a
     * file of that name is forgotten. A line comment that begins with one of \a{fixmeWords} is an event.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    void parse(const QString &file, const QStringList &fixmeWords = {});

    /*!
     * \h1 SourceBrowserCParser::\this
     * A file begins; \a{text} says which. It does nothing unless it is overridden.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void beginGroup(const QString &text);
    /*!
     * \h1 SourceBrowserCParser::\this
     * A complaint about \a{file}; \a{line} is counted from 1.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void addResult(const QString &file, int line, const QString &message);
    /*!
     * \h1 SourceBrowserCParser::\this
     * The file has ended.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    virtual void endGroup();

    /*!
     * \h1 SourceBrowserCParser::\this
     * The overview comments of the last file, one after the other.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] const QString &overview() const { return m_overview; }
    [[nodiscard]] const std::vector<SourceBrowserOverviewComment> &overviewComments() const
    {
        return m_overviewComments;
    }
    /*!
     * \h1 SourceBrowserCParser::\this
     * What was counted in the last file.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] const SourceBrowserLineStatistics &statistics() const { return m_statistics; }
    /*!
     * \h1 SourceBrowserCParser::\this
     * The model that was given; null without one.
     * \synopsis
     * \sa \xref{SourceBrowserCParser}
     * \ingroup SourceBrowserCParser
     */
    [[nodiscard]] SourceBrowserModel *model() const { return m_model; }

private:
    using Token = SourceBrowserTokenRecord;
    using Pending = SourceBrowserPendingDeclaration;

    enum class Body
    {
        File,
        Block,
        Namespace,
        Class,
        Structure
    };

    /// An open pair of braces whose content is read. Chained from the inside out.
    struct Context
    {
        Body body = Body::File;
        Context *parent = nullptr;
        SourceBrowserContainer *container = nullptr;
        SourceBrowserObject::Access access = SourceBrowserObject::Public; ///< of the members to come
        int depth = 0;
        int containers = 0;      ///< how many of the contexts, from the outermost to this one, are containers
        int column = 0;          ///< where the declaration began
        int memberColumn = -1;   ///< where the first member began
        bool mayBeStray = false; ///< opened in a conditional that ended without closing it
        QString scope;           ///< of the members
        QString className;       ///< of a class, the name of its constructors
        SourceBrowserObject::Phylum phylum = SourceBrowserObject::Unknown; ///< as listeners were told
        // For the declarators after the closing brace:
        QString composedType;
        int line = 0; ///< counted from 0
        bool isTypedef = false;
        bool isStatic = false;
        bool isNamed = false;
        bool holdsRenamed = false; ///< a container in it got its name after its members
    };

    /// A conditional directive that is open.
    struct Condition
    {
        Context *context;
        int depth;             ///< of braces that are skipped
        qsizetype declaration; ///< the one that was being read
        bool insideDeclaration;
        bool hasBranched = false;
        Context *firstContext = nullptr; ///< at the end of the first branch
        int firstDepth = 0;
    };

    // Tokens: c_parser.cpp and c_parser_skipping.cpp.
    Token next();
    Token nextWithExtensions();
    void skipGroup(const Token &opener);
    void skipBraces(int depth);
    [[nodiscard]] bool endsLostBody(const Token &token) const;
    void skipParenthesis();
    void skipUntil(int code);
    void noteCondition(const Token &token);
    void switchTo(Context *context);
    void skipBranches();
    /// The token comes next, before those that were given back earlier.
    void giveBack(const Token &token) { m_given.push_back(token); }
    Token takeGiven();
    [[nodiscard]] Token peek();
    [[nodiscard]] bool isLabel();
    [[nodiscard]] bool isName(const Token &keyword);
    void reset();
    void complain(int line, const QString &message);

    // Statements: c_parser.cpp.
    void statement(const Token &first);
    bool bodyStatement(const Token &first);
    bool structureToken(const Token &first);
    void accessLabel(const Token &first);
    void closeLostContainers(const Token &first);
    bool lacksBrace();
    void closeContext(int line);
    void rescope(SourceBrowserContainer &container);
    Context *open(Body body, SourceBrowserContainer *container);
    [[nodiscard]] bool isTooDeep() const;
    [[nodiscard]] bool isInClass() const;

    // Declarations: c_parser_declarations.cpp and c_parser_members.cpp.
    void declaration(const Token &first);
    void begin(const Token &first);
    bool collect(const Token &token);
    bool collectPart(const Token &token);
    bool cutOff(const Token &token);
    void leaveMacros(const Token &token);
    void leave();
    bool endsWithSection(const Token &colon);
    void setAccess(SourceBrowserObject::Access access, int line);
    std::vector<SourceBrowserDeclarator> readPending(bool wantsFunction);
    bool declareAll();
    bool conceptDeclaration();
    void stringStatement();
    [[nodiscard]] bool beginsDeclaration(const Token &first);
    [[nodiscard]] const Context &home() const;
    [[nodiscard]] bool isConditionalInside() const;
    bool branchInDeclaration(const Token &token);
    bool isComparison(const Token &equals);
    bool isFollowedBy(int code);
    bool initialiser(const Token &equals);
    bool skipToAngle();
    bool constructorInitialisers();
    bool braceInDeclaration(const Token &brace);
    bool finishWithBody(const Token &brace);
    void finish();
    void endDeclaration();
    void restoreComment();
    void attachComment(SourceBrowserObject &object, int line);
    void place(SourceBrowserObject &object, int line);
    void declareObject(const SourceBrowserDeclarator &declarator, bool takesComment);
    void declareFunction(const SourceBrowserDeclarator &declarator, bool takesComment, const Token *brace);
    void addMethod(SourceBrowserContainer &container, std::unique_ptr<SourceBrowserMethod> method);
    void matchDefinition(const SourceBrowserDeclarator &declarator, const SourceBrowserMethod &definition);
    [[nodiscard]] SourceBrowserContainer *qualifiedContainer(const QString &name) const;
    void nameComposed(SourceBrowserObject &composed, const QString &name);
    [[nodiscard]] const QString &className() const;

    // Templates: c_parser_templates.cpp.
    bool templateParameters(const Token &keyword);
    bool skipAngles();
    void skipConstraint();
    void skipRequirements();

    // Containers: c_parser_containers.cpp.
    void namespaceStatement(const Token &first);
    void classBody();
    void enumBody(const Token &brace);
    int enumerators(SourceBrowserEnum &enumeration);
    void afterBody(const Context &closed, const Token &brace);
    void continueAfter(SourceBrowserObject &object, const QString &type, bool isNamed, const Token &brace);
    [[nodiscard]] bool isComposedMacro(const SourceBrowserDeclarator &declarator) const;
    [[nodiscard]] QString composedType(const Token &keyword, const QString &name) const;
    [[nodiscard]] bool opensClass() const;
    [[nodiscard]] size_t headBegin() const;
    [[nodiscard]] QString headName(size_t from) const;
    [[nodiscard]] std::vector<SourceBrowserBaseClass> baseClasses(size_t from) const;
    SourceBrowserContainer *merge(std::unique_ptr<SourceBrowserContainer> container);

    SourceBrowserModel *m_model;
    std::unique_ptr<SourceBrowserModel> m_ownModel; ///< stands in when there is none
    SourceBrowserModel *m_objects = nullptr;        ///< the one of the two that is used
    SourceBrowserEventInterface *m_events;
    std::unique_ptr<SourceBrowserCScanner> m_scanner;
    SourceBrowserLineStatistics m_statistics;
    QString m_file;
    QString m_overview;
    std::vector<SourceBrowserOverviewComment> m_overviewComments;

    std::vector<Token> m_given; ///< tokens that were read and come again, the next one last
    std::deque<Context> m_contexts;
    std::vector<std::unique_ptr<SourceBrowserObject>> m_absorbed; ///< containers that contexts may still name
    Context *m_context = nullptr;
    std::vector<Condition> m_conditions;
    int m_depth = 0; ///< of the braces that are being skipped
    qsizetype m_declarationNumber = 0;
    bool m_bodyMayBeStray = false;
    bool m_knowsLostBraces = false;
    int m_lostBraces = 0; ///< how many braces of the contexts are never closed, once that is known
    Pending m_pending;
    SourceBrowserDeclaratorReader m_reader;
    bool m_afterBody = false;                  ///< the last declaration ended with a body
    QString m_composedType;                    ///< what the Composed token in m_pending looks into
    SourceBrowserObject *m_composed = nullptr; ///< the type whose declarators are being read
    bool m_composedIsNamed = false;
};

} // namespace tavidoc
