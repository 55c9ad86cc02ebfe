#pragma once

/*!!
 * \h1 message.h
 *
 * What is wrong in a document, as data: a \xref{Message} is one error or warning with its position. \xref{formatted}
 * makes the line that the program prints.
 *
 * \code
 * document.setMessageSink([&](const Message &message) {
 *     if (message.kind == Message::Kind::Error)
 *         ++errors;
 *     std::cerr << formatted(message);
 * });
 * \endcode
 */

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tavidoc {

/*!
 * \h1 \this
 * An error or a warning about a document. All text is UTF-8.
 *
 * \synopsis
 *
 * \param{kind} what it is: the page of an error contains a marker, or lacks what a malformed file defines; the page of a
 * warning is complete.
 *
 * \param{file} as it was named on the command line or in an include; empty for a message without a position.
 *
 * \param{line} counted from 1, or as \tt{\\line} numbers it.
 *
 * \param{text} what was found and what was expected.
 *
 * \param{check} the name of the check that found it, of static storage duration; empty for an error or warning of the
 * markup in general.
 * \sa \xref{message_h}{message.h}
 * \ingroup Types
 */
struct Message
{
    enum class Kind
    {
        Error,
        Warning,
    };

    Kind kind;
    std::string file;
    std::int64_t line = 0;
    std::string text;
    std::string_view check = {};
};

/// Receives messages, each when it arises.
using MessageSink = std::function<void(const Message &)>;

/*!
 * \h1 \this
 * "error" or "warning".
 * \synopsis
 * \sa \xref{message_h}{message.h}
 * \ingroup Functions
 */
[[nodiscard]] std::string_view nameOf(Message::Kind kind);

/*!
 * \h1 \this
 * One line, "\\n" included: "error: docgen: FILE:LINE: TEXT", or "error: docgen: TEXT" without a position.
 * \synopsis
 * \sa \xref{message_h}{message.h}
 * \ingroup Functions
 */
[[nodiscard]] std::string formatted(const Message &message);

/*!
 * \h1 \this
 * Writes the formatted \a{message} to the standard output. If that is closed or full, the message is lost silently.
 * \synopsis
 * \sa \xref{message_h}{message.h}
 * \ingroup Functions
 */
void printMessage(const Message &message);

} // namespace tavidoc
