#pragma once

#include "sourcebrowser/class_head.h"
#include "sourcebrowser/declarators.h"
#include "sourcebrowser/model.h"
#include "sourcebrowser/parser_context.h"
#include "sourcebrowser/pending_declaration.h"
#include "sourcebrowser/token_stream.h"

#include <deque>
#include <optional>

namespace tavidoc {

class SourceBrowserCParser;

/// One pass over a header: stores its declarations in the model and reports them. Made for one file.
///
/// The functions are named after what they read. Each starts on the first token of that and stops after the last.
class SourceBrowserDeclarationParser final : private SourceBrowserTokenStream::Owner
{
public:
    /// What the parser reads and where it reports. All are borrowed; \a model and \a events may be null.
    struct Setting
    {
        SourceBrowserCParser &parser; ///< delivers the lines and receives the complaints
        SourceBrowserModel *model;
        SourceBrowserEventInterface *events;
        SourceBrowserLineStatistics &statistics;
        const QString &file;
        const QStringList &fixmeWords;
        bool isComplete = false; ///< declares more, as SourceBrowserCParser::setComplete() describes
    };

    explicit SourceBrowserDeclarationParser(const Setting &setting);
    ~SourceBrowserDeclarationParser() override;

    /// Reads the whole file.
    void run();
    [[nodiscard]] const SourceBrowserCScanner &scanner() const { return m_scanner; }

private:
    using Token = SourceBrowserTokenRecord;
    using Pending = SourceBrowserPendingDeclaration;
    using Context = SourceBrowserParserContext;
    using Body = Context::Body;

    // Statements: declaration_parser.cpp.
    void statement(const Token &first);
    bool bodyStatement(const Token &first);
    bool structureToken(const Token &first);
    void stringStatement();
    void accessLabel(const Token &first);
    void setAccess(SourceBrowserObject::Access access, int line);
    [[nodiscard]] bool beginsDeclaration(const Token &first);
    void complain(int line, const QString &message);

    // Open braces and conditionals: declaration_parser_contexts.cpp.
    Context *open(Body body, SourceBrowserContainer *container);
    void closeContext(int line);
    void rescope(SourceBrowserContainer &container);
    void switchTo(Context *context);
    void closeLostContainers(const Token &first);
    bool lacksBrace();
    [[nodiscard]] bool isTooDeep() const;
    [[nodiscard]] bool isInClass() const { return m_context->isClass(); }
    [[nodiscard]] const Context &home() const;
    [[nodiscard]] const QString &className() const;
    [[nodiscard]] const QString &classNameInBranches() const;
    void conditionalBegins() override;
    void branchBegins() override;
    void conditionalEnds() override;
    [[nodiscard]] bool isConditionalInside() const override;
    [[nodiscard]] bool mayLoseBrace() const override;

    // The tokens of a declaration: declaration_parser_declarations.cpp. A bool result is false at its end.
    void declaration(const Token &first);
    void begin(const Token &first);
    bool collect(const Token &token);
    bool collectPart(const Token &token);
    std::optional<bool> collectTurn(const Token &token);
    bool cutOff(const Token &token);
    void leaveMacros(const Token &token);
    void leave();
    bool endsWithSection(const Token &colon);
    bool isLabel();
    bool beginsWidth();
    bool isName(const Token &keyword);
    bool branchInDeclaration(const Token &token);
    bool braceInDeclaration(const Token &brace);
    bool finishWithBody(const Token &brace);
    void endDeclaration();
    void restoreComment();

    // Template parameters and values: declaration_parser_values.cpp.
    bool templateParameters();
    bool isComparison(const Token &equals);
    bool initialiser(const Token &equals);
    bool constructorInitialisers(const Token &colon);
    bool conceptDeclaration();
    bool aliasDeclaration();

    // Objects for the model: declaration_parser_members.cpp.
    void finish();
    SourceBrowserDeclarators readPending(bool wantsFunction);
    bool declareAll();
    bool declareGuide();
    void endAt(const Token &token) { m_pending.endsAt = positionOf(token); }
    void attachComment(SourceBrowserObject &object, int line);
    void place(SourceBrowserObject &object, int line, SourceBrowserObject::Position name = {});
    void declareObject(const SourceBrowserDeclarator &declarator, bool takesComment);
    void declareFunction(const SourceBrowserDeclarator &declarator, bool takesComment, const Token *brace);
    void addMethod(SourceBrowserContainer &container, std::unique_ptr<SourceBrowserMethod> method);
    void matchDefinition(const SourceBrowserDeclarator &declarator, const SourceBrowserMethod &definition);
    [[nodiscard]] SourceBrowserContainer *qualifiedContainer(const QString &name) const;
    void nameComposed(SourceBrowserObject &composed, const QString &name);

    // Containers and enumerations: declaration_parser_containers.cpp.
    void namespaceStatement(const Token &first);
    void classBody();
    void enumBody(const Token &brace);
    int enumerators(SourceBrowserEnum &enumeration);
    void afterBody(const Context &closed, const Token &brace);
    void continueAfter(SourceBrowserObject &object, const QString &type, bool isNamed, const Token &brace);
    [[nodiscard]] bool startsAnother(const Token &token);
    [[nodiscard]] bool isComposedMacro(const SourceBrowserDeclarator &declarator) const;
    [[nodiscard]] SourceBrowserClassHead head() const;
    SourceBrowserContainer *merge(std::unique_ptr<SourceBrowserContainer> container, SourceBrowserContainer &parent);
    SourceBrowserContainer *outerNamespaces(const QStringList &names);

    SourceBrowserCParser &m_parser;
    std::unique_ptr<SourceBrowserModel> m_ownModel; ///< used if there is no other
    SourceBrowserModel &m_model;
    SourceBrowserEventInterface *m_events;
    QString m_file;
    SourceBrowserCScanner m_scanner;
    SourceBrowserTokenStream m_stream;

    std::deque<Context> m_contexts; ///< all that were opened, the file first
    Context *m_context = nullptr;   ///< the innermost one
    std::vector<SourceBrowserParserCondition> m_conditions;
    SourceBrowserBranchHeads m_heads;                             ///< of the last conditional that had any
    std::vector<std::unique_ptr<SourceBrowserObject>> m_absorbed; ///< containers that contexts may still refer to
    bool m_isComplete;
    bool m_knowsLostBraces = false;
    int m_lostBraces = 0; ///< how many braces of the contexts are never closed, if m_knowsLostBraces

    Pending m_pending;
    qsizetype m_declarationNumber = 0;
    SourceBrowserDeclaratorReader m_reader;
    bool m_afterBody = false;                  ///< the last declaration ended with a body
    QString m_composedType;                    ///< the text of the Composed token in m_pending
    SourceBrowserObject *m_composed = nullptr; ///< the type whose declarators are being read
    bool m_composedIsNamed = false;
};

} // namespace tavidoc
