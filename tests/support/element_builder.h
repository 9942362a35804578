// Element records by hand, as the reader would hand them over, so that a test of the adapter reads
// as a table. Lengths are SVG pixels unless a unit is named.
#pragma once

#include <initializer_list>
#include <vector>

#include "model/elements.h"
#include "model/lifecycle.h"

namespace egfsvg::test {

// Colours as the records hold them: black and white are exchanged.
inline constexpr _svg_color kRed{255, 0, 0, 0};
inline constexpr _svg_color kBlue{0, 0, 255, 0};

_svg_rect svgRect(double x, double y, double width, double height, double rx = 0.0,
                  double ry = 0.0);
_svg_circle svgCircle(double cx, double cy, double r);
_svg_ellipse svgEllipse(double cx, double cy, double rx, double ry);
_svg_line svgLine(double x1, double y1, double x2, double y2);

// Points in pairs; they live in the vector.
std::vector<_svg_point> svgPoints(std::initializer_list<double> coordinates);
_svg_polyline svgPolyline(std::vector<_svg_point>& points);
_svg_polygon svgPolygon(std::vector<_svg_point>& points);

// A root svg of a size in pixels, or a nested one when it has a parent.
_svg_svg svgElement(double width, double height, _svg_viewbox* box = nullptr,
                    _svg_common* parent = nullptr);
_svg_viewbox svgViewBox(double x, double y, double width, double height);

// Paints as the reader leaves them.
template <class Element>
Element filled(Element element, const _svg_color& colour) {
  element.fill.fillColor = colour;
  return element;
}
template <class Element>
Element stroked(Element element, const _svg_color& colour, double width = 1.0) {
  element.stroke.strokeColor = colour;
  element.stroke.strokePresent = 1;
  element.stroke.strokeWidth = pixels(width);
  return element;
}
// What the reader does to a shape that is not stroked before it sends it.
template <class Element>
Element unstroked(Element element) {
  checkStrokeConsistence(element.stroke);
  return element;
}

// A transform list that an element can point at while this lives.
class Transforms {
 public:
  Transforms& matrix(double a, double b, double c, double d, double e, double f);
  Transforms& translate(double x, double y = 0.0);
  Transforms& scale(double x, double y);
  Transforms& rotate(double degrees, double cx = 0.0, double cy = 0.0);
  Transforms& skewX(double degrees);
  Transforms& skewY(double degrees);
  Transforms& add(std::int32_t kind, std::vector<_svg_value> args);

  // The element with this list.
  template <class Element>
  Element on(Element element) {
    put(element.head);
    return element;
  }
  void put(_svg_common& head);

  transformEntry* entries();
  std::int32_t count() const { return static_cast<std::int32_t>(functions_.size()); }

 private:
  struct Function {
    std::int32_t kind;
    std::vector<_svg_value> args;
  };
  std::vector<Function> functions_;
  std::vector<transformEntry> entries_;  // point into functions_; made when they are asked for
};

}  // namespace egfsvg::test
