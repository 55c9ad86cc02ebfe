#pragma once

#include "pages/document_listener.h"
#include "reading/message.h"
#include "site/compile/body_reader.h"
#include "site/compile/command_suggestions.h"
#include "site/compile/contents_reader.h"
#include "site/compile/file_table.h"
#include "site/record/record.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavidoc {

/// Makes a record of what the generator tells about a document.
class InputListener : public DocumentListener
{
public:
    /// \a input is the input as it was given.
    explicit InputListener(const QString &input);

    void page(const DocumentPage &told) override;
    void contentsLine(std::string_view line, const DocumentPlace &at) override;
    void icon(std::string_view name, const QByteArray &bytes) override;
    void file(const QString &name, bool wasFound) override;
    void finding(const DocumentFinding &finding) override;
    void message(const Message &message);
    void addFinding(std::string_view check, const RecordPlace &place, std::string_view text);

    /// The record, when the whole document has been told.
    [[nodiscard]] RecordWithBodies takeRecord();

private:
    [[nodiscard]] RecordPlace place(const DocumentPlace &place);
    void addLinks(RecordPage &page, const DocumentPage &told, std::vector<RecordLink> raw);
    void addImages(RecordPage &page, const DocumentPage &told, std::vector<RecordImage> raw);
    void noteReplacedPage(const RecordPage &page);
    void resolveLinks();
    void resolveHeadings();
    void readContents();

    FileTable m_files;
    CommandSuggestions m_suggestions;
    RecordWithBodies m_record;
    std::vector<ContentsLine> m_contents;
    std::unordered_map<std::string, std::int64_t> m_lines; // of the pages, by stem

    /// A link to a heading of a page that may be told later.
    struct HeadingLink
    {
        std::size_t page;      // index in the record, of the page with the link
        std::uint64_t offset;  // of the link
        std::uint64_t heading; // offset in the page that it leads to
    };
    std::vector<HeadingLink> m_headingLinks;
};

} // namespace tavidoc
