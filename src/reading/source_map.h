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
    QString file; ///< as it was named on the command line or in an include
    int line = 0; ///< counted from 1
};

/// Tells for every place in a joined text which line of which file it came from. The text is a
/// sequence of stretches; inside a stretch each "\n" begins the next line of the same file.
class SourceMap
{
public:
    /// Makes a file known; the result names it in beginStretch().
    int addFile(const QString &name);

    /// From \a offset of the text on, lines come from \a file, beginning with its \a line
    /// (counted from 1). Offsets must not decrease.
    void beginStretch(std::size_t offset, int file, int line);

    /// The position of the character at \a offset of \a text. Places are best asked for in
    /// rising order: then all answers together cost one pass over the text.
    [[nodiscard]] SourcePosition position(std::string_view text, std::size_t offset);

    /// Makes \a number the number of the line at \a offset; the lines of the same file that
    /// follow count on from there.
    void renumber(std::string_view text, std::size_t offset, int number);

private:
    struct File
    {
        QString name;
        int shift = 0; // what a renumbering adds to the counted lines
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
    std::size_t m_stretch = 0; // of the place last asked for
    std::size_t m_offset = 0;  // the place last asked for
    int m_line = 0;            // its line as counted
};

} // namespace tavidoc
