#include "definitions/xml_tree.h"

namespace tavidoc {

XmlElement XmlTree::root() const
{
    return m_elements.empty() ? XmlElement() : XmlElement(*this, 0);
}

XmlTree::Range XmlTree::addName(std::string_view text)
{
    const auto begin = static_cast<std::uint32_t>(m_names.size());
    m_names += text;
    return {begin, static_cast<std::uint32_t>(m_names.size())};
}

void XmlTree::openElement(std::string_view name)
{
    const auto textBegin = static_cast<std::uint32_t>(m_text.size());
    const std::uint32_t parent = m_open;
    m_open = static_cast<std::uint32_t>(m_elements.size());
    m_elements.push_back({.name = addName(name),
                          .text = {textBegin, textBegin},
                          .parent = parent,
                          .after = m_open + 1,
                          .firstAttribute = static_cast<std::uint32_t>(m_attributes.size()),
                          .attributeCount = 0});
}

void XmlTree::addAttribute(std::string_view name, std::string_view value)
{
    const Range nameRange = addName(name);
    m_attributes.push_back({nameRange, addName(value)});
    ++m_elements.back().attributeCount;
}

void XmlTree::closeElement()
{
    Element &element = m_elements[m_open];
    element.text.end = static_cast<std::uint32_t>(m_text.size());
    element.after = static_cast<std::uint32_t>(m_elements.size());
    m_open = element.parent;
}

std::string_view XmlElement::name() const
{
    return XmlTree::part(m_tree->m_names, element().name);
}

std::string_view XmlElement::attribute(std::string_view name) const
{
    const std::uint32_t first = element().firstAttribute;
    for (std::uint32_t index = first; index != first + element().attributeCount; ++index) {
        const XmlTree::Attribute &attribute = m_tree->m_attributes[index];
        if (XmlTree::part(m_tree->m_names, attribute.name) == name)
            return XmlTree::part(m_tree->m_names, attribute.value);
    }
    return {};
}

std::string_view XmlElement::text() const
{
    return XmlTree::part(m_tree->m_text, element().text);
}

/// The element \a index if it comes before \a end, else null.
XmlElement XmlElement::before(std::uint32_t index, std::uint32_t end) const
{
    return index < end ? XmlElement(*m_tree, index) : XmlElement();
}

XmlElement XmlElement::parent() const
{
    return element().parent == XmlTree::s_none ? XmlElement() : XmlElement(*m_tree, element().parent);
}

XmlElement XmlElement::firstChild() const
{
    return before(m_index + 1, element().after);
}

XmlElement XmlElement::nextSibling() const
{
    const XmlElement enclosing = parent();
    return enclosing.isNull() ? XmlElement() : nextAfterChildren(enclosing);
}

XmlElement XmlElement::next(const XmlElement &top) const
{
    return before(m_index + 1, top.element().after);
}

XmlElement XmlElement::nextAfterChildren(const XmlElement &top) const
{
    return before(element().after, top.element().after);
}

} // namespace tavidoc
