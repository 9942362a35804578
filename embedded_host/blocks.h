// Blocks inside the cage: a header of 16 bytes, then the payload. Small blocks are slots of 64 KiB
// slabs, one slab for one slot size; large ones are runs of pages of their own.
#pragma once

#include <cstddef>
#include <cstdint>

#include "embedded_host/cage.h"
#include "embedded_host/poison.h"

namespace egfhost {

enum class BlockState : std::uint8_t {
  kFree = 0,
  kLive = 0xab,     // owned by whoever allocated it
  kChowned = 0xad,  // owned by the document
  kRetired = 0x51   // freed, but not yet given out again (sanitizer builds)
};

// Stands before each payload, poisoned.
struct BlockHeader {
  const char* file;        // the literal that the caller passed; next spare slot while it is spare
  std::uint32_t size;      // bytes asked for
  std::uint16_t line;      // kMaxSiteLine for all lines from there on
  std::uint8_t sizeClass;  // kLargeClass for a run of pages
  BlockState state;
};
static_assert(sizeof(BlockHeader) == 16);

inline constexpr std::uint16_t kMaxSiteLine = 0xffff;
inline constexpr std::uint8_t kLargeClass = 0xff;
inline constexpr std::size_t kHeaderSize = sizeof(BlockHeader);
// Poisoned bytes after a payload.
inline constexpr std::size_t kRedZone = kPoisoning ? 16 : 0;
inline constexpr std::size_t kBlockOverhead = kHeaderSize + kRedZone;
// The largest payload; the first page of the cage is never given out.
inline constexpr std::size_t kMaxPayload = kCageSize - kPageSize - kBlockOverhead;

inline BlockHeader* headerOf(void* block) { return static_cast<BlockHeader*>(block) - 1; }
inline void* payloadOf(BlockHeader* header) { return header + 1; }

EGFHOST_SEES_POISON inline BlockState stateOf(const BlockHeader* header) { return header->state; }
EGFHOST_SEES_POISON inline void setState(BlockHeader* header, BlockState state) {
  header->state = state;
}
inline bool isLive(BlockState state) {
  return state == BlockState::kLive || state == BlockState::kChowned;
}

// True for the payload of a live block; any address may be asked about.
inline bool isLiveBlock(void* block) {
  const auto distance = static_cast<std::size_t>(static_cast<char*>(block) - cageStart);
  // The header of a block is never in the first page.
  const bool inside = distance > kPageSize && distance < kCageSize;
  if (!inside || reinterpret_cast<std::uintptr_t>(block) % kHeaderSize != 0) {
    return false;
  }
  return cageReaches(static_cast<HostHandle>(distance)) && isLive(stateOf(headerOf(block)));
}

// A place for a payload of that size, with its size class set; null when the cage is full.
BlockHeader* takeBlock(std::size_t payload);

// Gives a place back. The state is kFree afterwards.
void returnBlock(BlockHeader* header);

// The payload bytes that the place has room for.
std::size_t payloadRoom(const BlockHeader* header);

// Makes the place of a large block longer; false when it cannot be done in place.
bool extendBlock(BlockHeader* header, std::size_t payload);

// Calls visit(header) for each live block, in the order of their addresses.
template <class Visit>
void forEachLiveBlock(Visit visit);

// Slots of one class.
struct SizeClass {
  std::uint32_t slotSize;  // header, payload and red zone
  std::uint32_t slots;     // in one slab
  std::uint32_t batch;     // slots that go from and to the slabs at a time
};
const SizeClass& sizeClassOf(const PageRun& slab);

template <class Visit>
void forEachLiveBlock(Visit visit) {
  for (std::uint32_t page = 1; page < endOfRuns(); page += pageRuns[page].pages) {
    const PageRun run = pageRuns[page];
    if (run.kind == RunKind::kFree) continue;
    const bool slab = run.kind == RunKind::kSlab;
    const std::uint32_t count = slab ? run.carved : 1;
    for (std::uint32_t slot = 0; slot < count; ++slot) {
      const std::size_t offset = slab ? std::size_t{slot} * sizeClassOf(run).slotSize : 0;
      auto* header = reinterpret_cast<BlockHeader*>(pageAddress(page) + offset);
      if (isLive(stateOf(header))) visit(header);
    }
  }
}

}  // namespace egfhost
