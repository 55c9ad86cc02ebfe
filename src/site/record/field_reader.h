#pragma once

#include "site/record/field_writer.h"

#include <QByteArrayView>
#include <QCborStreamReader>
#include <QString>

#include <limits>
#include <utility>

namespace tavidoc {

/// Reads what FieldWriter wrote, checking types, ranges and sizes: a list or text may not be larger than what is left
/// of the bytes, so nothing is allocated that the size of the file does not justify.
class FieldReader
{
public:
    /// \a bytes must outlive the reader; \a file is its name in messages.
    FieldReader(QByteArrayView bytes, QString file);

    /// Throws HException "FILE: damaged" when the next items are not a \a value.
    template <typename T> void operator()(std::string_view, T &value) { read(value); }

    /// Throws if there are further items or bytes.
    void finish();

private:
    template <typename T> void read(T &value)
    {
        if constexpr (std::is_same_v<T, bool>)
            value = readBool();
        else if constexpr (std::is_enum_v<T>)
            value = static_cast<T>(readNumber(static_cast<quint64>(lastOf(value))));
        else if constexpr (std::is_unsigned_v<T>)
            value = static_cast<T>(readNumber(std::numeric_limits<T>::max()));
        else if constexpr (std::is_integral_v<T>)
            value = readSigned();
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
        const std::size_t count = readCount();
        list.reserve(std::min(count, remaining() / s_bytesPerElement));
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
        if (readBool())
            read(value.emplace());
    }

    [[noreturn]] void fail() const;
    /// The bytes that have not been read; each item has at least one.
    [[nodiscard]] std::size_t remaining() const;
    /// The size of a list, at most that of the remaining bytes.
    std::size_t readCount();
    quint64 readNumber(quint64 most);
    qint64 readSigned();
    bool readBool();
    void readText(std::string &text);

    static constexpr std::size_t s_bytesPerElement = 8; // assumed; a list of shorter ones grows

    QByteArrayView m_bytes;
    QString m_file;
    QCborStreamReader m_reader;
};

} // namespace tavidoc
