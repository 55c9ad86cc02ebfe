#include "apiref/synopsis_source.h"

namespace tavidoc {

namespace {

bool isAccess(const SynopsisToken &token)
{
    return token.is(u"public") || token.is(u"protected") || token.is(u"private");
}

} // namespace

/// Notes which methods are signals and slots, and whose friends functions are.
void SynopsisSource::readSections()
{
    struct Brace
    {
        std::size_t close;
        const SourceBrowserContainer *container; ///< whose body the brace opens; null if it opens something else
        Section section;
    };
    QHash<std::size_t, const SourceBrowserContainer *> containers; // by the brace
    for (const Place &place : m_places) {
        const SourceBrowserContainer *const container = SourceBrowserContainer::from(place.object);
        if (container != nullptr && container->phylum() != SourceBrowserObject::Namespace)
            containers.insert(place.end, container);
    }
    std::vector<Brace> open;
    auto place = m_places.begin();
    for (std::size_t at = 0; at < m_tokens.all().size(); ++at) {
        while (!open.empty() && open.back().close <= at)
            open.pop_back();
        const bool isInClass = !open.empty() && open.back().container != nullptr;
        for (; place != m_places.end() && place->begin <= at; ++place) {
            if (!isInClass || place->object->phylum() != SourceBrowserObject::Method)
                continue;
            const Section section = sectionOf(*place, open.back().section);
            if (section != Section::Plain)
                m_sections.insert(place->object, section);
            if (place->object->form() == SourceBrowserObject::Form::Friend)
                m_friends[open.back().container].push_back(place->object);
        }
        if (isToken(at, u'{') && matchOf(at) > at)
            open.push_back({matchOf(at), containers.value(at, nullptr), Section::Plain});
        else if (isInClass)
            open.back().section = labelAt(at).value_or(open.back().section);
    }
}

/// What the method at \a place is after a label that makes methods \a labelled.
SynopsisSource::Section SynopsisSource::sectionOf(const Place &place, Section labelled) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    for (std::size_t at = place.begin - (place.begin > 0 ? 1 : 0); at <= place.begin; ++at) {
        if (all[at].is(u"Q_SIGNAL"))
            return Section::Signals;
        if (all[at].is(u"Q_SLOT"))
            return Section::Slots;
    }
    return labelled;
}

/// The section of the methods after the label that begins at \a index; nothing if no label begins there.
std::optional<SynopsisSource::Section> SynopsisSource::labelAt(std::size_t index) const
{
    const std::vector<SynopsisToken> &all = m_tokens.all();
    const SynopsisToken &token = all[index];
    const bool isSignals = token.is(u"signals") || token.is(u"Q_SIGNALS");
    if (!isSignals && !isAccess(token))
        return std::nullopt;
    if (isToken(index + 1, u':')) {
        const bool isName = isSignals && index > 0 && all[index - 1].isWord() && // a bit field
                            m_tokens.lineOf(all[index - 1].offset) == m_tokens.lineOf(token.offset);
        return isName ? std::nullopt : std::optional(isSignals ? Section::Signals : Section::Plain);
    }
    const bool isSlots =
        !isSignals && isToken(index + 2, u':') && (all[index + 1].is(u"slots") || all[index + 1].is(u"Q_SLOTS"));
    return isSlots ? std::optional(Section::Slots) : std::nullopt;
}

} // namespace tavidoc
