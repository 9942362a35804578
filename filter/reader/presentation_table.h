// The presentation properties by their shared codes: which group each stands in and how it is set.
#pragma once

#include "reader/element_layout.h"
#include "reader/svg_handlerreader.h"

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

/// The record that a property goes to. A null parent has nothing to inherit from.
struct PresentationTarget {
  _svg_common* parent;
  void* record;
  const GroupOffsets* groups;
};

/// Sets the property of a presentation code; nothing happens when the record has no such group.
void applyPresentation(CHandlerReader& reader, const PresentationTarget& target, std::int32_t code,
                       _svg_attrib_pair* pair);

}  // namespace egfsvg
