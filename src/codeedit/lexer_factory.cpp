#include "codeedit/lexer_factory.h"

#include "codeedit/languages.h"

namespace tavidoc {

std::unique_ptr<CodeEditParser> makeLexer(std::string_view language)
{
    const Language *const row = Languages::named(language);
    return row != nullptr ? row->makeLexer() : nullptr;
}

} // namespace tavidoc
