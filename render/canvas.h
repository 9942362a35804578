// What objects are drawn on. Outlines are built in device pixels on the canvas's context, then
// filled and stroked; one canvas paints, another only measures.
#pragma once

#include <cairo.h>

#include "render/geometry.h"
#include "render/paints.h"

namespace egfrender {

class Canvas {
 public:
  Canvas(cairo_t* context, const Placement& placement) : context_(context), placement_(placement) {}
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  virtual ~Canvas() = default;

  cairo_t* context() const { return context_; }
  const Placement& placement() const { return placement_; }

  // Fills, then strokes the outline at hand and forgets it.
  void draw(const Fill& fill, const Stroke& stroke);

 protected:
  virtual void fill(const FillPaint& fill) = 0;        // keeps the outline
  virtual void stroke(const StrokePaint& stroke) = 0;  // pen and dashes are set

 private:
  void setPen(const StrokePaint& stroke);

  cairo_t* context_;
  Placement placement_;
};

// Paints on the context's surface.
class PaintingCanvas : public Canvas {
 public:
  using Canvas::Canvas;

 protected:
  void fill(const FillPaint& fill) override;
  void stroke(const StrokePaint& stroke) override;
};

// Takes the box of everything that would be painted, in device pixels.
class MeasuringCanvas : public Canvas {
 public:
  using Canvas::Canvas;

  const Box& box() const { return box_; }

 protected:
  void fill(const FillPaint& fill) override;
  void stroke(const StrokePaint& stroke) override;

 private:
  Box box_;
};

}  // namespace egfrender
