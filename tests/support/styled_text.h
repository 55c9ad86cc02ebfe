#pragma once

#include "codeedit/code_style.h"
#include "tests/support/lexer_rules.h"

#include <QString>

#include <string>
#include <vector>

using namespace tavidoc;

/// A styled line in a readable form: each marker is the name of its style, or its number, in
/// brackets. For a line that breaks a rule of lexers it is that rule.
inline QString styledText(CodeEditParser &lexer, const QString &line, quint32 &state)
{
    std::vector<char16_t> styled;
    const std::string_view broken = brokenRule(lexer, line.toStdU16String(), styled, state);
    if (!broken.empty())
        return QStringLiteral("broken rule: ") + QString::fromUtf8(broken.data(), qsizetype(broken.size()));
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
