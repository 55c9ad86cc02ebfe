#pragma once

#include "codeedit/languages.h"

#include <algorithm>
#include <vector>

/// The language of a listing is chosen by the first byte of the input: '0' is the first name in the table of languages,
/// and after the last one comes a listing without a language.
namespace ListingLanguages {

inline std::vector<std::string_view> all()
{
    std::vector<std::string_view> names;
    for (const tavidoc::Language &language : tavidoc::Languages::all())
        names.insert(names.end(), language.names.begin(), language.names.end());
    names.emplace_back();
    return names;
}

inline std::string_view chosenBy(char first)
{
    const std::vector<std::string_view> names = all();
    return names[static_cast<unsigned char>(first - '0') % names.size()];
}

/// The byte that chooses \a name, which is in the table or empty.
inline char choiceOf(std::string_view name)
{
    const std::vector<std::string_view> names = all();
    return static_cast<char>('0' + (std::ranges::find(names, name) - names.begin()));
}

} // namespace ListingLanguages
