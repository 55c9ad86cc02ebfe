#pragma once

#include "site/record/record_file.h"
#include "site/record/sealed_file.h"

#include <QtEndian>

#include <algorithm>

/// The size of the prefix of a record file.
inline constexpr qsizetype samplePrefixSize = 48;

/// A damaged record file with a prefix that fits it: magic, version, sizes and checksums.
inline QByteArray withFittingPrefix(QByteArray bytes)
{
    if (bytes.size() < samplePrefixSize)
        bytes.append(samplePrefixSize - bytes.size(), '\0');
    const qsizetype size = bytes.size() - samplePrefixSize;
    const auto stored = qFromLittleEndian<quint64>(bytes.constData() + 16);
    const auto headSize = static_cast<qsizetype>(std::min(stored, static_cast<quint64>(size)));
    const QByteArrayView parts = QByteArrayView(bytes).sliced(samplePrefixSize);
    const quint64 numbers[] = {static_cast<quint64>(headSize), static_cast<quint64>(size - headSize),
                               tavidoc::checksum(parts.first(headSize)), tavidoc::checksum(parts.sliced(headSize))};
    QByteArray prefix = tavidoc::encodedRecords({}).first(16); // magic and version
    for (const quint64 number : numbers) {
        const quint64 little = qToLittleEndian(number);
        prefix.append(reinterpret_cast<const char *>(&little), sizeof little);
    }
    return bytes.replace(0, samplePrefixSize, prefix);
}

/// A record in which every field has a value of its own.
inline tavidoc::RecordWithBodies sampleRecord()
{
    using namespace tavidoc;
    const std::string body = "<h1>Title</h1><p><a href=\"x.htm\">x</a> <img src=\"i.png\"></p>";
    RecordPage page;
    page.kind = RecordPageKind::Declaration;
    page.stem = "api/f";
    page.title = "Title";
    page.documentTitle = "Document";
    page.declaration = "function";
    page.qualifiedName = "n::f";
    page.brief = "<b>Brief</b>";
    page.group = "Group";
    page.place = {1, 7};
    page.bodyOffset = 0;
    page.bodyLength = body.size();
    page.headings = {{0, 1, "title", "Title"}};
    page.links = {{RecordLink::Kind::Resolved, true, 17, 20, "x y", "x", {0, -3}}};
    page.images = {{48, 5, "i.png", true, {1, 2}}};
    page.terms = {{"brief", 3}, {"title", 90}};
    page.excerpt = "Title x";
    page.isMember = true;
    page.overloads = {{"int,char*", "int a,char*b", "const &", "f-int"}};
    page.members = {{"enumerator", "n::E::A", "n::A", "enumerator.A", "One", {{"a", 15}}}};
    page.names = {{"n::g", RecordName::Use::Member, {3, 900}}};
    RecordWithBodies record;
    record.head.input = "manual/a.dg";
    record.head.folder = "api";
    record.head.title = "Document";
    record.head.files = {{"manual/a.dg", true}, {std::string("\xFF\n", 2), false}};
    record.head.findings = {{"markup", {0, 12}, "expected a brace"}};
    record.head.pages = {page, page};
    record.head.contents = {{RecordEntry::Kind::Title, true, 0, "", "Top", {0, 1}},
                            {RecordEntry::Kind::Include, false, 1, "b.xml", "", {0, 2}}};
    record.head.icons = {{"images/note.png", std::string("\x89PNG\0", 5)}};
    record.bodies = body;
    return record;
}
