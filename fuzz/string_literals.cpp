#include "fuzz/string_literals.h"

#include <cctype>
#include <charconv>

namespace {

/// Reads C++ text from left to right; \a m_rest is the remaining text.
class LiteralReader
{
public:
    explicit LiteralReader(std::string_view source) : m_rest(source) {}

    std::vector<std::string> read()
    {
        while (!m_rest.empty()) {
            if (m_rest.starts_with("//"))
                skip(m_rest.find('\n'));
            else if (m_rest.starts_with("/*"))
                skip(m_rest.find("*/", 2));
            else if (m_rest.starts_with("R\"") && !m_afterWord)
                note(rawString());
            else if (m_rest.front() == '"')
                note(plainString());
            else
                other();
        }
        return std::move(m_literals);
    }

private:
    void skip(std::size_t length) { m_rest.remove_prefix(std::min(length, m_rest.size())); }

    void other()
    {
        const char c = m_rest.front();
        if (std::isspace(static_cast<unsigned char>(c)) == 0)
            m_joins = false;
        m_afterWord = std::isalnum(static_cast<unsigned char>(c)) != 0;
        const bool isCharacter = c == '\'' && m_rest.size() > 2;
        skip(!isCharacter ? 1 : m_rest[1] == '\\' ? 4 : m_rest[2] == '\'' ? 3 : 1);
    }

    void note(std::string text)
    {
        if (m_joins)
            m_literals.back() += text;
        else
            m_literals.push_back(std::move(text));
        m_joins = true;
        m_afterWord = false;
    }

    std::string rawString()
    {
        const std::size_t open = m_rest.find('(');
        const std::string closing = ")" + std::string(m_rest.substr(2, open - 2)) + "\"";
        const std::size_t end = std::min(m_rest.find(closing, open), m_rest.size());
        std::string text(m_rest.substr(open + 1, end - open - 1));
        skip(end + closing.size());
        return text;
    }

    std::string plainString()
    {
        std::string text;
        skip(1);
        while (!m_rest.empty() && m_rest.front() != '"') {
            if (m_rest.front() == '\\') {
                escape(text);
                continue;
            }
            text += m_rest.front();
            skip(1);
        }
        skip(1);
        return text;
    }

    void escape(std::string &text)
    {
        constexpr std::string_view names = "nrtvf0\"\\'";
        constexpr std::string_view meanings("\n\r\t\v\f\0\"\\'", 9);
        const std::size_t known = m_rest.size() > 1 ? names.find(m_rest[1]) : std::string_view::npos;
        if (known != std::string_view::npos) {
            text += meanings[known];
            return skip(2);
        }
        const bool isByte = m_rest.starts_with("\\x");
        if (!isByte && !m_rest.starts_with("\\u")) {
            text += m_rest.substr(0, 2);
            return skip(2);
        }
        unsigned value = 0;
        const std::string_view digits = m_rest.substr(2, isByte ? 2 : 4);
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        appendCharacter(text, value, isByte);
        skip(2 + digits.size());
    }

    static void appendCharacter(std::string &text, unsigned value, bool isByte)
    {
        if (isByte || value < 0x80) {
            text += static_cast<char>(value);
        } else if (value < 0x800) {
            text += static_cast<char>(0xC0 | value >> 6);
            text += static_cast<char>(0x80 | (value & 0x3F));
        } else {
            text += static_cast<char>(0xE0 | value >> 12);
            text += static_cast<char>(0x80 | (value >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (value & 0x3F));
        }
    }

    std::string_view m_rest;
    std::vector<std::string> m_literals;
    bool m_joins = false;
    bool m_afterWord = false;
};

} // namespace

std::vector<std::string> stringLiterals(std::string_view source)
{
    return LiteralReader(source).read();
}
