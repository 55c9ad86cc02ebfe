#pragma once

#include <array>
#include <string>

/// Writes styled lines as HTML: each run in a span with the class of its style, the text escaped,
/// and "\n" after each line. No span is open between lines.
class Spans
{
public:
    /// \a html is borrowed; what is written is in it when this object is gone, at the latest.
    explicit Spans(std::string &html) : m_html(html) {}
    Spans(const Spans &) = delete;
    Spans &operator=(const Spans &) = delete;
    ~Spans() { flush(); }

    /// \a styled ends with a 0 unit.
    void appendLine(const char16_t *styled);

private:
    void flush();
    const char16_t *appendPlain(const char16_t *styled);
    const char16_t *appendSpecial(const char16_t *styled);

    static constexpr std::size_t s_size = 16384;
    static constexpr std::size_t s_reserve = 72; // room for a span's tags, a character and an end of line

    std::string &m_html;
    std::array<char, s_size> m_buffer;
    char *m_to = m_buffer.data();
    const char *const m_full = m_to + s_size - s_reserve;
};
