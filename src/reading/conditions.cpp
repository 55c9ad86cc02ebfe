#include "reading/conditions.h"

namespace tavidoc {

namespace {

/// The condition of a conditional opener.
enum class Question : std::uint8_t
{
    OutputFormat, ///< does the word name the output format?
    Target,       ///< does the word in capitals name the target?
    Fixed,        ///< has a fixed answer
};

struct Opener
{
    std::string_view word;
    Question question;
    bool answer = false; // to a fixed question
};

constexpr Opener s_openers[] = {
    {"@print", Question::OutputFormat},
    {"@html", Question::OutputFormat},
    {"@avr", Question::Target},
    {"@arm", Question::Target},
    {"@linux", Question::Target},
    {"@msp430", Question::Target},
    {"@maxq", Question::Target},
    {"@maxq30", Question::Target},
    {"@riscv", Question::Target},
    {"@elide", Question::Target},
    {"@codespace", Question::Fixed, false}, // for targets with a code space of their own
    {"@palvane", Question::Fixed, false},   // for another product title
    {"@arm_riscv", Question::Fixed, true},
    {"@arm_morvath", Question::Fixed, true},
    {"@morvath", Question::Fixed, true},
    {"@riscv_morvath", Question::Fixed, false},
    {"@morvath_wendrix", Question::Fixed, false},
    {"@native", Question::Fixed, false},
};

constexpr std::string_view s_targetWord = "arm"; // the target "ARM", as openers spell it

const Opener *findOpener(std::string_view line)
{
    for (const Opener &opener : s_openers) {
        if (opener.word == line)
            return &opener;
    }
    return nullptr;
}

} // namespace

std::vector<std::string_view> Conditions::openers()
{
    std::vector<std::string_view> words;
    for (const Opener &opener : s_openers)
        words.push_back(opener.word);
    return words;
}

void Conditions::apply(std::string_view line)
{
    if (line == "@else")
        return turn();
    if (line == "@end")
        return close();
    const Opener *const opener = findOpener(line);
    if (opener == nullptr)
        return;
    const std::string_view word = opener->word.substr(1);
    switch (opener->question) {
    case Question::OutputFormat:
        return open(word == m_outputFormat);
    case Question::Target:
        return open(word == s_targetWord);
    case Question::Fixed:
        return open(opener->answer);
    }
}

bool Conditions::hasEffect(std::string_view line) const
{
    if (line == "@end")
        return m_top != 0 || m_suppressed;
    return line == "@else" || findOpener(line) != nullptr;
}

void Conditions::open(bool condition)
{
    int inner = m_nodes[static_cast<std::size_t>(m_top)].inner[m_suppressed ? 1 : 0];
    if (inner == 0) {
        inner = static_cast<int>(m_nodes.size());
        m_nodes[static_cast<std::size_t>(m_top)].inner[m_suppressed ? 1 : 0] = inner;
        m_nodes.push_back({m_top, m_suppressed, {0, 0}});
    }
    m_top = inner;
    if (!condition)
        m_suppressed = true; // a true block inside a dropped one stays dropped
}

void Conditions::turn()
{
    const bool enclosingDropped = m_top != 0 && m_nodes[static_cast<std::size_t>(m_top)].suppressedBefore;
    m_suppressed = !m_suppressed || enclosingDropped;
}

void Conditions::close()
{
    if (m_top == 0) {
        m_suppressed = false; // one end too many is harmless
        return;
    }
    m_suppressed = m_nodes[static_cast<std::size_t>(m_top)].suppressedBefore;
    m_top = m_nodes[static_cast<std::size_t>(m_top)].parent;
}

} // namespace tavidoc
