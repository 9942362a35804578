// Random objects against the lines that arithmetic of its own and snprintf make of them.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <random>

#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr int kObjects = 400;

std::string print(const char* format, ...) {
  char text[500];
  va_list args;
  va_start(args, format);
  std::vsnprintf(text, sizeof text, format, args);
  va_end(args);
  return text;
}

/// A random pen with its extended parameters, in a drawing of a random view.
class RandomPen {
 public:
  explicit RandomPen(unsigned seed) : engine_(seed) {
    const double kViews[][2] = {{96, 96}, {200, 200}, {200, 100}, {72, 300}};
    const double* view = kViews[pick(4)];
    x = view[0];
    y = view[1];
    kx = 96.0 / x;
    ky = 96.0 / y;
    drawing.emplace(x, y);
    color = word();
    fillColor = word();
    const std::uint8_t kJoins[] = {0, 3, 10, 11, 13};
    join = kJoins[pick(5)];
    const std::uint8_t kCaps[] = {0, 1, 3, 10};
    cap = kCaps[pick(4)];
    raster = static_cast<std::uint8_t>(pick(3));
    fillStyle = static_cast<std::uint8_t>(pick(9));
    evenOdd = pick(2) != 0;
    hasParms = pick(2) != 0;
    parmsCap = kCaps[pick(4)];
    const int kAlphas[] = {0, 51, 128, 255};
    alpha = kAlphas[pick(4)];
    fillAlpha = kAlphas[pick(4)];
    const float kLimits[] = {4.0F, 4.9F, 7.9F, 1.0F};
    limit = kLimits[pick(4)];
    unit = static_cast<std::uint32_t>(pick(9));
    const double kWidths[] = {0.0, 1.0, 0.25, 2.0, 3.3};
    measure = kWidths[pick(5)];
    dashed = pick(3) == 0;
    dashUnit = pick(2) == 0 ? 3U : 14U;
    dashStyle = dashed ? drawing->tree.dash({5.0, -3.0, 0.5}, dashUnit) : 0;
  }

  std::size_t pick(std::size_t count) { return engine_() % count; }
  Px point() {
    std::uniform_real_distribution<double> place(-500.0, 500.0);
    return {place(engine_), place(engine_)};
  }

  LinePen linePen() {
    LinePen pen{.stroke = color,
                .lineStyle = dashStyle,
                .rasterOp = raster,
                .capStyle = cap,
                .joinStyle = join};
    if (hasParms) {
      _egf_gdiplus_stroke_parms_tag parms = kStrokeParms;
      parms.capStyle = parmsCap;
      parms.strokeAlpha = static_cast<std::uint8_t>(alpha);
      parms.miterLimit = limit;
      pen.strokeParmsNo = appendStyle(drawing->document(), kStyleStroke, parms);
    }
    return pen;
  }
  AreaPen areaPen(bool closed = true) {
    AreaPen pen{.stroke = color,
                .fill = fillColor,
                .lineStyle = dashStyle,
                .fillStyle = fillStyle,
                .joinStyle = join,
                .evenOdd = evenOdd,
                .closed = closed};
    if (hasParms) {
      _egf_gdiplus_fillparms_tag parms = kFillParms;
      parms.startCap = parmsCap;
      parms.strokeAlpha = static_cast<std::uint8_t>(alpha);
      parms.fillAlpha = static_cast<std::uint8_t>(fillAlpha);
      parms.miterLimit = limit;
      pen.fillParmsNo = appendStyle(drawing->document(), kStyleFill, parms);
    }
    return pen;
  }
  __meas lineWidth() const { return {unit, measure}; }

  double mean() const { return (ky + kx) * 0.5; }
  double width() const { return measure == 0.0 ? 0.0001 * mean() : pixels(unit, measure) * mean(); }
  double pixels(std::uint32_t code, double value) const {
    const double factors[] = {
        1.0, x, x / 2.54, x / 2.54 / 10.0, x / 2.54 * 100.0, x * 12.0, x / 72.0, x / 1440.0, 1.0};
    return factors[code] * value;
  }
  std::string dashes() const {
    const double kLengths[] = {5.0, 3.0, 0.5};
    std::string list;
    for (const double length : kLengths) {
      const double shown =
          dashUnit == 14 ? pixels(3, length) * 200.0 / x : pixels(3, length) * mean();
      list += print(list.empty() ? "%.6f" : ",%.6f", shown);
    }
    return dashed ? "stroke-dasharray=\"" + list + "\" " : "";
  }
  std::string widthRule() const {
    return width() == 1.0 ? "" : print("; stroke-width:%.6f", width());
  }
  std::string widthAttribute() const {
    return width() == 1.0 ? "" : print("stroke-width=\"%.6f\" ", width());
  }
  /// Black and white change places.
  static unsigned shown(std::uint32_t word) {
    const std::uint32_t rgb = word & 0xffffffU;
    return rgb == 0 ? 0xffffffU : rgb == 0xffffffU ? 0U : rgb;
  }
  double fillOpacity(bool withParms) const {
    if (fillStyle != 1 && fillStyle != 2 && fillStyle != 3) return 0.0;
    if (withParms && hasParms) return fillAlpha / 255.0;
    return fillStyle == 3 ? 0.5 : 1.0;
  }
  bool hiddenStroke() const { return hasParms && alpha == 0; }

  std::string strokeRule(bool ofPolyline) const {
    std::string rule = print("fill:none; stroke:#%06x", shown(color));
    if (raster == 1) rule += "; stroke-opacity:0.50";
    rule += widthRule();
    if (ofPolyline && join == 0) rule += "; stroke-linejoin:round";
    if (ofPolyline && join == 11) rule += "; stroke-linejoin:bevel";
    if (!ofPolyline && cap == 0) rule += "; stroke-linecap:round";
    if (!ofPolyline && cap == 1) rule += "; stroke-linecap:square";
    return "      .strk1 { " + rule + " }";
  }
  std::string areaRule() const {
    const double opacity = fillOpacity(false);
    std::string rule = opacity == 0.0          ? "fill:none"
                       : shown(fillColor) != 0 ? print("fill:#%06x", shown(fillColor))
                                               : "";
    if (opacity == 0.5) rule += rule.empty() ? "fill-opacity:0.50" : "; fill-opacity:0.50";
    rule += print(rule.empty() ? "stroke:#%06x" : "; stroke:#%06x", shown(color)) + widthRule();
    if (evenOdd) rule += "; fill-rule:evenodd";
    if (join == 0) rule += "; stroke-linejoin:round";
    if (join == 11) rule += "; stroke-linejoin:bevel";
    return "      .stl1 { " + rule + " }";
  }
  std::string ownFillOpacity() const {
    const double opacity = fillOpacity(true);
    return opacity != 0.0 && opacity != 1.0 ? print("fill-opacity=\"%.2f\" ", opacity) : "";
  }
  std::string ownMiter() const {
    const int whole = static_cast<int>(limit);
    const bool told = hasParms && join != 0 && join != 11 && whole != 4;
    return told ? print("stroke-linejoin=\"miter\" stroke-miterlimit=\"%d\" ", whole) : "";
  }
  static std::string capAttribute(std::uint8_t code) {
    return code == 0 ? "stroke-linecap=\"round\" " : code == 1 ? "stroke-linecap=\"square\" " : "";
  }
  /// All of a line's, of a polyline's or of a shape's own attributes but its joins and caps.
  std::string ownStroke() const { return (hiddenStroke() ? "stroke=\"none\" " : "") + dashes(); }

  void expect(_egf_obj* object, const Lines& body, const Lines& rules) {
    drawing->tree.add(object);
    ASSERT_EQ(drawing->write(), 0);
    ASSERT_EQ(drawing->body(), body);
    ASSERT_EQ(drawing->rules(), rules);
  }

  std::optional<DrawingWriter> drawing;
  double x, y, kx, ky;
  std::uint32_t color, fillColor;
  std::uint8_t join, cap, raster, fillStyle, parmsCap;
  bool evenOdd, hasParms, dashed;
  int alpha, fillAlpha;
  float limit;
  std::uint32_t unit, dashUnit, dashStyle;
  double measure;

 private:
  std::uint32_t word() {
    const std::uint32_t kWords[] = {0, 0xffffff, 0x0000ff, 0x80ff0000, 0x123456, 0x00abcdef};
    return kWords[pick(6)];
  }

  std::mt19937 engine_;
};

double at(double factor, float spaceUnits) { return factor * double{spaceUnits} * 0.000244140625; }

TEST(PrintedObjects, Lines) {
  for (unsigned seed = 0; seed < kObjects; ++seed) {
    RandomPen s(seed);
    const Px from = s.point(), to = s.point();
    _egf_obj* object = edit<EgfLine>(line(from, to, s.linePen()),
                                     [&](EgfLine& r) { r.pen.lineWidth = s.lineWidth(); });
    const std::string expected =
        print("   <line class=\"strk1\" x1=\"%.2f\"  y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\" ",
              at(s.kx, spaceUnits(from.x)), at(s.ky, spaceUnits(from.y)),
              at(s.kx, spaceUnits(to.x)), at(s.ky, spaceUnits(to.y)));
    s.expect(object, {expected + s.ownStroke() + "/>"}, {s.strokeRule(false)});
    if (HasFatalFailure()) return;
  }
}

/// The points attribute, lines of five.
Lines pointLines(const RandomPen& s, const Points& points, std::string line, const char* full,
                 const char* rest, const std::string& end) {
  Lines lines;
  const std::size_t whole = points.size() - points.size() % 5;
  for (std::size_t i = 0; i < points.size(); ++i) {
    line += print(i < whole ? full : rest, at(s.kx, spaceUnits(points[i].x)),
                  at(s.ky, spaceUnits(points[i].y)));
    if (i >= whole || i % 5 != 4) continue;
    lines.push_back(line);
    line = "    ";
  }
  lines.push_back(line + end);
  return lines;
}

Points randomPoints(RandomPen& s) {
  Points points(1 + s.pick(12));
  for (Px& point : points) point = s.point();
  return points;
}

TEST(PrintedObjects, Polylines) {
  for (unsigned seed = 0; seed < kObjects; ++seed) {
    RandomPen s(seed);
    const Points points = randomPoints(s);
    _egf_obj* object = edit<EgfPolyline>(polyline(points, s.linePen()),
                                         [&](EgfPolyline& r) { r.pen.lineWidth = s.lineWidth(); });
    // A join that is not set is no miter here.
    const std::string miter = s.join == 3 ? "" : s.ownMiter();
    const std::string end = "\" " + s.ownStroke() + miter +
                            RandomPen::capAttribute(s.hasParms ? s.parmsCap : s.cap) + "/>";
    s.expect(object,
             pointLines(s, points, "   <polyline class=\"strk1\" points=\"", "%.1f,%.1f ",
                        "%.1f,%.1f ", end),
             {s.strokeRule(true)});
    if (HasFatalFailure()) return;
  }
}

TEST(PrintedObjects, Polygons) {
  for (unsigned seed = 0; seed < kObjects; ++seed) {
    RandomPen s(seed);
    const Points points = randomPoints(s);
    const bool closed = s.pick(2) == 0;
    _egf_obj* object = edit<EgfPolygon>(polygon(points, s.areaPen(closed)),
                                        [&](EgfPolygon& r) { r.pen.lineWidth = s.lineWidth(); });
    const std::string cap = closed       ? ""
                            : s.hasParms ? RandomPen::capAttribute(s.parmsCap)
                                         : RandomPen::capAttribute(0);
    const std::string end = "\" " + s.ownFillOpacity() + s.ownStroke() + s.ownMiter() + cap + "/>";
    const char* head =
        closed ? "   <polygon class=\"stl1\" points=\"" : "   <polyline class=\"stl1\" points=\"";
    s.expect(object,
             pointLines(s, points, head, closed ? "%.2f,%.2f " : "%.1f,%.1f ",
                        closed ? "%.3f,%.3f " : "%.1f,%.1f ", end),
             {s.areaRule()});
    if (HasFatalFailure()) return;
  }
}

TEST(PrintedObjects, EllipsesAndCircles) {
  for (unsigned seed = 0; seed < kObjects; ++seed) {
    RandomPen s(seed);
    const Px center = s.point();
    const Px radii = s.point();
    const bool round = s.pick(2) == 0;
    const auto rotation = static_cast<std::int32_t>(s.pick(3)) * 45500000;
    _egf_obj* object = edit<EgfEllipse>(
        ellipse(center.x, center.y, radii.x, round ? radii.x : radii.y, s.areaPen()),
        [&](EgfEllipse& r) {
          r.pen.lineWidth = s.lineWidth();
          r.pen.ellipseRotation = rotation;
        });
    const EgfEllipse record = *as<EgfEllipse>(object);
    const _mpl_spacept_tag c = record.center, e = record.radiusPt;
    const double dx = double{e.x} - double{c.x}, dy = double{e.y} - double{c.y};
    const bool circle = std::round(std::fabs(dx)) == std::round(std::fabs(dy));
    std::string line = print(circle ? "   <circle class=\"stl1\" cx=\"%.3f\"  cy=\"%.3f\" "
                                    : "   <ellipse class=\"stl1\" cx=\"%.3f\"  cy=\"%.3f\" ",
                             at(s.kx, c.x), at(s.ky, c.y));
    const double rx = std::fabs(std::trunc(dx)), ry = std::fabs(std::trunc(dy));
    line += circle ? print("r=\"%.3f\" ", s.mean() * rx * 0.000244140625)
                   : print("rx=\"%.3f\" ry=\"%.3f\" ", s.kx * rx * 0.000244140625,
                           s.ky * ry * 0.000244140625);
    line += s.ownFillOpacity();
    if (s.hiddenStroke()) line += "stroke=\"none\" ";
    if (!s.hiddenStroke()) line += s.widthAttribute();
    line += s.dashes() + " ";
    if (!circle && rotation != 0) {
      line += print(" transform=\"rotate(%f %ld %ld)\"", -static_cast<double>(rotation / 1000000),
                    static_cast<long>(at(s.kx, c.x)), static_cast<long>(at(s.ky, c.y)));
    }
    s.expect(object, {line + "/>"}, {s.areaRule()});
    if (HasFatalFailure()) return;
  }
}

TEST(PrintedObjects, Rectangles) {
  for (unsigned seed = 0; seed < kObjects; ++seed) {
    RandomPen s(seed);
    const Px from = s.point(), size = s.point();
    _egf_obj* object = edit<EgfPolygon>(box(from.x, from.y, size.x, size.y, s.areaPen()),
                                        [&](EgfPolygon& r) { r.pen.lineWidth = s.lineWidth(); });
    const PointArray p = as<EgfPolygon>(object)->points;
    double left = at(s.kx, p[0].x), top = at(s.ky, p[0].y);
    double width = (s.kx * double{p[2].x} - s.kx * double{p[0].x}) * 0.000244140625;
    double height = (s.kx * double{p[2].y} - s.kx * double{p[0].y}) * 0.000244140625;
    if (width < 0) left += width;
    if (height < 0) top += height;
    std::string line =
        print("   <rect x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\" ", static_cast<long>(left),
              static_cast<long>(top), static_cast<long>(std::fabs(width)),
              static_cast<long>(std::fabs(height)));
    if (s.fillOpacity(true) == 0.0) {
      line += "fill=\"none\" ";
    } else if (RandomPen::shown(s.fillColor) != 0) {
      line += print("fill=\"#%06x\" ", RandomPen::shown(s.fillColor));
    }
    line += s.ownFillOpacity();
    const double opacity = s.hasParms ? s.alpha / 255.0 : 1.0;
    line += s.hiddenStroke() ? "stroke=\"none\" "
                             : print("stroke=\"#%06x\" ", RandomPen::shown(s.color));
    if (opacity != 0.0 && opacity != 1.0) line += print("stroke-opacity=\"%.2f\" ", opacity);
    if (!s.hiddenStroke()) line += s.widthAttribute();
    line += s.dashes();
    if (s.join == 0) line += "stroke-linejoin=\"round\" ";
    if (s.join == 11) line += "stroke-linejoin=\"bevel\" ";
    s.expect(object, {line + s.ownMiter() + " />"}, {});
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace egfsvg
