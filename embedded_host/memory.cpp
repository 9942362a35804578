#include "host/memory.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>

#include "embedded_host/blocks.h"
#include "embedded_host/fault.h"
#include "embedded_host/host_memory.h"

namespace egfhost {

namespace {

// Blocks that a sanitizer build keeps poisoned before it gives them out again.
constexpr std::size_t kRetiredBlocks = kPoisoning ? 4096 : 1;
constexpr std::size_t kRetiredLargest = 65536;

// All that the allocator keeps besides the cage.
struct MemoryState {
  MemoryCounters counters{};
  std::uint64_t byteBudget = 0;
  std::uint64_t blockBudget = 0;
  bool budgeted = false;
  std::array<BlockHeader*, kRetiredBlocks> retired{};
  std::size_t nextRetired = 0;
};

constinit MemoryState state{};

// The cage is there before any other code of the process asks for memory.
[[maybe_unused]] const bool reservedAtLoad = reserveCage();

// Whether budgets and armed faults let a call through that adds so many bytes and blocks.
bool admits(std::uint64_t bytes, std::uint64_t blocks) {
  if (faultFails(FaultCall::RMM)) return false;
  const MemoryCounters& now = state.counters;
  if (state.byteBudget != 0 && now.liveBytes + bytes > state.byteBudget) return false;
  return state.blockBudget == 0 || now.liveBlocks + blocks <= state.blockBudget;
}

inline bool watched() { return faultsArmed | state.budgeted; }

void* refuse() {
  ++state.counters.refusals;
  return nullptr;
}

void countLive(std::uint64_t bytes, std::uint64_t blocks) {
  MemoryCounters& counters = state.counters;
  counters.liveBytes += bytes;
  counters.liveBlocks += blocks;
  ++counters.allocations;
  if (counters.liveBytes > counters.peakBytes) counters.peakBytes = counters.liveBytes;
  if (counters.liveBlocks > counters.peakBlocks) counters.peakBlocks = counters.liveBlocks;
}

EGFHOST_SEES_POISON void setSite(BlockHeader* header, std::size_t size, const char* file,
                                 int line) {
  header->file = file;
  header->size = static_cast<std::uint32_t>(size);
  header->line = static_cast<std::uint16_t>(std::min<unsigned>(line, kMaxSiteLine));
}

EGFHOST_SEES_POISON std::size_t sizeOf(const BlockHeader* header) { return header->size; }

// A place with room for `room` bytes for a payload of `size`.
void* place(std::size_t room, std::size_t size, const char* file, int line) {
  BlockHeader* const header = takeBlock(room);
  if (header == nullptr) return nullptr;
  setSite(header, size, file, line);
  setState(header, BlockState::kLive);
  unpoison(payloadOf(header), size);
  return payloadOf(header);
}

inline bool product(std::size_t count, std::size_t size, std::size_t& bytes) {
  return !__builtin_mul_overflow(count, size, &bytes) && bytes <= kMaxPayload;
}

void* allocate(std::size_t count, std::size_t size, const char* file, int line) {
  std::size_t bytes;
  if (!product(count, size, bytes)) [[unlikely]]
    return refuse();
  if (watched() && !admits(bytes, 1)) [[unlikely]]
    return refuse();
  void* const block = place(bytes, bytes, file, line);
  if (block == nullptr) [[unlikely]]
    return refuse();
  countLive(bytes, 1);
  return block;
}

void reportBadBlock(const void* block) {
  ++state.counters.badFrees;
  // One place is enough to start from.
  if (!kPoisoning || state.counters.badFrees > 1) return;
  std::fprintf(stderr, "egfhost: %p is no live block\n", block);
  printCallers();
}

// Sanitizer builds hold freed blocks back for a while, so that a late use of them is found.
void retire(BlockHeader* header, std::size_t size) {
  if (!kPoisoning || size > kRetiredLargest) {
    returnBlock(header);
    return;
  }
  setState(header, BlockState::kRetired);
  BlockHeader*& slot = state.retired[state.nextRetired];
  state.nextRetired = (state.nextRetired + 1) % kRetiredBlocks;
  BlockHeader* const oldest = slot;
  slot = header;
  if (oldest != nullptr) returnBlock(oldest);
}

void release(BlockHeader* header) {
  const std::size_t size = sizeOf(header);
  state.counters.liveBytes -= size;
  --state.counters.liveBlocks;
  poison(payloadOf(header), size);
  retire(header, size);
}

// Moves the end of what may be touched; only the part between the two ends is marked anew.
void movePoison(void* block, std::size_t before, std::size_t after) {
  if (!kPoisoning) return;
  const std::size_t from = std::min(before, after) & ~kPoisonGrainMask;
  char* const begin = static_cast<char*>(block) + from;
  if (after < before) poison(begin, before - from);
  unpoison(begin, after - from);
}

// The same place, another size.
void* resizeInPlace(BlockHeader* header, std::size_t bytes, const char* file, int line) {
  movePoison(payloadOf(header), sizeOf(header), bytes);
  setSite(header, bytes, file, line);
  return payloadOf(header);
}

// Another place: the old contents go along, the old place is given back.
void* resizeElsewhere(BlockHeader* header, std::size_t room, std::size_t bytes, const char* file,
                      int line) {
  void* block = place(room, bytes, file, line);
  if (block == nullptr && room > bytes) block = place(bytes, bytes, file, line);
  if (block == nullptr) return nullptr;
  const std::size_t before = sizeOf(header);
  std::memcpy(block, payloadOf(header), std::min(before, bytes));
  setState(headerOf(block), stateOf(header));
  poison(payloadOf(header), before);
  retire(header, before);
  return block;
}

// A shrink moves to a smaller place when most of the old one would stay empty.
bool wastes(std::size_t room, std::size_t before, std::size_t bytes) {
  constexpr std::size_t kSmallestWorthMoving = 512;
  constexpr std::size_t kWastedShare = 3;
  return bytes < before && room >= kSmallestWorthMoving && bytes < room / kWastedShare;
}

void* resize(BlockHeader* header, std::size_t bytes, const char* file, int line) {
  const std::size_t before = sizeOf(header);
  const std::size_t room = payloadRoom(header);
  if (bytes <= room) {
    if (wastes(room, before, bytes)) {
      void* const moved = resizeElsewhere(header, bytes, bytes, file, line);
      if (moved != nullptr) return moved;
    }
    return resizeInPlace(header, bytes, file, line);
  }
  const std::size_t roomy = std::min(std::max(bytes, room + room / 2), kMaxPayload);
  if (extendBlock(header, roomy)) return resizeInPlace(header, bytes, file, line);
  return resizeElsewhere(header, roomy, bytes, file, line);
}

void* reallocate(void* block, std::size_t count, std::size_t size, const char* file, int line) {
  if (!isLiveBlock(block)) {
    reportBadBlock(block);
    return refuse();
  }
  std::size_t bytes;
  if (!product(count, size, bytes)) return refuse();
  BlockHeader* const header = headerOf(block);
  const std::size_t before = sizeOf(header);
  if (watched() && !admits(bytes > before ? bytes - before : 0, 0)) return refuse();
  void* const resized = resize(header, bytes, file, line);
  if (resized == nullptr) return refuse();
  countLive(bytes - before, 0);
  return resized;
}

}  // namespace

MemoryCounters memoryCounters() { return state.counters; }

void resetMemoryPeak() {
  state.counters.peakBytes = state.counters.liveBytes;
  state.counters.peakBlocks = state.counters.liveBlocks;
}

void clearBadFrees() { state.counters.badFrees = 0; }

void setByteBudget(std::uint64_t bytes) {
  state.byteBudget = bytes;
  state.budgeted = state.byteBudget != 0 || state.blockBudget != 0;
}

void setBlockBudget(std::uint64_t blocks) {
  state.blockBudget = blocks;
  state.budgeted = state.byteBudget != 0 || state.blockBudget != 0;
}

}  // namespace egfhost

void* RMM_AllocName(std::size_t count, std::size_t size, const char* file, int line) {
  return egfhost::allocate(count, size, file, line);
}

void* RMM_CallocName(std::size_t count, std::size_t size, const char* file, int line) {
  void* const block = egfhost::allocate(count, size, file, line);
  if (block != nullptr) std::memset(block, 0, count * size);
  return block;
}

void* RMM_ReAllocName(void* block, std::size_t count, std::size_t size, const char* file,
                      int line) {
  if (block == nullptr) return egfhost::allocate(count, size, file, line);
  return egfhost::reallocate(block, count, size, file, line);
}

void* RMM_ChownName(void* block) {
  if (block != nullptr && egfhost::isLiveBlock(block)) {
    egfhost::setState(egfhost::headerOf(block), egfhost::BlockState::kChowned);
  }
  return block;
}

void RMM_Free(void* block) {
  if (block == nullptr) return;
  if (!egfhost::isLiveBlock(block)) [[unlikely]] {
    egfhost::reportBadBlock(block);
    return;
  }
  egfhost::release(egfhost::headerOf(block));
}
