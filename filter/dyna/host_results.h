// What the host calls the filter's results.
#pragma once

#include <cstdint>

namespace egfsvg {

/// The host's result for a result code; 0 for 0 alone.
std::int32_t hostResult(std::int32_t code);

}  // namespace egfsvg
