// Outlines of single objects, added to the path of a canvas.
#pragma once

#include <cairo.h>

#include <span>

#include "host/egf_objects.h"
#include "render/geometry.h"

namespace egfrender {

// Builds a path in device pixels from page pixels.
class Outline {
 public:
  Outline(cairo_t* context, const Placement& placement)
      : context_(context), placement_(placement) {}

  void moveTo(Point point);
  void lineTo(Point point);
  void curveTo(Point control1, Point control2, Point end);
  void close();

  // The next point that joins begins a new sub-path.
  void startFigure() { open_ = false; }

  // Goes on from where the outline is: a new sub-path when there is none, else a line, left out
  // when the point is where the outline already ends.
  void joinTo(Point point);

 private:
  cairo_t* context_;
  Placement placement_;
  Point current_;  // page pixels
  bool open_ = false;
};

// Points as straight lines; the first joins what is there.
void addPoints(Outline& outline, std::span<const _mpl_spacept_tag> points);

// A chain of cubic curves of 3k + 1 points; the first joins what is there. Left-over points are
// ignored.
void addCurves(Outline& outline, std::span<const _mpl_spacept_tag> points);

// A part of an ellipse. Angles are host angles, millionths of a degree counter-clockwise and seen
// from the centre; the arc runs counter-clockwise from start to end, a whole turn when they agree.
struct EllipseArc {
  Point center;  // page pixels
  double rx = 0;
  double ry = 0;
  std::int32_t start = 0;
  std::int32_t end = egfsvg::kFullTurn;
  std::int32_t rotation = 0;  // of the axes
  bool backwards = false;     // drawn from end to start

  bool isWhole() const { return (end - static_cast<std::int64_t>(start)) % egfsvg::kFullTurn == 0; }
};

// The arc's curves; its first point joins what is there.
void addArc(Outline& outline, const EllipseArc& arc);

}  // namespace egfrender
