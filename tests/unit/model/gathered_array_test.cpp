#include "model/gathered_array.h"

#include <gtest/gtest.h>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"

namespace egfsvg {
namespace {

constexpr std::ptrdiff_t kNear = 8;
using Numbers = GatheredArray<int, kNear>;

bool fill(Numbers& numbers, int count) {
  for (int i = 0; i < count; ++i) {
    int* const place = numbers.append();
    if (place == nullptr) return false;
    *place = i;
  }
  return true;
}

TEST(GatheredArray, ReleasesABlockOfItsSize) {
  for (int count : {1, 7, 8, 9, 31, 32, 33, 64, 65, 1000}) {
    const auto before = egfhost::liveSites();
    Numbers numbers(RMM_SITE);
    ASSERT_TRUE(fill(numbers, count));
    EXPECT_EQ(numbers.count(), count);
    int* block = numbers.release();
    ASSERT_NE(block, nullptr);
    for (int i = 0; i < count; ++i) EXPECT_EQ(block[i], i);
    const auto sites = egfhost::liveSitesSince(before);
    ASSERT_EQ(sites.size(), 1U);
    EXPECT_EQ(sites[0].bytes, static_cast<std::size_t>(count) * sizeof(int));
    EXPECT_TRUE(numbers.empty());
    EXPECT_EQ(numbers.release(), nullptr);
    freeAll(block);
  }
}

TEST(GatheredArray, TakesNoBlockWhileItsEntriesAreFew) {
  const auto before = egfhost::liveSites();
  Numbers numbers(RMM_SITE);
  ASSERT_TRUE(fill(numbers, kNear));
  EXPECT_TRUE(egfhost::liveSitesSince(before).empty());
}

TEST(GatheredArray, ItsFirstBlockHoldsWhatIsExpected) {
  const auto roomFor = [](std::ptrdiff_t expected) {
    Numbers numbers(RMM_SITE);
    EXPECT_TRUE(fill(numbers, kNear));
    EXPECT_TRUE(numbers.grow(expected));
    EXPECT_EQ(numbers.count(), kNear);
    return numbers.full() - numbers.next();
  };
  EXPECT_EQ(roomFor(50), 50 - kNear);
  EXPECT_EQ(roomFor(0), 4 * kNear - kNear);
  EXPECT_EQ(roomFor(1'000'000), 16 * kNear - kNear);
}

TEST(GatheredArray, EntriesMayBeWrittenInARow) {
  Numbers numbers(RMM_SITE);
  ASSERT_TRUE(fill(numbers, kNear - 2));
  int* place = numbers.next();
  while (place != numbers.full()) *place++ = 77;
  numbers.setNext(place);
  EXPECT_EQ(numbers.count(), kNear);
  ASSERT_TRUE(fill(numbers, 1));
  int* block = numbers.release();
  EXPECT_EQ(block[kNear - 1], 77);
  EXPECT_EQ(block[kNear], 0);
  freeAll(block);
}

TEST(GatheredArray, StaysAsItIsWithoutMemory) {
  Numbers numbers(RMM_SITE);
  ASSERT_TRUE(fill(numbers, kNear));
  egfhost::failAllocation(1);
  EXPECT_EQ(numbers.append(), nullptr);
  egfhost::clearFaults();
  EXPECT_EQ(numbers.count(), kNear);
  egfhost::failAllocation(1);
  EXPECT_EQ(numbers.release(), nullptr);
  egfhost::clearFaults();
  EXPECT_TRUE(numbers.empty());
}

TEST(GatheredArray, KeepsABlockThatCannotBeCut) {
  Numbers numbers(RMM_SITE);
  ASSERT_TRUE(fill(numbers, kNear + 1));
  egfhost::failAllocation(1);
  int* block = numbers.release();
  egfhost::clearFaults();
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block[kNear], kNear);
  freeAll(block);
}

}  // namespace
}  // namespace egfsvg
