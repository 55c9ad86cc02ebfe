#include "site/compile/code_names.h"

#include "site/compile/code_tokens.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace tavidoc {

namespace {

using Use = RecordName::Use;

constexpr std::size_t s_longestName = 500; // so that a long chain of names does not take time in its square

/// Keywords between which and the next mark a name is that of a type or a value, not one that is declared. Sorted.
constexpr std::string_view s_beforeUses[] = {
    "and",    "case",     "class",    "co_await", "co_return", "co_yield", "const",   "constexpr",
    "delete", "do",       "else",     "enum",     "explicit",  "extern",   "friend",  "goto",
    "inline", "mutable",  "new",      "not",      "operator",  "or",       "private", "protected",
    "public", "register", "requires", "return",   "sizeof",    "static",   "struct",  "template",
    "throw",  "typedef",  "typename", "union",    "using",     "virtual",  "volatile"};
static_assert(std::ranges::is_sorted(s_beforeUses));

/// The length of the name with which \a text begins: identifiers separated by "::". 0 if there is none.
std::size_t nameLength(std::string_view text)
{
    std::size_t end = 0;
    for (;;) {
        if (end == text.size() || !beginsIdentifier(text[end]))
            return 0;
        while (end < text.size() && (beginsIdentifier(text[end]) || (text[end] >= '0' && text[end] <= '9')))
            ++end;
        if (!text.substr(end).starts_with("::"))
            return end;
        end += 2;
    }
}

/// Finds the names that are used in a listing or synopsis.
class UsedNames
{
public:
    struct Found
    {
        Use use;
        std::string name;   // qualified as it is in the code
        std::size_t offset; // of its last identifier, in the HTML
    };

    UsedNames(std::string_view html, Use use) : m_tokens(codeTokens(html)), m_use(use) { noteDeclared(); }

    std::vector<Found> names() &&
    {
        std::vector<Found> found;
        std::string name; // up to the current token
        for (std::size_t at = 0; at < m_tokens.size(); ++at) {
            const CodeToken &token = m_tokens[at];
            if (token.kind == CodeToken::Kind::Scope) {
                if (name.size() > s_longestName)
                    name = "?";                        // nothing is named so
                name.append(name.empty() ? "" : "::"); // "::f" is "f"
                continue;
            }
            if (!token.isWord()) {
                name.clear();
                continue;
            }
            if (!name.ends_with("::"))
                name.clear();
            name += token.text;
            if (token.kind == CodeToken::Kind::Name && isUsed(at))
                found.push_back({useAt(at), name, token.offset});
        }
        return found;
    }

private:
    [[nodiscard]] const CodeToken *tokenAt(std::size_t at) const
    {
        return at < m_tokens.size() ? &m_tokens[at] : nullptr;
    }
    [[nodiscard]] const CodeToken *before(std::size_t at) const { return at == 0 ? nullptr : &m_tokens[at - 1]; }

    /// Whether the name at \a at is that of a member: it follows "." or "->", unless as in "auto f() -> Type".
    [[nodiscard]] bool isMember(std::size_t at) const
    {
        const CodeToken *const token = before(at);
        if (token == nullptr || token->kind != CodeToken::Kind::Arrow)
            return token != nullptr && token->isMark('.');
        const bool isAfterName = at > 1 && m_tokens[at - 2].kind == CodeToken::Kind::Name;
        return isAfterName || !m_tokens[at].hasBlankBefore;
    }

    [[nodiscard]] bool isQualified(std::size_t at) const
    {
        const CodeToken *const token = before(at);
        return token != nullptr && token->kind == CodeToken::Kind::Scope;
    }

    [[nodiscard]] Use useAt(std::size_t at) const { return isMember(at) ? Use::Member : m_use; }

    [[nodiscard]] bool isUsed(std::size_t at) const
    {
        return isMember(at) || isQualified(at) || !m_declared.contains(m_tokens[at].text);
    }

    /// Whether what follows a name may end its declaration.
    [[nodiscard]] bool endsDeclarator(std::size_t at) const
    {
        const CodeToken *const token = tokenAt(at);
        if (token == nullptr)
            return true;
        return token->kind == CodeToken::Kind::Mark &&
               std::string_view(";,)=[{:>").find(token->text.front()) != std::string_view::npos;
    }

    /// Whether the name at \a at is declared there: it follows a type, and what follows it ends a declarator.
    [[nodiscard]] bool isDeclared(std::size_t at) const
    {
        const CodeToken *const type = before(at);
        const CodeToken *const next = tokenAt(at + 1);
        if (type == nullptr || isMember(at) || isQualified(at) || !endsDeclarator(at + 1))
            return false;
        if (type->isWord()) {
            const bool isParameter = type->text == "typename" || type->text == "class";
            if (isParameter && next != nullptr)
                return next->isMark(',') || next->isMark('>') || next->isMark('=');
            return !std::ranges::binary_search(s_beforeUses, type->text);
        }
        if (type->isMark('>'))
            return m_tokens[at].hasBlankBefore && (next == nullptr || !next->isMark('>'));
        if (!type->isMark('*') && !type->isMark('&'))
            return false;
        // In a synopsis it declares a pointer. Elsewhere it may be an operator, which has blanks on both sides.
        return m_use == Use::Type || type->hasBlankBefore != m_tokens[at].hasBlankBefore;
    }

    void noteDeclared()
    {
        for (std::size_t at = 0; at < m_tokens.size(); ++at) {
            if (m_tokens[at].kind == CodeToken::Kind::Name && isDeclared(at))
                m_declared.insert(m_tokens[at].text);
        }
    }

    std::vector<CodeToken> m_tokens;
    Use m_use;
    std::unordered_set<std::string_view> m_declared;
};

} // namespace

void CodeNames::add(Use use, std::string name, std::size_t offset)
{
    std::string key(1, static_cast<char>(use));
    key += name;
    const auto [index, isNew] = m_indices.try_emplace(std::move(key), m_names.size());
    if (isNew)
        m_names.push_back({std::move(name), use, {}});
    m_names[index->second].offsets.push_back(offset);
}

void CodeNames::addText(std::string_view html, std::size_t offset)
{
    const std::size_t length = nameLength(html);
    if (length > 0 && (html.size() == length || html.substr(length) == "()"))
        add(Use::Text, std::string(html.substr(0, length)), offset);
}

void CodeNames::addListing(std::string_view html, std::size_t offset)
{
    for (UsedNames::Found &found : UsedNames(html, Use::Code).names())
        add(found.use, std::move(found.name), offset + found.offset);
}

void CodeNames::addSynopsis(std::string_view html, std::size_t offset)
{
    for (UsedNames::Found &found : UsedNames(html, Use::Type).names())
        add(found.use, std::move(found.name), offset + found.offset);
}

std::vector<RecordName> CodeNames::takeNames()
{
    m_indices.clear();
    return std::move(m_names);
}

} // namespace tavidoc
