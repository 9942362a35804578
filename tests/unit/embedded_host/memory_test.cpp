#include "host/memory.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "embedded_host/host_trees.h"
#include "host/egf.h"
#include "host/egf_codes.h"
#include "host/objects.h"
#include "tests/unit/embedded_host/host_fixture.h"

#ifdef EGFSVG_SANITIZED
#include <sanitizer/asan_interface.h>
#endif

namespace egfhost {
namespace {

using MemoryTest = HostTest;

constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;

// Sanitizer builds give freed blocks out again only after a while.
#ifdef EGFSVG_SANITIZED
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

TEST_F(MemoryTest, NullIsFreedSafely) { RMM_Free(nullptr); }

TEST_F(MemoryTest, ProductsThatDoNotFitAreRefused) {
  struct Row {
    std::size_t count;
    std::size_t size;
  };
  constexpr Row kRows[] = {{0x40000000, 8},
                           {1, std::size_t{1} << 32},
                           {std::size_t{1} << 32, std::size_t{1} << 32},
                           {~std::size_t{0}, 1},
                           {~std::size_t{0}, ~std::size_t{0}},
                           {0x10001, 0x10000}};
  for (const Row& row : kRows) {
    EXPECT_EQ(nullptr, RMM_AllocName(row.count, row.size, RMM_SITE)) << row.count;
    EXPECT_EQ(nullptr, RMM_CallocName(row.count, row.size, RMM_SITE)) << row.count;
    EXPECT_EQ(nullptr, RMM_ReAllocName(nullptr, row.count, row.size, RMM_SITE)) << row.count;
    void* const block = RMM_AllocName(1, 8, RMM_SITE);
    EXPECT_EQ(nullptr, RMM_ReAllocName(block, row.count, row.size, RMM_SITE)) << row.count;
    RMM_Free(block);
  }
}

TEST_F(MemoryTest, BlocksAreAlignedInsideTheCageAndApart) {
  constexpr std::size_t kSizes[] = {0,    1,    15,   16,    17,    96,     112,    113,
                                    1000, 8159, 8176, 8177,  8192,  40000,  65536,  100000,
                                    4096, 4080, 4081, 65520, 65521, 131072, 1000000};
  std::vector<char*> blocks;
  for (const std::size_t size : kSizes) {
    auto* const block = static_cast<char*>(RMM_AllocName(1, size, RMM_SITE));
    ASSERT_NE(nullptr, block);
    EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(block) % 16);
    EXPECT_GE(block, RMM_cageBase + 4096);
    EXPECT_LT(static_cast<std::uint64_t>(block - RMM_cageBase) + size, 4 * kGiB);
    EXPECT_EQ(block, egfsvg::at<char>(egfsvg::handleOf(block)));
    std::memset(block, static_cast<int>(blocks.size()), size);
    blocks.push_back(block);
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    for (std::size_t at = 0; at < kSizes[i]; ++at) {
      ASSERT_EQ(static_cast<char>(i), blocks[i][at]) << kSizes[i];
    }
    RMM_Free(blocks[i]);
  }
}

TEST_F(MemoryTest, CallocZeroesUsedMemory) {
  for (const std::size_t size : {24u, 500u, 9000u, 200000u}) {
    void* const used = RMM_AllocName(1, size, RMM_SITE);
    std::memset(used, 0xff, size);
    RMM_Free(used);
    auto* const block = static_cast<unsigned char*>(RMM_CallocName(size, 1, RMM_SITE));
    EXPECT_EQ(static_cast<std::ptrdiff_t>(size), std::count(block, block + size, 0));
    RMM_Free(block);
  }
}

TEST_F(MemoryTest, ReallocKeepsContents) {
  constexpr std::size_t kSteps[] = {10, 100, 50, 5000, 9000, 100000, 300000, 70000, 3000, 8, 0, 20};
  auto* block = static_cast<char*>(RMM_ReAllocName(nullptr, 10, 1, RMM_SITE));
  std::size_t known = 10;
  std::memset(block, 'a', known);
  for (const std::size_t size : kSteps) {
    block = static_cast<char*>(RMM_ReAllocName(block, 1, size, RMM_SITE));
    ASSERT_NE(nullptr, block);
    known = std::min(known, size);
    for (std::size_t i = 0; i < known; ++i) ASSERT_EQ('a', block[i]) << size;
    if (size > known) std::memset(block + known, 'a', size - known);
    known = size;
  }
  RMM_Free(block);
}

TEST_F(MemoryTest, GrowingByOneMovesSeldom) {
  constexpr std::size_t kElements = 1000000;
  int moves = 0;
  char* block = nullptr;
  for (std::size_t count = 1; count <= kElements; ++count) {
    auto* const grown = static_cast<char*>(RMM_ReAllocName(block, count, 16, RMM_SITE));
    ASSERT_NE(nullptr, grown);
    if (grown != block) ++moves;
    block = grown;
  }
  // 16 bytes to 16 megabytes in steps of at least a half: at most log(1e6) / log(1.5) = 34.1.
  EXPECT_LE(moves, 36);
  RMM_Free(block);
}

// Blocks that grow, as lists do while they are read, leave no room behind that the next ones don't
// take, however many blocks are made meanwhile that stay.
TEST_F(MemoryTest, TheRoomOfGrowingBlocksIsTakenAgain) {
  if (kSanitized) GTEST_SKIP() << "sanitizer builds hold freed blocks back";
  std::vector<void*> staying;
  const char* lowest = nullptr;
  const char* highest = nullptr;
  constexpr int kRounds = 20000;
  for (int round = 0; round < kRounds; ++round) {
    void* growing = RMM_AllocName(1, 8, RMM_SITE);
    for (std::size_t size = 16; size <= 512; size += 8) {
      growing = RMM_ReAllocName(growing, 1, size, RMM_SITE);
    }
    staying.push_back(RMM_AllocName(1, 48, RMM_SITE));
    RMM_Free(growing);
    const auto* const block = static_cast<const char*>(staying.back());
    lowest = round == 0 ? block : std::min(lowest, block);
    highest = round == 0 ? block : std::max(highest, block);
  }
  for (void* const block : staying) RMM_Free(block);
  // 48 bytes and a header each, and what a few growing blocks take.
  EXPECT_LT(highest - lowest, (48 + 16) * kRounds * 5 / 4);
}

// Blocks of many regions, freed in another order than they were made, leave nothing behind that
// would keep the pages from a block of nearly the whole cage.
TEST_F(MemoryTest, EmptyRegionsBecomeOneRunAgain) {
  constexpr std::size_t kBlocks = 20000;
  std::mt19937 random(7);
  std::vector<void*> blocks;
  for (std::size_t i = 0; i < kBlocks; ++i) {
    blocks.push_back(RMM_AllocName(1, random() % 2000, RMM_SITE));
    ASSERT_NE(nullptr, blocks.back());
  }
  std::shuffle(blocks.begin(), blocks.end(), random);
  for (void* const block : blocks) RMM_Free(block);
  void* const most = RMM_AllocName(1, 3 * kGiB, RMM_SITE);
  EXPECT_NE(nullptr, most);
  RMM_Free(most);
}

// Trees that go as a whole, among blocks that stay: what the trees held is at hand again, for trees
// and for blocks, and everything is one run when the rest has gone.
TEST_F(MemoryTest, TheRoomOfTreesIsTakenAgain) {
  constexpr int kRounds = 20;
  constexpr int kObjects = 3000;
  std::vector<void*> staying;
  std::uint64_t highest = 0;
  const MemoryCounters before = memoryCounters();
  for (int round = 0; round < kRounds; ++round) {
    const HostHandle tree = createTree(0);
    ASSERT_NE(0u, tree);
    for (int i = 0; i < kObjects; ++i) {
      _egf_obj* const object = EEL_AllocObject(egfsvg::kClassPolygon, RMM_SITE);
      auto* const polygon = egfsvg::as<egfsvg::EgfPolygon>(object);
      polygon->points = static_cast<_mpl_spacept_tag*>(RMM_AllocName(5, 8, RMM_SITE));
      ASSERT_EQ(0, EEL_AppendObject(rootOf(tree), object));
      // One block of each dozen objects outlives the tree.
      if (i % 12 == 0) staying.push_back(RMM_AllocName(1, 24, RMM_SITE));
      const auto end = static_cast<std::uint64_t>(reinterpret_cast<char*>(object) - RMM_cageBase);
      if (round == 0) highest = std::max(highest, end);
      // Staying blocks take 40 bytes of room for each dozen objects, far less than a tree has.
      if (!kSanitized) {
        EXPECT_LT(end, highest + 40 * kRounds * kObjects / 12 + 65536 * 2) << round;
      }
    }
    freeTree(tree);
    EXPECT_EQ(before.liveBlocks + staying.size(), memoryCounters().liveBlocks);
    EXPECT_EQ(before.liveBytes + 24 * staying.size(), memoryCounters().liveBytes);
  }
  for (void* const block : staying) RMM_Free(block);
  void* const most = RMM_AllocName(1, 3 * kGiB, RMM_SITE);
  EXPECT_NE(nullptr, most);
  RMM_Free(most);
}

#ifdef EGFSVG_SANITIZED
// In sanitizer builds what lies outside a block's size cannot be touched, whatever room it has.
TEST_F(MemoryTest, BytesOutsideABlockArePoisoned) {
  auto* block = static_cast<char*>(RMM_AllocName(1, 20, RMM_SITE));
  for (const std::size_t size : {20u, 21u, 30u, 25u, 24u, 3u, 100u, 90u, 5000u, 4999u, 0u, 17u}) {
    block = static_cast<char*>(RMM_ReAllocName(block, 1, size, RMM_SITE));
    EXPECT_TRUE(__asan_address_is_poisoned(block - 1)) << size;
    EXPECT_TRUE(__asan_address_is_poisoned(block + size)) << size;
    EXPECT_EQ(nullptr, __asan_region_is_poisoned(block, size)) << size;
  }
  RMM_Free(block);
  EXPECT_TRUE(__asan_address_is_poisoned(block));
}
#endif

TEST_F(MemoryTest, AShrunkBlockGivesItsRoomBack) {
  resetMemoryPeak();
  void* big = RMM_AllocName(1, 100000, RMM_SITE);
  void* const small = RMM_ReAllocName(big, 1, 100, RMM_SITE);
  ASSERT_NE(nullptr, small);
  EXPECT_NE(big, small);
  RMM_Free(small);
}

TEST_F(MemoryTest, CountersFollowTheSizesAskedFor) {
  const MemoryCounters before = memoryCounters();
  resetMemoryPeak();
  void* a = RMM_AllocName(3, 100, RMM_SITE);
  void* const b = RMM_CallocName(1, 50, RMM_SITE);
  MemoryCounters now = memoryCounters();
  EXPECT_EQ(before.liveBytes + 350, now.liveBytes);
  EXPECT_EQ(before.liveBlocks + 2, now.liveBlocks);
  EXPECT_EQ(before.allocations + 2, now.allocations);
  a = RMM_ReAllocName(a, 1, 20, RMM_SITE);
  now = memoryCounters();
  EXPECT_EQ(before.liveBytes + 70, now.liveBytes);
  EXPECT_EQ(before.liveBlocks + 2, now.liveBlocks);
  EXPECT_EQ(before.liveBytes + 350, now.peakBytes);
  EXPECT_EQ(before.liveBlocks + 2, now.peakBlocks);
  RMM_Free(a);
  RMM_Free(b);
  EXPECT_EQ(before.liveBytes, memoryCounters().liveBytes);
  EXPECT_EQ(nullptr, RMM_AllocName(0x40000000, 8, RMM_SITE));
  EXPECT_EQ(before.refusals + 1, memoryCounters().refusals);
}

// Counters over a random life, against sums that are kept beside it.
TEST_F(MemoryTest, CountersAreThoseOfAModel) {
  const MemoryCounters before = memoryCounters();
  resetMemoryPeak();
  MemoryCounters expected = before;
  expected.peakBytes = before.liveBytes;
  expected.peakBlocks = before.liveBlocks;
  std::mt19937 random(2718);
  std::vector<std::pair<void*, std::size_t>> known;
  const auto change = [&](std::size_t from, std::size_t to, std::uint64_t blocks) {
    expected.liveBytes += to - from;
    expected.liveBlocks += blocks;
    expected.peakBytes = std::max(expected.peakBytes, expected.liveBytes);
    expected.peakBlocks = std::max(expected.peakBlocks, expected.liveBlocks);
  };
  for (int step = 0; step < 20000; ++step) {
    const unsigned what = random() % 5;
    const std::size_t size = random() % (random() % 10 == 0 ? 20000 : 300);
    if (known.empty() || what < 2) {
      void* const block = RMM_AllocName(1, size, RMM_SITE);
      ASSERT_NE(nullptr, block);
      known.push_back({block, size});
      change(0, size, 1);
      ++expected.allocations;
      continue;
    }
    auto& each = known[random() % known.size()];
    if (what == 2) {
      each.first = RMM_ReAllocName(each.first, 1, size, RMM_SITE);
      change(each.second, size, 0);
      ++expected.allocations;
      each.second = size;
    } else {
      RMM_Free(each.first);
      change(each.second, 0, ~std::uint64_t{0});
      each = known.back();
      known.pop_back();
    }
    if (random() % 500 == 0) {
      resetMemoryPeak();
      expected.peakBytes = expected.liveBytes;
      expected.peakBlocks = expected.liveBlocks;
    }
    if (random() % 8 != 0) continue;
    const MemoryCounters now = memoryCounters();
    ASSERT_EQ(expected.liveBytes, now.liveBytes) << step;
    ASSERT_EQ(expected.liveBlocks, now.liveBlocks) << step;
    ASSERT_EQ(expected.peakBytes, now.peakBytes) << step;
    ASSERT_EQ(expected.peakBlocks, now.peakBlocks) << step;
    ASSERT_EQ(expected.allocations, now.allocations) << step;
  }
  for (const auto& each : known) RMM_Free(each.first);
  EXPECT_EQ(before.liveBytes, memoryCounters().liveBytes);
  EXPECT_EQ(before.liveBlocks, memoryCounters().liveBlocks);
}

TEST_F(MemoryTest, SitesOfLiveBlocksAreListed) {
  const std::vector<SiteUse> before = liveSites();
  void* const one = RMM_AllocName(1, 10, "b.cpp", 7);
  void* const two = RMM_AllocName(1, 20, "b.cpp", 7);
  void* const three = RMM_ChownName(RMM_AllocName(1, 50000, "a.cpp", 70000));
  const std::vector<SiteUse> expected = {{"a.cpp", 65535, 1, 50000, 1}, {"b.cpp", 7, 2, 30, 0}};
  EXPECT_EQ(expected, liveSitesSince(before));
  EXPECT_EQ("a.cpp:65535: 1 blocks, 50000 bytes\nb.cpp:7: 2 blocks, 30 bytes\n",
            describeSites(liveSitesSince(before)));
  for (void* const block : {one, two, three}) RMM_Free(block);
  EXPECT_EQ("", describeSites(liveSitesSince(before)));
}

TEST_F(MemoryTest, ChownGivesTheSameBlock) {
  EXPECT_EQ(nullptr, RMM_ChownName(nullptr));
  void* const block = RMM_AllocName(1, 8, RMM_SITE);
  EXPECT_EQ(block, RMM_ChownName(block));
  RMM_Free(block);
}

TEST_F(MemoryTest, BadBlocksAreCountedAndLeftAlone) {
  void* const block = RMM_AllocName(1, 64, RMM_SITE);
  RMM_Free(block);
  int outside = 0;
  RMM_Free(block);
  RMM_Free(&outside);
  RMM_Free(RMM_cageBase);
  RMM_Free(static_cast<char*>(block) + 8);
  EXPECT_EQ(nullptr, RMM_ReAllocName(block, 1, 100, RMM_SITE));
  EXPECT_EQ(5u, memoryCounters().badFrees);
  clearBadFrees();
}

TEST_F(MemoryTest, ByteBudgetBounds) {
  const std::uint64_t live = memoryCounters().liveBytes;
  setByteBudget(live + 1000);
  void* a = RMM_AllocName(1, 600, RMM_SITE);
  ASSERT_NE(nullptr, a);
  EXPECT_EQ(nullptr, RMM_AllocName(1, 401, RMM_SITE));
  EXPECT_EQ(nullptr, RMM_ReAllocName(a, 1, 1001, RMM_SITE));
  a = RMM_ReAllocName(a, 1, 1000, RMM_SITE);
  ASSERT_NE(nullptr, a);
  EXPECT_EQ(nullptr, RMM_AllocName(1, 1, RMM_SITE));
  a = RMM_ReAllocName(a, 1, 900, RMM_SITE);
  void* const b = RMM_AllocName(1, 100, RMM_SITE);
  EXPECT_NE(nullptr, b);
  RMM_Free(a);
  RMM_Free(b);
}

TEST_F(MemoryTest, BlockBudgetBounds) {
  setBlockBudget(memoryCounters().liveBlocks + 1);
  void* a = RMM_AllocName(1, 1, RMM_SITE);
  ASSERT_NE(nullptr, a);
  EXPECT_EQ(nullptr, RMM_AllocName(1, 1, RMM_SITE));
  a = RMM_ReAllocName(a, 1, 5000, RMM_SITE);
  EXPECT_NE(nullptr, a);
  RMM_Free(a);
}

TEST_F(MemoryTest, TheNthAllocationFailsOnceOrForEver) {
  struct Row {
    FaultSpan span;
    std::string expected;  // of six calls: + a block, - none
  };
  const Row kRows[] = {{FaultSpan::kOnce, "++-+++"}, {FaultSpan::kForEver, "++----"}};
  for (const Row& row : kRows) {
    ASSERT_TRUE(failAllocation(3, row.span));
    std::string seen;
    std::vector<void*> blocks;
    for (int i = 0; i < 6; ++i) {
      void* const block =
          i % 2 == 0 ? RMM_AllocName(1, 8, RMM_SITE) : RMM_CallocName(1, 8, RMM_SITE);
      seen += block == nullptr ? '-' : '+';
      blocks.push_back(block);
    }
    EXPECT_EQ(row.expected, seen);
    EXPECT_EQ(6u, callCount("RMM"));
    clearFaults();
    for (void* const block : blocks) RMM_Free(block);
  }
}

TEST_F(MemoryTest, AFailedReallocKeepsTheOldBlock) {
  auto* block = static_cast<char*>(RMM_AllocName(1, 4, RMM_SITE));
  std::memcpy(block, "abc", 4);
  failAllocation(1);
  EXPECT_EQ(nullptr, RMM_ReAllocName(block, 1, 100000, RMM_SITE));
  EXPECT_STREQ("abc", block);
  RMM_Free(block);
}

TEST_F(MemoryTest, AFullCageIsAnOrdinaryFailure) {
  std::vector<void*> blocks;
  constexpr std::size_t kPart = std::size_t{256} << 20;
  while (void* const block = RMM_AllocName(1, kPart, RMM_SITE)) blocks.push_back(block);
  EXPECT_GE(blocks.size(), 14u);
  EXPECT_LE(blocks.size(), 16u);
  void* const small = RMM_AllocName(1, 100, RMM_SITE);
  EXPECT_NE(nullptr, small);
  RMM_Free(small);
  for (void* const block : blocks) RMM_Free(block);
  // Everything is one run again: a block of nearly all of it fits.
  void* const most = RMM_AllocName(1, 3 * kGiB, RMM_SITE);
  EXPECT_NE(nullptr, most);
  RMM_Free(most);
}

// A long random life against a model that knows size and filling of each block.
TEST_F(MemoryTest, RandomLifeKeepsEveryBlockWhole) {
  struct Known {
    unsigned char* block;
    std::size_t size;
    unsigned char fill;
  };
  std::mt19937 random(12345);
  std::vector<Known> known;
  const auto check = [](const Known& each) {
    for (std::size_t i = 0; i < each.size; i += 1 + each.size / 64) {
      if (each.block[i] != each.fill) return false;
    }
    return each.size == 0 || each.block[each.size - 1] == each.fill;
  };
  const auto randomSize = [&random] {
    const unsigned kind = random() % 100;
    if (kind < 70) return random() % 300;
    return kind < 95 ? random() % 20000 : random() % 600000;
  };
  for (int step = 0; step < 60000; ++step) {
    const unsigned what = random() % 5;
    if (known.size() < 50 || what < 2) {
      const std::size_t size = randomSize();
      auto* const block = static_cast<unsigned char*>(RMM_AllocName(1, size, RMM_SITE));
      ASSERT_NE(nullptr, block);
      const auto fill = static_cast<unsigned char>(random());
      std::memset(block, fill, size);
      known.push_back({block, size, fill});
      continue;
    }
    Known& each = known[random() % known.size()];
    ASSERT_TRUE(check(each)) << step;
    if (what == 2) {
      const std::size_t size = randomSize();
      each.block = static_cast<unsigned char*>(RMM_ReAllocName(each.block, 1, size, RMM_SITE));
      ASSERT_NE(nullptr, each.block);
      each.size = std::min(each.size, size);
      ASSERT_TRUE(check(each)) << step;
      std::memset(each.block, each.fill, size);
      each.size = size;
    } else {
      RMM_Free(each.block);
      each = known.back();
      known.pop_back();
    }
  }
  for (const Known& each : known) {
    EXPECT_TRUE(check(each));
    RMM_Free(each.block);
  }
}

std::uint64_t residentBytes() {
  std::uint64_t all = 0;
  std::uint64_t resident = 0;
  std::ifstream("/proc/self/statm") >> all >> resident;
  return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

// Most of what a large drawing took goes back to the system with it; what is taken after that is
// good memory.
TEST_F(MemoryTest, TheSystemGetsFreedMemoryBack) {
  constexpr std::size_t kBlocks = 50000;
  constexpr std::size_t kSize = 4000;
  for (int round = 0; round < 2; ++round) {
    std::vector<char*> blocks;
    for (std::size_t i = 0; i < kBlocks; ++i) {
      blocks.push_back(static_cast<char*>(RMM_AllocName(1, kSize, RMM_SITE)));
      ASSERT_NE(nullptr, blocks.back());
      std::memset(blocks.back(), static_cast<int>(i & 0xff), kSize);
    }
    const std::uint64_t full = residentBytes();
    for (std::size_t i = 0; i < kBlocks; ++i) {
      ASSERT_EQ(static_cast<char>(i & 0xff), blocks[i][kSize - 1]);
      RMM_Free(blocks[i]);
    }
    // Some stays at hand, and the sanitizers keep memory of their own.
    EXPECT_LT(residentBytes(), full - kBlocks * kSize / 4);
  }
}

}  // namespace
}  // namespace egfhost
