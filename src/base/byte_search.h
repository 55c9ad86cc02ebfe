#pragma once

#include <bit>
#include <cstddef>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace tavidoc {

/// The offset of the first of the \a Bytes in \a text from \a from on; the size of the text if there is none. Runs of
/// other bytes are skipped by blocks, where the processor can.
template <char... Bytes> [[nodiscard]] std::size_t findAnyOf(std::string_view text, std::size_t from)
{
#ifdef __SSE2__
    for (; from + sizeof(__m128i) <= text.size(); from += sizeof(__m128i)) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text.data() + from));
        __m128i found = _mm_setzero_si128();
        ((found = _mm_or_si128(found, _mm_cmpeq_epi8(block, _mm_set1_epi8(Bytes)))), ...);
        if (const auto mask = static_cast<unsigned>(_mm_movemask_epi8(found)); mask != 0)
            return from + static_cast<std::size_t>(std::countr_zero(mask));
    }
#endif
    while (from < text.size() && !((text[from] == Bytes) || ...))
        ++from;
    return from;
}

} // namespace tavidoc
