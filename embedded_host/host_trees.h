// Tree blocks: a page's root group with its dashes and layers. The handle of a tree is the handle
// of its block.
#pragma once

#include "host/egf_blocks.h"

namespace egfhost {

// A tree with an empty root group and one reference; 0 when memory is short.
EGFHOST_API HostHandle createTree(HostHandle document);

// Frees a tree with its objects, dashes and layers, whatever its count of references. 0 is allowed.
EGFHOST_API void freeTree(HostHandle tree) noexcept;

// True when the handle's block begins as a tree block does.
EGFHOST_API bool isTree(HostHandle tree);

// Null for 0, and the root for a tree without one.
EGFHOST_API _egf_obj* rootOf(HostHandle tree);
EGFHOST_API egfsvg::EgfPageHeader* pageHeaderOf(HostHandle tree);

// Adds a layer and gives its index, for `layerIndex`; -1 when memory is short. Names keep 63
// characters.
EGFHOST_API int addLayer(HostHandle tree, const char* name, bool shown, bool suppressed);

// The layer of an index, null when there is none.
EGFHOST_API egfsvg::EgfLayerBody* layerOf(HostHandle tree, std::uint32_t index);

}  // namespace egfhost
