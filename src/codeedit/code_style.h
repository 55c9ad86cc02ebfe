#pragma once

/*!!
 * \h1 code_style.h
 *
 * The colours of listings. Each kind has a class in the style sheet.
 */

#include <cstdint>
#include <string_view>

namespace tavidoc {

/*!
 * \h1 \this
 * The kind of a run of characters in a listing.
 *
 * The values are fixed: they are the indices of the names in the style sheet. Deliberate: 12 is unused. Kinds from 29
 * on have no name and so no colour.
 * \synopsis
 * \sa \xref{code_style_h}{code_style.h}
 * \ingroup Types
 */
enum class CodeStyle : std::uint16_t
{
    Text = 0,
    Literal = 1,
    Comment = 2,
    Keyword = 3,
    Disassembly = 4,
    Markup = 5,
    Control = 6,
    Operator = 7,
    Register = 8,
    Function = 9,
    Fixme = 10,
    Attention = 11,
    DocKeyword = 13,
    DocArgument = 14,
    DocCode = 15,
    Attribute = 16,
    // The rest have no name, so no colour.
    Punctuation = 29, ///< brackets and separators of the C family; other characters inside an XML tag
    LineJoin = 30,    ///< a backslash that joins the next line
    Stray = 31,       ///< a character that does not begin a token
    TagBracket = 32,  ///< the "<" of a start tag, and the ">" or "/>" that closes it
    None = 0xFFFF,    ///< no run: the style before the first run of a line
};

/*!
 * \h1 \this
 * The name of the style \a{index} in the class attribute, after "zkt-code-". Empty for the
 * styles that have none.
 * \synopsis
 * \sa \xref{code_style_h}{code_style.h}
 * \ingroup Functions
 */
[[nodiscard]] std::string_view styleName(unsigned index);

} // namespace tavidoc
