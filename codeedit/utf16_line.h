#pragma once

#include <string_view>
#include <vector>

/// The UTF-16 form of a line as a lexer wants it, with a 0 at its end. Its room is used again
/// for the next line.
class Utf16Line
{
public:
    /// Takes over \a line, which is UTF-8. U+0000 and U+FDD0, which mean something in styled
    /// lines, become U+FFFD, as does each byte that is part of no character.
    void assign(std::string_view line);

    [[nodiscard]] const char16_t *data() const { return m_units.data(); }
    /// In units, without the 0.
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    void assignAny(std::string_view line);

    std::vector<char16_t> m_units;
    std::size_t m_size = 0;
};
