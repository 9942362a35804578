// Where one number of a list ends and where reading goes on: the one rule that tells plain lists
// from the compact number grammar of SVG 1.1, in which "10-5.5.25" holds three numbers.
#pragma once

#include <cmath>
#include <cstddef>

#include "model/characters.h"
#include "model/numbers.h"

namespace egfsvg {

/// The text of a number is [start, end); reading goes on at next.
struct NumberSpan {
  const char* end;
  const char* next;
};

/// A rule is asked with text left and no separator in front of it.
using NumberRule = NumberSpan (*)(const char* at, const char* last);

constexpr bool isListSeparator(char c) { return isWhite(c) || c == ','; }

/// A token of a plain list is cut after this many bytes.
inline constexpr std::ptrdiff_t kListTokenSize = 30;

/// What stands between separators is one number. One byte is stepped over behind it.
inline NumberSpan plainListNumber(const char* at, const char* last) {
  const char* end = at;
  while (end != last && end - at < kListTokenSize && !isListSeparator(*end)) ++end;
  return {end, end == last ? end : end + 1};
}

/// Whether a number can start with this byte.
constexpr bool startsNumber(char c) { return isDigit(c) || c == '+' || c == '-' || c == '.'; }

/// A number ends where the grammar ends it; letters behind it are passed over.
inline NumberSpan compactListNumber(const char* at, const char* last) {
  const char* end = at;
  decimalPrefix(at, last, &end);
  if (end == at) return plainListNumber(at, last);
  const char* next = end;
  while (next != last && !isListSeparator(*next) && !startsNumber(*next)) ++next;
  return {end, next};
}

inline NumberRule listNumberRule(bool compact) {
  return compact ? compactListNumber : plainListNumber;
}

inline const char* skipListSeparators(const char* at, const char* last) {
  while (at != last && isListSeparator(*at)) ++at;
  return at;
}

/// One argument of a transform function. `stop` is the byte that ended it, which may be the end of
/// the text; `next` is where reading goes on when the function is not over there.
struct TransformNumber {
  bool present;  // an empty argument counts for nothing
  double value;
  const char* stop;
  const char* next;
};

using TransformNumberRule = TransformNumber (*)(const char* at, const char* last);

/// Of a mantissa or an exponent this many bytes count; the rest is passed over.
inline constexpr std::ptrdiff_t kTransformNumberSize = 63;

constexpr bool stopsTransformNumber(char c) {
  return isListSeparator(c) || c == ')' || isLetter(c);
}

inline const char* transformNumberEnd(const char* at, const char* last) {
  while (at != last && !stopsTransformNumber(*at)) ++at;
  return at;
}

inline double transformDecimal(const char* first, const char* end) {
  return decimalPrefix(first,
                       end - first > kTransformNumberSize ? first + kTransformNumberSize : end);
}

/// The mantissa runs to a separator, a bracket or a letter; a lower-case e is followed by an
/// exponent. One byte is stepped over behind both.
inline TransformNumber plainTransformNumber(const char* at, const char* last) {
  double plain = 0.0;
  const char* const plainEnd = plainDecimal(at, last, &plain);
  if (plainEnd != nullptr && plainEnd - at <= kTransformNumberSize &&
      (plainEnd == last || *plainEnd == ')' || isListSeparator(*plainEnd))) {
    return {true, plain, plainEnd, plainEnd == last ? last : plainEnd + 1};
  }
  const char* mantissaEnd = transformNumberEnd(at, last);
  TransformNumber number{mantissaEnd != at, transformDecimal(at, mantissaEnd), mantissaEnd, last};
  if (mantissaEnd != last && *mantissaEnd == 'e') {
    const char* exponent = mantissaEnd + 1;
    number.stop = transformNumberEnd(exponent, last);
    if (number.stop != exponent) {
      number.value *= std::pow(10.0, transformDecimal(exponent, number.stop));
    }
  }
  if (number.stop != last) number.next = number.stop + 1;
  return number;
}

/// A number ends where the grammar ends it; a sign or a point may start the next one at once.
inline TransformNumber compactTransformNumber(const char* at, const char* last) {
  const char* end = at;
  const double value = decimalPrefix(at, last, &end);
  if (end == at) return plainTransformNumber(at, last);
  const char* next = end == last || startsNumber(*end) ? end : end + 1;
  return {true, value, end, next};
}

inline TransformNumberRule transformNumberRule(bool compact) {
  return compact ? compactTransformNumber : plainTransformNumber;
}

}  // namespace egfsvg
