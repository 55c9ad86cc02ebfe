#include "sourcebrowser/pending_comment.h"

#include <algorithm>

void SourceBrowserPendingComment::begin(const QString &line, qsizetype column, int lineNumber)
{
    m_lines.clear();
    m_lines.push_back(line);
    m_firstColumn = column;
    m_firstLine = lineNumber;
    m_lastLine = lineNumber;
    m_endColumn = line.size();
}

void SourceBrowserPendingComment::end(qsizetype column, int lineNumber)
{
    m_endColumn = column;
    m_lastLine = lineNumber;
}

void SourceBrowserPendingComment::clear()
{
    m_lines.clear();
    m_firstLine = -1;
    m_lastLine = -1;
}

QStringView SourceBrowserPendingComment::lineText(size_t index) const
{
    QStringView line = m_lines[index];
    if (index + 1 == m_lines.size())
        line = line.left(m_endColumn);
    return index == 0 ? line.mid(m_firstColumn) : line;
}

QString SourceBrowserPendingComment::text() const
{
    qsizetype size = 0;
    for (const QString &line : m_lines)
        size += line.size() + 1;
    QString text;
    text.reserve(size);
    for (size_t index = 0; index < m_lines.size(); ++index) {
        if (index > 0)
            text += u'\n';
        text += lineText(index);
    }
    return text;
}

std::array<QChar, 2> SourceBrowserPendingComment::firstCharacters() const
{
    std::array<QChar, 2> characters;
    std::size_t count = 0;
    for (size_t index = 0; index < m_lines.size(); ++index) {
        for (const QChar character : lineText(index)) {
            if (character.isSpace())
                continue;
            characters[count++] = character;
            if (count == characters.size())
                return characters;
        }
    }
    return characters;
}
