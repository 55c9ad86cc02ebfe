#pragma once

#include "driver/command_line.h"

namespace tavidoc {

/// Documents the inputs in order and writes the pages of each before it reads the next. Throws
/// HException.
void documentInputs(const Settings &settings);

} // namespace tavidoc
