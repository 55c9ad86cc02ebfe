#pragma once

#include "site/record/field_writer.h"

#include <QByteArrayView>
#include <QString>

#include <algorithm>
#include <limits>
#include <utility>

namespace tavidoc {

/// Counts the numbers that FieldWriter makes of a value that is as small as possible.
class FieldCounter
{
public:
    template <typename T> [[nodiscard]] static std::size_t numbersOf()
    {
        FieldCounter counter;
        counter("", T());
        return counter.m_count;
    }

    template <typename T> void operator()(std::string_view, const T &value)
    {
        if constexpr (isStructure<T>)
            describe(*this, value);
        else
            ++m_count;
    }

private:
    std::size_t m_count = 0;
};

/// Reads what FieldWriter wrote, checking ranges and sizes: a list or text may not be larger than what is left of the
/// bytes, so nothing is allocated that the size of the file does not justify.
class FieldReader
{
public:
    /// \a file is the name of the file in messages. Throws HException "FILE: damaged" when \a bytes are not from a
    /// FieldWriter.
    FieldReader(QByteArrayView bytes, QString file);

    /// Throws when what comes next is not a \a value.
    template <typename T> void operator()(std::string_view, T &value) { read(value); }

    /// Throws if there is anything else.
    void finish();

private:
    template <typename T> void read(T &value)
    {
        if constexpr (std::is_signed_v<T>)
            value = readSigned();
        else if constexpr (std::is_enum_v<T>)
            value = static_cast<T>(readNumber(static_cast<quint64>(lastOf(value))));
        else if constexpr (std::is_unsigned_v<T>)
            value = static_cast<T>(readNumber(std::numeric_limits<T>::max()));
        else if constexpr (std::is_same_v<T, std::string>)
            readText(value);
        else if constexpr (isList<T>)
            readList(value);
        else if constexpr (isMap<T>)
            readMap(value);
        else if constexpr (isOptional<T>)
            readOptional(value);
        else
            describe(*this, value);
    }

    template <typename T> void readList(std::vector<T> &list)
    {
        static const std::size_t leastNumbers = FieldCounter::numbersOf<T>();
        const std::size_t count = readCount();
        if (count > m_numbers.size() / leastNumbers)
            fail();
        list.reserve(count);
        for (std::size_t index = 0; index < count; ++index)
            read(list.emplace_back());
    }
    template <typename T> void readMap(std::map<std::string, T> &map)
    {
        for (std::size_t count = readCount(); count != 0; --count) {
            std::string key;
            readText(key);
            read(map[std::move(key)]);
        }
    }
    template <typename T> void readOptional(std::optional<T> &value)
    {
        value.reset();
        if (readNumber(1) != 0)
            read(value.emplace());
    }

    [[noreturn]] void fail() const;
    /// Each element has at least one number.
    std::size_t readCount() { return readNumber(m_numbers.size()); }
    quint64 readNumber(quint64 most)
    {
        if (m_numbers.empty())
            fail();
        const auto first = static_cast<unsigned char>(m_numbers.front());
        m_numbers.remove_prefix(1);
        const quint64 number = first < 0x80 ? first : readLongNumber(first);
        if (number > most)
            fail();
        return number;
    }
    /// A number of several bytes, the first of which is \a first.
    quint64 readLongNumber(unsigned char first);
    qint64 readSigned();
    void readText(std::string &text);

    QString m_file;
    QByteArray m_parts[2];
    std::string_view m_numbers; ///< what has not been read
    std::string_view m_texts;   ///< what has not been read
};

} // namespace tavidoc
