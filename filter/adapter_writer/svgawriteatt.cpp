// Pens and fills of objects as the fill and stroke groups of elements.

#include "adapter_writer/colour_swap.h"
#include "adapter_writer/element_parts.h"
#include "host/egf_codes.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

constexpr double kOpaque = 1.0;
constexpr double kHalf = 0.5;
constexpr double kTransparent = 0.0;
constexpr double kAlphaSteps = 255.0;

/// The opacity of a fill by its style, with what full and partial mean.
double opacityOfFill(int fillStyle, double full, double partial) {
  switch (fillStyle) {
    case kFillOpaque:
    case kFillOpaqueAlternate:
    case kFillLinear:
    case kFillRadial:
      return full;
    case kFillPartial:
      return partial;
    default:
      return kTransparent;
  }
}

bool isGradientFill(int fillStyle) { return fillStyle == kFillLinear || fillStyle == kFillRadial; }

/// Opacities of an element from its extended parameters, or without them by the fill style alone.
void setOpacities(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                  const _egf_gdiplus_fillparms_tag* parms, int fillStyle) {
  const double fillAlpha = parms == nullptr ? kOpaque : parms->fillAlpha / kAlphaSteps;
  fill.fillOpacity = opacityOfFill(fillStyle, fillAlpha, parms == nullptr ? kHalf : fillAlpha);
  stroke.strokeOpacity = parms == nullptr ? kOpaque : parms->strokeAlpha / kAlphaSteps;
}

/// A reference takes the place of the colour.
void setStrokeReference(CAdapterWriter& writer, _svg_pa_stroke& stroke, int gradient) {
  stroke.packedColor = kReferencePaint;
  stroke.strokeUrl = ownedNumber(writer, gradient);
}

/// The class holds the colour, unless the stroke is to be told away.
template <class Parms>
std::int32_t classStrokeColour(const Parms* parms, _sel_RGB_type color) {
  return parms != nullptr && parms->strokeAlpha == 0 ? swappedColour(color) : kNoPaint;
}

template <class Parms>
void setStrokeOpacity(_svg_pa_stroke& stroke, const Parms* parms, int rasterOp) {
  const double byRaster = rasterOp == kRasterPartial ? kHalf : kOpaque;
  stroke.strokeOpacity = parms == nullptr ? byRaster : parms->strokeAlpha / kAlphaSteps;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

/// A gradient's paint is the element's, not the class's.
void CAdapterWriter::_setStyleFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                            int fillStyle, _sel_RGB_type fillColor,
                                            _sel_RGB_type strokeColor) {
  _setObjFillAndStroke(fill, stroke, nullptr, fillStyle, fillColor, strokeColor);
}

void CAdapterWriter::_setObjFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                          const _egf_gdiplus_fillparms_tag* parms, int fillStyle,
                                          _sel_RGB_type fillColor, _sel_RGB_type strokeColor) {
  fill.packedColor = isGradientFill(fillStyle) ? kNoPaint : swappedColour(fillColor);
  stroke.packedColor = swappedColour(strokeColor);
  setOpacities(fill, stroke, parms, fillStyle);
}

/// For an element whose class holds its colours.
void CAdapterWriter::_setObjFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                          const _egf_gdiplus_fillparms_tag* parms, int fillStyle,
                                          _sel_RGB_type, _sel_RGB_type strokeColor,
                                          int fillGradient, int strokeGradient) {
  fill.packedColor = fillGradient == 0 ? kNoPaint : kReferencePaint;
  if (fillGradient != 0) fill.fillUrl = ownedNumber(*this, fillGradient);
  if (strokeGradient != 0) {
    setStrokeReference(*this, stroke, strokeGradient);
  } else {
    stroke.packedColor = classStrokeColour(parms, strokeColor);
  }
  setOpacities(fill, stroke, parms, fillStyle);
}

void CAdapterWriter::_setStyleStroke(_svg_pa_stroke& stroke, int rasterOp, _sel_RGB_type color) {
  stroke.packedColor = swappedColour(color);
  setStrokeOpacity<_egf_gdiplus_stroke_parms_tag>(stroke, nullptr, rasterOp);
}

void CAdapterWriter::_setObjStroke(_svg_pa_stroke& stroke,
                                   const _egf_gdiplus_stroke_parms_tag* parms, int rasterOp,
                                   _sel_RGB_type color, int gradient) {
  if (gradient != 0) {
    setStrokeReference(*this, stroke, gradient);
  } else {
    stroke.packedColor = classStrokeColour(parms, color);
  }
  setStrokeOpacity(stroke, parms, rasterOp);
}

void CAdapterWriter::_setArcObjStroke(_svg_pa_stroke& stroke,
                                      const _egf_gdiplus_arcparms_tag* parms, int rasterOp,
                                      _sel_RGB_type color, int gradient) {
  if (gradient != 0) {
    setStrokeReference(*this, stroke, gradient);
  } else {
    stroke.packedColor = swappedColour(color);
  }
  setStrokeOpacity(stroke, parms, rasterOp);
}
