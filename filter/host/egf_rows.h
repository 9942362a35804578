#pragma once

#include <array>
#include <span>

#include "host/egf_blocks.h"
#include "host/egf_codes.h"
#include "host/egf_fields.h"
#include "host/egf_objects.h"
#include "host/egf_styles.h"

// The one table of the wire format: every named field of every record, flat, in the order of its
// offset. The layout of the structs, the dump of a record and the copying and freeing of what an
// object owns all follow from it.

namespace egfsvg {

/// One field row. Its number is the wire offset; the compiler's own offset and size stand beside it
/// and are compared below.
#define EGF_FIELD(record, member, offset, kind, ...)                            \
  FieldRow {                                                                    \
    nameOfMember(#member), offset, FieldKind::kind, FieldCount{__VA_ARGS__},    \
        offsetof(record, member), sizeof(static_cast<record*>(nullptr)->member) \
  }

/// The last name of a member path: "lineWidth" of "pen.lineWidth".
consteval const char* nameOfMember(const char* path) {
  const char* name = path;
  for (const char* at = path; *at != '\0'; ++at) {
    if (*at == '.') name = at + 1;
  }
  return name;
}

/// The rows of a sub-record that stands at `offset` inside another record.
template <std::size_t kCount>
consteval std::array<FieldRow, kCount> moved(std::array<FieldRow, kCount> rows,
                                             std::uint16_t offset, std::size_t structOffset) {
  for (FieldRow& row : rows) {
    row.offset = static_cast<std::uint16_t>(row.offset + offset);
    row.structOffset += structOffset;
  }
  return rows;
}

template <std::size_t... kCounts>
consteval auto joined(const std::array<FieldRow, kCounts>&... parts) {
  std::array<FieldRow, (kCounts + ...)> all{};
  std::size_t used = 0;
  const auto add = [&](const auto& part) {
    for (const FieldRow& row : part) all[used++] = row;
  };
  (add(parts), ...);
  return all;
}

inline constexpr std::array kHeadFields{
    EGF_FIELD(_egf_obj, objClass, 0, kI32),
    EGF_FIELD(_egf_obj, objAttr, 4, kU8),
    EGF_FIELD(_egf_obj, objAttr2, 5, kU8),
    EGF_FIELD(_egf_obj, layerIndex, 20, kU16),
};

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

inline constexpr std::array kGroupFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfGroup, groupMer, 24, kRect),
                            EGF_FIELD(EgfGroup, firstChild, 40, kFirstChild),
                            EGF_FIELD(EgfGroup, groupFlags, 48, kU8),
                            EGF_FIELD(EgfGroup, linkFlags, 49, kU8),
                            EGF_FIELD(EgfGroup, groupName, 52, kString),
                        });

inline constexpr std::array kPolygonFields =
    joined(kHeadFields,
           std::array{
               EGF_FIELD(EgfPolygon, points, 24, kPointArray, FieldCount::wordAt(100)),
               EGF_FIELD(EgfPolygon, bounds, 28, kRect),
           },
           moved(kPenFields, 44, offsetof(EgfPolygon, pen)),
           std::array{
               EGF_FIELD(EgfPolygon, trailingWord, 96, kU32),
               EGF_FIELD(EgfPolygon, pointCount, 100, kI32),
               EGF_FIELD(EgfPolygon, subPathCount, 104, kU32),
               EGF_FIELD(EgfPolygon, subPathSizes, 108, kU16Array, FieldCount::wordAt(104)),
               EGF_FIELD(EgfPolygon, gradPtCount, 128, kU16),
               EGF_FIELD(EgfPolygon, gradPts, 132, kPointArray, FieldCount::shortAt(128)),
               EGF_FIELD(EgfPolygon, fillParmsNo, 136, kStyleNo),
               EGF_FIELD(EgfPolygon, fillGradientNo, 140, kStyleNo),
               EGF_FIELD(EgfPolygon, strokeGradientNo, 144, kStyleNo),
           });

inline constexpr std::array kEllipseFields = joined(
    kHeadFields, std::array{
                     EGF_FIELD(EgfEllipse, center, 24, kPoint),
                     EGF_FIELD(EgfEllipse, radiusPt, 32, kPoint),
                     EGF_FIELD(EgfEllipse, startAngle, 40, kI32),
                     EGF_FIELD(EgfEllipse, endAngle, 44, kI32),
                     EGF_FIELD(EgfEllipse, pen.lineWidth, 48, kMeasure),
                     EGF_FIELD(EgfEllipse, pen.strokeColor, 60, kColour),
                     EGF_FIELD(EgfEllipse, pen.fillColor, 64, kColour),
                     EGF_FIELD(EgfEllipse, pen.lineStyle, 68, kStyleNo),
                     EGF_FIELD(EgfEllipse, pen.fillStyle, 72, kU8),
                     EGF_FIELD(EgfEllipse, pen.joinStyle, 73, kU8),
                     EGF_FIELD(EgfEllipse, pen.modeFlags, 74, kU8),
                     EGF_FIELD(EgfEllipse, pen.styleMask, 76, kU32),
                     EGF_FIELD(EgfEllipse, pen.layerMask, 80, kU32),
                     EGF_FIELD(EgfEllipse, pen.scaleFactor, 84, kDouble),
                     EGF_FIELD(EgfEllipse, pen.ellipseRotation, 92, kI32),
                     EGF_FIELD(EgfEllipse, gradPtCount, 100, kU16),
                     EGF_FIELD(EgfEllipse, gradPts, 104, kPointArray, FieldCount::shortAt(100)),
                     EGF_FIELD(EgfEllipse, fillParmsNo, 108, kStyleNo),
                     EGF_FIELD(EgfEllipse, fillGradientNo, 112, kStyleNo),
                     EGF_FIELD(EgfEllipse, strokeGradientNo, 116, kStyleNo),
                 });

inline constexpr std::array kLineFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfLine, startPt, 24, kPoint),
                            EGF_FIELD(EgfLine, endPt, 32, kPoint),
                            EGF_FIELD(EgfLine, gradPtCount, 40, kU16),
                            EGF_FIELD(EgfLine, gradPts, 44, kPointArray, FieldCount::shortAt(40)),
                            EGF_FIELD(EgfLine, pen.lineWidth, 48, kMeasure),
                            EGF_FIELD(EgfLine, pen.strokeColor, 60, kColour),
                            EGF_FIELD(EgfLine, pen.lineStyle, 64, kStyleNo),
                            EGF_FIELD(EgfLine, pen.rasterOp, 68, kU8),
                            EGF_FIELD(EgfLine, pen.capStyle, 69, kU8),
                            EGF_FIELD(EgfLine, pen.hostWord22, 70, kU16),
                            EGF_FIELD(EgfLine, pen.scaleFactor, 72, kDouble),
                            EGF_FIELD(EgfLine, strokeParmsNo, 80, kStyleNo),
                            EGF_FIELD(EgfLine, strokeGradientNo, 84, kStyleNo),
                        });

inline constexpr std::array kArrowLineFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfArrowLine, startPt, 24, kPoint),
                            EGF_FIELD(EgfArrowLine, endPt, 32, kPoint),
                            EGF_FIELD(EgfArrowLine, headPts, 40, kPoints, FieldCount::constant(4)),
                            EGF_FIELD(EgfArrowLine, pen.lineWidth, 84, kMeasure),
                            EGF_FIELD(EgfArrowLine, pen.strokeColor, 96, kColour),
                            EGF_FIELD(EgfArrowLine, pen.lineStyle, 100, kStyleNo),
                            EGF_FIELD(EgfArrowLine, pen.rasterOp, 104, kU8),
                            EGF_FIELD(EgfArrowLine, pen.capStyle, 105, kU8),
                            EGF_FIELD(EgfArrowLine, pen.headFlags, 106, kU8),
                            EGF_FIELD(EgfArrowLine, pen.layerMask, 108, kU32),
                            EGF_FIELD(EgfArrowLine, pen.scaleFactor, 112, kDouble),
                            EGF_FIELD(EgfArrowLine, strokeParmsNo, 120, kStyleNo),
                        });

inline constexpr std::array kPolylineFields = joined(
    kHeadFields, std::array{
                     EGF_FIELD(EgfPolyline, bounds, 24, kRect),
                     EGF_FIELD(EgfPolyline, points, 40, kPointArray, FieldCount::wordAt(136)),
                     EGF_FIELD(EgfPolyline, gradPtCount, 44, kU16),
                     EGF_FIELD(EgfPolyline, gradPts, 48, kPointArray, FieldCount::shortAt(44)),
                     EGF_FIELD(EgfPolyline, pen.lineWidth, 84, kMeasure),
                     EGF_FIELD(EgfPolyline, pen.strokeColor, 96, kColour),
                     EGF_FIELD(EgfPolyline, pen.lineStyle, 100, kStyleNo),
                     EGF_FIELD(EgfPolyline, pen.rasterOp, 104, kU8),
                     EGF_FIELD(EgfPolyline, pen.capStyle, 105, kU8),
                     EGF_FIELD(EgfPolyline, pen.joinStyle, 106, kU8),
                     EGF_FIELD(EgfPolyline, pen.layerMask, 108, kU32),
                     EGF_FIELD(EgfPolyline, pen.scaleFactor, 112, kDouble),
                     EGF_FIELD(EgfPolyline, pen.hostDouble36, 120, kDouble),
                     EGF_FIELD(EgfPolyline, pen.hostWord44, 128, kU32),
                     EGF_FIELD(EgfPolyline, pointCount, 136, kU32),
                     EGF_FIELD(EgfPolyline, strokeParmsNo, 140, kStyleNo),
                     EGF_FIELD(EgfPolyline, strokeGradientNo, 144, kStyleNo),
                 });

inline constexpr std::array kArcFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfArc, center, 24, kPoint),
                            EGF_FIELD(EgfArc, radiusPt, 32, kPoint),
                            EGF_FIELD(EgfArc, startAngle, 48, kI32),
                            EGF_FIELD(EgfArc, endAngle, 52, kI32),
                            EGF_FIELD(EgfArc, pen.lineWidth, 56, kMeasure),
                            EGF_FIELD(EgfArc, pen.strokeColor, 68, kColour),
                            EGF_FIELD(EgfArc, pen.lineStyle, 72, kStyleNo),
                            EGF_FIELD(EgfArc, pen.rasterOp, 76, kU8),
                            EGF_FIELD(EgfArc, pen.capStyle, 77, kU8),
                            EGF_FIELD(EgfArc, pen.hostWord22, 78, kU16),
                            EGF_FIELD(EgfArc, pen.arcFlags, 88, kU8),
                            EGF_FIELD(EgfArc, arcParmsNo, 92, kStyleNo),
                        });

inline constexpr std::array kPathFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfPath, bounds, 24, kRect),
                            EGF_FIELD(EgfPath, pathKind, 60, kU32),
                            EGF_FIELD(EgfPath, joinFlag, 64, kU32),
                            EGF_FIELD(EgfPath, gdiFillStyleNo, 68, kStyleNo),
                            EGF_FIELD(EgfPath, fillParmsNo, 72, kStyleNo),
                            EGF_FIELD(EgfPath, fillGradientNo, 76, kStyleNo),
                            EGF_FIELD(EgfPath, strokeGradientNo, 80, kStyleNo),
                            EGF_FIELD(EgfPath, firstChild, 88, kFirstChild),
                            EGF_FIELD(EgfPath, gradPtCount, 128, kU16),
                            EGF_FIELD(EgfPath, gradPts, 132, kPointArray, FieldCount::shortAt(128)),
                        });

inline constexpr std::array kTextFields =
    joined(kHeadFields,
           std::array{
               EGF_FIELD(EgfTextObject, text.origin, 24, kPoint),
               EGF_FIELD(EgfTextObject, text.bounds, 32, kRect),
               EGF_FIELD(EgfTextObject, text.textString, 48, kString),
           },
           moved(kTextParmsFields, 52, offsetof(EgfTextObject, parms)));

inline constexpr std::array kAnnotationFields =
    joined(kHeadFields,
           std::array{
               EGF_FIELD(EgfAnnotation, origin, 24, kPoint),
               EGF_FIELD(EgfAnnotation, bounds, 32, kRect),
           },
           moved(kTextParmsFields, 48, offsetof(EgfAnnotation, parms)),
           std::array{
               EGF_FIELD(EgfAnnotation, hostWord248, 248, kU32),
               EGF_FIELD(EgfAnnotation, annotText, 252, kString),
               EGF_FIELD(EgfAnnotation, hostWord256, 256, kU32),
           });

inline constexpr std::array kImageFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfImage, placement, 24, kRect),
                            EGF_FIELD(EgfImage, raster, 40, kRaster),
                            EGF_FIELD(EgfImage, palette, 44, kPalette),
                            EGF_FIELD(EgfImage, xResolution, 48, kU32),
                            EGF_FIELD(EgfImage, yResolution, 52, kU32),
                            EGF_FIELD(EgfImage, rotation, 56, kU8),
                            EGF_FIELD(EgfImage, fillParmsNo, 60, kStyleNo),
                        });

inline constexpr std::array kStockObjectFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfStockObject, reference, 24, kHandle),
                            EGF_FIELD(EgfStockObject, place, 28, kPoint),
                            EGF_FIELD(EgfStockObject, angle, 36, kI32),
                        });

inline constexpr std::array kCloudFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfCloud, corners, 24, kPoints, FieldCount::constant(4)),
                            EGF_FIELD(EgfCloud, bounds, 56, kRect),
                            EGF_FIELD(EgfCloud, pen.lineWidth, 72, kMeasure),
                            EGF_FIELD(EgfCloud, pen.strokeColor, 84, kColour),
                            EGF_FIELD(EgfCloud, pen.fillColor, 88, kColour),
                            EGF_FIELD(EgfCloud, pen.lineStyle, 92, kStyleNo),
                            EGF_FIELD(EgfCloud, pen.fillStyle, 96, kU8),
                            EGF_FIELD(EgfCloud, pen.hostWord26, 98, kU16),
                            EGF_FIELD(EgfCloud, outline, 108, kPointArray, FieldCount::wordAt(112)),
                            EGF_FIELD(EgfCloud, outlineCount, 112, kU32),
                        });

inline constexpr std::array kDiamondFields =
    joined(kHeadFields,
           std::array{
               EGF_FIELD(EgfDiamond, points, 24, kPointArray, FieldCount::constant(4)),
               EGF_FIELD(EgfDiamond, bounds, 28, kRect),
           },
           moved(kPenFields, 44, offsetof(EgfDiamond, pen)),
           std::array{
               EGF_FIELD(EgfDiamond, hostByte96, 96, kU8),
           });

inline constexpr std::array kCrossoutFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfCrossout, startPt, 24, kPoint),
                            EGF_FIELD(EgfCrossout, endPt, 32, kPoint),
                            EGF_FIELD(EgfCrossout, startPt2, 88, kPoint),
                            EGF_FIELD(EgfCrossout, endPt2, 96, kPoint),
                            EGF_FIELD(EgfCrossout, bounds, 152, kRect),
                            EGF_FIELD(EgfCrossout, pen.lineWidth, 168, kMeasure),
                            EGF_FIELD(EgfCrossout, pen.strokeColor, 180, kColour),
                            EGF_FIELD(EgfCrossout, pen.lineStyle, 184, kStyleNo),
                            EGF_FIELD(EgfCrossout, pen.rasterOp, 188, kU8),
                            EGF_FIELD(EgfCrossout, pen.capStyle, 189, kU8),
                            EGF_FIELD(EgfCrossout, pen.hostWord22, 190, kU16),
                            EGF_FIELD(EgfCrossout, pen.scaleFactor, 192, kDouble),
                        });

inline constexpr std::array kHotspotFields =
    joined(kHeadFields, std::array{
                            EGF_FIELD(EgfHotspot, data, 24, kData, FieldCount::wordAt(28)),
                            EGF_FIELD(EgfHotspot, dataLength, 28, kU32),
                            EGF_FIELD(EgfHotspot, hotspotFlags, 32, kU8),
                        });

inline constexpr std::array kOpaqueFields =
    joined(kHeadFields, std::array{EGF_FIELD(EgfOpaqueObject, placement, 24, kRect)});

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

#undef EGF_FIELD

/// A record by its number: an object class or a style class.
struct RecordRow {
  std::int32_t number;
  const char* name;
  std::size_t size;        ///< bytes, the fixed number of the wire format
  std::size_t structSize;  ///< as compiled
  std::span<const FieldRow> fields;
};

/// Every class that `EEL_AllocObject` knows, by class number.
inline constexpr std::array kObjectRecords{
    RecordRow{kClassGroup, "group", 56, sizeof(EgfGroup), kGroupFields},
    RecordRow{kClassBox, "box", 148, sizeof(EgfPolygon), kPolygonFields},
    RecordRow{kClassArc, "arc", 96, sizeof(EgfArc), kArcFields},
    RecordRow{kClassLine, "line", 88, sizeof(EgfLine), kLineFields},
    RecordRow{kClassEllipse, "ellipse", 120, sizeof(EgfEllipse), kEllipseFields},
    RecordRow{kClassArrowLine, "arrow line", 124, sizeof(EgfArrowLine), kArrowLineFields},
    RecordRow{kClassPolyline, "polyline", 148, sizeof(EgfPolyline), kPolylineFields},
    RecordRow{kClassPolygon, "polygon", 148, sizeof(EgfPolygon), kPolygonFields},
    RecordRow{kClassText, "text", 252, sizeof(EgfTextObject), kTextFields},
    RecordRow{kClassAnnotation, "annotation", 260, sizeof(EgfAnnotation), kAnnotationFields},
    RecordRow{kClassImage, "image", 64, sizeof(EgfImage), kImageFields},
    RecordRow{kClassIcon, "icon", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassBookmark, "bookmark", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassStockObject, "stock object", 40, sizeof(EgfStockObject), kStockObjectFields},
    RecordRow{kClassCloud, "cloud", 116, sizeof(EgfCloud), kCloudFields},
    RecordRow{kClassDiamond, "diamond", 100, sizeof(EgfDiamond), kDiamondFields},
    RecordRow{kClassCrossout, "crossout", 200, sizeof(EgfCrossout), kCrossoutFields},
    RecordRow{kClassMetafile, "metafile", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassPath, "path", 136, sizeof(EgfPath), kPathFields},
    RecordRow{kClassComplexLine, "complex line", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassRegion, "region", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassCopy, "copy", 40, sizeof(EgfOpaqueObject), kOpaqueFields},
    RecordRow{kClassHotspot, "hotspot", 36, sizeof(EgfHotspot), kHotspotFields},
};

/// Every style class.
inline constexpr std::array kStyleRecords{
    RecordRow{kStyleGradient, "gradient parameters", 204, sizeof(_egf_gdiplus_gradientparms_tag),
              kGradientParmsFields},
    RecordRow{kStyleStroke, "stroke parameters", 52, sizeof(_egf_gdiplus_stroke_parms_tag),
              kStrokeParmsFields},
    RecordRow{kStyleArc, "arc parameters", 40, sizeof(_egf_gdiplus_arcparms_tag), kArcParmsFields},
    RecordRow{kStyleFill, "fill parameters", 56, sizeof(_egf_gdiplus_fillparms_tag),
              kFillParmsFields},
    RecordRow{kStylePen, "pen", 52, sizeof(_egf_gdi_fillparms_tag), kPenFields},
};

inline constexpr RecordRow kTextParmsRecord{0, "text parameters", 200, sizeof(_egf_textparms),
                                            kTextParmsFields};
inline constexpr RecordRow kDashRecord{0, "dash", 536, sizeof(_egf_dash_record), kDashFields};

/// The row of an object class or a style class in its table, null for an unknown number.
constexpr const RecordRow* recordOf(std::span<const RecordRow> records, std::int32_t number) {
  for (const RecordRow& record : records) {
    if (record.number == number) return &record;
  }
  return nullptr;
}

/// True when the compiler laid the record out as its rows say: size, offsets, field sizes, and
/// fields in order that do not overlap.
consteval bool isLaidOutAsTold(const RecordRow& record) {
  std::size_t end = 0;
  for (const FieldRow& row : record.fields) {
    if (row.offset != row.structOffset || row.structSize != fieldSize(row)) return false;
    if (row.offset < end) return false;
    end = row.offset + row.structSize;
  }
  return end <= record.size && record.size == record.structSize;
}

consteval bool areLaidOutAsTold(std::span<const RecordRow> records) {
  for (const RecordRow& record : records) {
    if (!isLaidOutAsTold(record)) return false;
  }
  return true;
}

static_assert(areLaidOutAsTold(kObjectRecords));
static_assert(areLaidOutAsTold(kStyleRecords));
static_assert(isLaidOutAsTold(kTextParmsRecord));
static_assert(isLaidOutAsTold(kDashRecord));
static_assert(offsetof(_egf_dash_record, next) == 532);
static_assert(offsetof(EgfPageHeader, firstDash) == 3052);
static_assert(offsetof(EgfPageHeader, layerCount) == 3056);
static_assert(offsetof(EgfPageHeader, layerTable) == 3060);
static_assert(offsetof(EgfPageHeader, nextDashNumber) == 3064);
static_assert(sizeof(EgfPageHeader) == 3068);
static_assert(offsetof(EgfTreeBlock, body) == kTreeBlockWord >> kHeaderSizeShift);
static_assert(offsetof(EgfTreeBody, pageHeader) == 8);
static_assert(sizeof(EgfTreeBlock) == 3100);
static_assert(offsetof(EgfLayerBlock, body) == kLayerBlockWord >> kHeaderSizeShift);

}  // namespace egfsvg
