// Field rows of containers, images, text, links and the markup forms.
#pragma once

#include "model/elements.h"
#include "model/group_fields.h"
#include "model/shape_fields.h"
#include "model/test_event_fields.h"

namespace egfsvg::element_rows {

inline constexpr ElementField kImageRows[] = {
    EGFSVG_RECORD(_svg_image, head, kHeadFields),
    EGFSVG_RECORD(_svg_image, images, kImagesFields),
    EGFSVG_RECORD(_svg_image, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_image, ta, kTAFields),
    EGFSVG_RECORD(_svg_image, viewports, kViewportsFields),
    EGFSVG_RECORD(_svg_image, events, kGraphicalEventFields),
    EGFSVG_RECORD(_svg_image, link, kLinkFields),
    EGFSVG_FIELD(_svg_image, preserveAspectRatio, kInteger),
    EGFSVG_FIELD(_svg_image, x, kValue),
    EGFSVG_FIELD(_svg_image, y, kValue),
    EGFSVG_FIELD(_svg_image, width, kValue),
    EGFSVG_FIELD(_svg_image, height, kValue)};
inline constexpr ElementRecord kImageFields(kImageRows);

inline constexpr ElementField kGroupRows[] = {
    EGFSVG_RECORD(_svg_group, head, kHeadFields),
    EGFSVG_RECORD(_svg_group, pa, kPAFields),
    EGFSVG_RECORD(_svg_group, ta, kTAFields),
    EGFSVG_RECORD(_svg_group, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_group, x, kValue),
    EGFSVG_FIELD(_svg_group, y, kValue),
    EGFSVG_FIELD(_svg_group, width, kValue),
    EGFSVG_FIELD(_svg_group, height, kValue),
    EGFSVG_RECORD(_svg_group, link, kLinkFields)};
inline constexpr ElementRecord kGroupFields(kGroupRows);

inline constexpr ElementField kSvgRows[] = {EGFSVG_RECORD(_svg_svg, head, kHeadFields),
                                            EGFSVG_FIELD(_svg_svg, contentStyleType, kInteger),
                                            EGFSVG_FIELD(_svg_svg, xmlSpace, kInteger),
                                            EGFSVG_RECORD(_svg_svg, pa, kPAFields),
                                            EGFSVG_RECORD(_svg_svg, ta, kTAFields),
                                            EGFSVG_RECORD(_svg_svg, events, kEventFields),
                                            {.key = "viewBox",
                                             .offset = offsetof(_svg_svg, viewBox),
                                             .shape = ElementShape::kRecord,
                                             .repeat = ElementRepeat::kPointer,
                                             .record = &kViewboxFields},
                                            EGFSVG_FIELD(_svg_svg, preserveAspectRatio, kInteger),
                                            EGFSVG_FIELD(_svg_svg, zoomAndPan, kInteger),
                                            EGFSVG_FIELD(_svg_svg, x, kValue),
                                            EGFSVG_FIELD(_svg_svg, y, kValue),
                                            EGFSVG_FIELD(_svg_svg, width, kValue),
                                            EGFSVG_FIELD(_svg_svg, height, kValue)};
inline constexpr ElementRecord kSvgFields(kSvgRows);

inline constexpr ElementField kARows[] = {
    EGFSVG_RECORD(_svg_a, head, kHeadFields),
    EGFSVG_RECORD(_svg_a, pa, kPAFields),
    EGFSVG_RECORD(_svg_a, ta, kTAFields),
    EGFSVG_RECORD(_svg_a, events, kGraphicalEventFields),
    EGFSVG_RECORD(_svg_a, link, kLinkFields),
    EGFSVG_FIELD(_svg_a, reserved, kInteger),
    EGFSVG_ARRAY(_svg_a, objects, objectCount, _svg_objects, kChild, nullptr),
    EGFSVG_FIELD(_svg_a, objectCount, kInteger),
    EGFSVG_FIELD(_svg_a, cdata, kText),
    EGFSVG_FIELD(_svg_a, cdataLength, kInteger)};
inline constexpr ElementRecord kAFields(kARows);

inline constexpr ElementField kTextRows[] = {
    EGFSVG_RECORD(_svg_text, head, kHeadFields),
    EGFSVG_RECORD(_svg_text, fill, kFillFields),
    EGFSVG_RECORD(_svg_text, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_text, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_text, ta, kTAFields),
    EGFSVG_RECORD(_svg_text, fontspec, kFontspecFields),
    EGFSVG_RECORD(_svg_text, textcontentelems, kTextcontentelemsFields),
    EGFSVG_RECORD(_svg_text, textelems, kTextelemsFields),
    EGFSVG_RECORD(_svg_text, events, kGraphicalEventFields),
    EGFSVG_RECORD(_svg_text, position, kPointFields),
    EGFSVG_FIELD(_svg_text, hasX, kFlag),
    EGFSVG_FIELD(_svg_text, hasY, kFlag),
    EGFSVG_FIELD(_svg_text, dx, kValue),
    EGFSVG_FIELD(_svg_text, dy, kValue),
    EGFSVG_FIELD(_svg_text, rotate, kAngle),
    EGFSVG_FIELD(_svg_text, textLength, kValue),
    EGFSVG_FIELD(_svg_text, lengthAdjust, kInteger),
    EGFSVG_FIELD(_svg_text, contentLength, kInteger),
    EGFSVG_RECORD(_svg_text, link, kLinkFields),
    EGFSVG_RECORD(_svg_text, lang, kLinkFields),
    EGFSVG_FIELD(_svg_text, content, kText),
    {.key = "runs",
     .offset = offsetof(_svg_text, next),
     .shape = ElementShape::kRecord,
     .repeat = ElementRepeat::kChain}};
inline constexpr ElementRecord kTextFields(kTextRows);

inline constexpr ElementField kCloudRows[] = {
    EGFSVG_RECORD(_svg_markup_cloud, group, kGroupFields),
    EGFSVG_RECORD(_svg_markup_cloud, outline, kPolylineFields),
    EGFSVG_RECORD(_svg_markup_cloud, curve, kPathFields)};
inline constexpr ElementRecord kCloudFields(kCloudRows);

inline constexpr ElementField kCrossoutRows[] = {
    EGFSVG_RECORD(_svg_markup_crossout, group, kGroupFields),
    EGFSVG_RECORD(_svg_markup_crossout, line1, kLineFields),
    EGFSVG_RECORD(_svg_markup_crossout, line2, kLineFields)};
inline constexpr ElementRecord kCrossoutFields(kCrossoutRows);

inline constexpr ElementField kDiamondRows[] = {
    EGFSVG_RECORD(_svg_markup_diamond, group, kGroupFields),
    EGFSVG_RECORD(_svg_markup_diamond, outline, kPathFields)};
inline constexpr ElementRecord kDiamondFields(kDiamondRows);

inline constexpr ElementField kAnnoRows[] = {EGFSVG_RECORD(_svg_markup_anno, group, kGroupFields),
                                             EGFSVG_RECORD(_svg_markup_anno, note, kTextFields)};
inline constexpr ElementRecord kAnnoFields(kAnnoRows);

}  // namespace egfsvg::element_rows
