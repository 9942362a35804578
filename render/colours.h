// Colours as they are seen.
#pragma once

#include <cstdint>

#include "host/egf_small.h"

namespace egfrender {

// Each part from 0 to 1.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
};

// A record's colour: the host keeps black as white and white as black.
Colour shownColour(_sel_RGB_type stored, double alpha);

// 0xAARRGGBB as it is, nothing exchanged.
Colour plainColour(std::uint32_t word);

}  // namespace egfrender
