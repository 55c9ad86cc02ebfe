#include "reading/source_line_reader.h"

#include "base/source_text.h"
#include "base/whole_file.h"

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
    if (bytes.empty() || !isAscii(bytes)) {
        line = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
        return true;
    }
    // Nearly all lines of headers are ASCII. They are widened into the memory of the line before.
    line.resize(static_cast<qsizetype>(bytes.size()));
    auto *const units = reinterpret_cast<char16_t *>(line.data());
    for (std::size_t index = 0; index < bytes.size(); ++index)
        units[index] = static_cast<unsigned char>(bytes[index]);
    return true;
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
