#pragma once

#include "pages/document_listener.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tavidoc {

/// The places of what the author wrote as HTML. Offsets must not decrease.
class HtmlPlaces
{
public:
    explicit HtmlPlaces(const DocumentPage &page) : m_page(page) {}

    /// The place of the character at \a offset of the body; that of the page if it is unknown.
    [[nodiscard]] DocumentPlace at(std::size_t offset)
    {
        while (m_next < m_page.html.size() && m_page.html[m_next].offset + m_page.html[m_next].length <= offset)
            begin(m_next + 1);
        if (m_next == m_page.html.size() || m_page.html[m_next].offset > offset)
            return m_page.place;
        const std::size_t from = std::max(m_offset, m_page.html[m_next].offset);
        m_lines += std::ranges::count(m_page.body.substr(from, offset - from), '\n');
        m_offset = offset;
        const DocumentPlace &place = m_page.html[m_next].place;
        return {place.file, place.line + m_lines};
    }

private:
    void begin(std::size_t stretch)
    {
        m_next = stretch;
        m_lines = 0;
        m_offset = 0;
    }

    const DocumentPage &m_page;
    std::size_t m_next = 0;
    std::size_t m_offset = 0;
    std::int64_t m_lines = 0; // from the beginning of the stretch to m_offset
};

} // namespace tavidoc
