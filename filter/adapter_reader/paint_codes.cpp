// Opacities to the style codes of lines and fills. A gradient leaves the colour of its last stop in
// the record it belongs to, so these run before colours are taken.

#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_codes.h"

namespace egfsvg {
namespace {

bool partial(double opacity) { return opacity > 0.0 && opacity < 1.0; }

const _svg_stop* lastStop(const _svg_gradient& gradient) {
  return gradient.stops == nullptr || gradient.stopCount < 1
             ? nullptr
             : &gradient.stops[gradient.stopCount - 1];
}

/// Whether a linear gradient's vector has a length. Kept: units are not looked at.
bool hasVector(const _svg_gradient& gradient) {
  const auto& vector = gradient.parms.linear;
  return vector.x1.value != vector.x2.value || vector.y1.value != vector.y2.value;
}

/// The code of a gradient with several stops; kFillOpaque stands for a linear one without length,
/// which is painted as its last stop.
int codeOfRamp(const _svg_gradient& gradient) {
  switch (gradient.head.type) {
    case kTagLinearGradient:
      return hasVector(gradient) ? kFillLinear : kFillOpaque;
    case kTagRadialGradient:
      return kFillRadial;
    default:
      return kFillDefault;
  }
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int CAdapterReader::castRasterOperat(double opacity) {
  if (opacity == 1.0) return kRasterOpaque;
  return partial(opacity) ? kRasterPartial : kRasterNone;
}

/// Kept: the element's own opacity counts only without a gradient.
int CAdapterReader::castRasterOperat(_svg_pa_stroke& stroke, _svg_pa_graphics graphics) {
  if (stroke.strokeGradient == nullptr) {
    return castRasterOperat(stroke.strokeOpacity * graphics.opacity);
  }
  const _svg_stop* stop = lastStop(*stroke.strokeGradient);
  stroke.strokeOpacity = 0.0;
  if (stop != nullptr) {
    stroke.strokeColor = stop->gradients.stopColor;
    stroke.strokeOpacity = stop->gradients.stopOpacity;
  }
  return castRasterOperat(stroke.strokeOpacity);
}

int CAdapterReader::castFillStyle(double opacity) {
  if (opacity == 1.0) return kFillOpaque;
  if (opacity == 0.0) return kFillNone;
  return partial(opacity) ? kFillPartial : kFillDefault;
}

int CAdapterReader::castFillStyle(_svg_pa_fill& fill, _svg_pa_graphics graphics) {
  if (fill.fillGradient == nullptr) return castFillStyle(fill.fillOpacity * graphics.opacity);
  const _svg_gradient& gradient = *fill.fillGradient;
  const _svg_stop* stop = lastStop(gradient);
  if (stop == nullptr) {
    fill.fillOpacity = 0.0;
    return kFillNone;
  }
  fill.fillColor = stop->gradients.stopColor;
  const int ramp = gradient.stopCount == 1 ? kFillOpaque : codeOfRamp(gradient);
  if (ramp != kFillOpaque) return ramp;
  fill.fillOpacity *= stop->gradients.stopOpacity;
  return castFillStyle(fill.fillOpacity * graphics.opacity);
}

/// A gradient switches the stroke on. Unlike a fill, one without stops changes nothing.
int CAdapterReader::castFillStyle(_svg_pa_stroke& stroke, _svg_pa_graphics graphics) {
  const _svg_stop* stop =
      stroke.strokeGradient == nullptr ? nullptr : lastStop(*stroke.strokeGradient);
  if (stop == nullptr) return castFillStyle(stroke.strokeOpacity * graphics.opacity);
  const _svg_gradient& gradient = *stroke.strokeGradient;
  stroke.strokeOpacity = 1.0;
  stroke.strokePresent = 1;
  stroke.strokeColor = stop->gradients.stopColor;
  const int ramp = gradient.stopCount == 1 ? kFillOpaque : codeOfRamp(gradient);
  if (ramp != kFillOpaque) return ramp;
  stroke.strokeOpacity = stop->gradients.stopOpacity;
  return castFillStyle(stroke.strokeOpacity * graphics.opacity);
}
