// What the pen blocks of different classes have in common, so that one routine can paint them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/egf_pens.h"

namespace egfsvg {

/// The head of every pen that also fills: of polygons, boxes, ellipses and of a path's own pen.
struct EGF_WIRE FilledPen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  _sel_RGB_type fillColor;
  std::uint32_t lineStyle;
  std::uint8_t fillStyle;
  std::uint8_t joinStyle;
  std::uint8_t modeFlags;
};

template <class Pen>
inline constexpr bool kHasFilledHead = offsetof(Pen, lineWidth) == offsetof(FilledPen, lineWidth) &&
                                       offsetof(Pen, strokeColor) ==
                                           offsetof(FilledPen, strokeColor) &&
                                       offsetof(Pen, fillColor) == offsetof(FilledPen, fillColor) &&
                                       offsetof(Pen, lineStyle) == offsetof(FilledPen, lineStyle) &&
                                       offsetof(Pen, fillStyle) == offsetof(FilledPen, fillStyle) &&
                                       offsetof(Pen, joinStyle) == offsetof(FilledPen, joinStyle) &&
                                       offsetof(Pen, modeFlags) == offsetof(FilledPen, modeFlags);

template <class Pen>
FilledPen& filledPen(Pen& pen) {
  static_assert(kHasFilledHead<Pen>);
  return reinterpret_cast<FilledPen&>(pen);
}

/// The head of every pen that only strokes: of lines and polylines.
struct EGF_WIRE StrokedPen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
};

template <class Pen>
inline constexpr bool kHasStrokedHead =
    offsetof(Pen, lineWidth) == offsetof(StrokedPen, lineWidth) &&
    offsetof(Pen, strokeColor) == offsetof(StrokedPen, strokeColor) &&
    offsetof(Pen, lineStyle) == offsetof(StrokedPen, lineStyle) &&
    offsetof(Pen, rasterOp) == offsetof(StrokedPen, rasterOp) &&
    offsetof(Pen, capStyle) == offsetof(StrokedPen, capStyle);

template <class Pen>
StrokedPen& strokedPen(Pen& pen) {
  static_assert(kHasStrokedHead<Pen>);
  return reinterpret_cast<StrokedPen&>(pen);
}

}  // namespace egfsvg
