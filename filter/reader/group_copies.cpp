#include "reader/group_copies.h"

#include "model/codes.h"
#include "reader/inherited_groups.h"

namespace egfsvg {

namespace {

/// A member that was copied with its record gets a text of its own again, and the record its old
/// one back to free.
template <class Group, class... Text>
void copyWith(Group& to, const Group& from, Text Group::*... texts) {
  (freeAll(to.*texts), ...);
  to = from;
  ((to.*texts = nullptr, inheritText(to.*texts, from.*texts)), ...);
}

}  // namespace

void copyDashes(_svg_pa_stroke& to, const _svg_value* dashes, std::int32_t count) {
  _svg_value* copy = nullptr;
  if (dashes != nullptr && count > 0) {
    copy = allocateArray<_svg_value>(static_cast<std::size_t>(count), RMM_SITE);
  }
  for (std::int32_t i = 0; copy != nullptr && i < count; ++i) {
    copy[i] = {dashes[i].unit, dashes[i].value, kAxisNone};
  }
  freeAll(to.strokeDashArray);
  to.strokeDashArray = copy;
  to.strokeDashCount = copy == nullptr ? 0 : count;
}

void copyGroup(const _svg_pa& source, void* group, int groupCode) {
  if (group == nullptr) return;
  switch (groupCode) {
    case kGroupFill:
      return inheritGroup(*static_cast<_svg_pa_fill*>(group), source.fill);
    case kGroupStroke:
      return inheritGroup(*static_cast<_svg_pa_stroke*>(group), source.stroke);
    case kGroupGraphics:
      return inheritGroup(*static_cast<_svg_pa_graphics*>(group), source.graphics);
    case kGroupFont:
      return inheritGroup(*static_cast<_svg_pa_fontspec*>(group), source.fontspec);
    case kGroupImages:
      return inheritGroup(*static_cast<_svg_pa_images*>(group), source.images);
    case kGroupMarkers:
      return inheritGroup(*static_cast<_svg_pa_markers*>(group), source.markers);
    case kGroupTextContent:
      return inheritGroup(*static_cast<_svg_pa_textcontentelems*>(group), source.textcontentelems);
    case kGroupTextElements:
      return inheritGroup(*static_cast<_svg_pa_textelems*>(group), source.textelems);
    default:
      return;
  }
}

void copyWholeGroup(_svg_pa_fill& to, const _svg_pa_fill& from) {
  copyWith(to, from, &_svg_pa_fill::fillUrl);
}

void copyWholeGroup(_svg_pa_stroke& to, const _svg_pa_stroke& from) {
  freeAll(to.strokeDashArray);
  copyWith(to, from, &_svg_pa_stroke::strokeUrl);
  to.strokeDashArray = nullptr;
  copyDashes(to, from.strokeDashArray, from.strokeDashCount);
}

void copyWholeGroup(_svg_pa_graphics& to, const _svg_pa_graphics& from) {
  copyWith(to, from, &_svg_pa_graphics::clipPath, &_svg_pa_graphics::cursor,
           &_svg_pa_graphics::filter, &_svg_pa_graphics::mask);
}

void copyWholeGroup(_svg_pa_fontspec& to, const _svg_pa_fontspec& from) {
  copyWith(to, from, &_svg_pa_fontspec::fontFamily);
}

void copyWholeGroup(_svg_pa_textcontentelems& to, const _svg_pa_textcontentelems& from) {
  copyWith(to, from, &_svg_pa_textcontentelems::baselineShift);
}

}  // namespace egfsvg
