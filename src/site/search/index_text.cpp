#include "site/search/index_text.h"

#include "site/search/characters.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

constexpr std::string_view s_digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The most bytes that a term takes, and what encloses the data of a file.
constexpr std::size_t s_longestText = 900;

void appendUnit(std::string &script, std::uint32_t unit)
{
    constexpr std::string_view hex = "0123456789abcdef";
    script += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        script.push_back(hex[unit >> static_cast<unsigned>(shift) & 15U]);
}

bool isPlain(unsigned char byte)
{
    return byte == '\t' || (byte >= ' ' && byte < 0x7f && byte != '"' && byte != '\\' && byte != '<');
}

void appendEscaped(std::string &script, char32_t character)
{
    if (character == U'"' || character == U'\\') {
        script.push_back('\\');
        script.push_back(static_cast<char>(character));
    } else if (character < 0x10000) {
        appendUnit(script, character);
    } else {
        appendUnit(script, 0xd800 + ((character - 0x10000) >> 10U));
        appendUnit(script, 0xdc00 + ((character - 0x10000) & 0x3ffU));
    }
}

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80;
}

/// How many bytes \a left and \a right share at the beginning, in whole characters and at most \a most UTF-16 units.
struct Shared
{
    std::size_t bytes = 0;
    std::size_t units = 0;
};

Shared sharedPrefix(std::string_view left, std::string_view right, std::size_t most)
{
    const std::size_t shortest = std::min(left.size(), right.size());
    Shared shared;
    for (std::size_t at = 0; at <= shortest; ++at) {
        const bool begins = at == right.size() || !continuesCharacter(right[at]);
        if (begins && at > shared.bytes) {
            const std::size_t units = shared.units + (at - shared.bytes == 4 ? 2 : 1);
            if (units > most)
                break;
            shared = {.bytes = at, .units = units};
        }
        if (at == shortest || left[at] != right[at])
            break;
    }
    return shared;
}

} // namespace

void appendScriptText(std::string &script, std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isPlain(static_cast<unsigned char>(text[end])))
            ++end;
        script.append(text.substr(at, end - at));
        if (end == text.size())
            return;
        const DecodedCharacter next = decodedCharacter(text, end);
        appendEscaped(script, next.isValid ? next.character : char32_t{0xfffd});
        at = end + next.length;
    }
}

void appendScriptString(std::string &script, std::string_view text)
{
    script.push_back('"');
    appendScriptText(script, text);
    script.push_back('"');
}

void appendNumber(std::string &script, std::uint64_t number)
{
    for (; number >= 32; number >>= 5U)
        script.push_back(s_digits[32 + (number & 31U)]);
    script.push_back(s_digits[number]);
}

ShardWriter::ShardWriter(Writer writer) : m_writer(std::move(writer)) {}

void ShardWriter::add(std::string_view text, std::string_view data)
{
    if (m_shard.size() + data.size() + s_longestText > s_shardSize)
        flush();
    if (m_shard.empty()) {
        const std::size_t shared = sharedPrefix(m_last, text, text.size()).bytes;
        std::size_t end = std::min(shared + 1, text.size());
        while (end < text.size() && continuesCharacter(text[end]))
            ++end;
        if (m_count > 0)
            m_firsts.push_back('\t');
        m_firsts.append(text.substr(0, end));
        m_last.clear();
    } else {
        m_shard.push_back('\t');
    }
    const Shared shared = sharedPrefix(m_last, text, s_digits.size() - 1);
    m_shard.push_back(s_digits[shared.units]);
    appendScriptText(m_shard, text.substr(shared.bytes));
    if (!data.empty())
        m_shard.append("\t").append(data);
    m_last = text;
}

std::string ShardWriter::finish()
{
    flush();
    return std::exchange(m_firsts, {});
}

void ShardWriter::flush()
{
    if (m_shard.empty())
        return;
    m_writer(m_count, m_shard);
    ++m_count;
    m_shard.clear();
}

} // namespace tavidoc
