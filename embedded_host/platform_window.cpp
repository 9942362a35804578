#include "host/platform_window.h"

#include "embedded_host/bounded_text.h"
#include "embedded_host/handles.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_window.h"

namespace egfhost {

namespace {

// There is one window, the frame; cursors are their own numbers.
constexpr HostHandle kFrameWindow = 1;

// All that the window calls keep.
struct WindowState {
  HostHandle cursor = kArrowCursor;
  HostHandle classCursor = kArrowCursor;
};

constinit WindowState state{};

}  // namespace

HostHandle currentCursor() { return state.cursor; }

HostHandle frameClassCursor() { return state.classCursor; }

}  // namespace egfhost

HostHandle LoadCursorA(HostHandle, std::uintptr_t cursor) {
  return static_cast<HostHandle>(cursor);
}

HostHandle SetCursor(HostHandle cursor) {
  const HostHandle before = egfhost::state.cursor;
  egfhost::state.cursor = cursor;
  return before;
}

HostHandle SetClassLongA(HostHandle window, int index, HostHandle value) {
  if (window != egfhost::kFrameWindow || index != kClassLongCursor) return 0;
  const HostHandle before = egfhost::state.classCursor;
  egfhost::state.classCursor = value;
  return before;
}

HostHandle GetActiveWindow() { return egfhost::kFrameWindow; }

HostHandle COM_GetFrameWnd() { return egfhost::kFrameWindow; }

int MessageBoxA(HostHandle, const char* text, const char*, std::uint32_t) {
  constexpr int kButtonOk = 1;
  return egfhost::hostCall(kButtonOk, [&] {
    egfhost::recordMessage(
        {egfhost::MessageKind::kNotice, 0, 0, egfhost::textOrEmpty(text), {}, 0});
    return kButtonOk;
  });
}
