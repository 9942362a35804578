// Colours on their way out: black and white are exchanged between the host and SVG.
#pragma once

#include <cstdint>

#include "host/egf_small.h"

namespace egfsvg {

inline constexpr std::uint32_t kColourMask = 0xffffff;
inline constexpr std::int32_t kHostBlackWord = 0xffffff;
inline constexpr std::int32_t kHostWhiteWord = 0;

/// The colour without its top byte, as the host keeps it.
constexpr std::int32_t hostColour(_sel_RGB_type colour) {
  return static_cast<std::int32_t>(colourWord(colour) & kColourMask);
}

/// The colour as SVG means it.
constexpr std::int32_t swappedColour(_sel_RGB_type colour) {
  const std::int32_t word = hostColour(colour);
  if (word == kHostBlackWord) return 0;
  return word == kHostWhiteWord ? 0xffffff : word;
}

}  // namespace egfsvg
