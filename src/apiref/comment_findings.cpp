#include "apiref/comment_findings.h"

#include "apiref/reference_text.h"
#include "base/white_space.h"
#include "markup/markup_cursor.h"
#include "sourcebrowser/container.h"
#include "sourcebrowser/members.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// True when \a line has more than white space and asterisks.
bool hasText(std::string_view line)
{
    return std::ranges::any_of(line, [](char c) { return !isSpace(c) && c != '*'; });
}

} // namespace

bool tellUnusedText(const std::string &comment, const DocumentPlace &place, DocumentListener &listener)
{
    const std::string_view text = std::string_view(comment).substr(comment.starts_with('!') ? 1 : 0);
    const std::size_t firstEnd = std::min(text.find('\n'), text.size());
    const std::size_t lastBegin = text.rfind('\n');
    const bool isFirstUsed = hasText(text.substr(0, firstEnd));
    if (isFirstUsed)
        listener.finding({"comment-first-line", place,
                          "the text on the first line of a comment is not used: begin it on the next line"});
    const bool isLastUsed = lastBegin != std::string_view::npos && hasText(text.substr(lastBegin));
    if (isLastUsed)
        listener.finding({"comment-first-line",
                          {place.file, place.line + std::ranges::count(text, '\n')},
                          "the text on the last line of a comment is not used: write \"*/\" on a line of its own"});
    return isFirstUsed || isLastUsed;
}

void tellStrayComments(const QString &file, const std::vector<int> &commentLines, const SourceBrowserModel &model,
                       DocumentListener &listener)
{
    if (commentLines.empty())
        return;
    std::set<int> used;
    for (const SourceBrowserObject *object :
         model.chosen([](const SourceBrowserObject &candidate) { return candidate.documentation().startsWith(u'!'); }))
        used.insert(object->documentationLine());
    for (const int line : commentLines) {
        if (!used.contains(line))
            listener.finding(
                {"stray-comment",
                 {file, line},
                 "this comment documents nothing: expected a declaration directly after it (an overview begins "
                 "with \"/*! \\overview\")"});
    }
}

namespace {

/// The word with which \a text begins, after white space; that is removed from \a text, too.
std::string_view takeWord(std::string_view &text)
{
    text = text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
    const auto length = static_cast<std::size_t>(
        std::ranges::find_if_not(text, [](char c) { return isNameCharacter(c) || c == '_'; }) - text.begin());
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

/// The name of the macro that keeps the header \a text from being read twice: its first two directives, apart from
/// pragmas, are "#ifndef NAME" and "#define NAME". Empty if it has none.
std::string_view includeGuard(std::string_view text)
{
    std::string_view tested;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string_view line = trimmed(text.substr(begin, end - begin));
        begin = end + 1;
        if (!line.starts_with('#'))
            continue;
        line.remove_prefix(1);
        const std::string_view directive = takeWord(line);
        if (directive == "pragma")
            continue;
        if (!tested.empty())
            return directive == "define" && takeWord(line) == tested ? tested : std::string_view();
        if (directive != "ifndef")
            return {};
        tested = takeWord(line);
    }
    return {};
}

/// Whether \a macro only says something about declarations or the compiler, by its value or its name: it is empty, an
/// attribute, or the macro that exports a declaration.
bool isMacroForDeclarations(const SourceBrowserObject &macro)
{
    static constexpr QLatin1StringView values[] = {
        "__attribute__"_L1, "__declspec"_L1, "[["_L1, "extern"_L1, "__extension__"_L1,
    };
    static constexpr QLatin1StringView endings[] = {"_API"_L1, "_EXPORT"_L1, "_IMPORT"_L1, "_NO_EXPORT"_L1};
    const QString text = macro.text().trimmed();
    const qsizetype name = text.indexOf(macro.name());
    QStringView value = QStringView(text).mid(name < 0 ? text.size() : name + macro.name().size());
    if (value.startsWith(u'('))
        value = value.mid(value.indexOf(u')') + 1); // after the parameters
    value = value.trimmed();
    const auto begins = [value](QLatin1StringView each) { return value.startsWith(each); };
    const auto ends = [&macro](QLatin1StringView each) { return macro.name().endsWith(each); };
    return value.isEmpty() || std::ranges::any_of(values, begins) || std::ranges::any_of(endings, ends);
}

/// Whether readers would expect a comment before \a object. Names that begin with a parenthesis were made for what has
/// none. The macro \a guard keeps the header from being read twice.
bool isForReaders(const SourceBrowserObject &object, std::string_view guard)
{
    const QString &name = object.name();
    if (name.isEmpty() || name.startsWith(u'~'))
        return false;
    for (const SourceBrowserObject *outer = &object; outer != nullptr; outer = outer->container()) {
        const bool isRoot = outer->container() == nullptr;
        if (!isRoot && (outer->access() != SourceBrowserObject::Public || outer->name().startsWith(u'(')))
            return false;
    }
    switch (object.phylum()) {
    case SourceBrowserObject::Class:
    case SourceBrowserObject::Structure:
        return true;
    case SourceBrowserObject::Method: {
        const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
        return method == nullptr || !method->isDeleted;
    }
    case SourceBrowserObject::Macro:
        return !isMacroForDeclarations(object) && object.name() != QLatin1StringView(guard);
    default:
        return dynamic_cast<const SourceBrowserEnum *>(&object) != nullptr;
    }
}

/// What is the same for declarations of the same thing.
QString identity(const SourceBrowserObject &object, const SynopsisSource *source)
{
    QString text = object.qualifiedName();
    const auto *const method = dynamic_cast<const SourceBrowserMethod *>(&object);
    if (method == nullptr)
        return text;
    for (const SourceBrowserArgument &argument : method->arguments())
        text += u',' + argument.type.text;
    if (source != nullptr)
        return text + u')' + source->signature(*method).qualifiers;
    return method->isConst ? text + u'+' : text;
}

} // namespace

void tellUndocumented(const QString &file, std::string_view text, const SourceBrowserModel &model,
                      const SynopsisSource *source, DocumentListener &listener)
{
    std::set<QString> known; // documented, or reported
    for (const SourceBrowserObject *object :
         model.chosen([](const SourceBrowserObject &candidate) { return candidate.documentation().startsWith(u'!'); }))
        known.insert(identity(*object, source));
    if (known.empty())
        return;
    const auto isExpected = [guard = includeGuard(text)](const SourceBrowserObject &object) {
        return isForReaders(object, guard);
    };
    for (const SourceBrowserObject *object : model.chosen(isExpected)) {
        if (object->lines().first < 0 || !known.insert(identity(*object, source)).second)
            continue;
        std::string message(declarationKind(*object));
        message.append(" \"").append(qualifiedByColons(*object)).append("\" has no documentation comment");
        listener.finding({"undocumented", {file, object->lines().first + 1}, std::move(message)});
    }
}

std::string_view declarationKind(const SourceBrowserObject &object)
{
    switch (object.form()) {
    case SourceBrowserObject::Form::Union:
        return "union";
    case SourceBrowserObject::Form::Concept:
        return "concept";
    case SourceBrowserObject::Form::Alias:
        return "alias";
    case SourceBrowserObject::Form::DeductionGuide:
        return "deduction guide";
    case SourceBrowserObject::Form::Plain:
    case SourceBrowserObject::Form::ScopedEnumeration:
    case SourceBrowserObject::Form::Friend:
        break;
    }
    switch (object.phylum()) {
    case SourceBrowserObject::Class:
        return "class";
    case SourceBrowserObject::Method:
        return "function";
    case SourceBrowserObject::Variable:
        return "variable";
    case SourceBrowserObject::Typedef:
        return "typedef";
    case SourceBrowserObject::Structure:
        return "struct";
    case SourceBrowserObject::Namespace:
        return "namespace";
    case SourceBrowserObject::Macro:
        return "macro";
    case SourceBrowserObject::Unknown:
        break;
    }
    return dynamic_cast<const SourceBrowserEnum *>(&object) != nullptr ? "enum" : "";
}

} // namespace tavidoc
