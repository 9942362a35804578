// Plain paint: colours, opacities, caps and joins of one shape, in the steps that every formatter
// takes. The setters of CAdapterReader are the same steps over a caller's slots.
#pragma once

#include "adapter_reader/painted_pens.h"
#include "adapter_reader/style_slots.h"
#include "host/egf_bits.h"
#include "model/groups.h"

class CAdapterReader;

namespace egfsvg {

/// The mode of a pen with a figure's bits and the bit of a fill rule.
inline std::uint8_t figureMode(std::uint8_t mode, unsigned figure, std::int32_t fillRule) {
  constexpr std::int32_t kEvenOdd = 2;
  return FillRuleBits::with(FigureBits::with(mode, figure), fillRule == kEvenOdd ? 1 : 0);
}

/// Opacities of a shape's two paints, its own opacity included.
struct Alphas {
  double fill;
  double stroke;  // 0 when nothing is stroked
};
Alphas alphasOf(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                const _svg_pa_graphics& graphics);

/// Whether the opacities ask for an extended record: of polygons and ellipses, and of paths.
inline bool shapeNeedsRecord(const Alphas& alphas) {
  return (alphas.fill > 0.0 && alphas.fill < 1.0) || alphas.stroke < 1.0;
}
inline bool pathNeedsRecord(const Alphas& alphas) {
  return alphas.fill < 1.0 || alphas.stroke < 1.0;
}

/// Opacity of a stroke-only shape: kept, lines want the stroke mark to be 1, polylines not 0.
double lineAlpha(const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics);
double polylineAlpha(const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics);

/// An opacity as a byte; what lies outside 0 to 1 ends at 0 or 255.
std::uint8_t alphaByte(double opacity);

void setColours(CAdapterReader& adapter, FilledPen& pen, const _svg_pa_fill& fill,
                const _svg_pa_stroke& stroke);
void setColour(CAdapterReader& adapter, StrokedPen& pen, const _svg_pa_stroke& stroke);

/// Sets colours and, through a slot of either kind, what opacities need. 0, or -1 out of memory.
template <auto kNeedsRecord, class Slot>
int paintFilled(CAdapterReader& adapter, FilledPen& pen, Slot&& slot, const _svg_pa_fill& fill,
                const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics) {
  setColours(adapter, pen, fill, stroke);
  const Alphas alphas = alphasOf(fill, stroke, graphics);
  if (!kNeedsRecord(alphas)) return 0;
  _egf_gdiplus_fillparms_tag* parms = openSlot(slot);
  if (parms == nullptr) return -1;
  parms->fillAlpha = alphaByte(alphas.fill);
  parms->strokeAlpha = alphaByte(alphas.stroke);
  return 0;
}

/// The same for a shape that is only stroked.
template <class Slot>
int paintStroked(CAdapterReader& adapter, StrokedPen& pen, double alpha, Slot&& slot,
                 const _svg_pa_stroke& stroke) {
  setColour(adapter, pen, stroke);
  if (!(alpha < 1.0)) return 0;
  _egf_gdiplus_stroke_parms_tag* parms = openSlot(slot);
  if (parms == nullptr) return -1;
  parms->strokeAlpha = alphaByte(alpha);
  return 0;
}

/// The miter limit and the caps that an extended record of either form carries.
template <class Slot>
int joinStyleTo(Slot&& slot, const _svg_pa_stroke& stroke) {
  auto* parms = openSlot(slot);
  if (parms == nullptr) return -1;
  parms->miterLimit = static_cast<float>(stroke.strokeMiterlimit);
  return 0;
}

void setCaps(_egf_gdiplus_fillparms_tag* parms, int cap);
void setCaps(_egf_gdiplus_stroke_parms_tag* parms, int cap);

template <class Slot>
int capStyleTo(Slot&& slot, int cap) {
  auto* parms = openSlot(slot);
  if (parms == nullptr) return -1;
  setCaps(parms, cap);
  return 0;
}

}  // namespace egfsvg
