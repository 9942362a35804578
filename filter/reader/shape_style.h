// The properties that every shape has: fill, stroke and graphics stand side by side in its record,
// at one place in all of them.
#pragma once

#include <cstddef>

#include "model/elements.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

struct ShapeStyle {
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;

  bool ownsNothing() const {
    return allNull(fill.fillUrl, stroke.strokeDashArray, stroke.strokeUrl, graphics.clipPath,
                   graphics.cursor, graphics.filter, graphics.mask);
  }
};

inline constexpr std::size_t kShapeStyleAt = sizeof(_svg_common);

template <class Shape>
constexpr bool hasShapeStyle() {
  return offsetof(Shape, fill) == kShapeStyleAt + offsetof(ShapeStyle, fill) &&
         offsetof(Shape, stroke) == kShapeStyleAt + offsetof(ShapeStyle, stroke) &&
         offsetof(Shape, graphics) == kShapeStyleAt + offsetof(ShapeStyle, graphics);
}

static_assert(hasShapeStyle<_svg_path>() && hasShapeStyle<_svg_rect>() &&
              hasShapeStyle<_svg_circle>() && hasShapeStyle<_svg_ellipse>() &&
              hasShapeStyle<_svg_line>() && hasShapeStyle<_svg_polyline>() &&
              hasShapeStyle<_svg_polygon>());
static_assert(kTagPolygon - kTagPath == 6, "the shapes' codes stand side by side");

/// The style in a shape's record; null for a record of another type.
inline ShapeStyle* shapeStyleOf(void* record, int type) {
  if (type < kTagPath || type > kTagPolygon) return nullptr;
  return reinterpret_cast<ShapeStyle*>(static_cast<char*>(record) + kShapeStyleAt);
}

}  // namespace egfsvg
