// The length parser for callers that have no reader at hand.
#pragma once

#include <cstddef>

#include "model/values.h"

namespace egfsvg {

/// Bytes of a number that are read; what stands beyond them is passed over.
inline constexpr std::size_t kNumberScratch = 4095;

}  // namespace egfsvg

/// Number and unit of a text into `out`, whose axis stays; 0 always, and nothing done for null. The
/// number ends at any letter, so there are no exponents and "2em" is two em; white space before it
/// ends it at once. The unit is the next five bytes, whatever they are.
/// Kept: the reader's own parser reads "2em" as two pixels.
int ParseValue(_svg_value* out, const char* text);
