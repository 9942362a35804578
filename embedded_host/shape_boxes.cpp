// Exact boxes of ellipses and curves.

#include <cmath>

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

double curveAt(double p0, double p1, double p2, double p3, double t) {
  const double u = 1.0 - t;
  return u * u * u * p0 + 3.0 * u * u * t * p1 + 3.0 * u * t * t * p2 + t * t * t * p3;
}

// Parameters inside (0, 1) at which one coordinate of a cubic turns; returns how many.
int turningPoints(double p0, double p1, double p2, double p3, double (&roots)[2]) {
  const double a = p3 - 3.0 * p2 + 3.0 * p1 - p0;
  const double b = 2.0 * (p2 - 2.0 * p1 + p0);
  const double c = p1 - p0;
  const double discriminant = b * b - 4.0 * a * c;
  if (!(discriminant >= 0.0)) return 0;
  // The form that divides by the sum keeps its digits when a is small.
  const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
  int found = 0;
  for (const double root : {q / a, c / q}) {
    if (root > 0.0 && root < 1.0) roots[found++] = root;
  }
  return found;
}

void includeCurve(Box& box, const _mpl_spacept_tag* p) {
  box.include(p[0]);
  box.include(p[3]);
  double roots[2];
  const auto at = [&](double t) {
    box.include(curveAt(p[0].x, p[1].x, p[2].x, p[3].x, t),
                curveAt(p[0].y, p[1].y, p[2].y, p[3].y, t));
  };
  for (int i = turningPoints(p[0].x, p[1].x, p[2].x, p[3].x, roots); i > 0; --i) at(roots[i - 1]);
  for (int i = turningPoints(p[0].y, p[1].y, p[2].y, p[3].y, roots); i > 0; --i) at(roots[i - 1]);
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
