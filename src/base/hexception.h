#pragma once

/*!!
 * \h1 hexception.h
 *
 * The error that ends a run.
 */

#include <QByteArray>

namespace tavidoc {

/*!
 * \h1 \this
 * The only exception class of the program: it carries the message of an error that ends the run. It is thrown by value
 * and caught by reference; only the driver prints it.
 * \sa \xref{hexception_h}{hexception.h}
 * \ingroup \this
 */
class HException
{
public:
    explicit HException(QByteArray message);

    /*!
     * \h1 HException::\this
     * The message, UTF-8, without a line end.
     * \synopsis
     * \sa \xref{HException}
     * \ingroup HException
     */
    [[nodiscard]] const QByteArray &message() const { return m_message; }

    /*!
     * \h1 HException::\this
     * The number of exceptions constructed in this process.
     * \synopsis
     * \sa \xref{HException}
     * \ingroup HException
     */
    static int m_count;

private:
    QByteArray m_message;
};

} // namespace tavidoc
