// Numbers from text and float to integer. One decimal reader for the whole filter: it never asks
// the locale and knows no hexadecimal, infinity or NaN.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace egfsvg {

namespace detail {

inline constexpr std::uint64_t kExactInteger = 1ULL << 53;  // integers up to here are exact doubles
inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr std::ptrdiff_t kPlainDigits = 18;  // always fit in 64 bits, leading zeros and all

/// The digits at `at`, appended to `number`; where they end.
inline const char* takeDigits(const char* at, const char* last, std::uint64_t* number) {
  for (; at != last && static_cast<unsigned char>(*at - '0') < 10; ++at) {
    *number = *number * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  return at;
}

}  // namespace detail

/// The usual form of a number at the start of [first, last): minus sign, few digits, point. Its
/// value is the one that decimalPrefix gives, and the result is its end. Null for any other form,
/// also for a number with an exponent.
inline const char* plainDecimal(const char* first, const char* last, double* value) {
  const bool negative = first != last && *first == '-';
  const char* const digits = first + (negative ? 1 : 0);
  std::uint64_t mantissa = 0;
  const char* at = detail::takeDigits(digits, last, &mantissa);
  std::ptrdiff_t count = at - digits;
  std::ptrdiff_t decimals = 0;
  if (at != last && *at == '.') {
    const char* const fraction = at + 1;
    at = detail::takeDigits(fraction, last, &mantissa);
    decimals = at - fraction;
    count += decimals;
  }
  if (count == 0 || count > detail::kPlainDigits || mantissa > detail::kExactInteger)
    return nullptr;
  if (at != last && (*at == 'e' || *at == 'E')) return nullptr;
  const double magnitude = static_cast<double>(mantissa) / detail::kPowersOfTen[decimals];
  *value = negative ? -magnitude : magnitude;
  return at;
}

/// The number at the start of [first, last): white space, sign, digits, point, and an exponent (e
/// or E) when at least one digit follows it. What comes after is not read; with no number it is
/// 0.0. Out of range gives HUGE_VAL with its sign, or 0. `end`, when asked for, is set behind the
/// last byte used, or to `first` when there is no number.
double decimalPrefix(const char* first, const char* last, const char** end = nullptr);

/// The same for a terminated text; null gives 0.0.
double decimalPrefix(const char* text);

/// White space, sign and digits as an integer; 0 without digits, saturating at both ends. `end` as
/// above.
std::int32_t saturatingInteger(const char* first, const char* last, const char** end = nullptr);
std::int32_t saturatingInteger(const char* text);

/// The integer part. Values outside the type give its end; NaN gives 0.
template <class Int>
constexpr Int truncated(double value) {
  static_assert(std::is_integral_v<Int>);
  using Limits = std::numeric_limits<Int>;
  // One more than the maximum is a power of two, so it is exact where the maximum itself may not
  // be.
  constexpr double kEnd = 2.0 * static_cast<double>(Limits::max() / 2 + 1);
  if (value >= kEnd) return Limits::max();
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  return value == value ? static_cast<Int>(value) : Int{0};
}

/// The integer part as written files show it: ends as `truncated`, but NaN gives the least number,
/// so that it is seen.
constexpr std::int32_t shownInteger(double value) {
  return value == value ? truncated<std::int32_t>(value) : std::numeric_limits<std::int32_t>::min();
}

/// The nearest integer, halves away from zero; ends and NaN as `truncated`.
template <class Int>
inline Int rounded(double value) {
  return truncated<Int>(std::round(value));
}

}  // namespace egfsvg
