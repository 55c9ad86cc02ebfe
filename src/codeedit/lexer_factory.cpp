#include "codeedit/lexer_factory.h"

#include "codeedit/assembly_parser.h"
#include "codeedit/c_parser.h"
#include "codeedit/core_basic_parser.h"
#include "codeedit/javascript_parser.h"
#include "codeedit/xml_parser.h"

namespace tavidoc {

namespace {

template <class Lexer> std::unique_ptr<CodeEditParser> make()
{
    return std::make_unique<Lexer>();
}

struct Language
{
    std::string_view name;
    std::unique_ptr<CodeEditParser> (*make)();
};

constexpr Language s_languages[] = {
    {"basic", make<CodeEditCoreBASICParser>},
    {"classic-basic", make<CodeEditCoreBASICParser>},
    {"c", make<CodeEditCParser>},
    {"xml", make<CodeEditXMLParser>},
    {"asm", make<CodeEditAssemblyParser>},
    {"javascript", make<CodeEditJavaScriptParser>},
    {"js", make<CodeEditJavaScriptParser>},
};

} // namespace

std::unique_ptr<CodeEditParser> makeLexer(std::string_view language)
{
    for (const Language &row : s_languages) {
        if (row.name == language)
            return row.make();
    }
    return nullptr;
}

} // namespace tavidoc
