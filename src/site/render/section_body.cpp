#include "site/render/section_body.h"

#include "site/link/addresses.h"
#include "site/link/page_names.h"
#include "site/record/html_tags.h"
#include "site/render/body_edits.h"
#include "site/render/open_elements.h"
#include "site/render/page_text.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace tavidoc {

namespace {

constexpr int s_deepestLevel = 6;

bool isHeading(std::string_view name)
{
    return name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
}

/// Whether the attribute \a attribute of the element \a element is the name of a place.
bool namesPlace(std::string_view element, std::string_view attribute)
{
    return attribute == "id" || (attribute == "name" && (element == "a" || element == "map"));
}

/// Attributes whose value is a list of ids.
constexpr std::string_view s_idLists[] = {
    "for", "headers", "list", "aria-controls", "aria-describedby", "aria-details", "aria-labelledby", "aria-owns",
};
/// Attributes whose value is the address of a file.
constexpr std::string_view s_fileAttributes[] = {"src", "poster", "data", "background"};

bool isOneOf(std::string_view name, const auto &names)
{
    return std::ranges::find(names, name) != std::end(names);
}

std::string anchorId(std::string_view address, std::string_view id)
{
    return std::string(sectionId(address)).append(":").append(id);
}

/// Makes the section of one page.
class SectionWriter
{
public:
    SectionWriter(std::string_view body, const SectionPage &page, const SectionTargets &targets)
        : m_body(body), m_page(page), m_targets(targets)
    {
    }

    [[nodiscard]] std::string section() &&;

private:
    /// A heading of the body.
    struct Heading
    {
        std::size_t begin; ///< the place of the level in its first tag
        std::size_t end;   ///< and in its last one; 0 without one
        int level;         ///< of its tag
    };

    void tag(const HtmlTag &tag);
    void heading(const HtmlTag &tag);
    void attributes(const HtmlTag &tag);
    void place(const AttributeReader &attribute);
    void idList(const AttributeReader &attribute);
    void levels();
    [[nodiscard]] std::optional<std::string> linkTarget(std::string_view value) const;
    [[nodiscard]] std::string placeTarget(std::string_view address, std::string_view fragment) const;
    void remove(std::size_t begin, std::size_t end) { m_edits.push_back({begin, end - begin, {}}); }
    void insert(std::size_t offset, std::string text) { m_edits.push_back({offset, 0, std::move(text)}); }
    void replace(const AttributeValue &value, std::string text)
    {
        m_edits.push_back({value.offset, value.length, std::move(text)});
    }

    std::string_view m_body;
    const SectionPage &m_page;
    const SectionTargets &m_targets;
    BodyEdits m_edits;
    OpenElements m_elements;
    std::vector<Heading> m_headings;
    bool m_isInHeading = false;
    std::unordered_set<std::string_view> m_ids; // that were used
    std::string_view m_tagId;                   // of the current tag
};

std::string SectionWriter::section() &&
{
    HtmlTags tags(m_body);
    while (tags.next()) {
        if (!tags.tag().name.empty())
            tag(tags.tag());
    }
    for (std::size_t at = tags.brokenTag(); at < m_body.size(); at = m_body.find('<', at + 1))
        m_edits.push_back({at, 1, "&lt;"});
    levels();
    std::string html;
    if (m_headings.empty() || m_headings.front().level != 1) {
        const std::string level = std::to_string(std::min<std::size_t>(m_page.level, s_deepestLevel));
        appendHtml(html, {"<h", level, " class=\"title\">", breakable(m_page.title), "</h", level, ">\n"});
    }
    html += edited(m_body, std::move(m_edits));
    html += tags.missingEnd();
    if (m_isInHeading)
        html += "</h6>"; // ends a heading of any level
    return html + m_elements.closingTags();
}

void SectionWriter::tag(const HtmlTag &tag)
{
    if (isHeading(tag.name))
        heading(tag);
    else if (tag.isClosing && !m_elements.close(tag.name))
        remove(tag.begin, tag.end);
    else if (!tag.isClosing)
        m_elements.open(tag.name, m_body[tag.end - 2] == '/');
    if (!tag.isClosing)
        attributes(tag);
}

void SectionWriter::heading(const HtmlTag &tag)
{
    if (!tag.isClosing) {
        m_headings.push_back({tag.begin + 2, 0, tag.name[1] - '0'});
        m_isInHeading = true;
    } else if (m_isInHeading) {
        m_headings.back().end = tag.begin + 3;
        m_isInHeading = false;
    } else {
        remove(tag.begin, tag.end);
    }
}

/// A page's own heading has the level of the page; the levels below it follow without gaps.
void SectionWriter::levels()
{
    const bool hasTitle = !m_headings.empty() && m_headings.front().level == 1;
    bool isUsed[s_deepestLevel + 1] = {};
    for (auto heading = m_headings.begin() + (hasTitle ? 1 : 0); heading != m_headings.end(); ++heading)
        isUsed[heading->level] = true;
    int newLevels[s_deepestLevel + 1] = {};
    auto level = static_cast<int>(std::min<std::size_t>(m_page.level, s_deepestLevel));
    const int pageLevel = level;
    for (int old = 1; old <= s_deepestLevel; ++old) {
        if (isUsed[old])
            level = std::min(level + 1, s_deepestLevel);
        newLevels[old] = level;
    }
    for (const Heading &heading : m_headings) {
        const bool isTitle = hasTitle && &heading == &m_headings.front();
        const std::string digit = std::to_string(isTitle ? pageLevel : newLevels[heading.level]);
        m_edits.push_back({heading.begin, 1, digit});
        if (heading.end != 0)
            m_edits.push_back({heading.end, 1, digit});
    }
}

void SectionWriter::attributes(const HtmlTag &tag)
{
    m_tagId = {};
    for (AttributeReader attribute(m_body, tag.begin); attribute.next();) {
        const std::string name = lowerCase(attribute.name());
        if (namesPlace(tag.name, name)) {
            place(attribute);
        } else if (name == "usemap" && attribute.text().starts_with('#')) {
            insert(attribute.value().offset + 1, anchorId(m_page.address, {}));
        } else if (isOneOf(name, s_idLists)) {
            idList(attribute);
        } else if (name == "href" || isOneOf(name, s_fileAttributes)) {
            if (std::optional<std::string> target = linkTarget(attribute.text()))
                replace(attribute.value(), std::move(*target));
        }
    }
}

void SectionWriter::place(const AttributeReader &attribute)
{
    const std::string_view id = attribute.text();
    const bool isNew = !id.empty() && m_ids.insert(id).second;
    if (!isNew && (id.empty() || id != m_tagId))
        return remove(attribute.begin(), attribute.end());
    m_tagId = id;
    insert(attribute.value().offset, anchorId(m_page.address, {}));
}

void SectionWriter::idList(const AttributeReader &attribute)
{
    std::string list;
    std::string_view rest = attribute.text();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(" \t\r\n"), rest.size());
        if (end > 0)
            list.append(list.empty() ? "" : " ").append(anchorId(m_page.address, rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    replace(attribute.value(), std::move(list));
}

/// Where a link or a picture with the address \a value leads on the single page; nothing if it stays as it is.
std::optional<std::string> SectionWriter::linkTarget(std::string_view value) const
{
    const std::size_t pathEnd = std::min(value.find_first_of("?#"), value.size());
    const std::size_t hash = value.find('#');
    const std::string_view fragment = hash == std::string_view::npos ? std::string_view() : value.substr(hash + 1);
    if (value.starts_with('#'))
        return placeTarget(m_page.address, fragment);
    if (value.empty() || pathEnd == 0 || value.starts_with('/') || !schemeOf(value).empty())
        return {};
    const std::optional<std::string> path = joinedPath(directoryOf(m_page.address), value.substr(0, pathEnd));
    if (!path)
        return {};
    const SharedLinks &shared = m_targets.shared;
    if (std::ranges::binary_search(shared.addresses, *path))
        return placeTarget(*path, fragment);
    if (const auto redirect = shared.settings.redirects.find(std::string(withoutPageSuffix(*path)));
        redirect != shared.settings.redirects.end())
        return placeTarget(redirect->second, {});
    if (*path == "index.htm" || *path == "index.html")
        return placeTarget(shared.firstPage, {});
    if (isSitePage(*path))
        return "#" + std::string(s_contentsId);
    if (m_targets.files.contains(*path))
        return m_targets.filesFolder + *path + std::string(value.substr(pathEnd));
    return {};
}

/// The link to \a fragment of the page at \a address, or to the page if it has no such place.
std::string SectionWriter::placeTarget(std::string_view address, std::string_view fragment) const
{
    const std::string anchor = anchorId(address, fragment);
    if (!fragment.empty() && m_targets.anchors.contains(anchor))
        return '#' + anchor;
    return '#' + std::string(sectionId(address));
}

} // namespace

std::string_view sectionId(std::string_view address)
{
    return withoutPageSuffix(address);
}

void addAnchors(std::string_view body, std::string_view address, std::unordered_set<std::string> &anchors)
{
    for (HtmlTags tags(body); tags.next();) {
        if (tags.tag().isClosing || tags.tag().name.empty())
            continue;
        for (AttributeReader attribute(body, tags.tag().begin); attribute.next();) {
            if (namesPlace(tags.tag().name, lowerCase(attribute.name())))
                anchors.insert(anchorId(address, attribute.text()));
        }
    }
}

std::string sectionBody(std::string_view body, const SectionPage &page, const SectionTargets &targets)
{
    return SectionWriter(body, page, targets).section();
}

} // namespace tavidoc
