#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tavidoc {

/// The conditional blocks of a source: whether lines are kept at this place, and what the open
/// blocks will restore. The open blocks belong to the whole reading, not to a file.
class Conditions
{
public:
    /// \a outputFormat is what "@html" and "@print" ask for.
    explicit Conditions(std::string_view outputFormat) : m_outputFormat(outputFormat) {}

    /// True while lines are dropped.
    [[nodiscard]] bool suppressed() const { return m_suppressed; }
    void setSuppressed(bool suppressed) { m_suppressed = suppressed; }

    /// Carries out the directive \a line, white space simplified, from its "@" on. What is no
    /// conditional directive, word for word, changes nothing.
    void apply(std::string_view line);

    /// The words that open a conditional block, with their "@".
    [[nodiscard]] static std::vector<std::string_view> openers();

    /// A number for the open blocks and what each will restore: equal numbers, equal stacks.
    [[nodiscard]] int stackIdentity() const { return m_top; }

private:
    /// One open block, with all that are open around it. Equal stacks share their nodes.
    struct Node
    {
        int parent;
        bool suppressedBefore;
        int inner[2]; // the node of a block opened in here while lines are kept, dropped
    };

    void open(bool condition);
    void turn();
    void close();

    std::string_view m_outputFormat;
    bool m_suppressed = false;
    int m_top = 0;
    std::vector<Node> m_nodes = {{0, false, {0, 0}}}; // the first stands for "no open block"
};

} // namespace tavidoc
