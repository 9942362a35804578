// Numbers as text, byte for byte what the C library's printf writes in the "C" locale, without
// asking it. Each writes at `out` and returns the end; nothing is terminated. Bytes behind the end
// may be overwritten, within the room that is told here.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "model/digits.h"

namespace egfsvg {

/// Room that any of these can need: a double of 309 digits, a point and decimals, a sign.
inline constexpr std::size_t kNumberTextSize = 340;
/// Room for a 32-bit integer or a colour.
inline constexpr std::size_t kIntegerTextSize = 24;

/// "%.Nf" for N from 0 to 6: ties to the even digit by the number's exact value.
char* fixedText(char* out, double value, int decimals);

/// "%e".
char* exponentText(char* out, double value);

/// "%ld".
char* wideIntegerText(char* out, std::int64_t value);
inline char* integerText(char* out, std::int32_t value) {
  *out = '-';
  const bool negative = value < 0;
  const auto magnitude = static_cast<std::uint32_t>(value);
  return putWhole(out + (negative ? 1 : 0), negative ? 0U - magnitude : magnitude);
}
inline char* integerText(char* out, std::int64_t value) {
  const auto narrow = static_cast<std::int32_t>(value);
  return narrow == value ? integerText(out, narrow) : wideIntegerText(out, value);
}

/// "%6x" with its leading blanks turned to zeros: at least six lower-case digits.
char* wideColourText(char* out, std::uint32_t word);
inline char* colourText(char* out, std::uint32_t word) {
  constexpr std::uint32_t kSixDigits = 0xffffff;
  if (word > kSixDigits) [[unlikely]]
    return wideColourText(out, word);
  return putHexPair(putHexPair(putHexPair(out, word >> 16), (word >> 8) & 0xff), word & 0xff);
}

/// The same as fixedText above, with the usual magnitudes inline: the exact product of mantissa and
/// power of ten as an integer, its binary fraction rounded off, its digits cut at the point.
template <int kDecimals>
inline char* fixedText(char* out, double value) {
  static_assert(kDecimals >= 1 && kDecimals <= 6);
  // Of these magnitudes the fraction has 22 to 63 bits, and the product fits.
  constexpr unsigned kFewestBits = 22;
  constexpr unsigned kMostBits = 63;
  constexpr unsigned kMantissaBits = 52;
  constexpr unsigned kExponentBias = 1023 + kMantissaBits;
  constexpr std::uint64_t kLeadingBit = std::uint64_t{1} << kMantissaBits;
  constexpr std::uint64_t kFactor = powerOfTen(kDecimals);
  __extension__ using Wide = unsigned __int128;
  using Product = std::conditional_t<(kFactor < 1024), std::uint64_t, Wide>;

  const auto bits = std::bit_cast<std::uint64_t>(value);
  const unsigned fraction = kExponentBias - static_cast<unsigned>((bits >> kMantissaBits) & 0x7ff);
  if (fraction - kFewestBits > kMostBits - kFewestBits) [[unlikely]]
    return fixedText(out, value, kDecimals);
  const Product product = Product{(bits & (kLeadingBit - 1)) | kLeadingBit} * kFactor;
  const auto odd = static_cast<std::uint64_t>(product >> fraction) & 1;
  const Product half = Product{1} << (fraction - 1);
  const auto number = static_cast<std::uint64_t>((product + (half - 1 + odd)) >> fraction);
  *out = '-';
  out = putWhole(out + (bits >> 63), static_cast<std::uint32_t>(number / kFactor));
  *out = '.';
  return putDigits<kDecimals>(out + 1, static_cast<std::uint32_t>(number % kFactor));
}

}  // namespace egfsvg
