#pragma once

/*!!
 * \h1 lexer_factory.h
 *
 * Makes lexers by the name of their language.
 */

#include "codeedit/parser.h"

#include <memory>
#include <string_view>

namespace tavidoc {

/*!
 * \h1 \this
 * A new lexer for \a{language}, a name in the table of languages, compared exactly; null for any
 * other name.
 * \synopsis
 * \sa \xref{lexer_factory_h}{lexer_factory.h}
 * \ingroup Functions
 */
[[nodiscard]] std::unique_ptr<CodeEditParser> makeLexer(std::string_view language);

} // namespace tavidoc
