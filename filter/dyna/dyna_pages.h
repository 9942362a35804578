// The pages of a resource.
#pragma once

#include <cstdint>

#include "dyna/svgdyna.h"

namespace egfsvg {

inline constexpr int kDynaFailed = -1;

/// The words that a caller loads a page with.
struct DynaPageWords {
  std::uint32_t page;  // from 0
  HostHandle view;     // or 0
  HostHandle object;   // out: the page's tree block, which stays the resource's
};

/// Loads a page unless it is there. 0, or -1.
int loadPage(SvgDynaRes& resource, DynaPageWords* words);

/// 0, or -1 when the page is not there.
int unloadPage(SvgDynaRes& resource, std::uintptr_t page);

void unloadAllPages(SvgDynaRes& resource);

}  // namespace egfsvg
