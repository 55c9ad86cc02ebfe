#include "sourcebrowser/tokens.h"

#include "base/word_index.h"

namespace tavidoc::SourceBrowserToken {

namespace {

constexpr WordEntry s_words[] = {
    {u"class", Class, Word::Keyword},
    {u"extern", Extern, Word::Keyword},
    {u"public", Public, Word::Keyword},
    {u"signals", Public, Word::Keyword}, // Deliberate: a signals section reads as a public one.
    {u"protected", Protected, Word::Keyword},
    {u"private", Private, Word::Keyword},
    {u"const", Const, Word::Keyword},
    {u"volatile", Volatile, Word::Keyword},
    {u"register", Register, Word::Keyword},
    {u"union", Union, Word::Keyword},
    {u"static", Static, Word::Keyword},
    {u"virtual", Virtual, Word::Keyword},
    {u"enum", Enum, Word::Keyword},
    {u"typedef", Typedef, Word::Keyword},
    {u"friend", Friend, Word::Keyword},
    {u"struct", Struct, Word::Keyword},
    {u"using", Using, Word::Keyword},
    {u"operator", Operator, Word::Keyword},
    {u"template", Template, Word::Keyword},
    {u"throw", Throw, Word::Keyword},
    {u"namespace", Namespace, Word::Keyword},

    {u"inline", Identifier, Word::Dropped},
    {u"Q_OBJECT", Identifier, Word::Dropped},
    {u"slots", Identifier, Word::Dropped},

    {u"__monitor", Identifier, Word::Extension},
    {u"__toplevel", Identifier, Word::Extension},
    {u"__packed", Identifier, Word::Extension},
    {u"__interrupt", Identifier, Word::ExtensionCall},
    {u"__ctl_interrupt", Identifier, Word::ExtensionCall},
    {u"__attribute__", Identifier, Word::ExtensionCall},
    {u"asm", Identifier, Word::ExtensionCall},
    {u"__asm", Identifier, Word::ExtensionCall},
    {u"__asm__", Identifier, Word::ExtensionCall},
    {u"__attribute", Identifier, Word::ExtensionCall},
    {u"__declspec", Identifier, Word::ExtensionCall},
    {u"alignas", Identifier, Word::ExtensionCall},
    {u"_Alignas", Identifier, Word::ExtensionCall},

    {u"void", Identifier, Word::BasicType},
    {u"bool", Identifier, Word::BasicType},
    {u"_Bool", Identifier, Word::BasicType},
    {u"char", Identifier, Word::BasicType},
    {u"char8_t", Identifier, Word::BasicType},
    {u"char16_t", Identifier, Word::BasicType},
    {u"char32_t", Identifier, Word::BasicType},
    {u"wchar_t", Identifier, Word::BasicType},
    {u"short", Identifier, Word::BasicType},
    {u"int", Identifier, Word::BasicType},
    {u"long", Identifier, Word::BasicType},
    {u"float", Identifier, Word::BasicType},
    {u"double", Identifier, Word::BasicType},
    {u"signed", Identifier, Word::BasicType},
    {u"unsigned", Identifier, Word::BasicType},
    {u"__signed", Identifier, Word::BasicType},
    {u"__signed__", Identifier, Word::BasicType},
    {u"__int64", Identifier, Word::BasicType},
    {u"__int128", Identifier, Word::BasicType},
    {u"__int128_t", Identifier, Word::BasicType},
    {u"__uint128_t", Identifier, Word::BasicType},
    {u"_Complex", Identifier, Word::BasicType},
    {u"__complex__", Identifier, Word::BasicType},
    {u"_Imaginary", Identifier, Word::BasicType},
    {u"_Float16", Identifier, Word::BasicType},
    {u"_Float32", Identifier, Word::BasicType},
    {u"_Float64", Identifier, Word::BasicType},
    {u"_Float128", Identifier, Word::BasicType},
    {u"_Float32x", Identifier, Word::BasicType},
    {u"_Float64x", Identifier, Word::BasicType},
    {u"__float128", Identifier, Word::BasicType},
    {u"auto", Identifier, Word::BasicType},
    {u"__auto_type", Identifier, Word::BasicType},

    {u"restrict", Identifier, Word::Qualifier},
    {u"__restrict", Identifier, Word::Qualifier},
    {u"__restrict__", Identifier, Word::Qualifier},
    {u"__const", Identifier, Word::Qualifier},
    {u"__const__", Identifier, Word::Qualifier},
    {u"__volatile", Identifier, Word::Qualifier},
    {u"__volatile__", Identifier, Word::Qualifier},

    {u"__inline", Identifier, Word::Storage},
    {u"__inline__", Identifier, Word::Storage},
    {u"__forceinline", Identifier, Word::Storage},
    {u"__extension__", Identifier, Word::Storage},
    {u"constexpr", Identifier, Word::Storage},
    {u"consteval", Identifier, Word::Storage},
    {u"constinit", Identifier, Word::Storage},
    {u"explicit", Identifier, Word::Storage},
    {u"mutable", Identifier, Word::Storage},
    {u"thread_local", Identifier, Word::Storage},
    {u"_Thread_local", Identifier, Word::Storage},
    {u"__thread", Identifier, Word::Storage},
    {u"_Noreturn", Identifier, Word::Storage},
    {u"noreturn", Identifier, Word::Storage},
    {u"export", Identifier, Word::Storage},
    {u"__cdecl", Identifier, Word::Storage},
    {u"__stdcall", Identifier, Word::Storage},
    {u"__fastcall", Identifier, Word::Storage},

    {u"typeof", Identifier, Word::TypeOperator},
    {u"__typeof", Identifier, Word::TypeOperator},
    {u"__typeof__", Identifier, Word::TypeOperator},
    {u"typeof_unqual", Identifier, Word::TypeOperator},
    {u"decltype", Identifier, Word::TypeOperator},
    {u"_Atomic", Identifier, Word::TypeOperator},
    {u"_BitInt", Identifier, Word::TypeOperator},

    {u"typename", Identifier, Word::TypeName},

    {u"noexcept", Identifier, Word::Suffix},
    {u"override", Identifier, Word::Suffix},
    {u"final", Identifier, Word::Suffix},
    {u"requires", Identifier, Word::Suffix},

    {u"return", Identifier, Word::Statement},
    {u"if", Identifier, Word::Statement},
    {u"else", Identifier, Word::Statement},
    {u"for", Identifier, Word::Statement},
    {u"while", Identifier, Word::Statement},
    {u"do", Identifier, Word::Statement},
    {u"switch", Identifier, Word::Statement},
    {u"case", Identifier, Word::Statement},
    {u"goto", Identifier, Word::Statement},
    {u"break", Identifier, Word::Statement},
    {u"continue", Identifier, Word::Statement},
    {u"sizeof", Identifier, Word::Statement},
    {u"delete", Identifier, Word::Statement},
    {u"new", Identifier, Word::Statement},
    {u"concept", Identifier, Word::Statement},

    {u"static_assert", Identifier, Word::Statement},
    {u"_Static_assert", Identifier, Word::Statement},
};

constexpr auto s_wordIndex = WordIndex<WordEntry, &WordEntry::text>::of<s_words>();

} // namespace

const WordEntry *wordEntry(QStringView text)
{
    return s_wordIndex.find(text);
}

std::span<const WordEntry> wordEntries()
{
    return s_words;
}

} // namespace tavidoc::SourceBrowserToken
