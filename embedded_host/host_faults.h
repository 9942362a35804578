// Fault injection, as tests ask for it. Host calls are named as in the contract ("FLR_Read"); "RMM"
// is every allocating RMM_ call together. Calls count from 1, starting when the fault is armed.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/wire.h"

namespace egfhost {

enum class FaultKind : std::uint8_t {
  kFail,      // the call fails in its own way
  kCutShort,  // FLR_Read and FLR_Write move half of what was asked, others fail
  kThrow      // the call throws a CException*; not for release calls and RMM
};

enum class FaultSpan : std::uint8_t { kOnce, kForEver };

// Arms a fault at the n-th call from now. False when the name is not known or cannot do that.
EGFHOST_API bool armFault(std::string_view call, std::uint64_t n, FaultKind kind = FaultKind::kFail,
                          FaultSpan span = FaultSpan::kOnce);

inline bool failAt(std::string_view call, std::uint64_t n, FaultSpan span = FaultSpan::kOnce) {
  return armFault(call, n, FaultKind::kFail, span);
}
inline bool throwAt(std::string_view call, std::uint64_t n) {
  return armFault(call, n, FaultKind::kThrow);
}
inline bool failAllocation(std::uint64_t n, FaultSpan span = FaultSpan::kOnce) {
  return armFault("RMM", n, FaultKind::kFail, span);
}

// Counts calls from now on without any fault; clearFaults ends it.
EGFHOST_API void countCalls();

// Calls of that name since counting or the first fault was armed; 0 for an unknown name.
EGFHOST_API std::uint64_t callCount(std::string_view call);

// How often an armed fault has struck since then.
EGFHOST_API std::uint64_t faultsStruck();

// Disarms everything and forgets the counts.
EGFHOST_API void clearFaults();

}  // namespace egfhost
