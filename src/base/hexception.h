#pragma once

/*!!
 * \h1 hexception.h
 *
 * How a run ends that cannot go on.
 */

#include <QByteArray>

namespace tavidoc {

/*!
 * \h1 \this
 * The one exception of the program: it carries the final message of an error that ends the
 * run. Thrown by value, caught by reference; only the driver prints it.
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
     * How many have been constructed in this process.
     * \synopsis
     * \sa \xref{HException}
     * \ingroup HException
     */
    static int m_count;

private:
    QByteArray m_message;
};

} // namespace tavidoc
