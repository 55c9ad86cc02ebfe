#include "site/record/record_file.h"

#include "base/hexception.h"
#include "site/record/field_printer.h"
#include "site/record/field_reader.h"
#include "site/record/format_version.h"
#include "site/record/record_fields.h"
#include "site/record/sealed_file.h"

#include <algorithm>

namespace tavidoc {

namespace {

const SealedFormat &recordFormat()
{
    static const SealedFormat format = {"TAVIDOCR", "a record", FormatVersion::of<Record>()};
    return format;
}

/// Whether [offset, offset + length) is within \a size bytes.
bool isWithin(std::uint64_t offset, std::uint64_t length, std::uint64_t size)
{
    return offset <= size && length <= size - offset;
}

bool isValid(const RecordPlace &place, const Record &record)
{
    return place.file < record.files.size() || (place.file == 0 && place.line == 0);
}

/// Whether \a parts, which are links, images or listings of a page, are in order, disjoint and within its body.
template <typename Parts> bool areInOrder(const Parts &parts, const RecordPage &page)
{
    std::uint64_t end = 0;
    for (const auto &part : parts) {
        if (part.offset < end || !isWithin(part.offset, part.length, page.bodyLength))
            return false;
        end = part.offset + part.length;
    }
    return true;
}

template <typename Parts> bool arePlacesValid(const Parts &parts, const Record &record)
{
    return std::ranges::all_of(parts, [&](const auto &part) { return isValid(part.place, record); });
}

bool areHeadingsValid(const RecordPage &page)
{
    std::uint64_t offset = 0;
    for (const RecordHeading &heading : page.headings) {
        if (heading.offset < offset || heading.offset >= page.bodyLength || heading.level < 1 || heading.level > 6)
            return false;
        offset = heading.offset;
    }
    return true;
}

bool isValid(const RecordPage &page, const Record &record, std::uint64_t bodiesSize)
{
    return isWithin(page.bodyOffset, page.bodyLength, bodiesSize) && isValid(page.place, record) &&
           areHeadingsValid(page) && areInOrder(page.links, page) && arePlacesValid(page.links, record) &&
           areInOrder(page.images, page) && arePlacesValid(page.images, record) && areInOrder(page.listings, page);
}

bool areEntriesValid(const Record &record)
{
    std::uint32_t most = 0;
    for (const RecordEntry &entry : record.contents) {
        if (entry.depth > most || !isValid(entry.place, record))
            return false;
        most = entry.depth + 1;
    }
    return true;
}

/// Whether all numbers that refer to something refer to something that exists.
bool isValid(const Record &record, std::uint64_t bodiesSize)
{
    return std::ranges::all_of(record.findings, [&](const auto &finding) { return isValid(finding.place, record); }) &&
           std::ranges::all_of(record.pages, [&](const auto &page) { return isValid(page, record, bodiesSize); }) &&
           areEntriesValid(record);
}

/// What the head of a file holds.
struct DecodedHead
{
    std::vector<std::uint64_t> bodiesSizes; ///< of each record, the part of the bodies that is its own
    std::vector<Record> records;
};

/// The head of the file \a name.
DecodedHead decodedHead(const SealedParts &parts, const QString &name)
{
    DecodedHead head;
    FieldReader fields(parts.head, name);
    fields("bodiesSizes", head.bodiesSizes);
    std::uint64_t left = parts.bodiesSize;
    for (const std::uint64_t size : head.bodiesSizes) {
        fields("record", head.records.emplace_back());
        if (size > left || !isValid(head.records.back(), size))
            throw HException(name.toUtf8() + ": damaged");
        left -= size;
    }
    fields.finish();
    if (left != 0 || head.records.empty())
        throw HException(name.toUtf8() + ": damaged");
    return head;
}

RecordSet decodedParts(const SealedParts &parts, const QString &name)
{
    DecodedHead head = decodedHead(parts, name);
    RecordSet records;
    const char *bodies = parts.bodies.constData();
    for (std::size_t index = 0; index < head.records.size(); ++index) {
        const std::uint64_t size = head.bodiesSizes[index];
        records.push_back({std::move(head.records[index]), std::string(bodies, size)});
        bodies += size;
    }
    return records;
}

} // namespace

QByteArray encodedRecords(const RecordSet &records)
{
    std::vector<std::uint64_t> bodiesSizes;
    QByteArray bodies;
    for (const RecordWithBodies &record : records) {
        bodiesSizes.push_back(record.bodies.size());
        bodies.append(QByteArrayView(record.bodies));
    }
    FieldWriter fields;
    fields("bodiesSizes", bodiesSizes);
    for (const RecordWithBodies &record : records)
        fields("record", record.head);
    return sealed(recordFormat(), fields.takeBytes(), bodies);
}

std::vector<Record> readRecordHeads(const QString &file)
{
    return decodedHead(readSealed(recordFormat(), file, SealedRead::Head), file).records;
}

RecordSet readRecords(const QString &file)
{
    return decodedParts(readSealed(recordFormat(), file, SealedRead::All), file);
}

RecordSet decodedRecords(QByteArrayView bytes, const QString &name)
{
    return decodedParts(unsealed(recordFormat(), bytes, name), name);
}

std::string dumpedRecord(const RecordWithBodies &record)
{
    FieldPrinter printer;
    printer("record", record.head);
    printer("bodies", record.bodies);
    return printer.takeText();
}

} // namespace tavidoc
