#include "ring_buffer.h"

#include <stdatomic.h>
#include <stdbool.h>
#include <stdlib.h>
#include <string.h>

/* Both counters only grow, and wrap with their type. The capacity is a power of two, so their difference
   is correct even then. Only the writer stores head, only the reader stores tail. */
struct ring_buffer
{
    size_t capacity;
    atomic_size_t head; /* bytes written so far */
    atomic_size_t tail; /* bytes read so far */
    atomic_size_t refused;
    unsigned char *bytes; /* after the structure, in the same allocation */
};

const char ring_buffer_version_text[] = "1.2.0";

static size_t smaller(size_t a, size_t b)
{
    return a < b ? a : b;
}

ring_buffer *ring_buffer_new(size_t capacity)
{
    if (capacity == 0 || capacity > RING_BUFFER_MAXIMUM)
        return NULL;
    size_t rounded = 1;
    while (rounded < capacity)
        rounded *= 2;
    ring_buffer *buffer = malloc(sizeof *buffer + rounded);
    if (buffer == NULL)
        return NULL;
    buffer->capacity = rounded;
    buffer->bytes = (unsigned char *)(buffer + 1);
    atomic_init(&buffer->head, 0);
    atomic_init(&buffer->tail, 0);
    atomic_init(&buffer->refused, 0);
    return buffer;
}

void ring_buffer_free(ring_buffer *buffer)
{
    free(buffer);
}

/* Copies into the ring, in two pieces if the bytes wrap around. */
static void copy_in(ring_buffer *buffer, size_t position, const unsigned char *bytes, size_t count)
{
    const size_t begin = position & (buffer->capacity - 1);
    const size_t before_seam = smaller(count, buffer->capacity - begin);
    memcpy(buffer->bytes + begin, bytes, before_seam);
    memcpy(buffer->bytes, bytes + before_seam, count - before_seam);
}

static void copy_out(const ring_buffer *buffer, size_t position, unsigned char *bytes, size_t count)
{
    const size_t begin = position & (buffer->capacity - 1);
    const size_t before_seam = smaller(count, buffer->capacity - begin);
    memcpy(bytes, buffer->bytes + begin, before_seam);
    memcpy(bytes + before_seam, buffer->bytes, count - before_seam);
}

/* Writes up to count bytes; all or none if whole is set. */
static size_t put(ring_buffer *buffer, const void *bytes, size_t count, bool whole)
{
    const size_t head = atomic_load_explicit(&buffer->head, memory_order_relaxed);
    const size_t tail = atomic_load_explicit(&buffer->tail, memory_order_acquire);
    const size_t space = buffer->capacity - (head - tail);
    const size_t written = count <= space ? count : whole ? 0 : space;
    if (written > 0) {
        copy_in(buffer, head, bytes, written);
        atomic_store_explicit(&buffer->head, head + written, memory_order_release);
    }
    atomic_fetch_add_explicit(&buffer->refused, count - written, memory_order_relaxed);
    return written;
}

size_t ring_buffer_write(ring_buffer *buffer, const void *bytes, size_t count)
{
    return put(buffer, bytes, count, false);
}

ring_buffer_status ring_buffer_write_all(ring_buffer *buffer, const void *bytes, size_t count)
{
    if (put(buffer, bytes, count, true) == count)
        return RING_BUFFER_OK;
    return count > buffer->capacity ? RING_BUFFER_TOO_LARGE : RING_BUFFER_FULL;
}

size_t ring_buffer_peek(const ring_buffer *buffer, void *bytes, size_t count)
{
    const size_t tail = atomic_load_explicit(&buffer->tail, memory_order_relaxed);
    const size_t head = atomic_load_explicit(&buffer->head, memory_order_acquire);
    const size_t copied = smaller(count, head - tail);
    if (copied > 0)
        copy_out(buffer, tail, bytes, copied);
    return copied;
}

size_t ring_buffer_skip(ring_buffer *buffer, size_t count)
{
    const size_t tail = atomic_load_explicit(&buffer->tail, memory_order_relaxed);
    const size_t head = atomic_load_explicit(&buffer->head, memory_order_acquire);
    const size_t dropped = smaller(count, head - tail);
    atomic_store_explicit(&buffer->tail, tail + dropped, memory_order_release);
    return dropped;
}

size_t ring_buffer_read(ring_buffer *buffer, void *bytes, size_t count)
{
    return ring_buffer_skip(buffer, ring_buffer_peek(buffer, bytes, count));
}

size_t ring_buffer_visit(ring_buffer *buffer, ring_buffer_visitor visitor, void *context)
{
    const size_t first = atomic_load_explicit(&buffer->tail, memory_order_relaxed);
    const size_t head = atomic_load_explicit(&buffer->head, memory_order_acquire);
    size_t tail = first;
    while (tail != head) {
        const size_t begin = tail & (buffer->capacity - 1);
        const size_t shown = smaller(head - tail, buffer->capacity - begin);
        const size_t used = smaller(shown, visitor(buffer->bytes + begin, shown, context));
        tail += used;
        atomic_store_explicit(&buffer->tail, tail, memory_order_release);
        if (used < shown)
            break;
    }
    return tail - first;
}

size_t ring_buffer_capacity(const ring_buffer *buffer)
{
    return buffer->capacity;
}

/* After the tail is loaded, the head may advance by more than the capacity before it is loaded. */
size_t ring_buffer_size(const ring_buffer *buffer)
{
    const size_t tail = atomic_load_explicit(&buffer->tail, memory_order_acquire);
    const size_t head = atomic_load_explicit(&buffer->head, memory_order_acquire);
    return smaller(head - tail, buffer->capacity);
}

size_t ring_buffer_space(const ring_buffer *buffer)
{
    return buffer->capacity - ring_buffer_size(buffer);
}

ring_buffer_statistics ring_buffer_measure(const ring_buffer *buffer)
{
    const ring_buffer_statistics result = {
        .written = atomic_load_explicit(&buffer->head, memory_order_relaxed),
        .read = atomic_load_explicit(&buffer->tail, memory_order_relaxed),
        .refused = atomic_load_explicit(&buffer->refused, memory_order_relaxed),
    };
    return result;
}

const char *ring_buffer_status_text(ring_buffer_status status)
{
    switch (status) {
    case RING_BUFFER_OK:
        return "success";
    case RING_BUFFER_FULL:
        return "the buffer is full";
    case RING_BUFFER_TOO_LARGE:
        return "the message is larger than the buffer";
    }
    return "unknown status";
}
