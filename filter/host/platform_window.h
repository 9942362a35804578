// Window calls of the platform layer.
#pragma once

#include <cstdint>

#include "host/wire.h"

inline constexpr std::uintptr_t kWaitCursor = 32514;  // the standard wait cursor
inline constexpr int kClassLongCursor = -12;          // the class word that holds the cursor
inline constexpr std::uint32_t kMessageBoxInformation = 0x40;

extern "C" {

EGFHOST_API HostHandle LoadCursorA(HostHandle instance, std::uintptr_t cursor);
EGFHOST_API HostHandle SetCursor(HostHandle cursor);  // returns the cursor before
EGFHOST_API HostHandle SetClassLongA(HostHandle window, int index,
                                     HostHandle value);  // the old one
EGFHOST_API HostHandle GetActiveWindow();
EGFHOST_API HostHandle COM_GetFrameWnd();

// Shows a notice; caption may be null. Returns the button, 1.
EGFHOST_API int MessageBoxA(HostHandle owner, const char* text, const char* caption,
                            std::uint32_t flags);

}  // extern "C"
