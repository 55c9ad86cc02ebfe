#pragma once

#include "base/path.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <string_view>

namespace tavidoc {

/// Reads the lines of one source file, which is read completely and closed at once. A file that cannot
/// be read or is not a regular file is treated as empty.
class SourceLineReader
{
public:
    explicit SourceLineReader(const Path &path);
    /// Reads the lines of \a text, which is UTF-8 with "\n" line ends, as the contents of \a path.
    SourceLineReader(Path path, QByteArray text);

    /// Stores the next line, without its end, in \a line. At the end of the file the result is
    /// false and \a line is null. Lines, and strings that share their memory, are valid as long as the reader.
    bool readLine(QString &line);
    /// The same as UTF-8. The view is valid as long as a copy of text() is.
    bool readLine(std::string_view &line);

    [[nodiscard]] const Path &path() const { return m_path; }
    /// The whole text: UTF-8 with "\n" line ends.
    [[nodiscard]] const QByteArray &text() const { return m_text; }
    /// False when the file could not be read.
    [[nodiscard]] bool wasRead() const { return m_wasRead; }
    /// The number of lines read so far.
    [[nodiscard]] int lineNumber() const { return m_lineNumber; }
    /// In columns. Nothing in reading depends on it.
    [[nodiscard]] int tabWidth() const { return m_tabWidth; }

private:
    void prepareUnits();

    Path m_path;
    QByteArray m_text;
    std::unique_ptr<char16_t[]>
        m_units;            // each line, decoded, at its offset in m_text; null before the first is asked for
    bool m_isAscii = false; // then m_units is complete
    qsizetype m_offset = 0;
    int m_lineNumber = 0;
    bool m_wasRead = true;
    int m_tabWidth = 8;
};

} // namespace tavidoc
