/*! Counts the words of \a text.
    \code
    count("two words") == 2
    \endcode
    NOTE: only spaces separate words. */
#include <stddef.h>
#define LIMIT 1'000u

size_t count(const char *text)
{
    size_t words = 0; // FIXME: tabs
    \vdots
    return words < LIMIT ? words : LIMIT;
}
