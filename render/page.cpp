#include "render/page.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/documents.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/style_tables.h"

namespace egfrender {
namespace {

template <class Record>
std::optional<Record> styleRecord(const Page& page, egfsvg::StyleClass table,
                                  std::uint32_t number) {
  if (number == 0) return std::nullopt;
  std::uint32_t size = 0;
  void* record = nullptr;
  const HostHandle handle = ISL_GetProperty(page.document, static_cast<std::uint32_t>(table));
  if (STYLE_QueryData(handle, number, &size, &record) != 0) return std::nullopt;
  if (record == nullptr || size < sizeof(Record)) return std::nullopt;
  return egfsvg::readPacked<Record>(record);
}

struct UnitRow {
  std::uint32_t unit;
  double inches;
};

constexpr double kInchesPerCentimetre = 1 / 2.54;
constexpr std::array<UnitRow, 7> kUnits{{
    {egfsvg::kMeasureInch, 1.0},
    {egfsvg::kMeasureCentimetre, kInchesPerCentimetre},
    {egfsvg::kMeasureMillimetre, kInchesPerCentimetre / 10},
    {egfsvg::kMeasureMetre, kInchesPerCentimetre * 100},
    {egfsvg::kMeasureFoot, 12.0},
    {egfsvg::kMeasurePoint, 1.0 / 72},
    {egfsvg::kMeasureTwip, 1.0 / 1440},
}};
constexpr double kHostPixelsPerInch = 200.0;

// Objects on no layer, and on one that the page does not know, are shown.
bool isLayerShown(const Page& page, unsigned index) {
  const egfsvg::EgfPageHeader& header = page.body->pageHeader;
  if (index == egfsvg::kNoLayer || index >= header.layerCount || !header.layerTable) return true;
  const HostHandle handle = header.layerTable[index];
  const auto* layer =
      egfsvg::blockBody<egfsvg::EgfLayerBody>(egfsvg::at<egfsvg::EgfBlockHeader>(handle));
  return layer == nullptr || (layer->shown == 1 && layer->suppressed == 0);
}

}  // namespace

std::optional<_egf_gdiplus_fillparms_tag> fillParms(const Page& page, std::uint32_t number) {
  return styleRecord<_egf_gdiplus_fillparms_tag>(page, egfsvg::kStyleFill, number);
}

std::optional<_egf_gdiplus_stroke_parms_tag> strokeParms(const Page& page, std::uint32_t number) {
  return styleRecord<_egf_gdiplus_stroke_parms_tag>(page, egfsvg::kStyleStroke, number);
}

std::optional<_egf_gdiplus_arcparms_tag> arcParms(const Page& page, std::uint32_t number) {
  return styleRecord<_egf_gdiplus_arcparms_tag>(page, egfsvg::kStyleArc, number);
}

std::optional<_egf_gdiplus_gradientparms_tag> gradientParms(const Page& page,
                                                            std::uint32_t number) {
  return styleRecord<_egf_gdiplus_gradientparms_tag>(page, egfsvg::kStyleGradient, number);
}

std::optional<_egf_gdi_fillparms_tag> penParms(const Page& page, std::uint32_t number) {
  return styleRecord<_egf_gdi_fillparms_tag>(page, egfsvg::kStylePen, number);
}

std::vector<double> dashLengths(const Page& page, std::uint32_t lineStyle) {
  if (lineStyle == egfsvg::kLineSolid || page.body == nullptr) return {};
  const _egf_dash_record* record =
      EGF_GetDashRecordByStyle(page.body->pageHeader.firstDash.offset, lineStyle);
  if (record == nullptr) return {};
  std::vector<double> lengths;
  double sum = 0;
  const int count = std::min<int>(record->segmentCount, egfsvg::kMaxDashSegments);
  for (int i = 0; i < count; ++i) {
    const double segment = record->segments[i];
    const double length = std::abs(pixelLength(page, record->unit, segment));
    lengths.push_back(length);
    sum += length;
  }
  // A pattern without any length would never end.
  if (!(sum > 0) || !std::isfinite(sum)) return {};
  return lengths;
}

double pixelLength(const Page& page, std::uint32_t unit, double length) {
  if (unit == egfsvg::kMeasurePixel200) return length * kHostPixelsPerInch / page.resolution;
  for (const UnitRow& row : kUnits) {
    if (row.unit == unit) return length * row.inches * page.resolution;
  }
  return length;
}

bool isShown(const Page& page, const _egf_obj& object) {
  if (egfsvg::OutputBits::get(object.objAttr) == 0) return false;
  if (egfsvg::ViewportBits::get(object.objAttr2) != 0) return false;
  return isLayerShown(page, object.layerIndex);
}

}  // namespace egfrender
