// Field rows of the shapes.
#pragma once

#include "model/elements.h"
#include "model/group_fields.h"
#include "model/test_event_fields.h"

namespace egfsvg::element_rows {

inline constexpr ElementField kRectRows[] = {
    EGFSVG_RECORD(_svg_rect, head, kHeadFields),
    EGFSVG_RECORD(_svg_rect, fill, kFillFields),
    EGFSVG_RECORD(_svg_rect, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_rect, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_rect, ta, kTAFields),
    EGFSVG_RECORD(_svg_rect, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_rect, x, kValue),
    EGFSVG_FIELD(_svg_rect, y, kValue),
    EGFSVG_FIELD(_svg_rect, width, kValue),
    EGFSVG_FIELD(_svg_rect, height, kValue),
    EGFSVG_FIELD(_svg_rect, rx, kValue),
    EGFSVG_FIELD(_svg_rect, ry, kValue)};
inline constexpr ElementRecord kRectFields(kRectRows);

inline constexpr ElementField kCircleRows[] = {
    EGFSVG_RECORD(_svg_circle, head, kHeadFields),
    EGFSVG_RECORD(_svg_circle, fill, kFillFields),
    EGFSVG_RECORD(_svg_circle, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_circle, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_circle, ta, kTAFields),
    EGFSVG_RECORD(_svg_circle, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_circle, cx, kValue),
    EGFSVG_FIELD(_svg_circle, cy, kValue),
    EGFSVG_FIELD(_svg_circle, r, kValue)};
inline constexpr ElementRecord kCircleFields(kCircleRows);

inline constexpr ElementField kEllipseRows[] = {
    EGFSVG_RECORD(_svg_ellipse, head, kHeadFields),
    EGFSVG_RECORD(_svg_ellipse, fill, kFillFields),
    EGFSVG_RECORD(_svg_ellipse, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_ellipse, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_ellipse, ta, kTAFields),
    EGFSVG_RECORD(_svg_ellipse, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_ellipse, cx, kValue),
    EGFSVG_FIELD(_svg_ellipse, cy, kValue),
    EGFSVG_FIELD(_svg_ellipse, rx, kValue),
    EGFSVG_FIELD(_svg_ellipse, ry, kValue)};
inline constexpr ElementRecord kEllipseFields(kEllipseRows);

inline constexpr ElementField kLineRows[] = {
    EGFSVG_RECORD(_svg_line, head, kHeadFields),
    EGFSVG_RECORD(_svg_line, fill, kFillFields),
    EGFSVG_RECORD(_svg_line, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_line, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_line, markers, kMarkersFields),
    EGFSVG_RECORD(_svg_line, ta, kTAFields),
    EGFSVG_RECORD(_svg_line, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_line, x1, kValue),
    EGFSVG_FIELD(_svg_line, y1, kValue),
    EGFSVG_FIELD(_svg_line, x2, kValue),
    EGFSVG_FIELD(_svg_line, y2, kValue)};
inline constexpr ElementRecord kLineFields(kLineRows);

inline constexpr ElementField kPolylineRows[] = {
    EGFSVG_RECORD(_svg_polyline, head, kHeadFields),
    EGFSVG_RECORD(_svg_polyline, fill, kFillFields),
    EGFSVG_RECORD(_svg_polyline, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_polyline, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_polyline, markers, kMarkersFields),
    EGFSVG_RECORD(_svg_polyline, ta, kTAFields),
    EGFSVG_RECORD(_svg_polyline, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_polyline, pointCount, kInteger),
    EGFSVG_FIELD(_svg_polyline, isClosed, kInteger),
    EGFSVG_ARRAY(_svg_polyline, points, pointCount, _svg_point, kRecord, &kPointFields)};
inline constexpr ElementRecord kPolylineFields(kPolylineRows);

inline constexpr ElementField kPolygonRows[] = {
    EGFSVG_RECORD(_svg_polygon, head, kHeadFields),
    EGFSVG_RECORD(_svg_polygon, fill, kFillFields),
    EGFSVG_RECORD(_svg_polygon, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_polygon, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_polygon, markers, kMarkersFields),
    EGFSVG_RECORD(_svg_polygon, ta, kTAFields),
    EGFSVG_RECORD(_svg_polygon, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_polygon, pointCount, kInteger),
    EGFSVG_FIELD(_svg_polygon, isClosed, kInteger),
    EGFSVG_ARRAY(_svg_polygon, points, pointCount, _svg_point, kRecord, &kPointFields)};
inline constexpr ElementRecord kPolygonFields(kPolygonRows);

inline constexpr ElementField kPathDataRows[] = {
    EGFSVG_FIELD(_svg_path_data, command, kInteger), EGFSVG_FIELD(_svg_path_data, arg0, kValue),
    EGFSVG_FIELD(_svg_path_data, arg1, kValue),      EGFSVG_FIELD(_svg_path_data, arg2, kValue),
    EGFSVG_FIELD(_svg_path_data, arg3, kValue),      EGFSVG_FIELD(_svg_path_data, arg4, kValue),
    EGFSVG_FIELD(_svg_path_data, arg5, kValue)};
inline constexpr ElementRecord kPathDataFields(kPathDataRows);

inline constexpr ElementField kSinglePathRows[] = {
    EGFSVG_ARRAY(_svg_singlepath, data, dataCount, _svg_path_data, kRecord, &kPathDataFields),
    EGFSVG_FIELD(_svg_singlepath, dataCount, kInteger),
    EGFSVG_FIELD(_svg_singlepath, subFlag, kInteger),
    EGFSVG_FIELD(_svg_singlepath, closed, kInteger)};
inline constexpr ElementRecord kSinglePathFields(kSinglePathRows);

inline constexpr ElementField kPathRows[] = {
    EGFSVG_RECORD(_svg_path, head, kHeadFields),
    EGFSVG_RECORD(_svg_path, fill, kFillFields),
    EGFSVG_RECORD(_svg_path, stroke, kStrokeFields),
    EGFSVG_RECORD(_svg_path, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_path, markers, kMarkersFields),
    EGFSVG_RECORD(_svg_path, ta, kTAFields),
    EGFSVG_RECORD(_svg_path, events, kGraphicalEventFields),
    EGFSVG_FIELD(_svg_path, pathCount, kInteger),
    EGFSVG_ARRAY(_svg_path, paths, pathCount, _svg_singlepath, kRecord, &kSinglePathFields),
    EGFSVG_FIELD(_svg_path, pathFlag, kInteger)};
inline constexpr ElementRecord kPathFields(kPathRows);

}  // namespace egfsvg::element_rows
