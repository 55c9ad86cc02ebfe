#include "sourcebrowser/c_scanner.h"
#include "sourcebrowser/model.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;
using namespace SourceBrowserToken;

namespace {

qsizetype firstNonBlank(QStringView line, qsizetype from = 0)
{
    while (from < line.size() && line[from].isSpace())
        ++from;
    return from;
}

constexpr std::array<bool, 128> makeNameUnits()
{
    std::array<bool, 128> units = {};
    for (unsigned char unit = 'a'; unit <= 'z'; ++unit)
        units[unit] = units[unit - 'a' + 'A'] = true;
    for (unsigned char unit = '0'; unit <= '9'; ++unit)
        units[unit] = true;
    units['_'] = true;
    return units;
}

constexpr std::array<bool, 128> s_nameUnits = makeNameUnits();

bool isNameUnit(QChar unit)
{
    return unit.unicode() < 128 ? s_nameUnits[unit.unicode()] : unit.isLetterOrNumber();
}

/// The word after "#".
QStringView directiveWord(QStringView directive)
{
    const qsizetype start = firstNonBlank(directive, 1);
    qsizetype end = start;
    while (end < directive.size() && isNameUnit(directive[end]))
        ++end;
    return directive.mid(start, end - start);
}

/// Whether a block comment that begins in \a directive is still open at its end.
bool leavesCommentOpen(QStringView directive)
{
    if (!directive.contains(u'/'))
        return false;
    char16_t quote = 0;
    for (qsizetype at = 0; at < directive.size(); ++at) {
        const char16_t unit = directive[at].unicode();
        const char16_t next = at + 1 < directive.size() ? directive[at + 1].unicode() : u'\0';
        if (quote != 0) {
            if (unit == u'\\')
                ++at;
            else if (unit == quote || unit == u'\n')
                quote = 0;
        } else if (unit == u'"' || (unit == u'\'' && (at == 0 || !directive[at - 1].isLetterOrNumber()))) {
            quote = unit;
        } else if (unit == u'/' && next == u'/') {
            return false;
        } else if (unit == u'/' && next == u'*') {
            at = directive.indexOf("*/"_L1, at + 2);
            if (at < 0)
                return true;
            ++at;
        }
    }
    return false;
}

/// Counts braces outside comments and literals, of conditionals in the first branch only.
class BraceCounter
{
public:
    void countLine(QStringView line)
    {
        const qsizetype start = firstNonBlank(line);
        if (!m_inComment && start < line.size() && line[start] == u'#')
            noteDirective(directiveWord(line.mid(start)));
        else
            count(line);
    }

    void count(QStringView line)
    {
        for (qsizetype at = 0; at < line.size(); ++at) {
            const char16_t unit = line[at].unicode();
            const char16_t next = at + 1 < line.size() ? line[at + 1].unicode() : u'\0';
            if (m_inComment) {
                m_inComment = unit != u'*' || next != u'/';
                at += !m_inComment;
            } else if (unit == u'/' && next == u'/') {
                return;
            } else if (unit == u'/' && next == u'*') {
                m_inComment = true;
                ++at;
            } else if (unit == u'"' || (unit == u'\'' && (at == 0 || !line[at - 1].isLetterOrNumber()))) {
                for (++at; at < line.size() && line[at] != unit; ++at)
                    at += line[at] == u'\\';
            } else if (m_skipped == 0) {
                m_balance += (unit == u'{') - (unit == u'}');
            }
        }
    }

    /// Opening braces minus closing ones.
    [[nodiscard]] int balance() const { return m_balance; }

private:
    void noteDirective(QStringView word)
    {
        const bool begins = word == u"if" || word == u"ifdef" || word == u"ifndef";
        if (m_skipped > 0)
            m_skipped += begins - (word == u"endif");
        else if (word == u"else" || word.startsWith(u"elif"))
            m_skipped = 1;
    }

    int m_balance = 0;
    int m_skipped = 0; ///< how many conditionals are open in a branch that does not count
    bool m_inComment = false;
};

} // namespace

void SourceBrowserCScanner::releaseLines()
{
    m_kept.clear();
}

void SourceBrowserCScanner::keepLines(bool keep)
{
    m_keepLines = keep;
    m_lineIsUsed |= keep;
}

QString SourceBrowserCScanner::overview() const
{
    QString text;
    for (const SourceBrowserOverviewComment &comment : m_overview)
        text += comment.text;
    return text;
}

/// Reads and counts the next line, whatever its content.
bool SourceBrowserCScanner::readPlainLine()
{
    if (m_lineIsUsed)
        m_kept.push_back(std::exchange(m_line, QString())); // else the next line reuses the memory
    m_column = 0;
    const bool delivered = m_ahead.empty() ? m_lines.readLine(m_line) : takeLineAhead();
    if (!delivered)
        m_line.clear();
    m_units = reinterpret_cast<const char16_t *>(m_line.constData());
    m_size = m_line.size();
    m_lineIsUsed = false;
    if (!delivered)
        return false;
    ++m_lineNumber;
    ++m_statistics.total;
    m_firstColumn = firstNonBlank(m_line);
    if (m_firstColumn == m_size)
        ++m_statistics.blank;
    return true;
}

bool SourceBrowserCScanner::takeLineAhead()
{
    m_line = std::move(m_ahead.front());
    m_ahead.pop_front();
    return true;
}

int SourceBrowserCScanner::closersAhead()
{
    for (QString line; m_lines.readLine(line);)
        m_ahead.push_back(line);
    BraceCounter counter;
    counter.count(QStringView(m_line).mid(m_column));
    for (const QString &line : m_ahead)
        counter.countLine(line);
    return -counter.balance();
}

/// Reads up to the next line that may have tokens, or past the next conditional directive.
bool SourceBrowserCScanner::readNextLine()
{
    while (readPlainLine()) {
        if (m_firstColumn == m_size || m_units[m_firstColumn] != u'#') {
            m_column = m_firstColumn;
            return true;
        }
        readDirective();
        if (m_conditional != 0)
            return true;
    }
    return false;
}

void SourceBrowserCScanner::readDirective()
{
    const int line = m_lineNumber - 1;
    m_conditionalLine = m_lineNumber;
    QString directive = m_line.trimmed();
    while (directive.endsWith(u'\\') && readPlainLine())
        appendContinuation(directive);
    finishDirectiveComment(directive);
    m_column = m_size;
    ++m_statistics.preprocessor;
    if (m_events)
        m_events->preprocessorLine(directive, line, m_statistics.preprocessor);
    const QStringView word = directiveWord(directive);
    if (word == u"define")
        captureMacro(directive, word.data() + word.size() - directive.constData(), line);
    else
        noteConditional(word);
}

void SourceBrowserCScanner::appendContinuation(QString &directive)
{
    ++m_statistics.preprocessor;
    directive += "\n   "_L1 + m_line.trimmed();
}

/// A comment that is still open at the end of a directive belongs to the directive with all its lines.
void SourceBrowserCScanner::finishDirectiveComment(QString &directive)
{
    if (!leavesCommentOpen(directive))
        return;
    bool open = true;
    while (open && readPlainLine()) {
        appendContinuation(directive);
        const qsizetype end = m_line.indexOf("*/"_L1);
        open = end < 0 || leavesCommentOpen(QStringView(m_line).mid(end + 2));
    }
}

void SourceBrowserCScanner::noteConditional(QStringView word)
{
    struct Row
    {
        QStringView word;
        int code;
    };
    static constexpr Row rows[] = {
        {u"if", ConditionalBegin},        {u"ifdef", ConditionalBegin}, {u"ifndef", ConditionalBegin},
        {u"else", ConditionalBranch},     {u"elif", ConditionalBranch}, {u"elifdef", ConditionalBranch},
        {u"elifndef", ConditionalBranch}, {u"endif", ConditionalEnd},
    };
    for (const Row &row : rows) {
        if (row.word == word)
            m_conditional = row.code;
    }
}

/// \a wordEnd is the index in \a directive after its word.
void SourceBrowserCScanner::captureMacro(const QString &directive, qsizetype wordEnd, int line)
{
    if (!m_model)
        return;
    const QStringView view = directive;
    const qsizetype start = firstNonBlank(view, wordEnd);
    qsizetype end = start;
    while (end < view.size() && isNameUnit(view[end]))
        ++end;
    if (end == start)
        return;
    auto macro = std::make_unique<SourceBrowserMacro>(view.mid(start, end - start).toString(), directive);
    macro->setLines({line, m_lineNumber - 1, -1, -1});
    macro->setDeclarationFile(m_file);
    if (m_comment.reaches(line)) {
        macro->setDocumentation(m_comment.text(), m_comment.firstLine());
        m_comment.clear();
    }
    m_model->add(m_model->root(), std::move(macro));
}

void SourceBrowserCScanner::skipLineComment()
{
    ++m_statistics.comment;
    if (!m_fixmeWords.isEmpty() && m_events) {
        const QString text = QStringView(m_line).mid(m_column + 2).toString().simplified();
        const auto end = std::find_if(text.begin(), text.end(), [](QChar unit) { return !unit.isLetterOrNumber(); });
        const QString word = text.left(end - text.begin());
        if (m_fixmeWords.contains(word))
            m_events->fixmeComment(word, m_lineNumber - 1);
    }
    m_column = m_size;
}

void SourceBrowserCScanner::readBlockComment()
{
    m_column += 2;
    m_comment.begin(m_line, m_column, m_lineNumber);
    for (qsizetype slash = -1;;) {
        slash = QStringView(m_line).indexOf(u'/', std::max(m_column, slash + 1));
        if (slash > m_column && m_units[slash - 1] == u'*') {
            m_comment.end(slash - 1, m_lineNumber);
            m_column = slash + 1;
            break;
        }
        if (slash >= 0)
            continue;
        if (!readPlainLine()) {
            m_comment.endAtLineEnd(m_lineNumber);
            break;
        }
        m_comment.append(m_line);
    }
    finishComment();
}

/// Handles overview and region comments, drops comments on an earlier declaration and keeps the others.
void SourceBrowserCScanner::finishComment()
{
    const int lineCount = m_comment.lastLine() - m_comment.firstLine() + 1;
    const auto [first, second] = m_comment.firstCharacters();
    if (first != u'!' || (second != u'!' && second != u'\\' && second != u'<')) {
        m_statistics.comment += lineCount;
        if (first == u'!')
            m_documentationLines.push_back(m_comment.firstLine());
        return;
    }
    const QString text = m_comment.text().simplified();
    const auto isRegionMark = [&text](QLatin1StringView mark) {
        return text.startsWith(mark) && (text.size() == mark.size() || text[mark.size()] == u' ');
    };
    if (text.startsWith("!!"_L1) || text.startsWith("! \\overview"_L1))
        return addOverview();
    if (isRegionMark("! \\region"_L1) || isRegionMark("! \\group"_L1))
        return beginRegion(text.section(u' ', 2));
    if (isRegionMark("! \\endregion"_L1) || isRegionMark("! \\endgroup"_L1))
        return endRegion();
    m_statistics.comment += lineCount;
    if (text.startsWith("!<"_L1))
        m_comment.clear(); // describes the declaration before it
    else
        m_documentationLines.push_back(m_comment.firstLine());
}

void SourceBrowserCScanner::addOverview()
{
    const QString text = m_comment.text();
    qsizetype start = 0;
    while (start < text.size() && (text[start] == u'!' || text[start] == u' ' || text[start] == u'\t'))
        ++start;
    m_overview.push_back({text.mid(start), m_comment.firstLine()});
    m_comment.clear();
}

void SourceBrowserCScanner::beginRegion(const QString &name)
{
    m_comment.clear();
    ++m_statistics.comment;
    if (m_events)
        m_events->preprocessorLine("#region "_L1 + name, m_lineNumber - 1, m_statistics.preprocessor);
}

void SourceBrowserCScanner::endRegion()
{
    m_comment.clear();
    ++m_statistics.comment;
    if (m_events)
        m_events->preprocessorLine(u"#endregion"_s, m_lineNumber - 1, m_statistics.preprocessor);
}

} // namespace tavidoc
