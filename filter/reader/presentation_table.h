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
