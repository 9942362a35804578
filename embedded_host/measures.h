// Lengths in the host's units.
#pragma once

#include "host/egf_small.h"

namespace egfhost {

// Pixels of a length on a map; without a map the resolution is 96 dots per inch.
double pixelsOf(__meas length, HostHandle map);

}  // namespace egfhost
