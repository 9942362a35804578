#include "reader/group_copies.h"

#include "model/codes.h"
#include "reader/text_fields.h"

namespace egfsvg {

namespace {

/// Dashes without their axes.
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

void inheritFill(_svg_pa_fill& to, const _svg_pa_fill& from) {
  to.fillColor = from.fillColor;
  to.fillRule = from.fillRule;
  to.fillOpacity = from.fillOpacity;
  if (from.fillGradient == nullptr) return;
  to.fillGradient = from.fillGradient;
  inheritText(to.fillUrl, from.fillUrl);
}

void inheritStroke(_svg_pa_stroke& to, const _svg_pa_stroke& from) {
  to.strokeColor = from.strokeColor;
  to.strokePresent = from.strokePresent;
  to.strokeWidth = from.strokeWidth;
  to.strokeLinecap = from.strokeLinecap;
  to.strokeLinejoin = from.strokeLinejoin;
  to.strokeMiterlimit = from.strokeMiterlimit;
  to.strokeDashOffset = from.strokeDashOffset;
  to.strokeOpacity = from.strokeOpacity;
  copyDashes(to, from.strokeDashArray, from.strokeDashCount);
  if (from.strokeGradient == nullptr) return;
  to.strokeGradient = from.strokeGradient;
  inheritText(to.strokeUrl, from.strokeUrl);
}

// Opacity goes down as a plain value; clip-path, display, filter and mask do not.
void inheritGraphics(_svg_pa_graphics& to, const _svg_pa_graphics& from) {
  to.clipRule = from.clipRule;
  to.color = from.color;
  to.colorInterpolation = from.colorInterpolation;
  to.colorRendering = from.colorRendering;
  to.imageRendering = from.imageRendering;
  to.opacity = from.opacity;
  to.visibility = from.visibility;
  to.pointerEvents = from.pointerEvents;
  to.shapeRendering = from.shapeRendering;
  to.textRendering = from.textRendering;
  inheritText(to.cursor, from.cursor);
}

void inheritMarkers(_svg_pa_markers& to, const _svg_pa_markers& from) {
  inheritText(to.markerStart, from.markerStart);
  inheritText(to.markerMid, from.markerMid);
  inheritText(to.markerEnd, from.markerEnd);
}

void inheritTextContent(_svg_pa_textcontentelems& to, const _svg_pa_textcontentelems& from) {
  to.direction = from.direction;
  to.glyphOrientationHorizontal = from.glyphOrientationHorizontal;
  to.glyphOrientationVertical = from.glyphOrientationVertical;
  to.kerning = from.kerning;
  to.letterSpacing = from.letterSpacing;
  to.wordSpacing = from.wordSpacing;
}

void inheritTextElements(_svg_pa_textelems& to, const _svg_pa_textelems& from) {
  to.textAnchor = from.textAnchor;
  to.writingMode = from.writingMode;
}

/// A member that was copied with its record gets a text of its own again, and the record its old
/// one back to free.
template <class Group, class... Text>
void copyWith(Group& to, const Group& from, Text Group::*... texts) {
  (freeAll(to.*texts), ...);
  to = from;
  ((to.*texts = nullptr, inheritText(to.*texts, from.*texts)), ...);
}

}  // namespace

void copyGroup(const _svg_pa& source, void* group, int groupCode) {
  if (group == nullptr) return;
  switch (groupCode) {
    case kGroupFill:
      return inheritFill(*static_cast<_svg_pa_fill*>(group), source.fill);
    case kGroupStroke:
      return inheritStroke(*static_cast<_svg_pa_stroke*>(group), source.stroke);
    case kGroupGraphics:
      return inheritGraphics(*static_cast<_svg_pa_graphics*>(group), source.graphics);
    case kGroupFont:
      return copyWholeGroup(*static_cast<_svg_pa_fontspec*>(group), source.fontspec);
    case kGroupImages:
      return inheritText(static_cast<_svg_pa_images*>(group)->colorProfile,
                         source.images.colorProfile);
    case kGroupMarkers:
      return inheritMarkers(*static_cast<_svg_pa_markers*>(group), source.markers);
    case kGroupTextContent:
      return inheritTextContent(*static_cast<_svg_pa_textcontentelems*>(group),
                                source.textcontentelems);
    case kGroupTextElements:
      return inheritTextElements(*static_cast<_svg_pa_textelems*>(group), source.textelems);
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
