// Polygons of one subpath: open ones are polylines, closed ones polygons. Their pen is pooled as a
// class.

#include "adapter_writer/convert_points.h"
#include "adapter_writer/line_ends.h"
#include "adapter_writer/style_pools.h"
#include "host/egf_bits.h"
#include "model/lifecycle.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

bool isClosedFigure(const EgfPolygon& polygon) {
  return FigureBits::get(polygon.pen.modeFlags) != kFigureOpen;
}

template <class Record>
void setOutlineFill(CAdapterWriter& writer, const EgfPolygon& polygon,
                    const _egf_gdiplus_fillparms_tag* parms, Record* record) {
  const PointArray points = polygon.gradPts;
  const int fill = writer.STYLE_GradParmsAppendUnique(parms, polygon.fillGradientNo, points.get(),
                                                      polygon.gradPtCount);
  const int stroke = writer.STYLE_GradParmsAppendUnique(parms, polygon.strokeGradientNo,
                                                        points.get(), polygon.gradPtCount);
  const _egf_gdi_fillparms_tag pen = polygon.pen;
  writer._setObjFillAndStroke(record->fill, record->stroke, parms, pen.fillStyle, pen.fillColor,
                              pen.strokeColor, fill, stroke);
  record->fill.fillRule = kUnsetCode;
}

/// An open figure without extended parameters has round caps.
void setOutlineStroke(CAdapterWriter& writer, const EgfPolygon& polygon,
                      const _egf_gdiplus_fillparms_tag* parms, _svg_pa_stroke& stroke) {
  writer._setSvgLineJoin(stroke, polygon.pen.joinStyle, parms);
  keepMiterAlone(stroke);
  stroke.strokeWidth.value = kUnsetWidth;
  if (parms != nullptr) {
    stroke.strokeLinecap = writer._setSvgLineCap(parms->startCap);
  } else if (!isClosedFigure(polygon)) {
    stroke.strokeLinecap = kCapCodeRound;
  }
  writer._setStrokeDashArray(stroke, polygon.pen.lineStyle);
}

template <class Record>
void setOutline(CAdapterWriter& writer, const EgfPolygon& polygon, Record* record) {
  const auto* parms =
      documentRecord<_egf_gdiplus_fillparms_tag>(writer, kStyleFill, polygon.fillParmsNo);
  const PointArray points = polygon.points;
  convertPoints(writer, points.get(), polygon.pointCount, record);
  const PooledFill pooled = polygon.pen;
  setPooledClass(writer, kFillPool, &pooled, record->head);
  setOutlineFill(writer, polygon, parms, record);
  setOutlineStroke(writer, polygon, parms, record->stroke);
}

}  // namespace
}  // namespace egfsvg

void CAdapterWriter::SetSVGPlineForPgon(_egf_obj* object, _svg_polyline* record) {
  using namespace egfsvg;
  initPolyline(record);
  const auto& polygon = *as<EgfPolygon>(object);
  if (polygon.subPathCount < 2) setOutline(*this, polygon, record);
}

void CAdapterWriter::SetSVGPolygon(_egf_obj* object, _svg_polygon* record) {
  using namespace egfsvg;
  initPolygon(record);
  const auto& polygon = *as<EgfPolygon>(object);
  if (polygon.subPathCount < 2 && isClosedFigure(polygon)) setOutline(*this, polygon, record);
}
