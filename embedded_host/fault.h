// Fault injection inside the host. Each host call that can be made to fail asks faultFails (or
// faultPoint, when it has no failure to give) first; with nothing armed that is one branch.
#pragma once

#include <cstddef>
#include <cstdint>

namespace egfhost {

enum class FaultCall : std::uint8_t {
#define EGFHOST_FAULT_CALL(name, mayThrow) name,
#include "embedded_host/fault_calls.def"
#undef EGFHOST_FAULT_CALL
};

inline constexpr std::size_t kFaultCalls = 0
#define EGFHOST_FAULT_CALL(name, mayThrow) +1
#include "embedded_host/fault_calls.def"
#undef EGFHOST_FAULT_CALL
    ;

// True while calls are counted or some call is to fail.
extern bool faultsArmed;

// What a call is asked to do.
enum class FaultOutcome : std::uint8_t { kNone, kFail, kCutShort };

// Counts the call and tells its outcome. Throws a CException* when that was asked for.
FaultOutcome faultOutcomeArmed(FaultCall call);

inline FaultOutcome faultOutcome(FaultCall call) {
  if (!faultsArmed) [[likely]]
    return FaultOutcome::kNone;
  return faultOutcomeArmed(call);
}

// True when the call is to fail in its own way.
inline bool faultFails(FaultCall call) { return faultOutcome(call) == FaultOutcome::kFail; }

// For calls that cannot fail: they can still throw.
inline void faultPoint(FaultCall call) { faultOutcome(call); }

}  // namespace egfhost
