#pragma once

#include "driver/command_line.h"

namespace tavidoc {

/// Documents the inputs one after the other and writes the pages of each before the next is
/// read. Throws HException.
void documentInputs(const Settings &settings);

} // namespace tavidoc
