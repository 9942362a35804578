#include "embedded_host/blocks.h"

#include <algorithm>
#include <array>

namespace egfhost {

namespace {

constexpr std::uint32_t kSlabPages = 16;
constexpr std::size_t kSlabSize = kSlabPages * kPageSize;
constexpr std::size_t kGrain = 16;           // slot sizes are multiples of it
constexpr std::size_t kLinearSlotMax = 128;  // up to here every multiple is a slot size
constexpr std::size_t kSlotMax = 8192;       // larger places are runs of pages
constexpr std::size_t kSlotMin = 2 * kGrain;
constexpr int kStepsPerDoubling = 4;
constexpr std::size_t kClasses = 31;
constexpr std::size_t kGrains = kSlotMax / kGrain + 1;

struct ClassTables {
  std::array<SizeClass, kClasses> classes{};
  std::array<std::uint8_t, kGrains> byGrains{};  // class of a slot size counted in grains
};

constexpr ClassTables makeTables() {
  ClassTables tables{};
  std::size_t made = 0;
  std::size_t step = kGrain;
  for (std::size_t size = kSlotMin; size <= kSlotMax; size += step) {
    tables.classes[made++] = {static_cast<std::uint32_t>(size),
                              static_cast<std::uint32_t>(kSlabSize / size)};
    const bool doubled = (size & (size - 1)) == 0;
    if (size >= kLinearSlotMax && doubled) step = size / kStepsPerDoubling;
  }
  std::size_t fitting = 0;
  for (std::size_t grains = 0; grains < kGrains; ++grains) {
    while (tables.classes[fitting].slotSize < grains * kGrain) ++fitting;
    tables.byGrains[grains] = static_cast<std::uint8_t>(fitting);
  }
  return tables;
}

constexpr ClassTables kTables = makeTables();
static_assert(kTables.classes[kClasses - 1].slotSize == kSlotMax);

// All that the small blocks keep: the first slab with room of each class, 0 for none.
struct SlabState {
  std::array<std::uint32_t, kClasses> withRoom{};
};

SlabState state;

void linkSlab(std::uint32_t slab) {
  PageRun& run = pageRuns[slab];
  run.previous = 0;
  run.next = state.withRoom[run.sizeClass];
  if (run.next != 0) pageRuns[run.next].previous = slab;
  state.withRoom[run.sizeClass] = slab;
}

void unlinkSlab(std::uint32_t slab) {
  const PageRun& run = pageRuns[slab];
  if (run.next != 0) pageRuns[run.next].previous = run.previous;
  if (run.previous != 0) {
    pageRuns[run.previous].next = run.next;
  } else {
    state.withRoom[run.sizeClass] = run.next;
  }
}

std::uint32_t newSlab(std::size_t sizeClass) {
  const std::uint32_t slab = takeRun(kSlabPages, RunKind::kSlab);
  if (slab == 0) return 0;
  for (std::uint32_t page = slab; page < slab + kSlabPages; ++page) pageOwner[page] = slab;
  pageRuns[slab].sizeClass = static_cast<std::uint8_t>(sizeClass);
  poison(pageAddress(slab), kSlabSize);
  linkSlab(slab);
  return slab;
}

// A free slot holds the offset of the next free one in its first word.
EGFHOST_SEES_POISON BlockHeader* popSlot(std::size_t sizeClass) {
  std::uint32_t slab = state.withRoom[sizeClass];
  if (slab == 0) [[unlikely]] {
    slab = newSlab(sizeClass);
    if (slab == 0) return nullptr;
  }
  PageRun& run = pageRuns[slab];
  const SizeClass& sizes = kTables.classes[sizeClass];
  char* slot;
  if (run.freeSlot != 0) {
    slot = cageStart + run.freeSlot;
    run.freeSlot = *reinterpret_cast<const HostHandle*>(slot);
  } else {
    slot = pageAddress(slab) + std::size_t{run.carved++} * sizes.slotSize;
  }
  if (++run.used == sizes.slots) unlinkSlab(slab);
  return reinterpret_cast<BlockHeader*>(slot);
}

EGFHOST_SEES_POISON void pushSlot(std::uint32_t slab, BlockHeader* header) {
  PageRun& run = pageRuns[slab];
  *reinterpret_cast<HostHandle*>(header) = run.freeSlot;
  run.freeSlot = static_cast<HostHandle>(reinterpret_cast<char*>(header) - cageStart);
  if (run.used-- == kTables.classes[run.sizeClass].slots) linkSlab(slab);
  // One empty slab of each class stays at hand.
  if (run.used == 0 && (run.next | run.previous) != 0) {
    unlinkSlab(slab);
    releaseRun(slab);
  }
}

std::uint32_t pagesFor(std::size_t payload) {
  return static_cast<std::uint32_t>((payload + kBlockOverhead + kPageSize - 1) >> kPageShift);
}

}  // namespace

const SizeClass& sizeClassOf(const PageRun& slab) { return kTables.classes[slab.sizeClass]; }

BlockHeader* takeBlock(std::size_t payload) {
  const std::size_t slot = payload + kBlockOverhead;
  if (slot <= kSlotMax) [[likely]] {
    return popSlot(kTables.byGrains[(slot + kGrain - 1) / kGrain]);
  }
  const std::uint32_t run = takeRun(pagesFor(payload), RunKind::kLarge);
  if (run == 0) return nullptr;
  poison(pageAddress(run), std::size_t{pageRuns[run].pages} << kPageShift);
  return reinterpret_cast<BlockHeader*>(pageAddress(run));
}

void returnBlock(BlockHeader* header) {
  setState(header, BlockState::kFree);
  const std::uint32_t first = pageOwner[pageOf(header)];
  if (pageRuns[first].kind == RunKind::kSlab) [[likely]] {
    pushSlot(first, header);
  } else {
    releaseRun(first);
  }
}

std::size_t payloadRoom(const BlockHeader* header) {
  const PageRun& run = pageRuns[pageOwner[pageOf(header)]];
  const std::size_t place = run.kind == RunKind::kSlab ? kTables.classes[run.sizeClass].slotSize
                                                       : std::size_t{run.pages} << kPageShift;
  return place - kBlockOverhead;
}

bool extendBlock(BlockHeader* header, std::size_t payload) {
  const std::uint32_t first = pageOwner[pageOf(header)];
  if (pageRuns[first].kind != RunKind::kLarge) return false;
  const std::uint32_t before = pageRuns[first].pages;
  if (!extendRun(first, pagesFor(payload))) return false;
  poison(pageAddress(first + before), std::size_t{pageRuns[first].pages - before} << kPageShift);
  return true;
}

}  // namespace egfhost
