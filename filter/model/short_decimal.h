// Decimal numbers of few bytes, the usual ones of drawings: perhaps a minus sign, digits, perhaps a
// point and digits, all but the sign within seven bytes. Eight bytes are looked at together. The
// pattern of digits among them chooses a row of a table, which tells where the number ends, how its
// digits close the gap of the point, and by which power of ten they are divided. Two numbers are
// summed up and divided at once. The class in plain C++ goes digit by digit.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__) && defined(__x86_64__)
#include <emmintrin.h>
#endif

namespace egfsvg {

/// So many bytes must be readable where a short decimal is looked for: a sign, eight digits and the
/// byte that ends them.
inline constexpr std::ptrdiff_t kShortDecimalReach = 10;

namespace detail {

inline constexpr std::ptrdiff_t kShortDecimalSize = 7;

/// Powers of ten and their negatives, by twice the count of decimals: dividing by these turns the
/// sign.
inline constexpr double kSignedPowersOfTen[] = {1e0,  -1e0, 1e1,  -1e1, 1e2,  -1e2, 1e3,
                                                -1e3, 1e4,  -1e4, 1e5,  -1e5, 1e6,  -1e6};

constexpr double signedPower(std::size_t decimals, bool negative) {
  return kSignedPowersOfTen[2 * decimals + (negative ? 1 : 0)];
}

}  // namespace detail

/// A short decimal that was looked for. An exponent may follow it.
class PlainShortDecimal {
 public:
  static PlainShortDecimal scan(const char* at) {
    PlainShortDecimal number;
    const bool negative = *at == '-';
    const char* const first = at + (negative ? 1 : 0);
    const char* point = nullptr;
    std::size_t decimals = 0;
    for (at = first; at - first <= detail::kShortDecimalSize; ++at) {
      const int digit = *at - '0';
      if (digit >= 0 && digit <= 9) {
        number.digits_ = number.digits_ * 10 + digit;
        decimals += point != nullptr ? 1 : 0;
      } else if (*at == '.' && point == nullptr) {
        point = at;
      } else {
        number.divisor_ = detail::signedPower(decimals, negative);
        if (at - first > (point != nullptr ? 1 : 0)) number.end_ = at;
        break;
      }
    }
    return number;
  }

  /// Behind the number; null when there is none.
  const char* end() const { return end_; }
  double value() const { return digits_ / divisor_; }
  static void values(const PlainShortDecimal& first, const PlainShortDecimal& second,
                     double& firstOut, double& secondOut) {
    firstOut = first.value();
    secondOut = second.value();
  }

 private:
  std::int32_t digits_ = 0;
  double divisor_ = 1.0;
  const char* end_ = nullptr;
};

#if defined(__SSE2__) && defined(__x86_64__)

namespace detail {

/// The numbers that the digits of both halves make: pairs, fours, eights.
inline __m128d sumsOfDigits(__m128i digits) {
  // Every other pair comes twice, and counts half: compilers would take one factor for all apart.
  constexpr short kPair = 10 * 0x100 + 1;
  const __m128i pairs =
      _mm_srli_epi16(_mm_mullo_epi16(digits, _mm_set_epi16(kPair, 2 * kPair, kPair, 2 * kPair,
                                                           kPair, 2 * kPair, kPair, 2 * kPair)),
                     8);
  const __m128i fours = _mm_madd_epi16(pairs, _mm_set1_epi32(0x10000 + 100 / 2));
  const __m128i eights =
      _mm_madd_epi16(_mm_packs_epi32(fours, fours), _mm_set1_epi32(0x10000 + 10000));
  return _mm_cvtepi32_pd(eights);
}

/// How a number at the start of eight bytes is made of its digits.
struct alignas(16) DigitPattern {
  std::uint64_t throughPoint;  // with the last digit on top: the bytes up to its point, and it
  std::uint32_t point;         // where the first byte stands that is no digit
  std::uint32_t divisor;       // in kSignedPowersOfTen, of a positive number
  std::int32_t shift;          // in bits: brings the last digit into the top byte
  std::uint32_t end;           // or kNoEnd when there is no number that ends in the eight bytes
};

inline constexpr int kWordBits = 64;
inline constexpr unsigned kWordBytes = 8;
inline constexpr std::uint32_t kNoEnd = 0xFF;

/// Of a number with a point, by a mask of the bytes that are digits.
inline constexpr auto kDigitPatterns = [] {
  std::array<DigitPattern, 1 << kWordBytes> rows{};
  for (unsigned digits = 0; digits < rows.size(); ++digits) {
    const unsigned others = ~digits & (rows.size() - 1);
    const auto point = static_cast<unsigned>(std::countr_one(digits));
    const auto end = static_cast<unsigned>(std::countr_zero(others & (others - 1)));
    rows[digits].point = point % kWordBytes;  // of digits alone, where no point stands either
    rows[digits].end = kNoEnd;
    if (end >= kWordBytes || end == 1) continue;  // a point alone is no number
    rows[digits].throughPoint = ~std::uint64_t{0} >> (8 * (end - point - 1));
    rows[digits].divisor = 2 * (end - point - 1);
    rows[digits].shift = kWordBits - 8 * static_cast<int>(end);
    rows[digits].end = end;
  }
  return rows;
}();

/// Of a number without one, by the count of its digits.
inline constexpr auto kWholePatterns = [] {
  std::array<DigitPattern, kWordBytes> rows{};
  rows[0].end = kNoEnd;
  for (unsigned size = 1; size < kWordBytes; ++size) {
    rows[size].shift = kWordBits - 8 * static_cast<int>(size);
    rows[size].end = size;
  }
  return rows;
}();

/// The pattern of the number at `at`. `digits` tells which of eight bytes are digits.
inline const DigitPattern& patternOf(const char* at, std::uint8_t digits) {
  const DigitPattern& row = kDigitPatterns[digits];
  if (at[row.point] == '.') [[likely]]
    return row;
  return kWholePatterns[row.point];
}

/// Digits whose last is on top, with the gaps of points closed.
inline __m128i withoutPoints(__m128i digits, __m128i throughPoint) {
  const __m128i move = _mm_xor_si128(_mm_slli_epi64(digits, 8), digits);
  return _mm_xor_si128(digits, _mm_and_si128(move, throughPoint));
}

}  // namespace detail

class Sse2ShortDecimal {
 public:
  [[gnu::always_inline]] static Sse2ShortDecimal scan(const char* at) {
    const std::size_t negative = *at == '-' ? 1 : 0;
    at += negative;
    const __m128i digits =
        _mm_xor_si128(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(at)), _mm_set1_epi8('0'));
    const __m128i areDigits = _mm_cmpeq_epi8(_mm_min_epu8(digits, _mm_set1_epi8(9)), digits);
    const auto mask = static_cast<std::uint8_t>(_mm_movemask_epi8(areDigits));
    const detail::DigitPattern& row = detail::patternOf(at, mask);
    if (row.end == detail::kNoEnd) return {digits, 0, nullptr};
    const __m128i moved = _mm_sll_epi64(digits, _mm_cvtsi32_si128(row.shift));
    const __m128i throughPoint =
        _mm_load_si128(reinterpret_cast<const __m128i*>(&row.throughPoint));
    return {detail::withoutPoints(moved, throughPoint), row.divisor + negative, at + row.end};
  }

  const char* end() const { return end_; }
  double value() const {
    return _mm_cvtsd_f64(_mm_div_sd(detail::sumsOfDigits(digits_),
                                    _mm_load_sd(detail::kSignedPowersOfTen + divisor_)));
  }
  static void values(const Sse2ShortDecimal& first, const Sse2ShortDecimal& second,
                     double& firstOut, double& secondOut) {
    const __m128d divisors = _mm_loadh_pd(_mm_load_sd(detail::kSignedPowersOfTen + first.divisor_),
                                          detail::kSignedPowersOfTen + second.divisor_);
    const __m128d result = _mm_div_pd(
        detail::sumsOfDigits(_mm_unpacklo_epi64(first.digits_, second.digits_)), divisors);
    _mm_storel_pd(&firstOut, result);
    _mm_storeh_pd(&secondOut, result);
  }

 private:
  Sse2ShortDecimal(__m128i digits, std::size_t divisor, const char* end)
      : digits_(digits), divisor_(divisor), end_(end) {}

  __m128i digits_;  // of its lower half each byte, the last on top
  std::size_t divisor_;
  const char* end_;
};

using ShortDecimal = Sse2ShortDecimal;

#else
using ShortDecimal = PlainShortDecimal;
#endif

}  // namespace egfsvg
