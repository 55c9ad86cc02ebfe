#pragma once

#include "codeedit/parser.h"

#include <memory>
#include <string_view>

/// A new lexer for \a language: "basic", "classic-basic", "c", "xml", "asm", "javascript" or
/// "js", in just these letters. Null for any other name.
[[nodiscard]] std::unique_ptr<CodeEditParser> makeLexer(std::string_view language);
