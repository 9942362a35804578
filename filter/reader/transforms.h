// Growing an element's transform list.
#pragma once

#include "model/groups.h"

namespace egfsvg {

/// A list holds at most this many functions, those taken over from the parent included.
inline constexpr std::int32_t kMaxTransforms = 256;

/// A new last entry whose arguments are not set yet; null without memory or when the list is full.
transformEntry* appendTransform(_svg_common* head, std::int32_t kind, std::int32_t argCount);

}  // namespace egfsvg
