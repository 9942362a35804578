#include "render/patterns.h"

#include "render/gradients.h"

namespace egfrender {

Pattern patternOf(const Paint& paint, const Placement& placement, const Box& area) {
  const Colour& colour = paint.colour;
  if (paint.gradient) {
    Pattern gradient = gradientPattern(*paint.gradient, colour.alpha, placement, area);
    if (gradient) return gradient;
  }
  return Pattern(cairo_pattern_create_rgba(colour.red, colour.green, colour.blue, colour.alpha));
}

}  // namespace egfrender
