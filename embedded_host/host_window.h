// The cursors, as tests see them: the writer shows the wait cursor and puts the old one back.
#pragma once

#include "host/platform_window.h"

namespace egfhost {

// The standard arrow, which the host starts with.
inline constexpr HostHandle kArrowCursor = 32512;

EGFHOST_API HostHandle currentCursor();
EGFHOST_API HostHandle frameClassCursor();

}  // namespace egfhost
