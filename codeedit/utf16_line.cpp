#include "codeedit/utf16_line.h"

#include "codeedit/styled_line.h"

namespace {

constexpr char16_t s_replacement = u'\uFFFD';

/// Takes one character off \a text, which is not empty.
char32_t takeCharacter(std::string_view &text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (length > text.size() || (lead >= 0x80 && lead < 0xC2)) {
        text.remove_prefix(1);
        return s_replacement;
    }
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index)
        character = character << 6 | (static_cast<unsigned char>(text[index]) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

} // namespace

void Utf16Line::assign(std::string_view line)
{
    if (m_units.size() < line.size() + 1)
        m_units.resize(line.size() + line.size() / 2 + 1);
    unsigned char bits = 0;
    bool hasZero = false;
    char16_t *const units = m_units.data();
    for (std::size_t index = 0; index < line.size(); ++index) {
        const auto byte = static_cast<unsigned char>(line[index]);
        bits |= byte;
        hasZero |= byte == 0;
        units[index] = byte;
    }
    m_size = line.size();
    if (bits >= 0x80 || hasZero)
        assignAny(line);
    units[m_size] = 0;
}

void Utf16Line::assignAny(std::string_view line)
{
    m_size = 0;
    while (!line.empty()) {
        const char32_t character = takeCharacter(line);
        if (character > 0xFFFF) {
            m_units[m_size++] = static_cast<char16_t>(0xD7C0 + (character >> 10));
            m_units[m_size++] = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        } else {
            const bool meansSomething = character == 0 || character == s_styleMarker;
            m_units[m_size++] = meansSomething ? s_replacement : static_cast<char16_t>(character);
        }
    }
}
