#pragma once

#include "site/record/field_writer.h"

#include <cstdint>

namespace tavidoc {

/// Prints described values for people: a line "name: value" for each field, indented by level. Fields that are empty
/// or 0 are left out.
class FieldPrinter
{
public:
    template <typename T> void operator()(std::string_view name, const T &value)
    {
        if constexpr (std::is_same_v<T, std::string>)
            printText(name, value);
        else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>)
            printNumber(name, static_cast<std::int64_t>(value));
        else if constexpr (isList<T>)
            printList(name, value);
        else if constexpr (isMap<T>)
            printMap(name, value);
        else if constexpr (isOptional<T>)
            printOptional(name, value);
        else
            printStructure(name, value);
    }

    [[nodiscard]] std::string takeText() { return std::move(m_text); }

private:
    template <typename T> void printStructure(std::string_view name, const T &value)
    {
        beginLine(name);
        m_text += '\n';
        ++m_level;
        describe(*this, value);
        --m_level;
    }
    template <typename T> void printList(std::string_view name, const std::vector<T> &list)
    {
        for (const T &element : list)
            (*this)(name, element);
    }
    template <typename T> void printMap(std::string_view name, const std::map<std::string, T> &map)
    {
        for (const auto &[key, value] : map)
            (*this)(std::string(name).append(" ").append(key), value);
    }
    template <typename T> void printOptional(std::string_view name, const std::optional<T> &value)
    {
        if (value)
            (*this)(name, *value);
    }

    /// The indentation, the name and a colon.
    void beginLine(std::string_view name);
    void printNumber(std::string_view name, std::int64_t number);
    /// In one line if it fits, otherwise as indented lines. Control characters are escaped.
    void printText(std::string_view name, std::string_view text);

    std::string m_text;
    std::size_t m_level = 0;
};

} // namespace tavidoc
