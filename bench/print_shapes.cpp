// The lines of shapes, written as a C program would.
#include <cstdio>
#include <stdexcept>

#include "bench/pens.h"
#include "bench/shapes.h"
#include "host/files.h"

namespace egfsvg::bench {
namespace {

constexpr std::size_t kPointsInLine = 5;

/// One line while it grows.
class PrintedLine {
 public:
  explicit PrintedLine(HostHandle stream) : stream_(stream) {}

  template <class... Args>
  PrintedLine& add(const char* format, Args... args) {
    used_ += static_cast<std::size_t>(
        std::snprintf(text_ + used_, sizeof text_ - used_, format, args...));
    return *this;
  }
  void put() {
    if (FLR_PutLine(text_, stream_) == -1) throw std::runtime_error("a line was not taken");
    used_ = 0;
  }

 private:
  HostHandle stream_;
  char text_[1024];
  std::size_t used_ = 0;
};

void printRect(const Shape& shape, PrintedLine& line) {
  const test::AreaPen& pen = areaPen(shape.pen);
  const test::Px corner = shape.points[0];
  const test::Px size = shape.points[1];
  line.add(
      "   <rect x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\" fill=\"#%06x\" "
      "stroke=\"#%06x\" stroke-width=\"%.6f\" stroke-linejoin=\"round\"  />",
      static_cast<long>(corner.x), static_cast<long>(corner.y), static_cast<long>(size.x),
      static_cast<long>(size.y), pen.fill, pen.stroke, pen.width);
  line.put();
}

void printLine(const Shape& shape, PrintedLine& line) {
  const test::Px from = shape.points[0];
  const test::Px to = shape.points[1];
  line.add("   <line class=\"strk%ld\" x1=\"%.2f\"  y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\" />",
           shape.style, from.x, from.y, to.x, to.y);
  line.put();
}

void printEllipse(const Shape& shape, PrintedLine& line) {
  const test::Px centre = shape.points[0];
  const test::Px radii = shape.points[1];
  line.add(
      "   <ellipse class=\"stl%ld\" cx=\"%.3f\"  cy=\"%.3f\" rx=\"%.3f\" ry=\"%.3f\" "
      "stroke-width=\"%.6f\"  />",
      shape.style, centre.x, centre.y, radii.x, radii.y, areaPen(shape.pen).width);
  line.put();
}

void printPoints(const Shape& shape, const char* full, const char* rest, PrintedLine& line) {
  const std::size_t count = shape.points.size();
  const std::size_t inFullLines = count - count % kPointsInLine;
  for (std::size_t i = 0; i < count; ++i) {
    line.add(i < inFullLines ? full : rest, shape.points[i].x, shape.points[i].y);
    if (i < inFullLines && i % kPointsInLine == kPointsInLine - 1) {
      line.put();
      line.add("    ");
    }
  }
  line.add("\" />");
  line.put();
}

void printPolyline(const Shape& shape, PrintedLine& line) {
  line.add("   <polyline class=\"strk%ld\" points=\"", shape.style);
  printPoints(shape, "%.1f,%.1f ", "%.1f,%.1f ", line);
}

void printPolygon(const Shape& shape, PrintedLine& line) {
  line.add("   <polygon class=\"stl%ld\" points=\"", shape.style);
  printPoints(shape, "%.2f,%.2f ", "%.3f,%.3f ", line);
}

void printShape(const Shape& shape, PrintedLine& line) {
  switch (shape.kind) {
    case ShapeKind::kRect:
      return printRect(shape, line);
    case ShapeKind::kLine:
      return printLine(shape, line);
    case ShapeKind::kEllipse:
      return printEllipse(shape, line);
    case ShapeKind::kPolyline:
      return printPolyline(shape, line);
    case ShapeKind::kPolygon:
      return printPolygon(shape, line);
    case ShapeKind::kGroup:
      line.add("  <g  >").put();
  }
}

}  // namespace

void printShapes(const std::vector<Shape>& shapes, HostHandle stream) {
  PrintedLine line(stream);
  std::size_t open = 0;
  for (const Shape& shape : shapes) {
    printShape(shape, line);
    if (shape.kind == ShapeKind::kGroup) {
      open = shape.children;
    } else if (open > 0) {
      --open;
    } else {
      continue;
    }
    if (open == 0) line.add("  </g>").put();
  }
}

}  // namespace egfsvg::bench
