// The dash list of a page. Numbers rise by one from record to record, and the first record keeps an
// index of all, so that a record is found by its number at once. A list that was linked by hand has
// no index and is walked.

#include <algorithm>

#include "embedded_host/fault.h"
#include "host/egf.h"
#include "host/egf_codes.h"
#include "host/memory.h"

namespace {

using egfsvg::EgfPageHeader;

constexpr int kFailed = -1;
constexpr std::uint32_t kFirstNumber = 1;
constexpr std::uint32_t kFirstCapacity = 8;

using DashLink = ref32<_egf_dash_record>;

bool reserveIndex(_egf_dash_record* first, std::uint32_t entries) {
  if (entries <= first->indexCapacity) return true;
  const std::uint32_t capacity = std::max(kFirstCapacity, entries * 2);
  void* index = RMM_ReAllocName(first->index.get(), capacity, sizeof(DashLink), RMM_SITE);
  if (index == nullptr) return false;
  first->index = static_cast<DashLink*>(index);
  first->indexCapacity = capacity;
  return true;
}

// Notes a record that goes to the end of the list. False when memory is short.
bool indexLast(_egf_dash_record* first, _egf_dash_record* record) {
  const bool indexed = first == record || first->indexCount != 0;
  if (!indexed) return true;
  const std::uint32_t place = first->indexCount;
  if (!reserveIndex(first, place + 1)) return false;
  first->index[place] = record;
  first->indexCount = place + 1;
  return true;
}

_egf_dash_record* lastOf(const EgfPageHeader* header) {
  _egf_dash_record* last = header->lastDash ? header->lastDash.get() : header->firstDash.get();
  while (last != nullptr && last->next) last = last->next.get();
  return last;
}

_egf_dash_record* findDash(_egf_dash_record* first, std::uint32_t number) {
  const std::uint32_t place = number - first->number;
  if (place < first->indexCount && first->index[place]->number == number) {
    return first->index[place].get();
  }
  _egf_dash_record* at = first;
  while (at != nullptr && at->number != number) at = at->next.get();
  return at;
}

// A number that no record of the list has. Lists that were linked by hand are looked through once.
std::uint32_t nextNumber(const EgfPageHeader* header) {
  std::uint32_t next = std::max<std::uint32_t>(header->nextDashNumber, kFirstNumber);
  if (header->lastDash) return next;
  for (auto* at = header->firstDash.get(); at != nullptr; at = at->next.get()) {
    next = std::max(next, at->number + 1);
  }
  return next;
}

}  // namespace

extern "C" {

_egf_dash_record* EGF_CreateDashRecord() {
  if (egfhost::faultFails(egfhost::FaultCall::EGF_CreateDashRecord)) return nullptr;
  return static_cast<_egf_dash_record*>(RMM_CallocName(1, sizeof(_egf_dash_record), RMM_SITE));
}

int EGF_AppendDashRecord(EgfPageHeader* pageHeader, _egf_dash_record* record) {
  if (egfhost::faultFails(egfhost::FaultCall::EGF_AppendDashRecord)) return kFailed;
  if (pageHeader == nullptr || record == nullptr) return kFailed;
  _egf_dash_record* last = lastOf(pageHeader);
  if (!indexLast(last == nullptr ? record : pageHeader->firstDash.get(), record)) return kFailed;
  record->number = nextNumber(pageHeader);
  record->next = nullptr;
  if (last == nullptr) {
    pageHeader->firstDash = record;
  } else {
    last->next = record;
  }
  pageHeader->lastDash = record;
  pageHeader->nextDashNumber = record->number + 1;
  return 0;
}

_egf_dash_record* EGF_GetDashRecordByStyle(HostHandle firstDash, std::uint32_t style) {
  if (egfhost::faultFails(egfhost::FaultCall::EGF_GetDashRecordByStyle)) return nullptr;
  auto* first = egfsvg::at<_egf_dash_record>(firstDash);
  if (first == nullptr || style == egfsvg::kLineSolid) return nullptr;
  return findDash(first, style);
}

}  // extern "C"
