// What is done with one attribute of an element.
#pragma once

#include <cstddef>
#include <cstdint>

#include "reader/element_layout.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// Attribute codes from 0 to the last.
inline constexpr std::size_t kAttributeCodes = kAttOnLoad + 1;

/// The record that attributes go to.
struct ElementTarget {
  void* record;
  const GroupOffsets* groups;
  const _svg_common* head;  // of the record; null for a rule's, which has none

  /// Null when there is nothing to inherit from.
  _svg_common* parent() const { return head == nullptr ? nullptr : head->parent; }
};

/// `place` is where in the record the action stores: the record itself, a group or a field. The
/// pair has a value, which may stand in the source: no action keeps it or reads the source. It may
/// have no name.
using AttributeAction = void (*)(CHandlerReader& reader, void* place, _svg_attrib_pair* pair,
                                 const ElementTarget& target);

/// An action and its place in the record.
struct PlacedAction {
  AttributeAction run = nullptr;
  std::size_t offset = 0;

  void operator()(CHandlerReader& reader, _svg_attrib_pair* pair,
                  const ElementTarget& target) const {
    run(reader, static_cast<char*>(target.record) + offset, pair, target);
  }
};

/// Kept: "inherit" is read as a number and gives 0.
inline void setLength(CHandlerReader& reader, void* length, _svg_attrib_pair* pair,
                      const ElementTarget&) {
  reader.SetValueAtt(static_cast<_svg_value*>(length), pair);
}
inline void setAngle(CHandlerReader& reader, void* angle, _svg_attrib_pair* pair,
                     const ElementTarget&) {
  reader.SetAngleAtt(static_cast<_svg_angle*>(angle), pair);
}

}  // namespace egfsvg
