// Lines with arrowheads: the line, and a triangle or an open angle at one end or both.

#include "adapter_writer/colour_swap.h"
#include "adapter_writer/convert_points.h"
#include "adapter_writer/line_ends.h"
#include "adapter_writer/write_envelope.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

constexpr int kRefused = -1;
constexpr int kOutOfBlocks = -1;
constexpr int kHeadAtEnd = 1;
constexpr int kHeadAtStart = 2;
constexpr std::int32_t kOpenHeadPoints = 3;
constexpr std::int32_t kClosedHeadPoints = 4;
constexpr unsigned kBothEnds = 3;
constexpr double kPartialOpacity = 0.5;

bool hasClosedHeads(const EgfArrowLine& arrow) {
  return ClosedHeadBits::get(arrow.pen.headFlags) != 0;
}

double middle(float a, float b) { return (double{a} + double{b}) * 0.5; }

/// A see-through line with closed heads ends at their bases, so that nothing is painted twice.
LineEnds endsOf(const EgfArrowLine& arrow) {
  if (arrow.pen.rasterOp != kRasterPartial || !hasClosedHeads(arrow)) {
    return {arrow.startPt.x, arrow.startPt.y, arrow.endPt.x, arrow.endPt.y};
  }
  const _mpl_spacept_tag* p = arrow.headPts;
  return {middle(p[2].x, p[3].x), middle(p[2].y, p[3].y), middle(p[0].x, p[1].x),
          middle(p[0].y, p[1].y)};
}

/// One base, the tip, the other base, and for a closed head the first base again.
template <class Record>
void setHeadPoints(CAdapterWriter& writer, const EgfArrowLine& arrow, int which, std::int32_t count,
                   Record* record) {
  if (!makePoints(writer, record, count)) return;
  const _mpl_spacept_tag* p = arrow.headPts;
  const _mpl_spacept_tag atStart[] = {p[2], arrow.startPt, p[3], p[2]};
  const _mpl_spacept_tag atEnd[] = {p[1], arrow.endPt, p[0], p[1]};
  const _mpl_spacept_tag* points = which == kHeadAtStart ? atStart : atEnd;
  const UserScale scale = scaleOf(writer);
  for (std::int32_t i = 0; i < count; ++i) {
    setPoint(record->points[i], scale, points[i].x, points[i].y);
  }
}

void setHeadStroke(CAdapterWriter& writer, const EgfArrowLine& arrow, _svg_pa_stroke& stroke) {
  stroke.packedColor = swappedColour(arrow.pen.strokeColor);
  writer._setStrokeWidth(stroke, arrow.pen.lineWidth);
  stroke.strokeOpacity = 1.0;
  stroke.strokeDashCount = 0;
}

/// Writes one head; false only when its block could not be had.
template <class Record>
bool writeHead(CAdapterWriter& writer, _egf_obj* object, const _adapterWriteData& data,
               std::int32_t tag, int which, int* status) {
  *status = writeElement<Record>(writer, data, tag, [&](Record* record) {
    writer.SetSVGPolyArrow(object, record, which);
    return true;
  });
  return *status != kOutOfMemory;
}

}  // namespace
}  // namespace egfsvg

int CAdapterWriter::SetSVGLineArrow(_egf_obj* object, _svg_line* record) {
  using namespace egfsvg;
  const auto& arrow = *as<EgfArrowLine>(object);
  initLine(record);
  if (!setLineEnds(scaleOf(*this), endsOf(arrow), record)) return kRefused;
  _setStyleStroke(record->stroke, arrow.pen.rasterOp, arrow.pen.strokeColor);
  _setStrokeWidth(record->stroke, arrow.pen.lineWidth);
  record->stroke.strokeLinecap = kCapCodeRound;
  _setStrokeDashArray(record->stroke, arrow.pen.lineStyle);
  return 0;
}

/// Kept: the opacity of the whole element is 0, so that an open head does not show.
void CAdapterWriter::SetSVGPolyArrow(_egf_obj* object, _svg_polyline* record, int which) {
  using namespace egfsvg;
  const auto& arrow = *as<EgfArrowLine>(object);
  initPolyline(record);
  setHeadPoints(*this, arrow, which, kOpenHeadPoints, record);
  setHeadStroke(*this, arrow, record->stroke);
  record->graphics.opacity = 0.0;
  record->fill.packedColor = kBlackPaint;
  if (arrow.pen.rasterOp == kRasterPartial) record->stroke.strokeOpacity = kPartialOpacity;
}

/// Kept: the fill is the host's colour, with black and white not exchanged.
void CAdapterWriter::SetSVGPolyArrow(_egf_obj* object, _svg_polygon* record, int which) {
  using namespace egfsvg;
  const auto& arrow = *as<EgfArrowLine>(object);
  initPolygon(record);
  setHeadPoints(*this, arrow, which, kClosedHeadPoints, record);
  setHeadStroke(*this, arrow, record->stroke);
  record->fill.packedColor = hostColour(arrow.pen.strokeColor);
  record->graphics.opacity = arrow.pen.rasterOp == kRasterPartial ? kPartialOpacity : 1.0;
}

/// The second head is not written when the first could not be; its own result is not told.
int CAdapterWriter::DrawArrowHeads(_egf_obj* object, _adapterWriteData* data) {
  using namespace egfsvg;
  const auto& arrow = *as<EgfArrowLine>(object);
  const bool closed = hasClosedHeads(arrow);
  const auto write = closed ? writeHead<_svg_polygon> : writeHead<_svg_polyline>;
  const std::int32_t tag = closed ? kTagPolygon : kTagPolyline;
  int status = kOk;
  if (!write(*this, object, *data, tag, kHeadAtEnd, &status)) return kOutOfBlocks;
  if (status != kOk || BothHeadsBits::get(arrow.pen.headFlags) != kBothEnds) return kOk;
  return write(*this, object, *data, tag, kHeadAtStart, &status) ? static_cast<int>(kOk)
                                                                 : kOutOfBlocks;
}
