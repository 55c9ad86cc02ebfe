#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

#include <span>
#include <string_view>

namespace tavidoc {

/// The built-in icons as one document uses them: an icon is put beside the pages when it is
/// used for the first time. The images are 16 by 16 pixels, PNG.
class IconTable
{
public:
    enum class Answer
    {
        Saved,
        NoImage, ///< the name is known, its image is not or does not decode; nothing is written
        Unknown,
    };

    /// Icons go into the folder "images" of \a outputDirectory.
    explicit IconTable(const QString &outputDirectory);

    /// Writes the icon \a name as NAME.png, over a file of that name. Several runs may do so at
    /// once: a reader sees a whole image. Throws HException when it cannot be written.
    Answer save(std::string_view name);

    /// The names of all icons, in byte order.
    [[nodiscard]] static std::span<const std::string_view> names();

    /// The image of the icon \a name as it is built in; empty when there is none.
    [[nodiscard]] static QByteArray image(std::string_view name);

    /// Whether \a png is an image of 16 by 16 pixels that can be decoded to its end.
    [[nodiscard]] static bool decodes(const QByteArray &png);

private:
    QString m_directory;
    QSet<QByteArray> m_saved; // names
};

} // namespace tavidoc
