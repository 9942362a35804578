// The allocator as the tool and the tests see it: counters, budgets, and live blocks by site.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/memory.h"

namespace egfhost {

struct MemoryCounters {
  std::uint64_t liveBytes;  // as asked for
  std::uint64_t liveBlocks;
  std::uint64_t peakBytes;  // since the last resetMemoryPeak
  std::uint64_t peakBlocks;
  std::uint64_t allocations;  // allocating calls that gave a block
  std::uint64_t refusals;     // allocating calls that gave none
  std::uint64_t badFrees;     // RMM_Free or RMM_ReAllocName of what is no live block
};
EGFHOST_API MemoryCounters memoryCounters();

// The peaks start again from what is live now.
EGFHOST_API void resetMemoryPeak();

// Forgets the bad frees so far.
EGFHOST_API void clearBadFrees();

// The most that may be live at a time; 0 lifts the bound. Beyond it allocations fail.
EGFHOST_API void setByteBudget(std::uint64_t bytes);
EGFHOST_API void setBlockBudget(std::uint64_t blocks);

// The live blocks of one allocation site.
struct SiteUse {
  std::string file;
  int line;
  std::uint64_t blocks;
  std::uint64_t bytes;
  std::uint64_t documentBlocks;  // of the blocks, those handed over by RMM_ChownName

  bool operator==(const SiteUse&) const = default;
};

// Sorted by file and line.
EGFHOST_API std::vector<SiteUse> liveSites();

// Sites that hold more blocks now than they did in `before`, with the difference.
EGFHOST_API std::vector<SiteUse> liveSitesSince(const std::vector<SiteUse>& before);

// One line for each site, for messages.
EGFHOST_API std::string describeSites(const std::vector<SiteUse>& sites);

}  // namespace egfhost
