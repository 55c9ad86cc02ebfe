#include "reading/source_line_reader.h"

#include "base/source_text.h"
#include "base/whole_file.h"

#include <QStringDecoder>

#include <cstring>
#include <utility>

namespace tavidoc {

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
    // Decoded into the memory of the line before.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QByteArrayView encoded(bytes.data(), static_cast<qsizetype>(bytes.size()));
    line.resize(decoder.requiredSpace(encoded.size()));
    const QChar *const end = decoder.appendToBuffer(line.data(), encoded);
    line.truncate(end - line.constData());
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
