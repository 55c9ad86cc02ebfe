#include "pages/icon_table.h"

#include "base/whole_file.h"
#include "pages/document_listener.h"

#include <QDir>
#include <QResource>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Outside of any namespace because the macro refers to a function of the global one. The images are
/// in a static library, from which the linker takes them only because of this call.
static void registerIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace tavidoc {

IconTable::IconTable(const QString &outputDirectory) : m_directory(outputDirectory + u"/images"_s) {}

bool IconTable::save(std::string_view name)
{
    if (!std::ranges::binary_search(names(), name))
        return false;
    const QByteArray key(name.data(), static_cast<qsizetype>(name.size()));
    if (m_saved.contains(key))
        return true;
    m_saved.insert(key);
    if (m_listener != nullptr) {
        m_listener->icon(name, image(name));
        return true;
    }
    QDir().mkpath(m_directory);
    writeWholeFile(m_directory + u'/' + QString::fromLatin1(key) + u".png"_s, image(name));
    return true;
}

QByteArray IconTable::image(std::string_view name)
{
    registerIcons();
    const QString latinName = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    return QResource(u":/icons/"_s + latinName + u".png"_s).uncompressedData();
}

} // namespace tavidoc
