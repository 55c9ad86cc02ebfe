#include "codeedit/spans.h"

#include "base/text_escape.h"
#include "codeedit/code_style.h"
#include "codeedit/styled_line.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavidoc {

namespace {

constexpr unsigned s_namedStyles = 17;
constexpr std::size_t s_escaped = 256;
constexpr std::size_t s_longestCharacter = 4; // in bytes
constexpr int s_unchecked = 8;                // characters that are written without a check of the free space
constexpr std::string_view s_closingTag = "</span>";

/// A short text in an array of fixed size, so that copying it takes no loop.
template <std::size_t Capacity> struct ShortText
{
    std::array<char, Capacity> text{};
    std::uint8_t length = 0;

    void assign(std::string_view from)
    {
        std::ranges::copy(from, text.begin());
        length = static_cast<std::uint8_t>(from.size());
    }
    /// Copies the text to \a to, where the whole capacity must be free, and returns the end of the copy.
    char *copyTo(char *to) const
    {
        std::memcpy(to, text.data(), Capacity);
        return to + length;
    }
};

/// Copies \a character to \a to in UTF-8 and returns the end of the copy.
char *copyCharacter(char *to, char32_t character)
{
    if (character < 0x80) {
        *to++ = static_cast<char>(character);
        return to;
    }
    unsigned following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    const unsigned lead = character < 0x800 ? 0xC0 : character < 0x10000 ? 0xE0 : 0xF0;
    *to++ = static_cast<char>(lead | character >> 6 * following);
    while (following-- > 0)
        *to++ = static_cast<char>(0x80 | (character >> 6 * following & 0x3F));
    return to;
}

/// Tags and escapes, ready to be copied.
struct Phrases
{
    Phrases();

    using Tag = ShortText<48>;
    /// What begins a run in a style: the opening tag of its span, in nextRun after the closing tag of
    /// the previous one. Styles without a name share the last.
    std::array<Tag, s_namedStyles + 1> firstRun;
    std::array<Tag, s_namedStyles + 1> nextRun;

    std::array<ShortText<8>, s_escaped> escapes; // of the first characters; later ones are never escaped
    std::array<bool, 128> plain;                 // whether an ASCII character is written as it is; false for 0
};

Phrases::Phrases()
{
    for (unsigned style = 0; style <= s_namedStyles; ++style) {
        const std::string_view name = styleName(style);
        std::string tag("<span>");
        if (!name.empty())
            tag = std::string("<span class=\"zkt-code-").append(name).append("\">");
        firstRun[style].assign(tag);
        nextRun[style].assign(std::string(s_closingTag).append(tag));
    }
    for (std::size_t c = 0; c < escapes.size(); ++c) {
        std::array<char, s_longestCharacter> character{};
        const auto length =
            static_cast<std::size_t>(copyCharacter(character.data(), static_cast<char32_t>(c)) - character.data());
        const std::string escape = escapedText({character.data(), length});
        escapes[c].assign(escape);
        if (c < plain.size())
            plain[c] = c != 0 && escape.size() == 1;
    }
}

const Phrases s_phrases;

/// Copies the plain characters at \a styled to \a to, until \a full is reached or passed. Advances
/// both positions.
void copyPlain(char *&to, const char *full, const char16_t *&styled)
{
    while (to < full) {
        for (int index = 0; index < s_unchecked; ++index) {
            if (*styled >= 128 || !s_phrases.plain[*styled])
                return;
            *to++ = static_cast<char>(*styled++);
        }
    }
}

/// Takes the character at \a at, which is beyond ASCII. Half a surrogate pair becomes U+FFFD.
char32_t takeCharacter(const char16_t *&at)
{
    const char32_t character = *at++;
    if (character < 0xD800 || character >= 0xE000)
        return character;
    if (character < 0xDC00 && *at >= 0xDC00 && *at < 0xE000)
        return 0x10000 + ((character - 0xD800) << 10) + (*at++ - 0xDC00U);
    return 0xFFFD;
}

/// Copies the character at \a styled to \a to in its escaped form and returns the end of the copy.
char *copySpecial(char *to, const char16_t *&styled)
{
    if (*styled < s_escaped)
        return s_phrases.escapes[*styled++].copyTo(to);
    return copyCharacter(to, takeCharacter(styled));
}

} // namespace

void Spans::appendLine(const char16_t *styled)
{
    const char *const full = m_buffer.data() + s_size - s_reserve;
    const auto *starts = &s_phrases.firstRun;
    char *to = m_to;
    while (*styled != 0) {
        if (*styled == s_styleMarker) {
            to = (*starts)[std::min<unsigned>(styled[1], s_namedStyles)].copyTo(to);
            starts = &s_phrases.nextRun;
            styled += 2;
        }
        copyPlain(to, full, styled);
        if (*styled != 0 && *styled != s_styleMarker && to < full)
            to = copySpecial(to, styled);
        if (to >= full)
            to = flushed(to);
    }
    if (starts == &s_phrases.nextRun)
        to = std::ranges::copy(s_closingTag, to).out;
    *to++ = '\n';
    m_to = to < full ? to : flushed(to);
}

/// Appends the buffer, which is filled up to \a end, to the HTML text. Returns the beginning of the buffer.
char *Spans::flushed(char *end)
{
    m_html.append(m_buffer.data(), end);
    return m_buffer.data();
}

} // namespace tavidoc
