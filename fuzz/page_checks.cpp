#include "fuzz/page_checks.h"

#include "fuzz/promise.h"

namespace {

constexpr std::string_view s_frameBegin = "<html>\n<!--\n";
constexpr std::string_view s_bodyBegin =
    "</title>\n<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\" />\n</head>\n<body>\n";
constexpr std::string_view s_frameEnd = "</body>\n</html>\n";

/// Removes the first line from \a text and returns it without its line end.
std::string_view takeLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
    return line;
}

void checkSpans(std::string_view page)
{
    while (!page.empty()) {
        const std::string_view line = takeLine(page);
        bool isOpen = false;
        for (std::size_t at = line.find('<'); at != std::string_view::npos; at = line.find('<', at + 1)) {
            const bool opens = line.substr(at).starts_with("<span");
            if (!opens && !line.substr(at).starts_with("</span>"))
                continue;
            promise(opens != isOpen, "spans do not nest", line);
            isOpen = opens;
        }
        promise(!isOpen, "a span ends on its line", line);
    }
}

/// Checks that each character reference is a complete number with at least two digits.
void checkReferences(std::string_view page)
{
    constexpr std::string_view digits = "0123456789abcdefABCDEF";
    for (std::size_t at = page.find("&#x"); at != std::string_view::npos; at = page.find("&#x", at + 1)) {
        const std::size_t end = page.find_first_not_of(digits, at + 3);
        promise(end != std::string_view::npos && page[end] == ';' && end > at + 4, "a character reference is complete",
                page.substr(at, 20));
    }
}

} // namespace

void checkPage(std::string_view page, bool isFramed, bool holdsRawHtml)
{
    if (isFramed) {
        promise(page.starts_with(s_frameBegin), "a page begins with its frame", page);
        promise(page.find(s_bodyBegin) != std::string_view::npos, "a page has a body", page);
        promise(page.ends_with(s_frameEnd), "a page ends with its frame", page);
    }
    if (holdsRawHtml)
        return;
    checkSpans(page);
    checkReferences(page);
}

void checkContents(std::string_view contents)
{
    int depth = 0; // of elements; names may span lines
    while (!contents.empty()) {
        const std::size_t begin = contents.find('<');
        const std::size_t end = contents.find('>', begin);
        promise(contents.substr(0, begin).find_first_not_of('\n') == std::string_view::npos &&
                    end != std::string_view::npos,
                "contents are elements", contents);
        const std::string_view tag = contents.substr(begin, end + 1 - begin);
        promise(depth != 0 || tag == "<contents>", "all contents are in a contents element", contents);
        if (tag.starts_with("</"))
            --depth;
        else if (!tag.ends_with("/>"))
            ++depth;
        promise(depth >= 0, "an entry is closed once", contents);
        contents.remove_prefix(end + 1);
    }
    promise(depth == 0, "every contents entry is closed");
}

void checkMessage(const Message &message)
{
    const std::string line = formatted(message);
    promise(line.find('\n') + 1 == line.size(), "a message is one line", line);
    promise(!message.text.empty(), "a message has a text", line);
    const bool hasPosition = !message.file.empty();
    promise(hasPosition || message.text.starts_with("choose has empty") || message.text.starts_with("missing both"),
            "a message has a position", line);
}
