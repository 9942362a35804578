// Bezier path objects: a path becomes a class 33 object whose children are straight runs, curves
// and arcs. A path of several sub-paths holds one class 33 object for each.

#include <algorithm>
#include <cmath>
#include <utility>

#include "adapter_reader/path_builder.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/angles.h"
#include "geometry/arcs.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "host/memory.h"
#include "host/messages.h"
#include "model/codes.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr double kWholeDegree = 1.0;  // arcs below it lose their flags when they are written
constexpr double kMillionth = 1'000'000.0;

std::int32_t millionths(double degrees) { return rounded<std::int32_t>(degrees * kMillionth); }

/// Places are the same when their stored points are: relative commands add up to noise beyond that.
bool sameStored(PlanePoint a, PlanePoint b) {
  return static_cast<float>(a.x) == static_cast<float>(b.x) &&
         static_cast<float>(a.y) == static_cast<float>(b.y);
}

/// Makes a new object a curve child, which owns its points.
void markCurve(_egf_obj* object, RmmOwner<_mpl_spacept_tag> points, int count) {
  EgfPolygon* curve = as<EgfPolygon>(object);
  curve->points = PointArray::of(points.release());
  curve->pointCount = count;
  curve->pen.modeFlags = CurveChildBits::with(0, kCurveChild);  // a new object is all zero
}

}  // namespace

/// Each command adds at most one point to a run, which begins with one more.
bool BezierPathBuilder::beginSubPath(const _svg_singlepath& subPath) {
  GrowingArray<_mpl_spacept_tag>& run = adapter_.state.straightRun;
  if (!run.reserve(std::max(subPath.dataCount, 0) + 1)) return false;
  runStart_ = runEnd_ = run.data();
  hasClose_ = false;
  target_ = outer_.get();
  if (plan_.several) {
    sub_.reset(newObject(kClassPath, RMM_SITE));
    target_ = sub_.get();
    if (target_ == nullptr) return false;
  }
  return true;
}

bool BezierPathBuilder::endSubPath(const _svg_singlepath&) {
  if (!attachRun()) return false;
  EgfPath* path = as<EgfPath>(target_);
  path->pathKind = hasClose_ ? kPathClosedFigure : 0U;
  if (!plan_.several || !path->firstChild) return true;
  return handOver(outer_.get(), sub_);
}

bool BezierPathBuilder::closeTo(const PlanePoint& from, const PlanePoint& first) {
  hasClose_ = true;
  if (!sameStored(from, first)) return lineTo(from, first);
  here_ = onPage(first);
  return true;
}

/// Kept: a curve child has no pen of its own, its mode is the mark alone.
bool BezierPathBuilder::curveTo(const CubicPoints& cubic) {
  if (!attachRun()) return false;
  RmmOwner<_mpl_spacept_tag> points(allocateArray<_mpl_spacept_tag>(4, RMM_SITE));
  ObjectOwner object(points ? newObject(kClassPolygon, RMM_SITE) : nullptr);
  if (!object) return false;
  if (plan_.boxed) [[unlikely]]
    growByCurve(cubic);
  _mpl_spacept_tag* p = points.get();
  p[0] = here_;
  p[1] = onPage(cubic.first);
  p[2] = onPage(cubic.second);
  p[3] = here_ = onPage(cubic.to);
  settle(p, 4);
  if (neighboursMeet(p)) [[unlikely]]
    repairControls(adapter_, p);
  markCurve(object.get(), std::move(points), 4);
  return handOver(target_, object);
}

bool BezierPathBuilder::arcTo(const ArcEnds& ends, const ArcCenter& arc) {
  if (!attachRun()) return false;
  if (plan_.boxed) growByArc(ends, arc);
  here_ = onPage({ends.x2, ends.y2});
  decomposeMap();
  if (!isPlainArc(ends, arc)) return putArcCurve(ends, arc);
  const ArcCenter child = childArc(ends, arc);
  switch (formOf(child)) {
    case ArcForm::kWhole:
      return putArc(child, ends.sweep);
    case ArcForm::kHalves:
      return putArcHalves(child, ends.sweep);
    default:
      return putArcCurve(ends, arc);
  }
}

/// A class 4 child can hold an arc that the map neither turns nor shears, on the axes or circular.
bool BezierPathBuilder::isPlainArc(const ArcEnds& ends, const ArcCenter& arc) const {
  const bool upright = ends.rotation == 0.0 || arc.rx == arc.ry;
  return shear_ == 0.0 && rotation_ == 0.0 && upright && arc.end - arc.start >= kWholeDegree;
}

/// An arc is whole where it will be written with the flag that it has. A small one in one whole
/// degree would come back as the rest of the ellipse; one of nearly half a turn as its counterpart.
BezierPathBuilder::ArcForm BezierPathBuilder::formOf(const ArcCenter& child) {
  constexpr double kHalfTurn = 180.0;
  constexpr double kSameHalf = 0.01;  // degrees by which a half turn is either
  const double sweep = child.end - child.start;
  const bool large = writtenLarge(millionths(child.start), millionths(child.end));
  if (sweep < kWholeDegree) return large ? ArcForm::kCurve : ArcForm::kWhole;
  return large && sweep < kHalfTurn - kSameHalf ? ArcForm::kHalves : ArcForm::kWhole;
}

/// The arc as a child holds it. Arc angles of the host are polar, so an ellipse's parameters are
/// scaled into them first.
ArcCenter BezierPathBuilder::childArc(const ArcEnds& ends, const ArcCenter& center) const {
  ArcCenter arc = center;
  if (ends.rotation != 0.0) turnCircle(ends.rotation, &arc);
  if (arc.rx != arc.ry) scaleArcAngles(&arc.start, &arc.end, arc.rx, arc.ry);
  if (scaleX_ != scaleY_) {
    adapter_._scaleEllipseArc(&arc.start, &arc.end, &arc.rx, &arc.ry, scaleX_, scaleY_);
  } else {
    arc.rx *= scaleX_;
    arc.ry *= scaleY_;
  }
  return arc;
}

bool BezierPathBuilder::putArc(const ArcCenter& arc, bool clockwise) {
  ObjectOwner object(newObject(kClassArc, RMM_SITE));
  if (!object) return false;
  EgfArc* record = as<EgfArc>(object.get());
  record->pen = kArcPen;
  record->center = mapped(PlanePoint{arc.cx, arc.cy});
  record->radiusPt = {static_cast<float>(arc.rx), static_cast<float>(arc.ry)};
  record->startAngle = millionths(arc.start);
  record->endAngle = millionths(arc.end);
  record->pen.arcFlags = ArcDirectionBits::with(record->pen.arcFlags, clockwise ? 1 : 0);
  return handOver(target_, object);
}

/// In drawing order: a clockwise arc is drawn from its end.
bool BezierPathBuilder::putArcHalves(const ArcCenter& arc, bool clockwise) {
  const double middle = (arc.start + arc.end) / 2.0;
  ArcCenter first = arc;
  ArcCenter second = arc;
  (clockwise ? first.start : first.end) = middle;
  (clockwise ? second.end : second.start) = middle;
  return putArc(first, clockwise) && putArc(second, clockwise);
}

/// On a circle the x-axis rotation is taken off both angles.
void BezierPathBuilder::turnCircle(double rotation, ArcCenter* arc) {
  const double turn = degreesOf(rotation);
  const double sweep = arc->end - arc->start;
  arc->start = std::fmod(arc->start - turn, kDegreesInTurn);
  if (arc->start < 0.0) arc->start += kDegreesInTurn;
  arc->end = arc->start + sweep;
}

bool BezierPathBuilder::putArcCurve(const ArcEnds& ends, const ArcCenter& arc) {
  const _mpl_spacept_tag center{static_cast<float>(arc.cx), static_cast<float>(arc.cy)};
  _mpl_spacept_tag* points = nullptr;
  int count = 0;
  adapter_.ArcToBezierCurve(ends.rotation, center, arc.start, arc.end, arc.rx, arc.ry,
                            ends.sweep ? 1 : 0, ends.largeArc ? 1 : 0, points, &count);
  if (points == nullptr) return false;
  points[0] = {static_cast<float>(ends.x1), static_cast<float>(ends.y1)};
  for (int i = 0; i < count; ++i) points[i] = mapped(points[i]);
  RmmOwner<_mpl_spacept_tag> owned(points);
  ObjectOwner object(newObject(kClassPolygon, RMM_SITE));
  if (!object) return false;
  markCurve(object.get(), std::move(owned), count);
  return handOver(target_, object);
}

/// Runs of one point draw nothing.
bool BezierPathBuilder::attachPoints() {
  const _mpl_spacept_tag* const run = runStart_;
  const auto count = static_cast<unsigned int>(runEnd_ - run);
  runEnd_ = runStart_;
  if (count < 2) return true;
  if (count == 2) return attachLine(run);
  RmmOwner<_mpl_spacept_tag> points(allocateArray<_mpl_spacept_tag>(count, RMM_SITE));
  if (!points) return false;
  std::copy_n(run, count, points.get());
  settle(points.get(), count);
  ObjectOwner object = straightRun(std::move(points), count);
  return object && handOver(target_, object);
}

bool BezierPathBuilder::attachLine(const _mpl_spacept_tag* ends) {
  _mpl_spacept_tag places[2] = {ends[0], ends[1]};
  settle(places, 2);
  ObjectOwner object = straightLine(places);
  return object && handOver(target_, object);
}

/// The whole way of an identity, for points that are not all finite.
void BezierPathBuilder::mapAll(_mpl_spacept_tag* points, unsigned int count) const {
  for (unsigned int i = 0; i < count; ++i) points[i] = mapped(points[i]);
}

/// The box of a gradient holds the points as they stand before any transform.
void BezierPathBuilder::growBox(const PlanePoint& point) {
  const _mpl_spacept_tag place = stored(point);
  if (!boxStarted_) box_ = {place.x, place.x, place.y, place.y};
  boxStarted_ = true;
  includePoint(box_, place);
}

void BezierPathBuilder::growByCurve(const CubicPoints& cubic) {
  for (const PlanePoint& point : {cubic.from, cubic.first, cubic.second, cubic.to}) growBox(point);
}

void BezierPathBuilder::growByArc(const ArcEnds& ends, const ArcCenter& arc) {
  grow({ends.x1, ends.y1});
  grow({ends.x2, ends.y2});
  _mpl_spacept_tag center{static_cast<float>(arc.cx), static_cast<float>(arc.cy)};
  unsigned int count = 0;
  _mpl_spacept_tag* points =
      adapter_.svg_discretizeArc(&center, static_cast<float>(arc.rx), static_cast<float>(arc.ry),
                                 ends.rotation, millionths(arc.start), millionths(arc.end), &count);
  if (points == nullptr) return;
  adapter_.svg_UpdateObjBoundingBox(box_, points, static_cast<int>(count));
  RMM_Free(points);
}

/// In pixels, grown by half the pen.
_mpl_spacerect_tag BezierPathBuilder::bounds(double margin) const { return inPixels(box_, margin); }

}  // namespace egfsvg

_egf_obj* CAdapterReader::SVG_formatGDIPlusPath(_svg_path* element) {
  using namespace egfsvg;
  if (element->graphics.visibility == kHidden) return nullptr;
  MapOwner pathMap(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  const bool boxed = needsBounds(element->fill, element->stroke);
  BezierPathBuilder builder(*this, {pathMap.get(), element->pathCount > 1, boxed});
  if (!builder.ready() || !PathWalk(*this, builder).run(*element)) {
    logOutOfMemory(RMM_SITE);
    return nullptr;
  }
  if (!builder.hasChildren()) return nullptr;
  _mpl_spacerect_tag bounds{};
  if (boxed) bounds = builder.bounds(penWidth(*this, element->stroke.strokeWidth) / 2.0);
  _egf_obj* path = builder.release();
  if (_setPathParms(path, bounds, pathMap.get(), element->fill, element->stroke,
                    element->graphics) != 0) {
    return nullptr;  // the setter has destroyed it
  }
  return path;
}
