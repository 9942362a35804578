// Small blocks. They are carved one after the other from regions of 64 KiB, whatever their sizes,
// so that what is made together stands together: an object beside its points, a tree in the order
// of its making. A freed slot waits in the list of its size class and is taken before more is
// carved. A region whose blocks are all free goes back to the cage as a whole.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "embedded_host/block_header.h"
#include "embedded_host/cage.h"
#include "embedded_host/size_classes.h"

namespace egfhost {

inline constexpr std::uint32_t kRegions = kCagePages / kRegionPages;

// The slots of a region.
struct RegionCounts {
  // Live ones. Of the open region: those freed and taken again since it was opened, on top of a
  // bias that keeps it from falling to 0.
  std::uint16_t live;
  std::uint16_t slots;     // all of them, once it is closed
  std::uint16_t unlisted;  // free ones that are in no list
  std::uint16_t nextUnlisted;
};

// The slots of one class.
struct SlotClass {
  HostHandle spare;        // the first free one, 0 for none
  std::uint32_t slotSize;  // beside it, where it is at hand
};

extern std::array<SlotClass, kClasses> slotClasses;

// All else that the small blocks keep.
struct SmallBlocks {
  std::uint32_t open = 0;           // the region that is being carved, 0 for none
  std::size_t next = 0;             // offset in the cage where it goes on
  std::size_t end = 0;              // where its room ends, `next` for none
  std::uint32_t carved = 0;         // its slots so far
  std::uint16_t firstUnlisted = 0;  // regions with unlisted slots, chained; 0 ends
  std::array<RegionCounts, kRegions> regions{};
};
extern SmallBlocks smallBlocks;

// Stands in the payload of a free slot. The first of a list may have any `previous`.
struct SpareLinks {
  HostHandle next;
  HostHandle previous;
};

inline SpareLinks* linksAt(HostHandle slot) {
  return reinterpret_cast<SpareLinks*>(cageStart + slot + kHeaderSize);
}
inline BlockHeader* headerAt(std::size_t slot) {
  return reinterpret_cast<BlockHeader*>(cageStart + slot);
}
inline HostHandle slotOf(const BlockHeader* header) {
  return static_cast<HostHandle>(reinterpret_cast<const char*>(header) - cageStart);
}
inline std::size_t regionOf(HostHandle slot) { return slot / kRegionSize; }

// Opens another region; false when the cage is full.
bool openNewRegion();

// Takes a region without live blocks apart.
[[gnu::noinline]] void releaseRegion(std::size_t region);

// Puts a free slot, with its class in its header, at hand.
EGFHOST_SEES_POISON inline void pushSpare(HostHandle slot, std::size_t sizeClass) {
  HostHandle& first = slotClasses[sizeClass].spare;
  linksAt(slot)->next = first;
  if (first != 0) linksAt(first)->previous = slot;
  first = slot;
}

// Slots are written as soon as they are carved: the cache gets ready for those that come soon. Two
// lines at a time are as much as the usual slot takes.
inline void fetchToCarve(std::size_t next) {
  constexpr std::size_t kAhead = 512;
  constexpr std::size_t kCacheLine = 64;
  constexpr int kToWrite = 1;
  __builtin_prefetch(cageStart + next + kAhead, kToWrite);
  __builtin_prefetch(cageStart + next + kAhead + kCacheLine, kToWrite);
}

// A slot of that class; its header is the caller's to write. Null when there is none at hand and
// the open region has no room for it.
EGFHOST_SEES_POISON inline BlockHeader* slotAtHand(std::size_t sizeClass) {
  SlotClass& slots = slotClasses[sizeClass];
  if (const HostHandle spare = slots.spare; spare != 0) {
    slots.spare = linksAt(spare)->next;
    ++smallBlocks.regions[regionOf(spare)].live;
    return headerAt(spare);
  }
  const std::size_t carved = smallBlocks.next;
  const std::size_t end = carved + slots.slotSize;
  if (end > smallBlocks.end) [[unlikely]]
    return nullptr;
  smallBlocks.next = end;
  ++smallBlocks.carved;
  fetchToCarve(end);
  return headerAt(carved);
}

// Gives a slot back whose header says that it is free.
EGFHOST_SEES_POISON inline void giveSmall(BlockHeader* header, std::size_t sizeClass) {
  const HostHandle slot = slotOf(header);
  pushSpare(slot, sizeClass);
  if (--smallBlocks.regions[regionOf(slot)].live == 0) [[unlikely]]
    releaseRegion(regionOf(slot));
}

// The same for so many slots of one region at once, whose headers say that they are unlisted. It is
// for a tree that goes as a whole: its regions mostly become empty, so that listing their slots
// would be in vain. listTheUnlisted has to follow before anything is taken again.
void giveUnlisted(std::size_t region, std::uint32_t slots);

// Puts the unlisted slots of the regions that are still there at hand.
void listTheUnlisted();

// Where the carved slots of a region end.
std::size_t carvedEnd(std::size_t region);

// Calls visit(header) for each slot of a region, in the order of their addresses.
template <class Visit>
EGFHOST_SEES_POISON void forEachSlot(std::size_t region, Visit visit) {
  const std::size_t end = carvedEnd(region);
  for (std::size_t at = region * kRegionSize; at + kSlotMin <= end;) {
    BlockHeader* const header = headerAt(at);
    at += kSizeClasses.slotSize[header->sizeClass];
    visit(header);
  }
}

}  // namespace egfhost
