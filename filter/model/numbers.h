// Numbers from text and float to integer. One decimal reader for the whole filter: it never asks
// the locale and knows no hexadecimal, infinity or NaN.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace egfsvg {

/// The number at the start of [first, last): white space, sign, digits, point, and an exponent (e
/// or E) when at least one digit follows it. What comes after is not read; with no number it is
/// 0.0. Out of range gives HUGE_VAL with its sign, or 0. `end`, when asked for, is set behind the
/// last byte used, or to `first` when there is no number.
double decimalPrefix(const char* first, const char* last, const char** end = nullptr);

/// The same for a terminated text; null gives 0.0.
double decimalPrefix(const char* text);

/// A number of the usual form, minus sign, digits and point, at the start of [first, last). Its
/// value is the one that decimalPrefix gives, and the result is its end. Null for any other form,
/// also for a number with an exponent; `value` is undefined then.
const char* plainDecimal(const char* first, const char* last, double* value);

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
