#pragma once

#include "host/egf_blocks.h"
#include "host/egf_fields.h"
#include "host/egf_styles.h"

// Fields of the pens, the text parameters, the extended records and the dash record.

namespace egfsvg {

inline constexpr std::array kPenFields{
    EGF_FIELD(_egf_gdi_fillparms_tag, lineWidth, 0, kMeasure),
    EGF_FIELD(_egf_gdi_fillparms_tag, strokeColor, 12, kColour),
    EGF_FIELD(_egf_gdi_fillparms_tag, fillColor, 16, kColour),
    EGF_FIELD(_egf_gdi_fillparms_tag, lineStyle, 20, kStyleNo),
    EGF_FIELD(_egf_gdi_fillparms_tag, fillStyle, 24, kU8),
    EGF_FIELD(_egf_gdi_fillparms_tag, joinStyle, 25, kU8),
    EGF_FIELD(_egf_gdi_fillparms_tag, modeFlags, 26, kU8),
    EGF_FIELD(_egf_gdi_fillparms_tag, styleMask, 28, kU32),
    EGF_FIELD(_egf_gdi_fillparms_tag, layerMask, 40, kU32),
    EGF_FIELD(_egf_gdi_fillparms_tag, scaleFactor, 44, kDouble),
};

inline constexpr std::array kTextParmsFields{
    EGF_FIELD(_egf_textparms, textColor, 0, kColour),
    EGF_FIELD(_egf_textparms, fontFlags, 4, kU32),
    EGF_FIELD(_egf_textparms, typeface, 8, kText, FieldCount::constant(84)),
    EGF_FIELD(_egf_textparms, fontSize, 92, kMeasure),
    EGF_FIELD(_egf_textparms, charWidth, 108, kDouble),
    EGF_FIELD(_egf_textparms, textRotation, 116, kI32),
    EGF_FIELD(_egf_textparms, justification, 120, kU8),
    EGF_FIELD(_egf_textparms, textDirection, 121, kU8),
    EGF_FIELD(_egf_textparms, textFlags, 122, kU8),
    EGF_FIELD(_egf_textparms, backColor, 124, kColour),
    EGF_FIELD(_egf_textparms, textColor2, 132, kColour),
    EGF_FIELD(_egf_textparms, orientation, 136, kI32),
    EGF_FIELD(_egf_textparms, skewAngle, 140, kI32),
    EGF_FIELD(_egf_textparms, charSet, 144, kU8),
    EGF_FIELD(_egf_textparms, letterSpacing, 152, kDouble),
    EGF_FIELD(_egf_textparms, kerning, 164, kDouble),
    EGF_FIELD(_egf_textparms, hostWord184, 184, kU32),
    EGF_FIELD(_egf_textparms, trailingWord, 196, kU32),
};

inline constexpr std::array kFillParmsFields{
    EGF_FIELD(_egf_gdiplus_fillparms_tag, startCap, 0, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, endCap, 1, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, strokeFillStyle, 8, kU32),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, wrapMode, 16, kWrapMode),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, gradientAngle, 24, kI32),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, strokeAlpha, 29, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, fillAlpha, 30, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, gradientFlags, 31, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, gradientKind, 36, kU8),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, angleIsSet, 40, kU32),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, miterLimit, 44, kFloat),
    EGF_FIELD(_egf_gdiplus_fillparms_tag, hostWord52, 52, kU32),
};

inline constexpr std::array kStrokeParmsFields{
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, capStyle, 0, kU8),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, strokeFillStyle, 1, kU8),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, strokeAlpha, 9, kU8),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, wrapMode, 12, kWrapMode),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, gradientKind, 24, kU32),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, gradientFlags, 28, kU32),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, angleIsSet, 36, kU32),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, gradientAngle, 40, kI32),
    EGF_FIELD(_egf_gdiplus_stroke_parms_tag, miterLimit, 48, kFloat),
};

inline constexpr std::array kArcParmsFields{
    EGF_FIELD(_egf_gdiplus_arcparms_tag, strokeAlpha, 36, kU8),
};

inline constexpr std::array kGradientParmsFields{
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, gradMatrix, 0, kMatrix),
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, gradReflect, 24, kU8),
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, stopCount, 25, kU8),
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, stopAlpha, 27, kBytes, FieldCount::byteAt(25)),
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, stopColors, 44, kColours, FieldCount::byteAt(25)),
    EGF_FIELD(_egf_gdiplus_gradientparms_tag, stopPositions, 108, kPositions,
              FieldCount::byteAt(25)),
};

inline constexpr std::array kDashFields{
    EGF_FIELD(_egf_dash_record, number, 0, kU32),
    EGF_FIELD(_egf_dash_record, name, 4, kText, FieldCount::constant(28)),
    EGF_FIELD(_egf_dash_record, segments, 32, kDoubles, FieldCount::byteAt(364)),
    EGF_FIELD(_egf_dash_record, unit, 360, kU32),
    EGF_FIELD(_egf_dash_record, segmentCount, 364, kU8),
};

}  // namespace egfsvg
