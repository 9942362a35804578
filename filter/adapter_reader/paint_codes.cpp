#include "adapter_reader/paint_codes.h"

#include "adapter_reader/svg_adapterreader.h"

namespace egfsvg {
namespace {

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

int gradientRasterCode(_svg_pa_stroke& stroke) {
  const _svg_stop* stop = lastStop(*stroke.strokeGradient);
  stroke.strokeOpacity = 0.0;
  if (stop != nullptr) {
    stroke.strokeColor = stop->gradients.stopColor;
    stroke.strokeOpacity = stop->gradients.stopOpacity;
  }
  return rasterCode(stroke.strokeOpacity);
}

int gradientFillCode(_svg_pa_fill& fill, double opacity) {
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
  return fillCode(fill.fillOpacity * opacity);
}

/// A gradient switches the stroke on. Unlike a fill, one without stops changes nothing.
int gradientFillCode(_svg_pa_stroke& stroke, double opacity) {
  const _svg_gradient& gradient = *stroke.strokeGradient;
  const _svg_stop* stop = lastStop(gradient);
  if (stop == nullptr) return fillCode(stroke.strokeOpacity * opacity);
  stroke.strokeOpacity = 1.0;
  stroke.strokePresent = 1;
  stroke.strokeColor = stop->gradients.stopColor;
  const int ramp = gradient.stopCount == 1 ? kFillOpaque : codeOfRamp(gradient);
  if (ramp != kFillOpaque) return ramp;
  stroke.strokeOpacity = stop->gradients.stopOpacity;
  return fillCode(stroke.strokeOpacity * opacity);
}

}  // namespace egfsvg

using namespace egfsvg;

int CAdapterReader::castRasterOperat(double opacity) { return rasterCode(opacity); }

int CAdapterReader::castRasterOperat(_svg_pa_stroke& stroke, _svg_pa_graphics graphics) {
  return rasterCode(stroke, graphics.opacity);
}

int CAdapterReader::castFillStyle(double opacity) { return fillCode(opacity); }

int CAdapterReader::castFillStyle(_svg_pa_fill& fill, _svg_pa_graphics graphics) {
  return fillCode(fill, graphics.opacity);
}

int CAdapterReader::castFillStyle(_svg_pa_stroke& stroke, _svg_pa_graphics graphics) {
  return fillCode(stroke, graphics.opacity);
}
