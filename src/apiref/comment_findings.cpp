#include "apiref/comment_findings.h"

#include "apiref/reference_text.h"
#include "base/white_space.h"
#include "sourcebrowser/container.h"
#include "sourcebrowser/members.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace tavidoc {

namespace {

/// Whether \a macro is defined as nothing: it only says that something is so, as the macro that keeps a header from
/// being read twice does.
bool isEmptyMacro(const SourceBrowserObject &macro)
{
    return macro.text().trimmed().endsWith(macro.name());
}

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

/// Whether readers would expect a comment before \a object. Names that begin with a parenthesis were made for what has
/// none.
bool isForReaders(const SourceBrowserObject &object)
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
        return !isEmptyMacro(object);
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

void tellUndocumented(const QString &file, const SourceBrowserModel &model, const SynopsisSource *source,
                      DocumentListener &listener)
{
    std::set<QString> known; // documented, or reported
    for (const SourceBrowserObject *object :
         model.chosen([](const SourceBrowserObject &candidate) { return candidate.documentation().startsWith(u'!'); }))
        known.insert(identity(*object, source));
    if (known.empty())
        return;
    for (const SourceBrowserObject *object : model.chosen(isForReaders)) {
        if (object->lines().first < 0 || !known.insert(identity(*object, source)).second)
            continue;
        std::string text(declarationKind(*object));
        text.append(" \"").append(qualifiedByColons(*object)).append("\" has no documentation comment");
        listener.finding({"undocumented", {file, object->lines().first + 1}, std::move(text)});
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
