// Opacities to the style codes of lines and fills. A gradient leaves the colour of its last stop in
// the record it belongs to, so codes of paints are taken before their colours.
#pragma once

#include "host/egf_codes.h"
#include "model/groups.h"

namespace egfsvg {

constexpr bool isPartial(double opacity) { return opacity > 0.0 && opacity < 1.0; }

constexpr int rasterCode(double opacity) {
  if (opacity == 1.0) return kRasterOpaque;
  return isPartial(opacity) ? kRasterPartial : kRasterNone;
}

constexpr int fillCode(double opacity) {
  if (opacity == 1.0) return kFillOpaque;
  if (opacity == 0.0) return kFillNone;
  return isPartial(opacity) ? kFillPartial : kFillDefault;
}

/// What `castJoinStyle` gives.
int joinCode(int strokeLinejoin);

/// The codes of paints that have a gradient.
int gradientRasterCode(_svg_pa_stroke& stroke);
int gradientFillCode(_svg_pa_fill& fill, double opacity);
int gradientFillCode(_svg_pa_stroke& stroke, double opacity);

/// The codes of any paint, on an element of some opacity. Kept: that counts in a raster code only
/// without a gradient.
inline int rasterCode(_svg_pa_stroke& stroke, double opacity) {
  return stroke.strokeGradient == nullptr ? rasterCode(stroke.strokeOpacity * opacity)
                                          : gradientRasterCode(stroke);
}
inline int fillCode(_svg_pa_fill& fill, double opacity) {
  return fill.fillGradient == nullptr ? fillCode(fill.fillOpacity * opacity)
                                      : gradientFillCode(fill, opacity);
}
inline int fillCode(_svg_pa_stroke& stroke, double opacity) {
  return stroke.strokeGradient == nullptr ? fillCode(stroke.strokeOpacity * opacity)
                                          : gradientFillCode(stroke, opacity);
}

}  // namespace egfsvg
