#include "definitions/properties.h"

namespace tavidoc {

void Properties::add(const XmlElement &root)
{
    for (XmlElement element = root; !element.isNull(); element = element.next(root)) {
        if (element.name() != "property" || element.parent().isNull() || element.parent().name() != "properties")
            continue;
        const std::string_view name = element.attribute("name");
        if (!name.empty())
            m_places[name] = m_properties.size();
        m_properties.push_back({name, element.attribute("caption"), element.attribute("type"), element.text()});
    }
}

const Property *Properties::find(std::string_view name) const
{
    const auto place = m_places.find(name);
    return place == m_places.end() ? nullptr : &m_properties[place->second];
}

} // namespace tavidoc
