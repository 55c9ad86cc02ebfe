#include "fuzz/promise.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

void show(std::string_view text)
{
    constexpr std::size_t most = 400; // bytes, enough to diagnose
    text = text.substr(0, most);
    std::fwrite(text.data(), 1, text.size(), stderr);
}

} // namespace

void promise(bool holds, std::string_view what, std::string_view evidence)
{
    if (holds)
        return;
    std::fputs("\nbroken promise: ", stderr);
    show(what);
    std::fputs("\n", stderr);
    show(evidence);
    std::fputs("\n", stderr);
    std::abort();
}

void promiseEqual(std::string_view actual, std::string_view expected, std::string_view what)
{
    if (actual == expected)
        return;
    const auto [inActual, inExpected] = std::ranges::mismatch(actual, expected);
    constexpr std::ptrdiff_t around = 40; // bytes shown before the difference
    const std::ptrdiff_t from = std::max<std::ptrdiff_t>(0, (inActual - actual.begin()) - around);
    std::string evidence("got:      ");
    evidence.append(actual.substr(static_cast<std::size_t>(from), 2 * around)).append("\nexpected: ");
    evidence.append(expected.substr(static_cast<std::size_t>(from), 2 * around));
    promise(false, what, evidence);
}
