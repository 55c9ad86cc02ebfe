#include "codeedit/code_style.h"

#include <iterator>

namespace tavidoc {

std::string_view styleName(unsigned index)
{
    static constexpr std::string_view names[] = {
        "text",    "literal",     "comment",      "keyword",  "disassembly", "markup",
        "control", "operator",    "register",     "function", "fixme",       "attention",
        "",        "doc-keyword", "doc-argument", "doc-code", "attribute",
    };
    return index < std::size(names) ? names[index] : std::string_view();
}

} // namespace tavidoc
