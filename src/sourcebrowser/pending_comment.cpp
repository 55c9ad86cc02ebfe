#include "sourcebrowser/pending_comment.h"

namespace tavidoc {

void SourceBrowserPendingComment::begin(QStringView line, qsizetype column, int lineNumber)
{
    m_text.truncate(0);
    m_text += line.mid(column);
    m_lineBegin = -column;
    m_firstLine = lineNumber;
    m_lastLine = lineNumber;
}

void SourceBrowserPendingComment::append(QStringView line)
{
    m_text += u'\n';
    m_lineBegin = m_text.size();
    m_text += line;
}

void SourceBrowserPendingComment::end(qsizetype column, int lineNumber)
{
    m_text.truncate(m_lineBegin + column);
    m_lastLine = lineNumber;
}

void SourceBrowserPendingComment::clear()
{
    m_text.truncate(0);
    m_firstLine = -1;
    m_lastLine = -1;
}

std::array<QChar, 2> SourceBrowserPendingComment::firstCharacters() const
{
    std::array<QChar, 2> characters;
    std::size_t count = 0;
    for (const QChar character : m_text) {
        if (character.isSpace())
            continue;
        characters[count++] = character;
        if (count == characters.size())
            break;
    }
    return characters;
}

} // namespace tavidoc
