#include "geometry/arc_curves.h"

#include <cmath>

#include "geometry/angles.h"
#include "host/memory.h"

namespace egfsvg {
namespace {

constexpr double kNoSweep = 1e-9;  // degrees

/// How many curves an arc takes by its sweep in degrees.
struct SegmentRow {
  double upTo;
  int segments;
};
constexpr SegmentRow kSegmentRows[] = {{90.0001, 1}, {180.0001, 4}, {270.0001, 6}};
constexpr int kMostSegments = 16;

int segmentsFor(double sweep) {
  for (const SegmentRow& row : kSegmentRows) {
    if (sweep <= row.upTo) return row.segments;
  }
  return kMostSegments;
}

/// Carries a point of the unit circle, y upwards, into the ellipse.
class UnitCircle {
 public:
  explicit UnitCircle(const ArcCurve& arc)
      : arc_(arc), c_(std::cos(arc.rotation)), s_(std::sin(arc.rotation)) {}

  /// The point at an angle, moved along its tangent by a part of the radius.
  _mpl_spacept_tag point(double angle, double along) const {
    const double x = (std::cos(angle) - along * std::sin(angle)) * arc_.rx;
    const double y = -(std::sin(angle) + along * std::cos(angle)) * arc_.ry;
    return {static_cast<float>(c_ * x - s_ * y + static_cast<double>(arc_.center.x)),
            static_cast<float>(s_ * x + c_ * y + static_cast<double>(arc_.center.y))};
  }

 private:
  const ArcCurve& arc_;
  double c_;
  double s_;
};

}  // namespace

_mpl_spacept_tag* arcToCurves(const ArcCurve& arc, double controlFactor, int* count) {
  double sweep = std::fabs(arc.startDegrees - arc.endDegrees);
  if (arc.large && sweep < kDegreesInTurn / 2) sweep = kDegreesInTurn - sweep;
  const int segments = segmentsFor(sweep);
  *count = 0;
  auto* points = static_cast<_mpl_spacept_tag*>(RMM_CallocName(
      static_cast<std::size_t>(3 * segments + 1), sizeof(_mpl_spacept_tag), RMM_SITE));
  if (points == nullptr) return nullptr;
  *count = 3 * segments + 1;

  double half = sweep * kAdapterPi / kDegreesInTurn / segments;
  double along = sweep < kNoSweep ? 0.0 : controlFactor * (1.0 - std::cos(half)) / std::sin(half);
  if (arc.reverse) {
    half = -half;
    along = -along;
  }
  const double first = radiansOf(arc.reverse ? arc.endDegrees : arc.startDegrees);
  const UnitCircle circle(arc);
  for (int i = 0; i < segments; ++i) {
    const double a = first + 2.0 * half * i;
    const double b = a + 2.0 * half;
    points[3 * i + 1] = circle.point(a, along);
    points[3 * i + 2] = circle.point(b, -along);
    points[3 * i + 3] = circle.point(b, 0.0);
  }
  return points;
}

}  // namespace egfsvg
