#include "codeedit/regular_expression_ends.h"

#include <array>

namespace tavidoc {

void RegularExpressionEnds::find(std::u16string_view line)
{
    m_ends.resize(line.size());
    // Whether a slash ends an expression that continues at the next character and at the one after it, inside and
    // outside of a character class.
    std::array<bool, 2> inside{};
    std::array<bool, 2> outside{};
    for (std::size_t at = line.size(); at-- > 0;) {
        m_ends[at] = outside[0];
        const char16_t c = line[at];
        const bool escape = c == u'\\';
        const bool endsInside = escape ? inside[1] : c == u']' ? outside[0] : inside[0];
        const bool endsOutside = escape ? outside[1] : c == u'/' || (c == u'[' ? inside[0] : outside[0]);
        inside = {endsInside, inside[0]};
        outside = {endsOutside, outside[0]};
    }
}

} // namespace tavidoc
