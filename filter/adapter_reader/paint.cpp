#include "adapter_reader/paint.h"

#include <algorithm>

#include "adapter_reader/palette_colour.h"
#include "adapter_reader/svg_adapterreader.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr double kFullAlpha = 255.0;

}  // namespace

void offerColour(CAdapterReader& adapter, std::uint32_t word) {
  adapter.UpdatePalette(colourOf(word));
}

Alphas alphasOf(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                const _svg_pa_graphics& graphics) {
  return {fill.fillOpacity * graphics.opacity, lineAlpha(stroke, graphics)};
}

double lineAlpha(const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics) {
  return stroke.strokePresent == 1 ? stroke.strokeOpacity * graphics.opacity : 0.0;
}

double polylineAlpha(const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics) {
  return stroke.strokePresent != 0 ? stroke.strokeOpacity * graphics.opacity : 0.0;
}

std::uint8_t alphaByte(double opacity) {
  return static_cast<std::uint8_t>(
      std::clamp(truncated<std::int32_t>(opacity * kFullAlpha), 0, 255));
}

void setColours(CAdapterReader& adapter, FilledPen& pen, const _svg_pa_fill& fill,
                const _svg_pa_stroke& stroke) {
  pen.fillColor = paletteColour(adapter, fill.fillColor);
  pen.strokeColor = stroke.strokePresent != 0 ? paletteColour(adapter, stroke.strokeColor)
                                              : _sel_RGB_type(pen.fillColor);
}

void setColour(CAdapterReader& adapter, StrokedPen& pen, const _svg_pa_stroke& stroke) {
  pen.strokeColor = paletteColour(adapter, stroke.strokeColor);
}

void setCaps(_egf_gdiplus_fillparms_tag* parms, int cap) {
  parms->startCap = static_cast<std::uint8_t>(cap);
  parms->endCap = static_cast<std::uint8_t>(cap);
}

void setCaps(_egf_gdiplus_stroke_parms_tag* parms, int cap) {
  parms->capStyle = static_cast<std::uint8_t>(cap);
}

}  // namespace egfsvg

using namespace egfsvg;

int CAdapterReader::SetPathFillAndStrokeColor(_egf_gdi_fillparms_tag* pen,
                                              _egf_gdiplus_fillparms_tag** slot, _svg_pa_fill& fill,
                                              _svg_pa_stroke& stroke, _svg_pa_graphics& graphics) {
  return paintFilled<pathNeedsRecord>(*this, filledPen(*pen), slot, fill, stroke, graphics);
}

int CAdapterReader::SetPgonFillAndStrokeColor(_egf_obj* object, _egf_gdiplus_fillparms_tag** slot,
                                              _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                              _svg_pa_graphics& graphics) {
  return paintFilled<shapeNeedsRecord>(*this, filledPen(as<EgfPolygon>(object)->pen), slot, fill,
                                       stroke, graphics);
}

int CAdapterReader::SetElipsFillAndStrokeColor(_egf_obj* object, _egf_gdiplus_fillparms_tag** slot,
                                               _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                               _svg_pa_graphics& graphics) {
  return paintFilled<shapeNeedsRecord>(*this, filledPen(as<EgfEllipse>(object)->pen), slot, fill,
                                       stroke, graphics);
}

int CAdapterReader::SetLineFillColor(_egf_obj* object, _egf_gdiplus_stroke_parms_tag** slot,
                                     _svg_pa_stroke& stroke, _svg_pa_graphics& graphics) {
  return paintStroked(*this, strokedPen(as<EgfLine>(object)->pen), lineAlpha(stroke, graphics),
                      slot, stroke);
}

int CAdapterReader::SetPlineFillColor(_egf_obj* object, _egf_gdiplus_stroke_parms_tag** slot,
                                      _svg_pa_stroke& stroke, _svg_pa_graphics& graphics) {
  return paintStroked(*this, strokedPen(as<EgfPolyline>(object)->pen),
                      polylineAlpha(stroke, graphics), slot, stroke);
}

int CAdapterReader::_setGdiPlusJoinStyle(_egf_gdiplus_fillparms_tag** slot,
                                         _svg_pa_stroke& stroke) {
  return joinStyleTo(slot, stroke);
}

int CAdapterReader::_setGdiPlusJoinStyle(_egf_gdiplus_stroke_parms_tag** slot,
                                         _svg_pa_stroke& stroke) {
  return joinStyleTo(slot, stroke);
}

int CAdapterReader::_setGdiPlusCapStyle(_egf_gdiplus_fillparms_tag** slot, _svg_pa_stroke& stroke) {
  return capStyleTo(slot, castLineCap(stroke.strokeLinecap));
}

int CAdapterReader::_setGdiPlusCapStyle(_egf_gdiplus_stroke_parms_tag** slot,
                                        _svg_pa_stroke& stroke) {
  return capStyleTo(slot, castLineCap(stroke.strokeLinecap));
}
