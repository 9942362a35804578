// The wait cursor while a file is written.
#pragma once

#include "host/platform_window.h"

namespace egfsvg {

/// Shows it, and puts back the old cursor and the frame's class cursor at its end.
class WaitCursor {
 public:
  WaitCursor()
      : cursor_(LoadCursorA(0, kWaitCursor)),
        oldCursor_(SetCursor(cursor_)),
        oldClassCursor_(SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, cursor_)) {}
  ~WaitCursor() {
    if (left_) return;
    SetCursor(oldCursor_);
    SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, oldClassCursor_);
  }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

  /// The wait cursor stays.
  void leave() { left_ = true; }

 private:
  const HostHandle cursor_;
  const HostHandle oldCursor_;
  const HostHandle oldClassCursor_;
  bool left_ = false;
};

}  // namespace egfsvg
