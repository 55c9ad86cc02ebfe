#pragma once

#include "codeedit/parser.h"
#include "codeedit/styled_line.h"

#include <string_view>
#include <vector>

/// Styles \a line, which ends with a 0 unit, into \a styled, and returns which rule of lexers it broke; empty when none.
inline std::string_view brokenRule(tavidoc::CodeEditParser &lexer, std::u16string_view line,
                                   std::vector<char16_t> &styled, quint32 &state)
{
    constexpr char16_t guard = u'\uFFFE';
    const std::size_t capacity = 3 * line.size() + 1;
    styled.assign(capacity + 1, guard);
    lexer.styleLine(line.data(), styled.data(), state);
    if (styled[capacity] != guard)
        return "a styled line has at most 3n + 1 units";
    const char16_t *at = styled.data();
    int style = -1;
    for (const char16_t unit : line) {
        if (*at == tavidoc::s_styleMarker) {
            if (at[1] == style)
                return "a marker chooses another style";
            style = at[1];
            at += 2;
        }
        if (style < 0)
            return "a styled line begins with a marker";
        if (*at++ != unit)
            return "a styled line has the text of the line, and a marker is followed by text";
    }
    return *at == 0 ? "" : "a styled line ends with its text";
}
