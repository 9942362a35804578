#include "model/rmm_allocator.h"

#include <gtest/gtest.h>

#include <vector>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"

namespace egfsvg {
namespace {

TEST(RmmAllocator, DuplicateText) {
  char* whole = duplicateText("abc", RMM_SITE);
  EXPECT_STREQ(whole, "abc");
  char* part = duplicateText("abc", 2, RMM_SITE);
  EXPECT_STREQ(part, "ab");
  EXPECT_EQ(duplicateText(nullptr, RMM_SITE), nullptr);
  EXPECT_EQ(duplicateText(nullptr, 3, RMM_SITE), nullptr);
  egfhost::failAllocation(1);
  EXPECT_EQ(duplicateText("abc", RMM_SITE), nullptr);
  egfhost::clearFaults();
  freeAll(whole, part);
  EXPECT_EQ(whole, nullptr);
  EXPECT_EQ(part, nullptr);
  freeAll(whole, part);
}

TEST(RmmAllocator, BlocksCarryTheirSite) {
  const auto before = egfhost::liveSites();
  int* block = allocateArray<int>(10, "some_file.cpp", 1234);
  const auto sites = egfhost::liveSitesSince(before);
  ASSERT_EQ(sites.size(), 1U);
  EXPECT_EQ(sites[0].file, "some_file.cpp");
  EXPECT_EQ(sites[0].line, 1234);
  EXPECT_EQ(sites[0].bytes, 40U);
  freeAll(block);
}

TEST(RmmAllocator, ZeroedRecord) {
  struct Record {
    int a;
    double b;
  };
  Record* record = allocateZeroed<Record>(RMM_SITE);
  EXPECT_EQ(record->a, 0);
  EXPECT_EQ(record->b, 0.0);
  freeAll(record);
}

TEST(GrowingArray, GrowsKeepsAndReleases) {
  GrowingArray<int> array(RMM_SITE);
  EXPECT_EQ(array.release(), nullptr);
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(array.push(i));
  EXPECT_EQ(array.count(), 1000);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(array[i], i);
  const int more[] = {7, 8, 9};
  ASSERT_TRUE(array.append(more, 3));
  EXPECT_EQ(array.back(), 9);
  array.cutTo(2);
  int* block = array.release();
  EXPECT_EQ(block[1], 1);
  EXPECT_EQ(array.count(), 0);
  EXPECT_EQ(array.data(), nullptr);
  freeAll(block);
}

TEST(GrowingArray, AnEntryOfItsOwnMayBePushed) {
  GrowingArray<int> array(RMM_SITE);
  array.push(42);
  for (int i = 0; i < 100; ++i) ASSERT_TRUE(array.push(array[0]));
  EXPECT_EQ(array.back(), 42);
}

TEST(GrowingArray, ClearedAndEmptyRelease) {
  GrowingArray<int> array(RMM_SITE);
  array.push(1);
  array.clear();
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.release(), nullptr);
}

TEST(GrowingArray, AFailedGrowthLeavesItAsItWas) {
  GrowingArray<int> array(RMM_SITE);
  egfhost::failAllocation(1);
  EXPECT_FALSE(array.push(1));
  egfhost::clearFaults();
  EXPECT_TRUE(array.empty());
  ASSERT_TRUE(array.reserve(4));
  for (int i = 0; i < 4; ++i) array.push(i);
  egfhost::failAllocation(1);
  EXPECT_EQ(array.append(), nullptr);
  egfhost::clearFaults();
  EXPECT_EQ(array.count(), 4);
  EXPECT_EQ(array[3], 3);
}

TEST(RmmAllocator, AVectorLivesInTheHostsMemory) {
  const auto before = egfhost::memoryCounters().liveBlocks;
  std::vector<int, RmmAllocator<int>> numbers(100, 5);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before + 1);
  egfhost::failAllocation(1);
  EXPECT_THROW(numbers.reserve(10000), std::bad_alloc);
  egfhost::clearFaults();
  EXPECT_EQ(numbers[99], 5);
}

}  // namespace
}  // namespace egfsvg
