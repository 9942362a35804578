// The geometry of a radial gradient: a focus and a ring of points around it, grown until it covers
// the shape.

#include <algorithm>
#include <cmath>

#include "adapter_reader/gradient_space.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_small.h"
#include "host/memory.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr unsigned int kMostSteps = 256;    // how often a ring's ramp may stand in the shape
constexpr double kFocusMarginPart = 250.0;  // of the diagonal: how near the ring a focus may be

double distance(const _mpl_spacept_tag& a, const _mpl_spacept_tag& b) {
  return std::hypot(static_cast<double>(a.x) - static_cast<double>(b.x),
                    static_cast<double>(a.y) - static_cast<double>(b.y));
}

double nearest(const _mpl_spacept_tag& focus, const _mpl_spacept_tag* ring, unsigned int count,
               double most) {
  double least = most;
  for (unsigned int i = 0; i < count; ++i) least = std::min(least, distance(focus, ring[i]));
  return least;
}

/// Moves a focus that stands too near the ring towards the centre.
void clearFocus(const _mpl_spacerect_tag& bounds, const _mpl_spacept_tag& center,
                const _mpl_spacept_tag* ring, unsigned int count, _mpl_spacept_tag& focus) {
  const double width = static_cast<double>(bounds.right) - static_cast<double>(bounds.left);
  const double height = static_cast<double>(bounds.bottom) - static_cast<double>(bounds.top);
  const double limit = std::hypot(width, height) / kFocusMarginPart * kSpaceUnits;
  const double least = nearest(focus, ring, count, limit);
  const double length = distance(focus, center);
  if (least >= limit || length == 0.0) return;
  const double s = limit - least;
  const double dx = static_cast<double>(focus.x) - static_cast<double>(center.x);
  const double dy = static_cast<double>(center.y) - static_cast<double>(focus.y);
  focus.x =
      static_cast<float>(static_cast<double>(focus.x) - truncated<std::int32_t>(s * dx / length));
  focus.y =
      static_cast<float>(static_cast<double>(focus.y) + truncated<std::int32_t>(s * dy / length));
}

void doubleRing(const _mpl_spacept_tag& focus, _mpl_spacept_tag* ring, unsigned int count) {
  for (unsigned int i = 0; i < count; ++i) {
    ring[i].x = focus.x + 2.0F * (ring[i].x - focus.x);
    ring[i].y = focus.y + 2.0F * (ring[i].y - focus.y);
  }
}

}  // namespace
}  // namespace egfsvg

int CAdapterReader::SetGradientPath(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                    _svg_gradient* gradient, _mpl_spacept_tag** points,
                                    unsigned int* count, unsigned int* steps) {
  using namespace egfsvg;
  if (gradient == nullptr) return -1;
  GradientSpace space(*this, *gradient);
  const auto& circle = gradient->parms.radial;
  _mpl_spacept_tag focus{}, center{};
  float radius = 0.0F;
  switch (gradient->gradientUnits) {
    case kGradientUserSpace:
      SVGPointToPts({circle.fx, circle.fy}, &focus);
      SVGPointToPts({circle.cx, circle.cy}, &center);
      radius = castS32(circle.r);
      break;
    case kGradientBoundingBox:
      multiplyBounds(*this, bounds, shapeMap);
      focus = rawPoint(circle.fx, circle.fy);
      center = rawPoint(circle.cx, circle.cy);
      radius = static_cast<float>(circle.r.value * kSpaceUnits);
      bounds = kUnitBounds;
      break;
    default:
      return -1;
  }
  _mpl_spacept_tag radiusPoint{center.x + radius, center.y + radius};
  SetPathGrPtsArray(bounds, space.userSpace(), focus, center, radiusPoint, points, count, steps);
  if (shapeMap != nullptr) {
    for (unsigned int i = 0; i < *count; ++i) _transformPoint(&(*points)[i], shapeMap);
  }
  return 0;
}

void CAdapterReader::SetPathGrPtsArray(_mpl_spacerect_tag bounds, _userSpace* space,
                                       _mpl_spacept_tag& focus, _mpl_spacept_tag& center,
                                       _mpl_spacept_tag& radiusPoint, _mpl_spacept_tag** points,
                                       unsigned int* count, unsigned int* steps) {
  using namespace egfsvg;
  *steps = 1;
  *count = 0;
  *points = nullptr;
  PathGradientFocusCorrection(focus, center, radiusPoint);
  unsigned int n = 0;
  RmmOwner<_mpl_spacept_tag> ring(svg_discretizeArc(
      &center, radiusPoint.x - center.x, radiusPoint.y - center.y, 0.0, 0, kFullTurn, &n));
  auto* result = allocateArray<_mpl_spacept_tag>(std::size_t{n} + 1, RMM_SITE);
  if (!ring || result == nullptr) {
    RMM_Free(result);
    return;
  }
  _viewPortMap spaceMap{};
  spaceMap.matrix = space->matrix;
  _transformPoint(&focus, &spaceMap);
  _transformPoint(&center, &spaceMap);
  for (unsigned int i = 0; i < n; ++i) _transformPoint(&ring.get()[i], &spaceMap);
  if (PointInsideRect(bounds, ring.get(), n) != 0) {
    if (PointInsideRect(bounds, &focus, 1) != 0) {
      clearFocus(bounds, center, ring.get(), n, focus);
    }
    while (*steps < kMostSteps && PointInsideRect(bounds, ring.get(), n) != 0) {
      doubleRing(focus, ring.get(), n);
      *steps *= 2;
    }
  }
  result[0] = focus;
  std::copy(ring.get(), ring.get() + n, result + 1);
  *points = result;
  *count = n + 1;
}

/// Only the x radius counts.
int CAdapterReader::PathGradientFocusCorrection(_mpl_spacept_tag& focus, _mpl_spacept_tag& center,
                                                _mpl_spacept_tag& radiusPoint) {
  using namespace egfsvg;
  const double cx = center.x;
  const double cy = center.y;
  const double radius = std::abs(
      static_cast<double>(truncated<std::int32_t>(static_cast<double>(radiusPoint.x) - cx)));
  const double away = distance(focus, center);
  if (away == 0.0) return 0;
  const double t = radius / away;
  if (t > 1.0) return 0;
  if (t < 1.0) {
    focus.x = static_cast<float>(cx + t * (static_cast<double>(focus.x) - cx));
    focus.y = static_cast<float>(cy + t * (static_cast<double>(focus.y) - cy));
  }
  return 1;
}

int CAdapterReader::PointInsideRect(_mpl_spacerect_tag bounds, const _mpl_spacept_tag* points,
                                    unsigned int count) {
  const double left = bounds.left * egfsvg::kSpaceUnits;
  const double right = bounds.right * egfsvg::kSpaceUnits;
  const double top = bounds.top * egfsvg::kSpaceUnits;
  const double bottom = bounds.bottom * egfsvg::kSpaceUnits;
  const auto inside = [&](const _mpl_spacept_tag& p) {
    return p.x > left && p.x < right && p.y > top && p.y < bottom;
  };
  return std::any_of(points, points + count, inside) ? 1 : 0;
}
