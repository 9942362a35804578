// The progress bar and its levels.
#pragma once

#include <cstdint>

#include "host/wire.h"

inline constexpr int kGaugeMessage = 301;     // what the bar is about: a file being read
inline constexpr int kGaugeLevelTicks = 100;  // ticks of the one level

extern "C" {

// Begins a progress bar and returns its handle, 0 when there is none.
EGFHOST_API HostHandle SEL_UPDATE_Start(int message, const char* caption, int reserved1,
                                        int reserved2, int reserved3);

// Opens a level and returns its handle.
EGFHOST_API HostHandle SEL_UPDATE_StartLevel(HostHandle bar, int ticks, int reserved);

// One tick.
EGFHOST_API int SEL_UPDATE_Hit(HostHandle level);

// Ends a level or the whole bar. Never throws.
EGFHOST_API int SEL_UPDATE_End(HostHandle levelOrBar);

}  // extern "C"
