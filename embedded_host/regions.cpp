#include "embedded_host/regions.h"

namespace egfhost {

SmallBlocks smallBlocks;

namespace {

consteval std::array<SlotClass, kClasses> emptyClasses() {
  std::array<SlotClass, kClasses> classes{};
  for (std::size_t i = 0; i < kClasses; ++i) classes[i].slotSize = kSizeClasses.slotSize[i];
  return classes;
}

constexpr std::uint16_t kOpenBias = 0x8000;
static_assert(kRegionSize / kSlotMin < kOpenBias);

// What is left of a region below this stays unused: without a slot in a list, a region that a whole
// tree leaves empty need not be looked through.
constexpr std::uint32_t kLargestGap = 512;

EGFHOST_SEES_POISON void markFree(BlockHeader* header, std::size_t sizeClass, BlockState state) {
  header->sizeClass = static_cast<std::uint8_t>(sizeClass);
  header->state = state;
}

// Makes slots of what is left of the open region.
void useTheRest() {
  const bool gap = smallBlocks.end - smallBlocks.next <= kLargestGap;
  while (smallBlocks.end - smallBlocks.next >= kSlotMin) {
    const std::size_t sizeClass = kSizeClasses.classWithin(smallBlocks.end - smallBlocks.next);
    markFree(headerAt(smallBlocks.next), sizeClass, gap ? BlockState::kGap : BlockState::kFree);
    if (!gap) {
      pushSpare(static_cast<HostHandle>(smallBlocks.next), sizeClass);
      ++smallBlocks.regions[smallBlocks.open].slots;
    }
    smallBlocks.next += kSizeClasses.slotSize[sizeClass];
  }
}

// From here on the region's count is that of its live blocks.
void closeRegion() {
  const std::uint32_t region = smallBlocks.open;
  RegionCounts& counts = smallBlocks.regions[region];
  counts.slots = static_cast<std::uint16_t>(smallBlocks.carved);
  counts.live = static_cast<std::uint16_t>(counts.live - kOpenBias + smallBlocks.carved);
  useTheRest();
  smallBlocks.open = 0;
  smallBlocks.end = smallBlocks.next;
  smallBlocks.carved = 0;
  if (counts.live == 0) releaseRegion(region);
}

EGFHOST_SEES_POISON void unlinkSpare(HostHandle slot, std::size_t sizeClass) {
  const SpareLinks links = *linksAt(slot);
  if (links.next != 0) linksAt(links.next)->previous = links.previous;
  if (slotClasses[sizeClass].spare == slot) {
    slotClasses[sizeClass].spare = links.next;
  } else {
    linksAt(links.previous)->next = links.next;
  }
}

}  // namespace

constinit std::array<SlotClass, kClasses> slotClasses = emptyClasses();

bool openNewRegion() {
  const std::uint32_t first = takeRegionRun();
  if (first == 0) return false;
  if (smallBlocks.open != 0) closeRegion();
  poison(pageAddress(first), kRegionSize);
  smallBlocks.open = first / kRegionPages;
  smallBlocks.next = std::size_t{first} << kPageShift;
  smallBlocks.end = smallBlocks.next + kRegionSize;
  smallBlocks.regions[smallBlocks.open] = {kOpenBias, 0, 0, 0};
  return true;
}

void releaseRegion(std::size_t region) {
  RegionCounts& counts = smallBlocks.regions[region];
  if (counts.unlisted != counts.slots) {
    forEachSlot(region, [](BlockHeader* header) {
      if (stateOf(header) == BlockState::kFree) unlinkSpare(slotOf(header), classOf(header));
    });
  }
  counts.unlisted = 0;
  releaseRun(static_cast<std::uint32_t>(region * kRegionPages));
}

void giveUnlisted(std::size_t region, std::uint32_t slots) {
  RegionCounts& counts = smallBlocks.regions[region];
  if (counts.unlisted == 0) {
    counts.nextUnlisted = smallBlocks.firstUnlisted;
    smallBlocks.firstUnlisted = static_cast<std::uint16_t>(region);
  }
  counts.unlisted = static_cast<std::uint16_t>(counts.unlisted + slots);
  counts.live = static_cast<std::uint16_t>(counts.live - slots);
  if (counts.live == 0) releaseRegion(region);
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
  return region == smallBlocks.open ? smallBlocks.next : (region + 1) * kRegionSize;
}

}  // namespace egfhost
