#include "codeedit/styled_line.h"

namespace tavidoc {

StyledLine::~StyledLine()
{
    const char16_t *end = m_from;
    while (*end != 0)
        ++end;
    writeTo(end, CodeStyle::Text);
    *m_out = 0;
}

} // namespace tavidoc
