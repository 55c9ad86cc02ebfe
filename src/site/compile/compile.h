#pragma once

#include "site/record/record.h"

#include <QString>

namespace tavidoc {

/// Compiles one input, in its own directory: relative names in it mean files beside it. \a input is as it was given,
/// relative to the working directory or absolute; \a folder is where its pages go. One input for each process, because
/// the library documents one at a time. Throws HException when the input cannot be read.
[[nodiscard]] RecordWithBodies compiled(const QString &input, const QString &folder);

} // namespace tavidoc
