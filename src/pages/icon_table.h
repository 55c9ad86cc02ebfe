#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

#include <span>
#include <string_view>

namespace tavidoc {

class DocumentListener;

/// The built-in icons, which are PNG images of 16 by 16 pixels, and those of them that a document has
/// used: an icon is written to the output when it is used for the first time.
class IconTable
{
public:
    /// Icons go into the folder "images" of \a outputDirectory.
    explicit IconTable(const QString &outputDirectory);
    /// \a listener gets the icons, and nothing is written. Borrowed.
    explicit IconTable(DocumentListener &listener) : m_listener(&listener) {}

    /// Hands over the icon \a name, or writes it as NAME.png, replacing a file of that name; false when there is no such
    /// icon. Several runs may do so at once: a reader sees a complete image. Throws HException when it
    /// cannot be written.
    [[nodiscard]] bool save(std::string_view name);

    /// The names of all icons, in byte order.
    [[nodiscard]] static std::span<const std::string_view> names();

    /// The image file of the icon \a name; empty when there is none.
    [[nodiscard]] static QByteArray image(std::string_view name);

private:
    DocumentListener *m_listener = nullptr; // null: icons are written
    QString m_directory;
    QSet<QByteArray> m_saved; // names
};

} // namespace tavidoc
