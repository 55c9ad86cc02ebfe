#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// Appends \a text, UTF-8, as the inside of a string of JavaScript: ASCII, and no "<", so that it cannot end a script.
/// Bytes that are not UTF-8 become U+FFFD. Tabs stay as they are: they separate the fields of our strings.
void appendScriptText(std::string &script, std::string_view text);

/// Appends \a text with quotes, as above.
void appendScriptString(std::string &script, std::string_view text);

/// Appends \a number in digits of base 64, five bits each, the lowest first; all but the last digit have 32 added.
void appendNumber(std::string &script, std::uint64_t number);

/// Divides sorted texts, each with some data, into files of at most s_shardSize bytes. A text is written as one digit,
/// the length of the prefix that it shares with the one before, and the rest.
class ShardWriter
{
public:
    static constexpr std::size_t s_shardSize = 25'000;

    using Writer = std::function<void(std::size_t number, const std::string &data)>;
    explicit ShardWriter(Writer writer);

    /// \a data, digits only, follows the text after a tab unless it is empty.
    void add(std::string_view text, std::string_view data);
    /// Writes the last file and returns the first text of each file, shortened to what distinguishes it from the text
    /// before, as one string with tabs.
    [[nodiscard]] std::string finish();

private:
    void flush();

    Writer m_writer;
    std::string m_shard;
    std::string m_last;   ///< the text before
    std::string m_firsts; ///< not escaped
    std::size_t m_count = 0;
};

} // namespace tavidoc
