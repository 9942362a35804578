// Exact boxes of ellipses and curves.

#include <cmath>
#include <initializer_list>

#include "embedded_host/angles.h"
#include "embedded_host/bounds.h"
#include "embedded_host/double_pair.h"

namespace egfhost {

namespace {

// The hypotenuse, at once for an ellipse that stands upright: then it is as long as the other side.
double hypotenuse(double a, double b) {
  if (b == 0.0) return std::fabs(a);
  return a == 0.0 ? std::fabs(b) : std::hypot(a, b);
}

// An ellipse about the origin, turned; angles run counter-clockwise.
struct TurnedEllipse {
  double rx;
  double ry;
  Turn turn;

  // The page's y grows downward, so a counter-clockwise turn takes the sine's sign the other way.
  double x(Turn at) const { return turn.cosine * rx * at.cosine - turn.sine * ry * at.sine; }
  double y(Turn at) const { return -turn.sine * rx * at.cosine - turn.cosine * ry * at.sine; }
  double halfWidth() const { return hypotenuse(turn.cosine * rx, turn.sine * ry); }
  double halfHeight() const { return hypotenuse(turn.sine * rx, turn.cosine * ry); }
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

// A cubic curve by its control points. Both coordinates are calculated with side by side.
struct Cubic {
  DoublePair p0, p1, p2, p3;

  // The weights of the control points at two places of the curve.
  struct Weights {
    DoublePair w0, w1, w2, w3;
  };
  static Weights weightsAt(DoublePair t) {
    const DoublePair u = 1.0 - t;
    return {u * u * u, 3.0 * u * u * t, 3.0 * u * t * t, t * t * t};
  }
  // The point at one of the two places.
  template <int kPlace>
  DoublePair at(const Weights& weights) const {
    return twice<kPlace>(weights.w0) * p0 + twice<kPlace>(weights.w1) * p1 +
           twice<kPlace>(weights.w2) * p2 + twice<kPlace>(weights.w3) * p3;
  }
};

// The points at which a coordinate turns: where its derivative, a quadratic, is 0.
struct TurningPlaces {
  DoublePair first;  // of x and of y; no number, or beyond the ends, when there is none
  DoublePair second;
};

PairMask isBetweenEnds(DoublePair place) { return (place > 0.0) & (place < 1.0); }

TurningPlaces turningPlaces(const Cubic& curve) {
  const DoublePair a = curve.p3 - 3.0 * curve.p2 + 3.0 * curve.p1 - curve.p0;
  const DoublePair b = 2.0 * (curve.p2 - 2.0 * curve.p1 + curve.p0);
  const DoublePair c = curve.p1 - curve.p0;
  // The root of a negative discriminant is no number, and so is all that follows from it.
  const DoublePair root = squareRoot(b * b - 4.0 * a * c);
  // The form that divides by the sum keeps its digits when a is small.
  const DoublePair q = -0.5 * (b + withSignOf(root, b));
  return {c / q, q / a};
}

// All four points are calculated, without a question that nobody could foresee the answer to; in
// the place of one that is not on the curve stands its start, which the box has.
void includeTurningPoints(Box& box, const Cubic& curve) {
  const TurningPlaces places = turningPlaces(curve);
  const PairMask isFirst = isBetweenEnds(places.first);
  const PairMask isSecond = isBetweenEnds(places.second);
  const Cubic::Weights first = Cubic::weightsAt(places.first);
  const Cubic::Weights second = Cubic::weightsAt(places.second);
  box.include(rounded(chosen<0>(isFirst, curve.at<0>(first), curve.p0)));
  box.include(rounded(chosen<0>(isSecond, curve.at<0>(second), curve.p0)));
  box.include(rounded(chosen<1>(isFirst, curve.at<1>(first), curve.p0)));
  box.include(rounded(chosen<1>(isSecond, curve.at<1>(second), curve.p0)));
}

void includeCurve(Box& box, const _mpl_spacept_tag* p) {
  box.include(p[0]);
  box.include(p[3]);
  // A curve stays among its control points: when none of them stands outside, its points don't
  // either. Rounding changes nothing there: the largest and the smallest values are floats.
  if (box.holds(p + 1) && box.holds(p + 2)) return;
  includeTurningPoints(box, {doublesAt(p), doublesAt(p + 1), doublesAt(p + 2), doublesAt(p + 3)});
}

void includeWhole(Box& box, _mpl_spacept_tag center, const TurnedEllipse& ellipse) {
  const double halfWidth = ellipse.halfWidth();
  const double halfHeight = ellipse.halfHeight();
  box.include(center.x - halfWidth, center.y - halfHeight);
  box.include(center.x + halfWidth, center.y + halfHeight);
}

[[gnu::noinline]] void includePart(Box& box, _mpl_spacept_tag center, const TurnedEllipse& ellipse,
                                   std::int32_t start, std::int32_t end) {
  const double cx = center.x;
  const double cy = center.y;
  const double halfWidth = ellipse.halfWidth();
  const double halfHeight = ellipse.halfHeight();
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

}  // namespace

void includeEllipse(Box& box, _mpl_spacept_tag center, double rx, double ry, std::int32_t rotation,
                    std::int32_t start, std::int32_t end) {
  const TurnedEllipse ellipse{std::fabs(rx), std::fabs(ry), turnOf(rotation)};
  if (isFullTurn(start, end)) {
    includeWhole(box, center, ellipse);
  } else {
    includePart(box, center, ellipse, start, end);
  }
}

void includeCurves(Box& box, const _mpl_spacept_tag* points, std::size_t count) {
  Box grown = box;  // in registers
  std::size_t i = 0;
  for (; i + 3 < count; i += 3) includeCurve(grown, points + i);
  // Points beyond the last whole curve are not drawn as a curve; they count by themselves.
  grown.include(points + i, count - i);
  box = grown;
}

}  // namespace egfhost
