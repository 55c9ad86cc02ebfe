#include "apiref/comment_findings.h"
#include "apiref/reference_pages.h"
#include "apiref/reference_text.h"
#include "base/text_escape.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tavidoc {

namespace {

/// What distinguishes \a object from others of its name: a function's name and arguments, else the kind and the name.
std::string sharedHeading(const SourceBrowserObject &object)
{
    if (object.phylum() == SourceBrowserObject::Method)
        return object.description(SourceBrowserObject::TightParenthesis | SourceBrowserObject::StripUnderscores)
            .toStdString();
    return std::string(declarationKind(object)) + ' ' + object.name().toStdString();
}

/// The last component of \a name, which is qualified with dots.
std::string_view lastComponent(std::string_view name)
{
    return name.substr(name.rfind('.') + 1);
}

} // namespace

/// Makes the pages of all declarations, those of one stem together, in the order of the header.
void ReferencePages::makeSharedPages()
{
    TextMap<std::size_t> places; // in pages, by stem
    std::vector<std::vector<const Documented *>> pages;
    for (const Documented &declaration : m_documented) {
        const auto [place, isNew] = places.try_emplace(declaration.stem, pages.size());
        if (isNew)
            pages.emplace_back();
        pages[place->second].push_back(&declaration);
    }
    for (std::vector<const Documented *> &page : pages) {
        std::ranges::stable_sort(page, {}, &Documented::line);
        makeSharedPage(page);
    }
}

/// Makes the page of \a declarations, which have one stem. When they are several, each has a heading.
void ReferencePages::makeSharedPage(const std::vector<const Documented *> &declarations)
{
    const Documented &first = *declarations.front();
    Finished finished{first.line, qualifiedByColons(*first.object), {}, {}};
    openPage(first);
    m_pages.setTitle(finished.name);
    for (const Documented *const declaration : declarations) {
        if (declarations.size() > 1) {
            m_blocks.text() += "<h2>";
            appendEscaped(m_blocks.text(), sharedHeading(*declaration->object));
            m_blocks.text() += "</h2>";
        }
        std::string brief = writeText(*declaration);
        if (brief.empty() || !finished.description.empty())
            continue;
        finished.description = std::move(brief);
        finished.facts = m_facts ? m_facts->brief() : BriefFacts();
    }
    if (finished.description.empty())
        finished.description = firstSentence(m_blocks.firstParagraph());
    if (m_facts)
        m_facts->setBrief(finished.description);
    m_finished.insert_or_assign(first.stem, std::move(finished));
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
