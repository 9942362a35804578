// Questions that both string families ask of a paint. Comparisons are exact.
#pragma once

#include "model/groups.h"
#include "writer/line_builder.h"

namespace egfsvg {

inline constexpr std::int32_t kNoPaint = -1;         // of packedColor
inline constexpr std::int32_t kReferencePaint = -2;  // painted by the reference alone
inline constexpr std::int32_t kBlackPaint = 0;       // the default fill: not written
inline constexpr double kThinnest = 0.000001;        // widths below print with an exponent
inline constexpr double kUnsetWidth = -1.0;

/// Codes of caps, joins and fill rules, as records hold them.
enum CapCode : std::int32_t { kCapCodeButt = 1, kCapCodeRound = 2, kCapCodeSquare = 3 };
enum JoinCode : std::int32_t { kJoinCodeMiter = 1, kJoinCodeRound = 2, kJoinCodeBevel = 3 };
inline constexpr std::int32_t kRuleEvenOdd = 2;
inline constexpr std::int32_t kDefaultMiterLimit = 4;

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
