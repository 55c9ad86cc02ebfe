#ifndef RING_BUFFER_H
#define RING_BUFFER_H

#include <stddef.h>

/*!!
 * \h1 ring_buffer.h
 *
 * A ring buffer passes bytes from a writer to a reader. It has a fixed capacity, allocates memory
 * only when it is created, and never blocks: a call that cannot process all bytes processes as many
 * as it can and returns their number.
 *
 * One thread may write while another reads, without a lock. This makes the buffer suitable for
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
 *     ring_buffer_read(line, text, 5);     // ... and come out again
 *     puts(text);
 *     ring_buffer_free(line);
 *     return 0;
 * }
 * \endcode
 *
 * \section Choosing a function
 *
 * \table{2in,*}
 * || Task | Function
 * | send as many bytes as fit | \xref{ring_buffer_write}
 * | send a complete message or nothing | \xref{ring_buffer_write_all}
 * | read and remove bytes | \xref{ring_buffer_read}
 * | inspect bytes before removing them | \xref{ring_buffer_peek}, then \xref{ring_buffer_skip}
 * | process bytes without copying them | \xref{ring_buffer_visit}
 * \endtable
 *
 * \section Threads
 *
 * Each buffer has two ends. Functions of the group Writing are for the writer, functions of the group
 * Reading for the reader. At any time, one thread may be in a function of each of these groups. Functions
 * of the group State may be called from any thread. Different buffers are independent.
 *
 * \grouporder Creating, Writing, Reading, State, Types, Constants
 */

/*!
 * \h1 \this
 * \brief The version of this header as a number, for comparisons.
 *
 * \synopsis
 * #define \this 10200
 *
 * \description
 * The sum of the major version times 10000, the minor version times 100, and the patch level. Version
 * 1.2.3 is 10203. This is the version at compile time; \xref{ring_buffer_version_text} is the version at run
 * time.
 *
 * \task Example
 *
 * \code
 * #if \this < 10200
 * #error "ring_buffer_visit() requires version 1.2"
 * #endif
 * \endcode
 *
 * \sa
 * \xref{ring_buffer_version_text}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Constants
 */
#define RING_BUFFER_VERSION 10200

/*!
 * \h1 \this
 * \brief The maximum capacity of a buffer, in bytes.
 *
 * \synopsis
 * #define \this ((((size_t)-1) >> 2) + 1)
 *
 * \description
 * A quarter of the range of \tt{size_t}: 2\sup{30} bytes if it has 32 bits. \xref{ring_buffer_new}
 * rejects greater capacities.
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
 * The structure is opaque. \xref{ring_buffer_new} creates a buffer, the other functions take a pointer
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
 * \brief The result of \f{ring_buffer_write_all}.
 *
 * \synopsis
 *
 * \description
 * \table{2.2in,*}
 * || Value | Meaning
 * | \tt{RING_BUFFER_OK} | Success. The value is 0.
 * | \tt{RING_BUFFER_FULL} | There is not enough free space. Retry after the reader has removed bytes.
 * | \tt{RING_BUFFER_TOO_LARGE} | The message is larger than the capacity.
 * \endtable
 *
 * The buffer is unchanged unless the result is \tt{RING_BUFFER_OK}.
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
 * \brief The traffic of a buffer since its creation.
 *
 * \synopsis
 *
 * \description
 * All counters are in bytes. They wrap to 0 after the maximum value of their type.
 *
 * \param{written} bytes written.
 *
 * \param{read} bytes removed, including skipped and visited bytes.
 *
 * \param{refused} bytes for which \xref{ring_buffer_write} and \xref{ring_buffer_write_all} had no space.
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
 * \brief A callback that processes bytes in place.
 *
 * \synopsis
 *
 * \description
 * \xref{ring_buffer_visit} calls it once for each contiguous piece of memory, in the order in which the
 * bytes were written.
 *
 * \param{bytes} the bytes. The visitor must not keep the pointer.
 *
 * \param{count} their number, at least 1.
 *
 * \param{context} the context passed to \f{ring_buffer_visit}.
 *
 * \rv
 * The number of processed bytes, from 0 to \a{count}. A value less than \a{count} ends the visit.
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
extern const char ring_buffer_version_text[];

/*!
 * \h1 \this
 * \brief Creates an empty buffer.
 *
 * \synopsis
 *
 * \description
 * This function allocates all memory of the buffer.
 *
 * \param{capacity} the minimum capacity in bytes, from 1 to \xref{RING_BUFFER_MAXIMUM}. It is rounded up
 * to a power of two.
 *
 * \rv
 * \return the buffer, or a null pointer. The caller releases the buffer with \xref{ring_buffer_free}.
 *
 * \errors
 * The result is null if \a{capacity} is 0 or too large, or if there is not enough memory.
 *
 * \ts
 * It may be called from any thread.
 *
 * \sa
 * \xref{ring_buffer_free}, \xref{ring_buffer_capacity}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Creating
 */
ring_buffer *ring_buffer_new(size_t capacity);

/*!
 * \h1 \this
 * \brief Releases a buffer and its contents.
 *
 * \synopsis
 *
 * \param{buffer} the buffer to release, or a null pointer, which has no effect.
 *
 * \ts
 * No other thread may be using the buffer.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup Creating
 */
void ring_buffer_free(ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief Writes as many bytes as fit.
 *
 * \synopsis
 *
 * \description
 * The bytes are copied in order. Bytes that do not fit are not written and count as refused.
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} the bytes to write; may be null if \a{count} is 0.
 *
 * \param{count} their number.
 *
 * \rv
 * \return the number of bytes written, from 0 to \a{count}.
 *
 * \ts
 * For one writer at a time; a reader may be active meanwhile.
 *
 * \task Example
 *
 * \code
 * // Retry until everything is sent.
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
 * \brief Writes all bytes or none.
 *
 * \synopsis
 *
 * \description
 * The reader never sees only a part of the bytes: all become available at once. Use this function for
 * messages.
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} the bytes to write; may be null if \a{count} is 0.
 *
 * \param{count} their number.
 *
 * \rv
 * \return \tt{RING_BUFFER_OK}, or the reason why nothing was written.
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
 * \brief Reads and removes bytes.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} the destination, with space for \a{count} bytes; may be null if \a{count} is 0.
 *
 * \param{count} the maximum number of bytes to read.
 *
 * \rv
 * \return the number of bytes read, from 0 to \a{count}. It is 0 if the buffer is empty.
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
 * \brief Copies bytes without removing them.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{bytes} the destination, with space for \a{count} bytes; may be null if \a{count} is 0.
 *
 * \param{count} the maximum number of bytes to copy.
 *
 * \rv
 * \return the number of bytes copied, from 0 to \a{count}.
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
 * \brief Removes bytes without reading them.
 *
 * \synopsis
 *
 * \param{buffer} the buffer.
 *
 * \param{count} the maximum number of bytes to remove.
 *
 * \rv
 * \return the number of bytes removed, from 0 to \a{count}.
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
 * \brief Passes the bytes to a callback, without copying them.
 *
 * \synopsis
 *
 * \description
 * The bytes are in up to two pieces, because the ring wraps around. After each call, the bytes that the
 * visitor has processed are removed from the buffer. Bytes written during the visit are left for the next
 * one.
 *
 * \param{buffer} the buffer.
 *
 * \param{visitor} the callback for each piece, see \xref{ring_buffer_visitor}.
 *
 * \param{context} a pointer that is passed to the visitor.
 *
 * \rv
 * \return the number of processed bytes.
 *
 * \errors
 * If a visitor returns more bytes than it received, it counts as having processed all of them.
 *
 * \ts
 * For one reader at a time; a writer may be active meanwhile. The visitor must not call functions of the
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
 * \brief The capacity of a buffer.
 *
 * \synopsis
 *
 * \rv
 * \return the capacity in bytes, a power of two and at least the one passed to \xref{ring_buffer_new}.
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
 * \brief The number of bytes that can be read.
 *
 * \synopsis
 *
 * \rv
 * \return the number of bytes in the buffer, from 0 to its capacity.
 *
 * \ts
 * It may be called from any thread. For the reader, the number can only grow until its next read; for other
 * threads it may already be out of date.
 *
 * \sa
 * \xref{ring_buffer_space}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
size_t ring_buffer_size(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief The number of bytes that can be written.
 *
 * \synopsis
 *
 * \rv
 * \return the number of free bytes, from 0 to the capacity.
 *
 * \ts
 * It may be called from any thread. For the writer, the number can only grow until its next write; for other
 * threads it may already be out of date.
 *
 * \sa
 * \xref{ring_buffer_size}, \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
size_t ring_buffer_space(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief The traffic of a buffer so far.
 *
 * \synopsis
 *
 * \rv
 * \return the three counters, see \xref{ring_buffer_statistics}.
 *
 * \ts
 * It may be called from any thread. Each counter is correct, but while other threads are active the counters
 * may be from different moments.
 *
 * \sa
 * \xref{ring_buffer_h}{ring_buffer.h}
 *
 * \ingroup State
 */
ring_buffer_statistics ring_buffer_measure(const ring_buffer *buffer);

/*!
 * \h1 \this
 * \brief A description of a status.
 *
 * \synopsis
 *
 * \param{status} the result of \xref{ring_buffer_write_all}.
 *
 * \rv
 * \return an English text without a full stop; \dq{unknown status} for any other number. The text is a
 * constant and must not be released.
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
