#include "embedded_host/cage.h"

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <bit>

#include "embedded_host/poison.h"

char* RMM_cageBase = nullptr;

namespace egfhost {

char* cageStart = nullptr;
std::size_t readableGrains = 0;
PageRun pageRuns[kCagePages];
std::uint32_t pageOwner[kCagePages];

namespace {

// Free runs stand in bins: one for each length below 64 pages, then eight for each doubling.
constexpr std::uint32_t kExactBins = 64;
constexpr unsigned kExactBits = 6;
constexpr unsigned kStepBits = 3;
constexpr std::uint32_t kBins = kExactBins + (20 - kExactBits + 1) * (1u << kStepBits);
constexpr std::uint32_t kBinWords = (kBins + 63) / 64;

// What the system may map at once; the cage starts at a multiple of it.
constexpr std::size_t kLargePage = std::size_t{1} << 21;
constexpr std::uint32_t kLargePages = kLargePage >> kPageShift;
// How much more address space is made readable at a time.
constexpr std::uint32_t kCommitStep = 1024;
// Pages at the front that stay small ones, so that a small drawing takes little memory.
constexpr std::uint32_t kSmallPages = 1024;
// Freed pages that stay at hand for the next drawing: when there are this many more of them, the
// system gets those back.
constexpr std::uint32_t kPagesKept = 24576;
constexpr std::uint32_t kPagesOver = 8192;
// Free runs of the fitting bin that are tried before a larger one is cut.
constexpr int kRunsLookedAt = 32;

// All that the cage keeps besides its page tables.
struct CageState {
  std::array<std::uint32_t, kBins> bins{};  // first free run of each bin, 0 for none
  std::array<std::uint64_t, kBinWords> filled{};
  std::uint32_t committed = 0;  // pages below are readable and writable
  std::uint32_t runsEnd = 1;    // pages from here on have never been used
  std::uint32_t dirtyPages = 0;
  std::uint32_t purgeAbove = kPagesKept + kPagesOver;  // dirty pages
  bool reserved = false;
};

CageState state;

std::uint32_t binOf(std::uint32_t pages) {
  if (pages < kExactBins) return pages;
  const unsigned top = static_cast<unsigned>(std::bit_width(pages)) - 1;
  const std::uint32_t step = (pages >> (top - kStepBits)) & ((1u << kStepBits) - 1);
  return std::min(kExactBins + ((top - kExactBits) << kStepBits) + step, kBins - 1);
}

void linkFree(std::uint32_t first, std::uint32_t pages, bool dirty) {
  PageRun& run = pageRuns[first];
  const std::uint32_t bin = binOf(pages);
  run = PageRun{};
  run.pages = pages;
  run.kind = RunKind::kFree;
  run.dirty = dirty;
  run.next = state.bins[bin];
  if (run.next != 0) pageRuns[run.next].previous = first;
  state.bins[bin] = first;
  state.filled[bin / 64] |= std::uint64_t{1} << (bin % 64);
  pageOwner[first] = first;
  pageOwner[first + pages - 1] = first;
}

void unlinkFree(std::uint32_t first) {
  const PageRun& run = pageRuns[first];
  const std::uint32_t bin = binOf(run.pages);
  if (run.next != 0) pageRuns[run.next].previous = run.previous;
  if (run.previous != 0) {
    pageRuns[run.previous].next = run.next;
    return;
  }
  state.bins[bin] = run.next;
  if (run.next == 0) state.filled[bin / 64] &= ~(std::uint64_t{1} << (bin % 64));
}

// The first bin from `bin` on that holds a run; kBins when none does.
std::uint32_t nextFilledBin(std::uint32_t bin) {
  for (std::uint32_t word = bin / 64; word < kBinWords; ++word) {
    std::uint64_t bits = state.filled[word];
    if (word == bin / 64) bits &= ~std::uint64_t{0} << (bin % 64);
    if (bits != 0) return word * 64 + static_cast<std::uint32_t>(std::countr_zero(bits));
  }
  return kBins;
}

// A length, and what number its first page must be a multiple of.
struct RunShape {
  std::uint32_t pages;
  std::uint32_t alignment;

  std::uint32_t firstFrom(std::uint32_t page) const {
    return (page + alignment - 1) / alignment * alignment;
  }
  bool fitsInto(std::uint32_t run) const {
    return firstFrom(run) + pages <= run + pageRuns[run].pages;
  }
};

// A free run that the shape fits into, 0 for none. In the first bin a few runs are looked at, then
// one of each bin.
std::uint32_t findFree(RunShape shape) {
  const std::uint32_t own = binOf(shape.pages);
  std::uint32_t run = state.bins[own];
  for (int looked = 0; run != 0 && looked < kRunsLookedAt; ++looked) {
    if (shape.fitsInto(run)) return run;
    run = pageRuns[run].next;
  }
  for (std::uint32_t bin = nextFilledBin(own + 1); bin < kBins; bin = nextFilledBin(bin + 1)) {
    if (shape.fitsInto(state.bins[bin])) return state.bins[bin];
  }
  return 0;
}

bool commitUpTo(std::uint32_t end) {
  if (end <= state.committed) return true;
  const std::uint32_t target = std::min(kCagePages, (end + kCommitStep - 1) & ~(kCommitStep - 1));
  char* const from = pageAddress(std::max(state.committed, 1u));
  const std::size_t bytes = static_cast<std::size_t>(pageAddress(target - 1) + kPageSize - from);
  if (mprotect(from, bytes, PROT_READ | PROT_WRITE) != 0) return false;
  // A large drawing is faulted in by large pages; advice that is not taken changes nothing.
  if (!kPoisoning && state.committed >= kSmallPages) madvise(from, bytes, MADV_HUGEPAGE);
  state.committed = target;
  return true;
}

// Gives memory at the end of a free run back to the system, `spared` pages at least remaining at
// its start; tells how many pages stay. Large pages go back whole: one that is taken apart is slow
// to come again.
std::uint32_t giveBack(std::uint32_t run, std::uint32_t spared) {
  const std::uint32_t pages = pageRuns[run].pages;
  const std::uint32_t end = run + pages;
  const std::uint32_t from = run + std::min(spared, pages);
  const std::uint32_t first = (from + kLargePages - 1) / kLargePages * kLargePages;
  const std::uint32_t last = end / kLargePages * kLargePages;
  if (first >= last) return pages;
  madvise(pageAddress(first), std::size_t{last - first} << kPageShift, MADV_DONTNEED);
  pageRuns[run].dirty = pages != last - first;
  return pages - (last - first);
}

// What short runs keep cannot be given back, so it does not bring the next purge nearer.
std::uint32_t nextPurge() { return std::max(kPagesKept, state.dirtyPages) + kPagesOver; }

// Gives the memory behind free runs back but for what is kept; their addresses stay ours.
void purge() {
  state.dirtyPages = 0;
  for (std::uint32_t bin = nextFilledBin(0); bin < kBins; bin = nextFilledBin(bin + 1)) {
    for (std::uint32_t run = state.bins[bin]; run != 0; run = pageRuns[run].next) {
      if (!pageRuns[run].dirty) continue;
      state.dirtyPages += giveBack(run, kPagesKept - std::min(kPagesKept, state.dirtyPages));
    }
  }
  state.purgeAbove = nextPurge();
}

// Puts free pages that are in no list together with the free runs beside them.
void mergeFree(std::uint32_t first, std::uint32_t pages, bool dirty) {
  const std::uint32_t after = first + pages;
  if (after < state.runsEnd && pageRuns[after].kind == RunKind::kFree) {
    unlinkFree(after);
    pages += pageRuns[after].pages;
    dirty |= pageRuns[after].dirty;
    pageRuns[after] = PageRun{};
  }
  const std::uint32_t before = first > 1 ? pageOwner[first - 1] : 0;
  if (before != 0 && pageRuns[before].kind == RunKind::kFree &&
      before + pageRuns[before].pages == first) {
    unlinkFree(before);
    pages += pageRuns[before].pages;
    dirty |= pageRuns[before].dirty;
    first = before;
  }
  linkFree(first, pages, dirty);
}

void moveRunsEnd(std::uint32_t end) {
  state.runsEnd = end;
  readableGrains = std::size_t{end - 1} << (kPageShift - kGrainShift);
}

// Pages after the last ones ever used.
std::uint32_t takeFresh(RunShape shape) {
  const std::uint32_t from = state.runsEnd;
  const std::uint32_t first = shape.firstFrom(from);
  if (first > kCagePages - shape.pages || !commitUpTo(first + shape.pages)) return 0;
  moveRunsEnd(first + shape.pages);
  if (first > from) mergeFree(from, first - from, false);
  return first;
}

// Takes the pages of a shape out of a free run; what is left over stays free.
std::uint32_t cutOut(std::uint32_t from, RunShape shape) {
  const PageRun run = pageRuns[from];
  unlinkFree(from);
  pageRuns[from] = PageRun{};
  if (run.dirty) state.dirtyPages -= std::min(state.dirtyPages, shape.pages);
  state.purgeAbove = std::min(state.purgeAbove, nextPurge());
  const std::uint32_t first = shape.firstFrom(from);
  const std::uint32_t end = first + shape.pages;
  if (first > from) linkFree(from, first - from, run.dirty);
  if (from + run.pages > end) linkFree(end, from + run.pages - end, run.dirty);
  return first;
}

std::uint32_t takeRun(RunShape shape, RunKind kind) {
  if (!reserveCage()) return 0;
  const std::uint32_t found = findFree(shape);
  const std::uint32_t first = found != 0 ? cutOut(found, shape) : takeFresh(shape);
  if (first == 0) return 0;
  pageRuns[first] = PageRun{};
  pageRuns[first].pages = shape.pages;
  pageRuns[first].kind = kind;
  return first;
}

}  // namespace

bool reserveCage() {
  if (state.reserved) return cageStart != nullptr;
  state.reserved = true;
  void* const base = mmap(nullptr, kCageSize + kLargePage, PROT_NONE,
                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (base == MAP_FAILED) return false;
  const auto address = reinterpret_cast<std::uintptr_t>(base);
  cageStart = static_cast<char*>(base) + (kLargePage - address % kLargePage) % kLargePage;
  RMM_cageBase = cageStart;
  return true;
}

std::uint32_t takeLargeRun(std::uint32_t pages) { return takeRun({pages, 1}, RunKind::kLarge); }

std::uint32_t takeRegionRun() { return takeRun({kRegionPages, kRegionPages}, RunKind::kRegion); }

void releaseRun(std::uint32_t first) {
  const std::uint32_t pages = pageRuns[first].pages;
  poison(pageAddress(first), std::size_t{pages} << kPageShift);
  pageRuns[first] = PageRun{};
  state.dirtyPages += pages;
  mergeFree(first, pages, true);
  if (state.dirtyPages > state.purgeAbove) purge();
}

bool extendRun(std::uint32_t first, std::uint32_t pages) {
  const std::uint32_t after = first + pageRuns[first].pages;
  const RunShape more{pages - pageRuns[first].pages, 1};
  if (after == state.runsEnd) {
    if (takeFresh(more) == 0) return false;
  } else {
    if (pageRuns[after].kind != RunKind::kFree || !more.fitsInto(after)) return false;
    cutOut(after, more);
  }
  pageRuns[first].pages = pages;
  return true;
}

std::uint32_t endOfRuns() { return state.runsEnd; }

}  // namespace egfhost
