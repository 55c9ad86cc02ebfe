#include "markup/translator.h"

#include "codeedit/languages.h"
#include "codeedit/listing.h"
#include "markup/presented_file.h"

#include <QByteArray>

namespace tavidoc {

namespace {

/// The position of the command that closes a literal block.
struct ClosingCommand
{
    std::size_t begin; // end of the listing
    std::size_t end;   // where the text goes on
};

/// Finds the first `\endcode` or `\endpre` from \a offset on that is not escaped by a backslash.
/// Without one both positions are the end of the text.
ClosingCommand findClosing(std::string_view text, std::size_t offset)
{
    MarkupCursor cursor(text);
    for (std::size_t at = text.find('\\', offset); at != std::string_view::npos;
         at = text.find('\\', cursor.offset())) {
        cursor.moveTo(at);
        const std::string_view name = cursor.takeCommandName();
        if (name == "endcode" || name == "endpre")
            return {at, cursor.offset()};
    }
    return {text.size(), text.size()};
}

std::string_view suffixOf(std::string_view file)
{
    const std::string_view name = file.substr(file.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string cannotOpen(std::string_view file)
{
    return "cannot open \"" + std::string(file) + "\"";
}

} // namespace

void Translator::codeListing(const Command &)
{
    listing("c");
}

void Translator::plainListing(const Command &)
{
    listing("plain");
}

/// Writes the listing that begins at the cursor. Its argument names the language.
void Translator::listing(std::string_view defaultLanguage)
{
    if (m_cursor.atBrace() && !m_cursor.argumentEnd())
        return missingArgument();
    std::string_view language = m_cursor.takeArgument().value_or(defaultLanguage);
    if (language.empty())
        language = defaultLanguage;
    m_cursor.skipLineEnd();
    const std::string_view text = m_cursor.text();
    const std::size_t begin = m_cursor.offset();
    const ClosingCommand closing = findClosing(text, begin);
    if (closing.begin == text.size())
        commandWarning("this listing is still open at the end of the document");
    if (m_facts != nullptr)
        m_facts->addSourceListing(begin, closing.begin);
    writeListing(text.substr(begin, closing.begin - begin), language, language);
    m_cursor.moveTo(closing.end);
}

/// Writes a listing, coloured as one in \a language. \a languageForReaders is what it is in.
void Translator::writeListing(std::string_view text, std::string_view language, std::string_view languageForReaders)
{
    m_blocks.setMode(BlockMode::None);
    m_blocks.setMode(BlockMode::Literal);
    const std::size_t begin = m_blocks.text().size();
    appendListing(m_blocks.text(), text, language);
    m_blocks.setMode(BlockMode::None); // drops what ends the listing
    if (m_facts == nullptr || languageForReaders.empty() || languageForReaders == "plain" ||
        languageForReaders == "verbatim")
        return;
    const std::size_t end = m_blocks.text().size() - traitsOf(BlockMode::Literal).closing.size();
    m_facts->addListing({begin, end - begin, std::string(languageForReaders), Languages::named(language) != nullptr});
}

void Translator::present(const Command &)
{
    if (m_cursor.atBrace() && !m_cursor.argumentEnd())
        return missingArgument();
    const std::string_view language = m_cursor.takeArgument().value_or(std::string_view());
    const std::string_view file = trimmedEnd(m_cursor.takeLine());
    if (file.empty())
        return errorMarker("the argument is missing");
    const std::optional<PresentedFile> presented = presentedFile(file, language);
    if (m_facts != nullptr)
        m_facts->listener().file(listedFileName(file), presented.has_value());
    if (presented)
        return writeListing({presented->text.constData(), static_cast<std::size_t>(presented->text.size())},
                            presented->language, language.empty() ? suffixOf(file) : language);
    error(cannotOpen(file));
    writeListing(notFoundText(file), "plain", {});
}

void Translator::copyFile(const Command &)
{
    const auto line = filledLine();
    if (!line)
        return;
    const std::string_view file = trimmedEnd(*line);
    m_blocks.setMode(BlockMode::None);
    const std::optional<QByteArray> text = copiedFile(file);
    if (m_facts != nullptr)
        m_facts->listener().file(listedFileName(file), text.has_value());
    if (text) {
        const std::string_view html(text->constData(), static_cast<std::size_t>(text->size()));
        write(html);
        if (m_facts != nullptr && DocumentFacts::hasTag(html))
            m_facts->addHtml(m_blocks.text(), html.size(), {listedFileName(file), 1});
        return;
    }
    error(cannotOpen(file));
    writeEscaped(notFoundText(file));
}

void Translator::show(const Command &)
{
    const auto text = braced();
    if (!text)
        return;
    if (m_blocks.mode() == BlockMode::Paragraph)
        m_blocks.setMode(BlockMode::None);
    const std::optional<std::string> rendering =
        m_declarations == nullptr ? std::nullopt : m_declarations->rendering(*text);
    write("<pre>");
    writeEscaped(rendering ? *rendering : std::string(*text) + ";");
    m_blocks.append("</pre>");
}

} // namespace tavidoc
