// Exact boxes of ellipses and curves.

#include <cmath>
#include <initializer_list>

#include "embedded_host/angles.h"
#include "embedded_host/bounds.h"

namespace egfhost {

namespace {

// An ellipse about the origin, turned; angles run counter-clockwise.
struct TurnedEllipse {
  double rx;
  double ry;
  Turn turn;

  // The page's y grows downward, so a counter-clockwise turn takes the sine's sign the other way.
  double x(Turn at) const { return turn.cosine * rx * at.cosine - turn.sine * ry * at.sine; }
  double y(Turn at) const { return -turn.sine * rx * at.cosine - turn.cosine * ry * at.sine; }
  double halfWidth() const { return std::hypot(turn.cosine * rx, turn.sine * ry); }
  double halfHeight() const { return std::hypot(turn.sine * rx, turn.cosine * ry); }
  // The angles at which x, and y, is largest.
  double rightmost() const { return std::atan2(-turn.sine * ry, turn.cosine * rx); }
  double lowest() const { return std::atan2(-turn.cosine * ry, -turn.sine * rx); }
};

// True when the angle, in radians, lies on the run from start over sweep, in millionths.
bool isOnRun(double radians, std::int64_t start, std::int64_t sweep) {
  const double millionths = radians * 180.0 / std::numbers::pi * egfsvg::kMillionths;
  double ahead = std::fmod(millionths - static_cast<double>(start), egfsvg::kFullTurn);
  if (ahead < 0) ahead += egfsvg::kFullTurn;
  return ahead <= static_cast<double>(sweep);
}

// Both coordinates of a point, calculated with side by side.
using Pair [[gnu::vector_size(2 * sizeof(double))]] = double;

Pair pairOf(_mpl_spacept_tag point) { return Pair{point.x, point.y}; }

// A cubic curve by its control points.
struct Cubic {
  Pair p0, p1, p2, p3;

  Pair at(double t) const {
    const double u = 1.0 - t;
    return u * u * u * p0 + 3.0 * u * u * t * p1 + 3.0 * u * t * t * p2 + t * t * t * p3;
  }
};

void includeTurningPoint(Box& box, const Cubic& curve, double t) {
  if (!(t > 0.0 && t < 1.0)) return;
  const Pair point = curve.at(t);
  box.include(point[0], point[1]);
}

// The points at which a coordinate turns: where its derivative, a quadratic, is 0.
void includeTurningPoints(Box& box, const Cubic& curve) {
  const Pair a = curve.p3 - 3.0 * curve.p2 + 3.0 * curve.p1 - curve.p0;
  const Pair b = 2.0 * (curve.p2 - 2.0 * curve.p1 + curve.p0);
  const Pair c = curve.p1 - curve.p0;
  const Pair discriminant = b * b - 4.0 * a * c;
  for (int i = 0; i < 2; ++i) {
    if (!(discriminant[i] >= 0.0)) continue;
    // The form that divides by the sum keeps its digits when a is small.
    const double q = -0.5 * (b[i] + std::copysign(std::sqrt(discriminant[i]), b[i]));
    includeTurningPoint(box, curve, c[i] / q);
    includeTurningPoint(box, curve, q / a[i]);
  }
}

void includeCurve(Box& box, const _mpl_spacept_tag* p) {
  box.include(p[0]);
  box.include(p[3]);
  // A curve stays among its control points: when none of them stands outside, its points don't
  // either. Rounding changes nothing there: the largest and the smallest values are floats.
  if (box.holds(p + 1) && box.holds(p + 2)) return;
  includeTurningPoints(box, {pairOf(p[0]), pairOf(p[1]), pairOf(p[2]), pairOf(p[3])});
}

}  // namespace

void includeEllipse(Box& box, _mpl_spacept_tag center, double rx, double ry, std::int32_t rotation,
                    std::int32_t start, std::int32_t end) {
  const TurnedEllipse ellipse{std::fabs(rx), std::fabs(ry), turnOf(rotation)};
  const double cx = center.x;
  const double cy = center.y;
  const double halfWidth = ellipse.halfWidth();
  const double halfHeight = ellipse.halfHeight();
  if (isFullTurn(start, end)) {
    box.include(cx - halfWidth, cy - halfHeight);
    box.include(cx + halfWidth, cy + halfHeight);
    return;
  }
  const Turn first = turnOf(start);
  const Turn last = turnOf(end);
  box.include(cx + ellipse.x(first), cy + ellipse.y(first));
  box.include(cx + ellipse.x(last), cy + ellipse.y(last));
  const std::int64_t sweep = sweepOf(start, end);
  const double right = ellipse.rightmost();
  const double low = ellipse.lowest();
  const double near = cy + ellipse.y(first);  // any height and width that is in already
  const double beside = cx + ellipse.x(first);
  if (isOnRun(right, start, sweep)) box.include(cx + halfWidth, near);
  if (isOnRun(right + std::numbers::pi, start, sweep)) box.include(cx - halfWidth, near);
  if (isOnRun(low, start, sweep)) box.include(beside, cy + halfHeight);
  if (isOnRun(low + std::numbers::pi, start, sweep)) box.include(beside, cy - halfHeight);
}

void includeCurves(Box& box, const _mpl_spacept_tag* points, std::size_t count) {
  // Points beyond the last whole curve are not drawn as a curve; they count by themselves.
  std::size_t i = 0;
  for (; i + 3 < count; i += 3) includeCurve(box, points + i);
  box.include(points + i, count - i);
}

}  // namespace egfhost
