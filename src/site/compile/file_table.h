#pragma once

#include "site/record/record.h"

#include <QHash>
#include <QString>

#include <vector>

namespace tavidoc {

/// The files that belong to an input, with their names as seen from where the compilation was started.
class FileTable
{
public:
    /// \a input is the input as it was given.
    explicit FileTable(const QString &input);

    /// Adds a file that was opened or looked for; \a name is relative to the directory of the input, or absolute.
    void add(const QString &name, bool wasFound);
    /// The index of the file \a name, which is added if it is new.
    [[nodiscard]] std::uint32_t indexOf(const QString &name);

    [[nodiscard]] std::vector<RecordFile> takeFiles() { return std::move(m_files); }

private:
    [[nodiscard]] QString seenFromStart(const QString &name) const;

    QString m_directory; // of the input, with a slash at its end; empty for the working directory
    std::vector<RecordFile> m_files;
    QHash<QString, std::uint32_t> m_indices; // by name as given
    QHash<QString, std::uint32_t> m_byName;  // by name as seen from the start
};

} // namespace tavidoc
