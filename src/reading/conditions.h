#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The conditional blocks of a source: whether lines are kept, and the states that the ends of the
/// open blocks restore. Open blocks belong to the whole document, not to a file.
class Conditions
{
public:
    /// \a outputFormat is the format that "@html" and "@print" test for; borrowed.
    explicit Conditions(std::string_view outputFormat) : m_outputFormat(outputFormat) {}

    /// True while lines are dropped.
    [[nodiscard]] bool suppressed() const { return m_suppressed; }
    void setSuppressed(bool suppressed) { m_suppressed = suppressed; }

    /// Applies the directive \a line, which begins at its "@" and has its white space simplified. Has
    /// no effect unless the line is exactly a conditional directive.
    void apply(std::string_view line);
    /// Whether \a line, simplified, is a directive that apply() does not ignore.
    [[nodiscard]] bool hasEffect(std::string_view line) const;

    /// The words that open a conditional block, with their "@".
    [[nodiscard]] static std::vector<std::string_view> openers();

    /// Identifies the stack of open blocks and the states they restore: equal stacks, equal numbers.
    [[nodiscard]] int stackIdentity() const { return m_top; }

private:
    /// An open block together with those around it. Equal stacks share nodes.
    struct Node
    {
        int parent;
        bool suppressedBefore;
        int inner[2]; // the block opened inside while lines are kept; while they are dropped
    };

    void open(bool condition);
    void turn();
    void close();

    std::string_view m_outputFormat;
    bool m_suppressed = false;
    int m_top = 0;
    std::vector<Node> m_nodes = {{0, false, {0, 0}}}; // the first means that no block is open
};

} // namespace tavidoc
