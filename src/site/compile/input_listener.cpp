#include "site/compile/input_listener.h"

#include "base/white_space.h"
#include "markup/member_groups.h"
#include "site/compile/html_places.h"
#include "site/compile/unknown_tags.h"
#include "site/record/html_tags.h"
#include "site/search/terms.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

constexpr std::size_t s_longestExcerpt = 2000; // bytes

/// The beginning of \a text, plain text, on one line.
std::string excerptOf(std::string_view text)
{
    std::size_t end = std::min(text.size(), s_longestExcerpt);
    if (end < text.size()) {
        const std::size_t space = text.substr(0, end).find_last_of(" \n");
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80)
            --end; // not inside a character
        if (space != std::string_view::npos && space > s_longestExcerpt / 2)
            end = space;
    }
    std::string excerpt(trimmed(text.substr(0, end)));
    std::ranges::replace(excerpt, '\n', ' ');
    return excerpt;
}

/// Removes \a line, which readers do not see, from \a text.
void removeLine(std::string &text, std::string_view line)
{
    const std::size_t begin = text.rfind(line);
    if (begin != std::string::npos && (begin == 0 || text[begin - 1] == '\n'))
        text.erase(begin, std::min(line.size() + 1, text.size() - begin));
}

/// \a html on one line, without links and images, which mean something on its own page only.
std::string briefLine(std::string_view html)
{
    std::string line;
    std::size_t begin = 0;
    HtmlTags tags(html);
    while (tags.next()) {
        const HtmlTag &tag = tags.tag();
        if (tag.name != "a" && tag.name != "img")
            continue;
        line += html.substr(begin, tag.begin - begin);
        begin = tag.end;
    }
    return simplified(line += html.substr(begin));
}

std::vector<RecordTerm> termsOf(const RecordPage &page, const DocumentPage &told, const BodyReader::Result &body)
{
    TermCollector terms;
    terms.add(TermField::Name, page.qualifiedName);
    terms.add(TermField::Title, page.title);
    for (const RecordHeading &heading : body.headings)
        terms.add(TermField::Heading, heading.text);
    if (!told.brief.empty()) {
        DocumentPage brief;
        brief.body = told.brief;
        terms.add(TermField::Brief, BodyReader(brief).read().text);
    }
    terms.add(TermField::Body, body.text);
    return terms.takeTerms();
}

RecordMember recorded(const DocumentMember &member, std::string_view body)
{
    DocumentPage description;
    description.body = body.substr(member.offset, member.length);
    const std::string text = BodyReader(description).read().text;
    TermCollector terms;
    terms.add(TermField::Name, member.qualifiedName);
    terms.add(TermField::Brief, text);
    return {member.kind, member.qualifiedName, member.outerName, member.anchor, excerptOf(text), terms.takeTerms()};
}

RecordPageKind pageKind(DocumentPageKind kind)
{
    switch (kind) {
    case DocumentPageKind::Markup:
        return RecordPageKind::Markup;
    case DocumentPageKind::Header:
        return RecordPageKind::Header;
    case DocumentPageKind::Declaration:
        return RecordPageKind::Declaration;
    }
    return RecordPageKind::Markup;
}

RecordLink::Kind linkKind(DocumentLink::Kind kind)
{
    switch (kind) {
    case DocumentLink::Kind::InDocument:
        return RecordLink::Kind::Resolved;
    case DocumentLink::Kind::Elsewhere:
        return RecordLink::Kind::Open;
    case DocumentLink::Kind::External:
        return RecordLink::Kind::External;
    }
    return RecordLink::Kind::Open;
}

/// \a texts, tightened, with "," between them.
std::string tightList(const std::vector<std::string> &texts)
{
    std::string list;
    for (const std::string &text : texts)
        list.append(list.empty() ? "" : ",").append(tightened(text));
    return list;
}

RecordOverload recorded(const DocumentOverload &overload, const std::vector<RecordHeading> &headings)
{
    RecordOverload result = {tightList(overload.types), tightList(overload.parameters), overload.qualifiers, {}};
    const auto heading = std::ranges::lower_bound(headings, overload.heading, {}, &RecordHeading::offset);
    if (overload.hasHeading && heading != headings.end() && heading->offset == overload.heading)
        result.heading = heading->id;
    return result;
}

} // namespace

InputListener::InputListener(const QString &input) : m_files(input)
{
    m_record.head.input = input.toStdString();
}

RecordPlace InputListener::place(const DocumentPlace &place)
{
    return {place.file.isEmpty() ? 0 : m_files.indexOf(place.file), place.line};
}

void InputListener::page(const DocumentPage &told)
{
    BodyReader::Result body = BodyReader(told).read();
    RecordPage page;
    page.kind = pageKind(told.kind);
    page.stem = told.stem;
    page.title = told.title;
    page.documentTitle = told.documentTitle;
    page.declaration = told.declaration;
    page.qualifiedName = told.qualifiedName;
    page.brief = briefLine(told.brief);
    page.group = told.group;
    page.place = place(told.place);
    page.bodyOffset = m_record.bodies.size();
    page.bodyLength = told.body.size();
    m_record.bodies += told.body;
    if (told.kind == DocumentPageKind::Header)
        removeLine(body.text, MemberGroups::s_unassigned);
    page.terms = termsOf(page, told, body);
    page.headings = std::move(body.headings);
    page.excerpt = excerptOf(body.text);
    page.anchors = std::move(body.anchors);
    addLinks(page, told, std::move(body.links));
    addImages(page, told, std::move(body.images));
    tellUnknownTags(
        told, [this](const DocumentPlace &at, const std::string &text) { addFinding("unknown-tag", place(at), text); });
    page.names = std::move(body.names);
    for (const DocumentListing &listing : told.listings) {
        if (!listing.isColoured)
            page.listings.push_back({listing.offset, listing.length, listing.language});
    }
    page.isMember = told.isMember;
    for (const DocumentOverload &overload : told.overloads)
        page.overloads.push_back(recorded(overload, page.headings));
    for (const DocumentBase &base : told.bases)
        page.bases.push_back({base.offset, base.length, base.name});
    for (const DocumentMember &member : told.members)
        page.members.push_back(recorded(member, told.body));
    noteReplacedPage(page);
    m_record.head.pages.push_back(std::move(page));
}

void InputListener::addLinks(RecordPage &page, const DocumentPage &told, std::vector<RecordLink> raw)
{
    HtmlPlaces places(told);
    for (RecordLink &link : raw)
        link.place = place(places.at(link.offset));
    for (const DocumentLink &link : told.links) {
        page.links.push_back({.kind = linkKind(link.kind),
                              .hasCaption = link.hasCaption,
                              .offset = link.offset,
                              .length = link.length,
                              .target = link.target,
                              .page = link.kind == DocumentLink::Kind::InDocument ? link.page : std::string(),
                              .place = place(link.place)});
        if (link.heading)
            m_headingLinks.push_back({m_record.head.pages.size(), link.offset, *link.heading});
    }
    const auto middle = static_cast<std::ptrdiff_t>(page.links.size());
    page.links.insert(page.links.end(), std::make_move_iterator(raw.begin()), std::make_move_iterator(raw.end()));
    std::ranges::inplace_merge(page.links, page.links.begin() + middle, {}, &RecordLink::offset);
}

void InputListener::addImages(RecordPage &page, const DocumentPage &told, std::vector<RecordImage> raw)
{
    HtmlPlaces places(told);
    for (RecordImage &image : raw)
        image.place = place(places.at(image.offset));
    for (const DocumentImage &image : told.images)
        page.images.push_back({image.offset, image.length, image.source, image.isIcon, place(image.place)});
    const auto middle = static_cast<std::ptrdiff_t>(page.images.size());
    page.images.insert(page.images.end(), std::make_move_iterator(raw.begin()), std::make_move_iterator(raw.end()));
    std::ranges::inplace_merge(page.images, page.images.begin() + middle, {}, &RecordImage::offset);
}

/// Reports a page of markup with the name of an earlier one. The generator reports those of declarations.
void InputListener::noteReplacedPage(const RecordPage &page)
{
    const auto [before, isNew] = m_lines.try_emplace(page.stem, page.place.line);
    if (!isNew && page.kind == RecordPageKind::Markup)
        addFinding("duplicate-page", page.place,
                   "page \"" + page.stem + "\" replaces the one that begins on line " + std::to_string(before->second));
    before->second = page.place.line;
}

void InputListener::contentsLine(std::string_view line, const DocumentPlace &at)
{
    m_contents.push_back({std::string(line), place(at)});
}

void InputListener::icon(std::string_view name, const QByteArray &bytes)
{
    m_record.head.icons.push_back({"images/" + std::string(name) + ".png", bytes.toStdString()});
}

void InputListener::file(const QString &name, bool wasFound)
{
    m_files.add(name, wasFound);
}

void InputListener::finding(const DocumentFinding &finding)
{
    addFinding(finding.check, place(finding.place), finding.text);
    m_record.head.findings.back().isRaised = finding.isRaised;
}

void InputListener::message(const Message &message)
{
    if (message.file.empty())
        return; // told as a finding, with its position
    static constexpr std::string_view unknown = ": unknown command";
    const std::string_view general = message.kind == Message::Kind::Error ? "markup" : "markup-warning";
    std::string text = message.text;
    if (text.starts_with('\\') && text.ends_with(unknown))
        text += m_suggestions.about(std::string_view(message.text).substr(1, text.size() - unknown.size() - 1));
    addFinding(message.check.empty() ? general : message.check,
               place({QString::fromStdString(message.file), message.line}), text);
}

void InputListener::addFinding(std::string_view check, const RecordPlace &place, std::string_view text)
{
    m_record.head.findings.push_back({std::string(check), place, simplified(text)});
}

RecordWithBodies InputListener::takeRecord()
{
    Record &head = m_record.head;
    resolveHeadings();
    resolveLinks();
    readContents();
    std::ranges::sort(head.icons, {}, &RecordIcon::name);
    if (!head.pages.empty())
        head.title = head.pages.back().kind == RecordPageKind::Header ? head.pages.back().title
                                                                      : head.pages.back().documentTitle;
    head.files = m_files.takeFiles();
    return std::move(m_record);
}

/// Finds the ids of the headings that links of the generator lead to.
void InputListener::resolveHeadings()
{
    std::vector<RecordPage> &pages = m_record.head.pages;
    std::unordered_map<std::string_view, const RecordPage *> byStem; // of equal stems the last counts
    for (const RecordPage &page : pages)
        byStem.insert_or_assign(page.stem, &page);
    for (const HeadingLink &noted : m_headingLinks) {
        const auto link = std::ranges::lower_bound(pages[noted.page].links, noted.offset, {}, &RecordLink::offset);
        const auto target = byStem.find(link->page);
        if (target == byStem.end())
            continue;
        const std::vector<RecordHeading> &headings = target->second->headings;
        const auto heading = std::ranges::lower_bound(headings, noted.heading, {}, &RecordHeading::offset);
        if (heading != headings.end() && heading->offset == noted.heading)
            link->anchor = heading->id;
    }
}

/// Resolves the links to pages of the document by their names, and leaves those open that lead to no page.
void InputListener::resolveLinks()
{
    const auto stemOf = [](std::string_view target) {
        return std::string(target.ends_with(".htm") ? target.substr(0, target.size() - 4) : target);
    };
    for (RecordPage &page : m_record.head.pages) {
        for (RecordLink &link : page.links) {
            if (link.kind == RecordLink::Kind::Open && m_lines.contains(stemOf(link.target))) {
                link.kind = RecordLink::Kind::Resolved;
                link.page = stemOf(link.target);
            } else if (link.kind == RecordLink::Kind::Resolved && !m_lines.contains(link.page)) {
                link.kind = RecordLink::Kind::Open;
                link.page.clear();
            }
        }
    }
}

void InputListener::readContents()
{
    m_record.head.contents = contentsEntries(
        m_contents, [this](const std::string &stem) { return m_lines.contains(stem); },
        [this](const RecordPlace &place, std::string_view text) { addFinding("contents-xml", place, text); });
}

} // namespace tavidoc
