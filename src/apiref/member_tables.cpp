#include "apiref/member_tables.h"

#include "apiref/comment_findings.h"
#include "apiref/comment_markup.h"
#include "apiref/reference_text.h"
#include "base/white_space.h"
#include "sourcebrowser/class_head.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// What a section holds, in the order of the sections.
enum Kind : std::size_t
{
    Namespaces,
    Types,
    Constructors,
    Functions,
    Signals,
    Slots,
    Operators,
    Data,
    Constants,
    KindCount
};

constexpr std::array<std::string_view, KindCount> s_titles = {"Namespaces", "Types",   "Constructors and Destructor",
                                                              "Functions",  "Signals", "Slots",
                                                              "Operators",  "Data",    "Constants"};

constexpr std::array<std::string_view, 3> s_accesses = {"", "Protected ", "Private "};

constexpr std::size_t s_longestDetailedHeading = 120; // in bytes
constexpr std::size_t s_shownEnumerators = 3;         // of an enumeration without a name

std::size_t accessIndex(SourceBrowserObject::Access access)
{
    return access == SourceBrowserObject::Private ? 2 : access == SourceBrowserObject::Protected ? 1 : 0;
}

bool isClass(const SourceBrowserObject *object)
{
    const SourceBrowserObject::Phylum phylum = object == nullptr ? SourceBrowserObject::Namespace : object->phylum();
    return phylum == SourceBrowserObject::Class || phylum == SourceBrowserObject::Structure;
}

bool isOperator(const QString &name)
{
    constexpr QLatin1StringView word = "operator"_L1;
    return name.startsWith(word) && name.size() > word.size() && name[word.size()] != u'_' &&
           !name[word.size()].isLetterOrNumber();
}

/// Whether \a object has one value only: static or in a namespace, and const itself rather than what it points to.
bool isConstant(const SourceBrowserObject &object, const SynopsisSource &source)
{
    const auto *const variable = dynamic_cast<const SourceBrowserVariable *>(&object);
    if (variable == nullptr || (isClass(object.container()) && !variable->isStatic))
        return false;
    if (source.hasWord(object, u"constexpr"))
        return true;
    const QString &type = variable->type().text;
    const qsizetype last = type.lastIndexOf("const"_L1);
    return last >= 0 && !variable->type().hasInsertion() && type.indexOf(u'*', last) < 0 &&
           type.indexOf(u'&', last) < 0;
}

Kind kindOf(const SourceBrowserObject &member, const QString &constructor, const SynopsisSource &source)
{
    switch (member.phylum()) {
    case SourceBrowserObject::Namespace:
        return Namespaces;
    case SourceBrowserObject::Method:
        if (isOperator(member.name()))
            return Operators;
        if (const SynopsisSource::Section section = source.section(member); section != SynopsisSource::Section::Plain)
            return section == SynopsisSource::Section::Signals ? Signals : Slots;
        return member.name() == constructor || member.name().startsWith(u'~') ? Constructors : Functions;
    case SourceBrowserObject::Variable:
    case SourceBrowserObject::Macro:
        return isConstant(member, source) ? Constants : Data;
    default:
        return Types;
    }
}

/// Whether \a object is a structure or union without a name and \a next, the member after it, is not a variable of
/// that type: its members are those of the container around it.
bool isTransparent(const SourceBrowserObject &object, const SourceBrowserObject *next)
{
    const auto *const container = dynamic_cast<const SourceBrowserContainer *>(&object);
    if (container == nullptr || !container->isAnonymous())
        return false;
    const auto *const variable = dynamic_cast<const SourceBrowserVariable *>(next);
    return variable == nullptr || !variable->type().text.contains("{...}"_L1);
}

/// Calls \a visit for the members of \a container and of those of them that \a enters holds for, in the order of the
/// header.
template <typename Visit, typename Enters>
void visitMembers(const SourceBrowserContainer &container, const Visit &visit, const Enters &enters)
{
    struct Level
    {
        const SourceBrowserContainer *container;
        std::size_t next;
    };
    std::vector<Level> levels = {{&container, 0}};
    while (!levels.empty()) {
        const SourceBrowserContainer::Members &members = levels.back().container->members();
        const std::size_t index = levels.back().next++;
        if (index >= members.size()) {
            levels.pop_back();
            continue;
        }
        if (members[index] == nullptr)
            continue;
        const SourceBrowserObject *const next = index + 1 < members.size() ? members[index + 1].get() : nullptr;
        const auto *const inner = dynamic_cast<const SourceBrowserContainer *>(members[index].get());
        if (inner != nullptr && enters(*inner, next))
            levels.push_back({inner, 0});
        visit(*members[index]);
    }
}

/// The name of \a enumeration; without one, its first enumerators.
std::string enumerationName(const SourceBrowserEnum &enumeration, const SynopsisSource &source)
{
    const QString &name = enumeration.name();
    if (name != SourceBrowserContainer::anonymousName() || enumeration.enumerators().isEmpty())
        return name.toStdString();
    const std::vector<SynopsisSource::Enumerator> all = source.enumerators(enumeration);
    QString shown = u"{ "_s;
    for (std::size_t index = 0; index < std::min(all.size(), s_shownEnumerators); ++index)
        shown += (index > 0 ? ", "_L1 : ""_L1) + all[index].name;
    return (shown + (all.size() > s_shownEnumerators ? u", \u2026 }"_s : u" }"_s)).toStdString();
}

bool isDocumented(const SourceBrowserObject &object)
{
    if (!object.trailingComment().isEmpty())
        return true;
    const QString &comment = object.documentation();
    return comment.startsWith(u'!') && hasInnerText({reinterpret_cast<const char16_t *>(comment.utf16()),
                                                     static_cast<std::size_t>(comment.size())});
}

/// The small letters and digits of \a text.
QString letters(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c.isLetterOrNumber())
            result += c.toLower();
    }
    return result;
}

/// Whether \a object is a macro without a value whose name contains \a file, as letters() returns it.
bool isGuard(const SourceBrowserObject &object, const QString &file)
{
    return object.phylum() == SourceBrowserObject::Macro && object.text().trimmed().endsWith(object.name()) &&
           letters(object.name()).contains(file);
}

} // namespace

std::vector<MemberSection> memberSections(const SourceBrowserContainer &container,
                                          const std::vector<const SourceBrowserObject *> &members,
                                          const SynopsisSource &source)
{
    const QString bareName = container.name().left(container.name().indexOf(u'<')); // of a specialisation, too
    const QString constructor = isClass(&container) ? constructorName(bareName) : QString();
    std::array<MemberSection, s_accesses.size() * KindCount> all;
    for (const SourceBrowserObject *const member : members)
        all[accessIndex(member->declaredAccess()) * KindCount + kindOf(*member, constructor, source)].members.push_back(
            member);
    std::vector<MemberSection> sections;
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (all[index].members.empty())
            continue;
        all[index].title.append(s_accesses[index / KindCount]).append(s_titles[index % KindCount]);
        sections.push_back(std::move(all[index]));
    }
    return sections;
}

std::vector<const SourceBrowserObject *> visibleMembers(const SourceBrowserContainer &container)
{
    std::vector<const SourceBrowserObject *> members;
    visitMembers(
        container, [&members](const SourceBrowserObject &member) { members.push_back(&member); },
        [](const SourceBrowserContainer &inner, const SourceBrowserObject *next) {
            return isTransparent(inner, next);
        });
    return members;
}

MemberCaption memberCaption(const SourceBrowserObject &member, const SynopsisSource &source)
{
    MemberCaption caption{{}, member.name().toStdString(), {}};
    if (const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&member)) {
        const SynopsisSource::Signature signature = source.signature(*method);
        caption.after = signature.arguments.toStdString();
        if (!signature.qualifiers.isEmpty())
            caption.after += ' ' + signature.qualifiers.toStdString();
    } else if (member.phylum() != SourceBrowserObject::Variable) {
        caption.before.append(declarationKind(member)).append(" ");
    }
    if (const auto *const enumeration = dynamic_cast<const SourceBrowserEnum *>(&member))
        caption.name = enumerationName(*enumeration, source);
    if (isClass(member.container()) && source.hasWord(member, u"static"))
        caption.before = "static ";
    return caption;
}

namespace {

/// What distinguishes \a object from others of its name: a function's name and arguments, else the kind and the name.
std::string heading(const SourceBrowserObject &object, const SynopsisSource &source)
{
    const MemberCaption caption = memberCaption(object, source);
    if (object.phylum() == SourceBrowserObject::Method)
        return caption.name + caption.after;
    return std::string(declarationKind(object)) + ' ' + caption.name + caption.after;
}

/// \a plain, the heading of \a object, with the template head and the constraint.
std::string detailedHeading(const SourceBrowserObject &object, const std::string &plain, const SynopsisSource &source)
{
    const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
    if (method == nullptr)
        return plain;
    const SynopsisSource::Signature signature = source.signature(*method);
    std::string text = signature.templateHeads.toStdString();
    text.append(text.empty() ? "" : " ").append(plain);
    return text.append(signature.constraint.isEmpty() ? "" : " ").append(signature.constraint.toStdString());
}

/// The indices of \a texts, those of equal ones together, in order.
std::vector<std::vector<std::size_t>> groupsOfEqual(const std::vector<std::string> &texts)
{
    std::map<std::string_view, std::vector<std::size_t>> byText;
    for (std::size_t index = 0; index < texts.size(); ++index)
        byText[texts[index]].push_back(index);
    std::vector<std::vector<std::size_t>> groups;
    groups.reserve(byText.size());
    for (auto &[text, group] : byText)
        groups.push_back(std::move(group));
    return groups;
}

} // namespace

std::vector<std::string> sharedHeadings(const std::vector<const SourceBrowserObject *> &objects,
                                        const SynopsisSource &source)
{
    std::vector<std::string> headings;
    headings.reserve(objects.size());
    for (const SourceBrowserObject *const object : objects)
        headings.push_back(heading(*object, source));
    for (const std::vector<std::size_t> &group : groupsOfEqual(headings)) {
        std::vector<std::string> detailed;
        detailed.reserve(group.size());
        for (const std::size_t index : group)
            detailed.push_back(detailedHeading(*objects[index], headings[index], source));
        const bool isShort = std::ranges::all_of(
            detailed, [](const std::string &text) { return text.size() <= s_longestDetailedHeading; });
        if (!isShort || std::ranges::count(detailed, detailed.front()) == std::ssize(detailed))
            continue;
        for (std::size_t at = 0; at < group.size(); ++at)
            headings[group[at]] = std::move(detailed[at]);
    }
    for (const std::vector<std::size_t> &group : groupsOfEqual(headings)) {
        const std::string count = " of " + std::to_string(group.size()) + ')';
        for (std::size_t at = 0; at < group.size() && group.size() > 1; ++at)
            headings[group[at]] += " (" + std::to_string(at + 1) + count;
    }
    return headings;
}

std::string baseName(std::string_view base)
{
    std::string name;
    std::size_t angles = 0;
    for (const char c : base) {
        angles += c == '<' ? 1 : 0;
        if (angles == 0 && !isSpace(c))
            name += c;
        angles -= c == '>' && angles > 0 ? 1 : 0;
    }
    return name;
}

std::vector<const SourceBrowserObject *> undocumentedDeclarations(const SourceBrowserContainer &root,
                                                                  const QString &file)
{
    const QString guard = letters(file);
    std::vector<const SourceBrowserObject *> found;
    const auto visit = [&](const SourceBrowserObject &object) {
        const auto *const container = dynamic_cast<const SourceBrowserContainer *>(&object);
        const bool isListed = object.phylum() != SourceBrowserObject::Namespace &&
                              object.declaredAccess() != SourceBrowserObject::Private && !isDocumented(object) &&
                              (container == nullptr || !container->isAnonymous()) && !isGuard(object, guard);
        if (isListed)
            found.push_back(&object);
    };
    const auto enters = [](const SourceBrowserContainer &inner, const SourceBrowserObject *) {
        return inner.declaredAccess() != SourceBrowserObject::Private || isDocumented(inner);
    };
    visitMembers(root, visit, enters);
    std::ranges::stable_sort(found, {}, [](const SourceBrowserObject *object) { return object->lines().first; });
    return found;
}

} // namespace tavidoc
