#include "base/text_escape.h"

#include "base/byte_search.h"

#include <array>
#include <cstdint>

namespace tavidoc {

namespace {

enum Entity : std::uint8_t
{
    Plain,
    Ampersand,
    Greater,
    Less,
    Quote,
    Apostrophe,
    PerhapsMiddleDot, // first byte of the middle dot and of others
};

constexpr std::string_view s_entities[] = {"", "&amp;", "&gt;", "&lt;", "&quot;", "&apos;", "&middot;"};
constexpr char s_middleDotTail = '\xB7';

constexpr std::array<Entity, 256> entityTable()
{
    std::array<Entity, 256> table{};
    table['&'] = Ampersand;
    table['>'] = Greater;
    table['<'] = Less;
    table['"'] = Quote;
    table['\''] = Apostrophe;
    table[0xC2] = PerhapsMiddleDot;
    return table;
}

constexpr std::array<Entity, 256> s_entityOfByte = entityTable();

/// Where the next character of s_entityOfByte is in \a text, from \a from on.
std::size_t nextEntity(std::string_view text, std::size_t from)
{
    return findAnyOf<'&', '>', '<', '"', '\'', '\xC2'>(text, from);
}

} // namespace

void appendEscaped(std::string &html, std::string_view text)
{
    std::size_t plain = 0; // where the text that has not been copied begins
    for (std::size_t at = nextEntity(text, 0); at < text.size(); at = nextEntity(text, at)) {
        const std::size_t begin = at++;
        const Entity entity = s_entityOfByte[static_cast<unsigned char>(text[begin])];
        if (entity == PerhapsMiddleDot) {
            if (at == text.size() || text[at] != s_middleDotTail)
                continue;
            ++at;
        }
        html.append(text.data() + plain, begin - plain);
        html.append(s_entities[entity]);
        plain = at;
    }
    html.append(text.data() + plain, text.size() - plain);
}

std::string escapedText(std::string_view text)
{
    std::string html;
    html.reserve(text.size());
    appendEscaped(html, text);
    return html;
}

} // namespace tavidoc
