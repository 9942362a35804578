// Blocks inside the cage: a header of 16 bytes, then the payload. Small blocks are slots of
// regions; large ones are runs of pages of their own.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "embedded_host/block_header.h"
#include "embedded_host/cage.h"
#include "embedded_host/poison.h"
#include "embedded_host/regions.h"

namespace egfhost {

// The largest payload; the first page of the cage is never given out.
inline constexpr std::size_t kMaxPayload = kCageSize - kPageSize - kBlockOverhead;

// True for the payload of a live block; any distance from the start of the cage may be asked about.
template <class Distance>
inline bool isLiveAt(Distance distance) {
  // No payload stands before the first one. Turned by the bits that alignment leaves 0, a distance
  // that is not aligned is beyond every end.
  constexpr Distance kFirstPayload = kPageSize + kHeaderSize;
  static_assert(kHeaderSize == std::size_t{1} << kGrainShift);
  const Distance turned = std::rotr(static_cast<Distance>(distance - kFirstPayload), kGrainShift);
  if (turned >= readableGrains) return false;
  return isLive(stateOf(reinterpret_cast<const BlockHeader*>(cageStart + distance) - 1));
}

// The same for any address.
inline bool isLiveBlock(const void* block) {
  return isLiveAt(static_cast<std::size_t>(static_cast<const char*>(block) - cageStart));
}

inline bool isSmall(std::size_t payload) { return payload <= kSlotMax - kBlockOverhead; }

// The class of a small payload.
constexpr std::size_t classForPayload(std::size_t payload) {
  return kSizeClasses.classFor(payload + kBlockOverhead);
}

// A run of pages for a large payload; null when the cage is full.
BlockHeader* takeLarge(std::size_t payload);
void giveLarge(BlockHeader* header);

// The payload bytes that a large block has room for.
std::size_t largeRoom(const BlockHeader* header);

// The same for any block.
inline std::size_t payloadRoom(const BlockHeader* header) {
  const std::size_t sizeClass = classOf(header);
  if (sizeClass == kLargeClass) return largeRoom(header);
  return kSizeClasses.slotSize[sizeClass] - kBlockOverhead;
}

// Gives a place back.
inline void returnBlock(BlockHeader* header) {
  setState(header, BlockState::kFree);
  const std::size_t sizeClass = classOf(header);
  if (sizeClass == kLargeClass) [[unlikely]] {
    giveLarge(header);
  } else {
    giveSmall(header, sizeClass);
  }
}

// Makes the place of a block longer; false when it cannot be done in place.
bool extendBlock(BlockHeader* header, std::size_t payload);

// Calls visit(header) for each live block, in the order of their addresses.
template <class Visit>
void forEachLiveBlock(Visit visit) {
  const auto visitLive = [&visit](BlockHeader* header) {
    if (isLive(stateOf(header))) visit(header);
  };
  for (std::uint32_t page = 1; page < endOfRuns(); page += pageRuns[page].pages) {
    if (pageRuns[page].kind == RunKind::kRegion) {
      forEachSlot(page / kRegionPages, visitLive);
    } else if (pageRuns[page].kind == RunKind::kLarge) {
      visitLive(reinterpret_cast<BlockHeader*>(pageAddress(page)));
    }
  }
}

}  // namespace egfhost
