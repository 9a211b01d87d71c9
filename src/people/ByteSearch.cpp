// Looking for a word in much text.
// SPDX-License-Identifier: MIT
#include <cstring>

#include <people/ByteSearch.h>

#ifdef __SSE2__
#include <bit>
#include <emmintrin.h>
#endif

namespace orvo {
namespace {

std::size_t FindPlainly(std::string_view text, std::string_view word, std::size_t from) {
    const void* found = memmem(text.data() + from, text.size() - from, word.data(), word.size());
    if (!found) return std::string_view::npos;
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

#ifdef __SSE2__
__m128i Load(const char* bytes) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

// Looks at sixteen places at once, whether the first and the last byte of the word are there. What
// is left at the end of the text begins at `from`.
std::size_t FindBySixteen(std::string_view text, std::string_view word, std::size_t& from) {
    constexpr std::size_t kAtOnce = sizeof(__m128i);
    const __m128i first = _mm_set1_epi8(word.front());
    const __m128i last = _mm_set1_epi8(word.back());
    const std::size_t way = word.size() - 1;
    for (from = 0; from + way + kAtOnce <= text.size(); from += kAtOnce) {
        const char* const here = text.data() + from;
        const __m128i areThere = _mm_and_si128(_mm_cmpeq_epi8(Load(here), first),
                                               _mm_cmpeq_epi8(Load(here + way), last));
        auto places = static_cast<unsigned>(_mm_movemask_epi8(areThere));
        for (; places != 0; places &= places - 1) {
            const auto place = from + static_cast<std::size_t>(std::countr_zero(places));
            if (std::memcmp(text.data() + place, word.data(), word.size()) == 0) return place;
        }
    }
    return std::string_view::npos;
}
#endif

}  // namespace

std::size_t FindBytes(std::string_view text, std::string_view word) {
    if (word.empty() || word.size() > text.size()) return std::string_view::npos;
    std::size_t from = 0;
#ifdef __SSE2__
    const std::size_t place = FindBySixteen(text, word, from);
    if (place != std::string_view::npos) return place;
#endif
    return FindPlainly(text, word, from);
}

}  // namespace orvo
