// Rectangles: a box, or a path of four corner arcs or curves when the corners are round.

#include <cstring>

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/arcs.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"

namespace egfsvg {
namespace {

/// A radius in space units, of pixels: at most half its own side. Kept: neither radius borrows from
/// the other here.
float cornerRadius(double radius, double side) {
  const auto wanted = static_cast<float>(radius * kSpaceUnits);
  const auto length = static_cast<float>(side * kSpaceUnits);
  return 2.0F * wanted > length ? 0.5F * length : wanted;
}

/// The exact start of a corner's curve: it touches the side that the arc begins on.
_mpl_spacept_tag cornerStart(const RoundedCorner& row, const _mpl_spacept_tag& corner,
                             const _mpl_spacept_tag& center) {
  const bool onHorizontalSide = row.startDegrees % 180 != 0;
  return onHorizontalSide ? _mpl_spacept_tag{center.x, corner.y}
                          : _mpl_spacept_tag{corner.x, center.y};
}

/// Bounds of the unmapped rectangle, in pixels.
_mpl_spacerect_tag cornerBounds(const _mpl_spacept_tag& first, const _mpl_spacept_tag& opposite,
                                double margin) {
  const auto side = [](float edge, double by) {
    return static_cast<float>(static_cast<double>(edge) / kSpaceUnits + by);
  };
  return {side(first.x, -margin), side(opposite.x, margin), side(first.y, -margin),
          side(opposite.y, margin)};
}

/// What the children of a rounded rectangle are made from.
struct CornerScene {
  CAdapterReader& adapter;
  const _mpl_spacept_tag* corners;
  float rx;
  float ry;
  double scaleX = 1.0;
  double scaleY = 1.0;
  _viewPortMap* map;
};

/// Gives the path a copy of the child.
bool putChild(const CornerScene& scene, _egf_obj* path, _egf_obj* child) {
  if (EEL_PutObject(path, child, scene.adapter.map) == 0) return true;
  logOutOfMemory(RMM_SITE);
  return false;
}

/// One arc object serves all four corners: the path takes a copy each time.
bool putArcs(const CornerScene& scene, _egf_obj* path) {
  const ObjectOwner object(allocateObject(kClassArc, RMM_SITE));
  if (!object) return false;
  auto* arc = as<EgfArc>(object.get());
  arc->pen = kArcPen;
  arc->pen.arcFlags = ArcDirectionBits::with(arc->pen.arcFlags, 0);
  arc->radiusPt = {static_cast<float>(static_cast<double>(scene.rx) * scene.scaleX),
                   static_cast<float>(static_cast<double>(scene.ry) * scene.scaleY)};
  for (const RoundedCorner& row : kRoundedCorners) {
    _mpl_spacept_tag center = cornerCenter(scene.corners, row, scene.rx, scene.ry);
    mapPoints(&center, 1, scene.map);
    arc->center = center;
    arc->startAngle = row.startDegrees * kMillionths;
    arc->endAngle = row.endDegrees * kMillionths;
    if (!putChild(scene, path, object.get())) return false;
  }
  return true;
}

bool putCurve(const CornerScene& scene, const RoundedCorner& row, _egf_obj* path) {
  const _mpl_spacept_tag center = cornerCenter(scene.corners, row, scene.rx, scene.ry);
  _mpl_spacept_tag* points = nullptr;
  int count = 0;
  scene.adapter.ArcToBezierCurve(0.0, center, row.startDegrees, row.endDegrees,
                                 static_cast<double>(scene.rx), static_cast<double>(scene.ry), 0, 0,
                                 points, &count);
  RmmOwner<_mpl_spacept_tag> owned(points);
  if (!owned) return false;
  const ObjectOwner object(allocateObject(kClassPolygon, RMM_SITE));
  if (!object) return false;
  points[0] = cornerStart(row, scene.corners[row.corner], center);
  mapPoints(points, count, scene.map);
  auto* curve = as<EgfPolygon>(object.get());
  curve->points = owned.release();
  curve->pointCount = count;
  curve->pen.modeFlags = CurveChildBits::with(curve->pen.modeFlags, kCurveChild);
  return putChild(scene, path, object.get());
}

bool putCurves(const CornerScene& scene, _egf_obj* path) {
  for (const RoundedCorner& row : kRoundedCorners) {
    if (!putCurve(scene, row, path)) return false;
  }
  return true;
}

/// A box of the corners, mapped, with its template. Null, with the fault logged, out of memory.
ObjectOwner mappedBox(const _mpl_spacept_tag (&corners)[kRectCorners], const _viewPortMap* map,
                      PointBox* bounds) {
  ObjectOwner object(allocateObject(kClassBox, RMM_SITE));
  if (!object) return object;
  auto* box = as<EgfPolygon>(object.get());
  setPolygonTemplate(box);
  _mpl_spacept_tag places[kRectCorners];
  std::memcpy(places, corners, sizeof places);
  *bounds = mapPoints(places, kRectCorners, map);
  if (!setPoints(box, places, kRectCorners)) object.reset();
  return object;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

_egf_obj* CAdapterReader::_getBoxRect(_mpl_spacept_tag* corners, _viewPortMap* by) {
  _mpl_spacept_tag four[kRectCorners];
  std::memcpy(four, corners, sizeof four);
  PointBox unused;
  return mappedBox(four, by, &unused).release();
}

/// Straight edges are no objects: the host joins a path's children. Arcs can be moved and scaled,
/// but neither turned nor sheared.
_egf_obj* CAdapterReader::_getPathRect(_mpl_spacept_tag* corners, float rx, float ry,
                                       _viewPortMap* by) {
  ObjectOwner object(allocateObject(kClassPath, RMM_SITE));
  if (!object) return nullptr;
  CornerScene scene{*this, corners, rx, ry, 1.0, 1.0, by};
  double shear = 0.0;
  double rotation = 0.0;
  if (by != nullptr) {
    svg_DecomposeMatrix(by->userSpace->matrix.m, &shear, &scene.scaleX, &scene.scaleY, &rotation);
  }
  const auto put = shear == 0.0 && rotation == 0.0 ? putArcs : putCurves;
  if (!put(scene, object.get())) return nullptr;
  as<EgfPath>(object.get())->pathKind = kPathClosedFigure;
  return object.release();
}

_egf_obj* CAdapterReader::SVG_formatEGFRect(_svg_rect* element) {
  if (isHidden(element->graphics)) return nullptr;
  const MapOwner by(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  const PixelScale scale(*this);
  const PixelBox box{scale.pixels(element->x), scale.pixels(element->y),
                     scale.pixels(element->width), scale.pixels(element->height)};
  _mpl_spacept_tag corners[kRectCorners];
  rectCorners(box, corners);
  // Kept: the whole pen width is added where lines add half of it.
  _mpl_spacerect_tag bounds{};
  if (needsBounds(element->fill, element->stroke)) {
    bounds = cornerBounds(corners[0], corners[2], scale.pixels(element->stroke.strokeWidth));
  }
  const float rx = cornerRadius(scale.pixels(element->rx), box.width);
  const float ry = cornerRadius(scale.pixels(element->ry), box.height);
  if (rx != 0.0F || ry != 0.0F) {
    _egf_obj* path = _getPathRect(corners, rx, ry, by.get());
    const bool finished = path != nullptr && _setPathParms(path, bounds, by.get(), element->fill,
                                                           element->stroke, element->graphics) == 0;
    return finished ? path : nullptr;
  }
  PointBox onPage;
  ObjectOwner object = mappedBox(corners, by.get(), &onPage);
  if (!object) return nullptr;
  const ShapeScene scene{element->fill, element->stroke, element->graphics,
                         bounds,        by.get(),        &onPage};
  finishPolygon(*this, object, scene, kFigureClosed, false);
  return object.release();
}
