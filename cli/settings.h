// The host's settings as the command line asks for them.
#pragma once

#include <cstdint>

#include "cli/options.h"

namespace egfsvg {

// Sets them all. Bare leaves every word 0 but the limits that were given.
void applySettings(const Options& options);

// The most bytes of a drawing, the built-in bound when none was given.
std::uint64_t maxSourceBytes(const Options& options);

}  // namespace egfsvg
