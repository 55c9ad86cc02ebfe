#include "base/source_text.h"

#include <QFile>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavidoc {

namespace {

/// Closes a file descriptor at the end of a scope.
struct Descriptor
{
    explicit Descriptor(int descriptor) : number(descriptor) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }
    int number;
};

/// Reads to the end of the file; \a expectedSize bytes are read without a second allocation.
std::optional<QByteArray> readToEnd(int descriptor, qsizetype expectedSize)
{
    QByteArray bytes(expectedSize + 1, Qt::Uninitialized); // one more shows the end of the file
    qsizetype size = 0;
    for (;;) {
        if (size == bytes.size())
            bytes.resize(bytes.size() * 2);
        const ssize_t count = ::read(descriptor, bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        size += count;
    }
    bytes.truncate(size);
    return bytes;
}

/// How many bytes from \a at on are ASCII, a multiple of eight at the most.
const char *skipAscii(const char *at, const char *end)
{
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    while (end - at >= 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, at, sizeof bytes);
        if ((bytes & highBits) != 0)
            break;
        at += sizeof bytes;
    }
    return at;
}

/// The length of the well-formed sequence at \a at, 0 when there is none.
int sequenceLength(const char *at, const char *end)
{
    const auto byte = [at](int index) { return static_cast<unsigned char>(at[index]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || end - at < length)
        return 0;
    for (int index = 1; index < length; ++index) {
        if ((byte(index) & 0xC0) != 0x80)
            return 0;
    }
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xED && byte(1) > 0x9F;
    const bool beyond = lead == 0xF4 && byte(1) > 0x8F;
    return overlong || surrogate || beyond ? 0 : length;
}

/// The length of the white space character that \a text begins with, 0 when it begins with another.
std::size_t whiteSpaceLength(std::string_view text)
{
    if (text.empty())
        return 0;
    if (static_cast<unsigned char>(text.front()) < 0x80)
        return isSpace(text.front()) ? 1 : 0;
    // Next line, no-break space, ogham space, the spaces of general punctuation, ideographic space.
    constexpr std::string_view wide[] = {
        "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82", "\xE2\x80\x83",
        "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A",
        "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80",
    };
    for (const std::string_view space : wide) {
        if (text.starts_with(space))
            return space.size();
    }
    return 0;
}

} // namespace

QStringList *filesRead = nullptr;

std::optional<QByteArray> readRegularFile(const QString &name)
{
    if (filesRead != nullptr)
        filesRead->append(name);
    const QByteArray path = QFile::encodeName(name);
    if (path.contains('\0'))
        return std::nullopt;
    // Not blocking: opening a pipe must not wait for its writer.
    const Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.number < 0 || ::fstat(file.number, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readToEnd(file.number, status.st_size);
}

bool isUtf8(std::string_view bytes)
{
    const char *at = bytes.data();
    const char *const end = at + bytes.size();
    while ((at = skipAscii(at, end)) != end) {
        const int length = sequenceLength(at, end);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

QByteArray decodedSource(QByteArray bytes)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!isUtf8({bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        return QString::fromLatin1(bytes).toUtf8();
    if (bytes.startsWith(QByteArrayView(byteOrderMark)))
        bytes.remove(0, static_cast<qsizetype>(byteOrderMark.size()));
    return bytes;
}

void normalizeLineEnds(QByteArray &text)
{
    const qsizetype first = text.indexOf('\r'); // one byte is found faster than two
    if (first < 0)
        return;
    char *const begin = text.data();
    const char *const end = begin + text.size();
    char *to = begin + first;
    for (const char *from = to; from != end; ++from) {
        if (*from == '\r' && from + 1 != end && from[1] == '\n')
            continue;
        *to++ = *from;
    }
    text.truncate(to - begin);
}

std::string_view trimmedEnd(std::string_view text)
{
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return trimmedEnd(text);
}

std::string_view afterLeadingSpace(std::string_view text)
{
    while (const std::size_t length = whiteSpaceLength(text))
        text.remove_prefix(length);
    return text;
}

std::string simplified(std::string_view text)
{
    std::string result;
    text = afterWhiteSpace(text);
    while (!text.empty()) {
        if (whiteSpaceLength(text) == 0) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        text = afterWhiteSpace(text);
        if (!text.empty())
            result += ' ';
    }
    return result;
}

} // namespace tavidoc
