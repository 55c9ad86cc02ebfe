#pragma once

#include <QString>

namespace tavidoc {

/// Keeps other processes that lock the same directory waiting. The lock ends with the process, however that ends.
class DirectoryLock
{
public:
    /// Creates \a directory with all missing parents, and waits for the lock. Throws HException when the directory cannot
    /// be opened.
    explicit DirectoryLock(const QString &directory);
    DirectoryLock(const DirectoryLock &) = delete;
    DirectoryLock &operator=(const DirectoryLock &) = delete;
    ~DirectoryLock();

private:
    int m_descriptor;
};

} // namespace tavidoc
