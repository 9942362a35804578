// The text of an attribute's value.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "model/short_decimal.h"
#include "model/values.h"

namespace egfsvg {

/// A terminated text [first, last). Bytes up to `readable` may be looked at.
struct ValueText {
  const char* first;
  const char* last;
  const char* readable;
};

/// Of a pair that has a value.
inline ValueText textOf(const _svg_attrib_pair& pair) {
  const std::size_t length = pair.valueLength != kLengthNotTold
                                 ? static_cast<std::size_t>(pair.valueLength)
                                 : std::strlen(pair.value);
  const std::size_t block = static_cast<std::size_t>(pair.valueSize);
  return {pair.value, pair.value + length, pair.value + std::max(block, length + 1)};
}

/// A short number that is the whole text of a pair; false, with nothing done, for any other text.
inline bool readPlainNumber(const _svg_attrib_pair& pair, double& value) {
  if (pair.valueSize < kShortDecimalReach) return false;
  const ShortDecimal number = ShortDecimal::scan(pair.value);
  if (number.end() == nullptr || *number.end() != '\0') return false;
  value = number.value();
  return true;
}

}  // namespace egfsvg
