#include "sourcebrowser/c_scanner.h"

#include <array>
#include <string_view>

namespace tavidoc {

using namespace SourceBrowserToken;

namespace {

enum class Shape : unsigned char
{
    Skipped,
    Blank,
    Letter,
    Digit,
    Quote,
    Slash,
    Punctuation
};

constexpr std::array<Shape, 128> makeShapes()
{
    std::array<Shape, 128> shapes = {};
    for (const char16_t character : {u' ', u'\t', u'\n', u'\v', u'\f', u'\r'})
        shapes[character] = Shape::Blank;
    for (unsigned char character = 'a'; character <= 'z'; ++character)
        shapes[character] = shapes[character - 'a' + 'A'] = Shape::Letter;
    shapes['_'] = Shape::Letter;
    for (unsigned char character = '0'; character <= '9'; ++character)
        shapes[character] = Shape::Digit;
    shapes['\''] = shapes['"'] = Shape::Quote;
    shapes['/'] = Shape::Slash;
    // Deliberate: "|" is missing. Like "#", "$", "%", "@", the backslash and the back quote it yields no token.
    for (const char16_t character : std::u16string_view(u"!&()*+,-.:;<=>?[]^{}~"))
        shapes[character] = Shape::Punctuation;
    return shapes;
}

constexpr std::array<Shape, 128> s_shapes = makeShapes();

Shape shapeOf(char16_t unit)
{
    if (unit < 128)
        return s_shapes[unit];
    return QChar::isSpace(unit) ? Shape::Blank : Shape::Skipped;
}

bool isAlphanumeric(char16_t unit)
{
    return unit < 128 && unit != u'_' && (s_shapes[unit] == Shape::Letter || s_shapes[unit] == Shape::Digit);
}

bool isRawStringPrefix(QStringView word)
{
    return word == u"R" || word == u"LR" || word == u"uR" || word == u"UR" || word == u"u8R";
}

constexpr std::array<bool, 128> makeWordUnits()
{
    std::array<bool, 128> units = {};
    for (std::size_t unit = 0; unit < units.size(); ++unit)
        units[unit] = s_shapes[unit] == Shape::Letter || s_shapes[unit] == Shape::Digit || unit == u'$';
    return units;
}

constexpr std::array<bool, 128> s_wordUnits = makeWordUnits();

bool isWordUnit(char16_t unit)
{
    return unit < 128 && s_wordUnits[unit];
}

} // namespace

SourceBrowserCScanner::SourceBrowserCScanner(SourceBrowserLineIterator &lines, QString file,
                                             SourceBrowserEventInterface *events, SourceBrowserModel *model,
                                             SourceBrowserLineStatistics &statistics, QStringList fixmeWords)
    : m_lines(lines), m_file(std::move(file)), m_events(events), m_model(model), m_statistics(statistics),
      m_fixmeWords(std::move(fixmeWords))
{
}

int SourceBrowserCScanner::nextToken()
{
    do {
        m_token = read();
    } while (m_token.isInternal());
    return m_token.code;
}

void SourceBrowserCScanner::pushBack(int code, const QString &text)
{
    m_pushedBack.emplace_back(code, text);
}

SourceBrowserTokenRecord SourceBrowserCScanner::read()
{
    if (!m_pushedBack.empty()) {
        m_pushedText = m_pushedBack.front().second;
        SourceBrowserTokenRecord token;
        token.code = m_pushedBack.front().first;
        token.text = m_pushedText;
        token.line = m_lineNumber;
        m_pushedBack.pop_front();
        return token;
    }
    m_blankBefore = false;
    for (;;) {
        if (m_column >= m_size) {
            if (m_conditional == 0 && !readNextLine())
                return makeToken(EndOfInput, m_size);
            m_blankBefore = true;
            if (m_conditional != 0) {
                SourceBrowserTokenRecord token = makeToken(std::exchange(m_conditional, 0), m_column);
                token.line = m_conditionalLine;
                return token;
            }
            continue;
        }
        switch (shapeOf(m_units[m_column])) {
        case Shape::Blank:
            ++m_column;
            m_blankBefore = true;
            break;
        case Shape::Letter: {
            SourceBrowserTokenRecord token = readWord();
            if (token.word != Word::Dropped || m_keywordFree)
                return token;
            m_blankBefore = true;
            break;
        }
        case Shape::Digit:
            return readNumber();
        case Shape::Quote:
            return readLiteral(m_column);
        case Shape::Slash:
            if (at(m_column + 1) == u'/')
                skipLineComment();
            else if (at(m_column + 1) == u'*')
                readBlockComment();
            else
                return readPunctuation();
            m_blankBefore = true;
            break;
        case Shape::Punctuation:
            return readPunctuation();
        case Shape::Skipped:
            ++m_column;
            if (m_column < m_size || m_units[m_column - 1] != u'\\') // else the line continues on the next one
                return makeToken(Skipped, m_column - 1);
            break;
        }
    }
}

SourceBrowserTokenRecord SourceBrowserCScanner::readWord()
{
    const qsizetype start = m_column;
    const char16_t *const lineEnd = m_units + m_size;
    const char16_t *wordEnd = m_units + start + 1;
    while (wordEnd != lineEnd && isWordUnit(*wordEnd))
        ++wordEnd;
    m_column = wordEnd - m_units;
    const QStringView text(m_units + start, m_column - start);
    if (m_column < m_size && (m_units[m_column] == u'"' || m_units[m_column] == u'\'')) {
        if (text == u"L")
            return readLiteral(start);
        if (m_units[m_column] == u'"' && isRawStringPrefix(text))
            return readRawString(start);
    }
    SourceBrowserTokenRecord token = makeToken(Identifier, start);
    if (const WordEntry *entry = m_keywordFree ? nullptr : wordEntry(text)) {
        token.code = entry->code;
        token.word = entry->word;
    }
    return token;
}

SourceBrowserTokenRecord SourceBrowserCScanner::readNumber()
{
    const qsizetype start = m_column;
    while (m_column < m_size) {
        const char16_t unit = m_units[m_column];
        const bool separates = unit == u'\'' && isAlphanumeric(at(m_column + 1));
        if (!isAlphanumeric(unit) && !separates)
            break;
        ++m_column;
    }
    return makeToken(Number, start);
}

/// Reads a string or character literal that begins with an optional prefix at \a start. It ends with its
/// line unless the line ends with a backslash.
SourceBrowserTokenRecord SourceBrowserCScanner::readLiteral(qsizetype start)
{
    m_column = m_units[start] == u'L' ? start + 1 : start;
    const char16_t quote = m_units[m_column];
    const int code = quote == u'"' ? String : Number;
    for (++m_column; m_column < m_size; ++m_column) {
        const char16_t unit = m_units[m_column];
        if (unit == quote) {
            ++m_column;
            return makeToken(code, start);
        }
        if (unit != u'\\')
            continue;
        if (++m_column < m_size)
            continue;
        if (!readPlainLine())
            return makeToken(code, m_size);
        start = 0;
        m_column = -1;
    }
    return makeToken(code, start);
}

SourceBrowserTokenRecord SourceBrowserCScanner::readRawString(qsizetype start)
{
    const qsizetype opening = QStringView(m_line).indexOf(u'(', m_column);
    if (opening < 0)
        return readLiteral(m_column);
    const QString closing = u')' + m_line.mid(m_column + 1, opening - m_column - 1) + u'"';
    m_column = opening + 1;
    for (;;) {
        const qsizetype found = QStringView(m_line).indexOf(closing, m_column);
        if (found >= 0) {
            m_column = found + closing.size();
            return makeToken(String, start);
        }
        m_column = m_size;
        if (!readPlainLine())
            return makeToken(String, m_size);
        start = 0;
    }
}

SourceBrowserTokenRecord SourceBrowserCScanner::readPunctuation()
{
    const qsizetype start = m_column++;
    const char16_t unit = m_units[start];
    if (unit == u':' && at(m_column) == u':') {
        ++m_column;
        return makeToken(Scope, start);
    }
    if (unit == u'.' && at(m_column) == u'.' && at(m_column + 1) == u'.') {
        m_column += 2;
        return makeToken(Ellipsis, start);
    }
    return makeToken(unit, start);
}

} // namespace tavidoc
