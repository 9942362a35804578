// Resolution and map. A map is a handle that ISL_GetViewProperty gives; 0 means none.
#pragma once

#include "host/wire.h"

struct _mpl_spacerect_tag;

// The resolution of a missing map, in dots per inch.
inline constexpr double kDefaultResolution = 96.0;

extern "C" {

// Device units per inch on one axis. Without a map: stores 96.0 and returns non-zero.
EGFHOST_API int MPL_GetResXFactor(int reserved1, int reserved2, HostHandle map, double* factor);
EGFHOST_API int MPL_GetResYFactor(int reserved1, int reserved2, HostHandle map, double* factor);

// Sets the map's resolution in dots per inch. Values that are not positive and finite, and a
// missing map, change nothing and return non-zero.
EGFHOST_API int MPL_SetResolution(double x, double y, int reserved1, int reserved2, HostHandle map);

// Turns a rectangle in space units into one in work units: each value divided by 4096.
EGFHOST_API int MPL_XWORKtoWORK(const _mpl_spacerect_tag* in, _mpl_spacerect_tag* out);

// The minimum enclosing rectangle of a map source (document property 125). Non-zero: none.
EGFHOST_API int MPL_GetMER(HostHandle source, _mpl_spacerect_tag* out);

// Sets the map's composition location.
EGFHOST_API int MPL_SetCOMPloc(HostHandle map, double x, double y, double width, double height);

}  // extern "C"
