#include "adapter_reader/plain_paint.h"

#include "adapter_reader/paint.h"
#include "adapter_reader/paint_codes.h"
#include "adapter_reader/palette_colour.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"

namespace egfsvg {
namespace {

/// An extended record that is there once something has asked for it.
template <class Record>
class PlainRecord {
 public:
  Record& open() {
    if (!isOpen_) record_ = templateOf(&record_);
    isOpen_ = true;
    return record_;
  }
  bool isOpen() const { return isOpen_; }

  /// Its number in the document, when it is there. Offering it is the last thing that happens.
  std::uint32_t number(CAdapterReader& adapter) const {
    return isOpen_ ? adapter.state.styles.number(adapter.document, record_) : 0;
  }

 private:
  Record record_;
  bool isOpen_ = false;
};
using FillRecord = PlainRecord<_egf_gdiplus_fillparms_tag>;
using StrokeRecord = PlainRecord<_egf_gdiplus_stroke_parms_tag>;

std::uint32_t lineStyle(CAdapterReader& adapter, const _svg_pa_stroke& stroke) {
  if (stroke.strokeDashCount <= 0 || stroke.strokeDashArray == nullptr) [[likely]]
    return kLineSolid;
  return adapter.castLineStyle(stroke.strokeDashOffset, stroke.strokeDashArray,
                               stroke.strokeDashCount);
}

template <class Pen>
[[gnu::always_inline]] inline void setLine(CAdapterReader& adapter, const _svg_pa_stroke& stroke,
                                           Pen& pen) {
  pen.lineWidth = {kMeasureDevice, PixelScale(adapter).pixels(stroke.strokeWidth)};
  pen.lineStyle = lineStyle(adapter, stroke);
}

/// Colours, codes and opacities.
template <auto kNeedsRecord>
[[gnu::always_inline]] inline void paintFilled(CAdapterReader& adapter, const _svg_pa_fill& fill,
                                               const _svg_pa_stroke& stroke,
                                               const _svg_pa_graphics& graphics, FilledPen& pen,
                                               FillRecord& record) {
  setLine(adapter, stroke, pen);
  const double fillAlpha = fill.fillOpacity * graphics.opacity;
  const double strokeAlpha = stroke.strokeOpacity * graphics.opacity;
  pen.fillColor = paletteColour(adapter, fill.fillColor);
  pen.strokeColor = stroke.strokePresent != 0 ? paletteColour(adapter, stroke.strokeColor)
                                              : _sel_RGB_type(pen.fillColor);
  pen.fillStyle = static_cast<std::uint8_t>(fillCode(fillAlpha));
  const Alphas alphas{fillAlpha, stroke.strokePresent == 1 ? strokeAlpha : 0.0};
  if (kNeedsRecord(alphas)) {
    record.open().fillAlpha = alphaByte(alphas.fill);
    record.open().strokeAlpha = alphaByte(alphas.stroke);
  }
  if (record.isOpen()) {
    record.open().strokeFillStyle = static_cast<std::uint32_t>(fillCode(strokeAlpha));
  }
}

/// Raster code, caps, colour, opacity and what butt caps ask for.
[[gnu::always_inline]] inline void paintStroked(CAdapterReader& adapter,
                                                const _svg_pa_stroke& stroke, double opacity,
                                                bool isPresent, StrokedPen& pen,
                                                StrokeRecord& record) {
  setLine(adapter, stroke, pen);
  const double alpha = stroke.strokeOpacity * opacity;
  pen.rasterOp = static_cast<std::uint8_t>(rasterCode(alpha));
  const int cap = adapter.castLineCap(stroke.strokeLinecap);
  pen.capStyle = static_cast<std::uint8_t>(cap);
  pen.strokeColor = paletteColour(adapter, stroke.strokeColor);
  const double seen = isPresent ? alpha : 0.0;
  if (seen < 1.0) {
    record.open().strokeAlpha = alphaByte(seen);
    record.open().strokeFillStyle = static_cast<std::uint8_t>(fillCode(alpha));
  }
  if (cap == kCapButt) setCaps(&record.open(), cap);
}

/// The code of the join. Where corners are not round, the extended record holds the miter limit.
template <class Record>
[[gnu::always_inline]] inline std::uint8_t joinOf(const _svg_pa_stroke& stroke, Record& record) {
  const int join = joinCode(stroke.strokeLinejoin);
  if (join != kJoinRound) {
    record.open().miterLimit = static_cast<float>(stroke.strokeMiterlimit);
  }
  return static_cast<std::uint8_t>(join);
}

}  // namespace

void paintPlainPolygon(CAdapterReader& adapter, const _svg_pa_fill& fill,
                       const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics,
                       unsigned figure, EgfPolygon* polygon) {
  FilledPen& pen = filledPen(polygon->pen);
  pen.modeFlags = figureMode(pen.modeFlags, figure, fill.fillRule);
  polygon->pen.scaleFactor = 1.0;
  FillRecord record;
  paintFilled<shapeNeedsRecord>(adapter, fill, stroke, graphics, pen, record);
  pen.joinStyle = joinOf(stroke, record);
  if (figure == kFigureOpen && pen.lineStyle == kLineSolid) {
    setCaps(&record.open(), adapter.castLineCap(stroke.strokeLinecap));
  }
  polygon->fillParmsNo = record.number(adapter);
}

void paintPlainEllipse(CAdapterReader& adapter, const _svg_pa_fill& fill,
                       const _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics,
                       EgfEllipse* ellipse) {
  FillRecord record;
  paintFilled<shapeNeedsRecord>(adapter, fill, stroke, graphics, filledPen(ellipse->pen), record);
  ellipse->fillParmsNo = record.number(adapter);
}

/// The extended record is always there.
void paintPlainPath(CAdapterReader& adapter, const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                    const _svg_pa_graphics& graphics, _egf_gdi_fillparms_tag& pen, EgfPath* path) {
  FillRecord record;
  record.open();
  paintFilled<pathNeedsRecord>(adapter, fill, stroke, graphics, filledPen(pen), record);
  pen.joinStyle = joinOf(stroke, record);
  if (path->pathKind != kPathClosedFigure) {
    setCaps(&record.open(), adapter.castLineCap(stroke.strokeLinecap));
  }
  path->gdiFillStyleNo = adapter.state.styles.number(adapter.document, pen);
  path->fillParmsNo = record.number(adapter);
}

void paintPlainLine(CAdapterReader& adapter, const _svg_pa_stroke& stroke,
                    const _svg_pa_graphics& graphics, EgfLine* line) {
  StrokeRecord record;
  paintStroked(adapter, stroke, graphics.opacity, stroke.strokePresent == 1, strokedPen(line->pen),
               record);
  line->strokeParmsNo = record.number(adapter);
}

void paintPlainPolyline(CAdapterReader& adapter, const _svg_pa_stroke& stroke,
                        const _svg_pa_graphics& graphics, EgfPolyline* polyline) {
  StrokeRecord record;
  paintStroked(adapter, stroke, graphics.opacity, stroke.strokePresent != 0,
               strokedPen(polyline->pen), record);
  polyline->pen.joinStyle = joinOf(stroke, record);
  polyline->strokeParmsNo = record.number(adapter);
}

}  // namespace egfsvg
