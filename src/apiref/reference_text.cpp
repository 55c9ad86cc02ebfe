#include "apiref/reference_text.h"

#include "base/white_space.h"
#include "markup/markup_cursor.h"

namespace tavidoc {

using namespace Qt::StringLiterals;

std::string qualifiedByDots(std::string_view name)
{
    std::string result;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool colons = name.substr(at, 2) == "::";
        result += colons ? '.' : name[at];
        at += colons ? 1 : 0;
    }
    return result;
}

std::string qualifiedByColons(const SourceBrowserObject &object)
{
    return qualifiedByColons(object.scope(), object.name().toStdString());
}

std::string qualifiedByColons(const QString &scope, std::string_view name)
{
    std::string result;
    bool isFileName = false; // of a namespace without a name: "(buffer.h)"
    for (const char c : scope.toStdString()) {
        isFileName = c == '(' || (isFileName && c != ')');
        result += c == '.' && !isFileName ? "::" : std::string(1, c);
    }
    return result.append(result.empty() ? "" : "::").append(name);
}

std::string firstSentence(std::string_view html)
{
    std::string text;
    while (!html.empty()) {
        const char first = html.front();
        const char next = html.size() > 1 ? html[1] : '\0';
        const bool isTag = first == '<' && (next == '/' || isNameCharacter(next));
        const std::size_t end = isTag ? html.find('>') : std::string_view::npos;
        if (end == std::string_view::npos) {
            if (isSpace(first) && text.ends_with('.'))
                break;
            text += first;
        }
        html.remove_prefix(end == std::string_view::npos ? 1 : end + 1);
    }
    return simplified(text);
}

} // namespace tavidoc
