#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The contents tree of a document as XML lines. Open entries are kept on a stack, so the tree is
/// well formed for any sequence of levels.
class Contents
{
public:
    /// Opens the entry of the page \a stem at the current level.
    void openPage(std::string_view stem);
    /// Opens an entry with a title (text) and without a page, at the current level. It replaces such an
    /// entry that was opened directly before.
    void openTitle(std::string_view title);
    /// Closes the entries, up to the innermost group, that do not contain an entry at the current level.
    void closeLevels();

    /// The next entries are one level deeper, or one shallower but never below 0.
    void goDown() { ++m_level; }
    void goUp();
    void goTop() { m_level = 0; }

    /// Opens a group; \a title is text. The level stays the same.
    void beginGroup(std::string_view title);
    /// Closes the innermost group with all entries in it; false when no group is open.
    bool endGroup();

    /// Adds a raw XML line.
    void addLine(std::string_view line) { m_lines.emplace_back(line); }
    /// Adds a leaf entry for the page \a stem.
    void addLeaf(std::string_view stem);
    /// Adds the target of `\include`: another contents file, or a page that is made elsewhere.
    void addInclude(std::string_view name);

    /// Closes all entries and goes to level 0.
    void closeAll();

    /// The lines so far, without the root element.
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
