#include "render/canvas.h"

#include "render/patterns.h"

namespace egfrender {
namespace {

using ExtentsCall = void (*)(cairo_t*, double*, double*, double*, double*);

void addExtents(Box& box, cairo_t* context, ExtentsCall extents) {
  Point first;
  Point last;
  extents(context, &first.x, &first.y, &last.x, &last.y);
  if (first.x == last.x && first.y == last.y) return;
  box.add(first);
  box.add(last);
}

}  // namespace

void Canvas::draw(const Fill& fillPaint, const Stroke& strokePaint) {
  if (fillPaint) {
    cairo_set_fill_rule(context_, fillPaint->rule);
    fill(*fillPaint);
  }
  if (strokePaint) {
    setPen(*strokePaint);
    stroke(*strokePaint);
  }
  cairo_new_path(context_);
}

void Canvas::setPen(const StrokePaint& stroke) {
  const double scale = placement_.scale;
  cairo_set_line_width(context_, stroke.width * scale);
  cairo_set_line_cap(context_, stroke.cap);
  cairo_set_line_join(context_, stroke.join);
  cairo_set_miter_limit(context_, stroke.miterLimit);
  std::vector<double> dashes = stroke.dashes;
  for (double& length : dashes) length *= scale;
  cairo_set_dash(context_, dashes.data(), static_cast<int>(dashes.size()), 0);
}

void PaintingCanvas::fill(const FillPaint& fill) {
  Box area;
  if (fill.paint.gradient) addExtents(area, context(), cairo_fill_extents);
  const Pattern pattern = patternOf(fill.paint, placement(), area);
  cairo_set_source(context(), pattern.get());
  cairo_fill_preserve(context());
}

void PaintingCanvas::stroke(const StrokePaint& stroke) {
  Box area;
  if (stroke.paint.gradient) addExtents(area, context(), cairo_stroke_extents);
  const Pattern pattern = patternOf(stroke.paint, placement(), area);
  cairo_set_source(context(), pattern.get());
  cairo_stroke_preserve(context());
}

void MeasuringCanvas::fill(const FillPaint&) { addExtents(box_, context(), cairo_fill_extents); }

void MeasuringCanvas::stroke(const StrokePaint&) {
  addExtents(box_, context(), cairo_stroke_extents);
}

}  // namespace egfrender
