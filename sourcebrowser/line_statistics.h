#pragma once

#include <QtGlobal>

/// What was counted in one file while it was read.
struct SourceBrowserLineStatistics
{
    qint32 total = 0;
    qint32 blank = 0;        ///< lines of white space only, inside comments too
    qint32 comment = 0;      ///< lines of block comments, and one for each line comment
    qint32 preprocessor = 0; ///< directives with their continuation lines

    bool operator==(const SourceBrowserLineStatistics &) const = default;
};
