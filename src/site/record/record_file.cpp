#include "site/record/record_file.h"

#include "base/hexception.h"
#include "site/record/field_printer.h"
#include "site/record/field_reader.h"
#include "site/record/format_version.h"
#include "site/record/record_fields.h"
#include "site/record/sealed_file.h"

#include <algorithm>

namespace tavidoc {

/// A record in the head of a file.
struct StoredRecord
{
    std::uint64_t bodiesSize = 0; ///< of the part of the bodies that is its own
    Record record;
};

void describe(auto &fields, OneOf<StoredRecord> auto &stored)
{
    fields("bodiesSize", stored.bodiesSize);
    fields("record", stored.record);
}

namespace {

const SealedFormat &recordFormat()
{
    static const SealedFormat format = {"TAVIDOCR", "a record", FormatVersion::of<std::vector<StoredRecord>>()};
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

/// Whether \a parts, which are links or images of a page, are in order, disjoint and within its body.
template <typename Parts> bool areInOrder(const Parts &parts, const RecordPage &page, const Record &record)
{
    std::uint64_t end = 0;
    for (const auto &part : parts) {
        if (part.offset < end || !isWithin(part.offset, part.length, page.bodyLength) || !isValid(part.place, record))
            return false;
        end = part.offset + part.length;
    }
    return true;
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

bool isValid(const RecordPage &page, const StoredRecord &stored)
{
    const Record &record = stored.record;
    return isWithin(page.bodyOffset, page.bodyLength, stored.bodiesSize) && isValid(page.place, record) &&
           areHeadingsValid(page) && areInOrder(page.links, page, record) && areInOrder(page.images, page, record);
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
bool isValid(const StoredRecord &stored)
{
    const Record &record = stored.record;
    return std::ranges::all_of(record.findings, [&](const auto &finding) { return isValid(finding.place, record); }) &&
           std::ranges::all_of(record.pages, [&](const auto &page) { return isValid(page, stored); }) &&
           areEntriesValid(record);
}

/// The records in the head of the file \a name, whose bodies have \a bodiesSize bytes.
std::vector<StoredRecord> decodedHead(QByteArrayView head, std::uint64_t bodiesSize, const QString &name)
{
    std::vector<StoredRecord> records;
    FieldReader fields(head, name);
    fields("records", records);
    fields.finish();
    std::uint64_t left = bodiesSize;
    for (const StoredRecord &stored : records) {
        if (stored.bodiesSize > left || !isValid(stored))
            throw HException(name.toUtf8() + ": damaged");
        left -= stored.bodiesSize;
    }
    if (left != 0 || records.empty())
        throw HException(name.toUtf8() + ": damaged");
    return records;
}

RecordSet decodedParts(const SealedParts &parts, const QString &name)
{
    RecordSet records;
    const char *bodies = parts.bodies.constData();
    for (StoredRecord &stored : decodedHead(parts.head, static_cast<std::uint64_t>(parts.bodies.size()), name)) {
        records.push_back({std::move(stored.record), std::string(bodies, stored.bodiesSize)});
        bodies += stored.bodiesSize;
    }
    return records;
}

} // namespace

QByteArray encodedRecords(const RecordSet &records)
{
    std::vector<StoredRecord> stored;
    QByteArray bodies;
    for (const RecordWithBodies &record : records) {
        stored.push_back({record.bodies.size(), record.head});
        bodies.append(QByteArrayView(record.bodies));
    }
    FieldWriter fields;
    fields("records", stored);
    return sealed(recordFormat(), fields.takeBytes(), bodies);
}

std::vector<Record> readRecordHeads(const QString &file)
{
    const SealedParts parts = readSealed(recordFormat(), file, SealedRead::Head);
    std::vector<Record> heads;
    for (StoredRecord &stored : decodedHead(parts.head, parts.bodiesSize, file))
        heads.push_back(std::move(stored.record));
    return heads;
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
