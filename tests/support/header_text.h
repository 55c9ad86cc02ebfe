#pragma once

#include "sourcebrowser/c_parser.h"

#include <QStringList>

using namespace tavidoc;

/// Parses a header given as text and records the events and complaints.
class HeaderParser : public SourceBrowserCParser, public SourceBrowserEventInterface
{
public:
    explicit HeaderParser(SourceBrowserModel &model) : SourceBrowserCParser(&model, this) {}

    void parseText(const QString &text, const QString &file = QStringLiteral("a.h"), const QStringList &fixmeWords = {})
    {
        m_lines = text.split(u'\n');
        m_next = 0;
        parse(file, fixmeWords);
    }

    bool readLine(QString &line) override
    {
        if (m_next == m_lines.size())
            return false;
        line.truncate(0); // as a file is read: the memory of the last line serves the next
        line += m_lines[m_next++];
        return true;
    }
    void beginGroup(const QString &text) override { heard << text; }
    void addResult(const QString &file, int line, const QString &message) override
    {
        heard << QStringLiteral("%1:%2: %3").arg(file, QString::number(line), message);
    }
    void endGroup() override { heard << QStringLiteral("done"); }
    void preprocessorLine(const QString &text, int line, int count) override
    {
        heard << QStringLiteral("%1 preprocessor %2 %3").arg(QString::number(line), QString::number(count), text);
    }
    void fixmeComment(const QString &word, int line) override
    {
        heard << QStringLiteral("%1 fixme %2").arg(QString::number(line), word);
    }
    void declareContainer(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                          const QString &further, int line) override
    {
        heard << QStringLiteral("%1 container %2 %3 | %4 |%5")
                     .arg(QString::number(line), QString::number(phylum), name, declaration, further);
    }
    void endContainer() override { heard << QStringLiteral("end"); }
    void declareObject(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                       int line) override
    {
        heard << QStringLiteral("%1 object %2 %3 | %4")
                     .arg(QString::number(line), QString::number(phylum), name, declaration);
    }
    void visibilityChange(SourceBrowserObject::Access access, int line) override
    {
        heard << QStringLiteral("%1 access %2").arg(line).arg(int(access));
    }

    QStringList heard;

private:
    QStringList m_lines;
    qsizetype m_next = 0;
};
