#include "site/link/link_files.h"

#include "site/link/link_fields.h"
#include "site/record/field_reader.h"
#include "site/record/format_version.h"
#include "site/record/sealed_file.h"

#include <QCryptographicHash>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

const SealedFormat &formatOf(const RecordLinks &)
{
    static const SealedFormat format = {"TAVIDOCL", "the link of a record", FormatVersion::of<RecordLinks>()};
    return format;
}

const SealedFormat &formatOf(const SharedLinks &)
{
    static const SealedFormat format = {"TAVIDOCS", "the link of a site", FormatVersion::of<SharedLinks>()};
    return format;
}

template <typename Links> QByteArray encoded(const Links &links)
{
    FieldWriter fields;
    fields("links", links);
    return sealed(formatOf(links), fields.takeBytes());
}

template <typename Links> Links read(const QString &file)
{
    Links links;
    const SealedParts parts = readSealed(formatOf(links), file, SealedRead::All);
    FieldReader fields(parts.head, file);
    fields("links", links);
    fields.finish();
    return links;
}

} // namespace

QString linkFileName(const std::string &folder, const std::string &input)
{
    constexpr std::size_t most = 200; // bytes of the input's name: what a file system allows is a little more
    const std::string_view name = std::string_view(input).substr(input.rfind('/') + 1).substr(0, most);
    // The CMake function makes the same name. No folder has a "|".
    const QByteArray key = QByteArray::fromStdString(folder + '|' + input);
    const QByteArray hash = QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex().first(16);
    return QString::fromUtf8(name) + u'-' + QLatin1StringView(hash) + u".lnk"_s;
}

QString sharedLinkFileName()
{
    return u"site.lnk"_s;
}

QByteArray encodedLinks(const RecordLinks &links)
{
    return encoded(links);
}

QByteArray encodedLinks(const SharedLinks &links)
{
    return encoded(links);
}

RecordLinks readRecordLinks(const QString &file)
{
    return read<RecordLinks>(file);
}

SharedLinks readSharedLinks(const QString &file)
{
    return read<SharedLinks>(file);
}

} // namespace tavidoc
