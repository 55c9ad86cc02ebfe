#include "codeedit/languages.h"

#include "codeedit/assembly_parser.h"
#include "codeedit/c_parser.h"
#include "codeedit/core_basic_parser.h"
#include "codeedit/javascript_parser.h"
#include "codeedit/xml_parser.h"

#include <algorithm>

namespace tavidoc::Languages {

namespace {

template <class Lexer> std::unique_ptr<CodeEditParser> make()
{
    return std::make_unique<Lexer>();
}

constexpr auto s_anyCase = Language::Suffix::Case::Any;

/// To add a language, write its lexer and add a row; the tests then ask for golden listings.
constexpr Language s_languages[] = {
    {.names = {"basic"},
     .makeLexer = make<CodeEditCoreBASICParser>,
     .suffixes = {"bas"},
     .lineNumbers = Language::LineNumbers::LeftOut},
    {.names = {"classic-basic"}, .makeLexer = make<CodeEditCoreBASICParser>},
    // Deliberate: presented ".c" and ".h" files are plain.
    {.names = {"c"},
     .makeLexer = make<CodeEditCParser>,
     .suffixes = {"cpp", "hpp", "cxx", "hxx", "cc", "hh"},
     .editors = {"cpp", "source.cpp"}},
    {.names = {"xml"},
     .makeLexer = make<CodeEditXMLParser>,
     .suffixes = {"xml", {"emproject", s_anyCase}, {"hzp", s_anyCase}},
     .editors = {"xml", "text.xml"}},
    {.names = {"asm"}, .makeLexer = make<CodeEditAssemblyParser>},
    {.names = {"javascript", "js"},
     .makeLexer = make<CodeEditJavaScriptParser>,
     .suffixes = {"js"},
     .editors = {"javascript", "source.js"}},
};

constexpr char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool matches(const Language::Suffix &row, std::string_view text)
{
    return row.letterCase == s_anyCase ? std::ranges::equal(row.text, text, {}, {}, lowered) : row.text == text;
}

} // namespace

std::span<const Language> all()
{
    return s_languages;
}

const Language *named(std::string_view name)
{
    for (const Language &language : s_languages) {
        if (std::ranges::find(language.names, name) != language.names.end())
            return &language;
    }
    return nullptr;
}

const Language *ofSuffix(std::string_view suffix)
{
    for (const Language &language : s_languages) {
        for (const Language::Suffix &row : language.suffixes) {
            if (matches(row, suffix))
                return &language;
        }
    }
    return nullptr;
}

} // namespace tavidoc::Languages
