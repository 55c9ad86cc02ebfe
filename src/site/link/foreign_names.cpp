#include "site/link/foreign_names.h"

#include <utility>

namespace tavidoc {

void ForeignNames::add(std::string name, std::size_t rank, ForeignName target)
{
    const auto [place, isNew] = m_names.try_emplace(std::move(name));
    if (isNew || rank < place->second.rank)
        place->second = {rank, std::move(target)};
}

const ForeignName *ForeignNames::find(std::string_view target) const
{
    if (m_names.empty())
        return nullptr;
    auto found = m_names.find(std::string(target));
    if (found == m_names.end() && target.ends_with("()"))
        found = m_names.find(std::string(target.substr(0, target.size() - 2)));
    return found == m_names.end() ? nullptr : &found->second.target;
}

} // namespace tavidoc
