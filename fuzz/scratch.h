#pragma once

#include <QString>

#include <string_view>

/// A directory of this process that is the working directory from the first use on. It holds
/// a few files that inputs may include, present, copy or look up: "part.dg", "code.c", "text.txt" and
/// definitions. It goes when the process ends.
namespace Scratch {

/// Writes \a bytes to the file \a name of the directory, whose name is the result.
QString write(const QString &name, std::string_view bytes);

} // namespace Scratch
