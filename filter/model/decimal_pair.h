// Two short decimals, as points have them, found in one look at sixteen bytes. Masks tell digits,
// points and signs apart; from their bits follows where both numbers end, so that a reader knows
// the place of the next pair long before the values are summed up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/short_decimal.h"

namespace egfsvg {

/// So many bytes must be readable where a pair is looked for.
inline constexpr std::ptrdiff_t kDecimalPairReach = 24;

/// A number, one byte that is a separator or the sign of the next, and that number. Exponents may
/// follow. It may miss pairs of many bytes.
class PlainDecimalPair {
 public:
  static PlainDecimalPair scan(const char* at) {
    PlainDecimalPair pair;
    pair.first_ = PlainShortDecimal::scan(at);
    pair.between_ = pair.first_.end();
    if (pair.between_ == nullptr || *pair.between_ == '.') return pair;
    pair.second_ = PlainShortDecimal::scan(pair.between_ + (*pair.between_ == '-' ? 0 : 1));
    const char* const end = pair.second_.end();
    if (end != nullptr && *end != '.') pair.end_ = end;
    return pair;
  }

  /// Behind the second number; null when there are no two.
  const char* end() const { return end_; }
  /// What stands between them: nothing that belongs to the first.
  char between() const { return *between_; }
  void values(double& first, double& second) const {
    first = first_.value();
    second = second_.value();
  }

 private:
  PlainShortDecimal first_;
  PlainShortDecimal second_;
  const char* between_ = nullptr;
  const char* end_ = nullptr;
};

#if defined(__SSE2__) && defined(__x86_64__)

class Sse2DecimalPair {
 public:
  [[gnu::always_inline]] static Sse2DecimalPair scan(const char* at) {
    const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i plain = _mm_xor_si128(text, _mm_set1_epi8('0'));
    const unsigned digits = maskOf(_mm_cmpeq_epi8(_mm_min_epu8(plain, _mm_set1_epi8(9)), plain));
    const unsigned points = maskOf(_mm_cmpeq_epi8(text, _mm_set1_epi8('.')));
    const unsigned minus = maskOf(_mm_cmpeq_epi8(text, _mm_set1_epi8('-')));
    const unsigned inside = digits | points;
    const unsigned signs = minus & ~((inside | minus) << 1);  // other "-" end a number
    const unsigned ends = (inside | signs) ^ kWholeMask;
    const unsigned laterEnds = ends & (ends - 1);
    if (laterEnds == 0) return {};
    const std::size_t firstEnd = lowestOf(ends);
    const std::size_t secondEnd = lowestOf(laterEnds);

    const std::size_t firstStart = signs & 1;
    const std::size_t secondSign = signs >> (firstEnd + 1) & 1;
    const std::size_t secondStart = firstEnd + 1 + secondSign;
    const detail::DigitPattern& first = patternAt(at, digits, firstStart);
    const detail::DigitPattern& second = patternAt(at, digits, secondStart);
    if (first.end != firstEnd - firstStart || second.end != secondEnd - secondStart) return {};

    Sse2DecimalPair pair;
    pair.digits_ = digitsOf(_mm_unpacklo_epi64(loadShifted(at + firstStart, first),
                                               loadShifted(at + secondStart, second)),
                            first, second);
    pair.between_ = at[firstEnd];
    pair.firstDivisor_ = first.divisor + firstStart;
    pair.secondDivisor_ = second.divisor + (secondSign | (pair.between_ == '-' ? 1 : 0));
    pair.end_ = at + secondEnd;
    return pair;
  }

  const char* end() const { return end_; }
  char between() const { return between_; }
  void values(double& first, double& second) const {
    const __m128d divisors = _mm_loadh_pd(_mm_load_sd(detail::kSignedPowersOfTen + firstDivisor_),
                                          detail::kSignedPowersOfTen + secondDivisor_);
    const __m128d result = _mm_div_pd(detail::sumsOfDigits(digits_), divisors);
    _mm_storel_pd(&first, result);
    _mm_storeh_pd(&second, result);
  }

 private:
  static constexpr unsigned kWholeMask = 0xFFFF;

  static unsigned maskOf(__m128i flags) { return static_cast<unsigned>(_mm_movemask_epi8(flags)); }
  static __m128i loadHalf(const void* from) {
    return _mm_loadl_epi64(static_cast<const __m128i*>(from));
  }

  /// Of a mask that has one: the number of its lowest bit.
  static std::size_t lowestOf(unsigned mask) { return static_cast<unsigned>(__builtin_ctz(mask)); }
  static const detail::DigitPattern& patternAt(const char* at, unsigned digits, std::size_t start) {
    return detail::patternOf(at + start, static_cast<std::uint8_t>(digits >> start));
  }

  /// The text of a number with its last byte on top of the word and zeros below.
  static __m128i loadShifted(const char* from, const detail::DigitPattern& pattern) {
    return _mm_sll_epi64(loadHalf(from), _mm_cvtsi32_si128(pattern.shift));
  }
  /// The digits of both halves without their points.
  static __m128i digitsOf(__m128i text, const detail::DigitPattern& first,
                          const detail::DigitPattern& second) {
    const __m128i digits = _mm_subs_epu8(text, _mm_set1_epi8('0'));  // the zeros stay
    const __m128i throughPoint =
        _mm_unpacklo_epi64(_mm_load_si128(reinterpret_cast<const __m128i*>(&first.throughPoint)),
                           _mm_load_si128(reinterpret_cast<const __m128i*>(&second.throughPoint)));
    return detail::withoutPoints(digits, throughPoint);
  }

  __m128i digits_{};
  std::size_t firstDivisor_ = 0;
  std::size_t secondDivisor_ = 0;
  char between_ = 0;
  const char* end_ = nullptr;
};

using DecimalPair = Sse2DecimalPair;

#else
using DecimalPair = PlainDecimalPair;
#endif

}  // namespace egfsvg
