// Lines, polylines and polygons.

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"

namespace egfsvg {
namespace {

/// Lines and their kin add half the pen to their bounds.
double margin(CAdapterReader& adapter, const _svg_pa_stroke& stroke) {
  return penWidth(adapter, stroke.strokeWidth) / 2.0;
}

/// Points of an element on the page, as polylines and polygons take them.
struct PlacedPoints {
  RmmOwner<_mpl_spacept_tag> points;
  _mpl_spacerect_tag bounds;  // before the map, for a gradient alone
};

/// No points: null, without a fault.
PlacedPoints placePoints(CAdapterReader& adapter, const PointShape& shape, _viewPortMap* map) {
  PlacedPoints placed{};
  if (shape.points == nullptr || shape.count <= 0) return placed;
  const bool boxed = needsBounds(shape.fill, shape.stroke);
  _mpl_spacerect_tag box{};
  placed.points.reset(
      placedPoints(adapter, shape.points, shape.count, map, boxed ? &box : nullptr));
  if (boxed) placed.bounds = inPixels(box, margin(adapter, shape.stroke));
  return placed;
}

}  // namespace

_egf_obj* formatPolygon(CAdapterReader& adapter, const PointShape& shape) {
  if (isHidden(shape.graphics)) return nullptr;
  const MapOwner map(adapter, adapter._findMapMatrix(&shape.head, nullptr, nullptr));
  PlacedPoints placed = placePoints(adapter, shape, map.get());
  if (!placed.points) return nullptr;
  ObjectOwner object(allocateObject(kClassPolygon, RMM_SITE));
  if (!object) return nullptr;
  auto* polygon = as<EgfPolygon>(object.get());
  setPolygonTemplate(polygon);
  polygon->points = placed.points.release();
  polygon->pointCount = shape.count;
  const ShapeScene scene{shape.fill, shape.stroke, shape.graphics, placed.bounds, map.get()};
  const unsigned figure = shape.closed ? kFigureClosed : kFigureOpen;
  return finishPolygon(adapter, object, scene, figure, true) == 0 ? object.release() : nullptr;
}

}  // namespace egfsvg

using namespace egfsvg;

_egf_obj* CAdapterReader::SVG_formatEGFLine(_svg_line* element) {
  if (isHidden(element->graphics)) return nullptr;
  ObjectOwner object(allocateObject(kClassLine, RMM_SITE));
  if (!object) return nullptr;
  const MapOwner by(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  _mpl_spacept_tag ends[2];
  const PixelScale scale(*this);
  ends[0] = scale.point(element->x1, element->y1);
  ends[1] = scale.point(element->x2, element->y2);
  _mpl_spacerect_tag bounds{};
  if (needsBounds(element->stroke)) bounds = pixelBounds(ends, 2, margin(*this, element->stroke));
  mapPoints(ends, 2, by.get());
  auto* line = as<EgfLine>(object.get());
  line->pen = kLinePen;
  line->pen.scaleFactor = 1.0;
  line->startPt = ends[0];
  line->endPt = ends[1];
  StrokedPaint paint(*this, element->stroke, element->graphics);
  StrokedPen& pen = strokedPen(line->pen);
  paint.setPen(pen);
  if (!paint.setColour(kLineForm, by.get(), bounds, object.get(), pen)) return nullptr;
  paint.storeStyles(kLineForm, object.get());
  return object.release();
}

_egf_obj* CAdapterReader::SVG_formatEGFPolyline(_svg_polyline* element) {
  if (isHidden(element->graphics)) return nullptr;
  const MapOwner by(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  PlacedPoints placed = placePoints(*this, pointShape(*element, false), by.get());
  if (!placed.points) return nullptr;
  ObjectOwner object(allocateObject(kClassPolyline, RMM_SITE));
  if (!object) return nullptr;
  auto* polyline = as<EgfPolyline>(object.get());
  polyline->pen = kPolylinePen;
  polyline->pen.scaleFactor = 1.0;
  polyline->points = placed.points.release();
  polyline->pointCount = static_cast<std::uint32_t>(element->pointCount);
  EGF_CalcPolylineMer(object.get(), map);
  StrokedPaint paint(*this, element->stroke, element->graphics);
  StrokedPen& pen = strokedPen(polyline->pen);
  paint.setPen(pen);
  if (!paint.setColour(kPolylineForm, by.get(), placed.bounds, object.get(), pen)) return nullptr;
  polyline->pen.joinStyle = paint.setJoin();
  paint.storeStyles(kPolylineForm, object.get());
  return object.release();
}

_egf_obj* CAdapterReader::SVG_formatEGFPolygon(_svg_polygon* element) {
  return formatPolygon(*this, pointShape(*element, element->isClosed != 0));
}
