// How deep objects may stand in objects. A tree that was read always fits.
#pragma once

#include <algorithm>

#include "adapter_writer/writer_state.h"
#include "host/diagnostics.h"
#include "host/memory.h"

namespace egfsvg {

inline constexpr std::uint32_t kNestingMargin = 16;
inline constexpr std::uint32_t kDeepestNesting = 10000;  // what the stack bears

inline std::uint32_t deepestTree() {
  return std::min(maxNesting(), kDeepestNesting) + kNestingMargin;
}

/// An object while what stands in it is being written.
class OpenObject {
 public:
  explicit OpenObject(WriterState& state) : state_(state) { ++state_.depth; }
  ~OpenObject() { --state_.depth; }
  OpenObject(const OpenObject&) = delete;
  OpenObject& operator=(const OpenObject&) = delete;

  /// False, with a message the first time, beyond the deepest tree.
  bool fits() {
    if (state_.depth <= deepestTree()) return true;
    if (!state_.limitReported) {
      logDiagnostic(Diagnostic::kNestingLimit, kNoSourceOffset, "g", RMM_SITE);
    }
    state_.limitReported = true;
    return false;
  }

 private:
  WriterState& state_;
};

}  // namespace egfsvg
