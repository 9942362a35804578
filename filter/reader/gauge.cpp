// The progress bar: both passes share one, each its half.
#include <algorithm>
#include <cstdint>

#include "host/progress.h"
#include "reader/svg_handlerreader.h"

namespace {

constexpr std::uint32_t kPercent = 100;
constexpr std::int32_t kAllTicks = kGaugeLevelTicks + 1;  // a level always ends at so many

/// Where a gauge at `ticks` can move next: no file index below the result makes a tick. Products
/// are counted in 32 bits, so that long files stop short: beyond that point it is never again.
std::int32_t nextThreshold(std::int32_t ticks, std::int32_t fileLength, bool secondPass) {
  const std::int64_t whole = 2 * std::int64_t{fileLength};
  if (whole == 0 || whole > INT32_MAX) return 0;
  const std::int64_t needed = (std::int64_t{ticks} + 1) * whole;
  if (needed > INT32_MAX || ticks >= kAllTicks) return INT32_MAX;
  const std::int64_t position = (needed + kPercent - 1) / kPercent;
  return static_cast<std::int32_t>(
      std::max<std::int64_t>(position - (secondPass ? fileLength : 0), 0));
}

}  // namespace

int CHandlerReader::StartGasGauge(HostHandle file, const char* caption) {
  char baseName[kFileBaseNameSize] = {};
  if (caption == nullptr) {
    FLR_GetBaseFilename(file, baseName);
    caption = baseName;
  }
  state.gaugeThreshold = 0;
  if (gaugeBar != 0 || gaugeLevel != 0) return 0;
  gaugeTicks = 0;
  gaugeBar = SEL_UPDATE_Start(kGaugeMessage, caption, 0, 1, 0);
  gaugeLevel = SEL_UPDATE_StartLevel(gaugeBar, kGaugeLevelTicks, 1);
  return 0;
}

int CHandlerReader::UpdateGasGauge() {
  if (gaugeLevel == 0) {
    state.gaugeThreshold = INT32_MAX;
    return 0;
  }
  const bool secondPass = pass == 2;
  const auto length = static_cast<std::uint32_t>(buffer.fileLength);
  const auto divisor = static_cast<std::int32_t>(2 * length);
  if (divisor == 0) return 0;
  // Kept: signed 32-bit arithmetic, which makes the bar of a long file stand still.
  const std::uint32_t position =
      static_cast<std::uint32_t>(buffer.fileIndex) + (secondPass ? length : 0);
  const std::int32_t percent = static_cast<std::int32_t>(position * kPercent) / divisor;
  for (const std::int32_t end = std::min(percent, kAllTicks); gaugeTicks < end; ++gaugeTicks) {
    SEL_UPDATE_Hit(gaugeLevel);
  }
  state.gaugeThreshold = nextThreshold(gaugeTicks, buffer.fileLength, secondPass);
  return 0;
}

int CHandlerReader::FinishGasGauge() {
  if (gaugeLevel == 0) return 0;
  for (; gaugeTicks < kAllTicks; ++gaugeTicks) SEL_UPDATE_Hit(gaugeLevel);
  SEL_UPDATE_End(gaugeLevel);
  gaugeLevel = 0;
  SEL_UPDATE_End(gaugeBar);
  gaugeBar = 0;
  return 0;
}
