// Dash arrays to dash records of the document. Equal patterns share one record.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "adapter_reader/owners.h"
#include "adapter_reader/page.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_codes.h"
#include "host/platform_text.h"

namespace egfsvg {
namespace {

constexpr int kMostEntries = 40;     // of a pattern with an even count
constexpr int kMostOddEntries = 19;  // of one with an odd count, which is stored twice
constexpr const char* kDashNameFormat = "SVG Pattern %d";

/// Segment lengths in pixels, dashes positive and gaps negative.
struct DashPattern {
  double segments[kMaxDashSegments];
  int count = 0;

  /// Nothing but numbers goes into a record, and no negative zero.
  void add(double length, bool gap) {
    constexpr double kMost = std::numeric_limits<float>::max();
    const double number = std::isnan(length) ? 0.0 : std::clamp(length, -kMost, kMost);
    segments[count++] = (gap ? -number : number) + 0.0;
  }
  std::span<const double> all() const { return {segments, static_cast<std::size_t>(count)}; }
};

/// An odd pattern goes in twice with signs swapped, so that dashes and gaps alternate.
DashPattern patternOf(CAdapterReader& adapter, const _svg_value* dashes, int count, double res) {
  const bool odd = count % 2 != 0;
  const int used = std::min(count, odd ? kMostOddEntries : kMostEntries);
  DashPattern pattern;
  for (int round = 0; round <= (odd ? 1 : 0); ++round) {
    for (int i = 0; i < used; ++i) {
      pattern.add(adapter.SVGValueToPixelValue(dashes[i], res), (i + round) % 2 != 0);
    }
  }
  return pattern;
}

/// Pixels in a dash record's unit. Records that the document held before may have any of them.
double pixelsPerUnit(std::uint32_t unit, double res) {
  constexpr double kCentimetresPerInch = 2.54;
  switch (unit) {
    case kMeasureInch:
      return res;
    case kMeasureCentimetre:
      return res / kCentimetresPerInch;
    case kMeasureMillimetre:
      return res / kCentimetresPerInch / 10.0;
    case kMeasureMetre:
      return res / kCentimetresPerInch * 100.0;
    case kMeasureFoot:
      return res * 12.0;
    case kMeasurePoint:
      return res / 72.0;
    case kMeasureTwip:
      return res / 1440.0;
    default:
      return 1.0;
  }
}

DashPattern patternOf(const _egf_dash_record& record, double res) {
  DashPattern pattern;
  const double scale = pixelsPerUnit(record.unit, res);
  const int count = std::min<int>(record.segmentCount, kMaxDashSegments);
  for (int i = 0; i < count; ++i) pattern.add(record.segments[i] * scale, false);
  return pattern;
}

bool agree(const DashPattern& a, const DashPattern& b) {
  return std::equal(a.segments, a.segments + a.count, b.segments, b.segments + b.count,
                    [](double x, double y) { return std::fabs(x - y) <= kDashTolerance; });
}

/// Enters a record at the end of the table, which must hold `dashCount` records.
bool enterRecord(CAdapterReader& adapter, _egf_dash_record* record, const DashPattern& pattern) {
  void* grown = RMM_ReAllocName(adapter.dashTable, std::size_t{adapter.dashCount} + 1,
                                sizeof *adapter.dashTable, RMM_SITE);
  if (grown == nullptr) return false;
  adapter.dashTable = static_cast<_egf_dash_record**>(grown);
  if (!adapter.state.dashes.add(pattern.all())) return false;
  adapter.dashTable[adapter.dashCount++] = record;
  return true;
}

void forgetTable(CAdapterReader& adapter) {
  adapter.dashCount = 0;
  adapter.state.dashes.clear();
}

RmmOwner<_egf_dash_record> makeRecord(const DashPattern& pattern, std::uint32_t nameNumber) {
  RmmOwner<_egf_dash_record> record(EGF_CreateDashRecord());
  if (!record) return record;
  char name[kFormatTextSize];
  wsprintfA(name, kDashNameFormat, static_cast<int>(nameNumber));
  std::memcpy(record->name, name, std::min(sizeof record->name - 1, std::strlen(name)));
  for (int i = 0; i < pattern.count; ++i) record->segments[i] = pattern.segments[i];
  record->segmentCount = static_cast<std::uint8_t>(pattern.count);
  record->unit = kMeasureDevice;
  return record;
}

}  // namespace

void loadDashTable(CAdapterReader& adapter) {
  adapter.dashTable = nullptr;
  adapter.dashNameCounter = 0;
  forgetTable(adapter);
  if (adapter.pageHeader == nullptr) return;
  const double res = resolutionOf(adapter);
  const auto* header = reinterpret_cast<const EgfPageHeader*>(adapter.pageHeader);
  for (_egf_dash_record* record = header->firstDash.get(); record != nullptr;
       record = record->next.get()) {
    if (enterRecord(adapter, record, patternOf(*record, res))) continue;
    logOutOfMemory(RMM_SITE);
    return;
  }
}

void freeDashTable(CAdapterReader& adapter) {
  RMM_Free(adapter.dashTable);
  adapter.dashTable = nullptr;
  adapter.state.dashes.clear();
}

}  // namespace egfsvg

using namespace egfsvg;

std::uint32_t CAdapterReader::castLineStyle(_svg_value offset, _svg_value* dashes, int count) {
  unsigned int number = kLineSolid;
  if (count <= 0 || dashes == nullptr) return kLineSolid;
  return CreateDashTableEntry(offset, dashes, count, &number) == 0 ? number : kLineSolid;
}

/// Kept: the dash offset takes no part.
int CAdapterReader::CreateDashTableEntry(_svg_value, _svg_value* dashes, int count,
                                         unsigned int* out) {
  const double res = resolutionOf(*this);
  const DashPattern pattern = patternOf(*this, dashes, count, res);
  if (dashTable == nullptr) forgetTable(*this);
  const std::int32_t known = state.dashes.lowest(pattern.all(), [&](std::int32_t at) {
    return agree(pattern, patternOf(*dashTable[at], res));
  });
  if (known >= 0) {
    *out = dashTable[known]->number;
    return 0;
  }
  RmmOwner<_egf_dash_record> record = makeRecord(pattern, dashNameCounter);
  auto* header = reinterpret_cast<EgfPageHeader*>(pageHeader);
  if (!record) logOutOfMemory(RMM_SITE);
  if (!record || header == nullptr || EGF_AppendDashRecord(header, record.get()) != 0) return -1;
  ++dashNameCounter;
  // A record that finds no place in the table is in the document all the same.
  if (!enterRecord(*this, record.get(), pattern)) logOutOfMemory(RMM_SITE);
  *out = record.release()->number;
  return 0;
}
