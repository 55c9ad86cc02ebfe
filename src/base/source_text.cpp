#include "base/source_text.h"

#include <QString>
#include <QUtf8StringView>

#include <string_view>

namespace tavidoc {

QByteArray decodedSource(QByteArray bytes)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!QUtf8StringView(bytes).isValidUtf8())
        return QString::fromLatin1(bytes).toUtf8();
    if (bytes.startsWith(QByteArrayView(byteOrderMark)))
        bytes.remove(0, static_cast<qsizetype>(byteOrderMark.size()));
    return bytes;
}

void normalizeLineEnds(QByteArray &text)
{
    const qsizetype first = text.indexOf('\r'); // one byte is found faster than two
    if (first < 0)
        return;
    char *const begin = text.data(); // followed by a 0
    const char *const end = begin + text.size();
    char *to = begin + first;
    for (const char *from = to; from != end; ++from) {
        if (*from == '\r' && from[1] == '\n')
            continue;
        *to++ = *from;
    }
    text.truncate(to - begin);
}

} // namespace tavidoc
