#pragma once

#include <cstdint>

#include "host/egf_small.h"

// Pen blocks: the part of an object that a formatter copies from a template. Each stands inline in
// its object; `_egf_gdi_fillparms_tag` is also a style record of its own. Words whose use is
// the host's affair are named `hostWord...` and keep their template values.

/// Pen and fill of boxes, polygons and diamonds; the pooled pen of a path (style class 0xAA).
struct EGF_WIRE _egf_gdi_fillparms_tag {
  __meas lineWidth;  ///< pixels
  _sel_RGB_type strokeColor;
  _sel_RGB_type fillColor;
  std::uint32_t lineStyle;  ///< dash number, 0 solid
  std::uint8_t fillStyle;
  std::uint8_t joinStyle;
  std::uint8_t modeFlags;
  std::uint8_t reserved27;
  std::uint32_t styleMask;
  std::uint32_t reserved32;
  std::uint32_t reserved36;
  std::uint32_t layerMask;
  double scaleFactor;
};

/// Font, colour and placement of a text or an annotation.
struct EGF_WIRE _egf_textparms {
  _sel_RGB_type textColor;
  std::uint32_t fontFlags;
  char typeface[84];  ///< family name, at most 71 characters; byte 71 stays 0
  __meas fontSize;    ///< pixels
  std::uint32_t charWidthUnit;
  double charWidth;           ///< 0 asks for the natural width
  std::int32_t textRotation;  ///< tenths of a degree, counter-clockwise
  std::uint8_t justification;
  std::uint8_t textDirection;
  std::uint8_t textFlags;
  std::uint8_t reserved123;
  _sel_RGB_type backColor;
  std::uint32_t reserved128;
  _sel_RGB_type textColor2;
  std::int32_t orientation;  ///< tenths of a degree, 0 or 900
  std::int32_t skewAngle;    ///< tenths of a degree
  std::uint8_t charSet;
  std::uint8_t reserved145[3];
  std::uint32_t letterSpacingUnit;
  double letterSpacing;  ///< pixels, letter plus word spacing
  std::uint32_t kerningUnit;
  double kerning;  ///< pixels
  std::uint32_t reserved172[3];
  std::uint32_t hostWord184;
  std::uint32_t reserved188[2];
  std::uint32_t trailingWord;
};

namespace egfsvg {

/// Pen of a line and, from its own offset, of a crossout.
struct EGF_WIRE EgfLinePen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
  std::uint16_t hostWord22;
  double scaleFactor;
};

/// Pen of an arc: a line's pen and a flag word.
struct EGF_WIRE EgfArcPen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
  std::uint16_t hostWord22;
  double reserved24;
  std::uint8_t arcFlags;
  std::uint8_t reserved33[3];
};

/// Pen of an ellipse. Its order differs from `_egf_gdi_fillparms_tag` after `styleMask`.
struct EGF_WIRE EgfEllipsePen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  _sel_RGB_type fillColor;
  std::uint32_t lineStyle;
  std::uint8_t fillStyle;
  std::uint8_t joinStyle;
  std::uint8_t modeFlags;
  std::uint8_t reserved27;
  std::uint32_t styleMask;
  std::uint32_t layerMask;
  double scaleFactor;
  std::int32_t ellipseRotation;  ///< millionths of a degree, counter-clockwise
};

/// Pen of a polyline.
struct EGF_WIRE EgfPolylinePen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
  std::uint8_t joinStyle;
  std::uint8_t reserved23;
  std::uint32_t layerMask;
  double scaleFactor;
  double hostDouble36;
  std::uint32_t hostWord44;
  std::uint32_t reserved48;
};

/// Pen of a line with arrowheads: a polyline's pen up to `scaleFactor`.
struct EGF_WIRE EgfArrowPen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
  std::uint8_t headFlags;
  std::uint8_t reserved23;
  std::uint32_t layerMask;
  double scaleFactor;
};

/// Pen and fill of a cloud.
struct EGF_WIRE EgfCloudPen {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  _sel_RGB_type fillColor;
  std::uint32_t lineStyle;
  std::uint8_t fillStyle;
  std::uint8_t reserved25;
  std::uint16_t hostWord26;
  std::uint32_t reserved28;
  std::uint32_t reserved32;
};

}  // namespace egfsvg
