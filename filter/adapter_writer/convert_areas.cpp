// Rectangles, circles and ellipses.

#include <cmath>
#include <cstddef>
#include <cstring>

#include "adapter_writer/element_parts.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kOppositeCorner = 2;

/// The bytes that a pool holds of an ellipse's pen: its rotation is among them, so that equal pens
/// of turned ellipses are two classes.
PooledFill pooledFill(const EgfEllipse& ellipse) {
  constexpr std::size_t kPenOffset = offsetof(EgfEllipse, pen);
  static_assert(kPenOffset + kPooledFillSize <= sizeof(EgfEllipse));
  PooledFill pooled{};
  std::memcpy(&pooled, reinterpret_cast<const char*>(&ellipse) + kPenOffset, sizeof pooled);
  return pooled;
}

/// A gradient of a rectangle takes the place of its colour.
void setRectGradients(CAdapterWriter& writer, const EgfPolygon& polygon,
                      const _egf_gdiplus_fillparms_tag* parms, _svg_rect* record) {
  const PointArray points = polygon.gradPts;
  const int fill = writer.STYLE_GradParmsAppendUnique(parms, polygon.fillGradientNo, points.get(),
                                                      polygon.gradPtCount);
  if (fill != 0) {
    record->fill.packedColor = kReferencePaint;
    record->fill.fillUrl = ownedNumber(writer, fill);
  }
  const int stroke = writer.STYLE_GradParmsAppendUnique(parms, polygon.strokeGradientNo,
                                                        points.get(), polygon.gradPtCount);
  if (stroke != 0) {
    record->stroke.packedColor = kReferencePaint;
    record->stroke.strokeUrl = ownedNumber(writer, stroke);
  }
}

/// A radius in whole space units.
double wholeRadius(float edge, float center) {
  return std::fabs(static_cast<double>(shownInteger(double{edge} - double{center})));
}

/// Class, gradients, paints, width and dashes of a circle or an ellipse.
template <class Record>
void setEllipsePaint(CAdapterWriter& writer, const EgfEllipse& ellipse,
                     const _egf_gdiplus_fillparms_tag* parms, Record* record) {
  const PooledFill pooled = pooledFill(ellipse);
  setPooledClass(writer, kFillPool, &pooled, record->head);
  const PointArray points = ellipse.gradPts;
  const int fill = writer.STYLE_GradParmsAppendUnique(parms, ellipse.fillGradientNo, points.get(),
                                                      ellipse.gradPtCount);
  const int stroke = writer.STYLE_GradParmsAppendUnique(parms, ellipse.strokeGradientNo,
                                                        points.get(), ellipse.gradPtCount);
  const EgfEllipsePen pen = ellipse.pen;
  writer._setObjFillAndStroke(record->fill, record->stroke, parms, pen.fillStyle, pen.fillColor,
                              pen.strokeColor, fill, stroke);
  writer._setStrokeWidth(record->stroke, pen.lineWidth);
  writer._setStrokeDashArray(record->stroke, pen.lineStyle);
}

const _egf_gdiplus_fillparms_tag* fillParms(const CAdapterWriter& writer, std::uint32_t number) {
  return documentRecord<_egf_gdiplus_fillparms_tag>(writer, kStyleFill, number);
}

}  // namespace
}  // namespace egfsvg

/// Kept: the height is scaled like the width.
void CAdapterWriter::SetSVGRect(_egf_obj* object, _svg_rect* record) {
  using namespace egfsvg;
  const auto& polygon = *as<EgfPolygon>(object);
  initRect(record);
  const auto* parms = fillParms(*this, polygon.fillParmsNo);
  const UserScale scale = scaleOf(*this);
  const _mpl_spacept_tag from = polygon.points[0];
  const _mpl_spacept_tag to = polygon.points[kOppositeCorner];
  setPixels(record->x, scale.x(from.x));
  setPixels(record->y, scale.y(from.y));
  setPixels(record->width, scale.acrossX(from.x, to.x));
  setPixels(record->height, scale.acrossX(from.y, to.y));
  turnForward(record->x, record->width);
  turnForward(record->y, record->height);
  const _egf_gdi_fillparms_tag pen = polygon.pen;
  _setObjFillAndStroke(record->fill, record->stroke, parms, pen.fillStyle, pen.fillColor,
                       pen.strokeColor);
  setRectGradients(*this, polygon, parms, record);
  _setSvgLineJoin(record->stroke, pen.joinStyle, parms);
  _setStrokeWidth(record->stroke, pen.lineWidth);
  _setStrokeDashArray(record->stroke, pen.lineStyle);
}

/// Kept: a rotation of less than a degree is written too, as 0.
void CAdapterWriter::SetSVGEllipse(_egf_obj* object, _svg_ellipse* record) {
  using namespace egfsvg;
  const auto& ellipse = *as<EgfEllipse>(object);
  initEllipse(record);
  const UserScale scale = scaleOf(*this);
  setPixels(record->cx, scale.x(ellipse.center.x));
  setPixels(record->cy, scale.y(ellipse.center.y));
  setPixels(record->rx, scale.x(wholeRadius(ellipse.radiusPt.x, ellipse.center.x)));
  setPixels(record->ry, scale.y(wholeRadius(ellipse.radiusPt.y, ellipse.center.y)));
  setEllipsePaint(*this, ellipse, fillParms(*this, ellipse.fillParmsNo), record);
  const std::int32_t rotation = ellipse.pen.ellipseRotation;
  if (rotation == 0) return;
  _svg_value* args = setTransform(*this, record->head, kRotate, 1);
  if (args != nullptr) args[0] = clockwiseDegrees(rotation);
}

void CAdapterWriter::SetSVGCircle(_egf_obj* object, _svg_circle* record) {
  using namespace egfsvg;
  const auto& ellipse = *as<EgfEllipse>(object);
  initCircle(record);
  const UserScale scale = scaleOf(*this);
  setPixels(record->cx, scale.x(ellipse.center.x));
  setPixels(record->cy, scale.y(ellipse.center.y));
  setPixels(record->r,
            scale.mean() * wholeRadius(ellipse.radiusPt.x, ellipse.center.x) * kPerSpaceUnit);
  setEllipsePaint(*this, ellipse, fillParms(*this, ellipse.fillParmsNo), record);
}
