// What an adapter keeps besides its required members: one block for the map of the element at hand,
// and, while a page is being read, answers that would be the same for every element.
#pragma once

#include <cstdint>

#include "adapter_reader/dash_index.h"
#include "adapter_reader/mapping.h"
#include "adapter_reader/seen_colours.h"
#include "adapter_reader/style_numbers.h"
#include "adapter_reader/transform_cache.h"
#include "host/egf_small.h"
#include "model/rmm_allocator.h"

struct GroupStackNode;  // group_stack.h

namespace egfsvg {

/// The map that `_findMapMatrix` hands out when no other one is out. It takes no memory of its own,
/// and its matrices serve as long as elements have the same transform list.
struct MapBlock {
  bool inUse = false;
  ListStamp matricesOf = ListStamp::kNone;  // kNone also after something was multiplied into them
  _viewPortMap map;
  _userSpace userSpace;
  _viewBox viewBox{nullptr, {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}}};  // never fitted
};

/// The resolution of the page's map, asked for once when the page begins.
struct ResolutionAtHand {
  double pixelsPerInch = 0.0;  // 0 outside a page
  double perSvgPixel = 0.0;    // pixels in one SVG pixel

  bool isKnown() const { return pixelsPerInch > 0.0; }
};

struct AdapterState {
  ResolutionAtHand resolution;
  MapBlock mapBlock;
  TransformCache transforms;
  SeenColours colours;
  StyleNumbers styles;
  DashIndex dashes;
  GrowingArray<_mpl_spacept_tag> straightRun{RMM_SITE};  // points of the path at hand
  GroupStackNode* spareNodes = nullptr;  // of closed groups, linked by `next`, for the next ones
};

}  // namespace egfsvg
