// Transform lists of element records. A list that the filter grows is one block: a count of the
// records that hold it, its functions, and their arguments behind them. Records that take a list
// over hold the same block, and the last one to go frees it. Such lists are marked in their first
// function; the arguments of any other list are blocks of their own, which its record owns.
#pragma once

#include "model/groups.h"

namespace egfsvg {

/// A list holds at most this many functions, those taken over from the parent included.
inline constexpr std::int32_t kMaxTransforms = 256;

/// A new last function whose arguments are not set yet; null without memory or when the list is
/// full. A list that other records hold too is left to them.
transformEntry* appendTransform(_svg_common* head, std::int32_t kind, std::int32_t argCount);

/// Makes the list of `from`, which is not empty, also that of `to`, which has none. It must not be
/// written to from now on. False without memory.
bool shareTransforms(_svg_common& to, const _svg_common& from);

/// Gives `to`, which has none, a copy of the list of `from`, which is not empty. False without
/// memory.
bool copyTransforms(_svg_common& to, const _svg_common& from);

/// Lets go of the list.
void releaseTransforms(_svg_common& head);

}  // namespace egfsvg
