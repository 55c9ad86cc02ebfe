#pragma once

#include <QByteArray>
#include <QString>

#include <span>
#include <string>
#include <string_view>

namespace tavidoc {

/// The directory that pages are written to. It is opened once, so that the system does not look its path up for every
/// page.
class OutputDirectory
{
public:
    /// A failure to open it is reported when a page is written.
    explicit OutputDirectory(const QString &path);
    OutputDirectory(const OutputDirectory &) = delete;
    OutputDirectory &operator=(const OutputDirectory &) = delete;
    ~OutputDirectory();

    /// The path of the file \a name, UTF-8, as it is shown in messages.
    [[nodiscard]] std::string pathOf(std::string_view name) const;
    /// Writes \a parts, one after the other, to the file \a name, replacing an existing one. Throws HException
    /// "cannot open PATH", or "cannot write PATH" when not all bytes can be written, after removing the incomplete file.
    void write(std::string_view name, std::span<const std::string_view> parts);

private:
    int openPage(int directory, const char *name);

    std::string m_path;
    int m_directory;
    bool m_unlinksFirst = false; // the last page existed, so the next one probably does, too
};

} // namespace tavidoc
