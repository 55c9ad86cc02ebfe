#pragma once

#include "site/record/field_writer.h"

#include <cstdint>

namespace tavidoc {

/// A number made of the names and the order of all described fields, so that a file which was written with other fields
/// is of another version.
class FormatVersion
{
public:
    template <typename T> [[nodiscard]] static std::uint64_t of()
    {
        FormatVersion version;
        version("", T());
        return version.m_hash;
    }

    template <typename T> void operator()(std::string_view name, const T &value)
    {
        add(name);
        if constexpr (isList<T>)
            (*this)("[]", typename T::value_type());
        else if constexpr (isMap<T>)
            (*this)("{}", typename T::mapped_type());
        else if constexpr (isOptional<T>)
            (*this)("?", typename T::value_type());
        else if constexpr (isStructure<T>)
            describe(*this, value);
        else
            add(std::is_same_v<T, std::string> ? "text" : std::is_signed_v<T> ? "signed" : "number");
    }

private:
    void add(std::string_view text)
    {
        for (const char character : text)
            m_hash = (m_hash ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
        m_hash = (m_hash ^ 0xFFU) * 0x100000001B3U; // ends the text
    }

    std::uint64_t m_hash = 0xCBF29CE484222325U;
};

} // namespace tavidoc
