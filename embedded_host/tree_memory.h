// The memory of objects and trees, by shorter ways than the RMM_ calls.
#pragma once

#include <cstddef>
#include <cstdint>

#include "embedded_host/blocks.h"

namespace egfhost {

// The bytes of an object's record and the class of the slot that it takes.
struct RecordRoom {
  std::size_t bytes;
  std::size_t sizeClass;
};
inline constexpr std::size_t kSmallestRecord = 32;  // bytes

consteval RecordRoom roomForRecord(std::size_t bytes) { return {bytes, classForPayload(bytes)}; }

// A block as RMM_CallocName gives it, for a record; null when there is none at hand or allocations
// are watched, so that RMM_CallocName is to be asked.
void* recordAtHand(RecordRoom room, const char* file, int line) noexcept;

// Frees the blocks of a whole tree. That is cheaper than freeing them one by one: what stands
// beside each other in a region is counted together, and the room that is left is put in order at
// the end. Nothing may be allocated in between.
class TreeFreeing {
 public:
  TreeFreeing() = default;
  TreeFreeing(const TreeFreeing&) = delete;
  TreeFreeing& operator=(const TreeFreeing&) = delete;
  ~TreeFreeing();

  // Frees a block, by its handle, as RMM_Free does; 0 is allowed.
  void free(HostHandle block) {
    if (kPoisoning || !isLiveAt(block)) return freeAlone(block);
    BlockHeader* const header = headerAt(block - kHeaderSize);
    if (header->sizeClass == kLargeClass) return freeAlone(block);
    const std::size_t region = regionOf(block);
    if (region != region_) settle(region);
    header->state = BlockState::kUnlisted;
    bytes_ += header->size;
    ++slots_;
  }

 private:
  void freeAlone(HostHandle block);
  // Gives the slots of a region back, before those of another one.
  void settle(std::size_t next);

  std::size_t region_ = 0;
  std::uint32_t slots_ = 0;  // freed in the region and not given back yet
  std::size_t bytes_ = 0;    // in them
};

}  // namespace egfhost
