#include "codeedit/spans.h"

#include "codeedit/code_style.h"
#include "codeedit/styled_line.h"
#include "docgen/text_escape.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace {

constexpr unsigned s_namedStyles = 17;
constexpr std::string_view s_closingTag = "</span>";

/// A short text in a fixed room, so that copying it takes no loop.
template <std::size_t Room> struct ShortText
{
    std::array<char, Room> text{};
    std::uint8_t length = 0;

    void assign(std::string_view from)
    {
        std::ranges::copy(from, text.begin());
        length = static_cast<std::uint8_t>(from.size());
    }
    /// Copies the text to \a to, where the whole room of it must be free; the result is its end.
    char *copyTo(char *to) const
    {
        std::memcpy(to, text.data(), Room);
        return to + length;
    }
};

/// What is written again and again, ready to be copied.
struct Phrases
{
    Phrases();

    using Tag = ShortText<48>;
    /// Begins a run in a style: the tag that opens its span, and that which closes the one
    /// before in front of it. Styles without a name share the last.
    std::array<Tag, s_namedStyles + 1> firstRun;
    std::array<Tag, s_namedStyles + 1> nextRun;

    std::array<ShortText<8>, 128> escapes; // of each ASCII character
    std::array<bool, 128> plain;           // whether it stands for itself; not for 0
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
        const std::string escape = escapedText(std::string(1, static_cast<char>(c)));
        escapes[c].assign(escape);
        plain[c] = c != 0 && escape.size() == 1;
    }
}

const Phrases s_phrases;

/// Takes the character at \a at and appends it to \a text as UTF-8. Half a pair becomes U+FFFD.
void appendUtf8(std::string &text, const char16_t *&at)
{
    char32_t character = *at++;
    if (character >= 0xD800 && character < 0xDC00 && *at >= 0xDC00 && *at < 0xE000)
        character = 0x10000 + ((character - 0xD800) << 10) + (*at++ - 0xDC00U);
    else if (character >= 0xD800 && character < 0xE000)
        character = 0xFFFD;
    int shift = character < 0x800 ? 6 : character < 0x10000 ? 12 : 18;
    const unsigned lead = character < 0x800 ? 0xC0 : character < 0x10000 ? 0xE0 : 0xF0;
    text += static_cast<char>(lead | character >> shift);
    while (shift > 0) {
        shift -= 6;
        text += static_cast<char>(0x80 | (character >> shift & 0x3F));
    }
}

} // namespace

void Spans::flush()
{
    m_html.append(m_buffer.data(), m_to);
    m_to = m_buffer.data();
}

void Spans::appendLine(const char16_t *styled)
{
    const auto *starts = &s_phrases.firstRun;
    while (*styled != 0) {
        if (*styled == s_styleMarker) {
            m_to = (*starts)[std::min<unsigned>(styled[1], s_namedStyles)].copyTo(m_to);
            starts = &s_phrases.nextRun;
            styled += 2;
        }
        styled = appendPlain(styled);
        if (*styled != s_styleMarker)
            styled = appendSpecial(styled);
        if (m_to >= m_full)
            flush();
    }
    if (starts == &s_phrases.nextRun)
        m_to = std::ranges::copy(s_closingTag, m_to).out;
    *m_to++ = '\n';
    if (m_to >= m_full)
        flush();
}

/// Appends the plain characters at \a styled as far as there is room; the result is where they end.
const char16_t *Spans::appendPlain(const char16_t *styled)
{
    // Copies, because a store through "to" might be one to the members.
    char *to = m_to;
    const char *const full = m_full;
    while (*styled < 128 && s_phrases.plain[*styled] && to < full)
        *to++ = static_cast<char>(*styled++);
    m_to = to;
    return styled;
}

/// Appends the character at \a styled, if there is one; the result is where the next one is.
const char16_t *Spans::appendSpecial(const char16_t *styled)
{
    if (*styled == 0 || m_to >= m_full)
        return styled;
    if (*styled < 128) {
        m_to = s_phrases.escapes[*styled].copyTo(m_to);
        return styled + 1;
    }
    std::string character;
    appendUtf8(character, styled);
    m_to = std::ranges::copy(escapedText(character), m_to).out;
    return styled;
}
