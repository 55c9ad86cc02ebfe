#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

class XmlElement;

/// The elements of one XML file in document order. All text is UTF-8. Walks take linear time and
/// no stack, however deep the elements are nested.
class XmlTree
{
public:
    /// Null for a tree without elements. The tree must outlive its elements and stay where it is.
    [[nodiscard]] XmlElement root() const;

    // To build a tree, in the order of the file.
    void openElement(std::string_view name);
    /// Adds to the element opened last, which has no children yet.
    void addAttribute(std::string_view name, std::string_view value);
    /// Appends to the text of all open elements.
    void addText(std::string_view text) { m_text += text; }
    void closeElement();

private:
    friend class XmlElement;

    static constexpr std::uint32_t s_none = ~std::uint32_t{0};

    /// A part of m_names or of m_text; both stay far below 4 GiB.
    struct Range
    {
        std::uint32_t begin;
        std::uint32_t end;
    };
    struct Element
    {
        Range name; // in m_names
        Range text; // in m_text; with that of all elements inside
        std::uint32_t parent;
        std::uint32_t after; // the element that follows the last one inside
        std::uint32_t firstAttribute;
        std::uint32_t attributeCount;
    };
    struct Attribute
    {
        Range name;  // in m_names
        Range value; // in m_names
    };

    [[nodiscard]] static std::string_view part(const std::string &text, Range range)
    {
        return std::string_view(text).substr(range.begin, range.end - range.begin);
    }
    Range addName(std::string_view text);

    std::vector<Element> m_elements; // the elements inside another directly follow it
    std::vector<Attribute> m_attributes;
    std::string m_names; // of elements and attributes, and the values
    std::string m_text;  // between the tags
    std::uint32_t m_open = s_none;
};

/// An element of a tree, borrowed from it, or null. All but isNull() require one that is not null;
/// what they return is borrowed from the tree.
class XmlElement
{
public:
    XmlElement() = default;

    [[nodiscard]] bool isNull() const { return m_tree == nullptr; }
    [[nodiscard]] std::string_view name() const;
    /// The value of the attribute \a name; empty when there is none.
    [[nodiscard]] std::string_view attribute(std::string_view name) const;
    /// All text inside the element, in document order and unchanged.
    [[nodiscard]] std::string_view text() const;

    /// Null for the root, as are firstChild() and nextSibling() without such an element.
    [[nodiscard]] XmlElement parent() const;
    [[nodiscard]] XmlElement firstChild() const;
    [[nodiscard]] XmlElement nextSibling() const;

    /// The next element in document order inside \a top, a child if there is one; null after the last.
    [[nodiscard]] XmlElement next(const XmlElement &top) const;
    /// The same, but after all elements inside this one.
    [[nodiscard]] XmlElement nextAfterChildren(const XmlElement &top) const;

private:
    friend class XmlTree;

    XmlElement(const XmlTree &tree, std::uint32_t index) : m_tree(&tree), m_index(index) {}
    [[nodiscard]] const XmlTree::Element &element() const { return m_tree->m_elements[m_index]; }
    [[nodiscard]] XmlElement before(std::uint32_t index, std::uint32_t end) const;

    const XmlTree *m_tree = nullptr;
    std::uint32_t m_index = 0;
};

} // namespace tavidoc
