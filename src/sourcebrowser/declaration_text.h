#pragma once

#include "sourcebrowser/container.h"

namespace tavidoc {

/// Declarations as normalised C text.

/// An argument or a member of a structure: \a type with \a name at its place, white space
/// simplified. \a flags combines values of SourceBrowserObject::TextFlag.
[[nodiscard]] QString typedNameText(const SourceBrowserType &type, const QString &name, unsigned flags);

/// "typedef enum {...} NAME", one enumerator per line.
[[nodiscard]] QString enumerationText(const SourceBrowserEnum &enumeration);

/// "typedef struct {...} NAME" with the variables of \a structure, one per line.
[[nodiscard]] QString structureText(const SourceBrowserContainer &structure);

/// The prototype of \a function. An empty argument list is always "(void)".
[[nodiscard]] QString prototypeText(const SourceBrowserMethod &function, unsigned flags);

/// The declaration of a variable or typedef.
[[nodiscard]] QString variableText(const SourceBrowserVariable &variable);

} // namespace tavidoc
