#include "codeedit/word_lists.h"

namespace tavidoc {

namespace WordLists {

namespace {

/// C and C++ keywords, the integer types of the library, and words of some compilers. Kept as it stands.
constexpr std::u16string_view s_c[] = {
    u"_Alignas",
    u"_Alignof",
    u"_Atomic",
    u"_Bool",
    u"_Complex",
    u"_Imaginary",
    u"_Noreturn",
    u"_Static_assert",
    u"_Thread_local",
    u"alignas",
    u"alignof",
    u"and",
    u"and_eq",
    u"asm",
    u"auto",
    u"bitand",
    u"bitor",
    u"bool",
    u"break",
    u"case",
    u"catch",
    u"char",
    u"char16_t",
    u"char32_t",
    u"class",
    u"compl",
    u"const",
    u"constexpr",
    u"const_cast",
    u"continue",
    u"decltype",
    u"default",
    u"delete",
    u"do",
    u"double",
    u"dynamic_cast",
    u"else",
    u"enum",
    u"explicit",
    u"export",
    u"extern",
    u"false",
    u"final",
    u"float",
    u"for",
    u"friend",
    u"goto",
    u"if",
    u"inline",
    u"int",
    u"long",
    u"mutable",
    u"namespace",
    u"new",
    u"noexcept",
    u"noreturn",
    u"not",
    u"not_eq",
    u"nullptr",
    u"operator",
    u"or",
    u"or_eq",
    u"overload",
    u"override",
    u"private",
    u"protected",
    u"public",
    u"register",
    u"reinterpret_cast",
    u"restrict",
    u"return",
    u"short",
    u"signed",
    u"sizeof",
    u"static",
    u"static_assert",
    u"static_cast",
    u"struct",
    u"switch",
    u"template",
    u"this",
    u"thread_local",
    u"throw",
    u"true",
    u"try",
    u"typedef",
    u"typeid",
    u"typename",
    u"union",
    u"unsigned",
    u"using",
    u"virtual",
    u"void",
    u"volatile",
    u"while",
    u"xor",
    u"xor_eq",
    u"size_t",
    u"ptrdiff_t",
    u"wchar_t",
    u"sfrb",
    u"sfrw",
    u"__code",
    u"__monitor",
    u"__interrupt",
    u"__toplevel",
    u"__packed",
    u"__attribute__",
    u"__asm__",
    u"__inline__",
    u"__label__",
    u"int8_t",
    u"int16_t",
    u"int32_t",
    u"int64_t",
    u"uint8_t",
    u"uint16_t",
    u"uint32_t",
    u"uint64_t",
    u"int_least8_t",
    u"int_least16_t",
    u"int_least32_t",
    u"int_least64_t",
    u"uint_least8_t",
    u"uint_least16_t",
    u"uint_least32_t",
    u"uint_least64_t",
    u"int_fast8_t",
    u"int_fast16_t",
    u"int_fast32_t",
    u"int_fast64_t",
    u"uint_fast8_t",
    u"uint_fast16_t",
    u"uint_fast32_t",
    u"uint_fast64_t",
    u"intptr_t",
    u"uintptr_t",
    u"intmax_t",
    u"uintmax_t",
};

/// JavaScript keywords and reserved words.
constexpr std::u16string_view s_javaScript[] = {
    u"break",   u"case",     u"catch",     u"continue", u"default",      u"delete",     u"do",        u"else",
    u"finally", u"for",      u"function",  u"if",       u"in",           u"instanceof", u"new",       u"return",
    u"switch",  u"this",     u"throw",     u"try",      u"typeof",       u"var",        u"void",      u"while",
    u"with",    u"abstract", u"boolean",   u"byte",     u"char",         u"class",      u"const",     u"debugger",
    u"double",  u"enum",     u"export",    u"extends",  u"final",        u"float",      u"goto",      u"implements",
    u"import",  u"int",      u"interface", u"long",     u"native",       u"package",    u"private",   u"protected",
    u"public",  u"short",    u"static",    u"super",    u"synchronized", u"throws",     u"transient", u"volatile",
};

/// BASIC statements, functions and constants. Deliberate: "%HEIGT" is spelled so.
constexpr std::u16string_view s_basic[] = {
    u"ELSE",      u"LIST",      u"PRINT",     u"WRITE",   u"GOTO",     u"GOSUB",     u"RETURN",    u"IF",
    u"EACH",      u"FOR",       u"WHILE",     u"REPEAT",  u"CASE",     u"WHEN",      u"OTHERWISE", u"ENDCASE",
    u"DEFPROC",   u"DEFFN",     u"NEXT",      u"WEND",    u"UNTIL",    u"ENDPROC",   u"ENDFN",     u"EXIT",
    u"END",       u"ENDIF",     u"TRY",       u"THROW",   u"STOP",     u"CALL",      u"REM",       u"NEW",
    u"LET",       u"RUN",       u"MAT",       u"CORE",    u"INSTALL",  u"REPORT",    u"ERROR",     u"RECYCLE",
    u"CONTINUE",  u"READ",      u"DATA",      u"RESTORE", u"DUMP",     u"RANDOMIZE", u"SORT",      u"REVERSE",
    u"SHUFFLE",   u"CLS",       u"VDU",       u"VERSION", u"DIM",      u"PAUSE",     u"WAIT",      u"SYSTEM",
    u"TIMER",     u"USING",     u"INPUT",     u"OUTPUT",  u"ANALOG",   u"DIGITAL",   u"MOD",       u"AND",
    u"OR",        u"XOR",       u"EQV",       u"IMP",     u"MAX",      u"MIN",       u"CNJ",       u"ARG",
    u"RE",        u"IM",        u"NOT",       u"SGN",     u"ABS",      u"INV",       u"RND",       u"SQR",
    u"EXP",       u"LOG",       u"LOG2",      u"LOG10",   u"FIX",      u"FLT",       u"INT",       u"CINT",
    u"STR",       u"VAL",       u"INF",       u"NAN",     u"LEN",      u"HIGH",      u"TYP",       u"ZER",
    u"IDN",       u"CON",       u"COL",       u"ROW",     u"TRN",      u"DET",       u"GEN",       u"SAMPLE",
    u"SUM",       u"PI",        u"CMPLX",     u"QUAT",    u"MERGE",    u"CLONE",     u"LEFT",      u"MID",
    u"RIGHT",     u"INNER",     u"REDUCE",    u"SELECT",  u"PICK",     u"IFF",       u"TO",        u"IN",
    u"ON",        u"OFF",       u"THEN",      u"STEP",    u"AS",       u"UCASE",     u"LCASE",     u"LTRIM",
    u"RTRIM",     u"TRIM",      u"TRUTH",     u"SPC",     u"ASC",      u"CHR",       u"UTF",       u"HEX",
    u"SHA1$",     u"MORSE$",    u"PHONETIC$", u"ROMAN$",  u"NUMBER$",  u"SPOKEN$",   u"URI$",      u"BASE64$",
    u"SPLIT",     u"JOIN",      u"MATCH",     u"MKI",     u"MKF",      u"CVI",       u"CVU",       u"EXPAND",
    u"SUBST$",    u"INSERT$",   u"DELETE$",   u"STRING$", u"REPEAT$",  u"PAPER",     u"INK",       u"TAB",
    u"INSTR",     u"CENTER",    u"TIME$",     u"DATE$",   u"JUSTIFY$", u"$NUL",      u"$BEL",      u"$BS",
    u"$TAB",      u"$NL",       u"$LF",       u"$VT",     u"$FF",      u"$CR",       u"$EOF",      u"$ESC",
    u"$CRLF",     u"$CSI",      u"$OFF",      u"$ON",     u"$WS",      u"$BLACK",    u"$RED",      u"$GREEN",
    u"$YELLOW",   u"$BLUE",     u"$MAGENTA",  u"$CYAN",   u"$WHITE",   u"$BOLD",     u"$REGULAR",  u"$BLINK",
    u"$STEADY",   u"$NEGATIVE", u"$POSITIVE", u"$UP",     u"$DOWN",    u"$RIGHT",    u"$LEFT",     u"$BOOT",
    u"$RUN",      u"$NET",      u"$WORK",     u"%NUL",    u"%BEL",     u"%BS",       u"%TAB",      u"%LF",
    u"%VT",       u"%FF",       u"%CR",       u"%EOF",    u"%ESC",     u"%WIDTH",    u"%HEIGT",    u"CIS",
    u"SIN",       u"COS",       u"TAN",       u"ASN",     u"ACS",      u"ATN",       u"DEG",       u"RAD",
    u"SINH",      u"COSH",      u"TANH",      u"ASNH",    u"ACSH",     u"ATNH",      u"CEIL",      u"ATN2",
    u"DOT",       u"CROSS",     u"ROT",       u"%E",      u"%PI",      u"%I",        u"%TRUE",     u"%FALSE",
    u"TRUE",      u"FALSE",     u"NET",       u"MAIL",    u"DNS",      u"IP$",       u"SOCKET",    u"HELP",
    u"WEB",       u"EXAMPLE",   u"GFX",       u"RED",     u"GREEN",    u"BLUE",      u"COLOR$",    u"RGB",
    u"CLG",       u"ORIGIN",    u"SCALE",     u"ANGLE",   u"MOVE",     u"LINE",      u"PLOT",      u"FILL",
    u"RECTANGLE", u"CIRCLE",    u"FONT",      u"COLOR",   u"DRAW",     u"CONTRAST",  u"BACKLIGHT", u"FORWARD",
    u"BACK",      u"TURTLE",    u"%BLACK",    u"%RED",    u"%GREEN",   u"%BLUE",     u"%YELLOW",   u"%CYAN",
    u"%MAGENTA",  u"%WHITE",    u"%COLOR",    u"CATALOG", u"DIR",      u"CHDIR",     u"MKDIR",     u"RMDIR",
    u"KILL",      u"LOAD",      u"CHAIN",     u"SAVE",    u"NAME",     u"MORE",      u"OPEN",      u"CLOSE",
    u"FLUSH",     u"EOF",       u"EXT",       u"PTR",     u"GET$",     u"GET",       u"%OUT",      u"%IN",
    u"EDIT",      u"DEBUG",     u"RENUMBER",  u"DELETE",  u"AUTO",     u"CHECK",     u"CRUNCH",    u"PIN",
    u"I2C",       u"SPI",       u"CREDITS",   u"REBOOT",  u"BYE",      u"FIRMWARE",  u"WATCHDOG",
};

/// Register names, each in lower and upper case.
constexpr std::u16string_view s_registers[] = {
    u"r0",  u"R0",  u"r1",  u"R1",  u"r2",  u"R2",  u"r3", u"R3",  u"r4",  u"R4",  u"r5",  u"R5",  u"r6",
    u"R6",  u"r7",  u"R7",  u"r8",  u"R8",  u"r9",  u"R9", u"r10", u"R10", u"r11", u"R11", u"r12", u"R12",
    u"r13", u"R13", u"r14", u"R14", u"r15", u"R15", u"sr", u"SR",  u"pc",  u"PC",  u"sp",  u"SP",
};

} // namespace

std::span<const std::u16string_view> c()
{
    return s_c;
}

std::span<const std::u16string_view> javaScript()
{
    return s_javaScript;
}

std::span<const std::u16string_view> basic()
{
    return s_basic;
}

std::span<const std::u16string_view> registers()
{
    return s_registers;
}

} // namespace WordLists

} // namespace tavidoc
