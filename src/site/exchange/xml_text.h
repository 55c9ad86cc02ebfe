#pragma once

#include <QString>

#include <string_view>

namespace tavidoc {

/// \a text, UTF-8 or not, without the characters that XML forbids.
[[nodiscard]] inline QString xmlText(std::string_view text)
{
    QString result = QString::fromUtf8(text);
    result.removeIf([](QChar c) { return (c < u' ' && c != u'\t' && c != u'\n') || c.unicode() >= 0xfffe; });
    return result;
}

} // namespace tavidoc
