#pragma once

#include "site/record/field_writer.h"
#include "site/record/record.h"

namespace tavidoc {

constexpr RecordLink::Kind lastOf(RecordLink::Kind)
{
    return RecordLink::Kind::Raw;
}
constexpr RecordName::Use lastOf(RecordName::Use)
{
    return RecordName::Use::Type;
}
constexpr RecordPageKind lastOf(RecordPageKind)
{
    return RecordPageKind::Declaration;
}
constexpr RecordEntry::Kind lastOf(RecordEntry::Kind)
{
    return RecordEntry::Kind::Include;
}

void describe(auto &fields, OneOf<RecordPlace> auto &place)
{
    fields("file", place.file);
    fields("line", place.line);
}

void describe(auto &fields, OneOf<RecordFile> auto &file)
{
    fields("name", file.name);
    fields("found", file.found);
}

void describe(auto &fields, OneOf<RecordFinding> auto &finding)
{
    fields("check", finding.check);
    fields("place", finding.place);
    fields("text", finding.text);
    fields("isRaised", finding.isRaised);
}

void describe(auto &fields, OneOf<RecordHeading> auto &heading)
{
    fields("offset", heading.offset);
    fields("level", heading.level);
    fields("id", heading.id);
    fields("text", heading.text);
    fields("hasId", heading.hasId);
}

void describe(auto &fields, OneOf<RecordLink> auto &link)
{
    fields("kind", link.kind);
    fields("hasCaption", link.hasCaption);
    fields("offset", link.offset);
    fields("length", link.length);
    fields("target", link.target);
    fields("page", link.page);
    fields("place", link.place);
    fields("anchor", link.anchor);
}

void describe(auto &fields, OneOf<RecordImage> auto &image)
{
    fields("offset", image.offset);
    fields("length", image.length);
    fields("source", image.source);
    fields("isIcon", image.isIcon);
    fields("place", image.place);
}

void describe(auto &fields, OneOf<RecordListing> auto &listing)
{
    fields("offset", listing.offset);
    fields("length", listing.length);
    fields("language", listing.language);
}

void describe(auto &fields, OneOf<RecordBase> auto &base)
{
    fields("offset", base.offset);
    fields("length", base.length);
    fields("name", base.name);
}

void describe(auto &fields, OneOf<RecordTerm> auto &term)
{
    fields("text", term.text);
    fields("weight", term.weight);
}

void describe(auto &fields, OneOf<RecordName> auto &name)
{
    fields("name", name.name);
    fields("use", name.use);
    fields("offsets", name.offsets);
}

void describe(auto &fields, OneOf<RecordOverload> auto &overload)
{
    fields("types", overload.types);
    fields("parameters", overload.parameters);
    fields("qualifiers", overload.qualifiers);
    fields("heading", overload.heading);
}

void describe(auto &fields, OneOf<RecordMember> auto &member)
{
    fields("kind", member.kind);
    fields("qualifiedName", member.qualifiedName);
    fields("outerName", member.outerName);
    fields("anchor", member.anchor);
    fields("excerpt", member.excerpt);
    fields("terms", member.terms);
}

void describe(auto &fields, OneOf<RecordPage> auto &page)
{
    fields("kind", page.kind);
    fields("stem", page.stem);
    fields("title", page.title);
    fields("documentTitle", page.documentTitle);
    fields("declaration", page.declaration);
    fields("qualifiedName", page.qualifiedName);
    fields("brief", page.brief);
    fields("group", page.group);
    fields("place", page.place);
    fields("bodyOffset", page.bodyOffset);
    fields("bodyLength", page.bodyLength);
    fields("headings", page.headings);
    fields("links", page.links);
    fields("images", page.images);
    fields("terms", page.terms);
    fields("excerpt", page.excerpt);
    fields("listings", page.listings);
    fields("anchors", page.anchors);
    fields("bases", page.bases);
    fields("isMember", page.isMember);
    fields("overloads", page.overloads);
    fields("names", page.names);
    fields("members", page.members);
}

void describe(auto &fields, OneOf<RecordEntry> auto &entry)
{
    fields("kind", entry.kind);
    fields("noRoot", entry.noRoot);
    fields("depth", entry.depth);
    fields("target", entry.target);
    fields("title", entry.title);
    fields("place", entry.place);
}

void describe(auto &fields, OneOf<RecordIcon> auto &icon)
{
    fields("name", icon.name);
    fields("bytes", icon.bytes);
}

void describe(auto &fields, OneOf<Record> auto &record)
{
    fields("input", record.input);
    fields("folder", record.folder);
    fields("title", record.title);
    fields("files", record.files);
    fields("findings", record.findings);
    fields("pages", record.pages);
    fields("contents", record.contents);
    fields("icons", record.icons);
}

} // namespace tavidoc
