#include "base/text_escape.h"

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

} // namespace

void appendEscaped(std::string &html, std::string_view text)
{
    const char *plain = text.data();
    const char *at = plain;
    const char *const end = plain + text.size();
    for (; at != end; ++at) {
        const Entity entity = s_entityOfByte[static_cast<unsigned char>(*at)];
        if (entity == Plain)
            continue;
        const char *after = at + 1;
        if (entity == PerhapsMiddleDot) {
            if (after == end || *after != s_middleDotTail)
                continue;
            ++after;
        }
        html.append(plain, at);
        html.append(s_entities[entity]);
        plain = after;
        at = after - 1;
    }
    html.append(plain, end);
}

std::string escapedText(std::string_view text)
{
    std::string html;
    html.reserve(text.size());
    appendEscaped(html, text);
    return html;
}

} // namespace tavidoc
