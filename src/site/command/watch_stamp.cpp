#include "site/command/watch_stamp.h"

#include "site/command/ascii_json.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t s_mostMessages = 50;
constexpr qsizetype s_mostCharacters = 1000; // of a message

} // namespace

QString watchStampFile(const QString &output)
{
    return output + u"/.tavidoc-site-watch.js"_s; // watch.js asks for it
}

std::string watchStampText(const WatchStamp &stamp)
{
    QJsonArray messages;
    for (std::size_t index = 0; index < std::min(stamp.messages.size(), s_mostMessages); ++index)
        messages.append(QString::fromStdString(stamp.messages[index]).left(s_mostCharacters));
    if (stamp.messages.size() > s_mostMessages)
        messages.append(u"and %1 more"_s.arg(stamp.messages.size() - s_mostMessages));
    return "tavidocWatch(" + std::to_string(stamp.changed) + "," +
           asciiJson(QJsonDocument(messages).toJson(QJsonDocument::Compact)) + ");\n";
}

} // namespace tavidoc
