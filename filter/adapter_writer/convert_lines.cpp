// Lines and polylines. Their pen is pooled as a class; what a class cannot hold stays on the
// element.

#include <cmath>
#include <cstring>

#include "adapter_writer/convert_points.h"
#include "adapter_writer/line_ends.h"
#include "adapter_writer/style_pools.h"
#include "model/lifecycle.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

constexpr int kRefused = -1;
constexpr std::uint8_t kPooledUnset = 3;  // of a join or cap byte that the class does not hold

/// The first bytes of a pen in a zeroed record of the pool.
PooledStroke pooledStroke(const void* pen, std::size_t bytes) {
  PooledStroke pooled{};
  std::memcpy(&pooled, pen, bytes);
  return pooled;
}

}  // namespace

bool setLineEnds(const UserScale& scale, const LineEnds& ends, _svg_line* record) {
  setPixels(record->x1, scale.x(ends.x1));
  setPixels(record->y1, scale.y(ends.y1));
  setPixels(record->x2, scale.x(ends.x2));
  setPixels(record->y2, scale.y(ends.y2));
  const bool narrow = std::fabs(record->x2.value - record->x1.value) < kShortestLine;
  const bool low = std::fabs(record->y2.value - record->y1.value) < kShortestLine;
  return !(narrow && low);
}

void keepMiterAlone(_svg_pa_stroke& stroke) {
  const bool miter = stroke.strokeLinejoin == kJoinCodeMiter;
  if (!miter || stroke.strokeMiterlimit == kDefaultMiterLimit) stroke.strokeLinejoin = kUnsetCode;
}

}  // namespace egfsvg

int CAdapterWriter::SetSVGLine(_egf_obj* object, _svg_line* record) {
  using namespace egfsvg;
  const auto& line = *as<EgfLine>(object);
  initLine(record);
  const LineEnds ends{line.startPt.x, line.startPt.y, line.endPt.x, line.endPt.y};
  if (!setLineEnds(scaleOf(*this), ends, record)) return kRefused;
  const auto* parms =
      documentRecord<_egf_gdiplus_stroke_parms_tag>(*this, kStyleStroke, line.strokeParmsNo);
  const EgfLinePen pen = line.pen;
  PooledStroke pooled = pooledStroke(&pen, sizeof pen);
  pooled.joinStyle = kPooledUnset;
  setPooledClass(*this, kStrokePool, &pooled, record->head);
  const PointArray gradPts = line.gradPts;
  const int gradient =
      STYLE_GradParmsAppendUnique(parms, line.strokeGradientNo, gradPts.get(), line.gradPtCount);
  _setObjStroke(record->stroke, parms, pen.rasterOp, pen.strokeColor, gradient);
  record->fill.packedColor = kBlackPaint;
  record->stroke.strokeWidth.value = kUnsetWidth;
  record->stroke.strokeLinecap = kUnsetCode;
  _setStrokeDashArray(record->stroke, pen.lineStyle);
  return 0;
}

void CAdapterWriter::SetSVGPolyline(_egf_obj* object, _svg_polyline* record) {
  using namespace egfsvg;
  const auto& polyline = *as<EgfPolyline>(object);
  initPolyline(record);
  const auto* parms =
      documentRecord<_egf_gdiplus_stroke_parms_tag>(*this, kStyleStroke, polyline.strokeParmsNo);
  const EgfPolylinePen pen = polyline.pen;
  PooledStroke pooled = pooledStroke(&pen, sizeof pooled);
  pooled.capStyle = kPooledUnset;
  const PointArray points = polyline.points;
  convertPoints(*this, points.get(), pointCount(polyline.pointCount), record);
  setPooledClass(*this, kStrokePool, &pooled, record->head);
  const PointArray gradPts = polyline.gradPts;
  const int gradient = STYLE_GradParmsAppendUnique(parms, polyline.strokeGradientNo, gradPts.get(),
                                                   polyline.gradPtCount);
  _svg_pa_stroke& stroke = record->stroke;
  _setObjStroke(stroke, parms, pen.rasterOp, pen.strokeColor, gradient);
  record->fill.packedColor = kBlackPaint;
  _setSvgLineJoin(stroke, pen.joinStyle, parms);
  keepMiterAlone(stroke);
  stroke.strokeWidth.value = kUnsetWidth;
  stroke.strokeLinecap = _setSvgLineCap(parms != nullptr ? parms->capStyle : pen.capStyle);
  _setStrokeDashArray(stroke, pen.lineStyle);
}
