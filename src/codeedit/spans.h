#pragma once

#include <array>
#include <string>

namespace tavidoc {

/// Writes styled lines as HTML: each run in a span with the class of its style, the text escaped,
/// and "\n" after each line. No span is open between lines.
class Spans
{
public:
    /// \a html is borrowed; it is complete once this object is destroyed.
    explicit Spans(std::string &html) : m_html(html) {}
    Spans(const Spans &) = delete;
    Spans &operator=(const Spans &) = delete;
    ~Spans() { flushed(m_to); }

    /// \a styled ends with a 0 unit.
    void appendLine(const char16_t *styled);

private:
    char *flushed(char *end);

    static constexpr std::size_t s_size = 4096;
    static constexpr std::size_t s_reserve = 80; // more than is written between two checks of the free space

    std::string &m_html;
    std::array<char, s_size> m_buffer;
    char *m_to = m_buffer.data();
};

} // namespace tavidoc
