#include "fuzz/subjects.h"

#include <algorithm>

namespace {

constexpr Subject s_subjects[] = {
    {"reader", &checkReader},       {"markup", &checkMarkup},
    {"header", &checkHeader},       {"declarations", &checkDeclarations},
    {"listing", &checkListing},     {"definitions", &checkDefinitions},
    {"arguments", &checkArguments}, {"record", &checkRecord},
};

} // namespace

std::span<const Subject> subjects()
{
    return s_subjects;
}

const Subject *findSubject(std::string_view name)
{
    const auto *const found = std::ranges::find(s_subjects, name, &Subject::name);
    return found == std::end(s_subjects) ? nullptr : found;
}
