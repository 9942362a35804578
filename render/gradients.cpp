#include "render/gradients.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/egf_small.h"

namespace egfrender {
namespace {

constexpr double kFullAlpha = 255.0;
constexpr double kRampEnd = 1000.0;    // positions are thousandths
constexpr double kNearlyInside = 1.5;  // device pixels that an edge may blend beyond the vector
constexpr double kInnermost = 0.999;   // how near its ring a focus may stand, in radii
constexpr double kFlat = 1e-9;
constexpr double kThinnest = 1e-3;  // device pixels across a ring that still has an inside

int stopsOf(const GradientUse& gradient) {
  return std::min<int>(gradient.ramp.stopCount, egfsvg::kMaxGradientStops);
}

double positionOf(const GradientUse& gradient, int stop) {
  return static_cast<double>(gradient.ramp.stopPositions[stop]);
}

void addStop(cairo_pattern_t* pattern, const GradientUse& gradient, int stop, double offset,
             double alpha) {
  const Colour c = shownColour(gradient.ramp.stopColors[stop],
                               alpha * gradient.ramp.stopAlpha[stop] / kFullAlpha);
  cairo_pattern_add_color_stop_rgba(pattern, offset, c.red, c.green, c.blue, c.alpha);
}

double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
Point minus(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }

struct Vector {
  Point start;
  Point along;  // to the end
};

// The ramp runs at right angles to its lines of equal colour. With an angle it runs from the left
// point to the right one, down or up; without, along the axis on which the points lie apart.
Vector vectorOf(const GradientUse& gradient, Point first, Point second) {
  const bool turned = gradient.angleIsSet && second.x < first.x;
  const Point start = turned ? second : first;
  const Point span = minus(turned ? first : second, start);
  Point direction = std::fabs(span.x) >= std::fabs(span.y) ? Point{1, 0} : Point{0, 1};
  if (gradient.angleIsSet) {
    const double angle = std::fabs(static_cast<double>(gradient.angle)) / egfsvg::kMillionths *
                         std::numbers::pi / 180.0;
    direction = {std::cos(angle), span.y < 0 ? -std::sin(angle) : std::sin(angle)};
  }
  const double length = dot(span, direction);
  return {start, {direction.x * length, direction.y * length}};
}

// Whether all of the area lies between the ends of the vector, give or take a blended edge.
bool covers(const Vector& v, const Box& area) {
  const double length = std::hypot(v.along.x, v.along.y);
  const Point corners[] = {{area.left, area.top},
                           {area.right, area.top},
                           {area.left, area.bottom},
                           {area.right, area.bottom}};
  return std::all_of(std::begin(corners), std::end(corners), [&](Point corner) {
    const double at = dot(minus(corner, v.start), v.along) / length;
    return at >= -kNearlyInside && at <= length + kNearlyInside;
  });
}

Pattern linearPattern(const GradientUse& gradient, double alpha, const Placement& placement,
                      const Box& area) {
  if (gradient.pointCount < 2) return nullptr;
  const Vector v = vectorOf(gradient, placement.device(pixelsOf(gradient.points[0])),
                            placement.device(pixelsOf(gradient.points[1])));
  if (std::hypot(v.along.x, v.along.y) < kFlat) return nullptr;
  Pattern pattern(cairo_pattern_create_linear(v.start.x, v.start.y, v.start.x + v.along.x,
                                              v.start.y + v.along.y));
  for (int i = 0; i < stopsOf(gradient); ++i) {
    addStop(pattern.get(), gradient, i, positionOf(gradient, i) / kRampEnd, alpha);
  }
  const bool flips = gradient.wrapMode == _egf_wrapmode_tag::kFlip;
  const cairo_extend_t beyond = flips ? CAIRO_EXTEND_REFLECT : CAIRO_EXTEND_REPEAT;
  cairo_pattern_set_extend(pattern.get(), covers(v, area) ? CAIRO_EXTEND_PAD : beyond);
  return pattern;
}

// The unit circle's image that a ring of evenly spaced points lies on: its centre and the images of
// the two axes (discrete Fourier sums of the ring).
struct Ring {
  Point center;
  Point xAxis;
  Point yAxis;
};

Ring ringOf(const GradientUse& gradient, const Placement& placement) {
  const unsigned n = gradient.pointCount - 2;  // without the focus, and the last point is the first
  Ring ring;
  for (unsigned i = 0; i < n; ++i) {
    const Point p = placement.device(pixelsOf(gradient.points[1 + i]));
    const double turn = 2.0 * std::numbers::pi * i / n;
    const double c = 2.0 * std::cos(turn) / n;
    const double s = -2.0 * std::sin(turn) / n;  // host angles run counter-clockwise
    ring.center.x += p.x / n;
    ring.center.y += p.y / n;
    ring.xAxis.x += c * p.x;
    ring.xAxis.y += c * p.y;
    ring.yAxis.x += s * p.x;
    ring.yAxis.y += s * p.y;
  }
  return ring;
}

// Whether a ring is a place or a line, which no ramp can fill.
bool isThin(const Ring& ring) {
  const double area = std::fabs(ring.xAxis.x * ring.yAxis.y - ring.xAxis.y * ring.yAxis.x);
  const double longest =
      std::max(std::hypot(ring.xAxis.x, ring.xAxis.y), std::hypot(ring.yAxis.x, ring.yAxis.y));
  return !(area >= kThinnest * longest) || !(longest >= kThinnest);
}

// Positions run from the ring inward when they rise: a padded ramp. When they fall they run from
// the focus outward, and the first is the period in which the ramp is repeated.
bool isPadded(const GradientUse& gradient) {
  return positionOf(gradient, 0) <= positionOf(gradient, stopsOf(gradient) - 1);
}

// A focus pulled inside the unit circle.
Point insideFocus(Point focus) {
  const double away = std::hypot(focus.x, focus.y);
  if (away <= kInnermost) return focus;
  return {focus.x / away * kInnermost, focus.y / away * kInnermost};
}

// In the space of the unit circle: circles shrink towards the focus as the ramp goes inward.
Pattern circlesOf(const GradientUse& gradient, Point focus, double alpha) {
  const bool padded = isPadded(gradient);
  const int count = stopsOf(gradient);
  const double period = padded ? 1.0 : positionOf(gradient, 0) / kRampEnd;
  if (!(period > 0.0)) return nullptr;
  Pattern pattern(cairo_pattern_create_radial(focus.x, focus.y, 0.0, focus.x * (1.0 - period),
                                              focus.y * (1.0 - period), period));
  for (int i = count - 1; i >= 0; --i) {  // from the focus outward
    const double at = positionOf(gradient, i) / kRampEnd;
    addStop(pattern.get(), gradient, i, padded ? 1.0 - at : at / period, alpha);
  }
  cairo_pattern_set_extend(pattern.get(), padded ? CAIRO_EXTEND_PAD : CAIRO_EXTEND_REPEAT);
  return pattern;
}

Pattern radialPattern(const GradientUse& gradient, double alpha, const Placement& placement) {
  constexpr unsigned kLeastPoints = 5;  // a focus and a ring that is more than a line
  if (gradient.pointCount < kLeastPoints) return nullptr;
  const Ring ring = ringOf(gradient, placement);
  cairo_matrix_t toUnit;
  cairo_matrix_init(&toUnit, ring.xAxis.x, ring.xAxis.y, ring.yAxis.x, ring.yAxis.y, ring.center.x,
                    ring.center.y);
  if (isThin(ring)) return nullptr;
  if (cairo_matrix_invert(&toUnit) != CAIRO_STATUS_SUCCESS) return nullptr;
  Point focus = placement.device(pixelsOf(gradient.points[0]));
  cairo_matrix_transform_point(&toUnit, &focus.x, &focus.y);
  Pattern pattern = circlesOf(gradient, insideFocus(focus), alpha);
  if (pattern) cairo_pattern_set_matrix(pattern.get(), &toUnit);
  return pattern;
}

}  // namespace

Pattern gradientPattern(const GradientUse& gradient, double alpha, const Placement& placement,
                        const Box& area) {
  if (gradient.points == nullptr || stopsOf(gradient) < 1) return nullptr;
  return gradient.radial ? radialPattern(gradient, alpha, placement)
                         : linearPattern(gradient, alpha, placement, area);
}

}  // namespace egfrender
