#include "definitions/properties.h"

#include "base/text_escape.h"
#include "definitions/xml_pp.h"

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view s_tableHead =
    "<table bgcolor=\"#f0f0f0\" width=\"100%\" cellpadding=\"2\" cellspacing=\"0\" border=\"0\" cols=\"200pt 200pt\">\n"
    "<tr bgcolor=\"#cccccc\"><th>Property</th><th>Description</th></tr>\n";

} // namespace

void Properties::add(const QDomElement &root)
{
    for (QDomElement element = root; !element.isNull(); element = nextElement(element, root, XmlChildren::Enter)) {
        if (element.tagName() != u"property" || element.parentNode().toElement().tagName() != u"properties")
            continue;
        std::string name = element.attribute(u"name"_s).toStdString();
        if (!name.empty())
            m_places[name] = m_properties.size();
        m_properties.push_back({std::move(name), element.attribute(u"caption"_s).toStdString(),
                                element.attribute(u"type"_s).toStdString(), textOf(element).toStdString()});
    }
}

const std::string *Properties::caption(std::string_view name) const
{
    const auto place = m_places.find(name);
    return place == m_places.end() ? nullptr : &m_properties[place->second].caption;
}

std::string Properties::tableHtml() const
{
    std::string html(s_tableHead);
    for (const Property &property : m_properties) {
        html += "<tr><td>";
        appendEscaped(html, property.caption);
        html += "<small><tt>";
        appendEscaped(html, property.name);
        html += "</tt>&nbsp;&ndash;&nbsp;";
        appendEscaped(html, property.type);
        html += "</small></td><td>";
        appendEscaped(html, property.description);
        html += "</td></tr>\n";
    }
    return html.append("</table>");
}

} // namespace tavidoc
