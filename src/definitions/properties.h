#pragma once

#include "base/text_map.h"

#include <QDomElement>

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The properties that the definitions describe. All text is UTF-8.
class Properties
{
public:
    /// Takes in the properties below \a root.
    void add(const QDomElement &root);

    [[nodiscard]] bool isEmpty() const { return m_properties.empty(); }

    /// The caption of the property \a name, not escaped, of several the one added last; null
    /// when there is no such property.
    [[nodiscard]] const std::string *caption(std::string_view name) const;

    /// The HTML table of all properties, in the order in which they were added.
    [[nodiscard]] std::string tableHtml() const;

private:
    struct Property
    {
        std::string name;
        std::string caption;
        std::string type;
        std::string description;
    };

    std::vector<Property> m_properties;
    TextMap<std::size_t> m_places; // by name, in m_properties
};

} // namespace tavidoc
