// Flattening: cubic curves to polylines, ellipses to polygons.

#include "embedded_host/curves.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "embedded_host/angles.h"
#include "embedded_host/bounds.h"
#include "embedded_host/fault.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/egf_templates.h"
#include "host/memory.h"
#include "host/objects.h"

namespace egfhost {

namespace {

using namespace egfsvg;

constexpr int kFewestSegments = 8;
constexpr int kMostCurveSegments = 128;
constexpr int kMostOutlineSegments = 1024;
constexpr int kQuarters = 4;

double secondDifference(_mpl_spacept_tag a, _mpl_spacept_tag b, _mpl_spacept_tag c) {
  return std::hypot(double{a.x} - 2.0 * b.x + c.x, double{a.y} - 2.0 * b.y + c.y);
}

int clampedCount(double count, int most) {
  // Written so that a count that is not a number becomes the most.
  return count < most ? std::max(kFewestSegments, static_cast<int>(std::ceil(count))) : most;
}

_mpl_spacept_tag* allocPoints(std::size_t count) {
  return static_cast<_mpl_spacept_tag*>(RMM_AllocName(count, sizeof(_mpl_spacept_tag), RMM_SITE));
}

_mpl_spacept_tag curvePoint(const _mpl_spacept_tag* p, double t) {
  const double u = 1.0 - t;
  const double b0 = u * u * u;
  const double b1 = 3.0 * u * u * t;
  const double b2 = 3.0 * u * t * t;
  const double b3 = t * t * t;
  return {static_cast<float>(b0 * p[0].x + b1 * p[1].x + b2 * p[2].x + b3 * p[3].x),
          static_cast<float>(b0 * p[0].y + b1 * p[1].y + b2 * p[2].y + b3 * p[3].y)};
}

// Segments of a whole ellipse: the same number in each quarter, so that its extremes are points.
int outlineSegments(double radius) {
  // A chord over an angle strays by the radius times one less the cosine of half the angle.
  const double half = std::acos(1.0 - std::min(1.0, kChordError / radius));
  const int segments = clampedCount(std::numbers::pi / half, kMostOutlineSegments);
  return (segments + kQuarters - 1) / kQuarters * kQuarters;
}

bool copyGradientPoints(const EgfEllipse* ellipse, EgfPolygon* polygon) {
  const std::size_t count = ellipse->gradPtCount;
  const PointArray source = ellipse->gradPts;
  if (!source || count == 0) return true;
  _mpl_spacept_tag* copy = allocPoints(count);
  if (copy == nullptr) return false;
  std::memcpy(copy, source.get(), count * sizeof(_mpl_spacept_tag));
  polygon->gradPts = PointArray::of(copy);
  polygon->gradPtCount = ellipse->gradPtCount;
  return true;
}

// The two pens order their words differently, so each goes by name.
_egf_gdi_fillparms_tag polygonPen(const EgfEllipsePen& pen, bool closed) {
  _egf_gdi_fillparms_tag result = kPolygonPen;
  result.lineWidth = pen.lineWidth;
  result.strokeColor = pen.strokeColor;
  result.fillColor = pen.fillColor;
  result.lineStyle = pen.lineStyle;
  result.fillStyle = pen.fillStyle;
  result.joinStyle = pen.joinStyle;
  result.modeFlags = FigureBits::with(pen.modeFlags, closed ? kFigureClosed : kFigureOpen);
  result.styleMask = pen.styleMask;
  result.layerMask = pen.layerMask;
  result.scaleFactor = pen.scaleFactor;
  return result;
}

// The outline of the ellipse. A whole one starts at angle 0 and runs clockwise on the page, as the
// outline of a circle in a drawing does; a part runs from start to end.
PointArray outlineOf(const EgfEllipse* ellipse, std::uint32_t* count) {
  const _mpl_spacept_tag center = ellipse->center;
  const _mpl_spacept_tag corner = ellipse->radiusPt;
  const double rx = std::fabs(double{corner.x} - center.x);
  const double ry = std::fabs(double{corner.y} - center.y);
  const bool whole = isFullTurn(ellipse->startAngle, ellipse->endAngle);
  const std::int64_t start = ellipse->startAngle;
  const std::int64_t sweep = whole ? -kFullTurn : sweepOf(start, ellipse->endAngle);
  const int full = outlineSegments(std::max(rx, ry));
  const int segments =
      whole
          ? full
          : std::max(1, static_cast<int>(std::ceil(static_cast<double>(sweep) / kFullTurn * full)));
  *count = static_cast<std::uint32_t>(whole ? segments : segments + 1);
  _mpl_spacept_tag* points = allocPoints(*count);
  if (points == nullptr) return PointArray{};
  const Turn turn = turnOf(ellipse->pen.ellipseRotation);
  for (std::uint32_t i = 0; i < *count; ++i) {
    const Turn at = turnOf(start + sweep * i / segments);
    points[i] = ellipsePoint(center, rx, ry, turn, at);
  }
  return PointArray::of(points);
}

// The control points of an arc in segments of at most a quarter turn.
void arcCurve(const EgfArc* arc, std::int64_t start, std::int64_t sweep, std::int64_t segments,
              _mpl_spacept_tag* points) {
  const _mpl_spacept_tag center = arc->center;
  const _mpl_spacept_tag radii = arc->radiusPt;
  constexpr Turn kUpright{1.0, 0.0};
  const auto at = [&](double cosine, double sine) {
    return ellipsePoint(center, std::fabs(radii.x), std::fabs(radii.y), kUpright, {cosine, sine});
  };
  const double step = static_cast<double>(sweep) / static_cast<double>(segments) / kMillionths /
                      180.0 * std::numbers::pi;
  const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
  Turn from = turnOf(start);
  points[0] = at(from.cosine, from.sine);
  for (std::int64_t i = 0; i < segments; ++i) {
    const Turn to = turnOf(start + sweep * (i + 1) / segments);
    _mpl_spacept_tag* next = points + 3 * i + 1;
    next[0] = at(from.cosine - reach * from.sine, from.sine + reach * from.cosine);
    next[1] = at(to.cosine + reach * to.sine, to.sine - reach * to.cosine);
    next[2] = at(to.cosine, to.sine);
    from = to;
  }
}

}  // namespace

_mpl_spacept_tag ellipsePoint(_mpl_spacept_tag center, double rx, double ry, Turn turn, Turn at) {
  const double u = rx * at.cosine;
  const double v = -ry * at.sine;
  return {static_cast<float>(center.x + turn.cosine * u + turn.sine * v),
          static_cast<float>(center.y - turn.sine * u + turn.cosine * v)};
}

int curveSegments(const _mpl_spacept_tag* controls) {
  const double bend = std::max(secondDifference(controls[0], controls[1], controls[2]),
                               secondDifference(controls[1], controls[2], controls[3]));
  // A cubic's second derivative is at most six times the larger difference; a chord over 1/n of it
  // strays by an eighth of that over n squared.
  return clampedCount(std::sqrt(6.0 / 8.0 * bend / kChordError), kMostCurveSegments);
}

_egf_obj* polygonOf(const EgfEllipse* ellipse) {
  _egf_obj* object = EEL_AllocObject(kClassPolygon, RMM_SITE);
  if (object == nullptr) return nullptr;
  auto* polygon = as<EgfPolygon>(object);
  std::uint32_t count = 0;
  polygon->points = outlineOf(ellipse, &count);
  if (!polygon->points || !copyGradientPoints(ellipse, polygon)) {
    EEL_DestroyObject(object);
    return nullptr;
  }
  polygon->pointCount = static_cast<std::int32_t>(count);
  polygon->pen = polygonPen(ellipse->pen, isFullTurn(ellipse->startAngle, ellipse->endAngle));
  polygon->trailingWord = kPolygonTrailingWord;
  polygon->fillParmsNo = ellipse->fillParmsNo;
  polygon->fillGradientNo = ellipse->fillGradientNo;
  polygon->strokeGradientNo = ellipse->strokeGradientNo;
  object->layerIndex = ellipse->head.layerIndex;
  refreshBounds(object, 0);
  return object;
}

_egf_obj* curveOf(const EgfArc* arc) {
  const std::int64_t start = arc->startAngle;
  const std::int64_t sweep = sweepOf(start, arc->endAngle);
  constexpr std::int64_t kQuarter = kFullTurn / kQuarters;
  const std::int64_t segments = (sweep + kQuarter - 1) / kQuarter;
  const auto count = static_cast<std::size_t>(3 * segments + 1);
  _egf_obj* object = EEL_AllocObject(kClassPolygon, RMM_SITE);
  _mpl_spacept_tag* points = allocPoints(count);
  if (object == nullptr || points == nullptr) {
    EEL_DestroyObject(object);
    RMM_Free(points);
    return nullptr;
  }
  arcCurve(arc, start, sweep, segments, points);
  if (ArcDirectionBits::get(arc->pen.arcFlags) != 0) std::reverse(points, points + count);
  auto* curve = as<EgfPolygon>(object);
  curve->points = points;
  curve->pointCount = static_cast<std::int32_t>(count);
  curve->pen.modeFlags = CurveChildBits::with(0, kCurveChild);
  return object;
}

}  // namespace egfhost

extern "C" {

_egf_obj* EEL_XlatEllipseToPolygon(_egf_obj* ellipse, int /*reserved*/) {
  if (egfhost::faultFails(egfhost::FaultCall::EEL_XlatEllipseToPolygon)) return nullptr;
  if (ellipse == nullptr || ellipse->layoutClass != egfsvg::kClassEllipse) return nullptr;
  return egfhost::polygonOf(egfsvg::as<egfsvg::EgfEllipse>(ellipse));
}

_mpl_spacept_tag* EEL_DiscretizeCurve(const _mpl_spacept_tag* controls, int count,
                                      int /*reserved1*/, int /*reserved2*/,
                                      std::uint32_t* resultCount) {
  constexpr int kControls = 4;
  if (resultCount != nullptr) *resultCount = 0;
  if (egfhost::faultFails(egfhost::FaultCall::EEL_DiscretizeCurve)) return nullptr;
  if (controls == nullptr || resultCount == nullptr || count != kControls) return nullptr;
  const int segments = egfhost::curveSegments(controls);
  _mpl_spacept_tag* points = egfhost::allocPoints(static_cast<std::size_t>(segments) + 1);
  if (points == nullptr) return nullptr;
  points[0] = controls[0];
  for (int i = 1; i < segments; ++i) {
    points[i] = egfhost::curvePoint(controls, static_cast<double>(i) / segments);
  }
  points[segments] = controls[kControls - 1];
  *resultCount = static_cast<std::uint32_t>(segments) + 1;
  return points;
}

}  // extern "C"
