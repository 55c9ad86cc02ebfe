#pragma once

#include <QByteArray>

/// The one exception of the program: it carries the final message of an error that ends the
/// run. Thrown by value, caught by reference; only the driver prints it.
class HException
{
public:
    explicit HException(QByteArray message);

    /// The message, UTF-8, without a line end.
    [[nodiscard]] const QByteArray &message() const { return m_message; }

    static int m_count; ///< how many have been constructed in this process

private:
    QByteArray m_message;
};
