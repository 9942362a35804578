#include "embedded_host/host_rasters.h"

#include "host/memory.h"

namespace egfhost {

HostHandle createRaster(std::uint32_t width, std::uint32_t height, std::uint32_t channels) {
  const std::uint64_t row = std::uint64_t{width} * channels;
  constexpr std::uint64_t kMostBytes = INT32_MAX;
  if (row == 0 || height == 0 || row > kMostBytes || height > kMostBytes / row) return 0;
  auto* raster = static_cast<Raster*>(RMM_CallocName(1, sizeof(Raster) + row * height, RMM_SITE));
  if (raster == nullptr) return 0;
  *raster = {1, width, height, channels};
  return egfsvg::handleOf(raster);
}

HostHandle shareRaster(HostHandle raster) noexcept {
  if (raster != 0) ++egfsvg::at<Raster>(raster)->references;
  return raster;
}

void releaseRaster(HostHandle raster) noexcept {
  auto* block = egfsvg::at<Raster>(raster);
  if (block != nullptr && --block->references == 0) RMM_Free(block);
}

}  // namespace egfhost
