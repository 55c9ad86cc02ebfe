#pragma once

#include <QByteArray>
#include <QCborStreamWriter>

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

/// Writes described values as the items of one CBOR array. A structure is the items of its fields, a list its size and
/// its elements, an optional value a boolean and the value. Texts are byte strings, because names of files need not be
/// UTF-8.
class FieldWriter
{
public:
    FieldWriter() : m_writer(&m_bytes) { m_writer.startArray(); }

    template <typename T> void operator()(std::string_view, const T &value) { write(value); }

    /// Ends the array and hands it over.
    [[nodiscard]] QByteArray takeBytes()
    {
        m_writer.endArray();
        return std::move(m_bytes);
    }

private:
    template <typename T> void write(const T &value)
    {
        if constexpr (std::is_same_v<T, bool>)
            m_writer.append(value);
        else if constexpr (std::is_enum_v<T> || std::is_unsigned_v<T>)
            m_writer.append(static_cast<quint64>(value));
        else if constexpr (std::is_integral_v<T>)
            m_writer.append(static_cast<qint64>(value));
        else if constexpr (std::is_same_v<T, std::string>)
            m_writer.appendByteString(value.data(), static_cast<qsizetype>(value.size()));
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
        m_writer.append(static_cast<quint64>(list.size()));
        for (const T &element : list)
            write(element);
    }
    template <typename T> void writeMap(const std::map<std::string, T> &map)
    {
        m_writer.append(static_cast<quint64>(map.size()));
        for (const auto &[key, value] : map) {
            write(key);
            write(value);
        }
    }
    template <typename T> void writeOptional(const std::optional<T> &value)
    {
        m_writer.append(value.has_value());
        if (value)
            write(*value);
    }

    QByteArray m_bytes;
    QCborStreamWriter m_writer;
};

} // namespace tavidoc
