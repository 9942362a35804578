#include "render/patterns.h"

namespace egfrender {

Pattern patternOf(const Paint& paint, const Placement&) {
  const Colour& colour = paint.colour;
  return Pattern(cairo_pattern_create_rgba(colour.red, colour.green, colour.blue, colour.alpha));
}

}  // namespace egfrender
