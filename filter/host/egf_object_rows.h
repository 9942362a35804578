#pragma once

#include "host/egf_objects.h"
#include "host/egf_style_rows.h"

// Fields of every object class.

namespace egfsvg {

inline constexpr std::array kEgfHeadFields{
    EGF_FIELD(_egf_obj, objClass, 0, kI32),
    EGF_FIELD(_egf_obj, objAttr, 4, kU8),
    EGF_FIELD(_egf_obj, objAttr2, 5, kU8),
    EGF_FIELD(_egf_obj, layerIndex, 20, kU16),
};

inline constexpr std::array kEgfGroupFields =
    joined(kEgfHeadFields, std::array{
                               EGF_FIELD(EgfGroup, groupMer, 24, kRect),
                               EGF_FIELD(EgfGroup, firstChild, 40, kFirstChild),
                               EGF_FIELD(EgfGroup, groupFlags, 48, kU8),
                               EGF_FIELD(EgfGroup, linkFlags, 49, kU8),
                               EGF_FIELD(EgfGroup, groupName, 52, kString),
                           });

inline constexpr std::array kEgfPolygonFields =
    joined(kEgfHeadFields,
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

inline constexpr std::array kEgfEllipseFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfLineFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfArrowLineFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfPolylineFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfArcFields =
    joined(kEgfHeadFields, std::array{
                               EGF_FIELD(EgfArc, center, 24, kPoint),
                               EGF_FIELD(EgfArc, radiusPt, 32, kRadii),
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

inline constexpr std::array kEgfPathFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfTextFields =
    joined(kEgfHeadFields,
           std::array{
               EGF_FIELD(EgfTextObject, text.origin, 24, kPoint),
               EGF_FIELD(EgfTextObject, text.bounds, 32, kRect),
               EGF_FIELD(EgfTextObject, text.textString, 48, kString),
           },
           moved(kTextParmsFields, 52, offsetof(EgfTextObject, parms)));

inline constexpr std::array kEgfAnnotationFields =
    joined(kEgfHeadFields,
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

inline constexpr std::array kEgfImageFields =
    joined(kEgfHeadFields, std::array{
                               EGF_FIELD(EgfImage, placement, 24, kRect),
                               EGF_FIELD(EgfImage, raster, 40, kRaster),
                               EGF_FIELD(EgfImage, palette, 44, kPalette),
                               EGF_FIELD(EgfImage, xResolution, 48, kU32),
                               EGF_FIELD(EgfImage, yResolution, 52, kU32),
                               EGF_FIELD(EgfImage, rotation, 56, kU8),
                               EGF_FIELD(EgfImage, fillParmsNo, 60, kStyleNo),
                           });

inline constexpr std::array kEgfStockObjectFields =
    joined(kEgfHeadFields, std::array{
                               EGF_FIELD(EgfStockObject, reference, 24, kHandle),
                               EGF_FIELD(EgfStockObject, place, 28, kPoint),
                               EGF_FIELD(EgfStockObject, angle, 36, kI32),
                           });

inline constexpr std::array kEgfCloudFields = joined(
    kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfDiamondFields =
    joined(kEgfHeadFields,
           std::array{
               EGF_FIELD(EgfDiamond, points, 24, kPointArray, FieldCount::constant(4)),
               EGF_FIELD(EgfDiamond, bounds, 28, kRect),
           },
           moved(kPenFields, 44, offsetof(EgfDiamond, pen)),
           std::array{
               EGF_FIELD(EgfDiamond, hostByte96, 96, kU8),
           });

inline constexpr std::array kEgfCrossoutFields =
    joined(kEgfHeadFields, std::array{
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

inline constexpr std::array kEgfHotspotFields =
    joined(kEgfHeadFields, std::array{
                               EGF_FIELD(EgfHotspot, data, 24, kData, FieldCount::wordAt(28)),
                               EGF_FIELD(EgfHotspot, dataLength, 28, kU32),
                               EGF_FIELD(EgfHotspot, hotspotFlags, 32, kU8),
                           });

inline constexpr std::array kEgfOpaqueFields =
    joined(kEgfHeadFields, std::array{EGF_FIELD(EgfOpaqueObject, placement, 24, kRect)});

}  // namespace egfsvg
