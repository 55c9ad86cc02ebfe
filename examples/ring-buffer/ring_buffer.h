#ifndef RING_BUFFER_H
#define RING_BUFFER_H

#include <stddef.h>

/*!!
 * \h1 ring_buffer.h
 *
 * A ring buffer carries bytes from the one who writes them to the one who reads them. It holds a
 * fixed number of bytes, never allocates after it was made, and never waits: a call that cannot do
 * all it was asked to does what it can and says how much that was.
 *
 * One thread may write while another one reads, without a lock. That makes it a good neighbour of
 * interrupts, audio callbacks and serial lines.
 *
 * \section A first program
 *
 * \code
 * #include "ring_buffer.h"
 * #include <stdio.h>
 *
 * int main(void)
 * {
 *     ring_buffer *line = ring_buffer_new(64);
 *     char text[6] = "";
 *
 *     ring_buffer_write(line, "Hello", 5); // five bytes go in ...
 *     ring_buffer_read(line, text, 5);     // ... and come out in the same order
 *     puts(text);
 *     ring_buffer_free(line);
 *     return 0;
 * }
 * \endcode
 *
 * \section Which call for what
 *
 * \table{2in,*}
 * || You want to | Call
 * | send as much as fits | \xref{ring_buffer_write}
 * | send a message whole or not at all | \xref{ring_buffer_write_all}
 * | take bytes out | \xref{ring_buffer_read}
 * | look before you take | \xref{ring_buffer_peek}, then \xref{ring_buffer_skip}
 * | take bytes without copying them | \xref{ring_buffer_visit}
 * \endtable
 *
 * \section Threads
 *
 * Each buffer has two ends. Functions of the group Writing belong to the writer, those of the group
 * Reading to the reader; at any time one thread may be in a function of each group. Functions of the
 * group State may be called from anywhere. Two different buffers have nothing in common.
 *
 * \grouporder Making, Writing, Reading, State, Types, Constants
 */

/*!
 * \h1 \this
 * \brief The version of this header, as a number that can be compared.
 *
 * \synopsis
 * #define \this 10200
 *
 * \description
 * The major version times 10000, the minor version times 100, and the patch level, added up. Version
 * 1.2.3 is 10203. It tells what a program was compiled with; \xref{ring_buffer_version} tells what it
 * runs with.
 *
 * \task Example
 *
 * \code
 * #if \this < 10200
 * #error "ring_buffer_visit() came with version 1.2"
 * #endif
 * \endcode
 *
 * \sa
 * \xref{ring_buffer_version}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Constants
 */
#define RING_BUFFER_VERSION 10200

/*!
 * \h1 \this
 * \brief The largest capacity that a buffer can have, in bytes.
 *
 * \synopsis
 * #define \this ((((size_t)-1) >> 2) + 1)
 *
 * \description
 * A quarter of what \tt{size_t} can count: 2\sup{30} bytes where it has 32 bits. \xref{ring_buffer_new}
 * refuses a greater one.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Constants
 */
#define RING_BUFFER_MAXIMUM ((((size_t)-1) >> 2) + 1)

#ifdef __cplusplus
extern "C" {
#endif

/*!
 * \h1 \this
 * \brief A ring buffer.
 *
 * \synopsis
 *
 * \description
 * The structure is not public. \xref{ring_buffer_new} makes one, every other function takes a pointer
 * to it, and \xref{ring_buffer_free} releases it.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Types
 */
typedef struct ring_buffer ring_buffer;

/*!
 * \h1 \this
 * \brief What became of a call that does all or nothing.
 *
 * \synopsis
 *
 * \description
 * \table{2.2in,*}
 * || Value | Meaning
 * | \tt{RING_BUFFER_OK} | It was done. The value is 0.
 * | \tt{RING_BUFFER_FULL} | There is no room now. It may be done when the reader has taken something out.
 * | \tt{RING_BUFFER_TOO_LARGE} | There never will be room: the capacity is smaller.
 * \endtable
 *
 * Everything but \tt{RING_BUFFER_OK} left the buffer as it was.
 *
 * \sa
 * \xref{ring_buffer_write_all}, \xref{ring_buffer_status_text}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Types
 */
typedef enum
{
    RING_BUFFER_OK = 0,
    RING_BUFFER_FULL,
    RING_BUFFER_TOO_LARGE
} ring_buffer_status;

/*!
 * \h1 \this
 * \brief What went through a buffer since it was made.
 *
 * \synopsis
 *
 * \description
 * All three are counted in bytes and begin again at 0 when they have reached the greatest value of
 * their type.
 *
 * \param{written} what was put in.
 *
 * \param{read} what was taken out, skipped and visited bytes included.
 *
 * \param{refused} what \xref{ring_buffer_write} and \xref{ring_buffer_write_all} found no room for.
 *
 * \sa
 * \xref{ring_buffer_measure}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Types
 */
typedef struct
{
    size_t written;
    size_t read;
    size_t refused;
} ring_buffer_statistics;

/*!
 * \h1 \this
 * \brief A function that is shown the bytes of a buffer.
 *
 * \synopsis
 *
 * \description
 * \xref{ring_buffer_visit} calls it once for each piece of memory in which bytes lie, in the order in
 * which they were written.
 *
 * \param{bytes} where they lie. The visitor must not keep the pointer.
 *
 * \param{count} their number, at least 1.
 *
 * \param{context} what was given to \f{ring_buffer_visit}.
 *
 * \rv
 * How many of them were used up, from 0 to \a{count}. Less than \a{count} ends the visit.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Types
 */
typedef size_t (*ring_buffer_visitor)(const void *bytes, size_t count, void *context);

/*!
 * \h1 \this
 * \brief The version of the library, as text.
 *
 * \synopsis
 *
 * \description
 * Three decimal numbers, joined by full stops.
 *
 * \sa
 * \xref{RING_BUFFER_VERSION}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Constants
 */
extern const char ring_buffer_version[];

/*!
 * \h1 \this
 * \brief Makes an empty buffer.
 *
 * \synopsis
 *
 * \description
 * All memory that the buffer will ever need is allocated here.
 *
 * \param{capacity} how many bytes the buffer must hold, from 1 to \xref{RING_BUFFER_MAXIMUM}; it is
 * rounded up to a power of two.
 *
 * \rv
 * \return the buffer, which the caller releases with \xref{ring_buffer_free}, or a null pointer.
 *
 * \errors
 * The result is null when \a{capacity} is 0 or too large, and when there is no memory.
 *
 * \ts
 * It may be called from any thread.
 *
 * \sa
 * \xref{ring_buffer_free}, \xref{ring_buffer_capacity}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Making
 */
ring_buffer *ring_buffer_new(size_t capacity);

/*!
 * \h1 \this
 * \brief Releases a buffer and what is left in it.
 *
 * \synopsis
 *
 * \param{buffer} what \xref{ring_buffer_new} has returned. With a null pointer nothing happens.
 *
 * \ts
 * No other thread may use the buffer any more.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Making
 */
void ring_buffer_free(ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief Puts in as many bytes as there is room for.
 *
 * \synopsis
 *
 * \description
 * The bytes are copied, the first one first. What finds no room is not written and is counted as refused.
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} where the bytes lie; when \a{count} is 0 it may be null.
 *
 * \param{count} their number.
 *
 * \rv
 * \return the number of bytes that were written, from 0 to \a{count}.
 *
 * \ts
 * For one writer at a time; a reader may be active meanwhile.
 *
 * \task Example
 *
 * \code
 * // Sends everything, however long it takes.
 * while (count > 0) {
 *     const size_t done = \this(line, bytes, count);
 *     bytes += done;
 *     count -= done;
 * }
 * \endcode
 *
 * \sa
 * \xref{ring_buffer_write_all}, \xref{ring_buffer_space}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Writing
 */
size_t ring_buffer_write(ring_buffer *buffer, const void *bytes, size_t count);

/*!
 * \h1 \this
 * \brief Puts in all bytes or none.
 *
 * \synopsis
 *
 * \description
 * The reader never sees a part of them: they appear all at once. That makes it the call for messages.
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} where the bytes lie; when \a{count} is 0 it may be null.
 *
 * \param{count} their number.
 *
 * \rv
 * \return \tt{RING_BUFFER_OK}, or why nothing was written.
 *
 * \errors
 * \term \tt{RING_BUFFER_FULL}
 * \item Fewer than \a{count} bytes are free.
 * \term \tt{RING_BUFFER_TOO_LARGE}
 * \item \a{count} is greater than the capacity.
 *
 * \ts
 * For one writer at a time; a reader may be active meanwhile.
 *
 * \sa
 * \xref{ring_buffer_write}, \xref{ring_buffer_status}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Writing
 */
ring_buffer_status ring_buffer_write_all(ring_buffer *buffer, const void *bytes, size_t count);

/*!
 * \h1 \this
 * \brief Takes out as many bytes as there are.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} room for them; when \a{count} is 0 it may be null.
 *
 * \param{count} how many are wanted.
 *
 * \rv
 * \return the number of bytes that were read, from 0 to \a{count}. It is 0 when the buffer is empty.
 *
 * \ts
 * For one reader at a time; a writer may be active meanwhile.
 *
 * \sa
 * \xref{ring_buffer_peek}, \xref{ring_buffer_visit}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Reading
 */
size_t ring_buffer_read(ring_buffer *buffer, void *bytes, size_t count);

/*!
 * \h1 \this
 * \brief Copies bytes and leaves them in the buffer.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} room for them; when \a{count} is 0 it may be null.
 *
 * \param{count} how many are wanted.
 *
 * \rv
 * \return the number of bytes that were copied, from 0 to \a{count}.
 *
 * \ts
 * For one reader at a time; a writer may be active meanwhile.
 *
 * \sa
 * \xref{ring_buffer_skip}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Reading
 */
size_t ring_buffer_peek(const ring_buffer *buffer, void *bytes, size_t count);

/*!
 * \h1 \this
 * \brief Takes bytes out without looking at them.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{count} how many shall go.
 *
 * \rv
 * \return the number of bytes that were dropped, from 0 to \a{count}.
 *
 * \ts
 * For one reader at a time; a writer may be active meanwhile.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Reading
 */
size_t ring_buffer_skip(ring_buffer *buffer, size_t count);

/*!
 * \h1 \this
 * \brief Shows the bytes to a function, where they lie.
 *
 * \synopsis
 *
 * \description
 * Nothing is copied. Since a ring has a seam, there are up to two pieces. What the visitor has used up is
 * taken out of the buffer after each call of it; bytes that are written meanwhile are left for the next visit.
 *
 * \param{buffer} the buffer.
 *
 * \param{visitor} the function that is shown each piece, see \xref{ring_buffer_visitor}.
 *
 * \param{context} whatever the visitor needs; it is handed on.
 *
 * \rv
 * \return the number of bytes that were used up.
 *
 * \errors
 * A visitor that claims more bytes than it was shown is taken to have used up what it was shown.
 *
 * \ts
 * For one reader at a time; a writer may be active meanwhile. The visitor must call no function of the
 * group Reading for the same buffer.
 *
 * \task Example
 *
 * \code
 * static size_t to_file(const void *bytes, size_t count, void *file)
 * {
 *     return fwrite(bytes, 1, count, file);
 * }
 *
 * \this(line, to_file, stdout);
 * \endcode
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Reading
 */
size_t ring_buffer_visit(ring_buffer *buffer, ring_buffer_visitor visitor, void *context);

/*!
 * \h1 \this
 * \brief How many bytes the buffer can hold.
 *
 * \synopsis
 *
 * \rv
 * \return the capacity in bytes, a power of two and at least what \xref{ring_buffer_new} was asked for.
 *
 * \ts
 * It may be called from any thread.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
size_t ring_buffer_capacity(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief How many bytes can be read.
 *
 * \synopsis
 *
 * \rv
 * \return the number of bytes in the buffer, from 0 to its capacity.
 *
 * \ts
 * It may be called from any thread. For the reader it is a number that can only grow until it reads; for
 * anyone else it may be out of date when it arrives.
 *
 * \sa
 * \xref{ring_buffer_space}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
size_t ring_buffer_size(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief How many bytes can be written.
 *
 * \synopsis
 *
 * \rv
 * \return the number of free bytes, from 0 to the capacity.
 *
 * \ts
 * It may be called from any thread. For the writer it is a number that can only grow until it writes; for
 * anyone else it may be out of date when it arrives.
 *
 * \sa
 * \xref{ring_buffer_size}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
size_t ring_buffer_space(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief What went through the buffer so far.
 *
 * \synopsis
 *
 * \rv
 * \return the three counters, see \xref{ring_buffer_statistics}.
 *
 * \ts
 * It may be called from any thread. Each counter is right; while the other threads go on, they need not
 * belong to the same moment.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
ring_buffer_statistics ring_buffer_measure(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief A status in words.
 *
 * \synopsis
 *
 * \param{status} what \xref{ring_buffer_write_all} has returned.
 *
 * \rv
 * \return a text in English without a full stop, \dq{unknown status} for a number that is none. It is a
 * constant and is not released.
 *
 * \ts
 * It may be called from any thread.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
const char *ring_buffer_status_text(ring_buffer_status status);

#ifdef __cplusplus
}
#endif

#endif
