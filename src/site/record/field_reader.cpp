#include "site/record/field_reader.h"

#include "base/hexception.h"

namespace tavidoc {

FieldReader::FieldReader(QByteArrayView bytes, QString file)
    : m_bytes(bytes), m_file(std::move(file)), m_reader(bytes.data(), bytes.size())
{
    if (!m_reader.isArray() || !m_reader.enterContainer())
        fail();
}

void FieldReader::finish()
{
    if (m_reader.hasNext() || !m_reader.leaveContainer() || m_reader.currentOffset() != m_bytes.size())
        fail();
}

void FieldReader::fail() const
{
    throw HException(m_file.toUtf8() + ": damaged");
}

std::size_t FieldReader::remaining() const
{
    return static_cast<std::size_t>(m_bytes.size() - m_reader.currentOffset());
}

std::size_t FieldReader::readCount()
{
    return readNumber(remaining());
}

quint64 FieldReader::readNumber(quint64 most)
{
    if (!m_reader.isUnsignedInteger())
        fail();
    const quint64 number = m_reader.toUnsignedInteger();
    if (number > most || !m_reader.next())
        fail();
    return number;
}

qint64 FieldReader::readSigned()
{
    constexpr quint64 most = std::numeric_limits<qint64>::max();
    if (!m_reader.isNegativeInteger())
        return static_cast<qint64>(readNumber(most));
    // The distance from -1: that of the smallest number is the largest number.
    const quint64 distance = static_cast<quint64>(m_reader.toNegativeInteger()) - 1;
    if (distance > most || !m_reader.next())
        fail();
    return -1 - static_cast<qint64>(distance);
}

bool FieldReader::readBool()
{
    if (!m_reader.isBool())
        fail();
    const bool value = m_reader.toBool();
    if (!m_reader.next())
        fail();
    return value;
}

void FieldReader::readText(std::string &text)
{
    // The writer makes strings of one chunk.
    if (!m_reader.isByteArray() || !m_reader.isLengthKnown())
        fail();
    const qsizetype size = m_reader.currentStringChunkSize();
    if (size < 0 || static_cast<std::size_t>(size) > remaining())
        fail();
    text.resize(static_cast<std::size_t>(size));
    const auto chunk = m_reader.readStringChunk(text.data(), size);
    if (chunk.status != QCborStreamReader::Ok || chunk.data != size)
        fail();
    if (m_reader.readStringChunk(nullptr, 0).status != QCborStreamReader::EndOfString)
        fail();
}

} // namespace tavidoc
