#include "host/memory.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "embedded_host/allocation_watch.h"
#include "embedded_host/blocks.h"
#include "embedded_host/fault.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/memory_tally.h"
#include "embedded_host/tree_memory.h"

namespace egfhost {

std::size_t unwatchedBelow = kSlotMax - kBlockOverhead + 1;

namespace {

// Blocks that a sanitizer build keeps poisoned before it gives them out again.
constexpr std::size_t kRetiredBlocks = kPoisoning ? 4096 : 1;
constexpr std::size_t kRetiredLargest = 65536;

// All that the allocator keeps besides the cage and its counts.
struct MemoryState {
  std::uint64_t byteBudget = 0;
  std::uint64_t blockBudget = 0;
  std::array<BlockHeader*, kRetiredBlocks> retired{};
  std::size_t nextRetired = 0;
};

constinit MemoryState state{};

// The cage is there before any other code of the process asks for memory.
[[maybe_unused]] const bool reservedAtLoad = reserveCage();

// Whether budgets and armed faults let a call through that adds so many bytes and blocks.
bool admits(std::uint64_t bytes, std::uint64_t blocks) {
  if (faultFails(FaultCall::RMM)) return false;
  if (state.byteBudget != 0 && memoryTally.bytes.live + bytes > state.byteBudget) return false;
  return state.blockBudget == 0 || memoryTally.blocks.live + blocks <= state.blockBudget;
}

bool watched() { return unwatchedBelow == 0; }

void* refuse() {
  ++memoryTally.refusals;
  return nullptr;
}

// Where a block was asked for.
struct Site {
  const char* file;
  int line;

  std::uint16_t shortLine() const {
    return static_cast<std::uint16_t>(
        std::min<unsigned>(static_cast<unsigned>(line), kMaxSiteLine));
  }
};

EGFHOST_SEES_POISON inline void writeHeader(BlockHeader* header, Site site, std::size_t size,
                                            std::size_t sizeClass, BlockState blockState) {
  *header = BlockHeader{site.file, static_cast<std::uint32_t>(size), site.shortLine(),
                        static_cast<std::uint8_t>(sizeClass), blockState};
}

// A slot of that class; null when the cage is full.
BlockHeader* takeSlot(std::size_t sizeClass) {
  BlockHeader* const atHand = slotAtHand(sizeClass);
  if (atHand != nullptr) return atHand;
  return openNewRegion() ? slotAtHand(sizeClass) : nullptr;
}

// A place with room for `room` bytes for a payload of `size`; null when the cage is full.
void* place(std::size_t room, std::size_t size, Site site, BlockState blockState) {
  const bool small = isSmall(room);
  const std::size_t sizeClass = small ? classForPayload(room) : kLargeClass;
  BlockHeader* const header = small ? takeSlot(sizeClass) : takeLarge(room);
  if (header == nullptr) return nullptr;
  writeHeader(header, site, size, sizeClass, blockState);
  unpoison(payloadOf(header), size);
  return payloadOf(header);
}

bool product(std::size_t count, std::size_t size, std::size_t& bytes) {
  return !__builtin_mul_overflow(count, size, &bytes) && bytes <= kMaxPayload;
}

// Allocations that are watched or large, and those for which no slot is at hand.
[[gnu::noinline]] void* allocateWithCare(std::size_t count, std::size_t size, Site site) {
  std::size_t bytes;
  if (!product(count, size, bytes)) return refuse();
  if (watched() && !admits(bytes, 1)) return refuse();
  void* const block = place(bytes, bytes, site, BlockState::kLive);
  if (block == nullptr) return refuse();
  memoryTally.addBlock(bytes);
  return block;
}

// A small block; null when no slot is at hand.
[[gnu::always_inline]] inline void* blockAtHand(std::size_t bytes, std::size_t sizeClass,
                                                Site site) {
  BlockHeader* const header = slotAtHand(sizeClass);
  if (header == nullptr) [[unlikely]]
    return nullptr;
  writeHeader(header, site, bytes, sizeClass, BlockState::kLive);
  unpoison(payloadOf(header), bytes);
  memoryTally.addBlock(bytes);
  return payloadOf(header);
}

[[gnu::always_inline]] inline void* allocate(std::size_t count, std::size_t size, Site site) {
  std::size_t bytes;
  const bool overflows = __builtin_mul_overflow(count, size, &bytes);
  if (overflows || bytes >= unwatchedBelow) [[unlikely]]
    return allocateWithCare(count, size, site);
  void* const block = blockAtHand(bytes, classForPayload(bytes), site);
  return block != nullptr ? block : allocateWithCare(count, size, site);
}

// Zeroes the payload of a small block with all that its size is rounded up to, in few steps. The
// last ones overlap those before where the size is no multiple of theirs.
inline void zeroRecord(void* block, std::size_t bytes) {
  if (kPoisoning) {
    std::memset(block, 0, bytes);
    return;
  }
  constexpr std::size_t kHalf = kSmallestRecord;
  constexpr std::size_t kStep = 2 * kHalf;
  auto* const begin = static_cast<char*>(block);
  char* const end = begin + ((bytes + kGrain - 1) & ~(kGrain - 1));
  for (char* at = begin; at < end - kStep; at += kStep) std::memset(at, 0, kStep);
  std::memset(std::max(begin, end - kStep), 0, kHalf);
  std::memset(end - kHalf, 0, kHalf);
}

[[gnu::noinline]] void reportBadBlock(const void* block) {
  ++memoryTally.badFrees;
  // One place is enough to start from.
  if (!kPoisoning || memoryTally.badFrees > 1) return;
  std::fprintf(stderr, "egfhost: %p is no live block\n", block);
  printCallers();
}

// Sanitizer builds hold freed blocks back for a while, so that a late use of them is found.
inline void retire(BlockHeader* header, std::size_t size) {
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

inline void release(BlockHeader* header) {
  const std::size_t size = sizeOf(header);
  memoryTally.removeBlocks(1, size);
  poison(payloadOf(header), size);
  retire(header, size);
}

// Moves the end of what may be touched; only the part between the two ends is marked anew.
inline void movePoison(void* block, std::size_t before, std::size_t after) {
  if (!kPoisoning) return;
  const std::size_t from = std::min(before, after) & ~kPoisonGrainMask;
  char* const begin = static_cast<char*>(block) + from;
  if (after < before) poison(begin, before - from);
  unpoison(begin, after - from);
}

// The same place, another size.
inline void* resizeInPlace(BlockHeader* header, std::size_t bytes, Site site) {
  movePoison(payloadOf(header), sizeOf(header), bytes);
  writeHeader(header, site, bytes, classOf(header), stateOf(header));
  return payloadOf(header);
}

// Another place: the old contents go along, the old place is given back.
void* resizeElsewhere(BlockHeader* header, std::size_t room, std::size_t bytes, Site site) {
  void* block = place(room, bytes, site, stateOf(header));
  if (block == nullptr && room > bytes) block = place(bytes, bytes, site, stateOf(header));
  if (block == nullptr) return nullptr;
  const std::size_t before = sizeOf(header);
  std::memcpy(block, payloadOf(header), std::min(before, bytes));
  poison(payloadOf(header), before);
  retire(header, before);
  return block;
}

// The room for a block that outgrew what it had: lists that grow by one step often start small.
std::size_t roomToGrow(std::size_t room, std::size_t bytes) {
  constexpr std::size_t kDoubledBelow = 512;
  const std::size_t slack = room < kDoubledBelow ? room : room / 2;
  return std::min(std::max(bytes, room + slack), kMaxPayload);
}

// Beyond the room that the block has: longer in place when what follows is free, else elsewhere,
// with slack.
[[gnu::noinline]] void* grow(BlockHeader* header, std::size_t bytes, Site site) {
  const std::size_t roomy = roomToGrow(payloadRoom(header), bytes);
  if (extendBlock(header, roomy)) return resizeInPlace(header, bytes, site);
  return resizeElsewhere(header, roomy, bytes, site);
}

// A shrink moves to a smaller place when most of the old one would stay empty.
inline bool wastes(std::size_t room, std::size_t before, std::size_t bytes) {
  constexpr std::size_t kSmallestWorthMoving = 512;
  constexpr std::size_t kWastedShare = 3;
  return bytes < before && room >= kSmallestWorthMoving && bytes < room / kWastedShare;
}

[[gnu::noinline]] void* shrink(BlockHeader* header, std::size_t bytes, Site site) {
  if (wastes(payloadRoom(header), sizeOf(header), bytes)) {
    void* const moved = resizeElsewhere(header, bytes, bytes, site);
    if (moved != nullptr) return moved;
  }
  return resizeInPlace(header, bytes, site);
}

inline void* resize(BlockHeader* header, std::size_t bytes, Site site) {
  if (bytes < sizeOf(header)) return shrink(header, bytes, site);
  if (bytes <= payloadRoom(header)) return resizeInPlace(header, bytes, site);
  return grow(header, bytes, site);
}

// Whatever does not stay in the room that the block has.
[[gnu::noinline]] void* reallocateWithCare(void* block, std::size_t count, std::size_t size,
                                           Site site) {
  if (!isLiveBlock(block)) {
    reportBadBlock(block);
    return refuse();
  }
  std::size_t bytes;
  if (!product(count, size, bytes)) return refuse();
  BlockHeader* const header = headerOf(block);
  const std::size_t before = sizeOf(header);
  if (watched() && !admits(bytes > before ? bytes - before : 0, 0)) return refuse();
  void* const resized = resize(header, bytes, site);
  if (resized == nullptr) return refuse();
  memoryTally.resizeBlock(before, bytes);
  return resized;
}

// A small block that outgrows its room and stays a small one.
[[gnu::noinline]] void* growSmall(BlockHeader* header, std::size_t bytes, Site site) {
  const std::size_t roomy = roomToGrow(payloadRoom(header), bytes);
  const std::size_t sizeClass = classForPayload(isSmall(roomy) ? roomy : bytes);
  BlockHeader* const grown = slotAtHand(sizeClass);
  if (grown == nullptr) [[unlikely]]
    return reallocateWithCare(payloadOf(header), 1, bytes, site);
  const std::size_t before = sizeOf(header);
  writeHeader(grown, site, bytes, sizeClass, stateOf(header));
  unpoison(payloadOf(grown), bytes);
  std::memcpy(payloadOf(grown), payloadOf(header), before);
  poison(payloadOf(header), before);
  retire(header, before);
  memoryTally.resizeBlock(before, bytes);
  return payloadOf(grown);
}

inline void* reallocate(void* block, std::size_t count, std::size_t size, Site site) {
  std::size_t bytes;
  const bool overflows = __builtin_mul_overflow(count, size, &bytes);
  if (overflows || watched() || !isLiveBlock(block)) [[unlikely]]
    return reallocateWithCare(block, count, size, site);
  BlockHeader* const header = headerOf(block);
  const std::size_t before = sizeOf(header);
  const std::size_t room = payloadRoom(header);
  // Only a small block's room is less than a small payload.
  if (bytes > room && isSmall(bytes)) return growSmall(header, bytes, site);
  if (bytes > room || wastes(room, before, bytes)) {
    return reallocateWithCare(block, count, size, site);
  }
  memoryTally.resizeBlock(before, bytes);
  return resizeInPlace(header, bytes, site);
}

}  // namespace

void renewAllocationWatch() {
  const bool looks = faultsArmed || state.byteBudget != 0 || state.blockBudget != 0;
  unwatchedBelow = looks ? 0 : kSlotMax - kBlockOverhead + 1;
}

void* recordAtHand(RecordRoom room, const char* file, int line) noexcept {
  if (watched()) [[unlikely]]
    return nullptr;
  void* const block = blockAtHand(room.bytes, room.sizeClass, {file, line});
  if (block != nullptr) zeroRecord(block, room.bytes);
  return block;
}

void setByteBudget(std::uint64_t bytes) {
  state.byteBudget = bytes;
  renewAllocationWatch();
}

void setBlockBudget(std::uint64_t blocks) {
  state.blockBudget = blocks;
  renewAllocationWatch();
}

}  // namespace egfhost

void* RMM_AllocName(std::size_t count, std::size_t size, const char* file, int line) {
  return egfhost::allocate(count, size, {file, line});
}

void* RMM_CallocName(std::size_t count, std::size_t size, const char* file, int line) {
  void* const block = egfhost::allocate(count, size, {file, line});
  if (block != nullptr) std::memset(block, 0, count * size);
  return block;
}

void* RMM_ReAllocName(void* block, std::size_t count, std::size_t size, const char* file,
                      int line) {
  if (block == nullptr) return RMM_AllocName(count, size, file, line);
  return egfhost::reallocate(block, count, size, {file, line});
}

void* RMM_ChownName(void* block) {
  if (egfhost::isLiveBlock(block)) {
    egfhost::setState(egfhost::headerOf(block), egfhost::BlockState::kChowned);
  }
  return block;
}

void RMM_Free(void* block) {
  if (egfhost::isLiveBlock(block)) [[likely]] {
    egfhost::release(egfhost::headerOf(block));
  } else if (block != nullptr) {
    egfhost::reportBadBlock(block);
  }
}
