#pragma once

#include <QString>

/// A file path. Its parts are those of the file name, the text after the last "/".
class Path
{
public:
    Path() = default;
    explicit Path(QString text);

    /// The path as it was given.
    [[nodiscard]] const QString &given() const { return m_given; }
    /// The cleaned path for messages: no "." components, ".." folded, no doubled "/".
    [[nodiscard]] QString text() const;

    /// The file name, without directories.
    [[nodiscard]] QString fileName() const;
    /// The directory of the file, as given; "." when the path names none.
    [[nodiscard]] QString directory() const;
    /// What follows the first dot of the file name; empty without a dot.
    [[nodiscard]] QString completeSuffix() const;
    /// What follows the last dot of the file name; empty without a dot.
    [[nodiscard]] QString suffix() const;
    /// What precedes the first dot of the file name.
    [[nodiscard]] QString baseName() const;
    /// What precedes the last dot of the file name.
    [[nodiscard]] QString completeBaseName() const;

private:
    QString m_given;
    mutable QString m_cleaned; // null until text() was asked for
};
