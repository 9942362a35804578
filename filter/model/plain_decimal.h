// The usual form of a decimal number: minus sign, few digits, point. Short ones are read as one
// word: a mask tells where digits end, shifts close the gap of the point and push what follows out,
// and three multiplications add up eight digits (SIMD within a register). Longer ones go digit by
// digit, all other forms to decimalPrefix.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace egfsvg {

namespace detail {

inline constexpr std::uint64_t kExactInteger = 1ULL << 53;  // integers up to here are exact doubles
inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr std::ptrdiff_t kPlainDigits = 18;  // always fit in 64 bits, leading zeros and all
inline constexpr std::ptrdiff_t kWordBytes = 8;

template <class Word>
std::uint64_t load(const char* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

/// The first eight bytes of [first, last), the first in the lowest place; zeros behind a shorter
/// text, whose ends are loaded each for itself and may overlap.
inline std::uint64_t firstWord(const char* first, const char* last) {
  const std::ptrdiff_t size = last - first;
  if (size >= kWordBytes) return load<std::uint64_t>(first);
  if (size >= 4) {
    return load<std::uint32_t>(first) | load<std::uint32_t>(last - 4) << (8 * (size - 4));
  }
  if (size >= 2) {
    return load<std::uint16_t>(first) | load<std::uint16_t>(last - 2) << (8 * (size - 2));
  }
  return size == 1 ? load<std::uint8_t>(first) : 0;
}

/// The number that eight digits make, each a byte from 0 to 9, the first in the lowest place.
inline std::uint32_t sumOfDigits(std::uint64_t digits) {
  digits = digits * (10 * 0x100 + 1) >> 8;                             // pairs
  digits = (digits & 0x00ff00ff00ff00ff) * (100 * 0x10000 + 1) >> 16;  // fours
  return static_cast<std::uint32_t>((digits & 0x0000ffff0000ffff) * (10000 * 0x100000000 + 1) >>
                                    32);
}

/// A number without sign whose end stands in the first word; an exponent may follow it. Null for
/// any other.
inline const char* wordDecimal(const char* first, const char* last, double* value) {
  constexpr std::uint64_t kEach = 0x0101010101010101;
  const std::uint64_t digits = firstWord(first, last) ^ kEach * '0';
  // The top bit of each byte that is above 9.
  std::uint64_t others = (((digits & kEach * 0x7f) + kEach * (0x7f - 9)) | digits) & kEach * 0x80;
  if (others == 0) return nullptr;
  std::uint64_t packed = digits;
  int count = std::countr_zero(others) / 8;
  int decimals = 0;
  const char* end = first + count;
  if (static_cast<char>(digits >> (8 * count)) == ('.' ^ '0')) {
    others &= others - 1;
    if (others == 0) return nullptr;
    const int stop = std::countr_zero(others) / 8;
    const std::uint64_t whole = (std::uint64_t{1} << (8 * count)) - 1;
    packed = (digits & whole) | (digits >> 8 & ~whole);
    decimals = stop - count - 1;
    count = stop - 1;
    end = first + stop;
  }
  if (count == 0) return nullptr;
  const std::uint32_t mantissa = sumOfDigits(packed << (8 * (kWordBytes - count)));
  *value = static_cast<double>(mantissa) / kPowersOfTen[decimals];
  return end;
}

/// The digits at `at`, appended to `number`; where they end.
inline const char* takeDigits(const char* at, const char* last, std::uint64_t* number) {
  for (; at != last && static_cast<unsigned char>(*at - '0') < 10; ++at) {
    *number = *number * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  return at;
}

/// The same for up to 18 digits, one by one.
[[gnu::noinline]] inline const char* longDecimal(const char* first, const char* last,
                                                 double* value) {
  std::uint64_t mantissa = 0;
  const char* at = takeDigits(first, last, &mantissa);
  std::ptrdiff_t count = at - first;
  std::ptrdiff_t decimals = 0;
  if (at != last && *at == '.') {
    const char* const fraction = at + 1;
    at = takeDigits(fraction, last, &mantissa);
    decimals = at - fraction;
    count += decimals;
  }
  if (count == 0 || count > kPlainDigits || mantissa > kExactInteger) return nullptr;
  *value = static_cast<double>(mantissa) / kPowersOfTen[decimals];
  return at;
}

/// The number with its sign turned when asked for, without a branch.
inline double withSign(double magnitude, bool negative) {
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) ^
                               (negative ? std::uint64_t{1} << 63 : 0));
}

}  // namespace detail

/// A number of few digits without sign at the start of [first, last): its value is the one that
/// decimalPrefix gives when no exponent follows, and the result is its end. Null for any other
/// form, with `value` as it was.
inline const char* shortDecimal(const char* first, const char* last, double* value) {
  if constexpr (std::endian::native == std::endian::little) {
    return detail::wordDecimal(first, last, value);
  } else {
    return detail::longDecimal(first, last, value);
  }
}

/// A number of the usual form at the start of [first, last). Its value is the one that
/// decimalPrefix gives, and the result is its end. Null for any other form, also for a number with
/// an exponent; `value` is undefined then.
inline const char* plainDecimal(const char* first, const char* last, double* value) {
  const bool negative = first != last && *first == '-';
  const char* const digits = first + (negative ? 1 : 0);
  const char* end = shortDecimal(digits, last, value);
  if (end == nullptr) [[unlikely]] {
    end = detail::longDecimal(digits, last, value);
    if (end == nullptr) return nullptr;
  }
  if (end != last && (*end | ('a' - 'A')) == 'e') return nullptr;
  *value = detail::withSign(*value, negative);
  return end;
}

}  // namespace egfsvg
