#pragma once

#include <QByteArray>

#include <concepts>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavidoc {

/// `const Struct` or `Struct`. The fields of a struct are described once, by a function
///
///     void describe(auto &fields, OneOf<Struct> auto &value)
///     {
///         fields("name", value.name);
///         ...
///     }
///
/// that writing, reading, printing and the format version of the files use.
template <typename T, typename Struct>
concept OneOf = std::same_as<std::remove_const_t<T>, Struct>;

template <typename T> inline constexpr bool isList = false;
template <typename T> inline constexpr bool isList<std::vector<T>> = true;
template <typename T> inline constexpr bool isMap = false;
template <typename T> inline constexpr bool isMap<std::map<std::string, T>> = true;
template <typename T> inline constexpr bool isOptional = false;
template <typename T> inline constexpr bool isOptional<std::optional<T>> = true;

template <typename T>
inline constexpr bool isStructure =
    std::is_class_v<T> && !std::is_same_v<T, std::string> && !isList<T> && !isMap<T> && !isOptional<T>;

/// Writes described values as a CBOR array of two byte strings: all numbers, in as many bytes as they need, and all
/// texts, one after the other. The number of a text is its size, that of a list its size, that of an optional value
/// whether it is there. A record has millions of values, and an item of its own for each would make reading records the
/// longest part of linking.
class FieldWriter
{
public:
    template <typename T> void operator()(std::string_view, const T &value) { write(value); }

    /// The array. Leaves the writer empty.
    [[nodiscard]] QByteArray takeBytes();

private:
    template <typename T> void write(const T &value)
    {
        if constexpr (std::is_signed_v<T>)
            writeSigned(value);
        else if constexpr (std::is_enum_v<T> || std::is_unsigned_v<T>)
            writeNumber(static_cast<quint64>(value));
        else if constexpr (std::is_same_v<T, std::string>)
            writeText(value);
        else if constexpr (isList<T>)
            writeList(value);
        else if constexpr (isMap<T>)
            writeMap(value);
        else if constexpr (isOptional<T>)
            writeOptional(value);
        else
            describe(*this, value);
    }

    template <typename T> void writeList(const std::vector<T> &list)
    {
        writeNumber(list.size());
        for (const T &element : list)
            write(element);
    }
    template <typename T> void writeMap(const std::map<std::string, T> &map)
    {
        writeNumber(map.size());
        for (const auto &[key, value] : map) {
            writeText(key);
            write(value);
        }
    }
    template <typename T> void writeOptional(const std::optional<T> &value)
    {
        writeNumber(value.has_value() ? 1 : 0);
        if (value)
            write(*value);
    }

    /// Seven bits in each byte, the lowest first; the eighth bit is set in all but the last byte.
    void writeNumber(quint64 number)
    {
        for (; number >= 0x80; number >>= 7)
            m_numbers += static_cast<char>(number | 0x80);
        m_numbers += static_cast<char>(number);
    }
    /// The sign is the lowest bit, so that numbers near 0 are short.
    void writeSigned(qint64 number)
    {
        const quint64 bits = static_cast<quint64>(number) << 1;
        writeNumber(number < 0 ? ~bits : bits);
    }
    void writeText(std::string_view text)
    {
        writeNumber(text.size());
        m_texts += text;
    }

    std::string m_numbers;
    std::string m_texts;
};

} // namespace tavidoc
