#include "site/compile/heading_ids.h"

#include <QString>

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t s_longestId = 64;

/// Letters that normalization does not take apart.
QLatin1StringView transliterated(QChar letter)
{
    switch (letter.unicode()) {
    case 0xDF:
        return "ss"_L1;
    case 0xE6:
        return "ae"_L1;
    case 0xF8:
        return "o"_L1;
    case 0xFE:
        return "th"_L1;
    case 0xF0:
        return "d"_L1;
    case 0x142:
        return "l"_L1;
    case 0x153:
        return "oe"_L1;
    default:
        return {};
    }
}

bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// \a text, lower case, in ASCII as far as its letters have a base in it.
std::string asciiLetters(std::string_view text)
{
    if (isAscii(text))
        return std::string(text);
    QString result;
    for (const QChar c : QString::fromUtf8(text).toLower().normalized(QString::NormalizationForm_KD)) {
        if (const QLatin1StringView letters = transliterated(c); !letters.isEmpty())
            result += letters;
        else if (c.unicode() < 0x80)
            result += c;
        else if (!c.isLetterOrNumber() && !c.isMark() && c.unicode() != 0x2019) // an apostrophe
            result += u' ';
    }
    return result.toStdString();
}

std::string slug(std::string_view text)
{
    std::string id;
    bool separates = false;
    for (const char c : asciiLetters(text)) {
        const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if (c == '\'')
            continue;
        if ((lower < 'a' || lower > 'z') && (lower < '0' || lower > '9')) {
            separates = true;
            continue;
        }
        if (id.size() >= s_longestId)
            break;
        if (separates && !id.empty())
            id += '-';
        separates = false;
        id += lower;
    }
    return id.empty() ? "section" : id;
}

} // namespace

std::string HeadingIds::idOf(std::string_view text)
{
    const std::string base = slug(text);
    int &count = m_counts[base];
    for (++count;; ++count) {
        std::string id = count == 1 ? base : base + '-' + std::to_string(count);
        if (m_used.insert(id).second)
            return id;
    }
}

} // namespace tavidoc
