#pragma once

#include <QString>

#include <string_view>

/// A temporary directory of this process, which is the working directory from the first use on. It contains
/// a few files that inputs may include, present, copy or look up: "part.dg", "code.c", "text.txt" and
/// definitions. It is removed when the process ends.
namespace Scratch {

/// Writes \a bytes to the file \a name in the directory. Returns \a name.
QString write(const QString &name, std::string_view bytes);

} // namespace Scratch
