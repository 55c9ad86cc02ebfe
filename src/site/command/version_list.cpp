#include "site/command/version_list.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/command/ascii_json.h"
#include "site/command/directory_lock.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <tuple>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView s_opening = "tavidocVersions(";
constexpr QByteArrayView s_closing = ");";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The number at the front of \a text without leading zeros; takes it away.
std::string_view takeNumber(std::string_view &text)
{
    const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
    std::string_view number = text.substr(0, end);
    text.remove_prefix(end);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

/// Whether \a left is before \a right: 2.9 is before 2.10.
bool isOlder(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        if (isDigit(left.front()) && isDigit(right.front())) {
            const std::string_view a = takeNumber(left);
            const std::string_view b = takeNumber(right);
            if (a != b)
                return a.size() != b.size() ? a.size() < b.size() : a < b;
            continue;
        }
        if (left.front() != right.front())
            return static_cast<unsigned char>(left.front()) < static_cast<unsigned char>(right.front());
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    return left.empty() && !right.empty();
}

} // namespace

std::vector<ListedVersion> versionsIn(const QByteArray &script, const QString &name)
{
    const QByteArray text = script.trimmed();
    if (text.isEmpty())
        return {};
    const qsizetype size = text.size() - s_opening.size() - s_closing.size();
    if (size < 0 || !text.startsWith(s_opening) || !text.endsWith(s_closing))
        throw HException(name.toUtf8() + ": not a list of versions");
    const QJsonDocument json = QJsonDocument::fromJson(text.sliced(s_opening.size(), size));
    if (!json.isArray())
        throw HException(name.toUtf8() + ": not a list of versions");
    std::vector<ListedVersion> versions;
    const QJsonArray array = json.array();
    for (const auto &value : array) {
        const QJsonObject version = value.toObject();
        if (!version[u"folder"_s].isString() || !version[u"title"_s].isString())
            throw HException(name.toUtf8() + ": a version without a folder or title");
        versions.push_back(
            {version[u"folder"_s].toString().toStdString(), version[u"title"_s].toString().toStdString()});
    }
    return versions;
}

QByteArray versionScript(std::vector<ListedVersion> versions)
{
    std::ranges::sort(versions, [](const ListedVersion &left, const ListedVersion &right) {
        if (isOlder(left.title, right.title) || isOlder(right.title, left.title))
            return isOlder(right.title, left.title);
        return std::tie(right.title, right.folder) < std::tie(left.title, left.folder);
    });
    QByteArray script = s_opening.toByteArray();
    const char *separator = "[\n";
    for (const ListedVersion &version : versions) {
        const QJsonObject object = {{u"folder"_s, QString::fromStdString(version.folder)},
                                    {u"title"_s, QString::fromStdString(version.title)}};
        script += std::exchange(separator, ",\n") +
                  QByteArray::fromStdString(asciiJson(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    }
    return script.append("\n]").append(s_closing).append('\n');
}

void listVersion(const SiteSettings &settings, const QString &output)
{
    if (settings.versionList.empty())
        return;
    const QDir top(QDir::cleanPath(QDir::current().absoluteFilePath(output)));
    const QString file = QDir::cleanPath(top.absoluteFilePath(QString::fromStdString(settings.versionList)));
    const QDir directory = QFileInfo(file).dir();
    const DirectoryLock lock(directory.path());
    std::vector<ListedVersion> versions = versionsIn(readRegularFile(file).value_or(QByteArray()), file);
    const std::string folder = directory.relativeFilePath(top.path()).toStdString();
    const std::string title = !settings.versionTitle.empty() ? settings.versionTitle
                              : !settings.version.empty()    ? settings.version
                                                             : folder;
    const auto known = std::ranges::find(versions, folder, &ListedVersion::folder);
    if (known == versions.end())
        versions.push_back({folder, title});
    else
        known->title = title;
    updateWholeFile(file, versionScript(std::move(versions)));
}

} // namespace tavidoc
