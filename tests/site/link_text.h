#pragma once

#include "site/link/link.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

/// Records made from a short text, and what linking makes of them as a text.
///
///     input docs/a.dg -> folder     begins a record; its lines are counted from here, from 1
///     title Text                    of the document
///     page STEM | TITLE             a page of markup; header: of a header
///     KIND STEM | QUALIFIED::NAME   the page of a declaration, KIND being function, class, ...; its title is the bare name
///     heading ID | TEXT             of the last page, and so on:
///     link TARGET                   captioned TARGET, resolved STEM, raw HREF, external ADDRESS
///     image FILE                    icon NAME
///     base NAME                     of the class of the last page
///     anchor NAME                   overload TYPES | HEADING: "const", " &" and " &&" may follow the types
///     row QUALIFIED::NAME | OUTER::NAME   an enumerator; its anchor is "row." and the bare name
///     member                        its declaration is in a class
///     text NAME                     code NAME, dot NAME, type NAME: a name in code
///     entry DEPTH STEM | TITLE      group DEPTH TITLE, include DEPTH X.xml, include-all DEPTH X.xml (with its root)
///     finding CHECK TEXT
class RecordText
{
public:
    static std::vector<tavidoc::Record> records(const std::string &text)
    {
        RecordText parser;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            parser.addLine(line.substr(std::min(line.find_first_not_of(' '), line.size())));
        return std::move(parser.m_records);
    }

private:
    using Kind = tavidoc::RecordLink::Kind;
    using Use = tavidoc::RecordName::Use;
    using EntryKind = tavidoc::RecordEntry::Kind;

    void addLine(const std::string &line)
    {
        const std::string word = line.substr(0, line.find(' '));
        const std::string rest = word.size() < line.size() ? line.substr(word.size() + 1) : "";
        if (word.empty())
            return;
        if (word == "input")
            return addRecord(rest);
        ++m_place.line;
        tavidoc::Record &record = m_records.back();
        if (word == "title")
            record.title = rest;
        else if (word == "finding")
            record.findings.push_back({rest.substr(0, rest.find(' ')), m_place, rest.substr(rest.find(' ') + 1)});
        else if (word == "entry" || word == "group" || word == "include" || word == "include-all")
            addEntry(word, rest);
        else if (!record.pages.empty() && addToPage(word, rest))
            return;
        else
            addPage(word, rest);
    }

    void addRecord(const std::string &rest)
    {
        const std::size_t arrow = rest.find(" -> ");
        tavidoc::Record &record = m_records.emplace_back();
        record.input = rest.substr(0, arrow);
        record.folder = arrow == rest.npos ? "" : rest.substr(arrow + 4);
        record.files = {{record.input, true}};
        m_place = {};
    }

    void addPage(const std::string &word, const std::string &rest)
    {
        tavidoc::RecordPage &page = m_records.back().pages.emplace_back();
        page.stem = left(rest);
        page.title = right(rest);
        page.place = m_place;
        page.documentTitle = m_records.back().title;
        if (word == "page" || word == "header") {
            page.kind = word == "page" ? tavidoc::RecordPageKind::Markup : tavidoc::RecordPageKind::Header;
            return;
        }
        page.kind = tavidoc::RecordPageKind::Declaration;
        page.declaration = word;
        page.qualifiedName = page.title;
        page.title = page.title.substr(page.title.rfind(':') + 1);
    }

    bool addToPage(const std::string &word, const std::string &rest)
    {
        tavidoc::RecordPage &page = m_records.back().pages.back();
        if (word == "heading")
            page.headings.push_back({0, 2, left(rest), right(rest)});
        else if (word == "link" || word == "captioned")
            page.links.push_back({Kind::Open, word == "captioned", 0, 0, rest, "", m_place});
        else if (word == "resolved")
            page.links.push_back({Kind::Resolved, false, 0, 0, rest, rest, m_place});
        else if (word == "raw" || word == "external")
            page.links.push_back({word == "raw" ? Kind::Raw : Kind::External, true, 0, 0, rest, "", m_place});
        else if (word == "overload")
            addOverload(page, rest);
        else if (word == "member")
            page.isMember = true;
        else if (word == "row")
            addRow(page, rest);
        else if (word == "anchor")
            page.anchors.push_back(rest);
        else if (word == "text" || word == "code" || word == "dot" || word == "type")
            page.names.push_back({rest,
                                  word == "text"   ? Use::Text
                                  : word == "code" ? Use::Code
                                  : word == "dot"  ? Use::Member
                                                   : Use::Type,
                                  {0}});
        else if (word == "image" || word == "icon")
            page.images.push_back({0, 0, rest, word == "icon", m_place});
        else if (word == "base")
            page.bases.push_back({0, 0, rest});
        else
            return false;
        return true;
    }

    static void addOverload(tavidoc::RecordPage &page, const std::string &rest)
    {
        std::string types = left(rest);
        std::string qualifiers;
        for (const std::string word : {"&&", "&", "const"}) {
            if (types != word && !types.ends_with(' ' + word))
                continue;
            types.resize(types.size() - std::min(types.size(), word.size() + 1));
            qualifiers = word + (qualifiers.empty() ? "" : ' ' + qualifiers);
        }
        page.overloads.push_back({types, types + " a", qualifiers, right(rest)});
    }

    static void addRow(tavidoc::RecordPage &page, const std::string &rest)
    {
        const std::string anchor = "row." + left(rest).substr(left(rest).rfind(':') + 1);
        page.members.push_back({"enumerator", left(rest), right(rest), anchor, "", {}});
        page.anchors.insert(std::ranges::lower_bound(page.anchors, anchor), anchor);
    }

    void addEntry(const std::string &word, const std::string &rest)
    {
        const std::string target = rest.substr(rest.find(' ') + 1);
        tavidoc::RecordEntry &entry = m_records.back().contents.emplace_back();
        entry.kind = word == "entry" ? EntryKind::Page : word == "group" ? EntryKind::Title : EntryKind::Include;
        entry.noRoot = word == "include";
        entry.depth = static_cast<std::uint32_t>(std::stoul(rest));
        (word == "group" ? entry.title : entry.target) = left(target);
        entry.title += right(target);
        entry.place = m_place;
    }

    static std::string left(const std::string &text) { return text.substr(0, text.find(" | ")); }
    static std::string right(const std::string &text)
    {
        return text.find(" | ") == text.npos ? "" : text.substr(text.find(" | ") + 3);
    }

    std::vector<tavidoc::Record> m_records;
    tavidoc::RecordPlace m_place;
};

/// Links the records of \a text; of files only \a files can be read.
inline tavidoc::LinkResult linked(const std::string &text, const tavidoc::SiteSettings &settings = {},
                                  const std::set<std::string> &files = {})
{
    const std::vector<tavidoc::Record> records = RecordText::records(text);
    return tavidoc::link(records, settings, [&files](const std::string &file) { return files.contains(file); });
}

/// "FILE:LINE: TEXT [CHECK]" for each finding.
inline std::string findingsOf(const tavidoc::LinkResult &result)
{
    std::string text;
    for (const tavidoc::Finding &finding : result.findings) {
        text += finding.file + (finding.line > 0 ? ':' + std::to_string(finding.line) : "") +
                (finding.column > 0 ? ':' + std::to_string(finding.column) : "") + ": " + finding.text + " [" +
                finding.check + "]\n";
    }
    return text;
}

/// The contents, indented: "TITLE" or "TITLE <ADDRESS>".
inline std::string contentsOf(const tavidoc::LinkResult &result)
{
    std::string text;
    for (const tavidoc::ContentsEntry &entry : result.shared.contents) {
        text += std::string(2 * std::size_t(entry.depth), ' ') + entry.target.title;
        text += (entry.target.address.empty() ? "" : " <" + entry.target.address + '>') + '\n';
    }
    return text;
}

/// "PAGE NAME: ADDRESS" for each name in code that becomes a link.
inline std::string namesOf(const std::string &records, const tavidoc::LinkResult &result)
{
    const std::vector<tavidoc::Record> all = RecordText::records(records);
    std::string text;
    for (std::size_t record = 0; record < all.size(); ++record) {
        for (const tavidoc::PageLinks &page : result.records[record].pages) {
            for (const tavidoc::ResolvedName &name : page.names)
                text += page.address + ' ' + all[record].pages[page.page].names[name.name].name + ": " + name.address +
                        '\n';
        }
    }
    return text;
}

/// "PAGE NUMBER: ADDRESS", with the caption in brackets, for each link, picture and base that changes, "PAGE derived:
/// NAME <ADDRESS>" for each derived class, and "FILE => ADDRESS" for each file that is copied.
inline std::string linksOf(const tavidoc::LinkResult &result)
{
    std::string text;
    for (const tavidoc::RecordLinks &record : result.records) {
        for (const tavidoc::PageLinks &page : record.pages) {
            for (const tavidoc::ResolvedLink &link : page.links) {
                text += page.address + ' ' + std::to_string(link.link) + ": " + link.address;
                text += (link.caption.empty() ? "" : " [" + link.caption + ']') + '\n';
            }
            for (const tavidoc::ResolvedImage &image : page.images)
                text += page.address + " picture " + std::to_string(image.image) + ": " + image.address + '\n';
            for (const tavidoc::ResolvedBase &base : page.bases)
                text += page.address + " base " + std::to_string(base.base) + ": " + base.address + '\n';
            for (const tavidoc::LinkTarget &derived : page.derived)
                text += page.address + " derived: " + derived.title + " <" + derived.address + ">\n";
        }
        for (const tavidoc::CopiedFile &file : record.images)
            text += file.source + " => " + file.address + '\n';
    }
    return text;
}
