#include "frame/live_objects.h"

#include "model/rmm_allocator.h"

namespace egfsvg {

namespace {

struct LiveEntry {
  const void* object;
  LiveKind kind;
};

/// Objects of the four layer classes between their Open and their Close. Owns its block, which goes
/// back when the last object leaves.
struct LiveObjects {
  LiveEntry* entries = nullptr;
  std::int32_t count = 0;
};
constinit LiveObjects live;

std::int32_t positionOf(const void* object) {
  for (std::int32_t i = 0; i < live.count; ++i) {
    if (live.entries[i].object == object) return i;
  }
  return -1;
}

}  // namespace

bool enterLiveObject(const void* object, LiveKind kind) {
  void* grown = RMM_ReAllocName(live.entries, static_cast<std::size_t>(live.count) + 1,
                                sizeof(LiveEntry), RMM_SITE);
  if (grown == nullptr) return false;
  live.entries = static_cast<LiveEntry*>(grown);
  live.entries[live.count++] = {object, kind};
  return true;
}

void leaveLiveObject(const void* object) {
  const std::int32_t position = positionOf(object);
  if (position < 0) return;
  live.entries[position] = live.entries[--live.count];
  if (live.count == 0) freeAll(live.entries);
}

bool isLiveObject(const void* object, LiveKind kind) {
  const std::int32_t position = object == nullptr ? -1 : positionOf(object);
  return position >= 0 && live.entries[position].kind == kind;
}

}  // namespace egfsvg
