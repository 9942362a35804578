// The colour of --background.
#pragma once

#include <optional>
#include <string>

#include "render/colours.h"

namespace egfsvg {

// #rgb, #rrggbb, #rrggbbaa, or a basic colour's name; empty and "transparent" are none. Throws a
// Failure (2) for anything else.
std::optional<egfrender::Colour> backgroundColour(const std::string& text);

}  // namespace egfsvg
