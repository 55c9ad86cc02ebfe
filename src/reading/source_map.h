#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A place in a source file.
struct SourcePosition
{
    QString file;          ///< as it was named on the command line or in an include
    std::int64_t line = 0; ///< counted from 1, or as it was renumbered
};

/// Maps offsets in a joined text to the files and lines that it came from. The text is a sequence of
/// stretches; inside a stretch each "\n" begins the next line of the same file.
class SourceMap
{
public:
    /// Returns the number of the file for beginStretch().
    int addFile(const QString &name);

    /// The names of all files, in the order in which they were added.
    [[nodiscard]] std::vector<QString> fileNames() const;

    /// From \a offset of the text on, lines come from \a file, beginning with its \a line
    /// (counted from 1). Offsets must not decrease.
    void beginStretch(std::size_t offset, int file, int line);

    /// The position of the character at \a offset of \a text. With increasing offsets, all calls
    /// together take one pass over the text.
    [[nodiscard]] SourcePosition position(std::string_view text, std::size_t offset);

    /// Makes \a number the number of the line at \a offset; later lines of the same file count on from
    /// it, and earlier ones keep their numbers. Offsets must not decrease.
    void renumber(std::string_view text, std::size_t offset, int number);

private:
    struct Renumbering
    {
        std::size_t offset;
        std::int64_t shift; // added to the counted lines from there on
    };
    struct File
    {
        QString name;
        std::vector<Renumbering> renumberings; // by offset
    };
    struct Stretch
    {
        std::size_t offset;
        std::int32_t file;
        std::int32_t line;
    };

    void moveTo(std::string_view text, std::size_t offset);

    std::vector<File> m_files;
    std::vector<Stretch> m_stretches;
    std::size_t m_stretch = 0; // of the last position() or renumber()
    std::size_t m_offset = 0;  // of the last position() or renumber()
    int m_line = 0;            // its line as counted
};

} // namespace tavidoc
