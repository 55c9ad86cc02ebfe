#pragma once

#include "definitions/xml_tree.h"

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// A property as it is defined. All text is UTF-8, borrowed from the definitions and not escaped.
struct Property
{
    std::string_view name;
    std::string_view caption;
    std::string_view type;
    std::string_view description;
};

/// The properties that the definitions describe.
class Properties
{
public:
    /// Adds the properties below \a root, whose tree must outlive this object.
    void add(const XmlElement &root);

    [[nodiscard]] bool isEmpty() const { return m_properties.empty(); }
    /// All properties in the order of the definitions.
    [[nodiscard]] std::span<const Property> all() const { return m_properties; }
    /// The property \a name, the last one of that name; null when there is none.
    [[nodiscard]] const Property *find(std::string_view name) const;

private:
    std::vector<Property> m_properties;
    std::unordered_map<std::string_view, std::size_t> m_places; // by name, in m_properties
};

} // namespace tavidoc
