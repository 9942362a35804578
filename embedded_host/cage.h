// The cage: one reserved 4 GiB address range, given out in runs of pages. Page 0 is never given
// out, so that offset 0 and small offsets are never valid.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/wire.h"

namespace egfhost {

inline constexpr std::size_t kCageSize = std::size_t{1} << 32;
inline constexpr unsigned kPageShift = 12;
inline constexpr std::size_t kPageSize = std::size_t{1} << kPageShift;
inline constexpr std::uint32_t kCagePages = kCageSize >> kPageShift;

// A region of small blocks is a run of this length that starts at a multiple of it.
inline constexpr std::uint32_t kRegionPages = 16;
inline constexpr std::uint32_t kRegionSize = kRegionPages << kPageShift;

enum class RunKind : std::uint8_t { kNone, kFree, kRegion, kLarge };

// What the cage knows of a run of pages; it stands at the number of the run's first page.
struct PageRun {
  std::uint32_t pages;  // length
  std::uint32_t next;   // free: the next one of the same bin, 0 ends
  std::uint32_t previous;
  RunKind kind;
  bool dirty;  // free: has pages that the system could take back
};

// The same as RMM_cageBase, without the way through the exported name.
extern char* cageStart;

// Tables over all pages; entries of pages never used are never touched.
extern PageRun pageRuns[kCagePages];
// The first page of the free run that a page is the first or the last of.
extern std::uint32_t pageOwner[kCagePages];

inline std::uint32_t pageOf(const void* address) {
  return static_cast<std::uint32_t>((static_cast<const char*>(address) - cageStart) >> kPageShift);
}
inline char* pageAddress(std::uint32_t page) {
  return cageStart + (std::size_t{page} << kPageShift);
}

// Reserves the range, once. False when the system has no room for it.
bool reserveCage();

// Grains of 16 bytes behind the first page that have been given out at some time, so that they can
// be read.
inline constexpr int kGrainShift = 4;
extern std::size_t readableGrains;

// The first page of a new run for a large block; 0 when the cage is full.
std::uint32_t takeLargeRun(std::uint32_t pages);

// The first page of a new region; 0 when the cage is full.
std::uint32_t takeRegionRun();

void releaseRun(std::uint32_t first);

// Makes a run longer in place; false when what follows is not free.
bool extendRun(std::uint32_t first, std::uint32_t pages);

// The end of the pages ever used: runs stand one after the other from page 1 up to here.
std::uint32_t endOfRuns();

}  // namespace egfhost
