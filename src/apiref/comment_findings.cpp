#include "apiref/comment_findings.h"

#include "base/white_space.h"
#include "sourcebrowser/members.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace tavidoc {

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
            listener.finding({"stray-comment",
                              {file, line},
                              "this comment documents nothing: expected a declaration directly after it"});
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
