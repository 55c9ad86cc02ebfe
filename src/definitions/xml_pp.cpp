#include "definitions/xml_pp.h"

#include "base/whole_file.h"
#include "definitions/xml_tree_reader.h"

#include <QFileInfo>

#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 s_largestFile = qint64{64} * 1024 * 1024; // bytes

bool isBlankText(const QByteArray &bytes)
{
    return bytes.trimmed().isEmpty() || bytes == "\xEF\xBB\xBF";
}

} // namespace

bool XmlPP::startSearch(const QString &directory)
{
    if (!m_searchesOnce)
        return true;
    const qsizetype searched = m_searchedDirectories.size();
    m_searchedDirectories.insert(directory);
    return m_searchedDirectories.size() > searched;
}

XmlPP::Loaded XmlPP::load(const QString &fileName)
{
    const QFileInfo information(fileName);
    if (!information.isFile()) // first: resolving the name takes a call for each of its directories
        return {};
    const QString canonicalName = information.canonicalFilePath();
    if (m_loadedFiles.contains(canonicalName))
        return {};
    m_loadedFiles.insert(canonicalName);
    if (information.size() > s_largestFile)
        return {{}, XmlError{fileName, 1, u"The file is larger than 64 MiB."_s}};
    const std::optional<QByteArray> bytes = readRegularFile(fileName);
    if (!bytes || isBlankText(*bytes))
        return {};

    XmlTreeReader reader(*bytes);
    std::optional<XmlTree> tree = reader.read();
    if (!tree)
        return {{}, XmlError{fileName, reader.errorLine(), reader.errorReason()}};
    m_files.push_back(*std::move(tree));
    return {m_files.back().root(), std::nullopt};
}

} // namespace tavidoc
