#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/link/link_files.h"
#include "site/record/record_file.h"
#include "tests/site/sample_record.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

/// Two records, the second as small as possible.
RecordSet sampleSet()
{
    RecordWithBodies second;
    second.head.input = "b.h";
    return {sampleRecord(), second};
}

std::string dumped(const RecordSet &records)
{
    std::string text;
    for (const RecordWithBodies &record : records)
        text += dumpedRecord(record);
    return text;
}

/// The message of decoding \a bytes; empty when they are records.
std::string messageOf(const QByteArray &bytes)
{
    try {
        static_cast<void>(decodedRecords(bytes, u"x.tdr"_s));
    } catch (const HException &exception) {
        return exception.message().toStdString();
    }
    return {};
}

} // namespace

TEST(RecordFile, KeepsEveryField)
{
    const RecordSet records = sampleSet();
    const QByteArray bytes = encodedRecords(records);
    const RecordSet decoded = decodedRecords(bytes, u"x.tdr"_s);
    EXPECT_EQ(dumped(decoded), dumped(records));
    EXPECT_EQ(encodedRecords(decoded), bytes);
    EXPECT_EQ(decoded[0].head.pages[0].links[0].place.line, -3);
    EXPECT_EQ(decoded[0].bodies, records[0].bodies);
}

TEST(RecordFile, HeadsAreReadWithoutTheBodies)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"x.tdr"_s);
    QByteArray bytes = encodedRecords(sampleSet());
    bytes.back() ^= 1;
    writeWholeFile(file, bytes);
    const std::vector<Record> heads = readRecordHeads(file);
    ASSERT_EQ(heads.size(), 2U);
    EXPECT_EQ(heads[1].input, "b.h");
    EXPECT_THROW(static_cast<void>(readRecords(file)), HException);
    EXPECT_THROW(static_cast<void>(readRecordHeads(directory.path())), HException);
    EXPECT_THROW(static_cast<void>(readRecordHeads(directory.filePath(u"missing"_s))), HException);
}

TEST(RecordFile, MessagesSayWhatIsWrong)
{
    const QByteArray bytes = encodedRecords(sampleSet());
    const auto changed = [&](qsizetype at) {
        QByteArray copy = bytes;
        copy[at] = static_cast<char>(copy[at] ^ 0x40);
        return copy;
    };
    EXPECT_EQ(messageOf({}), "x.tdr: not a record");
    EXPECT_EQ(messageOf("<html>"), "x.tdr: not a record");
    EXPECT_EQ(messageOf(bytes.first(20)), "x.tdr: truncated");
    EXPECT_EQ(messageOf(bytes.chopped(1)), "x.tdr: truncated");
    EXPECT_EQ(messageOf(bytes + "x"), "x.tdr: damaged");
    EXPECT_EQ(messageOf(changed(8)), "x.tdr: a record of another version of the program");
    EXPECT_EQ(messageOf(changed(60)), "x.tdr: damaged");
    EXPECT_EQ(messageOf(changed(bytes.size() - 1)), "x.tdr: damaged");
    EXPECT_EQ(messageOf(encodedRecords({})), "x.tdr: damaged") << "a file holds at least one record";
}

TEST(RecordFile, EveryChangedBitIsNoticed)
{
    QByteArray bytes = encodedRecords(sampleSet());
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const char before = bytes[at];
        for (int bit = 0; bit < 8; ++bit) {
            bytes[at] = static_cast<char>(before ^ (1 << bit));
            ASSERT_NE(messageOf(bytes), "") << at << " " << bit;
        }
        bytes[at] = before;
    }
}

TEST(RecordFile, DamagedRecordsWithFittingChecksumsAreReadOrRefused)
{
    const QByteArray sample = encodedRecords(sampleSet());
    std::mt19937 numbers(1);
    const auto below = [&](qsizetype count) {
        return static_cast<qsizetype>(numbers() % static_cast<unsigned>(count));
    };
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = sample;
        for (qsizetype count = 1 + below(3); count != 0; --count) {
            const qsizetype at = samplePrefixSize + below(bytes.size() - samplePrefixSize);
            bytes[at] = static_cast<char>(numbers());
        }
        const std::string message = messageOf(withFittingPrefix(bytes));
        EXPECT_TRUE(message.empty() || message == "x.tdr: damaged") << message;
        refused += message.empty() ? 0 : 1;
    }
    EXPECT_GT(refused, 100);
    EXPECT_LT(refused, 300);
}

TEST(RecordFile, NumbersThatLeadOutsideAreRefused)
{
    using Change = std::function<void(RecordPage &)>;
    const std::pair<const char *, Change> rows[] = {
        {"a body outside of the bodies", [](RecordPage &page) { ++page.bodyLength; }},
        {"a body whose end overflows", [](RecordPage &page) { page.bodyOffset = UINT64_MAX; }},
        {"a heading outside of the body", [](RecordPage &page) { page.headings[0].offset = page.bodyLength; }},
        {"a heading of level 7", [](RecordPage &page) { page.headings[0].level = 7; }},
        {"a link outside of the body", [](RecordPage &page) { page.links[0].length = UINT64_MAX; }},
        {"links that overlap", [](RecordPage &page) { page.links.push_back(page.links[0]); }},
        {"a picture outside of the body", [](RecordPage &page) { page.images[0].offset = page.bodyLength; }},
        {"a file that is not listed", [](RecordPage &page) { page.place.file = 2; }},
    };
    for (const auto &[name, change] : rows) {
        RecordSet records = sampleSet();
        change(records[0].head.pages[1]);
        EXPECT_EQ(messageOf(encodedRecords(records)), "x.tdr: damaged") << name;
    }
    RecordSet records = sampleSet();
    records[0].head.contents[1].depth = 2;
    EXPECT_EQ(messageOf(encodedRecords(records)), "x.tdr: damaged") << "an entry below no entry";
}

TEST(RecordFile, LargeCountsAllocateNothing)
{
    const QByteArray sample = encodedRecords(sampleSet());
    // The head is an array of two byte strings; the first one begins with the number of records.
    const qsizetype numbers = samplePrefixSize + 3;
    ASSERT_EQ(sample.sliced(samplePrefixSize, 2), QByteArray("\x82\x58"));
    ASSERT_EQ(sample[numbers], 2);
    for (const char *replacement : {"FFFFFFFFFFFFFFFFFF01", "FFFFFFFF0F", "40"}) {
        QByteArray bytes = sample;
        const QByteArray count = QByteArray::fromHex(replacement);
        EXPECT_EQ(messageOf(withFittingPrefix(bytes.replace(numbers, count.size(), count))), "x.tdr: damaged");
    }
    QByteArray bytes = sample; // a string that is longer than the file
    bytes.replace(samplePrefixSize + 1, 9, QByteArray::fromHex("5B7FFFFFFFFFFFFFFF"));
    EXPECT_EQ(messageOf(withFittingPrefix(bytes)), "x.tdr: damaged");
}

TEST(LinkFile, KeepsEveryField)
{
    const QTemporaryDir directory;
    RecordLinks links = {"a.dg", "api", {}, {{"p.png", "api/p.png"}}};
    links.pages.push_back({3,
                           "api/a.htm",
                           "A",
                           {{"Top", "index.htm"}},
                           {{{"A", "a.htm"}, 1, true, false, true}},
                           std::nullopt,
                           LinkTarget{"B", "b.htm"},
                           {{1, "../b.htm", "B"}},
                           {{2, "p.png"}},
                           {},
                           {},
                           {{4, "f.htm"}}});
    SharedLinks shared;
    shared.settings.levels = {{"markup", CheckLevel::Off}};
    shared.settings.redirects = {{"old", "new"}};
    shared.settings.assets = {{"p", "q"}};
    shared.contents = {{{"A", "a.htm"}, 2}};
    shared.names = {{"f", "function", {"A", "a.htm"}, "f.htm"}};
    shared.addresses = {"a.htm"};
    shared.firstPage = "a.htm";
    const QString file = directory.filePath(linkFileName(links.folder, links.input));
    const QString sharedFile = directory.filePath(sharedLinkFileName());
    writeWholeFile(file, encodedLinks(links));
    writeWholeFile(sharedFile, encodedLinks(shared));
    EXPECT_EQ(encodedLinks(readRecordLinks(file)), encodedLinks(links));
    EXPECT_EQ(encodedLinks(readSharedLinks(sharedFile)), encodedLinks(shared));
    EXPECT_EQ(readSharedLinks(sharedFile).settings.redirects.at("old"), "new");
    EXPECT_THROW(static_cast<void>(readSharedLinks(file)), HException) << "a file of another kind";
    EXPECT_NE(linkFileName("a", "b/c.h"), linkFileName("", "b/c.h"));
    EXPECT_NE(linkFileName("", "a/c.h"), linkFileName("", "b/c.h"));
}

TEST(WholeFile, IsWrittenAgainOnlyWhenItChanged)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"f"_s);
    EXPECT_TRUE(updateWholeFile(file, "a"));
    EXPECT_FALSE(updateWholeFile(file, "a"));
    EXPECT_TRUE(updateWholeFile(file, "b"));
    EXPECT_TRUE(updateWholeFile(file, ""));
    EXPECT_FALSE(updateWholeFile(file, ""));
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{u"f"_s});
}
