#pragma once

#include "pages/document_facts.h"
#include "pages/html_blocks.h"
#include "pages/html_pages.h"
#include "pages/output_queue.h"

#include <QString>

#include <string>
#include <string_view>

namespace tavidoc {

/// The page that is being built; finished pages go to the output.
class Pages
{
public:
    /// Whether text that is appended belongs to a page.
    enum class State
    {
        None,      ///< no page is open
        Open,      ///< a page is open
        Discarded, ///< a page is open that will not be written
    };

    /// \a blocks and \a output are borrowed and must outlive the pages. With \a framed, pages are written with their frame.
    /// \a facts is told about finished pages; null: nobody is.
    Pages(HtmlBlocks &blocks, OutputQueue &output, bool framed, DocumentFacts *facts = nullptr)
        : m_blocks(blocks), m_output(output), m_framed(framed), m_facts(facts)
    {
    }

    /// Flushes the page and opens the page \a stem, which must not be empty.
    void open(std::string_view stem);
    /// Flushes the page; the text up to the next page will not be written.
    void openDiscarded();
    /// Closes the open block and the page, and outputs it if it has a name and text.
    void flush();

    [[nodiscard]] State state() const { return m_state; }
    /// The stem of the open page; empty while none is.
    [[nodiscard]] const std::string &name() const { return m_name; }
    [[nodiscard]] const std::string &documentTitle() const { return m_documentTitle; }
    void setDocumentTitle(std::string_view title) { m_documentTitle = title; }
    [[nodiscard]] const std::string &title() const { return m_title; }
    void setTitle(std::string_view title) { m_title = title; }
    [[nodiscard]] bool framed() const { return m_framed; }
    /// The header that the pages document; empty for none.
    void setHeader(QString header);

    /// Lets the output go when the command at \a offset has run, after which nothing can make the run fail.
    void releaseAfter(std::size_t offset) { m_lastFileCommand = offset; }
    void commandHasRun(std::size_t offset)
    {
        if (offset == m_lastFileCommand)
            m_output.release();
    }

    /// Outputs the page text as the page \a stem in a frame with the title \a title, and empties it.
    void output(std::string_view stem, std::string_view title);

    static constexpr std::string_view s_untitled = "Untitled";

private:
    [[nodiscard]] const std::string &frameTitle() const;
    void tellFacts(bool isWritten);

    HtmlBlocks &m_blocks;
    OutputQueue &m_output;
    PageText m_pageText;
    std::size_t m_lastFileCommand = std::string_view::npos;
    QString m_header;
    bool m_framed;
    DocumentFacts *m_facts; // null when nobody asks for them
    State m_state = State::None;
    std::string m_name;
    std::string m_title;
    std::string m_documentTitle{s_untitled};
};

} // namespace tavidoc
