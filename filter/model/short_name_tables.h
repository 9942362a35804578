// The names that scanners meet, and a look-up of the short ones by their bytes at once. What it
// does not find is asked for in the whole tables: model/name_tables.h.
#pragma once

#include "model/codes.h"
#include "model/short_names.h"

namespace egfsvg {

inline constexpr NamedCode kTagNames[] = {
#define EGFSVG_TAG(name, code, text) {text, code},
#include "model/tags.def"
#undef EGFSVG_TAG
};
inline constexpr NamedCode kAttributeNames[] = {
#define EGFSVG_ATTRIBUTE(name, code, text) {text, code},
#include "model/attributes.def"
#undef EGFSVG_ATTRIBUTE
};

// The multipliers were found by trial.
/// Without comments, CDATA and declarations, which a "!" opens.
inline constexpr ShortNameIndex<std::size(kTagNames), 256> kShortTags(kTagNames,
                                                                      0x1E2FEB89414C343DU, '!');
inline constexpr ShortNameIndex<std::size(kAttributeNames), 512> kShortAttributes(
    kAttributeNames, 0x7D8460C9DE14D9EFU);
static_assert(kShortTags.isPerfect() && kShortAttributes.isPerfect());

}  // namespace egfsvg
