#pragma once

/*!!
 * \h1 lexer_factory.h
 *
 * Lexers by the name of their language.
 */

#include "codeedit/parser.h"

#include <memory>
#include <string_view>

namespace tavidoc {

/*!
 * \h1 \this
 * A new lexer for \a{language}: "basic", "classic-basic", "c", "xml", "asm", "javascript" or
 * "js", in just these letters. Null for any other name.
 * \synopsis
 * \sa \xref{lexer_factory_h}{lexer_factory.h}
 * \ingroup Functions
 */
[[nodiscard]] std::unique_ptr<CodeEditParser> makeLexer(std::string_view language);

} // namespace tavidoc
