#include "sourcebrowser/declaration_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

/// Skips "<...>" after "template" and the constraint after it.
bool SourceBrowserDeclarationParser::templateParameters()
{
    Token token = m_stream.next();
    if (!token.is('<')) {
        m_stream.giveBack(token);
        m_pending.declaresNothing = m_pending.declaresNothingYet();
        return true;
    }
    m_pending.isTemplate = true;
    if (!m_stream.skipAngles())
        return true;
    token = m_stream.next();
    if (token.text == u"requires")
        m_stream.skipConstraint();
    else
        m_stream.giveBack(token);
    return true;
}

/// Whether \a equals is the second half of "!=", "<=", ">=" or "==", or the first half of the last.
bool SourceBrowserDeclarationParser::isComparison(const Token &equals)
{
    if (!equals.blankBefore && !m_pending.tokens.empty()) {
        const Token &before = m_pending.tokens.back();
        if (before.is('!') || before.is('<') || before.is('>') || before.is('='))
            return true;
    }
    return m_stream.isFollowedBy('=');
}

/// Skips an initialiser except its first token. Ends with the "," or ";" after it.
bool SourceBrowserDeclarationParser::initialiser(const Token &equals)
{
    if (m_pending.isTemplate && m_pending.tokens.size() == 2 && m_pending.tokens.front().text == u"concept")
        return conceptDeclaration();
    m_pending.tokens.push_back(equals);
    m_pending.isInitialised = true;
    int angles = 0;
    bool isAfterWord = false;
    for (bool isFirst = true;; isFirst = false) {
        const Token token = m_stream.next();
        if (token.is(',') && angles > 0 && m_stream.skipToAngle()) {
            --angles;
            continue;
        }
        angles += token.is('<') && isAfterWord && !token.blankBefore;
        angles -= token.is('>') && angles > 0;
        isAfterWord = token.isIdentifier();
        switch (token.code) {
        case ',':
        case ';':
        case '}':
        case EndOfInput:
        case ConditionalBranch:
            return collect(token);
        case '(':
        case '[':
        case '{':
            m_stream.skipGroup(token);
            break;
        case ConditionalBegin:
        case ConditionalEnd:
            m_stream.noteConditional(token);
            break;
        default:
            if (isFirst)
                m_pending.tokens.push_back(token);
            break;
        }
    }
}

/// Declares `concept C`, whose constraint follows. A concept has the phylum of a typedef.
bool SourceBrowserDeclarationParser::conceptDeclaration()
{
    SourceBrowserDeclarator declarator;
    declarator.name = m_pending.tokens.back().text.toString();
    declarator.type.text = u"concept"_s;
    m_pending.isTypedef = true;
    m_pending.form = SourceBrowserObject::Form::Concept;
    declarator.place = positionOf(m_pending.tokens.back());
    m_stream.skipUntil(';');
    declareObject(declarator, true);
    endDeclaration();
    return false;
}

/// Reads what follows "using" and declares an alias: `A = B;`. It has the phylum of a typedef.
bool SourceBrowserDeclarationParser::aliasDeclaration()
{
    const Token name = m_stream.next();
    Token token = name;
    if (name.isIdentifier()) {
        token = m_stream.next();
        while (token.is('[')) {
            m_stream.skipGroup(token);
            token = m_stream.next();
        }
    }
    if (token.is('=')) {
        SourceBrowserDeclarator declarator;
        declarator.name = name.text.toString();
        declarator.place = positionOf(name);
        m_pending.isTypedef = true;
        m_pending.form = SourceBrowserObject::Form::Alias;
        m_stream.skipUntil(';');
        declareObject(declarator, true);
    } else {
        m_stream.giveBack(token);
        m_stream.skipUntil(';');
        m_scanner.pendingComment().clear();
    }
    m_pending.comment.clear(); // a "using" that is no alias documents nothing
    endDeclaration();
    return false;
}

/// Skips the initialisers of a constructor and reads its body.
bool SourceBrowserDeclarationParser::constructorInitialisers(const Token &colon)
{
    endAt(colon);
    int previous = 0;
    for (;;) {
        const Token token = m_stream.next();
        if (token.is('{') && previous != Identifier && previous != '>') {
            return finishWithBody(token);
        }
        if (token.is(';') || token.is('}') || token.is(EndOfInput) || token.is(ConditionalBranch))
            return collect(token);
        if (token.is('(') || token.is('[') || token.is('{'))
            m_stream.skipGroup(token);
        if (token.isConditional())
            m_stream.noteConditional(token);
        else
            previous = token.code;
    }
}

} // namespace tavidoc
