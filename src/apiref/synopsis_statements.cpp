#include "apiref/synopsis_source.h"

#include <algorithm>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

using Tokens = SynopsisLayout::Tokens;

bool isClassKey(const SynopsisToken &token)
{
    return token.is(u"class") || token.is(u"struct") || token.is(u"union") || token.is(u"enum");
}

/// Whether \a token may precede a class, although it belongs to the declarators after the body.
bool isStorage(const SynopsisToken &token)
{
    constexpr std::u16string_view words[] = {u"static",    u"extern", u"const",   u"volatile",
                                             u"constexpr", u"inline", u"mutable", u"thread_local"};
    return token.isWord() &&
           std::ranges::any_of(words, [&](std::u16string_view word) { return token.text == QStringView(word); });
}

bool isOpener(const SynopsisToken &token)
{
    return token.is(u'(') || token.is(u'[') || token.is(u'{');
}

bool isCloser(const SynopsisToken &token)
{
    return token.is(u')') || token.is(u']') || token.is(u'}');
}

/// The index in \a tokens of the token at \a offset of the header; the number of tokens if there is none.
std::size_t indexOf(const Tokens &tokens, qsizetype offset)
{
    const auto found = std::ranges::find(tokens, offset, &SynopsisToken::offset);
    return static_cast<std::size_t>(found - tokens.begin());
}

/// The index of what begins the value of the variable whose name is at \a name; the number of tokens if it has none.
std::size_t valueAfter(const Tokens &tokens, std::size_t name)
{
    int nesting = 0;
    for (std::size_t at = name; at < tokens.size(); ++at) {
        if (nesting == 0 && (tokens[at].is(u'=') || tokens[at].is(u'{')))
            return at;
        nesting += isOpener(tokens[at]) - isCloser(tokens[at]);
    }
    return tokens.size();
}

bool isLong(const Tokens &tokens)
{
    return SynopsisLayout::line(tokens).size() > SynopsisLayout::longestLine;
}

/// Whether \a tokens have the body of a type before the declarator.
bool holdsBody(const Tokens &tokens)
{
    const auto end = std::ranges::find_if(
        tokens, [](const SynopsisToken &token) { return token.is(u'{') || token.is(u'=') || token.is(u'('); });
    return end != tokens.end() && end->is(u'{') && std::any_of(tokens.begin(), end, isClassKey);
}

/// Whether \a tokens have a pointer or a reference outside brackets, as only declarators have.
bool hasPointer(const Tokens &tokens)
{
    int nesting = 0;
    for (const SynopsisToken &token : tokens) {
        nesting += isOpener(token) || token.is(u'<');
        nesting -= (isCloser(token) || token.is(u'>')) && nesting > 0;
        if (nesting == 0 && (token.is(u'*') || token.is(u'&') || token.is(u"&&")))
            return true;
    }
    return false;
}

/// What is known of \a object without its text.
QString withoutText(const SourceBrowserObject &object)
{
    if (object.phylum() == SourceBrowserObject::Namespace)
        return "namespace "_L1 + object.name();
    if (dynamic_cast<const SourceBrowserContainer *>(&object) != nullptr)
        return (object.form() == SourceBrowserObject::Form::Union ? "union "_L1
                : object.phylum() == SourceBrowserObject::Class   ? "class "_L1
                                                                  : "struct "_L1) +
               object.name();
    if (dynamic_cast<const SourceBrowserEnum *>(&object) != nullptr)
        return "enum "_L1 + object.name();
    return object.description() + u';';
}

/// The directive of a macro without its comments, on one line.
QString directiveLine(const QString &directive)
{
    const SynopsisTokens tokens(QString(directive).replace(u'\n', u' ').sliced(1).toUtf8());
    Tokens parts;
    for (const SynopsisToken &token : tokens.all()) {
        if (!token.is(u'\\'))
            parts.push_back(token);
    }
    return u'#' + SynopsisLayout::line(parts);
}

/// The directive without the body of a macro that has arguments, and without a long value.
QString macroText(const SourceBrowserObject &macro)
{
    QString directive = macro.text();
    directive.replace("\\\n"_L1, " "_L1);
    const qsizetype name = directive.indexOf(macro.name(), directive.indexOf("define"_L1) + 6);
    QString plain = "#define "_L1 + macro.name();
    if (name < 0)
        return plain;
    const qsizetype after = name + macro.name().size();
    if (after < directive.size() && directive[after] == u'(') {
        const qsizetype close = directive.indexOf(u')', after);
        return close < 0 ? plain
                         : "#define "_L1 + directiveLine(u'#' + directive.sliced(name, close + 1 - name)).sliced(1);
    }
    const QString whole = directiveLine(directive);
    return whole.size() <= SynopsisLayout::longestLine ? whole : plain;
}

} // namespace

std::string SynopsisSource::synopsis(const SourceBrowserObject &object) const
{
    if (object.phylum() == SourceBrowserObject::Macro)
        return macroText(object).toStdString();
    const Place *const place = placeOf(object);
    if (place == nullptr)
        return withoutText(object).toStdString();
    if (object.form() == SourceBrowserObject::Form::Concept || object.form() == SourceBrowserObject::Form::Alias)
        return conceptText(*place).toStdString();
    if (dynamic_cast<const SourceBrowserContainer *>(&object) != nullptr)
        return container(*place).toStdString();
    if (dynamic_cast<const SourceBrowserEnum *>(&object) != nullptr)
        return definedType(*place, u',').toStdString();
    return declarator(*place).toStdString();
}

QStringView SynopsisSource::stated(const SourceBrowserObject &object) const
{
    const Place *const place = placeOf(object);
    if (place == nullptr)
        return {};
    const std::vector<SynopsisToken> &all = m_tokens.all();
    const std::size_t end = endOfStated(*place);
    const qsizetype begin = all[place->begin].offset;
    return m_tokens.text(begin, end < all.size() ? all[end].offset : m_tokens.text().size());
}

/// The index of the token after the text that the synopsis states.
std::size_t SynopsisSource::endOfStated(const Place &place) const
{
    const auto *const container = dynamic_cast<const SourceBrowserContainer *>(place.object);
    const bool statesBody = dynamic_cast<const SourceBrowserEnum *>(place.object) != nullptr ||
                            (container != nullptr && container->phylum() != SourceBrowserObject::Namespace &&
                             isPlainData(*container, place));
    if (!statesBody && place.object->phylum() == SourceBrowserObject::Variable && place.isNamed() &&
        groupOf(place).size() == 1) {
        const Tokens all = tokens(place.begin, place.end);
        return place.begin + (isLong(all) ? valueAfter(all, place.name - place.begin) : all.size());
    }
    if (!statesBody)
        return place.end;
    std::size_t end = std::max(matchOf(place.end), place.end) + 1;
    while (end < m_tokens.all().size() && !isToken(end, u';') && !isCloser(m_tokens.all()[end]))
        end = isOpener(m_tokens.all()[end]) ? std::max(matchOf(end), end) + 1 : end + 1;
    return end;
}

SynopsisLayout::Tokens SynopsisSource::tokens(std::size_t begin, std::size_t end) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    begin = std::min(begin, all.size());
    end = std::clamp(end, begin, all.size());
    return {all.begin() + static_cast<std::ptrdiff_t>(begin), all.begin() + static_cast<std::ptrdiff_t>(end)};
}

/// The index of the keyword of the type that the declaration from \a begin to \a end defines; \a end if there is none.
std::size_t SynopsisSource::classKey(std::size_t begin, std::size_t end) const
{
    const SynopsisTokens::Range all = m_tokens.all();
    std::size_t at = begin + SynopsisLayout::templateHeads(all.subspan(begin, end - begin));
    for (; at < end && !isClassKey(all[at]); ++at) {
        if (isOpener(all[at]))
            at = std::max(matchOf(at), at);
    }
    return std::min(at, end);
}

/// The offset in the header of what follows the template heads of the declaration at \a place.
qsizetype SynopsisSource::specifiersBegin(const Place &place) const
{
    const SynopsisTokens::Range all = m_tokens.all();
    const std::size_t heads = SynopsisLayout::templateHeads(all.subspan(place.begin, place.end - place.begin));
    return all[std::min(place.begin + heads, all.size() - 1)].offset;
}

/// The index of the name of the type whose keyword is at \a key and whose body is at \a brace; \a brace if it has none.
std::size_t SynopsisSource::tagOf(std::size_t key, std::size_t brace) const
{
    std::size_t tag = brace;
    for (std::size_t at = key + 1; at < brace && !isToken(at, u':'); ++at) {
        const SynopsisToken &token = m_tokens.all()[at];
        if (isOpener(token))
            at = std::max(matchOf(at), at);
        else if (token.isWord() && !isClassKey(token) && token.text != u"final" && !isToken(at + 1, u'('))
            tag = at;
    }
    return tag;
}

/// Whether the type at \a place is defined in a typedef.
bool SynopsisSource::isInTypedef(const Place &place) const
{
    const std::size_t key = classKey(place.begin, place.end);
    return std::ranges::any_of(tokens(place.begin, key),
                               [](const SynopsisToken &token) { return token.is(u"typedef"); });
}

/// Whether \a container is a structure or union of C: it has nothing but public data. One without a name whose members
/// come from macros is, too.
bool SynopsisSource::isPlainData(const SourceBrowserContainer &container, const Place &place) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    const std::size_t close = matchOf(place.end);
    if (!isToken(place.end, u'{') || close <= place.end || all[classKey(place.begin, place.end)].is(u"class"))
        return false;
    const auto isOfCPlusPlus = [](const SynopsisToken &token) {
        constexpr std::u16string_view words[] = {u"public", u"protected", u"private",  u"friend",
                                                 u"using",  u"typedef",   u"template", u"static"};
        return token.isWord() &&
               std::ranges::any_of(words, [&](std::u16string_view word) { return token.text == QStringView(word); });
    };
    const auto body = SynopsisTokens::Range(all).subspan(place.end, close - place.end);
    if (std::ranges::any_of(body, isOfCPlusPlus))
        return false;
    bool hasData = false;
    for (std::vector<const SourceBrowserContainer *> open = {&container}; !open.empty();) {
        const SourceBrowserContainer &next = *open.back();
        open.pop_back();
        if (!next.baseClasses().empty())
            return false;
        for (const std::unique_ptr<SourceBrowserObject> &member : next.members()) {
            if (!member || member->phylum() == SourceBrowserObject::Unknown)
                continue;
            if (const SourceBrowserContainer *const nested = SourceBrowserContainer::from(member.get()))
                open.push_back(nested);
            else if (member->phylum() != SourceBrowserObject::Variable)
                return false;
            hasData = true;
        }
    }
    return hasData || (isInTypedef(place) && tagOf(classKey(place.begin, place.end), place.end) == place.end);
}

QString SynopsisSource::container(const Place &place) const
{
    const auto &object = static_cast<const SourceBrowserContainer &>(*place.object);
    if (object.phylum() == SourceBrowserObject::Namespace)
        return SynopsisLayout::head(tokens(place.begin, place.end));
    if (isPlainData(object, place))
        return definedType(place, u';');
    const std::size_t key = classKey(place.begin, place.end);
    const bool isTypedef = isInTypedef(place);
    Tokens head = tokens(place.begin, place.end);
    const qsizetype begin = specifiersBegin(place);
    const auto isLeft = [&](const SynopsisToken &token) {
        return token.offset >= begin && token.offset < m_tokens.all()[key].offset &&
               (token.is(u"typedef") || isStorage(token));
    };
    if (isTypedef && tagOf(key, place.end) == place.end)
        return SynopsisLayout::line(head) + " { /* ... */ } "_L1 + object.name() + u';';
    head.erase(std::remove_if(head.begin(), head.end(), isLeft), head.end());
    return SynopsisLayout::head(head);
}

/// States a type with its body, and with the first declarator after it if that gives the type its name.
QString SynopsisSource::definedType(const Place &place, char16_t separator) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    const std::size_t close = matchOf(place.end);
    if (!isToken(place.end, u'{') || close <= place.end)
        return SynopsisLayout::line(tokens(place.begin, place.end)) + u';';
    const std::size_t key = classKey(place.begin, place.end);
    Tokens text = tokens(place.begin, close + 1);
    if (text.size() > 2 && text[text.size() - 2].is(u','))
        text.erase(text.end() - 2); // after the last enumerator
    std::size_t end = close + 1;
    while (end < all.size() && !all[end].is(u',') && !all[end].is(u';') && !isCloser(all[end]))
        end = isOpener(all[end]) ? std::max(matchOf(end), end) + 1 : end + 1;
    const Tokens name = tokens(close + 1, end);
    const bool isTypedef = isInTypedef(place);
    const bool isNamedAfter = std::ranges::any_of(
        name, [&](const SynopsisToken &token) { return token.isWord() && token.text == place.object->name(); });
    const Group group = groupOf(place);
    const bool hasDeclarators = std::ranges::any_of(group, &Place::isNamed);
    if (isTypedef ? isNamedAfter : !hasDeclarators)
        text.insert(text.end(), name.begin(), name.end());
    const bool keepsTypedef = isTypedef && isNamedAfter;
    const qsizetype begin = specifiersBegin(place);
    const auto isLeft = [&](const SynopsisToken &token) {
        return token.offset >= begin && token.offset < all[key].offset &&
               ((token.is(u"typedef") && !keepsTypedef) || isStorage(token));
    };
    text.erase(std::remove_if(text.begin(), text.end(), isLeft), text.end());
    return SynopsisLayout::block(text, separator) + u';';
}

/// The index of the first token of the declarator of \a place, which comes after \a from: pointers and parentheses
/// before the name belong to it.
std::size_t SynopsisSource::declaratorBegin(const Place &place, std::size_t from) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    std::size_t begin = place.name;
    for (std::size_t at = begin; at > from; --at) {
        const SynopsisToken &token = all[at - 1];
        if (token.is(u'*') || token.is(u'&') || token.is(u"&&") || token.is(u'(') || token.is(u'^'))
            begin = at - 1;
        else if (!token.is(u"const") && !token.is(u"volatile") && !token.is(u"restrict") && !token.is(u"__restrict"))
            break;
    }
    return begin;
}

/// What the declarators of \a group share, before the index \a end: a type that is defined there is named only, if it
/// has a name.
SynopsisLayout::Tokens SynopsisSource::specifiers(const Place &first, Group group, std::size_t end) const
{
    const Place &type = group.front();
    if (type.isNamed())
        return tokens(first.begin, end);
    const std::size_t key = classKey(type.begin, type.end);
    const std::size_t close = matchOf(type.end);
    Tokens text = tokens(type.begin, key);
    if (const std::size_t tag = tagOf(key, type.end); tag < type.end) {
        text.push_back(m_tokens.all()[key]);
        text.push_back(m_tokens.all()[tag]);
        return text;
    }
    for (std::size_t at = close + 1; at < type.end || at < first.end; ++at) {
        const SynopsisToken &token = m_tokens.all()[at];
        if (token.isWord() && token.text == type.object->name()) {
            text.push_back(token);
            return text;
        }
    }
    return tokens(type.begin, close + 1);
}

/// States one declarator of a declaration: its type and itself.
QString SynopsisSource::declarator(const Place &place) const
{
    const Group group = groupOf(place);
    if (group.size() == 1 || !place.isNamed())
        return functionOrObject(place, tokens(place.begin, place.end));
    const bool definesType = !group.front().isNamed();
    const Place &first = definesType ? group[1] : group[0];
    if (!first.isNamed())
        return functionOrObject(place, tokens(place.begin, place.end));
    const std::size_t typeEnd = definesType ? std::max(matchOf(group.front().end), group.front().end) : place.begin;
    const std::size_t firstBegin = declaratorBegin(first, typeEnd + (definesType ? 1 : 0));
    std::size_t begin = firstBegin;
    if (&first != &place || (definesType && place.name > firstBegin)) {
        for (begin = place.name; begin > firstBegin && !isToken(begin - 1, u','); --begin) {
        }
    }
    const auto next = std::ranges::upper_bound(group, place.name, {}, &Place::name);
    std::size_t end = place.end;
    if (next != group.end() && next->isNamed()) {
        for (end = next->name; end > place.name && !isToken(end, u','); --end) {
        }
    }
    Tokens text = specifiers(first, group, firstBegin);
    if (hasPointer(text) || end <= begin)
        return functionOrObject(place, tokens(place.begin, place.end));
    const Tokens own = tokens(begin, end);
    text.insert(text.end(), own.begin(), own.end());
    return functionOrObject(place, std::move(text));
}

QString SynopsisSource::functionOrObject(const Place &place, Tokens tokens) const
{
    tokens.erase(std::ranges::find_if(tokens, [](const SynopsisToken &token) { return token.is(u"try"); }),
                 tokens.end());
    const std::size_t name = place.isNamed() ? indexOf(tokens, m_tokens.all()[place.name].offset) : tokens.size();
    if (place.object->phylum() != SourceBrowserObject::Method && holdsBody(tokens))
        return SynopsisLayout::block(tokens, u';') + u';';
    if (place.object->phylum() == SourceBrowserObject::Variable) {
        if (isLong(tokens))
            tokens.resize(valueAfter(tokens, name));
        return SynopsisLayout::function(tokens, SynopsisLayout::argumentsAfter(tokens, name)) + u';';
    }
    return SynopsisLayout::function(tokens, SynopsisLayout::argumentsAfter(tokens, name)) + u';';
}

/// States a concept. A long constraint keeps its lines.
QString SynopsisSource::conceptText(const Place &place) const
{
    QString text = SynopsisLayout::line(tokens(place.begin, place.end)) + u';';
    if (text.size() <= SynopsisLayout::longestLine)
        return text;
    const std::vector<SynopsisToken> &all = m_tokens.all();
    return m_tokens.text(all[place.begin].offset, all[place.end - 1].end()).toString() + u';';
}

} // namespace tavidoc
