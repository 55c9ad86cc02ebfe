#pragma once

#include "codeedit/parser.h"
#include "codeedit/styled_line.h"

#include <QString>

#include <string>
#include <vector>

using namespace tavidoc;

/// A styled line as a text to read: each marker is the name of its style, or its number, in
/// brackets. A lexer that overruns its room is told by what stands behind the room.
inline QString styledText(CodeEditParser &lexer, const QString &line, quint32 &state)
{
    const std::u16string units = line.toStdU16String();
    constexpr char16_t guard = u'\uFFFE';
    std::vector<char16_t> styled(3 * units.size() + 3, guard);
    lexer.styleLine(units.c_str(), styled.data(), state);
    if (styled[3 * units.size() + 1] != guard)
        return QStringLiteral("more than 3n + 1");
    QString text;
    for (const char16_t *at = styled.data(); *at != 0; ++at) {
        if (*at != s_styleMarker) {
            text += QChar(*at);
            continue;
        }
        const unsigned style = *++at;
        const std::string_view name = styleName(style);
        text += u'[' + (name.empty() ? QString::number(style) : QString::fromUtf8(name.data(), name.size())) + u']';
    }
    return text;
}
