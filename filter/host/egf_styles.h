#pragma once

#include <cstdint>

#include "host/egf_small.h"

// Extended records, kept in a document's style tables and pooled by their bytes: start each from
// its template, so that its padding is equal too.

/// Style class 0xA8: what a fill and its stroke have beyond their pen.
struct EGF_WIRE _egf_gdiplus_fillparms_tag {
  std::uint8_t startCap;
  std::uint8_t endCap;
  std::uint8_t reserved2[6];
  std::uint32_t strokeFillStyle;
  std::uint32_t reserved12;
  _egf_wrapmode_tag wrapMode;
  std::uint32_t reserved20;
  std::int32_t gradientAngle;  ///< millionths of a degree
  std::uint8_t reserved28;
  std::uint8_t strokeAlpha;
  std::uint8_t fillAlpha;
  std::uint8_t gradientFlags;
  std::uint32_t reserved32;
  std::uint8_t gradientKind;
  std::uint8_t reserved37[3];
  std::uint32_t angleIsSet;
  float miterLimit;
  std::uint32_t reserved48;
  std::uint32_t hostWord52;
};

/// Style class 0xA6: the same for a line or a polyline.
struct EGF_WIRE _egf_gdiplus_stroke_parms_tag {
  std::uint8_t capStyle;
  std::uint8_t strokeFillStyle;
  std::uint8_t reserved2[7];
  std::uint8_t strokeAlpha;
  std::uint8_t reserved10[2];
  _egf_wrapmode_tag wrapMode;
  std::uint32_t reserved16[2];
  std::uint32_t gradientKind;
  std::uint32_t gradientFlags;
  std::uint32_t reserved32;
  std::uint32_t angleIsSet;
  std::int32_t gradientAngle;  ///< millionths of a degree
  std::uint32_t reserved44;
  float miterLimit;
};

/// Style class 0xA7: the same for an arc. The reader makes none.
struct EGF_WIRE _egf_gdiplus_arcparms_tag {
  std::uint32_t reserved0[9];
  std::uint8_t strokeAlpha;
  std::uint8_t reserved37[3];
};

/// Style class 0xA5: a gradient's ramp. The colours bound it to sixteen stops.
struct EGF_WIRE _egf_gdiplus_gradientparms_tag {
  _egf_matrix_tag gradMatrix;
  std::uint8_t gradReflect;  ///< 0, or the stop at which a reflected ramp turns
  std::uint8_t stopCount;    ///< with the doubled first and last
  std::uint8_t reserved26;
  std::uint8_t stopAlpha[17];
  _sel_RGB_type stopColors[16];
  std::int16_t stopPositions[48];  ///< thousandths along the ramp
};

namespace egfsvg {

inline constexpr int kMaxGradientStops = 16;

}  // namespace egfsvg
