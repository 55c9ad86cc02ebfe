#pragma once

#include "site/record/record.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <string>
#include <vector>

namespace tavidoc {

/// The bytes of a record file (".tdr"): a prefix with format version, sizes and two checksums, the heads as CBOR, and
/// the bodies.
[[nodiscard]] QByteArray encodedRecords(const RecordSet &records);

/// The heads of a record file, without reading its bodies. Throws HException "FILE: ..." when the file cannot be
/// read, is damaged, truncated, of another version or not a record.
[[nodiscard]] std::vector<Record> readRecordHeads(const QString &file);

/// The whole records of a file, with their bodies. Throws as readRecordHeads().
[[nodiscard]] RecordSet readRecords(const QString &file);

/// As readRecords(), from \a bytes; \a name is that of the file in messages.
[[nodiscard]] RecordSet decodedRecords(QByteArrayView bytes, const QString &name);

/// A record as readable text, for `tavidoc-site dump`.
[[nodiscard]] std::string dumpedRecord(const RecordWithBodies &record);

} // namespace tavidoc
