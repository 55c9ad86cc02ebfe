#include "markup/translator.h"

#include <utility>

namespace tavidoc {

DocumentPlace Translator::place(std::size_t offset)
{
    const SourcePosition position = m_report.position(offset);
    return {position.file, position.line};
}

/// Notes that \a text at \a offset of the source has just been copied into the page.
void Translator::noteHtml(std::string_view text, std::size_t offset)
{
    if (DocumentFacts::hasTag(text))
        m_facts->addHtml(m_blocks.text(), text.size(), place(offset));
}

/// Notes that the link that the current command wrote begins at \a begin of the page.
void Translator::noteLink(std::size_t begin, LinkedPage page, std::string_view target, bool hasCaption)
{
    const bool isExternal = page.kind == DocumentLink::Kind::External;
    m_facts->addLink({.kind = page.kind,
                      .hasCaption = hasCaption,
                      .offset = begin,
                      .length = m_blocks.text().size() - begin,
                      .target = std::string(target),
                      .page = isExternal ? std::string() : std::move(page.stem),
                      .place = place(m_commandOffset)});
}

/// Notes that the value of a src attribute, \a source as text, begins at \a begin of the page and ends it.
void Translator::noteImage(std::size_t begin, std::string source, bool isIcon)
{
    m_facts->addImage({.offset = begin,
                       .length = m_blocks.text().size() - begin,
                       .source = std::move(source),
                       .isIcon = isIcon,
                       .place = place(m_commandOffset)});
}

/// Notes the place of the lines that the current command added to the contents tree.
void Translator::noteContents()
{
    if (m_contents.lines().size() > m_facts->placedContents())
        m_facts->placeContents(m_contents.lines().size(), place(m_commandOffset));
}

} // namespace tavidoc
