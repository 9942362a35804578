#include "embedded_host/fault.h"

#include <array>
#include <optional>

#include "embedded_host/allocation_watch.h"
#include "embedded_host/host_faults.h"
#include "host/framework.h"

namespace egfhost {

bool faultsArmed = false;

namespace {

struct CallRow {
  std::string_view name;
  bool mayThrow;
};

constexpr CallRow kCallRows[] = {
#define EGFHOST_FAULT_CALL(name, mayThrow) {#name, mayThrow},
#include "embedded_host/fault_calls.def"
#undef EGFHOST_FAULT_CALL
};

struct CallPlan {
  std::uint64_t count = 0;  // calls seen
  std::uint64_t at = 0;     // the call that fails, 0 for none
  FaultKind kind = FaultKind::kFail;
  FaultSpan span = FaultSpan::kOnce;
};

// All that fault injection keeps.
struct FaultState {
  std::array<CallPlan, kFaultCalls> plans;
  std::uint64_t struck = 0;
};

FaultState state;

std::optional<std::size_t> callIndex(std::string_view name) {
  for (std::size_t i = 0; i < kFaultCalls; ++i) {
    if (kCallRows[i].name == name) return i;
  }
  return std::nullopt;
}

void arm(bool armed) {
  faultsArmed = armed;
  renewAllocationWatch();
}

bool strikesNow(const CallPlan& plan) {
  if (plan.at == 0) return false;
  return plan.span == FaultSpan::kForEver ? plan.count >= plan.at : plan.count == plan.at;
}

}  // namespace

FaultOutcome faultOutcomeArmed(FaultCall call) {
  CallPlan& plan = state.plans[static_cast<std::size_t>(call)];
  ++plan.count;
  if (!strikesNow(plan)) return FaultOutcome::kNone;
  ++state.struck;
  if (plan.kind == FaultKind::kThrow) throw new CException;
  return plan.kind == FaultKind::kFail ? FaultOutcome::kFail : FaultOutcome::kCutShort;
}

bool armFault(std::string_view call, std::uint64_t n, FaultKind kind, FaultSpan span) {
  const std::optional<std::size_t> index = callIndex(call);
  if (!index || n == 0) return false;
  if (kind == FaultKind::kThrow && !kCallRows[*index].mayThrow) return false;
  state.plans[*index] = CallPlan{.count = 0, .at = n, .kind = kind, .span = span};
  arm(true);
  return true;
}

void countCalls() {
  clearFaults();
  arm(true);
}

std::uint64_t callCount(std::string_view call) {
  const std::optional<std::size_t> index = callIndex(call);
  return index ? state.plans[*index].count : 0;
}

std::uint64_t faultsStruck() { return state.struck; }

void clearFaults() {
  arm(false);
  state = FaultState{};
}

}  // namespace egfhost
