#include "site/compile/code_tokens.h"

#include "base/white_space.h"
#include "site/compile/entities.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavidoc {

namespace {

constexpr std::size_t s_longestCodeReference = 10;
constexpr std::string_view s_spanClass = "<span class=\"zkt-code-";

/// The keywords of C and C++ that may be next to names. Sorted.
constexpr std::string_view s_keywords[] = {
    "alignas",  "alignof",  "and",       "auto",     "bool",      "break",  "case",      "catch",     "char",
    "class",    "co_await", "co_return", "co_yield", "concept",   "const",  "consteval", "constexpr", "constinit",
    "continue", "decltype", "default",   "delete",   "do",        "double", "else",      "enum",      "explicit",
    "export",   "extern",   "false",     "final",    "float",     "for",    "friend",    "goto",      "if",
    "inline",   "int",      "long",      "mutable",  "namespace", "new",    "noexcept",  "not",       "nullptr",
    "operator", "or",       "override",  "private",  "protected", "public", "register",  "requires",  "restrict",
    "return",   "short",    "signed",    "sizeof",   "static",    "struct", "switch",    "template",  "this",
    "throw",    "true",     "try",       "typedef",  "typename",  "union",  "unsigned",  "using",     "virtual",
    "void",     "volatile", "while"};
static_assert(std::ranges::is_sorted(s_keywords));

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr bool isOther(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}

class CodeScanner
{
public:
    explicit CodeScanner(std::string_view html)
        : m_html(html), m_isColoured(html.find("<span") != std::string_view::npos)
    {
    }

    std::vector<CodeToken> tokens() &&
    {
        while (m_at < m_html.size()) {
            if (m_html[m_at] == '<')
                tag();
            else
                character();
        }
        return std::move(m_tokens);
    }

private:
    /// What a run of a coloured listing is.
    enum class Style : unsigned char
    {
        Code,
        Keyword,
        Literal,
        Comment, ///< or a directive
    };

    void tag()
    {
        const std::string_view rest = m_html.substr(m_at);
        if (rest.starts_with(s_spanClass))
            m_style = styleOf(rest.substr(s_spanClass.size()));
        else if (rest.starts_with("<span") || rest.starts_with("</span"))
            m_style = Style::Code;
        else if (rest.starts_with("<a ") || rest.starts_with("</a"))
            m_isInLink = rest[1] == 'a';
        m_at = std::min(m_html.find('>', m_at), m_html.size() - 1) + 1;
    }

    static Style styleOf(std::string_view name)
    {
        static constexpr std::pair<std::string_view, Style> styles[] = {{"text\"", Style::Code},
                                                                        {"function\"", Style::Code},
                                                                        {"operator\"", Style::Code},
                                                                        {"keyword\"", Style::Keyword},
                                                                        {"literal\"", Style::Literal}};
        for (const auto &[start, style] : styles) {
            if (name.starts_with(start))
                return style;
        }
        return Style::Comment;
    }

    /// The character at \a at, and how long it is in the HTML. Characters that C does not have are 0, and so is
    /// what is past the end.
    [[nodiscard]] std::pair<char, std::size_t> characterAt(std::size_t at) const
    {
        static constexpr std::pair<std::string_view, char> entities[] = {
            {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
        if (at >= m_html.size())
            return {'\0', 0};
        if (m_html[at] != '&')
            return {m_html[at], 1};
        for (const auto &[entity, character] : entities) {
            if (m_html.substr(at).starts_with(entity))
                return {character, entity.size()};
        }
        std::string_view reference = m_html.substr(at, s_longestCodeReference);
        reference = reference.substr(0, std::min(reference.find(';'), reference.size() - 1) + 1);
        const bool isReference = reference.ends_with(';') && decoded(reference) != reference;
        return isReference ? std::pair('\0', reference.size()) : std::pair('&', std::size_t(1));
    }

    void character()
    {
        const auto [c, length] = characterAt(m_at);
        if (isSpace(c)) {
            m_hasBlank = true;
            m_isLineStart = m_isLineStart || c == '\n';
            ++m_at;
            return;
        }
        const bool isLineStart = std::exchange(m_isLineStart, false);
        if (beginsIdentifier(c) || isOther(c))
            return word();
        if (isDigit(c))
            return number();
        if (m_style != Style::Code) {
            return skipStyled(length);
        }
        if (!m_isColoured && skipsPlain(c, length, isLineStart))
            return;
        mark(c, length);
    }

    /// Skips a character of a literal or a comment. All of a literal is one token.
    void skipStyled(std::size_t length)
    {
        if (m_style == Style::Literal && (m_tokens.empty() || m_tokens.back().kind != CodeToken::Kind::Literal))
            return add(CodeToken::Kind::Literal, length, {});
        m_at += length;
    }

    /// Skips what \a c, a character of a listing without colours, begins: a comment, a literal or an include.
    bool skipsPlain(char c, std::size_t length, bool isLineStart)
    {
        const std::string_view rest = m_html.substr(m_at);
        if (rest.starts_with("//") || (isLineStart && rest.starts_with("#include")))
            m_at = std::min(m_html.find('\n', m_at), m_html.size());
        else if (rest.starts_with("/*"))
            m_at = std::min(m_html.find("*/", m_at + 2), m_html.size() - 2) + 2;
        else if (c == '"' || c == '\'')
            literal(c, length);
        else
            return false;
        return true;
    }

    /// Takes the literal that begins here. It ends with its line.
    void literal(char quote, std::size_t length)
    {
        std::size_t end = m_at + length;
        while (end < m_html.size() && m_html[end] != '\n') {
            const auto [c, size] = characterAt(end);
            end += size;
            if (c == quote)
                break;
            end += c == '\\' ? characterAt(end).second : 0;
        }
        add(CodeToken::Kind::Literal, end - m_at, {});
    }

    void word()
    {
        std::size_t end = m_at;
        bool isAscii = true;
        for (; end < m_html.size(); ++end) {
            if (isOther(m_html[end]))
                isAscii = false;
            else if (!beginsIdentifier(m_html[end]) && !isDigit(m_html[end]))
                break;
        }
        const std::string_view text = m_html.substr(m_at, end - m_at);
        if (m_style == Style::Comment) {
            m_at = end;
            return;
        }
        if (m_style == Style::Literal)
            return skipStyled(text.size());
        const bool isName =
            m_style == Style::Code && isAscii && !m_isInLink && !std::ranges::binary_search(s_keywords, text);
        add(isName ? CodeToken::Kind::Name : CodeToken::Kind::Keyword, text.size(), text);
    }

    void number()
    {
        std::size_t end = m_at;
        while (end < m_html.size() && (beginsIdentifier(m_html[end]) || isDigit(m_html[end]) || m_html[end] == '.'))
            ++end;
        if (m_style == Style::Comment)
            m_at = end;
        else
            add(CodeToken::Kind::Literal, end - m_at, {});
    }

    void mark(char c, std::size_t length)
    {
        static constexpr auto characters = [] {
            std::array<char, 128> all{};
            for (std::size_t i = 0; i < all.size(); ++i)
                all[i] = static_cast<char>(i);
            return all;
        }();
        const auto [next, nextLength] = characterAt(m_at + length);
        if (c == ':' && next == ':')
            return add(CodeToken::Kind::Scope, length + nextLength, {});
        if (c == '-' && next == '>')
            return add(CodeToken::Kind::Arrow, length + nextLength, {});
        add(CodeToken::Kind::Mark, length, {&characters[static_cast<unsigned char>(c) & 0x7fU], 1});
    }

    void add(CodeToken::Kind kind, std::size_t length, std::string_view text)
    {
        m_tokens.push_back({kind, m_hasBlank, m_at, text});
        m_hasBlank = false;
        m_at += length;
    }

    std::string_view m_html;
    bool m_isColoured;
    bool m_isInLink = false;
    bool m_hasBlank = true;
    bool m_isLineStart = true;
    Style m_style = Style::Code;
    std::size_t m_at = 0;
    std::vector<CodeToken> m_tokens;
};

} // namespace

std::vector<CodeToken> codeTokens(std::string_view html)
{
    return CodeScanner(html).tokens();
}

} // namespace tavidoc
