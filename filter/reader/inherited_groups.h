// What a child takes over of each property group of its parent: runs of fields side by side are
// copied at once, texts and arrays become its own.
#pragma once

#include <cstring>

#include "model/groups.h"
#include "reader/text_fields.h"

namespace egfsvg {

/// Copies the fields from the first to the last of the two, all plain values.
template <auto First, auto Last, class Group>
void copyFields(Group& to, const Group& from) {
  const auto* first = reinterpret_cast<const char*>(&(from.*First));
  const auto* end = reinterpret_cast<const char*>(&(from.*Last) + 1);
  std::memcpy(reinterpret_cast<char*>(&(to.*First)), first, static_cast<std::size_t>(end - first));
}

/// Takes a text over where one of the two has one.
inline void inheritOwnText(char*& to, const char* from) {
  if (from != nullptr || to != nullptr) inheritText(to, from);
}

/// Dashes without their axes; what could not be had is left out.
void copyDashes(_svg_pa_stroke& to, const _svg_value* dashes, std::int32_t count);

inline void inheritValues(_svg_pa_fill& to, const _svg_pa_fill& from) {
  copyFields<&_svg_pa_fill::fillColor, &_svg_pa_fill::fillOpacity>(to, from);
}

inline void inheritGroup(_svg_pa_fill& to, const _svg_pa_fill& from) {
  inheritValues(to, from);
  if (from.fillGradient == nullptr) return;
  to.fillGradient = from.fillGradient;
  inheritText(to.fillUrl, from.fillUrl);
}

inline void inheritValues(_svg_pa_stroke& to, const _svg_pa_stroke& from) {
  copyFields<&_svg_pa_stroke::strokeColor, &_svg_pa_stroke::strokeMiterlimit>(to, from);
  copyFields<&_svg_pa_stroke::strokeDashOffset, &_svg_pa_stroke::strokeOpacity>(to, from);
}

inline void inheritGroup(_svg_pa_stroke& to, const _svg_pa_stroke& from) {
  inheritValues(to, from);
  if (to.strokeDashArray != nullptr || from.strokeDashArray != nullptr) {
    copyDashes(to, from.strokeDashArray, from.strokeDashCount);
  } else {
    to.strokeDashCount = 0;
  }
  if (from.strokeGradient == nullptr) return;
  to.strokeGradient = from.strokeGradient;
  inheritText(to.strokeUrl, from.strokeUrl);
}

// Opacity goes down as a plain value; clip-path, display, filter and mask do not.
inline void inheritValues(_svg_pa_graphics& to, const _svg_pa_graphics& from) {
  copyFields<&_svg_pa_graphics::clipRule, &_svg_pa_graphics::colorRendering>(to, from);
  copyFields<&_svg_pa_graphics::imageRendering, &_svg_pa_graphics::visibility>(to, from);
  copyFields<&_svg_pa_graphics::pointerEvents, &_svg_pa_graphics::textRendering>(to, from);
}

inline void inheritGroup(_svg_pa_graphics& to, const _svg_pa_graphics& from) {
  inheritValues(to, from);
  inheritOwnText(to.cursor, from.cursor);
}

/// All of a font, with a family of its own.
void copyWholeGroup(_svg_pa_fontspec& to, const _svg_pa_fontspec& from);

inline void inheritGroup(_svg_pa_fontspec& to, const _svg_pa_fontspec& from) {
  copyWholeGroup(to, from);
}

inline void inheritGroup(_svg_pa_images& to, const _svg_pa_images& from) {
  inheritOwnText(to.colorProfile, from.colorProfile);
}

inline void inheritGroup(_svg_pa_markers& to, const _svg_pa_markers& from) {
  if (allNull(to.markerStart, to.markerMid, to.markerEnd, from.markerStart, from.markerMid,
              from.markerEnd)) {
    return;
  }
  inheritText(to.markerStart, from.markerStart);
  inheritText(to.markerMid, from.markerMid);
  inheritText(to.markerEnd, from.markerEnd);
}

inline void inheritGroup(_svg_pa_textcontentelems& to, const _svg_pa_textcontentelems& from) {
  to.direction = from.direction;
  to.glyphOrientationHorizontal = from.glyphOrientationHorizontal;
  to.glyphOrientationVertical = from.glyphOrientationVertical;
  to.kerning = from.kerning;
  to.letterSpacing = from.letterSpacing;
  to.wordSpacing = from.wordSpacing;
}

inline void inheritGroup(_svg_pa_textelems& to, const _svg_pa_textelems& from) {
  to.textAnchor = from.textAnchor;
  to.writingMode = from.writingMode;
}

}  // namespace egfsvg
