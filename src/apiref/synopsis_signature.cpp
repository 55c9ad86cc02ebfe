#include "apiref/synopsis_source.h"

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// \a argument without its default value.
SynopsisTokens::Range withoutDefault(SynopsisTokens::Range argument)
{
    int nesting = 0;
    for (std::size_t at = 0; at < argument.size(); ++at) {
        const SynopsisToken &token = argument[at];
        nesting += token.is(u'(') || token.is(u'[') || token.is(u'{');
        nesting -= token.is(u')') || token.is(u']') || token.is(u'}');
        if (nesting == 0 && token.is(u'=') && !(at > 0 && argument[at - 1].is(u"operator")))
            return argument.first(at);
        const std::size_t close = token.is(u'<') ? SynopsisLayout::closingAngle(argument, at) : argument.size();
        at = close < argument.size() ? close : at;
    }
    return argument;
}

/// Whether \a list holds the names of all \a arguments, and nothing that is not always part of it.
bool isListOf(SynopsisTokens::Range list, const std::vector<SourceBrowserArgument> &arguments)
{
    if (std::ranges::any_of(list, &SynopsisToken::isDirective))
        return false;
    auto token = list.begin();
    for (const SourceBrowserArgument &argument : arguments) {
        if (argument.name.isEmpty())
            continue;
        token = std::find_if(token, list.end(), [&](const SynopsisToken &each) { return each.text == argument.name; });
        if (token == list.end())
            return false;
    }
    return true;
}

} // namespace

/// The text of the argument list \a list, which has no parentheses.
QString SynopsisSource::argumentsText(SynopsisTokens::Range list)
{
    QString text;
    for (const SynopsisTokens::Range argument : SynopsisLayout::parts(list)) {
        const SynopsisTokens::Range stated = withoutDefault(argument);
        text.append(text.isEmpty() ? ""_L1 : ", "_L1).append(SynopsisLayout::line(stated));
    }
    return u'(' + text + u')';
}

/// Takes what follows the arguments of a function, from the index \a at to \a end.
void SynopsisSource::takeQualifiers(std::size_t at, std::size_t end, Signature &signature) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    bool isReturnType = false;
    for (; at < end; ++at) {
        const SynopsisToken &token = all[at];
        const bool isQualifier = token.is(u"const") || token.is(u"volatile") || token.is(u'&') || token.is(u"&&");
        if (token.is(u"requires")) {
            const auto *const assigned = std::ranges::find_if(all.data() + at, all.data() + end,
                                                              [](const SynopsisToken &each) { return each.is(u'='); });
            signature.constraint = SynopsisLayout::line(tokens(at, static_cast<std::size_t>(assigned - all.data())));
            return;
        }
        if (token.is(u'=') || token.is(u':') || token.is(u')') || token.is(u"try") || token.isDirective())
            return;
        isReturnType |= token.is(u"->");
        if (isQualifier && !isReturnType)
            signature.qualifiers.append(signature.qualifiers.isEmpty() ? ""_L1 : " "_L1).append(token.text);
        if (token.is(u'(') || token.is(u'[') || token.is(u'{'))
            at = std::max(matchOf(at), at);
    }
}

SynopsisSource::Signature SynopsisSource::signature(const SourceBrowserMethod &function) const
{
    Signature signature;
    const Place *const place = placeOf(function);
    if (place != nullptr && place->isNamed()) {
        const SynopsisTokens::Range all = m_tokens.all();
        const SynopsisTokens::Range range = all.subspan(place->begin, place->end - place->begin);
        const std::size_t open = place->begin + SynopsisLayout::argumentsAfter(range, place->name - place->begin);
        const std::size_t close = matchOf(open);
        if (open < close && close < place->end) {
            const SynopsisTokens::Range list = all.subspan(open + 1, close - open - 1);
            if (isListOf(list, function.arguments()))
                signature.arguments = argumentsText(list);
            const std::size_t heads = SynopsisLayout::templateHeads(range);
            signature.templateHeads = SynopsisLayout::line(tokens(place->begin, place->begin + heads));
            takeQualifiers(close + 1, place->end, signature);
        }
    }
    if (!signature.arguments.isEmpty())
        return signature;
    const unsigned flags = SourceBrowserObject::TightParenthesis | SourceBrowserObject::StripUnderscores;
    signature.arguments = function.description(flags).mid(function.name().size());
    // Only C++ has functions in scopes, and there an empty list has no "void".
    if (signature.arguments == "(void)"_L1 && !function.scope().isEmpty())
        signature.arguments = u"()"_s;
    if (signature.qualifiers.isEmpty() && function.isConst)
        signature.qualifiers = u"const"_s;
    return signature;
}

} // namespace tavidoc
