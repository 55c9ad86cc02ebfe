#include "site/compile/entities.h"

#include <QString>

#include <algorithm>
#include <charconv>
#include <optional>

namespace tavidoc {

namespace {

struct Entity
{
    std::string_view name;
    char32_t character;
};

/// The entities that the library writes, and those that authors use most in HTML of their own; by name.
constexpr Entity s_entities[] = {
    {"Auml", 0xC4},    {"Ouml", 0xD6},    {"Uuml", 0xDC},     {"aacute", 0xE1},  {"acirc", 0xE2},   {"agrave", 0xE0},
    {"alpha", 0x3B1},  {"amp", U'&'},     {"apos", U'\''},    {"aring", 0xE5},   {"auml", 0xE4},    {"beta", 0x3B2},
    {"bull", 0x2022},  {"ccedil", 0xE7},  {"cent", 0xA2},     {"copy", 0xA9},    {"darr", 0x2193},  {"deg", 0xB0},
    {"delta", 0x3B4},  {"divide", 0xF7},  {"eacute", 0xE9},   {"ecirc", 0xEA},   {"egrave", 0xE8},  {"emsp", U' '},
    {"ensp", U' '},    {"euro", 0x20AC},  {"frac12", 0xBD},   {"frac14", 0xBC},  {"frac34", 0xBE},  {"ge", 0x2265},
    {"gt", U'>'},      {"harr", 0x2194},  {"hellip", 0x2026}, {"infin", 0x221E}, {"lambda", 0x3BB}, {"laquo", 0xAB},
    {"larr", 0x2190},  {"ldquo", 0x201C}, {"le", 0x2264},     {"lsquo", 0x2018}, {"lt", U'<'},      {"mdash", 0x2014},
    {"micro", 0xB5},   {"middot", 0xB7},  {"minus", 0x2212},  {"mu", 0x3BC},     {"nbsp", U' '},    {"ndash", 0x2013},
    {"ne", 0x2260},    {"ntilde", 0xF1},  {"oacute", 0xF3},   {"ocirc", 0xF4},   {"omega", 0x3C9},  {"ouml", 0xF6},
    {"para", 0xB6},    {"pi", 0x3C0},     {"plusmn", 0xB1},   {"pound", 0xA3},   {"quot", U'"'},    {"raquo", 0xBB},
    {"rarr", 0x2192},  {"rdquo", 0x201D}, {"reg", 0xAE},      {"rsquo", 0x2019}, {"sect", 0xA7},    {"sigma", 0x3C3},
    {"sum", 0x2211},   {"sup2", 0xB2},    {"sup3", 0xB3},     {"szlig", 0xDF},   {"thinsp", U' '},  {"times", 0xD7},
    {"trade", 0x2122}, {"uacute", 0xFA},  {"uarr", 0x2191},   {"ugrave", 0xF9},  {"uuml", 0xFC},    {"yen", 0xA5},
};
static_assert(std::ranges::is_sorted(s_entities, {}, &Entity::name));

constexpr std::size_t s_longestReference = 10; // between "&" and ";"

std::optional<char32_t> numberedCharacter(std::string_view digits)
{
    const bool isHexadecimal = digits.starts_with('x') || digits.starts_with('X');
    digits.remove_prefix(isHexadecimal ? 1 : 0);
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, isHexadecimal ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size() || number == 0 || number > 0x10FFFF ||
        (number >= 0xD800 && number < 0xE000))
        return std::nullopt;
    return number == 0xA0 || number == 0x202F ? U' ' : static_cast<char32_t>(number);
}

/// The character that the reference between "&" and ";" stands for.
std::optional<char32_t> referencedCharacter(std::string_view reference)
{
    if (reference.starts_with('#'))
        return numberedCharacter(reference.substr(1));
    const auto found = std::ranges::lower_bound(s_entities, reference, {}, &Entity::name);
    if (found == std::end(s_entities) || found->name != reference)
        return std::nullopt;
    return found->character;
}

void appendCharacter(std::string &text, char32_t character)
{
    if (character < 0x80)
        text += static_cast<char>(character);
    else
        text += QString::fromUcs4(&character, 1).toStdString();
}

} // namespace

void appendDecoded(std::string &text, std::string_view html)
{
    for (std::size_t at = html.find('&'); at != std::string_view::npos; at = html.find('&')) {
        text += html.substr(0, at);
        html.remove_prefix(at + 1);
        const std::size_t end = html.substr(0, s_longestReference + 1).find(';');
        const std::optional<char32_t> character =
            end == std::string_view::npos ? std::nullopt : referencedCharacter(html.substr(0, end));
        if (!character) {
            text += '&';
            continue;
        }
        appendCharacter(text, *character);
        html.remove_prefix(end + 1);
    }
    text += html;
}

std::string decoded(std::string_view html)
{
    std::string text;
    appendDecoded(text, html);
    return text;
}

} // namespace tavidoc
