#pragma once

#include <QString>

/// Delivers the lines of a file.
class SourceBrowserLineIterator
{
public:
    virtual ~SourceBrowserLineIterator() = default;
    /// Stores the next line without its end in \a line; false at the end of the file.
    virtual bool readLine(QString &line) = 0;
};
