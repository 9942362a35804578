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
  }
}

// From here on the region's count is that of its live blocks.
void closeRegion() {
  const std::uint32_t region = smallBlocks.open;
  spareTheRest();
  const std::uint32_t live = smallBlocks.live[region] - kOpenBias + smallBlocks.carved;
  smallBlocks.live[region] = static_cast<std::uint16_t>(live);
  smallBlocks.open = 0;
  smallBlocks.room = 0;
  smallBlocks.carved = 0;
  if (live == 0) releaseRegion(region);
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
  smallBlocks.live[smallBlocks.open] = kOpenBias;
  return true;
}

void releaseRegion(std::size_t region) {
  forEachSlot(region, [](BlockHeader* header) {
    const auto slot = static_cast<HostHandle>(reinterpret_cast<char*>(header) - cageStart);
    unlinkSpare(slot, classOf(header));
  });
  releaseRun(static_cast<std::uint32_t>(region * kRegionPages));
}

EGFHOST_SEES_POISON bool resizeLastCarved(BlockHeader* header, std::size_t sizeClass) {
  const std::uint32_t before = kSizeClasses.slotSize[header->sizeClass];
  const std::uint32_t after = kSizeClasses.slotSize[sizeClass];
  if (reinterpret_cast<char*>(header) + before != cageStart + smallBlocks.next) return false;
  if (smallBlocks.open == 0 || after > before + smallBlocks.room) return false;
  header->sizeClass = static_cast<std::uint8_t>(sizeClass);
  smallBlocks.next = smallBlocks.next - before + after;
  smallBlocks.room = smallBlocks.room + before - after;
  return true;
}

std::size_t carvedEnd(std::size_t region) {
  const std::size_t uncarved = region == smallBlocks.open ? smallBlocks.room : 0;
  return (region + 1) * kRegionSize - uncarved;
}

}  // namespace egfhost
