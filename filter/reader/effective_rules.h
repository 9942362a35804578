// Which declarations of a long rule can be seen in a record. Of many that set the same property the
// last one counts, so an element need not go through all of them.
#pragma once

#include <cstdint>

#include "model/keyed.h"
#include "model/svg_map.h"

struct _svg_gradient;

namespace egfsvg {

/// A rule of fewer declarations is applied as it stands.
inline constexpr std::int32_t kLongRule = 16;

/// The declarations of a chain that matter, in their order, with a null behind them; a block that
/// the caller frees. Applied to any element while those gradients are known they give what the
/// whole chain gives. The nodes stay the chain's. Null without memory, and for a chain that holds
/// more than presentation properties.
AttNode** effectiveDeclarations(AttNode* chain, const Map<_svg_gradient>& gradients);

}  // namespace egfsvg
