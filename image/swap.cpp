#include "image/swap.h"

#include <tmmintrin.h>

#include <utility>

#include "image/processor.h"

void SwapPixels(unsigned char* pixels, std::size_t count) {
  for (const unsigned char* const end = pixels + 3 * count; pixels < end; pixels += 3) std::swap(pixels[0], pixels[2]);
}

// 16 pixels lie in three vectors. Each result byte comes from the vector it lies in or, at a border, from a neighbour.
FOR_SSSE3 void SwapPixelsSsse3(unsigned char* pixels, std::size_t count) {
  constexpr std::size_t kBlockPixels = 16;
  const char no = -1;  // takes nothing
  const __m128i firstOwn = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, no);
  const __m128i firstNext = _mm_setr_epi8(no, no, no, no, no, no, no, no, no, no, no, no, no, no, no, 1);
  const __m128i secondPrevious = _mm_setr_epi8(no, 15, no, no, no, no, no, no, no, no, no, no, no, no, no, no);
  const __m128i secondOwn = _mm_setr_epi8(0, no, 4, 3, 2, 7, 6, 5, 10, 9, 8, 13, 12, 11, no, 15);
  const __m128i secondNext = _mm_setr_epi8(no, no, no, no, no, no, no, no, no, no, no, no, no, no, 0, no);
  const __m128i thirdPrevious = _mm_setr_epi8(14, no, no, no, no, no, no, no, no, no, no, no, no, no, no, no);
  const __m128i thirdOwn = _mm_setr_epi8(no, 3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10, 15, 14, 13);
  for (; count >= kBlockPixels; count -= kBlockPixels, pixels += 3 * kBlockPixels) {
    auto* vectors = reinterpret_cast<__m128i*>(pixels);
    const __m128i first = _mm_loadu_si128(vectors);
    const __m128i second = _mm_loadu_si128(vectors + 1);
    const __m128i third = _mm_loadu_si128(vectors + 2);
    _mm_storeu_si128(vectors, _mm_or_si128(_mm_shuffle_epi8(first, firstOwn), _mm_shuffle_epi8(second, firstNext)));
    _mm_storeu_si128(vectors + 1, _mm_or_si128(_mm_shuffle_epi8(second, secondOwn),
                                               _mm_or_si128(_mm_shuffle_epi8(first, secondPrevious),
                                                            _mm_shuffle_epi8(third, secondNext))));
    _mm_storeu_si128(vectors + 2,
                     _mm_or_si128(_mm_shuffle_epi8(third, thirdOwn), _mm_shuffle_epi8(second, thirdPrevious)));
  }
  SwapPixels(pixels, count);
}

void SwapRedAndBlue(unsigned char* pixels, int width, int height) {
  if (width < 0 || height < 0) return;
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  (HasSsse3() ? SwapPixelsSsse3 : SwapPixels)(pixels, count);
}
