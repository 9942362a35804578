// Attributes of the basic shapes and of paths.

#include "reader/attribute_rows.h"
#include "reader/path_text.h"
#include "reader/value_text.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;
using Pair = _svg_attrib_pair;

constexpr CodeRange kFilledShape[] = {{kAttColor, kAttDisplay},
                                      {kAttVisibility, kAttOpacity},
                                      {kAttFilter, kAttFilter},
                                      {kAttPointerEvents, kAttColorInterpolation},
                                      {kAttColorRendering, kAttImageRendering},
                                      {kAttShapeRendering, kAttTextRendering}};

// The same and the markers.
constexpr CodeRange kMarkedShape[] = {{kAttColor, kAttDisplay},
                                      {kAttVisibility, kAttOpacity},
                                      {kAttFilter, kAttFilter},
                                      {kAttPointerEvents, kAttColorInterpolation},
                                      {kAttColorRendering, kAttImageRendering},
                                      {kAttMarkerMid, kAttTextRendering}};

// Kept: the last of rx and ry sets both.
template <_svg_value _svg_rect::*First, _svg_value _svg_rect::*Second>
void setRadii(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* rect = static_cast<_svg_rect*>(record);
  reader.SetValueAtt(&(rect->*First), pair);
  reader.SetValueAtt(&(rect->*Second), pair);
}

// Kept: rules for an attribute are asked for here alone.
void setCircleTransform(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetTransformAtt(head, pair);
  if (pair->name[0] != '\0') {
    reader.SetStyleBasedOnAttribSelector(record, head->type, pair);
  } else {
    Pair named{"transform", pair->valueSize, pair->value, pair->valueLength};
    reader.SetStyleBasedOnAttribSelector(record, head->type, &named);
  }
}

template <class Record>
void setPoints(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  auto* shape = static_cast<Record*>(record);
  int count = 0;
  _svg_point* points = reader.SetPointsAtt(&count, pair);
  freeAll(shape->points);
  shape->points = points;
  shape->pointCount = count;
}

void setPathData(Reader& reader, void* record, Pair* pair, const ElementTarget&) {
  if (pair->value != nullptr) {
    readPathData(reader, static_cast<_svg_path*>(record), textOf(*pair));
  }
}

constexpr ActionRow kRectActions[] = {{kAttX, setLength, offsetof(_svg_rect, x)},
                                      {kAttY, setLength, offsetof(_svg_rect, y)},
                                      {kAttWidth, setLength, offsetof(_svg_rect, width)},
                                      {kAttHeight, setLength, offsetof(_svg_rect, height)},
                                      {kAttRx, setRadii<&_svg_rect::rx, &_svg_rect::ry>},
                                      {kAttRy, setRadii<&_svg_rect::ry, &_svg_rect::rx>}};
constexpr ActionRow kCircleActions[] = {{kAttTransform, setCircleTransform},
                                        {kAttR, setLength, offsetof(_svg_circle, r)},
                                        {kAttCx, setLength, offsetof(_svg_circle, cx)},
                                        {kAttCy, setLength, offsetof(_svg_circle, cy)}};
constexpr ActionRow kEllipseActions[] = {{kAttRx, setLength, offsetof(_svg_ellipse, rx)},
                                         {kAttRy, setLength, offsetof(_svg_ellipse, ry)},
                                         {kAttCx, setLength, offsetof(_svg_ellipse, cx)},
                                         {kAttCy, setLength, offsetof(_svg_ellipse, cy)}};
constexpr ActionRow kLineActions[] = {{kAttX1, setLength, offsetof(_svg_line, x1)},
                                      {kAttY1, setLength, offsetof(_svg_line, y1)},
                                      {kAttX2, setLength, offsetof(_svg_line, x2)},
                                      {kAttY2, setLength, offsetof(_svg_line, y2)}};
constexpr ActionRow kPolylineActions[] = {{kAttPoints, setPoints<_svg_polyline>}};
constexpr ActionRow kPolygonActions[] = {{kAttPoints, setPoints<_svg_polygon>}};
constexpr ActionRow kPathActions[] = {{kAttD, setPathData}};

template <class Record, std::int32_t Type>
constexpr ElementRow shapeRow(std::span<const CodeRange> presentation,
                              std::span<const ActionRow> own) {
  return {GroupOffsets::of<Record>(), presentation, kElementActions<Record, setStyle<Type>>, own};
}

}  // namespace

constexpr ElementRow kRectRow = shapeRow<_svg_rect, kTagRect>(kFilledShape, kRectActions);
constexpr ElementRow kCircleRow = shapeRow<_svg_circle, kTagCircle>(kFilledShape, kCircleActions);
constexpr ElementRow kEllipseRow =
    shapeRow<_svg_ellipse, kTagEllipse>(kFilledShape, kEllipseActions);
constexpr ElementRow kLineRow = shapeRow<_svg_line, kTagLine>(kMarkedShape, kLineActions);
constexpr ElementRow kPolylineRow =
    shapeRow<_svg_polyline, kTagPolyline>(kMarkedShape, kPolylineActions);
constexpr ElementRow kPolygonRow =
    shapeRow<_svg_polygon, kTagPolygon>(kMarkedShape, kPolygonActions);
constexpr ElementRow kPathRow = shapeRow<_svg_path, kTagPath>(kMarkedShape, kPathActions);

}  // namespace egfsvg

int CHandlerReader::SetRectAttribute(_svg_rect* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kRectRow, record, attType, pair);
}

int CHandlerReader::SetCircleAttribute(_svg_circle* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kCircleRow, record, attType, pair);
}

int CHandlerReader::SetEllipseAttribute(_svg_ellipse* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kEllipseRow, record, attType, pair);
}

int CHandlerReader::SetLineAttribute(_svg_line* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kLineRow, record, attType, pair);
}

int CHandlerReader::SetPolylineAttribute(_svg_polyline* record, int attType,
                                         _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kPolylineRow, record, attType, pair);
}

int CHandlerReader::SetPolygonAttribute(_svg_polygon* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kPolygonRow, record, attType, pair);
}

int CHandlerReader::SetPathAttribute(_svg_path* record, int attType, _svg_attrib_pair* pair) {
  return egfsvg::applyAttribute(*this, egfsvg::kPathRow, record, attType, pair);
}
