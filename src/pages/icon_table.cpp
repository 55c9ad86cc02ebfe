#include "pages/icon_table.h"

#include "base/whole_file.h"

#include <QDir>
#include <QResource>

#include <png.h>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

/// Stands outside of any namespace because the macro names a function of the global one. The images
/// are in a static library, where nothing but this call makes the linker keep them.
static void makeIconsKnown()
{
    Q_INIT_RESOURCE(icons);
}

namespace tavidoc {

IconTable::IconTable(const QString &outputDirectory) : m_directory(outputDirectory + u"/images"_s) {}

IconTable::Answer IconTable::save(std::string_view name)
{
    if (!std::ranges::binary_search(names(), name))
        return Answer::Unknown;
    const QByteArray key(name.data(), static_cast<qsizetype>(name.size()));
    if (m_saved.contains(key))
        return Answer::Saved;
    const QByteArray png = image(name);
    if (!decodes(png))
        return Answer::NoImage;
    QDir().mkpath(m_directory);
    writeWholeFile(m_directory + u'/' + QString::fromLatin1(key) + u".png"_s, png);
    m_saved.insert(key);
    return Answer::Saved;
}

QByteArray IconTable::image(std::string_view name)
{
    makeIconsKnown();
    const QString latinName = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    return QResource(u":/icons/"_s + latinName + u".png"_s).uncompressedData();
}

bool IconTable::decodes(const QByteArray &png)
{
    constexpr png_uint_32 side = 16; // pixels
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, png.constData(), static_cast<std::size_t>(png.size())))
        return false;
    std::array<png_byte, std::size_t{side} * side * 4> pixels;
    image.format = PNG_FORMAT_RGBA;
    const bool isWhole = image.width == side && image.height == side &&
                         png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
    png_image_free(&image);
    return isWhole;
}

} // namespace tavidoc
