#include "reading/source_line_reader.h"

#include "base/large_memory.h"
#include "base/source_text.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tavidoc {

namespace {

bool isAscii(std::string_view bytes)
{
    unsigned char bits = 0;
    for (const char byte : bytes)
        bits |= static_cast<unsigned char>(byte);
    return bits < 0x80;
}

void widen(std::string_view ascii, char16_t *units)
{
    for (std::size_t index = 0; index < ascii.size(); ++index)
        units[index] = static_cast<unsigned char>(ascii[index]);
}

} // namespace

SourceLineReader::SourceLineReader(const Path &path) : m_path(path)
{
    std::optional<QByteArray> bytes = readRegularFile(path.given());
    m_wasRead = bytes.has_value();
    if (!bytes)
        return;
    m_text = decodedSource(*std::move(bytes));
    normalizeLineEnds(m_text);
}

SourceLineReader::SourceLineReader(Path path, QByteArray text) : m_path(std::move(path)), m_text(std::move(text)) {}

bool SourceLineReader::readLine(QString &line)
{
    std::string_view bytes;
    if (!readLine(bytes)) {
        line = QString();
        return false;
    }
    if (!m_units)
        prepareUnits();
    char16_t *const units = m_units.get() + (bytes.data() - m_text.constData());
    auto size = static_cast<qsizetype>(bytes.size());
    if (!m_isAscii && isAscii(bytes)) {
        widen(bytes, units);
    } else if (!m_isAscii) {
        const QString decoded = QString::fromUtf8(bytes.data(), size);
        size = decoded.size(); // at most the number of bytes
        std::copy_n(decoded.utf16(), size, units);
    }
    line = QString::fromRawData(reinterpret_cast<const QChar *>(units), size);
    return true;
}

/// Most headers are ASCII, and then all their lines are decoded at once.
void SourceLineReader::prepareUnits()
{
    const std::string_view text(m_text.constData(), static_cast<std::size_t>(m_text.size()));
    m_units = std::make_unique_for_overwrite<char16_t[]>(text.size());
    preferHugePages(m_units.get(), text.size() * sizeof(char16_t));
    m_isAscii = isAscii(text);
    if (m_isAscii)
        widen(text, m_units.get());
}

bool SourceLineReader::readLine(std::string_view &line)
{
    line = {};
    const qsizetype left = m_text.size() - m_offset;
    if (left == 0)
        return false;
    const char *const begin = m_text.constData() + m_offset;
    const void *const lineEnd = std::memchr(begin, '\n', static_cast<std::size_t>(left));
    const qsizetype length = lineEnd == nullptr ? left : static_cast<const char *>(lineEnd) - begin;
    line = {begin, static_cast<std::size_t>(length)};
    m_offset += lineEnd == nullptr ? length : length + 1;
    ++m_lineNumber;
    return true;
}

} // namespace tavidoc
