#include "apiref/comment_markup.h"
#include "apiref/member_tables.h"
#include "apiref/reference_pages.h"
#include "apiref/reference_text.h"
#include "base/text_escape.h"
#include "markup/member_groups.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tavidoc {

namespace {

/// The last component of \a name, which is qualified with dots.
std::string_view lastComponent(std::string_view name)
{
    return name.substr(name.rfind('.') + 1);
}

} // namespace

/// Makes the pages of all declarations, those of one stem together, in the order of the header. The tables of members
/// need the descriptions of these, so the pages with containers are made last, the innermost first.
void ReferencePages::makeSharedPages()
{
    struct Page
    {
        std::vector<Documented *> declarations;
        std::ptrdiff_t containerDepth = -1; // -1 without a container
    };
    TextMap<std::size_t> places; // in pages, by stem
    std::vector<Page> pages;
    std::vector<std::string> stems;
    for (Documented &declaration : m_documented) {
        const auto [place, isNew] = places.try_emplace(declaration.stem, pages.size());
        if (isNew) {
            pages.emplace_back();
            stems.push_back(declaration.stem);
        }
        Page &page = pages[place->second];
        page.declarations.push_back(&declaration);
        m_byObject.emplace(declaration.object, &declaration);
        if (dynamic_cast<const SourceBrowserContainer *>(declaration.object) != nullptr)
            page.containerDepth = std::ranges::count(declaration.stem, '.');
    }
    const auto rank = [](const Page &page) { return page.containerDepth < 0 ? PTRDIFF_MIN : -page.containerDepth; };
    std::ranges::stable_sort(pages, {}, rank);
    for (Page &page : pages) {
        std::ranges::stable_sort(page.declarations, {}, &Documented::line);
        makeSharedPage(page.declarations);
    }
    MemberGroups::orderByUse(stems);
}

/// Makes the page of \a declarations, which have one stem. When they are several, each has a heading.
void ReferencePages::makeSharedPage(const std::vector<Documented *> &declarations)
{
    const Documented &first = *declarations.front();
    Finished finished{first.line, qualifiedByColons(*first.object), {}, {}};
    openPage(first);
    m_rows.clear();
    m_rowIds.clear();
    m_pages.setTitle(finished.name);
    std::vector<const SourceBrowserObject *> objects;
    objects.reserve(declarations.size());
    for (const Documented *const declaration : declarations)
        objects.push_back(declaration->object);
    const std::vector<std::string> headings = sharedHeadings(objects, *m_source);
    if (declarations.size() > 1)
        writeSharedHeading(first);
    const Documented *described = nullptr; // whose description is that of the page
    for (std::size_t index = 0; index < declarations.size(); ++index) {
        Documented &declaration = *declarations[index];
        if (declarations.size() > 1)
            declaration.heading = m_blocks.text().size();
        if (m_facts)
            tellOverload(*declaration.object, declaration.heading);
        if (declaration.heading)
            m_blocks.text().append("<h2>").append(escapedText(headings[index])).append("</h2>");
        if (writeShared(declaration) && described == nullptr)
            described = &declaration;
    }
    if (described == nullptr) {
        const auto any = std::ranges::find_if(declarations, [](auto *each) { return !each->description.empty(); });
        described = any == declarations.end() ? &first : *any;
    }
    m_sharedHeading.clear();
    finished.description = described->description;
    finished.facts = described->facts;
    if (m_facts)
        m_facts->setBrief(finished.description);
    m_finished.insert_or_assign(first.stem, std::move(finished));
}

/// Writes the heading with which the comment of \a first begins, if it has one, above the headings of all declarations.
/// Comments that begin with the same heading do not repeat it.
void ReferencePages::writeSharedHeading(const Documented &first)
{
    const std::string markup = commentMarkup(first.object->documentation().toStdString(), first.name);
    m_sharedHeading = leadingHeading(markup);
    if (m_sharedHeading.empty())
        return;
    m_blocks.text() += "<h1>";
    appendEscaped(m_blocks.text(), m_sharedHeading);
    m_blocks.text() += "</h1>";
}

/// Appends what the page of \a declaration says about it, and notes its description. True when that is a `\brief`.
bool ReferencePages::writeShared(Documented &declaration)
{
    m_blocks.forgetFirstParagraph();
    declaration.description = writeText(declaration);
    const bool hasBrief = !declaration.description.empty();
    if (hasBrief && m_facts)
        declaration.facts = m_facts->brief();
    else if (!hasBrief)
        declaration.description = firstSentence(m_blocks.firstParagraph());
    if (const auto *const container = dynamic_cast<const SourceBrowserContainer *>(declaration.object)) {
        appendMembers(*container);
        appendBases(*container);
    } else if (const auto *const enumeration = dynamic_cast<const SourceBrowserEnum *>(declaration.object)) {
        appendEnumerators(*enumeration);
    }
    return hasBrief;
}

/// The page of the declaration \a name, qualified with dots, as seen from \a scope outwards; null when none of these
/// scopes has it. A class's own name means the class, not its constructors.
const std::string *ReferencePages::stemFrom(std::string scope, const std::string &name) const
{
    while (!scope.empty()) {
        std::string qualified = scope;
        qualified.append(".").append(name);
        const auto found = m_stems.find(qualified);
        if (found != m_stems.end() && lastComponent(scope) != name)
            return &found->second;
        const std::size_t dot = scope.rfind('.');
        scope.resize(dot == std::string::npos ? 0 : dot);
    }
    return nullptr;
}

} // namespace tavidoc
