// The colour ramp of a gradient record: positions in thousandths, a doubled first and last entry.

#include <algorithm>
#include <cmath>

#include "adapter_reader/gradient_stops.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_styles.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr double kThousandthsPerPercent = 10.0;
constexpr double kFullAlpha = 255.0;
constexpr std::int16_t kRampEnd = 1000;
constexpr int kDoubledEnds = 2;  // the first and the last stop stand twice

/// One entry of a ramp before it goes into the record.
struct RampEntry {
  _sel_RGB_type colour;
  std::uint8_t alpha;
  std::int16_t position;
};

using Ramp = RampEntry[kMaxGradientStops + kDoubledEnds];

void store(_egf_gdiplus_gradientparms_tag* record, int index, const RampEntry& entry) {
  record->stopColors[index] = entry.colour;
  record->stopAlpha[index] = entry.alpha;
  record->stopPositions[index] = entry.position;
}

RampEntry entryOf(CAdapterReader& adapter, const _svg_stop& stop, double position) {
  const _sel_RGB_type colour = adapter.castColor(stop.gradients.stopColor);
  adapter.UpdatePalette(colour);
  return {colour, alphaOf(stop.gradients.stopOpacity), truncated<std::int16_t>(position)};
}

/// Entries of a path gradient: from the ring inward, so the last stop comes first.
int inwardRamp(CAdapterReader& adapter, const GradientStops& stops, double part, Ramp& ramp) {
  const int n = stops.count() + kDoubledEnds;
  for (int i = 1; i <= n - 2; ++i) {
    const _svg_stop& stop = stops[n - 2 - i];
    ramp[i] = entryOf(adapter, stop, part * stop.offset.value * kThousandthsPerPercent);
  }
  ramp[0] = ramp[1];
  ramp[0].position = truncated<std::int16_t>(part * kRampEnd);
  ramp[n - 1] = ramp[n - 2];
  ramp[n - 1].position = 0;  // no stop stands behind the first
  return n;
}

/// Entries run the other way, and a first entry stands at 0.
void storePad(const Ramp& ramp, int n, _egf_gdiplus_gradientparms_tag* record) {
  record->gradReflect = 0;
  record->stopCount = static_cast<std::uint8_t>(n + 1);
  store(record, 0, {ramp[0].colour, ramp[0].alpha, 0});
  for (int i = 1; i <= n; ++i) {
    RampEntry entry = ramp[i - 1];
    entry.position = static_cast<std::int16_t>(kRampEnd - entry.position);
    store(record, i, entry);
  }
}

void storeRepeat(const Ramp& ramp, int n, unsigned steps, _egf_gdiplus_gradientparms_tag* record) {
  record->gradReflect = static_cast<std::uint8_t>(steps - 1);
  record->stopCount = static_cast<std::uint8_t>(n);
  for (int i = 0; i < n; ++i) store(record, i, ramp[i]);
}

void storeReflect(const Ramp& ramp, int n, unsigned steps, _egf_gdiplus_gradientparms_tag* record) {
  record->gradReflect = static_cast<std::uint8_t>(((steps + 1) >> 1) - 1);
  record->stopCount = static_cast<std::uint8_t>(2 * n - 1);
  for (int i = 0; i < n; ++i) store(record, n - 1 + i, ramp[i]);
  for (int j = 0; j <= n - 2; ++j) {
    RampEntry entry = ramp[n - 1 - j];
    entry.position = static_cast<std::int16_t>(2 * ramp[0].position - entry.position);
    store(record, j, entry);
  }
}

/// How many stops a ramp of that kind can take before its sixteen colours are full.
int roomForStops(const _svg_gradient& gradient) {
  if (gradient.head.type == kTagLinearGradient) return kMaxGradientStops - kDoubledEnds;
  switch (gradient.spreadMethod) {
    case kSpreadPad:
      return kMaxGradientStops - kDoubledEnds - 1;
    case kSpreadReflect:
      return (kMaxGradientStops + 1) / 2 - kDoubledEnds;
    default:
      return kMaxGradientStops - kDoubledEnds;
  }
}

}  // namespace

/// Opacities from files may be anything.
std::uint8_t alphaOf(double opacity) {
  return static_cast<std::uint8_t>(
      std::clamp(truncated<std::int32_t>(opacity * kFullAlpha), 0, 255));
}

}  // namespace egfsvg

int CAdapterReader::SetGradientColours(_svg_gradient* gradient,
                                       _egf_gdiplus_gradientparms_tag* record, std::int32_t before,
                                       std::int32_t after) {
  using namespace egfsvg;
  if (gradient == nullptr || record == nullptr || gradient->stopCount < 1) return -1;
  const GradientStops stops(*gradient, roomForStops(*gradient));
  if (!stops.ready()) return -1;
  const int n = stops.count() + kDoubledEnds;
  const double part = 100.0 / (static_cast<double>(before) + 100.0 + static_cast<double>(after));
  record->stopPositions[0] = 0;
  for (int i = 1; i <= n - 2; ++i) {
    const _svg_stop& stop = stops[i - 1];
    RampEntry entry =
        entryOf(*this, stop,
                (static_cast<double>(before) + stop.offset.value) * kThousandthsPerPercent * part);
    const std::int16_t floor = record->stopPositions[i - 1];
    entry.position = std::max(entry.position, floor);  // positions never fall
    store(record, i, entry);
  }
  store(record, 0, {record->stopColors[1], record->stopAlpha[1], 0});
  store(record, n - 1, {record->stopColors[n - 2], record->stopAlpha[n - 2], kRampEnd});
  record->stopCount = static_cast<std::uint8_t>(n);
  return 0;
}

int CAdapterReader::SetInterpolationColours(_svg_gradient* gradient,
                                            _egf_gdiplus_gradientparms_tag* record,
                                            unsigned int steps) {
  using namespace egfsvg;
  if (gradient == nullptr || record == nullptr || gradient->stopCount < 1) return -1;
  const GradientStops stops(*gradient, roomForStops(*gradient));
  if (!stops.ready()) return -1;
  Ramp ramp;
  const int n = inwardRamp(*this, stops, 1.0 / static_cast<double>(steps), ramp);
  switch (gradient->spreadMethod) {
    case kSpreadPad:
      storePad(ramp, n, record);
      break;
    case kSpreadRepeat:
      storeRepeat(ramp, n, steps, record);
      break;
    case kSpreadReflect:
      storeReflect(ramp, n, steps, record);
      break;
    default:
      break;  // Kept: any other word copies nothing
  }
  return 0;
}

int CAdapterReader::GetWrapMode(_svg_gradient* gradient) {
  return gradient != nullptr && gradient->spreadMethod == egfsvg::kSpreadReflect ? 1 : 0;
}

/// Kept: alpha stays where it is.
void CAdapterReader::ReverseGradientColor(_egf_gdiplus_gradientparms_tag* record) {
  for (int i = 0, j = record->stopCount - 1; i < j; ++i, --j) {
    const _sel_RGB_type colour = record->stopColors[i];
    record->stopColors[i] = record->stopColors[j];
    record->stopColors[j] = colour;
    const std::int16_t position = record->stopPositions[i];
    record->stopPositions[i] =
        static_cast<std::int16_t>(egfsvg::kRampEnd - record->stopPositions[j]);
    record->stopPositions[j] = static_cast<std::int16_t>(egfsvg::kRampEnd - position);
  }
}
