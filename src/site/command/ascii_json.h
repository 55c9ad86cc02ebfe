#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace tavidoc {

/// \a json with escapes in place of all characters beyond ASCII, so that it is right in a script of any charset.
inline std::string asciiJson(const QByteArray &json)
{
    std::string ascii;
    for (const QChar character : QString::fromUtf8(json)) {
        if (character < u'\x7f')
            ascii += static_cast<char>(character.unicode());
        else
            ascii += "\\u" + QString::number(character.unicode(), 16).rightJustified(4, u'0').toStdString();
    }
    return ascii;
}

} // namespace tavidoc
