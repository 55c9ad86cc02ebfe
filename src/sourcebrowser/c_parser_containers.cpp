#include "sourcebrowser/c_parser.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

void SourceBrowserCParser::namespaceStatement(const Token &first)
{
    begin(first);
    QString name;
    Token token = nextWithExtensions();
    for (; !token.is('{') && !token.is(EndOfInput); token = nextWithExtensions()) {
        if (token.code >= ConditionalBegin) {
            noteCondition(token);
        } else if (token.is('=') || token.is(';')) { // an alias
            if (token.is('='))
                skipUntil(';');
            m_pending.comment.clear();
            return endDeclaration();
        } else if (token.is('[') && peek().is('[')) {
            skipGroup(token);
        } else if (token.is(Skipped)) {
            continue;
        } else if (token.isIdentifier() && name.isEmpty()) {
            name = token.text.toString();
        } else {
            complain(token.line, u"Bad namespace identifier"_s);
        }
    }
    if (token.is(EndOfInput))
        return endDeclaration();
    if (isTooDeep()) {
        skipGroup(token);
        return endDeclaration();
    }
    if (name.isEmpty())
        name = u'(' + m_file.mid(m_file.lastIndexOf(u'/') + 1) + u')';
    auto object = std::make_unique<SourceBrowserContainer>(SourceBrowserObject::Namespace, name);
    place(*object, m_pending.line);
    attachComment(*object, m_pending.line);
    if (m_events)
        m_events->declareContainer(SourceBrowserObject::Namespace, name, name, {}, m_pending.line);
    SourceBrowserContainer *container = merge(std::move(object));
    open(Body::Namespace, container)->phylum = SourceBrowserObject::Namespace;
    endDeclaration();
}

/// Adds \a container, or brings the one of that qualified name up to date.
SourceBrowserContainer *SourceBrowserCParser::merge(std::unique_ptr<SourceBrowserContainer> container)
{
    SourceBrowserContainer *known =
        container->isAnonymous() ? nullptr : m_objects->container(container->qualifiedName());
    if (known && known->container() == m_context->container) {
        known->update(*container);
        return known;
    }
    return static_cast<SourceBrowserContainer *>(&m_objects->add(*m_context->container, std::move(container)));
}

namespace {

using Tokens = std::vector<SourceBrowserTokenRecord>;

bool isInCapitals(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar unit) { return unit.isLower(); });
}

/// Whether the group at \a open holds a number, a word or a basic type and so cannot be the arguments
/// of a function that has a body: those have names.
bool isAttributeCall(const Tokens &tokens, size_t open)
{
    size_t close = open + 1;
    bool areTypes = true;
    for (; close < tokens.size() && !tokens[close].is(')'); ++close)
        areTypes &= tokens[close].word == Word::BasicType && tokens[close].text != u"void";
    const size_t count = close - open - 1;
    if (count == 0)
        return false;
    const SourceBrowserTokenRecord &first = tokens[open + 1];
    return areTypes || first.is(Number) || first.is(String) ||
           (count == 1 && first.isIdentifier() && first.word == Word::Plain);
}

} // namespace

/// The index at which the head of the container or enumeration begins, after its keyword.
size_t SourceBrowserCParser::headBegin() const
{
    const size_t at = static_cast<size_t>(m_pending.key) + 1;
    const bool isCall = at < m_pending.tokens.size() && m_pending.tokens[at].is(')'); // "ALIGNED(class) point"
    return isCall ? at + 1 : at;
}

/// Whether the "{" after the tokens opens the container that their last keyword begins, and not the
/// body of a function that returns one.
bool SourceBrowserCParser::opensClass() const
{
    const std::vector<Token> &tokens = m_pending.tokens;
    bool hasName = false;
    int angles = 0;
    const auto key = static_cast<size_t>(m_pending.key);
    const bool isScopedEnum = tokens[key].is(Enum) && key + 1 < tokens.size() &&
                              (tokens[key + 1].is(Class) || tokens[key + 1].is(Struct)); // no function returns one
    for (size_t at = headBegin(); at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        if (token.is(':'))
            return true;
        if (token.is('<') || token.is('>')) {
            if (SourceBrowserDeclaratorReader::isAngle(tokens, at))
                angles += token.is('<') ? 1 : -1;
        } else if (angles > 0) {
            continue;
        } else if (token.is('(')) {
            if (hasName)
                return false;
            while (at + 1 < tokens.size() && !(tokens[at].is(')') && tokens[at + 1].isIdentifier()))
                ++at;
        } else if (token.isIdentifier()) {
            const bool isCall = at + 1 < tokens.size() && tokens[at + 1].is('(');
            hasName |= !isCall && !isInCapitals(token.text);
            if (isCall && hasName) {
                if (!isScopedEnum && (!isInCapitals(token.text) || !isAttributeCall(tokens, at + 1)))
                    return false;
                while (at + 1 < tokens.size() && !tokens[at].is(')'))
                    ++at;
            }
        } else if (token.is('[')) {
            while (at < tokens.size() && !tokens[at].is(']'))
                ++at;
        } else if (!token.is(Scope) && !token.is(Class) && !token.is(Struct) && !token.is(']') && !token.is(')')) {
            return false;
        }
    }
    return true;
}

/// The last run of words joined by "::" after index \a from, up to a ":" or the end. A word in capitals
/// after a name with small letters is a macro.
QString SourceBrowserCParser::headName(size_t from) const
{
    const std::vector<Token> &tokens = m_pending.tokens;
    QString name;
    bool joins = false;
    int nesting = 0;
    for (size_t at = from; at < tokens.size() && !(tokens[at].is(':') && nesting == 0); ++at) {
        const Token &token = tokens[at];
        const bool isAngle = SourceBrowserDeclaratorReader::isAngle(tokens, at);
        if ((token.is('<') && isAngle) || token.is('(') || token.is('['))
            ++nesting;
        if (nesting == 0 && token.isIdentifier() && token.text != u"final" && token.word != Word::Storage) {
            const bool isMacro = (at + 1 < tokens.size() && tokens[at + 1].is('(')) ||
                                 (!joins && isInCapitals(token.text) && !isInCapitals(name));
            if (!isMacro)
                name = joins ? name + "::"_L1 + token.text.toString() : token.text.toString();
        }
        if (nesting == 0)
            joins = token.is(Scope) && !name.isEmpty();
        if (((token.is('>') && isAngle) || token.is(')') || token.is(']')) && nesting > 0)
            --nesting;
    }
    return name;
}

std::vector<SourceBrowserBaseClass> SourceBrowserCParser::baseClasses(size_t from) const
{
    std::vector<SourceBrowserBaseClass> bases;
    const std::vector<Token> &tokens = m_pending.tokens;
    size_t at = from;
    while (at < tokens.size() && !tokens[at].is(':'))
        ++at;
    while (++at < tokens.size()) {
        SourceBrowserBaseClass base;
        std::vector<Token> name;
        for (int nesting = 0; at < tokens.size() && !(nesting == 0 && tokens[at].is(',')); ++at) {
            const Token &token = tokens[at];
            if (token.is('(') || token.is(')') || SourceBrowserDeclaratorReader::isAngle(tokens, at))
                nesting += token.is('<') || token.is('(') ? 1 : -1;
            if (token.is(Public) || token.is(Protected) || token.is(Private))
                base.access = token.is(Public)      ? SourceBrowserObject::Public
                              : token.is(Protected) ? SourceBrowserObject::Protected
                                                    : SourceBrowserObject::Private;
            else if (token.is(Virtual))
                base.isVirtual = true;
            else
                name.push_back(token);
        }
        SourceBrowserDeclaratorReader::linkBrackets(name);
        base.name = SourceBrowserDeclaratorReader::typeText(name);
        if (!base.name.isEmpty())
            bases.push_back(std::move(base));
    }
    return bases;
}

void SourceBrowserCParser::classBody()
{
    const auto key = static_cast<size_t>(m_pending.key);
    const Token keyword = m_pending.tokens[key];
    const bool isStructure = !keyword.is(Class) && (m_pending.isTypedef || m_context->body == Body::Structure);
    QString name = headName(headBegin());
    const bool isNamed = !name.isEmpty();
    if (!isNamed)
        name = SourceBrowserContainer::anonymousName();
    const auto phylum = keyword.is(Class) ? SourceBrowserObject::Class : SourceBrowserObject::Structure;
    auto object = std::make_unique<SourceBrowserContainer>(phylum, name);
    place(*object, m_pending.line);
    attachComment(*object, m_pending.line);
    object->setBaseClasses(baseClasses(headBegin()));
    // Deliberate: the event of a structure outside a typedef says "class", its object "structure".
    const auto told = isStructure ? SourceBrowserObject::Structure : SourceBrowserObject::Class;
    if (m_events)
        m_events->declareContainer(told, name, name, {}, m_pending.line);
    SourceBrowserContainer *container = merge(std::move(object));
    Context &context = *open(isStructure ? Body::Structure : Body::Class, container);
    context.phylum = told;
    // Deliberate: private in a "struct" outside a typedef too.
    context.access = isStructure ? SourceBrowserObject::Public : SourceBrowserObject::Private;
    context.isTypedef = m_pending.isTypedef;
    context.isStatic = m_pending.isStatic;
    context.isNamed = isNamed;
    context.composedType = composedType(keyword, isNamed ? name : QString());
    context.line = m_pending.line;
    endDeclaration();
    m_scanner->pendingComment().clear();
}

/// The type of declarators after a body: the keyword and name, with qualifiers before them.
QString SourceBrowserCParser::composedType(const Token &keyword, const QString &name) const
{
    QString type;
    for (size_t at = 0; at < static_cast<size_t>(m_pending.key); ++at) {
        const Token &token = m_pending.tokens[at];
        if (token.is(Const) || token.is(Volatile))
            type += token.text.toString() + u' ';
    }
    return type + keyword.text.toString() + u' ' + (name.isEmpty() ? u"{...}"_s : name);
}

/// Goes on with the declarators after the "}" of a class or structure.
void SourceBrowserCParser::afterBody(const Context &closed, const Token &brace)
{
    m_scanner->pendingComment().clear();
    begin(brace);
    m_pending.line = closed.line;
    m_pending.column = closed.column;
    m_pending.isTypedef = closed.isTypedef;
    m_pending.isStatic = closed.isStatic;
    continueAfter(*closed.container, closed.composedType, closed.isNamed, brace);
}

/// Reads the declarators of the type \a object, whose text is \a type.
void SourceBrowserCParser::continueAfter(SourceBrowserObject &object, const QString &type, bool isNamed,
                                         const Token &brace)
{
    m_composedType = type;
    Token composed = brace;
    composed.code = Composed;
    composed.text = m_composedType;
    composed.blankBefore = true;
    m_pending.tokens = {composed};
    m_composed = &object;
    m_composedIsNamed = isNamed;
    bool goesOn = true;
    while (goesOn) {
        const Token token = nextWithExtensions();
        // A body that ends without ";": what follows on a new line is another declaration.
        const bool startsAnother = m_pending.tokens.size() == 1 &&
                                   (token.is(Typedef) || token.is(Extern) || token.is(Struct) || token.is(Class) ||
                                    token.is(Enum) || token.is(Template) || token.is(Using) || token.is(Namespace) ||
                                    token.is(Public) || token.is(Private) || token.is(Protected));
        if (startsAnother) {
            giveBack(token);
            finish();
            break;
        }
        goesOn = collect(token);
    }
    m_composed = nullptr;
}

/// Whether what follows a named body is a macro and no variable, as in `struct point {...} PACKED;`.
bool SourceBrowserCParser::isComposedMacro(const SourceBrowserDeclarator &declarator) const
{
    return m_composed && m_composedIsNamed && !m_pending.isTypedef &&
           (declarator.isBarePlainName || declarator.kind == SourceBrowserDeclarator::Function) &&
           std::none_of(declarator.name.begin(), declarator.name.end(), [](QChar unit) { return unit.isLower(); });
}

/// Reads an enumeration and goes on with the declarators after it.
void SourceBrowserCParser::enumBody(const Token &brace)
{
    const auto key = static_cast<size_t>(m_pending.key);
    QString name = headName(headBegin());
    const bool isNamed = !name.isEmpty();
    auto object = std::make_unique<SourceBrowserEnum>(SourceBrowserObject::Unknown,
                                                      isNamed ? name : SourceBrowserContainer::anonymousName());
    place(*object, m_pending.line);
    attachComment(*object, m_pending.line);
    const QString type = composedType(m_pending.tokens[key], name);
    Pending rest = m_pending;
    m_pending.tokens.clear();
    const int last = enumerators(*object);
    m_pending = std::move(rest);
    SourceBrowserObject::Lines lines = object->lines();
    lines.last = last - 1;
    object->setLines(lines);
    SourceBrowserObject &added = m_objects->add(*m_context->container, std::move(object));
    m_pending.key = -1;
    m_pending.groupEnd = -1;
    continueAfter(added, type, isNamed, brace);
}

/// Reads up to the closing brace; the result is its line, counted from 1.
int SourceBrowserCParser::enumerators(SourceBrowserEnum &enumeration)
{
    std::vector<Token> tokens;
    int nesting = 0;
    const auto complete = [&] {
        if (!tokens.empty() && tokens.front().isIdentifier())
            enumeration.append(SourceBrowserDeclaratorReader::sourceText(tokens));
        tokens.clear();
        m_scanner->releaseLines();
    };
    for (;;) {
        const Token token = nextWithExtensions();
        if (token.code >= ConditionalBegin) {
            if (token.is(ConditionalBranch))
                complete();
            noteCondition(token);
            continue;
        }
        nesting += (token.is('(') || token.is('[')) - (token.is(')') || token.is(']'));
        const bool ends = token.is('}') || token.is(EndOfInput) || token.is(';');
        if (ends || (token.is(',') && nesting <= 0)) {
            complete();
            nesting = 0;
            if (token.is(';'))
                giveBack(token);
            if (ends)
                return token.line;
        } else {
            tokens.push_back(token);
        }
    }
}

} // namespace tavidoc
