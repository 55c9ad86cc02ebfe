#include "ring_buffer.h"

#include <stdio.h>
#include <string.h>
#include <threads.h>

static int s_failures;

#define CHECK(condition)                                                                                               \
    ((condition) ? (void)0 : (void)(s_failures++, fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition)))

static void rejects_an_invalid_capacity(void)
{
    CHECK(ring_buffer_new(0) == NULL);
    CHECK(ring_buffer_new(RING_BUFFER_MAXIMUM + 1) == NULL);
    ring_buffer *buffer = ring_buffer_new(5);
    CHECK(ring_buffer_capacity(buffer) == 8);
    ring_buffer_free(buffer);
    ring_buffer_free(NULL);
}

/* Every offset of the seam, every count. */
static void keeps_the_order_over_the_seam(void)
{
    ring_buffer *buffer = ring_buffer_new(8);
    char text[9];
    for (size_t round = 0; round < 64; round++) {
        const size_t count = round % 9;
        CHECK(ring_buffer_write(buffer, "abcdefgh", count) == count);
        CHECK(ring_buffer_size(buffer) == count && ring_buffer_space(buffer) == 8 - count);
        CHECK(ring_buffer_peek(buffer, text, 8) == count);
        CHECK(ring_buffer_read(buffer, text, 8) == count);
        CHECK(memcmp(text, "abcdefgh", count) == 0);
    }
    CHECK(ring_buffer_read(buffer, text, 8) == 0);
    ring_buffer_free(buffer);
}

static void writes_a_message_whole_or_not_at_all(void)
{
    ring_buffer *buffer = ring_buffer_new(8);
    CHECK(ring_buffer_write_all(buffer, "123456789", 9) == RING_BUFFER_TOO_LARGE);
    CHECK(ring_buffer_write_all(buffer, "12345", 5) == RING_BUFFER_OK);
    CHECK(ring_buffer_write_all(buffer, "6789", 4) == RING_BUFFER_FULL);
    CHECK(ring_buffer_write(buffer, "6789", 4) == 3);
    CHECK(ring_buffer_skip(buffer, 2) == 2 && ring_buffer_skip(buffer, 99) == 6);
    const ring_buffer_statistics total = ring_buffer_measure(buffer);
    CHECK(total.written == 8 && total.read == 8 && total.refused == 9 + 4 + 1);
    CHECK(strcmp(ring_buffer_status_text(RING_BUFFER_FULL), "the buffer is full") == 0);
    ring_buffer_free(buffer);
}

static size_t append_four(const void *bytes, size_t count, void *context)
{
    const size_t used = count < 4 ? count : 4;
    strncat(context, bytes, used);
    return used;
}

static size_t claim_too_much(const void *bytes, size_t count, void *context)
{
    (void)bytes, (void)context;
    return count + 1;
}

static void visits_the_bytes_in_place(void)
{
    ring_buffer *buffer = ring_buffer_new(8);
    char text[16] = "";
    ring_buffer_write(buffer, "......", 6);
    ring_buffer_skip(buffer, 6);
    ring_buffer_write(buffer, "abcdefgh", 8);
    CHECK(ring_buffer_visit(buffer, append_four, text) == 6); /* two before the seam, four of six after it */
    CHECK(strcmp(text, "abcdef") == 0);
    CHECK(ring_buffer_visit(buffer, claim_too_much, NULL) == 2);
    CHECK(ring_buffer_size(buffer) == 0);
    ring_buffer_free(buffer);
}

enum
{
    s_total = 1000000
};

static int write_a_million(void *buffer)
{
    for (int sent = 0; sent < s_total;) {
        const unsigned char byte = (unsigned char)(sent % 251);
        sent += (int)ring_buffer_write(buffer, &byte, 1);
    }
    return 0;
}

static void carries_a_million_bytes_to_another_thread(void)
{
    ring_buffer *buffer = ring_buffer_new(64);
    thrd_t writer;
    if (thrd_create(&writer, write_a_million, buffer) != thrd_success) {
        CHECK(!"thrd_create failed");
        ring_buffer_free(buffer);
        return;
    }
    int received = 0, wrong = 0;
    while (received < s_total) {
        unsigned char bytes[16];
        const size_t count = ring_buffer_read(buffer, bytes, sizeof bytes);
        for (size_t i = 0; i < count; i++, received++)
            wrong += bytes[i] != received % 251;
    }
    thrd_join(writer, NULL);
    CHECK(wrong == 0);
    ring_buffer_free(buffer);
}

int main(void)
{
    rejects_an_invalid_capacity();
    keeps_the_order_over_the_seam();
    writes_a_message_whole_or_not_at_all();
    visits_the_bytes_in_place();
    carries_a_million_bytes_to_another_thread();
    return s_failures == 0 ? 0 : 1;
}
