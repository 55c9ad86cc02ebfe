#include "sourcebrowser/c_parser.h"

#include "sourcebrowser/declaration_parser.h"

namespace tavidoc {

using namespace Qt::StringLiterals;

SourceBrowserCParser::SourceBrowserCParser(SourceBrowserModel *model, SourceBrowserEventInterface *events)
    : m_model(model), m_events(events)
{
}

SourceBrowserCParser::~SourceBrowserCParser() = default;

void SourceBrowserCParser::beginGroup(const QString &) {}
void SourceBrowserCParser::addResult(const QString &, int, const QString &) {}
void SourceBrowserCParser::endGroup() {}

void SourceBrowserCParser::parse(const QString &file, const QStringList &fixmeWords)
{
    if (m_model)
        m_model->forget(file);
    beginGroup("Parsing "_L1 + file.mid(file.lastIndexOf(u'/') + 1));
    m_statistics = {};
    SourceBrowserDeclarationParser parser({.parser = *this,
                                           .model = m_model,
                                           .events = m_events,
                                           .statistics = m_statistics,
                                           .file = file,
                                           .fixmeWords = fixmeWords,
                                           .isComplete = m_isComplete});
    parser.run();
    m_overview = parser.scanner().overview();
    m_overviewComments = parser.scanner().overviewComments();
    m_documentationLines = parser.scanner().documentationLines();
    endGroup();
    if (m_model)
        m_model->setStatistics(file, m_statistics);
}

} // namespace tavidoc
