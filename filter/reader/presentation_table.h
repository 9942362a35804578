// The presentation properties by their shared codes, and what "inherit" means to each.
#pragma once

#include <cstdint>

#include "model/codes.h"

namespace egfsvg {

inline constexpr std::int32_t kFirstPresentation = kAttFont;
inline constexpr std::int32_t kLastPresentation = kAttWritingMode;

constexpr bool isPresentation(std::int32_t code) {
  return code >= kFirstPresentation && code <= kLastPresentation;
}

/// What the word "inherit" does to a property: nothing, since what is inherited stands there
/// already; it asks the parent anew; or it is read as a number like any other text.
enum class InheritWord { kKeeps, kAsksTheParent, kIsANumber };

InheritWord inheritWordOf(std::int32_t presentationCode);

}  // namespace egfsvg
