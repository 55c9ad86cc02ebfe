#pragma once

namespace tavidoc {

/// How the pages of declarations are named.
enum class ReferenceNames
{
    Bare,      ///< by the name alone: of two declarations of one name the later page counts
    Qualified, ///< by the qualified name with dots; declarations of one qualified name share a page
};

} // namespace tavidoc
