#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavidoc {

/// What a name of another project leads to.
struct ForeignName
{
    std::string address; ///< a full one
    std::string title;   ///< of a page or section; empty for a declaration
};

/// The names of other projects that links may lead to.
class ForeignNames
{
public:
    /// Adds \a name. Of several with the same name the one with the lowest \a rank counts, and of these the first.
    void add(std::string name, std::size_t rank, ForeignName target);

    /// What \a target is the name of, with or without "()" at its end; null when nothing is.
    [[nodiscard]] const ForeignName *find(std::string_view target) const;

    [[nodiscard]] std::size_t count() const { return m_names.size(); }

private:
    struct Ranked
    {
        std::size_t rank;
        ForeignName target;
    };

    std::unordered_map<std::string, Ranked> m_names;
};

} // namespace tavidoc
