#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The contents tree of a document as XML lines. Entries that stay open are kept on a stack,
/// so whatever levels a document asks for, the tree is well formed.
class Contents
{
public:
    /// Opens the entry of the page \a stem at the current level.
    void openPage(std::string_view stem);
    /// Opens an entry that has a title (text) and no page, at the current level. It takes the
    /// place of such an entry that was opened directly before.
    void openTitle(std::string_view title);
    /// Closes the entries that an entry at the current level does not nest in, down to the
    /// innermost group. An entry of a lower level than all open ones nests in the last.
    void closeLevels();

    /// The next entries are one level deeper, or one shallower but never below 0.
    void goDown() { ++m_level; }
    void goUp();
    void goTop() { m_level = 0; }

    /// Opens a group; \a title is text. A group changes no level.
    void beginGroup(std::string_view title);
    /// Closes the innermost group with all entries in it; false when no group is open.
    bool endGroup();

    /// Adds a raw XML line.
    void addLine(std::string_view line) { m_lines.emplace_back(line); }
    /// Adds a leaf entry for the page \a stem.
    void addLeaf(std::string_view stem);
    /// Adds what `\include` asks for: another contents file, or a page that is made elsewhere.
    void addInclude(std::string_view name);

    /// Closes everything and goes to level 0.
    void closeAll();

    /// The lines so far, without the element around them.
    [[nodiscard]] const std::vector<std::string> &lines() const { return m_lines; }

private:
    /// Marks a group on the stack of open entries.
    static constexpr int s_group = -1;

    void closeEntry();
    void open(std::string line, int level);

    std::vector<std::string> m_lines;
    std::vector<int> m_open; // the level of every open entry, or s_group; innermost last
    int m_level = 0;
    int m_openGroups = 0;
    bool m_titleInnermost = false; // the innermost open entry is that of a title
};

/// \a name with ".htm" at its end.
[[nodiscard]] std::string pageFile(std::string_view name);

} // namespace tavidoc
