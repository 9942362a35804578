// Questions that both string families ask of a paint. Comparisons are exact.
#pragma once

#include "model/groups.h"
#include "model/paint_codes.h"
#include "writer/line_builder.h"

namespace egfsvg {

inline constexpr double kThinnest = 0.000001;  // widths below print with an exponent

/// The dash lengths, joined by commas.
void addDashList(const _svg_pa_stroke& stroke, LineBuilder& out);

inline bool hasColour(std::int32_t packedColor) {
  return packedColor != kNoPaint && packedColor != kReferencePaint;
}
inline bool isPartial(double opacity) { return opacity < 1.0 && opacity != 0.0; }
inline bool isInvisible(double opacity, double graphicsOpacity) {
  return opacity == 0.0 || graphicsOpacity == 0.0;
}
inline bool hasWidth(const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics) {
  const double width = stroke.strokeWidth.value;
  return width != kUnsetWidth && width != 1.0 &&
         !isInvisible(stroke.strokeOpacity, graphics.opacity);
}

}  // namespace egfsvg
