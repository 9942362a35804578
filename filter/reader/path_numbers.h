// Numbers of path data: what may stand before one, and where it ends.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "model/characters.h"
#include "model/numbers.h"
#include "model/value_parser.h"

namespace egfsvg {

/// What a byte means to a number of path data.
enum PathByte : std::uint8_t {
  kBeforeNumber = 1,      // white space, a comma, a letter but "e", which could begin an exponent
  kSurelyEndsNumber = 2,  // in either grammar: white space, a comma, "-", the terminator, a letter
                          // that begins no exponent
};

constexpr std::array<std::uint8_t, 256> pathBytes() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const char c = static_cast<char>(i);
    const bool separates = isWhite(c) || c == ',';
    if (separates || (isLetter(c) && c != 'e')) table[i] |= kBeforeNumber;
    const bool ends = separates || c == '-' || c == '\0' || (isLetter(c) && lower(c) != 'e');
    if (ends) table[i] |= kSurelyEndsNumber;
  }
  return table;
}
inline constexpr auto kPathBytes = pathBytes();

inline bool isPathByte(char c, PathByte meaning) {
  return (kPathBytes[static_cast<unsigned char>(c)] & meaning) != 0;
}

/// Passes over what may stand before a number. Kept: a command letter met here is consumed unseen.
inline const char* skipToNumber(const char* at) {
  while (isPathByte(*at, kBeforeNumber)) ++at;
  return at;
}

/// The end of a number: white space, a comma, a letter but "e", or a "-" that neither starts the
/// number nor follows an "e". Kept: a second point or a "+" is taken into the number and lost.
inline const char* plainNumberEnd(const char* first) {
  const char* at = first;
  for (; *at != '\0' && !isPathByte(*at, kBeforeNumber); ++at) {
    if (*at == '-' && at != first && at[-1] != 'e') break;
  }
  return at;
}

inline const char* skipDigits(const char* at) {
  while (isDigit(*at)) ++at;
  return at;
}

/// The end of a number by the grammar of SVG 1.1: a sign or a second point starts the next one.
inline const char* compactNumberEnd(const char* first) {
  const auto isSign = [](char c) { return c == '+' || c == '-'; };
  const char* at = skipDigits(isSign(*first) ? first + 1 : first);
  if (*at == '.') at = skipDigits(at + 1);
  if (*at == 'e' || *at == 'E') {
    const char* const digits = isSign(at[1]) ? at + 2 : at + 1;
    if (isDigit(*digits)) at = skipDigits(digits);
  }
  return at > first || *at == '\0' ? at : at + 1;
}

/// The next number of path data, behind what may stand before it; `at` is moved to its end. `last`
/// is the terminator of the text.
inline double takeNumber(const char*& at, const char* last, bool compact) {
  const char* const first = skipToNumber(at);
  double value = 0.0;
  at = plainDecimal(first, last, &value);
  // Where a plain number ends at one of these, every rule ends it there.
  if (at != nullptr && isPathByte(*at, kSurelyEndsNumber)) return value;
  at = compact ? compactNumberEnd(first) : plainNumberEnd(first);
  const auto counted = std::min(static_cast<std::size_t>(at - first), kNumberScratch);
  return decimalPrefix(first, first + counted);
}

}  // namespace egfsvg
