#include "tests/support/element_builder.h"

#include <utility>

namespace egfsvg::test {
namespace {

template <class Record>
Record initialised(void (*init)(Record*), TagCode type) {
  Record record;
  init(&record);
  record.head.type = type;
  return record;
}

_svg_value degrees(double number) { return {kUnitDegree, number, kAxisNone}; }

}  // namespace

_svg_rect svgRect(double x, double y, double width, double height, double rx, double ry) {
  _svg_rect record = initialised(initRect, kTagRect);
  record.x.value = x;
  record.y.value = y;
  record.width.value = width;
  record.height.value = height;
  record.rx.value = rx;
  record.ry.value = ry;
  return record;
}

_svg_circle svgCircle(double cx, double cy, double r) {
  _svg_circle record = initialised(initCircle, kTagCircle);
  record.cx.value = cx;
  record.cy.value = cy;
  record.r.value = r;
  return record;
}

_svg_ellipse svgEllipse(double cx, double cy, double rx, double ry) {
  _svg_ellipse record = initialised(initEllipse, kTagEllipse);
  record.cx.value = cx;
  record.cy.value = cy;
  record.rx.value = rx;
  record.ry.value = ry;
  return record;
}

_svg_line svgLine(double x1, double y1, double x2, double y2) {
  _svg_line record = initialised(initLine, kTagLine);
  record.x1.value = x1;
  record.y1.value = y1;
  record.x2.value = x2;
  record.y2.value = y2;
  return record;
}

std::vector<_svg_point> svgPoints(std::initializer_list<double> coordinates) {
  std::vector<_svg_point> points;
  for (auto at = coordinates.begin(); at != coordinates.end(); at += 2) {
    points.push_back({pixels(at[0], kAxisWidth), pixels(at[1], kAxisHeight)});
  }
  return points;
}

_svg_polyline svgPolyline(std::vector<_svg_point>& points) {
  _svg_polyline record = initialised(initPolyline, kTagPolyline);
  record.points = points.data();
  record.pointCount = static_cast<std::int32_t>(points.size());
  return record;
}

_svg_polygon svgPolygon(std::vector<_svg_point>& points) {
  _svg_polygon record = initialised(initPolygon, kTagPolygon);
  record.points = points.data();
  record.pointCount = static_cast<std::int32_t>(points.size());
  return record;
}

_svg_svg svgElement(double width, double height, _svg_viewbox* box, _svg_common* parent) {
  _svg_svg record = initialised(initSVGObj, kTagSvg);
  record.width = pixels(width, kAxisWidth);
  record.height = pixels(height, kAxisHeight);
  record.viewBox = box;
  record.head.parent = parent;
  return record;
}

_svg_viewbox svgViewBox(double x, double y, double width, double height) {
  _svg_viewbox box;
  initSVGViewbox(box);
  box.x.value = x;
  box.y.value = y;
  box.width.value = width;
  box.height.value = height;
  return box;
}

Transforms& Transforms::add(std::int32_t kind, std::vector<_svg_value> args) {
  functions_.push_back({kind, std::move(args)});
  return *this;
}

transformEntry* Transforms::entries() {
  entries_.clear();
  for (Function& function : functions_) {
    entries_.push_back(
        {function.kind, function.args.data(), static_cast<std::int32_t>(function.args.size())});
  }
  return entries_.data();
}

void Transforms::put(_svg_common& head) {
  head.transforms = entries();
  head.transformCount = count();
}

Transforms& Transforms::matrix(double a, double b, double c, double d, double e, double f) {
  return add(kMatrix, {pixels(a), pixels(b), pixels(c), pixels(d), pixels(e), pixels(f)});
}

Transforms& Transforms::translate(double x, double y) {
  return add(kTranslate, {pixels(x), pixels(y)});
}

Transforms& Transforms::scale(double x, double y) { return add(kScale, {pixels(x), pixels(y)}); }

Transforms& Transforms::rotate(double angle, double cx, double cy) {
  return add(kRotate, {degrees(angle), pixels(cx), pixels(cy)});
}

Transforms& Transforms::skewX(double angle) { return add(kSkewX, {degrees(angle)}); }

Transforms& Transforms::skewY(double angle) { return add(kSkewY, {degrees(angle)}); }

}  // namespace egfsvg::test
