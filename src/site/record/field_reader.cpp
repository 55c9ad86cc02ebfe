#include "site/record/field_reader.h"

#include "base/hexception.h"

#include <QCborStreamReader>

namespace tavidoc {

namespace {

/// The byte string that comes next in \a reader, whose data is \a bytes. Nothing when it is something else.
std::optional<QByteArray> byteString(QCborStreamReader &reader, QByteArrayView bytes)
{
    // The writer makes strings of one chunk.
    if (!reader.isByteArray() || !reader.isLengthKnown())
        return std::nullopt;
    const qsizetype size = reader.currentStringChunkSize();
    if (size < 0 || size > bytes.size() - reader.currentOffset())
        return std::nullopt;
    QByteArray part(size, Qt::Uninitialized);
    const auto chunk = reader.readStringChunk(part.data(), size);
    if (chunk.status != QCborStreamReader::Ok || chunk.data != size)
        return std::nullopt;
    if (reader.readStringChunk(nullptr, 0).status != QCborStreamReader::EndOfString)
        return std::nullopt;
    return part;
}

} // namespace

FieldReader::FieldReader(QByteArrayView bytes, QString file) : m_file(std::move(file))
{
    QCborStreamReader reader(bytes.data(), bytes.size());
    if (!reader.isArray() || !reader.isLengthKnown() || reader.length() != std::size(m_parts) ||
        !reader.enterContainer())
        fail();
    for (QByteArray &part : m_parts) {
        std::optional<QByteArray> read = byteString(reader, bytes);
        if (!read)
            fail();
        part = std::move(*read);
    }
    if (!reader.leaveContainer() || reader.currentOffset() != bytes.size())
        fail();
    m_numbers = {m_parts[0].constData(), static_cast<std::size_t>(m_parts[0].size())};
    m_texts = {m_parts[1].constData(), static_cast<std::size_t>(m_parts[1].size())};
}

void FieldReader::finish()
{
    if (!m_numbers.empty() || !m_texts.empty())
        fail();
}

void FieldReader::fail() const
{
    throw HException(m_file.toUtf8() + ": damaged");
}

quint64 FieldReader::readLongNumber(unsigned char first)
{
    quint64 number = first & 0x7F;
    for (int shift = 7; shift < 64 && !m_numbers.empty(); shift += 7) {
        const auto byte = static_cast<unsigned char>(m_numbers.front());
        m_numbers.remove_prefix(1);
        number |= quint64(byte & 0x7F) << shift;
        if (byte < 0x80)
            return number;
    }
    fail();
}

qint64 FieldReader::readSigned()
{
    const quint64 bits = readNumber(std::numeric_limits<quint64>::max());
    return static_cast<qint64>((bits & 1) != 0 ? ~(bits >> 1) : bits >> 1);
}

void FieldReader::readText(std::string &text)
{
    const quint64 size = readNumber(m_texts.size());
    text.assign(m_texts.substr(0, size));
    m_texts.remove_prefix(size);
}

} // namespace tavidoc
