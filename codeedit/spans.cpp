#include "codeedit/spans.h"

#include "codeedit/code_style.h"
#include "codeedit/styled_line.h"
#include "docgen/text_escape.h"

#include <array>
#include <string_view>

namespace {

constexpr unsigned s_namedStyles = 17;

/// The opening tag of every style that has a name; the rest share the bare one.
const std::string &openingTag(unsigned style)
{
    static const std::array<std::string, s_namedStyles + 1> tags = [] {
        std::array<std::string, s_namedStyles + 1> result;
        for (unsigned index = 0; index <= s_namedStyles; ++index) {
            const std::string_view name = styleName(index);
            result[index] = "<span>";
            if (!name.empty())
                result[index] = std::string("<span class=\"zkt-code-").append(name).append("\">");
        }
        return result;
    }();
    return tags[style < s_namedStyles ? style : s_namedStyles];
}

/// Appends the UTF-16 text from \a at up to \a end as UTF-8.
void appendUtf8(std::string &text, const char16_t *at, const char16_t *end)
{
    while (at != end) {
        char32_t character = *at++;
        const bool pair = character >= 0xD800 && character < 0xDC00 && at != end && *at >= 0xDC00 && *at < 0xE000;
        if (pair)
            character = 0x10000 + ((character - 0xD800) << 10) + (*at++ - 0xDC00U);
        else if (character >= 0xD800 && character < 0xE000)
            character = 0xFFFD;
        if (character < 0x80) {
            text += static_cast<char>(character);
            continue;
        }
        if (character < 0x800) {
            text += static_cast<char>(0xC0 | character >> 6);
        } else {
            if (character < 0x10000) {
                text += static_cast<char>(0xE0 | character >> 12);
            } else {
                text += static_cast<char>(0xF0 | character >> 18);
                text += static_cast<char>(0x80 | (character >> 12 & 0x3F));
            }
            text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        }
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

/// True for the ASCII characters that no escape is made of.
bool isPlain(char16_t c)
{
    return c < 0x80 && c != u'&' && c != u'<' && c != u'>' && c != u'"' && c != u'\'';
}

/// Appends the text of a run. Plain characters, which most are, go straight to their place.
void appendRun(std::string &html, const char16_t *at, const char16_t *end)
{
    const std::size_t begin = html.size();
    html.resize(begin + static_cast<std::size_t>(end - at));
    char *to = html.data() + begin;
    while (at != end && isPlain(*at))
        *to++ = static_cast<char>(*at++);
    html.resize(static_cast<std::size_t>(to - html.data()));
    if (at == end)
        return;
    static thread_local std::string text;
    text.clear();
    appendUtf8(text, at, end);
    appendEscaped(html, text);
}

} // namespace

void appendSpans(std::string &html, const char16_t *styled)
{
    bool open = false;
    while (*styled != 0) {
        if (*styled == s_styleMarker) {
            if (open)
                html += "</span>";
            html += openingTag(styled[1]);
            open = true;
            styled += 2;
            continue;
        }
        const char16_t *const begin = styled;
        while (*styled != 0 && *styled != s_styleMarker)
            ++styled;
        appendRun(html, begin, styled);
    }
    if (open)
        html += "</span>";
}
