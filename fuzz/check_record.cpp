// Checks record files.

#include "base/hexception.h"
#include "fuzz/promise.h"
#include "fuzz/subjects.h"
#include "site/record/record_file.h"
#include "tests/site/sample_record.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// Everything in the records, as bytes that do not depend on how numbers are written.
QByteArray readAgain(const RecordSet &records)
{
    return encodedRecords(decodedRecords(encodedRecords(records), u"again.tdr"_s));
}

void checkBytes(const QByteArray &bytes)
{
    constexpr std::size_t most = 1000; // bytes of text for each byte of a file: indentation and names of fields
    try {
        const RecordSet records = decodedRecords(bytes, u"x.tdr"_s);
        promise(!records.empty(), "a file holds a record");
        promise(readAgain(records) == encodedRecords(records), "records that can be read can be written and read");
        for (const RecordWithBodies &record : records)
            promise(dumpedRecord(record).size() <= most * static_cast<std::size_t>(bytes.size()), "a dump is short");
    } catch (const HException &exception) {
        promise(exception.message().startsWith("x.tdr: ") && !exception.message().contains('\n'),
                "a message is a line with the name of the file", exception.message().toStdString());
    }
}

} // namespace

void checkRecord(std::string_view input)
{
    const QByteArray bytes(input.data(), static_cast<qsizetype>(input.size()));
    checkBytes(bytes);
    checkBytes(withFittingPrefix(bytes));
}
