#pragma once

#include <string>
#include <string_view>

/// The marks of parts that a listing leaves out: "\vdots", "\hdots" and "\...". Lexers know nothing of them.
namespace tavidoc::Ellipses {

/// True when \a text has a mark.
[[nodiscard]] bool areIn(std::string_view text);

/// Makes each mark in the styled line \a styled part of one run, the one its backslash is in, so that
/// replace() finds it whatever the lexer made of its characters. The line gets no longer.
void join(char16_t *styled);

/// Replaces the marks in \a html from \a begin on by ellipses.
void replace(std::string &html, std::size_t begin);

} // namespace tavidoc::Ellipses
