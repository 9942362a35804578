#include "host/resolution.h"

#include <cmath>

#include "embedded_host/fault.h"
#include "embedded_host/maps.h"
#include "host/egf_small.h"

namespace egfhost {

namespace {

constexpr float kSpaceUnitsPerPixel = 4096.0F;

bool isUsable(double resolution) { return std::isfinite(resolution) && resolution > 0; }

int giveFactor(FaultCall call, HostHandle map, double Map::*axis, double* factor) {
  if (factor == nullptr) return -1;
  *factor = kDefaultResolution;
  if (faultFails(call)) return -1;
  const Map* const found = hostObjectAs<Map>(map);
  if (found == nullptr) return -1;
  *factor = found->*axis;
  return 0;
}

}  // namespace

}  // namespace egfhost

using egfhost::FaultCall;
using egfhost::Map;

int MPL_GetResXFactor(int, int, HostHandle map, double* factor) {
  return egfhost::giveFactor(FaultCall::MPL_GetResXFactor, map, &Map::xResolution, factor);
}

int MPL_GetResYFactor(int, int, HostHandle map, double* factor) {
  return egfhost::giveFactor(FaultCall::MPL_GetResYFactor, map, &Map::yResolution, factor);
}

int MPL_SetResolution(double x, double y, int, int, HostHandle map) {
  if (egfhost::faultFails(FaultCall::MPL_SetResolution)) return -1;
  Map* const found = egfhost::hostObjectAs<Map>(map);
  if (found == nullptr || !egfhost::isUsable(x) || !egfhost::isUsable(y)) return -1;
  found->xResolution = x;
  found->yResolution = y;
  return 0;
}

int MPL_XWORKtoWORK(const _mpl_spacerect_tag* in, _mpl_spacerect_tag* out) {
  if (in == nullptr || out == nullptr) return -1;
  const _mpl_spacerect_tag rect = *in;
  *out = {rect.left / egfhost::kSpaceUnitsPerPixel, rect.right / egfhost::kSpaceUnitsPerPixel,
          rect.top / egfhost::kSpaceUnitsPerPixel, rect.bottom / egfhost::kSpaceUnitsPerPixel};
  return 0;
}

int MPL_GetMER(HostHandle source, _mpl_spacerect_tag* out) {
  if (out == nullptr) return -1;
  *out = {};
  const Map* const found = egfhost::hostObjectAs<Map>(source);
  if (found == nullptr || !found->hasLocation) return -1;
  *out = {static_cast<float>(found->x), static_cast<float>(found->x + found->width),
          static_cast<float>(found->y), static_cast<float>(found->y + found->height)};
  return 0;
}

int MPL_SetCOMPloc(HostHandle map, double x, double y, double width, double height) {
  Map* const found = egfhost::hostObjectAs<Map>(map);
  if (found == nullptr) return -1;
  found->x = x;
  found->y = y;
  found->width = width;
  found->height = height;
  found->hasLocation = true;
  return 0;
}
