// The vector of a linear gradient: its two points on the page, its base angle, and for a padded
// gradient how far the ramp reaches beyond the stops, in percent of the vector's length.

#include <cmath>

#include "adapter_reader/gradient_space.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_small.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr double kQuarterTurn = 1.5707963267;  // radians, as the adapter takes it
constexpr double kPercent = 100.0;

struct Place {
  double x, y;
};

Place placeOf(const _mpl_spacept_tag& p) { return {p.x, p.y}; }
_mpl_spacept_tag pointOf(const Place& p) {
  return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

/// An extension in percent moves its point only from 1 on.
std::int32_t extend(double distance, double length, const Place& to, _mpl_spacept_tag& point) {
  const auto percent = truncated<std::int32_t>(distance / length * kPercent);
  if (percent < 1) return 0;
  point = pointOf(to);
  return percent;
}

struct Edges {
  double left, right, top, bottom;
};

/// Where the line through two points meets the edges: the meetings of lowest and highest x. Of
/// equal ones the first counts, in the order top, right, bottom, left.
void outerMeetings(const Edges& e, const Place& start, const Place& end, Place* low, Place* high) {
  if (start.y == end.y) {
    *low = {e.left, start.y};
    *high = {e.right, start.y};
    return;
  }
  const double slope = (start.y - end.y) / (start.x - end.x);
  const auto xAt = [&](double y) { return start.x + (y - start.y) / slope; };
  const auto yAt = [&](double x) { return start.y + (x - start.x) * slope; };
  const Place meetings[] = {{xAt(e.top), e.top},
                            {e.right, yAt(e.right)},
                            {xAt(e.bottom), e.bottom},
                            {e.left, yAt(e.left)}};
  *low = *high = meetings[0];
  for (const Place& place : meetings) {
    if (place.x < low->x) *low = place;
    if (place.x > high->x) *high = place;
  }
}

void extendVertical(const Edges& e, _mpl_spacept_tag& start, _mpl_spacept_tag& end,
                    std::int32_t* before, std::int32_t* after) {
  const Place from = placeOf(start);
  const Place to = placeOf(end);
  const double length = std::fabs(to.y - from.y);
  if (length == 0.0) return;
  const Place top{from.x, e.top};
  const Place bottom{from.x, e.bottom};
  if (from.y < to.y) {
    *before = extend(from.y - e.top, length, top, start);
    *after = extend(e.bottom - to.y, length, bottom, end);
  } else {
    *before = extend(e.bottom - from.y, length, bottom, start);
    *after = extend(to.y - e.top, length, top, end);
  }
}

void extendSloped(const Edges& e, _mpl_spacept_tag& start, _mpl_spacept_tag& end,
                  std::int32_t* before, std::int32_t* after) {
  const Place from = placeOf(start);
  const Place to = placeOf(end);
  Place low, high;
  outerMeetings(e, from, to, &low, &high);
  const double length = std::fabs(to.x - from.x);
  if (from.x <= to.x) {
    *before = extend(from.x - low.x, length, low, start);
    *after = extend(high.x - to.x, length, high, end);
  } else {
    *before = extend(high.x - from.x, length, high, start);
    *after = extend(low.x - to.x, length, low, end);  // Kept: not mirrored, so the end stays
  }
}

}  // namespace

GradientSpace::GradientSpace(CAdapterReader& adapter, const _svg_gradient& gradient)
    : adapter_(adapter) {
  space_.transforms = gradient.head.transforms;
  space_.transformCount = gradient.head.transformCount;
  adapter.InitMatrix(map_.matrix);
  for (int i = 0; i < 3; ++i) map_.matrix.m[i][i] = 1.0;
  adapter.InitMatrix(space_.matrix);
  for (int i = 0; i < 3; ++i) space_.matrix.m[i][i] = 1.0;
  adapter._svgUserSpaceMatrix(&space_);
  adapter.MultMatrix(&map_.matrix, &space_.matrix);
}

void GradientSpace::map(_mpl_spacept_tag& point) { adapter_._transformPoint(&point, &map_); }

void multiplyBounds(CAdapterReader& adapter, const _mpl_spacerect_tag& bounds,
                    _viewPortMap* shapeMap) {
  if (shapeMap == nullptr) return;
  _transformMatrix box{};
  box.m[0][0] = static_cast<double>(bounds.right) - static_cast<double>(bounds.left);
  box.m[1][1] = static_cast<double>(bounds.bottom) - static_cast<double>(bounds.top);
  box.m[0][2] = bounds.left;
  box.m[1][2] = bounds.top;
  box.m[2][2] = 1.0;
  adapter.MultMatrix(&shapeMap->matrix, &box);
}

_mpl_spacept_tag rawPoint(const _svg_value& x, const _svg_value& y) {
  return {static_cast<float>(x.value * kSpaceUnits), static_cast<float>(y.value * kSpaceUnits)};
}

}  // namespace egfsvg

/// An objectBoundingBox gradient leaves the box multiplied into the caller's map.
int CAdapterReader::SetGradientVector(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                      _svg_gradient* gradient, _mpl_spacept_tag& start,
                                      _mpl_spacept_tag& end, double* angle, std::int32_t* before,
                                      std::int32_t* after) {
  using namespace egfsvg;
  if (gradient == nullptr) return -1;
  *before = *after = 0;
  GradientSpace space(*this, *gradient);
  const auto& vector = gradient->parms.linear;
  switch (gradient->gradientUnits) {
    case kGradientUserSpace:
      SVGPointToPts({vector.x1, vector.y1}, &start);
      SVGPointToPts({vector.x2, vector.y2}, &end);
      break;
    case kGradientBoundingBox:
      multiplyBounds(*this, bounds, shapeMap);
      start = rawPoint(vector.x1, vector.y1);
      end = rawPoint(vector.x2, vector.y2);
      bounds = kUnitBounds;
      break;
    default:
      return -1;
  }
  space.map(start);
  space.map(end);
  if (gradient->spreadMethod == kSpreadPad) {
    SetLinearGrIntersectionPoints(bounds, start, end, before, after);
  }
  *angle = SetLinearGrBaseAngle(shapeMap, start, end);
  return 0;
}

void CAdapterReader::SetLinearGrIntersectionPoints(_mpl_spacerect_tag bounds,
                                                   _mpl_spacept_tag& start, _mpl_spacept_tag& end,
                                                   std::int32_t* before, std::int32_t* after) {
  using namespace egfsvg;
  *before = *after = 0;
  const Edges edges{bounds.left * kSpaceUnits, bounds.right * kSpaceUnits, bounds.top * kSpaceUnits,
                    bounds.bottom * kSpaceUnits};
  if (start.x == end.x) {
    extendVertical(edges, start, end, before, after);
  } else {
    extendSloped(edges, start, end, before, after);
  }
}

/// The angle of the normal, after the caller's map; the map may turn or shear it.
double CAdapterReader::SetLinearGrBaseAngle(_viewPortMap* shapeMap, _mpl_spacept_tag& start,
                                            _mpl_spacept_tag& end) {
  using namespace egfsvg;
  const Place s = placeOf(start);
  const Place e = placeOf(end);
  Place normal{s.x, s.y + kSpaceUnits};
  if (s.y != e.y) {
    normal = {s.x + kSpaceUnits, s.y};
    if (s.x != e.x) {
      const double m = -1.0 / ((s.y - e.y) / (s.x - e.x));
      normal.y = normal.x * m + (s.y - m * s.x);
    }
  }
  _mpl_spacept_tag q = pointOf(normal);
  if (shapeMap != nullptr) {
    _transformPoint(&start, shapeMap);
    _transformPoint(&end, shapeMap);
    _transformPoint(&q, shapeMap);
  }
  if (start.x == q.x) return 0.0;
  if (start.y == q.y) return kQuarterTurn;
  const double rise = static_cast<double>(start.y) - static_cast<double>(q.y);
  const double run = static_cast<double>(start.x) - static_cast<double>(q.x);
  return -std::atan(1.0 / (rise / run));
}
