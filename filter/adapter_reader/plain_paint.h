// Paint without gradients, which nearly all shapes have. Each step follows from the values alone,
// so a shape is painted in one go: pen, then the extended record when something asks for it. The
// long way is FilledPaint and StrokedPaint, which give the same for shapes that both can paint.
#pragma once

#include "host/egf_objects.h"
#include "model/groups.h"

class CAdapterReader;

namespace egfsvg {

inline bool isPlain(const _svg_pa_stroke& stroke) { return stroke.strokeGradient == nullptr; }
inline bool isPlain(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke) {
  return fill.fillGradient == nullptr && isPlain(stroke);
}

/// Paints an object whose pen is as its template; its style numbers are zeros. The figure is open
/// or closed; an open one without dashes gets its caps.
void paintPlainPolygon(CAdapterReader& adapter, const _svg_pa_fill& fill,
                       const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics,
                       unsigned figure, EgfPolygon* polygon);
void paintPlainEllipse(CAdapterReader& adapter, const _svg_pa_fill& fill,
                       const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics,
                       EgfEllipse* ellipse);
/// A path's pen is a style record; `pen` is its template.
void paintPlainPath(CAdapterReader& adapter, const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                    const _svg_pa_graphics& graphics, _egf_gdi_fillparms_tag& pen, EgfPath* path);
void paintPlainLine(CAdapterReader& adapter, const _svg_pa_stroke& stroke,
                    const _svg_pa_graphics& graphics, EgfLine* line);
void paintPlainPolyline(CAdapterReader& adapter, const _svg_pa_stroke& stroke,
                        const _svg_pa_graphics& graphics, EgfPolyline* polyline);

}  // namespace egfsvg
