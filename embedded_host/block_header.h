// What stands before each payload of the cage, poisoned in sanitizer builds.
#pragma once

#include <cstddef>
#include <cstdint>

#include "embedded_host/poison.h"

namespace egfhost {

enum class BlockState : std::uint8_t {
  kFree = 0,
  kLive = 0xab,      // owned by whoever allocated it
  kChowned = 0xad,   // owned by the document
  kGap = 0x4f,       // the end of a region, too short to be worth keeping
  kUnlisted = 0x50,  // freed with a whole tree and in no list
  kRetired = 0x51    // freed, but not yet given out again (sanitizer builds)
};

struct BlockHeader {
  const char* file;        // the literal that the caller passed
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

inline BlockHeader* headerOf(void* block) { return static_cast<BlockHeader*>(block) - 1; }
inline void* payloadOf(BlockHeader* header) { return header + 1; }

EGFHOST_SEES_POISON inline BlockState stateOf(const BlockHeader* header) { return header->state; }
EGFHOST_SEES_POISON inline void setState(BlockHeader* header, BlockState state) {
  header->state = state;
}
inline bool isLive(BlockState state) {
  return state == BlockState::kLive || state == BlockState::kChowned;
}
EGFHOST_SEES_POISON inline std::size_t classOf(const BlockHeader* header) {
  return header->sizeClass;
}
EGFHOST_SEES_POISON inline std::size_t sizeOf(const BlockHeader* header) { return header->size; }

}  // namespace egfhost
