// Shapes that are written two ways: as a tree of drawing objects through the filter, and one line
// after the other with snprintf.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/wire.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::bench {

enum class ShapeKind { kRect, kLine, kEllipse, kPolyline, kPolygon, kGroup };

struct Shape {
  ShapeKind kind = ShapeKind::kGroup;
  std::size_t pen = 0;       // of pens.h
  long style = 0;            // the number of the class that the pen is pooled as
  test::Points points = {};  // pixels; a corner and a size, two ends, a centre and radii, or points
  std::size_t children = 0;  // of a group: so many shapes behind it stand in it
};

struct Family {
  const char* name;
  std::vector<ShapeKind> kinds;  // taken in turn
};

/// The families that are measured; the last one has all kinds, ten to a group.
const std::vector<Family>& families();

/// So many shapes of a family, the same in each run. Coordinates are whole space units.
std::vector<Shape> makeShapes(const Family& family, std::size_t count);

/// The shapes as the drawing of a document.
void giveTo(HostHandle document, const std::vector<Shape>& shapes);

/// Prints each shape's lines with snprintf and puts them to the stream. Throws std::runtime_error
/// when a line is not taken.
void printShapes(const std::vector<Shape>& shapes, HostHandle stream);

}  // namespace egfsvg::bench
