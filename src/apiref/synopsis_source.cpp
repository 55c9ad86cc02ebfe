#include "apiref/synopsis_source.h"

#include "sourcebrowser/tokens.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tavidoc {

namespace {

/// Whether the parser of declarations drops \a token, so that it may precede the first token that the parser knows.
bool isDropped(const SynopsisToken &token)
{
    using SourceBrowserToken::Word;
    const SourceBrowserToken::WordEntry *const entry = SourceBrowserToken::wordEntry(token.text);
    return entry != nullptr && (entry->word == Word::Extension || token.text == u"inline");
}

bool isDroppedCall(const SynopsisToken &token)
{
    const SourceBrowserToken::WordEntry *const entry = SourceBrowserToken::wordEntry(token.text);
    return entry != nullptr && entry->word == SourceBrowserToken::Word::ExtensionCall;
}

} // namespace

SynopsisSource::SynopsisSource(const QByteArray &text, const SourceBrowserModel &model) : m_tokens(text)
{
    for (std::vector<const SourceBrowserContainer *> open = {&model.root()}; !open.empty();) {
        const SourceBrowserContainer &container = *open.back();
        open.pop_back();
        for (const std::unique_ptr<SourceBrowserObject> &member : container.members()) {
            if (!member)
                continue;
            addPlace(*member);
            if (const SourceBrowserContainer *const nested = SourceBrowserContainer::from(member.get()))
                open.push_back(nested);
        }
    }
    // A type that a declaration defines comes before the declarators.
    std::ranges::sort(m_places, {},
                      [](const Place &place) { return std::pair(place.begin, place.isNamed() ? place.name + 1 : 0); });
    for (std::size_t index = 0; index < m_places.size(); ++index)
        m_placeOf.insert(m_places[index].object, index);
    readSections();
}

void SynopsisSource::addPlace(SourceBrowserObject &object)
{
    if (object.phylum() == SourceBrowserObject::Macro)
        return m_macros.push_back(&object);
    const std::optional<std::size_t> begin = m_tokens.indexAt(object.source().begin);
    if (!begin)
        return;
    const bool isAssigned =
        object.form() == SourceBrowserObject::Form::Concept || object.form() == SourceBrowserObject::Form::Alias;
    const std::optional<std::size_t> known = m_tokens.indexAt(object.source().end);
    std::size_t end = known && !isAssigned ? *known : endFrom(*begin);
    if (isAssigned) { // to the ";"
        while (isToken(end, u'{'))
            end = endFrom(std::max(matchOf(end), end) + 1);
    }
    while (beginsRequirements(end)) // which the parser takes for the body of the function
        end = endFrom(matchOf(end) + 1);
    const std::size_t name = m_tokens.indexAt(object.source().name).value_or(s_none);
    if (end > *begin)
        m_places.push_back({&object, extendedBegin(*begin), name < end ? name : s_none, end});
}

/// Whether the token at \a index is the "{" of a "requires" expression.
bool SynopsisSource::beginsRequirements(std::size_t index) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    if (!isToken(index, u'{') || matchOf(index) <= index || index < 2)
        return false;
    std::size_t word = index - 1;
    if (isToken(word, u')'))
        word = matchOf(word) - 1;
    if (word == 0 || word >= index || !all[word].is(u"requires"))
        return false;
    const SynopsisToken &before = all[word - 1]; // "requires (a)" alone is a constraint
    return before.is(u"requires") || before.is(u"&&") || before.is(u"||");
}

/// The index of the token that ends the declaration at \a begin, as far as braces and semicolons show it.
std::size_t SynopsisSource::endFrom(std::size_t begin) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    for (std::size_t at = begin; at < all.size(); ++at) {
        if (all[at].is(u';') || all[at].is(u'{') || all[at].is(u'}'))
            return at;
        if (all[at].is(u'(') || all[at].is(u'['))
            at = std::max(matchOf(at), at);
    }
    return all.size();
}

/// The index of the first of the words and attributes before \a begin that belong to the declaration there.
std::size_t SynopsisSource::extendedBegin(std::size_t begin) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    while (begin > 0) {
        const std::size_t before = begin - 1;
        if (isDropped(all[before])) {
            begin = before;
            continue;
        }
        const std::size_t open = matchOf(before);
        const bool isCall = isToken(before, u')') && open > 0 && open < before && isDroppedCall(all[open - 1]);
        const bool isAttribute = isToken(before, u']') && open < before && isToken(open + 1, u'[');
        if (!isCall && !isAttribute)
            break;
        begin = isCall ? open - 1 : open;
    }
    return begin;
}

bool SynopsisSource::isToken(std::size_t index, char16_t unit) const
{
    return index < m_tokens.all().size() && m_tokens.all()[index].is(unit);
}

/// The index of the bracket that matches the one at \a index; \a index itself if there is none.
std::size_t SynopsisSource::matchOf(std::size_t index) const
{
    const int match = index < m_tokens.all().size() ? m_tokens.all()[index].match : -1;
    return match < 0 ? index : static_cast<std::size_t>(match);
}

const SynopsisSource::Place *SynopsisSource::placeOf(const SourceBrowserObject &object) const
{
    const auto found = m_placeOf.constFind(&object);
    return found == m_placeOf.constEnd() ? nullptr : &m_places[*found];
}

SynopsisSource::Group SynopsisSource::groupOf(const Place &place) const
{
    const auto first = std::ranges::lower_bound(m_places, place.begin, {}, &Place::begin);
    return {first, std::ranges::upper_bound(first, m_places.end(), place.begin, {}, &Place::begin)};
}

bool SynopsisSource::hasWord(const SourceBrowserObject &object, QStringView word) const
{
    const Place *const place = placeOf(object);
    if (place == nullptr)
        return false;
    const SynopsisTokens::Range all = m_tokens.all();
    const SynopsisTokens::Range range = all.subspan(place->begin, place->end - place->begin);
    for (std::size_t at = place->begin + SynopsisLayout::templateHeads(range); at < place->end; ++at) {
        if (all[at].isWord() && all[at].text == word)
            return true;
        if (all[at].is(u'('))
            at = std::max(matchOf(at), at);
    }
    return false;
}

} // namespace tavidoc
