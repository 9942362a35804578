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
// Spare slots that a class takes from its slabs, or gives back to them, at a time.
constexpr std::uint32_t kBatchBytes = 4096;
constexpr std::uint32_t kBatchMax = 32;

constexpr std::uint32_t batchOf(std::uint32_t slotSize) {
  return std::clamp(kBatchBytes / slotSize, 1u, kBatchMax);
}

struct ClassTables {
  std::array<SizeClass, kClasses> classes{};
  std::array<std::uint8_t, kGrains> byGrains{};  // class of a slot size counted in grains
};

constexpr ClassTables makeTables() {
  ClassTables tables{};
  std::size_t made = 0;
  std::size_t step = kGrain;
  for (std::size_t size = kSlotMin; size <= kSlotMax; size += step) {
    const auto slotSize = static_cast<std::uint32_t>(size);
    tables.classes[made++] = {slotSize, static_cast<std::uint32_t>(kSlabSize / size),
                              batchOf(slotSize)};
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

// Freed slots of one class, at hand.
struct SpareSlots {
  BlockHeader* first;  // chained by their file fields
  std::uint32_t count;
};

// All that the small blocks keep.
struct SlabState {
  std::array<SpareSlots, kClasses> spares{};
  std::array<std::uint32_t, kClasses> withRoom{};  // first slab with room, 0 for none
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

EGFHOST_SEES_POISON void pushSpare(SpareSlots& spares, BlockHeader* header) {
  header->file = reinterpret_cast<const char*>(spares.first);
  spares.first = header;
  ++spares.count;
}

EGFHOST_SEES_POISON BlockHeader* popSpare(SpareSlots& spares) {
  BlockHeader* const header = spares.first;
  spares.first = reinterpret_cast<BlockHeader*>(const_cast<char*>(header->file));
  --spares.count;
  return header;
}

EGFHOST_SEES_POISON void markSpare(BlockHeader* header, std::size_t sizeClass) {
  header->state = BlockState::kFree;
  header->sizeClass = static_cast<std::uint8_t>(sizeClass);
}

bool fillSpares(std::size_t sizeClass) {
  SpareSlots& spares = state.spares[sizeClass];
  const std::uint32_t batch = kTables.classes[sizeClass].batch;
  for (std::uint32_t i = 0; i < batch; ++i) {
    BlockHeader* const header = popSlot(sizeClass);
    if (header == nullptr) break;
    markSpare(header, sizeClass);
    pushSpare(spares, header);
  }
  return spares.first != nullptr;
}

void drainSpares(SpareSlots& spares, std::uint32_t keep) {
  while (spares.count > keep) {
    BlockHeader* const header = popSpare(spares);
    pushSlot(pageOwner[pageOf(header)], header);
  }
}

std::uint32_t pagesFor(std::size_t payload) {
  return static_cast<std::uint32_t>((payload + kBlockOverhead + kPageSize - 1) >> kPageShift);
}

BlockHeader* takeSmall(std::size_t slot) {
  const std::size_t sizeClass = kTables.byGrains[(slot + kGrain - 1) / kGrain];
  SpareSlots& spares = state.spares[sizeClass];
  if (spares.first == nullptr && !fillSpares(sizeClass)) [[unlikely]]
    return nullptr;
  return popSpare(spares);
}

EGFHOST_SEES_POISON BlockHeader* takeLarge(std::size_t payload) {
  const std::uint32_t run = takeRun(pagesFor(payload), RunKind::kLarge);
  if (run == 0) return nullptr;
  poison(pageAddress(run), std::size_t{pageRuns[run].pages} << kPageShift);
  auto* const header = reinterpret_cast<BlockHeader*>(pageAddress(run));
  header->sizeClass = kLargeClass;
  return header;
}

EGFHOST_SEES_POISON std::uint8_t classOf(const BlockHeader* header) { return header->sizeClass; }

}  // namespace

const SizeClass& sizeClassOf(const PageRun& slab) { return kTables.classes[slab.sizeClass]; }

BlockHeader* takeBlock(std::size_t payload) {
  const std::size_t slot = payload + kBlockOverhead;
  return slot <= kSlotMax ? takeSmall(slot) : takeLarge(payload);
}

void returnBlock(BlockHeader* header) {
  setState(header, BlockState::kFree);
  const std::uint8_t sizeClass = classOf(header);
  if (sizeClass == kLargeClass) {
    releaseRun(pageOf(header));
    return;
  }
  SpareSlots& spares = state.spares[sizeClass];
  pushSpare(spares, header);
  const std::uint32_t batch = kTables.classes[sizeClass].batch;
  if (spares.count > 2 * batch) [[unlikely]]
    drainSpares(spares, batch);
}

std::size_t payloadRoom(const BlockHeader* header) {
  const std::uint8_t sizeClass = classOf(header);
  const std::size_t place = sizeClass == kLargeClass
                                ? std::size_t{pageRuns[pageOf(header)].pages} << kPageShift
                                : kTables.classes[sizeClass].slotSize;
  return place - kBlockOverhead;
}

bool extendBlock(BlockHeader* header, std::size_t payload) {
  if (classOf(header) != kLargeClass) return false;
  const std::uint32_t first = pageOf(header);
  const std::uint32_t before = pageRuns[first].pages;
  if (!extendRun(first, pagesFor(payload))) return false;
  poison(pageAddress(first + before), std::size_t{pageRuns[first].pages - before} << kPageShift);
  return true;
}

}  // namespace egfhost
