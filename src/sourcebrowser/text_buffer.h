#pragma once

#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace tavidoc {

/// A text while it is put together. A short one takes no memory of its own, so that the texts of types, which repeat,
/// can be compared before they are stored.
class SourceBrowserTextBuffer
{
public:
    [[nodiscard]] bool isEmpty() const { return m_units.isEmpty(); }
    [[nodiscard]] qsizetype size() const { return m_units.size(); }
    [[nodiscard]] QStringView view() const { return {m_units.constData(), m_units.size()}; }
    [[nodiscard]] QChar back() const { return m_units.back(); }
    [[nodiscard]] bool startsWith(char16_t unit) const { return !isEmpty() && m_units.front() == unit; }
    [[nodiscard]] bool endsWith(char16_t unit) const { return !isEmpty() && m_units.back() == unit; }

    void append(QStringView text) { m_units.append(text.utf16(), text.size()); }
    void append(char16_t unit) { m_units.append(unit); }
    void removeLast() { m_units.removeLast(); }

private:
    QVarLengthArray<char16_t, 80> m_units;
};

} // namespace tavidoc
