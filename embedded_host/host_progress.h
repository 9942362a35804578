// The progress bar as the tool and the tests see it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/progress.h"

namespace egfhost {

enum class GaugeStep : std::uint8_t { kStart, kStartLevel, kHit, kEndLevel, kEnd };

struct GaugeEvent {
  GaugeStep step;
  const std::string& caption;  // of the bar
  int hits;                    // of the level so far
  int ticks;                   // of the level, 0 before it is open
};

using GaugeListener = std::function<void(const GaugeEvent&)>;

// Called at each step; empty for none.
EGFHOST_API void setGaugeListener(GaugeListener listener);

struct GaugeCounts {
  std::uint64_t starts;
  std::uint64_t levels;
  std::uint64_t hits;
  std::uint64_t levelEnds;
  std::uint64_t ends;
};

// Since the start of the process or the last clearGaugeCounts.
EGFHOST_API GaugeCounts gaugeCounts();
EGFHOST_API void clearGaugeCounts();

}  // namespace egfhost
