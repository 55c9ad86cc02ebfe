#include "reading/source_map.h"

#include <algorithm>
#include <iterator>

namespace tavidoc {

namespace {

int lineEndsIn(std::string_view text)
{
    return static_cast<int>(std::ranges::count(text, '\n'));
}

} // namespace

int SourceMap::addFile(const QString &name)
{
    m_files.push_back({name, {}});
    return static_cast<int>(m_files.size()) - 1;
}

std::vector<QString> SourceMap::fileNames() const
{
    std::vector<QString> names;
    for (const File &file : m_files)
        names.push_back(file.name);
    return names;
}

void SourceMap::beginStretch(std::size_t offset, int file, int line)
{
    m_stretches.push_back({offset, file, line});
}

void SourceMap::moveTo(std::string_view text, std::size_t offset)
{
    offset = std::min(offset, text.size());
    const bool onward = m_line > 0 && offset >= m_offset;
    const auto from = onward ? m_stretches.begin() + static_cast<std::ptrdiff_t>(m_stretch) : m_stretches.begin();
    const auto after = std::upper_bound(from, m_stretches.end(), offset, [](std::size_t place, const Stretch &stretch) {
        return place < stretch.offset;
    });
    const auto stretch = static_cast<std::size_t>(after - m_stretches.begin()) - 1;
    const Stretch &found = m_stretches[stretch];
    if (m_line > 0 && stretch == m_stretch && !onward)
        m_line -= lineEndsIn(text.substr(offset, m_offset - offset));
    else if (onward && stretch == m_stretch)
        m_line += lineEndsIn(text.substr(m_offset, offset - m_offset));
    else
        m_line = found.line + lineEndsIn(text.substr(found.offset, offset - found.offset));
    m_stretch = stretch;
    m_offset = offset;
}

SourcePosition SourceMap::position(std::string_view text, std::size_t offset)
{
    if (m_stretches.empty() || m_stretches.front().offset > offset)
        return {m_files.empty() ? QString() : m_files.front().name, 1};
    moveTo(text, offset);
    const File &file = m_files[static_cast<std::size_t>(m_stretches[m_stretch].file)];
    const auto after = std::ranges::upper_bound(file.renumberings, offset, {}, &Renumbering::offset);
    return {file.name, m_line + (after == file.renumberings.begin() ? 0 : std::prev(after)->shift)};
}

void SourceMap::renumber(std::string_view text, std::size_t offset, int number)
{
    if (m_stretches.empty())
        return;
    moveTo(text, offset);
    File &file = m_files[static_cast<std::size_t>(m_stretches[m_stretch].file)];
    file.renumberings.push_back({offset, std::int64_t{number} - m_line});
}

} // namespace tavidoc
