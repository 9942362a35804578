#include "tests/support/shape_records.h"

#include <algorithm>

namespace egfsvg::test {

namespace {

constexpr double kPi = 3.1415926534;
constexpr Matrix9 kIdentity{1, 0, 0, 0, 1, 0, 0, 0, 1};

Matrix9 product(const Matrix9& a, const Matrix9& b) {
  Matrix9 c{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 3; ++k) {
      c[3 * i + k] = a[3 * i] * b[k] + a[3 * i + 1] * b[3 + k] + a[3 * i + 2] * b[6 + k];
    }
  }
  return c;
}

Matrix9 moving(double x, double y) { return {1, 0, x, 0, 1, y, 0, 0, 1}; }

int alphaByte(double alpha) {
  return static_cast<int>(std::clamp(std::trunc(alpha * 255.0), 0.0, 255.0));
}

constexpr std::uint32_t kBlack = 0xffffff;

}  // namespace

double ShapeRecords::pixels(const _svg_value& value) const {
  const double width = width_ / 4096.0;
  const double height = height_ / 4096.0;
  switch (value.unit) {
    case 3:
      return res_ / 96.0 * value.value;
    case 4:
      return res_ / 72.0 * value.value;
    case 5:
      return res_ / 6.0 * value.value;
    case 6:
      return res_ / 2.54 * value.value;
    case 7:
      return res_ / 2.54 / 10.0 * value.value;
    case 8:
      return res_ * value.value;
    case 9:
      if (value.axis == 1) return width * value.value / 100.0;
      if (value.axis == 2) return height * value.value / 100.0;
      return std::sqrt((width * width + height * height) / 2.0) * value.value / 100.0;
    case 14:
      return value.value;
    default:
      return 0.0 * value.value;
  }
}

ShapePoint ShapeRecords::point(const _svg_value& x, const _svg_value& y, const _svg_value& dx,
                               const _svg_value& dy) const {
  return {static_cast<float>((pixels(x) + pixels(dx)) * 4096.0),
          static_cast<float>((pixels(y) + pixels(dy)) * 4096.0)};
}

void ShapeRecords::multiplyEntry(Matrix9& m, const transformEntry& entry) const {
  const _svg_value* a = entry.args;
  const auto on = [&](int i, int axis) { return pixels({a[i].unit, a[i].value, axis}); };
  const auto multiply = [&](const Matrix9& by) { m = product(m, by); };
  const double angle = a[0].value * kPi / 180.0;
  switch (entry.kind) {
    case 1:
      multiply(moving(on(1, 1), on(2, 2)));
      multiply(
          {std::cos(angle), -std::sin(angle), 0, std::sin(angle), std::cos(angle), 0, 0, 0, 1});
      return multiply(moving(-on(1, 1), -on(2, 2)));
    case 2:
      return multiply({1, std::tan(angle), 0, 0, 1, 0, 0, 0, 1});
    case 3:
      return multiply({1, 0, 0, std::tan(angle), 1, 0, 0, 0, 1});
    case 4:
      return multiply(
          {a[0].value, a[2].value, pixels(a[4]), a[1].value, a[3].value, pixels(a[5]), 0, 0, 1});
    case 5:
      return multiply(moving(on(0, 1), on(1, 2)));
    case 6:
      return multiply({a[0].value, 0, 0, 0, a[1].value, 0, 0, 0, 1});
    default:
      return;
  }
}

Matrix9 ShapeRecords::matrix(const _svg_common& head) const {
  Matrix9 m = kIdentity;
  for (int i = 0; i < head.transformCount; ++i) multiplyEntry(m, head.transforms[i]);
  return m;
}

ShapeRecords::Parts ShapeRecords::partsOf(const Matrix9& m) {
  const double d = m[0] * m[4] - m[3] * m[1];
  if (std::fabs(d) < 1e-20) return {0, 0, 0, 0};
  const double rotation = std::atan2(m[3], m[0]);
  const double c = std::cos(rotation);
  const double s = std::sin(rotation);
  Parts parts{(m[4] * m[3] + m[1] * m[0]) / d, c * m[0] + s * m[3], c * m[4] - s * m[1], rotation};
  if (std::fabs(parts.shear) < 1e-6) parts.shear = 0;
  if (parts.scaleY < 0) {
    parts = {parts.shear, -parts.scaleX, -parts.scaleY, parts.rotation + kPi};
  }
  return parts;
}

ShapePoint ShapeRecords::mapped(ShapePoint point, const Matrix9& m) {
  const double x = static_cast<double>(point.x);
  const double y = static_cast<double>(point.y);
  return {static_cast<float>(x * m[0] + y * m[1] + m[2] * 4096.0),
          static_cast<float>(x * m[3] + y * m[4] + m[5] * 4096.0)};
}

std::vector<ShapePoint> ShapeRecords::mapped(std::vector<ShapePoint> points, const Matrix9& m) {
  for (ShapePoint& each : points) each = mapped(each, m);
  return points;
}

std::vector<double> ShapeRecords::dashes(const _svg_pa_stroke& stroke) const {
  std::vector<double> segments;
  const bool odd = stroke.strokeDashCount % 2 != 0;
  const int used = std::min(stroke.strokeDashCount, odd ? 19 : 40);
  for (int i = 0; i < (odd ? 2 * used : used); ++i) {
    const double length = pixels(stroke.strokeDashArray[i % used]);
    segments.push_back(i % 2 == 0 ? length : 0.0 - length);
  }
  return segments;
}

std::uint32_t ShapeRecords::word(const _svg_color& colour) {
  const auto channel = [](int value, int shift) {
    return static_cast<std::uint32_t>(value & 255) << shift;
  };
  return channel(colour.blue, 0) | channel(colour.green, 8) | channel(colour.red, 16) |
         channel(colour.colorExtra, 24);
}

Image ShapeRecords::fillParms() {
  Image parms(56);
  parms.byte(0, 3).byte(1, 3).word(8, 1).put(24, 90000000).byte(29, 255).byte(30, 255);
  return parms.byte(31, 1).put(44, 10.0F).word(52, 255);
}

Image ShapeRecords::strokeParms() {
  Image parms(52);
  parms.byte(0, 3).byte(1, 1).byte(9, 255).word(28, 1).put(40, 90000000);
  return parms.put(48, 10.0F);
}

Image ShapeRecords::polygonPen(const Paint& paint, int figure) const {
  Image pen(52);
  const std::uint32_t fill = word(paint.fill.fillColor);
  const bool present = paint.stroke.strokePresent != 0;
  pen.put(4, pixels(paint.stroke.strokeWidth))
      .word(12, present ? word(paint.stroke.strokeColor) : fill);
  pen.word(16, fill).byte(24, paint.fillCode()).byte(25, paint.join());
  pen.byte(26, (paint.fill.fillRule == 2 ? 1 : 0) | figure << 1);
  return pen.word(28, 0x12f).word(40, 0xffff).put(44, 1.0);
}

std::optional<Image> ShapeRecords::extended(const Paint& paint, bool always, bool join,
                                            bool openCaps) {
  const double a = paint.fillAlpha();
  const double b = paint.strokeAlpha();
  const bool alphas = b < 1.0 || (always ? a < 1.0 : a > 0.0 && a < 1.0);
  std::optional<Image> parms;
  if (always || alphas) parms = fillParms().word(8, static_cast<std::uint32_t>(paint.strokeCode()));
  if (alphas) parms->byte(29, alphaByte(b)).byte(30, alphaByte(a));
  if (join && paint.join() != 0) {
    if (!parms) parms = fillParms();
    parms->put(44, static_cast<float>(paint.stroke.strokeMiterlimit));
  }
  if (openCaps) {
    if (!parms) parms = fillParms();
    parms->byte(0, paint.cap()).byte(1, paint.cap());
  }
  return parms;
}

void ShapeRecords::putPolygon(DrawnRecord& drawn, const Paint& paint, int figure,
                              bool openCaps) const {
  const Image pen = polygonPen(paint, figure);
  for (std::size_t i = 0; i < 52; ++i) drawn.image.byte(44 + i, pen.bytes()[i]);
  drawn.image.word(96, 1000).put(100, static_cast<int>(drawn.points.size()));
  drawn.pointsAt = 24;
  drawn.dashAt = 64;
  drawn.dashes = dashes(paint.stroke);
  const bool caps = openCaps && figure == 0 && drawn.dashes.empty();
  drawn.styles.push_back({136, 168, extended(paint, false, true, caps)});
}

DrawnRecord ShapeRecords::rect(const _svg_rect& element) const {
  const _svg_value none{3, 0.0, 0};
  const std::array<ShapePoint, 4> corners{
      point(element.x, element.y), point(element.x, element.y, none, element.height),
      point(element.x, element.y, element.width, element.height),
      point(element.x, element.y, element.width, none)};
  const float width = units(element.width);
  const float height = units(element.height);
  float rx = units(element.rx);
  float ry = units(element.ry);
  if (2.0F * rx > width) rx = 0.5F * width;
  if (2.0F * ry > height) ry = 0.5F * height;
  if (rx != 0.0F || ry != 0.0F) return roundRect(element, corners, rx, ry);
  DrawnRecord drawn(3, 148);
  drawn.points = mapped({corners.begin(), corners.end()}, matrix(element.head));
  putPolygon(drawn, {element.fill, element.stroke, element.graphics}, 1, false);
  return drawn;
}

DrawnRecord ShapeRecords::roundRect(const _svg_rect& element,
                                    const std::array<ShapePoint, 4>& corners, float rx,
                                    float ry) const {
  DrawnRecord drawn(33, 136);
  const Paint paint{element.fill, element.stroke, element.graphics};
  drawn.image.word(60, 1);
  drawn.dashAt = 20;  // in the pen
  drawn.dashes = dashes(paint.stroke);
  drawn.styles.push_back({68, 170, polygonPen(paint, 1)});
  drawn.styles.push_back({72, 168, extended(paint, true, true, false)});
  const Matrix9 m = matrix(element.head);
  const Parts parts = partsOf(m);
  const bool arcs = parts.shear == 0.0 && parts.rotation == 0.0;
  const ShapePoint scaled{static_cast<float>(static_cast<double>(rx) * parts.scaleX),
                          static_cast<float>(static_cast<double>(ry) * parts.scaleY)};
  constexpr float kSigns[4][2] = {{1, 1}, {1, -1}, {-1, -1}, {-1, 1}};
  constexpr int kStarts[4] = {90, 180, 270, 0};
  for (std::size_t i = 0; i < 4; ++i) {
    const ShapePoint center{corners[i].x + kSigns[i][0] * rx, corners[i].y + kSigns[i][1] * ry};
    drawn.children.push_back(arcs ? cornerArc(mapped(center, m), scaled, kStarts[i])
                                  : cornerCurve(corners[i], center, {rx, ry}, kStarts[i], m));
  }
  return drawn;
}

DrawnRecord ShapeRecords::cornerArc(ShapePoint center, ShapePoint radii, int degrees) {
  DrawnRecord arc(4, 96);
  arc.image.put(24, center.x).put(28, center.y).put(32, radii.x).put(36, radii.y);
  arc.image.put(48, degrees * 1000000).put(52, (degrees + 90) * 1000000);
  arc.image.word(68, kBlack).put<std::uint16_t>(78, 0xffff).byte(88, 1);
  return arc;
}

DrawnRecord ShapeRecords::cornerCurve(ShapePoint corner, ShapePoint center, ShapePoint radii,
                                      int degrees, const Matrix9& m) {
  DrawnRecord curve(9, 148);
  const double half = 90.0 * kPi / 360.0;
  const double reach = (1.0 - std::cos(half)) / std::sin(half);
  const double a = degrees * kPi / 180.0;
  const double b = a + 2.0 * half;
  const auto on = [&](double angle, double along) {
    const double x = (std::cos(angle) - along * std::sin(angle)) * static_cast<double>(radii.x);
    const double y = -(std::sin(angle) + along * std::cos(angle)) * static_cast<double>(radii.y);
    return ShapePoint{static_cast<float>(x + static_cast<double>(center.x)),
                      static_cast<float>(y + static_cast<double>(center.y))};
  };
  const bool fromSide = degrees % 180 == 0;  // left or right; else top or bottom
  const ShapePoint first{fromSide ? corner.x : center.x, fromSide ? center.y : corner.y};
  curve.points = mapped({first, on(a, reach), on(b, -reach), on(b, 0.0)}, m);
  curve.pointsAt = 24;
  curve.image.byte(70, 8).put(100, 4);
  return curve;
}

DrawnRecord ShapeRecords::circle(const _svg_circle& element) const {
  return round(element.head, {element.fill, element.stroke, element.graphics},
               {element.cx, element.cy, element.r, element.r});
}

DrawnRecord ShapeRecords::ellipse(const _svg_ellipse& element) const {
  return round(element.head, {element.fill, element.stroke, element.graphics},
               {element.cx, element.cy, element.rx, element.ry});
}

DrawnRecord ShapeRecords::round(const _svg_common& head, const Paint& paint,
                                const _svg_value (&values)[4]) const {
  const auto& [cx, cy, rx, ry] = values;
  const ShapePoint center = point(cx, cy);
  const ShapePoint corner = point(cx, cy, rx, ry);
  const Matrix9 m = matrix(head);
  const Parts parts = partsOf(m);
  const Image pen = polygonPen(paint, 1);
  const std::optional<Image> parms = extended(paint, false, false, false);
  if (parts.shear > 0.0) {
    DrawnRecord drawn(9, 148);
    putPolygon(drawn, paint, 1, false);
    drawn.image.byte(69, 0).byte(70, 2);
    drawn.outline = true;
    drawn.styles = {{136, 168, parms}};
    return drawn;
  }
  DrawnRecord drawn(6, 120);
  const ShapePoint at = mapped(center, m);
  const double dx = static_cast<double>(corner.x) - static_cast<double>(center.x);
  const double dy = static_cast<double>(corner.y) - static_cast<double>(center.y);
  drawn.image.put(24, at.x).put(28, at.y);
  drawn.image.put(32, static_cast<float>(dx * parts.scaleX + static_cast<double>(at.x)));
  drawn.image.put(36, static_cast<float>(dy * parts.scaleY + static_cast<double>(at.y)));
  drawn.image.put(44, 360000000).put(52, pixels(paint.stroke.strokeWidth));
  for (std::size_t i = 0; i < 8; ++i) drawn.image.byte(60 + i, pen.bytes()[12 + i]);
  drawn.image.byte(72, paint.fillCode()).word(76, 0x12f).word(80, 0xffff).put(84, 1.0);
  const double degrees = parts.rotation * 180.0 / kPi;
  const double settled = degrees < 0 ? degrees - 1e-9 : degrees > 0 ? degrees + 1e-9 : 0.0;
  drawn.image.put(92, static_cast<int>(settled * -1000000.0));
  drawn.dashAt = 68;
  drawn.dashes = dashes(paint.stroke);
  drawn.styles.push_back({108, 168, parms});
  return drawn;
}

void ShapeRecords::putStroked(DrawnRecord& drawn, const Paint& paint, std::size_t pen,
                              std::size_t number, double alpha, bool joins) const {
  const double p = paint.stroke.strokeOpacity * paint.graphics.opacity;
  drawn.image.put(pen + 4, pixels(paint.stroke.strokeWidth));
  drawn.image.word(pen + 12, word(paint.stroke.strokeColor));
  drawn.image.byte(pen + 20, p == 1.0 ? 0 : p > 0.0 && p < 1.0 ? 1 : 7);
  drawn.image.byte(pen + 21, paint.cap());
  drawn.dashAt = pen + 16;
  drawn.dashes = dashes(paint.stroke);
  std::optional<Image> parms;
  if (alpha < 1.0) parms = strokeParms().byte(9, alphaByte(alpha)).byte(1, paint.strokeCode());
  if (paint.cap() == 10) parms = (parms ? *parms : strokeParms()).byte(0, 10);
  if (joins && paint.join() != 0) {
    parms =
        (parms ? *parms : strokeParms()).put(48, static_cast<float>(paint.stroke.strokeMiterlimit));
  }
  drawn.styles.push_back({number, 166, parms});
}

DrawnRecord ShapeRecords::line(const _svg_line& element) const {
  DrawnRecord drawn(5, 88);
  const Matrix9 m = matrix(element.head);
  const Paint paint{element.fill, element.stroke, element.graphics};
  const ShapePoint from = mapped(point(element.x1, element.y1), m);
  const ShapePoint to = mapped(point(element.x2, element.y2), m);
  drawn.image.put(24, from.x).put(28, from.y).put(32, to.x).put(36, to.y);
  drawn.image.put<std::uint16_t>(70, 0xffff).put(72, 1.0);
  putStroked(drawn, paint, 48, 80, paint.strokeAlpha(), false);
  return drawn;
}

std::vector<ShapePoint> ShapeRecords::pointsOf(const _svg_point* points, int count,
                                               const Matrix9& m) const {
  std::vector<ShapePoint> all;
  for (int i = 0; i < count; ++i) all.push_back(mapped(point(points[i].x, points[i].y), m));
  return all;
}

DrawnRecord ShapeRecords::polyline(const _svg_polyline& element) const {
  DrawnRecord drawn(8, 148);
  const Paint paint{element.fill, element.stroke, element.graphics};
  drawn.points = pointsOf(element.points, element.pointCount, matrix(element.head));
  drawn.pointsAt = 40;
  drawn.image.byte(106, paint.join()).word(108, 0xffff).put(112, 1.0).put(120, 10.0);
  drawn.image.word(128, 2884).put(136, element.pointCount);
  const double alpha =
      paint.stroke.strokePresent != 0 ? paint.stroke.strokeOpacity * paint.graphics.opacity : 0.0;
  putStroked(drawn, paint, 84, 140, alpha, true);
  return drawn;
}

DrawnRecord ShapeRecords::polygon(const _svg_polygon& element) const {
  DrawnRecord drawn(9, 148);
  drawn.points = pointsOf(element.points, element.pointCount, matrix(element.head));
  putPolygon(drawn, {element.fill, element.stroke, element.graphics}, element.isClosed != 0 ? 1 : 0,
             true);
  return drawn;
}

}  // namespace egfsvg::test
