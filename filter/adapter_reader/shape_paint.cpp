#include "adapter_reader/shape_paint.h"

#include "adapter_reader/paint_codes.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/svg_adapterreader.h"

namespace egfsvg {

const FilledForm kPolygonForm{
    offsetof(EgfPolygon, fillParmsNo), offsetof(EgfPolygon, fillGradientNo),
    offsetof(EgfPolygon, strokeGradientNo), &CAdapterReader::SetPgonGradientParms};
/// Kept: the number of a stroke's gradient is not stored here.
const FilledForm kShearedForm{offsetof(EgfPolygon, fillParmsNo),
                              offsetof(EgfPolygon, fillGradientNo), kNotKept,
                              &CAdapterReader::SetPgonGradientParms};
const FilledForm kEllipseForm{
    offsetof(EgfEllipse, fillParmsNo), offsetof(EgfEllipse, fillGradientNo),
    offsetof(EgfEllipse, strokeGradientNo), &CAdapterReader::SetElipsGradientParms};
const FilledForm kPathForm{offsetof(EgfPath, fillParmsNo), offsetof(EgfPath, fillGradientNo),
                           offsetof(EgfPath, strokeGradientNo),
                           &CAdapterReader::SetPathGradientParms};
const StrokedForm kLineForm{offsetof(EgfLine, strokeParmsNo), offsetof(EgfLine, strokeGradientNo),
                            lineAlpha, &CAdapterReader::SetLineGradientParms};
const StrokedForm kPolylineForm{offsetof(EgfPolyline, strokeParmsNo),
                                offsetof(EgfPolyline, strokeGradientNo), polylineAlpha,
                                &CAdapterReader::SetPlineGradientParms};

namespace {

void storeNumber(CAdapterReader& adapter, _egf_obj* object, std::size_t place, const auto& slot) {
  if (!slot) return;
  const std::uint32_t number = adapter.state.styles.number(adapter.document, *slot.get());
  if (place != kNotKept) writePacked(object, place, number);
}

template <class Parms>
bool runSetter(CAdapterReader& adapter, GradientSetter<Parms> setter, _viewPortMap* map,
               const _mpl_spacerect_tag& bounds, _egf_obj* object, StyleSlot<Parms>& parms,
               GradientSlot& ramp, _svg_gradient* gradient) {
  parms.open();  // a gradient always needs the record
  return (adapter.*setter)(map, bounds, object, parms.address(), ramp.address(), gradient) == 0;
}

std::uint32_t lineStyle(CAdapterReader& adapter, const _svg_pa_stroke& stroke) {
  if (stroke.strokeDashCount <= 0 || stroke.strokeDashArray == nullptr) return kLineSolid;
  return adapter.castLineStyle(stroke.strokeDashOffset, stroke.strokeDashArray,
                               stroke.strokeDashCount);
}

}  // namespace

template <auto kNeedsRecord>
void FilledPaint::setPen(FilledPen& pen) {
  _svg_pa_fill& fill = fill_;
  _svg_pa_stroke& stroke = stroke_;
  const double opacity = graphics_.opacity;
  pen.lineWidth = {kMeasureDevice, penWidth(adapter_, stroke.strokeWidth)};
  pen.lineStyle = lineStyle(adapter_, stroke);
  strokeCode_ = fillCode(stroke, opacity);
  fillCode_ = fillCode(fill, opacity);
  paintFilled<kNeedsRecord>(adapter_, pen, parms_, fill, stroke, graphics_);
}
template void FilledPaint::setPen<shapeNeedsRecord>(FilledPen& pen);
template void FilledPaint::setPen<pathNeedsRecord>(FilledPen& pen);

bool FilledPaint::runGradient(const FilledForm& form, _viewPortMap* map,
                              const _mpl_spacerect_tag& bounds, _egf_obj* object) {
  if (isGradientCode(fillCode_)) {
    return runSetter(adapter_, form.setGradient, map, bounds, object, parms_, fillRamp_,
                     fill_.fillGradient);
  }
  return !isGradientCode(strokeCode_) || runSetter(adapter_, form.setGradient, map, bounds, object,
                                                   parms_, strokeRamp_, stroke_.strokeGradient);
}

void FilledPaint::setFillStyle(FilledPen& pen) {
  pen.fillStyle = static_cast<std::uint8_t>(fillCode_);
  if (parms_) parms_.get()->strokeFillStyle = static_cast<std::uint32_t>(strokeCode_);
}

void FilledPaint::setJoin(FilledPen& pen, bool withLimit) {
  pen.joinStyle = static_cast<std::uint8_t>(adapter_.castJoinStyle(stroke_));
  if (withLimit && pen.joinStyle != kJoinRound) joinStyleTo(parms_, stroke_);
}

void FilledPaint::setCaps() { capStyleTo(parms_, adapter_.castLineCap(stroke_.strokeLinecap)); }

void FilledPaint::storeStyles(const FilledForm& form, _egf_obj* object) const {
  storeNumber(adapter_, object, form.fillParmsNo, parms_);
  storeNumber(adapter_, object, form.fillGradientNo, fillRamp_);
  storeNumber(adapter_, object, form.strokeGradientNo, strokeRamp_);
}

void StrokedPaint::setPen(StrokedPen& pen) {
  _svg_pa_stroke& stroke = stroke_;
  const double opacity = graphics_.opacity;
  pen.lineWidth = {kMeasureDevice, penWidth(adapter_, stroke.strokeWidth)};
  pen.lineStyle = lineStyle(adapter_, stroke);
  pen.rasterOp = static_cast<std::uint8_t>(rasterCode(stroke, opacity));
  strokeCode_ = fillCode(stroke, opacity);
  pen.capStyle = static_cast<std::uint8_t>(adapter_.castLineCap(stroke.strokeLinecap));
}

/// A butt cap stands in the extended record too.
bool StrokedPaint::setColour(const StrokedForm& form, _viewPortMap* map,
                             const _mpl_spacerect_tag& bounds, _egf_obj* object, StrokedPen& pen) {
  if (!isGradientCode(strokeCode_)) {
    paintStroked(adapter_, pen, form.alpha(stroke_, graphics_), parms_, stroke_);
  } else if (!runSetter(adapter_, form.setGradient, map, bounds, object, parms_, ramp_,
                        stroke_.strokeGradient)) {
    return false;
  }
  if (parms_) parms_.get()->strokeFillStyle = static_cast<std::uint8_t>(strokeCode_);
  if (pen.capStyle == kCapButt) capStyleTo(parms_, pen.capStyle);
  return true;
}

std::uint8_t StrokedPaint::setJoin() {
  const auto join = static_cast<std::uint8_t>(adapter_.castJoinStyle(stroke_));
  if (join != kJoinRound) joinStyleTo(parms_, stroke_);
  return join;
}

void StrokedPaint::storeStyles(const StrokedForm& form, _egf_obj* object) {
  storeNumber(adapter_, object, form.strokeParmsNo, parms_);
  storeNumber(adapter_, object, form.strokeGradientNo, ramp_);
}

}  // namespace egfsvg
