// Rectangles: a box, or a path of four corner arcs or curves when the corners are round.

#include <cstring>

#include "adapter_reader/object_boxes.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/plain_paint.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/arcs.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "model/rmm_allocator.h"

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

/// Whether a rectangle has sharp corners, by its radii in pixels. Kept: a negative side makes its
/// own radius, see `cornerRadius`.
bool isSharp(double rx, double ry, const PixelBox& box) {
  return rx == 0.0 && ry == 0.0 && box.width >= 0.0 && box.height >= 0.0;
}

/// A box object with its template and room for its points. Null, with the fault logged, out of
/// memory.
ObjectOwner emptyBox() {
  ObjectOwner object(allocateObject(kClassBox, RMM_SITE));
  if (!object) return object;
  auto* box = as<EgfPolygon>(object.get());
  setPolygonTemplate(box);
  auto* points = allocateArray<_mpl_spacept_tag>(kRectCorners, RMM_SITE);
  if (points == nullptr) {
    logOutOfMemory(RMM_SITE);
    return nullptr;
  }
  box->points = points;
  box->pointCount = kRectCorners;
  return object;
}

/// The usual rectangle: sharp corners, no gradient.
_egf_obj* formatBox(CAdapterReader& adapter, const _svg_rect& element, const PixelBox& box,
                    const _viewPortMap* map) {
  ObjectOwner object = emptyBox();
  if (!object) return nullptr;
  auto* polygon = as<EgfPolygon>(object.get());
  placeCorners(box, map, polygon->points.get());
  paintPlainPolygon(adapter, element.fill, element.stroke, element.graphics, kFigureClosed,
                    polygon);
  EGF_CalcPolygonMer(object.get(), adapter.map);
  return object.release();
}

/// Any rectangle, in steps.
[[gnu::noinline]] _egf_obj* formatRect(CAdapterReader& adapter, _svg_rect& element,
                                       const PixelBox& box, _viewPortMap* map) {
  const PixelScale scale(adapter);
  _mpl_spacept_tag corners[kRectCorners];
  rectCorners(box, corners);
  // Kept: the whole pen width is added where lines add half of it.
  _mpl_spacerect_tag bounds{};
  if (needsBounds(element.fill, element.stroke)) {
    bounds = cornerBounds(corners[0], corners[2], scale.pixels(element.stroke.strokeWidth));
  }
  const float rx = cornerRadius(scale.pixels(element.rx), box.width);
  const float ry = cornerRadius(scale.pixels(element.ry), box.height);
  const bool round = rx != 0.0F || ry != 0.0F;
  _egf_obj* object =
      round ? adapter._getPathRect(corners, rx, ry, map) : adapter._getBoxRect(corners, map);
  if (object == nullptr) return nullptr;
  const auto setParms = round ? &CAdapterReader::_setPathParms : &CAdapterReader::_setPgonParms;
  const int result =
      (adapter.*setParms)(object, bounds, map, element.fill, element.stroke, element.graphics);
  return result == 0 ? object : nullptr;  // else the setter has destroyed it
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

_egf_obj* CAdapterReader::_getBoxRect(_mpl_spacept_tag* corners, _viewPortMap* by) {
  ObjectOwner object = emptyBox();
  if (!object) return nullptr;
  _mpl_spacept_tag* places = as<EgfPolygon>(object.get())->points.get();
  std::memcpy(places, corners, kRectCorners * sizeof *corners);
  mapPoints(places, kRectCorners, by);
  return object.release();
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
  const bool usual = isSharp(scale.pixels(element->rx), scale.pixels(element->ry), box) &&
                     isPlain(element->fill, element->stroke);
  return usual ? formatBox(*this, *element, box, by.get())
               : formatRect(*this, *element, box, by.get());
}
