#include "geometry/arcs.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "geometry/angles.h"
#include "host/memory.h"

namespace egfsvg {
namespace {

constexpr int kMostSegments = 32767;  // also stands for a count that is no number
constexpr double kFullTurnRadians = 6.2831853068;
constexpr double kLeastStep = 0.03490658503777778;  // two degrees
constexpr double kDegreesPerSegment = 1.5;
constexpr double kRadiansPerSegment = 36.0;

/// The integer part of a computed count, within its bounds.
int segmentCount(double computed) {
  if (!(computed < kMostSegments)) return kMostSegments;
  return computed > 0.0 ? static_cast<int>(computed) : 0;
}

/// The turn from start to end in degrees, above 0 and at most 360.
double sweepDegrees(std::int32_t start, std::int32_t end) {
  std::int64_t sweep = (std::int64_t{end} - start) % kFullTurn;
  if (sweep <= 0) sweep += kFullTurn;
  return static_cast<double>(sweep) / kMillionths;
}

double degrees(std::int32_t angle) { return static_cast<double>(angle) / kMillionths; }

/// Segments that keep a circle of the mean radius smooth. Kept: a radius sum below 0 asks for the
/// most.
double segmentsBySize(double radians, double radiusSumPixels) {
  const double coarseness = 4.0 / radiusSumPixels;
  return coarseness > 0.0 ? radians / std::sqrt(coarseness) : HUGE_VAL;
}

_mpl_spacept_tag* allocatePoints(int count) {
  return static_cast<_mpl_spacept_tag*>(
      RMM_AllocName(static_cast<std::size_t>(count), sizeof(_mpl_spacept_tag), RMM_SITE));
}

/// A circle's arc in equal steps. Lengths are pixels, angles radians.
struct CircleSteps {
  double cx;
  double cy;
  double radius;
  double first;
  double step;
  int segments;

  _mpl_spacept_tag at(int index) const {
    const double angle = first + index * step;
    return {static_cast<float>((cx + std::cos(angle) * radius) * kSpaceUnits),
            static_cast<float>((cy - std::sin(angle) * radius) * kSpaceUnits)};
  }
};

CircleSteps circleSteps(const _mpl_spacept_tag& center, double radius, std::int32_t start,
                        std::int32_t end) {
  const double radians = sweepDegrees(start, end) * kArcRadiansPerDegree;
  const double pixels = radius / kSpaceUnits;
  const int segments = std::max({segmentCount(segmentsBySize(radians, pixels + pixels)),
                                 segmentCount(radians / kRadiansPerSegment), 1});
  return {static_cast<double>(center.x) / kSpaceUnits,
          static_cast<double>(center.y) / kSpaceUnits,
          pixels,
          degrees(start) * kArcRadiansPerDegree,
          radians / segments,
          segments};
}

_mpl_spacept_tag* discretizeCircle(const _mpl_spacept_tag& center, double radius,
                                   std::int32_t start, std::int32_t end, unsigned int* count) {
  const CircleSteps steps = circleSteps(center, radius, start, end);
  _mpl_spacept_tag* points = allocatePoints(steps.segments + 1);
  if (points == nullptr) return nullptr;
  for (int i = 0; i <= steps.segments; ++i) points[i] = steps.at(i);
  *count = static_cast<unsigned int>(steps.segments) + 1;
  return points;
}

/// The point of an ellipse on the axes in a polar direction. Kept: distances from the centre are
/// cut to whole space units.
_mpl_spacept_tag polarPoint(const _mpl_spacept_tag& center, double rx, double ry, double angle) {
  const double s = std::sin(angle);
  const double c = std::cos(angle);
  const double quotient = rx * rx * ry * ry / (ry * ry * c * c + rx * rx * s * s);
  const double distance = quotient > 0.0 ? std::sqrt(quotient) : 0.0;
  return {static_cast<float>(std::trunc(c * distance) + static_cast<double>(center.x)),
          static_cast<float>(static_cast<double>(center.y) - std::trunc(s * distance))};
}

double polarStep(const _mpl_spacept_tag& center, double rx, double ry) {
  const double cx = static_cast<double>(center.x) / kSpaceUnits;
  const double cy = static_cast<double>(center.y) / kSpaceUnits;
  const double width = std::fabs(cx + rx / kSpaceUnits - cx);
  const double height = std::fabs(cy + ry / kSpaceUnits - cy);
  const double step = kDegreesInTurn / ((height + width + 2.0) * 3.1415927) * 0.017453292 * 0.5;
  return step >= kLeastStep ? step : kLeastStep;
}

/// An ellipse's arc in radians; a whole one goes round once.
struct PolarRange {
  double first;
  double last;
};

PolarRange polarRange(std::int32_t start, std::int32_t end) {
  if ((std::int64_t{end} - start) % kFullTurn == 0) return {0.0, kFullTurnRadians};
  const double first = radiansOf(degrees(start));
  const double last = radiansOf(degrees(end));
  return {first, last < first ? last + kFullTurnRadians : last};
}

_mpl_spacept_tag* discretizeEllipse(const _mpl_spacept_tag& center, double rx, double ry,
                                    std::int32_t start, std::int32_t end, unsigned int* count) {
  const PolarRange range = polarRange(start, end);
  const double step = polarStep(center, rx, ry);
  const int room = segmentCount((range.last - range.first) / step) + 3;
  _mpl_spacept_tag* points = allocatePoints(room);
  if (points == nullptr) return nullptr;
  int used = 0;
  for (double angle = range.first; angle < range.last && used < room - 1; angle += step) {
    points[used++] = polarPoint(center, rx, ry, angle);
  }
  points[used++] = polarPoint(center, rx, ry, range.last);
  *count = static_cast<unsigned int>(used);
  return points;
}

}  // namespace

_mpl_spacept_tag* discretizePolarArc(const _mpl_spacept_tag& center, float rx, float ry,
                                     std::int32_t start, std::int32_t end, unsigned int* count) {
  *count = 0;
  if (rx == ry) return discretizeCircle(center, static_cast<double>(rx), start, end, count);
  return discretizeEllipse(center, static_cast<double>(rx), static_cast<double>(ry), start, end,
                           count);
}

/// Kept: two ends in one whole degree count as the long way round, and an arc of a little less than
/// half a turn can.
bool writtenLarge(std::int32_t start, std::int32_t end) {
  constexpr std::int32_t kWholeDegree = 1'000'000;
  constexpr std::int32_t kHalf = 180;
  constexpr std::int32_t kWhole = 360;
  const std::int32_t turn = start / kWholeDegree - end / kWholeDegree;
  return (turn >= 0 && turn < kHalf) || (turn >= -kWhole && turn <= -kHalf);
}

ArcEndPoints polarArcEnds(const _mpl_spacept_tag& center, float rx, float ry, std::int32_t start,
                          std::int32_t end) {
  if (rx == ry) {
    const CircleSteps steps = circleSteps(center, static_cast<double>(rx), start, end);
    return {steps.at(0), steps.at(steps.segments)};
  }
  const PolarRange range = polarRange(start, end);
  const auto point = [&](double angle) {
    return polarPoint(center, static_cast<double>(rx), static_cast<double>(ry), angle);
  };
  return {point(range.first), point(range.last)};
}

_mpl_spacept_tag* discretizeTurnedArc(const _mpl_spacept_tag& center, float rx, float ry,
                                      double rotation, std::int32_t start, std::int32_t end,
                                      unsigned int* count) {
  *count = 0;
  const double sweep = sweepDegrees(start, end);
  const double radians = sweep * kArcRadiansPerDegree;
  const double pixels = static_cast<double>(rx) / kSpaceUnits;
  const int segments = std::max({segmentCount(segmentsBySize(radians, pixels + pixels)),
                                 segmentCount(sweep / kDegreesPerSegment), 1});
  _mpl_spacept_tag* points = allocatePoints(segments + 1);
  if (points == nullptr) return nullptr;
  const double first = degrees(start) * kArcRadiansPerDegree;
  const double step = radians / segments;
  const double c = std::cos(rotation);
  const double s = std::sin(rotation);
  for (int i = 0; i <= segments; ++i) {
    const double angle = first + i * step;
    const double u = std::cos(angle) * static_cast<double>(rx);
    const double v = -std::sin(angle) * static_cast<double>(ry);
    points[i] = {static_cast<float>(c * u - s * v + static_cast<double>(center.x)),
                 static_cast<float>(s * u + c * v + static_cast<double>(center.y))};
  }
  *count = static_cast<unsigned int>(segments) + 1;
  return points;
}

_mpl_spacept_tag cornerCenter(const _mpl_spacept_tag* corners, const RoundedCorner& corner,
                              float rx, float ry) {
  const _mpl_spacept_tag& at = corners[corner.corner];
  return {at.x + static_cast<float>(corner.signX) * rx,
          at.y + static_cast<float>(corner.signY) * ry};
}

_mpl_spacept_tag* discretizeRoundedRect(const _mpl_spacept_tag* corners, float rx, float ry,
                                        unsigned int* count) {
  _mpl_spacept_tag* arcs[kCornerCount] = {};
  unsigned int counts[kCornerCount] = {};
  unsigned int total = 0;
  for (int i = 0; i < kCornerCount; ++i) {
    const RoundedCorner& corner = kRoundedCorners[i];
    arcs[i] = discretizePolarArc(cornerCenter(corners, corner, rx, ry), rx, ry,
                                 corner.startDegrees * kMillionths, corner.endDegrees * kMillionths,
                                 &counts[i]);
    total += counts[i];
  }
  const bool whole = std::none_of(arcs, arcs + kCornerCount, [](auto* arc) { return !arc; });
  _mpl_spacept_tag* outline = whole ? allocatePoints(static_cast<int>(total)) : nullptr;
  unsigned int used = 0;
  for (int i = 0; i < kCornerCount; ++i) {
    if (outline != nullptr) std::memcpy(&outline[used], arcs[i], counts[i] * sizeof *outline);
    used += counts[i];
    RMM_Free(arcs[i]);
  }
  *count = outline != nullptr ? total : 0;
  return outline;
}

}  // namespace egfsvg
