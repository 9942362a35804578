// Widths and dashes of strokes.

#include <algorithm>

#include "adapter_writer/user_scale.h"
#include "host/egf.h"
#include "host/egf_codes.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr double kHairWidth = 0.0001;  // device pixels

double resolutionOf(const CAdapterWriter& writer) {
  double resolution = kDefaultResolution;
  MPL_GetResXFactor(1, 1, writer.view, &resolution);
  return resolution;
}

/// Gaps are negative in the host's records.
double segmentLength(const _egf_dash_record& dash, std::int32_t index) {
  const auto length =
      readPacked<double>(dash.segments, static_cast<std::size_t>(index) * sizeof(double));
  return index % 2 == 0 ? length : -length;
}

double dashLength(CAdapterWriter& writer, std::uint32_t unit, double length, double resolution) {
  if (unit == kMeasurePixel200) {
    return writer.QVUnitToSVG(kMeasureMillimetre, length, resolution) * 200.0 / resolution;
  }
  return writer.QVUnitToSVG(unit, length, resolution) * scaleOf(writer).mean();
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

/// A pen of width 0 is written as a hair.
void CAdapterWriter::_setStrokeWidth(_svg_pa_stroke& stroke, __meas width) {
  const double value = width.value;
  const double pixels =
      value == 0.0 ? kHairWidth : QVUnitToSVG(width.unit, value, resolutionOf(*this));
  setPixels(stroke.strokeWidth, pixels * scaleOf(*this).mean());
}

void CAdapterWriter::_setStrokeDashArray(_svg_pa_stroke& stroke, std::uint32_t lineStyle) {
  stroke.strokeDashCount = 0;
  if (lineStyle == kLineSolid || styleTreeHead == nullptr) return;
  const auto* dash = EGF_GetDashRecordByStyle(styleTreeHead->firstDash.offset, lineStyle);
  if (dash == nullptr) return;
  const std::int32_t count = std::min<std::int32_t>(dash->segmentCount, kMaxDashSegments);
  if (count == 0) return;
  stroke.strokeDashArray = allocateArray<_svg_value>(static_cast<std::size_t>(count), RMM_SITE);
  if (stroke.strokeDashArray == nullptr) return;
  const double resolution = resolutionOf(*this);
  for (std::int32_t i = 0; i < count; ++i) {
    stroke.strokeDashArray[i] =
        egfsvg::pixels(dashLength(*this, dash->unit, segmentLength(*dash, i), resolution));
  }
  stroke.strokeDashCount = count;
}
