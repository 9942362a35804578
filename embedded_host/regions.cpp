#include "embedded_host/regions.h"

namespace egfhost {

SmallBlocks smallBlocks;

namespace {

constexpr std::uint16_t kOpenBias = 0x8000;
static_assert(kRegionSize / kSlotMin < kOpenBias);

EGFHOST_SEES_POISON void markSpare(BlockHeader* header, std::size_t sizeClass) {
  header->sizeClass = static_cast<std::uint8_t>(sizeClass);
  header->state = BlockState::kFree;
}

// Makes spare slots of what is left of the open region.
void spareTheRest() {
  while (smallBlocks.room >= kSlotMin) {
    const std::size_t sizeClass = kSizeClasses.classWithin(smallBlocks.room);
    markSpare(headerAt(smallBlocks.next), sizeClass);
    pushSpare(smallBlocks.next, sizeClass);
    smallBlocks.next += kSizeClasses.slotSize[sizeClass];
    smallBlocks.room -= kSizeClasses.slotSize[sizeClass];
    ++smallBlocks.regions[smallBlocks.open].slots;
  }
}

// From here on the region's count is that of its live blocks.
void closeRegion() {
  const std::uint32_t region = smallBlocks.open;
  RegionCounts& counts = smallBlocks.regions[region];
  counts.slots = static_cast<std::uint16_t>(smallBlocks.carved);
  counts.live = static_cast<std::uint16_t>(counts.live - kOpenBias + smallBlocks.carved);
  spareTheRest();
  smallBlocks.open = 0;
  smallBlocks.room = 0;
  smallBlocks.carved = 0;
  if (counts.live == 0) releaseRegion(region);
}

EGFHOST_SEES_POISON void unlinkSpare(HostHandle slot, std::size_t sizeClass) {
  const SpareLinks links = *linksAt(slot);
  if (links.next != 0) linksAt(links.next)->previous = links.previous;
  if (smallBlocks.spares[sizeClass] == slot) {
    smallBlocks.spares[sizeClass] = links.next;
  } else {
    linksAt(links.previous)->next = links.next;
  }
}

}  // namespace

bool openNewRegion() {
  const std::uint32_t first = takeRegionRun();
  if (first == 0) return false;
  if (smallBlocks.open != 0) closeRegion();
  poison(pageAddress(first), kRegionSize);
  smallBlocks.open = first / kRegionPages;
  smallBlocks.next = first << kPageShift;
  smallBlocks.room = kRegionSize;
  smallBlocks.regions[smallBlocks.open] = {kOpenBias, 0, 0, 0};
  return true;
}

void releaseRegion(std::size_t region) {
  RegionCounts& counts = smallBlocks.regions[region];
  if (counts.unlisted != counts.slots) {
    forEachSlot(region, [](BlockHeader* header) {
      if (stateOf(header) != BlockState::kUnlisted) unlinkSpare(slotOf(header), classOf(header));
    });
  }
  counts.unlisted = 0;
  releaseRun(static_cast<std::uint32_t>(region * kRegionPages));
}

void listTheUnlisted() {
  std::uint16_t region = smallBlocks.firstUnlisted;
  smallBlocks.firstUnlisted = 0;
  while (region != 0) {
    RegionCounts& counts = smallBlocks.regions[region];
    if (counts.unlisted != 0) {
      forEachSlot(region, [](BlockHeader* header) {
        if (stateOf(header) != BlockState::kUnlisted) return;
        setState(header, BlockState::kFree);
        pushSpare(slotOf(header), classOf(header));
      });
    }
    counts.unlisted = 0;
    region = counts.nextUnlisted;
  }
}

std::size_t carvedEnd(std::size_t region) {
  const std::size_t uncarved = region == smallBlocks.open ? smallBlocks.room : 0;
  return (region + 1) * kRegionSize - uncarved;
}

}  // namespace egfhost
