#include "render/outlines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace egfrender {
namespace {

// Nearer points are one point, in pixels.
constexpr double kSamePoint = 0.005;
constexpr double kQuarterTurn = std::numbers::pi / 2;
constexpr double kWholeTurn = 2 * std::numbers::pi;

double radians(std::int64_t millionths) {
  return static_cast<double>(millionths) / egfsvg::kMillionths * std::numbers::pi / 180;
}

// The parameter of the point of an ellipse that is seen from its centre under an angle; it stays in
// the quarter and the turn of the angle.
double parameterOf(double angle, double rx, double ry) {
  if (rx == ry || rx <= 0 || ry <= 0) return angle;
  const double parameter = std::atan2(std::sin(angle) * rx, std::cos(angle) * ry);
  return angle + std::remainder(parameter - angle, kWholeTurn);
}

// One arc, ready to give points and tangents by parameter.
class ArcCurve {
 public:
  explicit ArcCurve(const EllipseArc& arc)
      : arc_(arc),
        cosine_(std::cos(radians(arc.rotation))),
        sine_(std::sin(radians(arc.rotation))) {}

  Point at(double parameter) const {
    const Point offset = turned(arc_.rx * std::cos(parameter), -arc_.ry * std::sin(parameter));
    return {arc_.center.x + offset.x, arc_.center.y + offset.y};
  }

  // The control point that stands before (negative step) or behind a parameter.
  Point control(double parameter, double step) const {
    const Point base = at(parameter);
    const Point tangent = turned(-arc_.rx * std::sin(parameter), -arc_.ry * std::cos(parameter));
    return {base.x + step * tangent.x, base.y + step * tangent.y};
  }

 private:
  // Counter-clockwise on a page whose y runs downwards.
  Point turned(double x, double y) const {
    return {cosine_ * x + sine_ * y, cosine_ * y - sine_ * x};
  }

  const EllipseArc& arc_;
  double cosine_;
  double sine_;
};

struct Sweep {
  double from;
  double to;
};

Sweep sweepOf(const EllipseArc& arc) {
  std::int64_t turn = (static_cast<std::int64_t>(arc.end) - arc.start) % egfsvg::kFullTurn;
  if (turn < 0) turn += egfsvg::kFullTurn;
  Sweep sweep;
  sweep.from = parameterOf(radians(arc.start), arc.rx, arc.ry);
  sweep.to = arc.isWhole() ? sweep.from + kWholeTurn
                           : parameterOf(radians(arc.start + turn), arc.rx, arc.ry);
  if (arc.backwards) std::swap(sweep.from, sweep.to);
  return sweep;
}

}  // namespace

void Outline::moveTo(Point point) {
  const Point device = placement_.device(point);
  cairo_move_to(context_, device.x, device.y);
  current_ = point;
  open_ = true;
}

void Outline::lineTo(Point point) {
  const Point device = placement_.device(point);
  cairo_line_to(context_, device.x, device.y);
  current_ = point;
}

void Outline::curveTo(Point control1, Point control2, Point end) {
  const Point first = placement_.device(control1);
  const Point second = placement_.device(control2);
  const Point last = placement_.device(end);
  cairo_curve_to(context_, first.x, first.y, second.x, second.y, last.x, last.y);
  current_ = end;
}

void Outline::close() {
  if (open_) cairo_close_path(context_);
  open_ = false;
}

void Outline::joinTo(Point point) {
  if (!open_) return moveTo(point);
  const bool same =
      std::abs(point.x - current_.x) <= kSamePoint && std::abs(point.y - current_.y) <= kSamePoint;
  if (!same) lineTo(point);
}

void addPoints(Outline& outline, std::span<const _mpl_spacept_tag> points) {
  if (points.empty()) return;
  outline.joinTo(pixelsOf(points.front()));
  for (const _mpl_spacept_tag& point : points.subspan(1)) outline.lineTo(pixelsOf(point));
}

void addCurves(Outline& outline, std::span<const _mpl_spacept_tag> points) {
  constexpr std::size_t kPerCurve = 3;
  if (points.empty()) return;
  outline.joinTo(pixelsOf(points.front()));
  for (std::size_t i = 1; i + kPerCurve <= points.size(); i += kPerCurve) {
    outline.curveTo(pixelsOf(points[i]), pixelsOf(points[i + 1]), pixelsOf(points[i + 2]));
  }
}

void addArc(Outline& outline, const EllipseArc& arc) {
  const ArcCurve curve(arc);
  const Sweep sweep = sweepOf(arc);
  const double turn = sweep.to - sweep.from;
  const int count = std::max(1, static_cast<int>(std::ceil(std::abs(turn) / kQuarterTurn - 1e-9)));
  const double step = turn / count;
  const double reach = 4.0 / 3.0 * std::tan(step / 4);
  outline.joinTo(curve.at(sweep.from));
  for (int i = 0; i < count; ++i) {
    const double a = sweep.from + i * step;
    const double b = a + step;
    outline.curveTo(curve.control(a, reach), curve.control(b, -reach), curve.at(b));
  }
}

}  // namespace egfrender
