#include "site/compile/file_table.h"

#include <QDir>

namespace tavidoc {

FileTable::FileTable(const QString &input) : m_directory(input.left(input.lastIndexOf(u'/') + 1))
{
    add(input.mid(m_directory.size()), true);
}

void FileTable::add(const QString &name, bool wasFound)
{
    RecordFile &file = m_files[indexOf(name)];
    file.found = file.found || wasFound;
}

std::uint32_t FileTable::indexOf(const QString &name)
{
    if (const auto known = m_indices.constFind(name); known != m_indices.cend())
        return *known;
    const QString seen = seenFromStart(name);
    const auto next = static_cast<std::uint32_t>(m_files.size());
    const std::uint32_t index = m_byName.value(seen, next);
    if (index == next) {
        m_files.push_back({seen.toStdString(), false});
        m_byName.insert(seen, index);
    }
    m_indices.insert(name, index);
    return index;
}

QString FileTable::seenFromStart(const QString &name) const
{
    return QDir::cleanPath(name.startsWith(u'/') ? name : m_directory + name);
}

} // namespace tavidoc
