#include "geometry/elliptic_arc.h"

#include <algorithm>
#include <cmath>

#include "geometry/angles.h"

namespace egfsvg {
namespace {

constexpr double kOnAxis = 1e-9;  // a sine or cosine of this size counts as 0

struct Vector {
  double x, y;
};

/// The angle from a to b. Host angles run against SVG's, so the sign of the cross product is
/// turned.
double angleBetween(const Vector& a, const Vector& b) {
  const double cross = a.x * b.y - a.y * b.x;
  const double lengths = std::sqrt(a.x * a.x + a.y * a.y) * std::sqrt(b.x * b.x + b.y * b.y);
  const double cosine = std::clamp((a.x * b.x + a.y * b.y) / lengths, -1.0, 1.0);
  return (cross <= 0.0 ? 1.0 : -1.0) * degreesOf(std::acos(cosine));
}

/// The sweep by its flags. Kept: a sweep below one degree stays small, unless a large arc is asked
/// for, when it is nearly the whole ellipse.
double sweepByFlags(double sweep, bool largeArc, bool sweepFlag) {
  const double size = std::fabs(sweep);
  if (!largeArc && size > 0.0 && size < 1.0) return sweepFlag ? -size : size;
  if (!sweepFlag && sweep < 0.0) return sweep + kDegreesInTurn;
  if (sweepFlag && sweep > 0.0) return sweep - kDegreesInTurn;
  return sweep;
}

void setAngles(double theta, double sweep, ArcCenter* out) {
  const double first = sweep >= 0.0 ? theta : theta + sweep;
  double start = std::fmod(first, kDegreesInTurn);
  if (start < 0.0) start += kDegreesInTurn;
  if (start >= kDegreesInTurn) start = 0.0;
  out->start = start;
  out->end = start + std::fabs(sweep);
}

double sign(double v) { return v < 0.0 ? -1.0 : 1.0; }

}  // namespace

bool arcFromEnds(const ArcEnds& e, ArcCenter* out) {
  if (e.x1 == e.x2 && e.y1 == e.y2) return false;
  const double c = std::cos(e.rotation);
  const double s = std::sin(e.rotation);
  const double dx = (e.x1 - e.x2) / 2.0;
  const double dy = (e.y1 - e.y2) / 2.0;
  const double xp = c * dx + s * dy;
  const double yp = -s * dx + c * dy;

  double rx = std::fabs(e.rx);
  double ry = std::fabs(e.ry);
  const double reach = xp * xp / (rx * rx) + yp * yp / (ry * ry);
  if (reach > 1.0) {
    rx *= std::sqrt(reach);
    ry *= std::sqrt(reach);
  }
  const double a = rx * rx * yp * yp;
  const double b = ry * ry * xp * xp;
  const double k = std::sqrt(std::max(0.0, (rx * rx * ry * ry - a - b) / (a + b))) *
                   (e.largeArc == e.sweep ? -1.0 : 1.0);
  const double cxp = k * rx * yp / ry;
  const double cyp = -k * ry * xp / rx;
  out->cx = c * cxp - s * cyp + (e.x1 + e.x2) / 2.0;
  out->cy = s * cxp + c * cyp + (e.y1 + e.y2) / 2.0;
  out->rx = rx;
  out->ry = ry;

  const Vector u{(xp - cxp) / rx, (yp - cyp) / ry};
  const Vector v{(-xp - cxp) / rx, (-yp - cyp) / ry};
  const double theta = angleBetween({1.0, 0.0}, u);
  setAngles(theta, sweepByFlags(angleBetween(u, v), e.largeArc, e.sweep), out);
  return std::isfinite(out->cx) && std::isfinite(out->cy) && std::isfinite(out->start) &&
         std::isfinite(out->end);
}

double scaledArcAngle(double degrees, double scaleX, double scaleY) {
  const double angle = std::fmod(degrees, kDegreesInTurn);
  const double radians = radiansOf(angle);
  const double sine = std::sin(radians);
  const double cosine = std::cos(radians);
  if (std::fabs(sine) <= kOnAxis || std::fabs(cosine) <= kOnAxis) return angle;
  double scaled = degreesOf(
      std::atan2(std::fabs(sine / cosine) * sign(sine), (scaleX / scaleY) * sign(cosine)));
  if (scaled < 0.0 && angle > 0.0) scaled += kDegreesInTurn;
  if (scaled > 0.0 && angle < 0.0) scaled -= kDegreesInTurn;
  return scaled;
}

void scaleArcAngles(double* start, double* end, double scaleX, double scaleY) {
  *start = scaledArcAngle(*start, scaleX, scaleY);
  *end = scaledArcAngle(*end, scaleX, scaleY);
  if (*end <= *start) *end += kDegreesInTurn;
}

}  // namespace egfsvg
