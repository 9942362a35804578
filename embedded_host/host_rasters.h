// Rasters in memory. A raster is counted: each holder of its handle releases its own share.
#pragma once

#include <cstdint>

#include "host/wire.h"

namespace egfhost {

// One block: this record, then height rows of width * channels bytes, top row first.
struct Raster {
  std::uint32_t references;
  std::uint32_t width;  // pixels
  std::uint32_t height;
  std::uint32_t channels;  // 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA; 8 bits each

  std::uint8_t* pixels() { return reinterpret_cast<std::uint8_t*>(this + 1); }
};

// A raster with zeroed pixels and one reference; 0 when memory is short or a side is 0.
EGFHOST_API HostHandle createRaster(std::uint32_t width, std::uint32_t height,
                                    std::uint32_t channels);

// One more reference; returns the handle.
EGFHOST_API HostHandle shareRaster(HostHandle raster) noexcept;

// Drops a reference, and the raster with the last one. 0 is allowed.
EGFHOST_API void releaseRaster(HostHandle raster) noexcept;

}  // namespace egfhost
