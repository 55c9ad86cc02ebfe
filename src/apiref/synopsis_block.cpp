#include "apiref/synopsis_layout.h"

#include <algorithm>

namespace tavidoc::SynopsisLayout {

namespace {

using Range = SynopsisTokens::Range;

/// Marks the braces of \a tokens that hold statements: a ";" is in them, not in braces inside them.
std::vector<bool> bracesWithStatements(Range tokens)
{
    std::vector<bool> marks(tokens.size(), false);
    std::vector<std::size_t> open;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].is(u'{'))
            open.push_back(at);
        else if (tokens[at].is(u'}') && !open.empty())
            open.pop_back();
        else if (tokens[at].is(u';') && !open.empty())
            marks[open.back()] = true;
    }
    return marks;
}

/// Writes statements in braces.
class BlockWriter
{
public:
    BlockWriter(Range tokens, char16_t separator)
        : m_tokens(tokens), m_separator(separator), m_hasStatements(bracesWithStatements(tokens))
    {
    }

    QString write()
    {
        for (std::size_t at = 0; at < m_tokens.size(); ++at)
            add(at);
        flush(m_tokens.size());
        return m_text;
    }

private:
    void add(std::size_t at)
    {
        const SynopsisToken &token = m_tokens[at];
        if (token.isDirective()) {
            // A definition inside an enumerator changes what follows; between enumerators it does not matter.
            const bool matters = token.isConditional() || at > m_begin;
            flush(at);
            m_begin = at + 1;
            if (matters)
                m_text.append(token.text).append(u'\n');
        } else if (token.is(u'{')) {
            // The outermost brace is broken, those of lists in it are not.
            const bool breaks = m_open.empty() || m_hasStatements[at];
            m_open.push_back(breaks);
            if (breaks) {
                flush(at + 1);
                ++m_depth;
            }
        } else if (token.is(u'}') && !m_open.empty()) {
            if (m_open.back()) {
                flush(at);
                --m_depth;
            }
            m_open.pop_back();
        } else {
            m_groups += token.is(u'(') - token.is(u')');
            const bool isList = m_separator == u',' && m_open.size() == 1;
            if (!m_open.empty() && m_open.back() && m_groups == 0 && token.is(isList ? u',' : u';'))
                flush(at + 1);
        }
    }

    /// Writes the tokens up to \a end that have not been written, on a line.
    void flush(std::size_t end)
    {
        if (end <= m_begin)
            return;
        m_text += QString(m_depth * indentation, u' ') + line(m_tokens.subspan(m_begin, end - m_begin)) + u'\n';
        m_begin = end;
    }

    Range m_tokens;
    char16_t m_separator;
    std::vector<bool> m_hasStatements;
    std::vector<bool> m_open; ///< for every open brace, whether its content is on lines of its own
    QString m_text;
    std::size_t m_begin = 0;
    qsizetype m_depth = 0;
    int m_groups = 0;
};

} // namespace

QString block(const Tokens &tokens, char16_t separator)
{
    if (separator == u',' && std::ranges::none_of(tokens, &SynopsisToken::isDirective)) {
        QString text = line(tokens);
        if (text.size() <= longestLine)
            return text;
    }
    return BlockWriter(tokens, separator).write().trimmed();
}

} // namespace tavidoc::SynopsisLayout
