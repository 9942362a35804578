// Lines, polylines and polygons.

#include "adapter_reader/object_boxes.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/plain_paint.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
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

/// Points of a polyline or polygon. `bounds` is set for a gradient alone. No points: null, without
/// a fault.
RmmOwner<_mpl_spacept_tag> placePoints(CAdapterReader& adapter, const PointShape& shape,
                                       _viewPortMap* map, _mpl_spacerect_tag* bounds) {
  if (shape.points == nullptr || shape.count <= 0) return nullptr;
  if (!needsBounds(shape.fill, shape.stroke)) [[likely]]
    return placedPoints(adapter, shape.points, shape.count, map, nullptr);
  RmmOwner<_mpl_spacept_tag> placed = placedPoints(adapter, shape.points, shape.count, map, bounds);
  if (placed) *bounds = inPixels(*bounds, margin(adapter, shape.stroke));
  return placed;
}

/// What a shape that is only stroked is painted from when its stroke has a gradient.
struct StrokedScene {
  _svg_pa_stroke& stroke;
  _svg_pa_graphics& graphics;
  const _mpl_spacerect_tag& bounds;  // pixels, before the map
  _viewPortMap* map;
};

/// False when the gradient failed.
[[gnu::noinline]] bool paintLine(CAdapterReader& adapter, const StrokedScene& scene,
                                 _egf_obj* object) {
  StrokedPaint paint(adapter, scene.stroke, scene.graphics);
  StrokedPen& pen = strokedPen(as<EgfLine>(object)->pen);
  paint.setPen(pen);
  if (!paint.setColour(kLineForm, scene.map, scene.bounds, object, pen)) return false;
  paint.storeStyles(kLineForm, object);
  return true;
}

[[gnu::noinline]] bool paintPolyline(CAdapterReader& adapter, const StrokedScene& scene,
                                     _egf_obj* object) {
  StrokedPaint paint(adapter, scene.stroke, scene.graphics);
  auto* polyline = as<EgfPolyline>(object);
  StrokedPen& pen = strokedPen(polyline->pen);
  paint.setPen(pen);
  if (!paint.setColour(kPolylineForm, scene.map, scene.bounds, object, pen)) return false;
  polyline->pen.joinStyle = paint.setJoin();
  paint.storeStyles(kPolylineForm, object);
  return true;
}

}  // namespace

_egf_obj* formatPolygon(CAdapterReader& adapter, const PointShape& shape) {
  if (isHidden(shape.graphics)) return nullptr;
  const MapOwner map(adapter, adapter._findMapMatrix(&shape.head, nullptr, nullptr));
  _mpl_spacerect_tag bounds{};
  RmmOwner<_mpl_spacept_tag> points = placePoints(adapter, shape, map.get(), &bounds);
  if (!points) return nullptr;
  ObjectOwner object(allocateObject(kClassPolygon, RMM_SITE));
  if (!object) return nullptr;
  auto* polygon = as<EgfPolygon>(object.get());
  setPolygonTemplate(polygon);
  polygon->points = points.release();
  polygon->pointCount = shape.count;
  const unsigned figure = shape.closed ? kFigureClosed : kFigureOpen;
  if (isPlain(shape.fill, shape.stroke)) [[likely]] {
    paintPlainPolygon(adapter, shape.fill, shape.stroke, shape.graphics, figure, polygon);
    EGF_CalcPolygonMer(object.get(), adapter.map);
    return object.release();
  }
  const ShapeScene scene{shape.fill, shape.stroke, shape.graphics, bounds, map.get()};
  return finishPolygon(adapter, object, scene, figure) == 0 ? object.release() : nullptr;
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
  const bool plain = isPlain(element->stroke);
  _mpl_spacerect_tag bounds{};
  if (!plain) bounds = pixelBounds(ends, 2, margin(*this, element->stroke));
  mapPoints(ends, 2, by.get());
  auto* line = as<EgfLine>(object.get());
  line->pen = kLinePen;
  line->pen.scaleFactor = 1.0;
  line->startPt = ends[0];
  line->endPt = ends[1];
  if (plain) [[likely]] {
    paintPlainLine(*this, element->stroke, element->graphics, line);
    return object.release();
  }
  const StrokedScene scene{element->stroke, element->graphics, bounds, by.get()};
  return paintLine(*this, scene, object.get()) ? object.release() : nullptr;
}

_egf_obj* CAdapterReader::SVG_formatEGFPolyline(_svg_polyline* element) {
  if (isHidden(element->graphics)) return nullptr;
  const MapOwner by(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  _mpl_spacerect_tag bounds{};
  RmmOwner<_mpl_spacept_tag> points =
      placePoints(*this, pointShape(*element, false), by.get(), &bounds);
  if (!points) return nullptr;
  ObjectOwner object(allocateObject(kClassPolyline, RMM_SITE));
  if (!object) return nullptr;
  auto* polyline = as<EgfPolyline>(object.get());
  polyline->pen = kPolylinePen;
  polyline->pen.scaleFactor = 1.0;
  polyline->points = points.release();
  polyline->pointCount = static_cast<std::uint32_t>(element->pointCount);
  EGF_CalcPolylineMer(object.get(), map);
  if (isPlain(element->stroke)) [[likely]] {
    paintPlainPolyline(*this, element->stroke, element->graphics, polyline);
    return object.release();
  }
  const StrokedScene scene{element->stroke, element->graphics, bounds, by.get()};
  return paintPolyline(*this, scene, object.get()) ? object.release() : nullptr;
}

_egf_obj* CAdapterReader::SVG_formatEGFPolygon(_svg_polygon* element) {
  return formatPolygon(*this, pointShape(*element, element->isClosed != 0));
}
