// Field rows of the small values, the common head and the property groups.
#pragma once

#include "model/field_rows.h"
#include "model/groups.h"

namespace egfsvg::element_rows {

inline constexpr ElementField kPointRows[] = {EGFSVG_FIELD(_svg_point, x, kValue),
                                              EGFSVG_FIELD(_svg_point, y, kValue)};
inline constexpr ElementRecord kPointFields(kPointRows);

inline constexpr ElementField kViewboxRows[] = {
    EGFSVG_FIELD(_svg_viewbox, x, kValue), EGFSVG_FIELD(_svg_viewbox, y, kValue),
    EGFSVG_FIELD(_svg_viewbox, height, kValue), EGFSVG_FIELD(_svg_viewbox, width, kValue)};
inline constexpr ElementRecord kViewboxFields(kViewboxRows);

inline constexpr ElementField kLinkRows[] = {EGFSVG_FIELD(_xml_obj, value, kText),
                                             EGFSVG_FIELD(_xml_obj, dataKind, kInteger)};
inline constexpr ElementRecord kLinkFields(kLinkRows);

inline constexpr ElementField kTransformRows[] = {
    EGFSVG_FIELD(transformEntry, kind, kInteger), EGFSVG_FIELD(transformEntry, argCount, kInteger),
    EGFSVG_ARRAY(transformEntry, args, argCount, _svg_value, kValue, nullptr)};
inline constexpr ElementRecord kTransformFields(kTransformRows);

inline constexpr ElementField kHeadRows[] = {
    EGFSVG_FIELD(_svg_common, type, kInteger),
    EGFSVG_FIELD(_svg_common, id, kText),
    EGFSVG_FIELD(_svg_common, index, kInteger),
    EGFSVG_FIELD(_svg_common, desc, kText),
    EGFSVG_FIELD(_svg_common, externalResourcesRequired, kInteger),
    EGFSVG_ARRAY(_svg_common, classNames, classCount, ClassName, kName, nullptr),
    EGFSVG_FIELD(_svg_common, classCount, kInteger),
    EGFSVG_ARRAY(_svg_common, transforms, transformCount, transformEntry, kRecord,
                 &kTransformFields),
    EGFSVG_FIELD(_svg_common, transformCount, kInteger),
    {"hasParent", offsetof(_svg_common, parent), ElementShape::kPresence},
    EGFSVG_FIELD(_svg_common, styleRef, kText)};
inline constexpr ElementRecord kHeadFields(kHeadRows);

inline constexpr ElementField kFillRows[] = {
    EGFSVG_FIELD(_svg_pa_fill, packedColor, kInteger),
    EGFSVG_FIELD(_svg_pa_fill, fillColor, kColor),
    EGFSVG_FIELD(_svg_pa_fill, fillRule, kInteger),
    EGFSVG_FIELD(_svg_pa_fill, fillOpacity, kNumber),
    EGFSVG_FIELD(_svg_pa_fill, fillUrl, kText),
    EGFSVG_FIELD(_svg_pa_fill, fillGradient, kGradientKey)};
inline constexpr ElementRecord kFillFields(kFillRows);

inline constexpr ElementField kStrokeRows[] = {
    EGFSVG_FIELD(_svg_pa_stroke, packedColor, kInteger),
    EGFSVG_FIELD(_svg_pa_stroke, strokeColor, kColor),
    EGFSVG_FIELD(_svg_pa_stroke, strokePresent, kFlag),
    EGFSVG_FIELD(_svg_pa_stroke, strokeWidth, kValue),
    EGFSVG_FIELD(_svg_pa_stroke, strokeLinecap, kInteger),
    EGFSVG_FIELD(_svg_pa_stroke, strokeLinejoin, kInteger),
    EGFSVG_FIELD(_svg_pa_stroke, strokeMiterlimit, kInteger),
    EGFSVG_ARRAY(_svg_pa_stroke, strokeDashArray, strokeDashCount, _svg_value, kValue, nullptr),
    EGFSVG_FIELD(_svg_pa_stroke, strokeDashCount, kInteger),
    EGFSVG_FIELD(_svg_pa_stroke, strokeDashOffset, kValue),
    EGFSVG_FIELD(_svg_pa_stroke, strokeOpacity, kNumber),
    EGFSVG_FIELD(_svg_pa_stroke, strokeUrl, kText),
    EGFSVG_FIELD(_svg_pa_stroke, strokeGradient, kGradientKey)};
inline constexpr ElementRecord kStrokeFields(kStrokeRows);

inline constexpr ElementField kGraphicsRows[] = {
    EGFSVG_FIELD(_svg_pa_graphics, clipPath, kText),
    EGFSVG_FIELD(_svg_pa_graphics, clipRule, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, color, kColor),
    EGFSVG_FIELD(_svg_pa_graphics, colorInterpolation, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, colorRendering, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, display, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, imageRendering, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, opacity, kNumber),
    EGFSVG_FIELD(_svg_pa_graphics, visibility, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, cursor, kText),
    EGFSVG_FIELD(_svg_pa_graphics, filter, kText),
    EGFSVG_FIELD(_svg_pa_graphics, mask, kText),
    EGFSVG_FIELD(_svg_pa_graphics, pointerEvents, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, shapeRendering, kInteger),
    EGFSVG_FIELD(_svg_pa_graphics, textRendering, kInteger)};
inline constexpr ElementRecord kGraphicsFields(kGraphicsRows);

inline constexpr ElementField kContainersRows[] = {
    EGFSVG_FIELD(_svg_pa_containers, enableBackground, kText)};
inline constexpr ElementRecord kContainersFields(kContainersRows);

inline constexpr ElementField kFefloodRows[] = {
    EGFSVG_FIELD(_svg_pa_feflood, floodColor, kColor),
    EGFSVG_FIELD(_svg_pa_feflood, floodOpacity, kNumber)};
inline constexpr ElementRecord kFefloodFields(kFefloodRows);

inline constexpr ElementField kFontspecRows[] = {
    EGFSVG_FIELD(_svg_pa_fontspec, fontFamily, kText),
    EGFSVG_FIELD(_svg_pa_fontspec, fontStyle, kInteger),
    EGFSVG_FIELD(_svg_pa_fontspec, fontVariant, kInteger),
    EGFSVG_FIELD(_svg_pa_fontspec, fontWeight, kInteger),
    EGFSVG_FIELD(_svg_pa_fontspec, fontStretch, kInteger),
    EGFSVG_FIELD(_svg_pa_fontspec, fontSize, kValue),
    EGFSVG_FIELD(_svg_pa_fontspec, fontSizeAdjust, kValue)};
inline constexpr ElementRecord kFontspecFields(kFontspecRows);

inline constexpr ElementField kGradientsRows[] = {
    EGFSVG_FIELD(_svg_pa_gradients, stopColor, kColor),
    EGFSVG_FIELD(_svg_pa_gradients, stopOpacity, kNumber)};
inline constexpr ElementRecord kGradientsFields(kGradientsRows);

inline constexpr ElementField kImagesRows[] = {EGFSVG_FIELD(_svg_pa_images, colorProfile, kText)};
inline constexpr ElementRecord kImagesFields(kImagesRows);

inline constexpr ElementField kLightingRows[] = {
    EGFSVG_FIELD(_svg_pa_lighting, lightingColor, kColor)};
inline constexpr ElementRecord kLightingFields(kLightingRows);

inline constexpr ElementField kMarkersRows[] = {EGFSVG_FIELD(_svg_pa_markers, markerStart, kText),
                                                EGFSVG_FIELD(_svg_pa_markers, markerMid, kText),
                                                EGFSVG_FIELD(_svg_pa_markers, markerEnd, kText)};
inline constexpr ElementRecord kMarkersFields(kMarkersRows);

inline constexpr ElementField kTextcontentelemsRows[] = {
    EGFSVG_FIELD(_svg_pa_textcontentelems, alignmentBaseline, kInteger),
    EGFSVG_FIELD(_svg_pa_textcontentelems, baselineShift, kText),
    EGFSVG_FIELD(_svg_pa_textcontentelems, direction, kInteger),
    EGFSVG_FIELD(_svg_pa_textcontentelems, glyphOrientationHorizontal, kAngle),
    EGFSVG_FIELD(_svg_pa_textcontentelems, glyphOrientationVertical, kAngle),
    EGFSVG_FIELD(_svg_pa_textcontentelems, kerning, kValue),
    EGFSVG_FIELD(_svg_pa_textcontentelems, letterSpacing, kValue),
    EGFSVG_FIELD(_svg_pa_textcontentelems, textDecoration, kInteger),
    EGFSVG_FIELD(_svg_pa_textcontentelems, unicodeBidi, kInteger),
    EGFSVG_FIELD(_svg_pa_textcontentelems, wordSpacing, kValue)};
inline constexpr ElementRecord kTextcontentelemsFields(kTextcontentelemsRows);

inline constexpr ElementField kTextelemsRows[] = {
    EGFSVG_FIELD(_svg_pa_textelems, dominantBaseline, kInteger),
    EGFSVG_FIELD(_svg_pa_textelems, textAnchor, kInteger),
    EGFSVG_FIELD(_svg_pa_textelems, writingMode, kInteger)};
inline constexpr ElementRecord kTextelemsFields(kTextelemsRows);

inline constexpr ElementField kViewportsRows[] = {
    {"clipRect", offsetof(_svg_pa_viewports, clipRect), ElementShape::kValue,
     ElementRepeat::kInline, 4, sizeof(_svg_value)},
    EGFSVG_FIELD(_svg_pa_viewports, overflow, kInteger)};
inline constexpr ElementRecord kViewportsFields(kViewportsRows);

inline constexpr ElementField kPARows[] = {
    EGFSVG_RECORD(_svg_pa, fill, kFillFields),
    EGFSVG_RECORD(_svg_pa, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_pa, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_pa, containers, kContainersFields),
    EGFSVG_RECORD(_svg_pa, feflood, kFefloodFields),
    EGFSVG_RECORD(_svg_pa, fontspec, kFontspecFields),
    EGFSVG_RECORD(_svg_pa, gradients, kGradientsFields),
    EGFSVG_RECORD(_svg_pa, images, kImagesFields),
    EGFSVG_RECORD(_svg_pa, lighting, kLightingFields),
    EGFSVG_RECORD(_svg_pa, markers, kMarkersFields),
    EGFSVG_RECORD(_svg_pa, textcontentelems, kTextcontentelemsFields),
    EGFSVG_RECORD(_svg_pa, textelems, kTextelemsFields),
    EGFSVG_RECORD(_svg_pa, viewports, kViewportsFields)};
inline constexpr ElementRecord kPAFields(kPARows);

}  // namespace egfsvg::element_rows
