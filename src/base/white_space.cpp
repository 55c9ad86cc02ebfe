#include "base/white_space.h"

namespace tavidoc {

namespace {

/// The length of the white space character that \a text begins with, 0 when it begins with another.
std::size_t whiteSpaceLength(std::string_view text)
{
    if (text.empty())
        return 0;
    if (static_cast<unsigned char>(text.front()) < 0x80)
        return isSpace(text.front()) ? 1 : 0;
    // Next line, no-break space, ogham space, the spaces of general punctuation, ideographic space.
    constexpr std::string_view wide[] = {
        "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82", "\xE2\x80\x83",
        "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A",
        "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80",
    };
    for (const std::string_view space : wide) {
        if (text.starts_with(space))
            return space.size();
    }
    return 0;
}

} // namespace

std::string_view trimmedEnd(std::string_view text)
{
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return trimmedEnd(text);
}

std::string_view afterLeadingSpace(std::string_view text)
{
    while (const std::size_t length = whiteSpaceLength(text))
        text.remove_prefix(length);
    return text;
}

std::string simplified(std::string_view text)
{
    std::string result;
    text = afterWhiteSpace(text);
    while (!text.empty()) {
        if (whiteSpaceLength(text) == 0) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        text = afterWhiteSpace(text);
        if (!text.empty())
            result += ' ';
    }
    return result;
}

std::string tightened(std::string_view text)
{
    const auto isWord = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               static_cast<unsigned char>(c) >= 0x80;
    };
    std::string result;
    bool hasSpace = false;
    for (const char c : text) {
        if (isSpace(c)) {
            hasSpace = true;
            continue;
        }
        if (hasSpace && isWord(c) && !result.empty() && isWord(result.back()))
            result += ' ';
        hasSpace = false;
        result += c;
    }
    return result;
}

} // namespace tavidoc
