#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "host/egf.h"
#include "host/memory.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

HostHandle firstDashOf(const TreeBuilder& tree) {
  return readPacked<HostHandle>(tree.pageHeader(), 3052);
}

TEST(Dashes, StartEmpty) {
  const TreeBuilder tree;
  EXPECT_EQ(firstDashOf(tree), 0U);
  EXPECT_EQ(EGF_GetDashRecordByStyle(firstDashOf(tree), 1), nullptr);
}

TEST(Dashes, AreNumberedFromOne) {
  TreeBuilder tree;
  EXPECT_EQ(tree.dash({5, -3}), 1U);
  EXPECT_EQ(tree.dash({5, -3}), 2U);
  EXPECT_EQ(tree.dash({1, -1, 2, -2}), 3U);
}

TEST(Dashes, AreFoundByTheirNumber) {
  TreeBuilder tree;
  constexpr std::uint32_t kMany = 1000;
  for (std::uint32_t i = 0; i < kMany; ++i) tree.dash({1.0 + i, -1.0});
  const HostHandle first = firstDashOf(tree);
  for (std::uint32_t number = 1; number <= kMany; ++number) {
    _egf_dash_record* record = EGF_GetDashRecordByStyle(first, number);
    ASSERT_NE(record, nullptr) << number;
    EXPECT_EQ(record->number, number);
    EXPECT_EQ(readPacked<double>(record, 32), static_cast<double>(number));
    EXPECT_EQ(record->segmentCount, 2);
  }
  for (const std::uint32_t number : {0U, kMany + 1, 0xffffffffU}) {
    EXPECT_EQ(EGF_GetDashRecordByStyle(first, number), nullptr) << number;
  }
  EXPECT_EQ(EGF_GetDashRecordByStyle(0, 1), nullptr);
}

TEST(Dashes, AreChainedInTheOrderOfAppending) {
  TreeBuilder tree;
  for (int i = 0; i < 3; ++i) tree.dash({1.0 + i, -1.0});
  std::vector<std::uint32_t> numbers;
  for (HostHandle at = firstDashOf(tree); at != 0;
       at = readPacked<HostHandle>(egfsvg::at<char>(at), 532)) {
    numbers.push_back(readPacked<std::uint32_t>(egfsvg::at<char>(at)));
  }
  EXPECT_EQ(numbers, (std::vector<std::uint32_t>{1, 2, 3}));
}

TEST(Dashes, LinkedByHandAreWalkedAndGoneOnFrom) {
  TreeBuilder tree;
  _egf_dash_record* first = EGF_CreateDashRecord();
  _egf_dash_record* second = EGF_CreateDashRecord();
  first->number = 7;
  second->number = 3;
  first->next = second;
  tree.pageHeader()->firstDash = first;
  const std::uint32_t number = tree.dash({1, -1});
  EXPECT_NE(number, 7U);
  EXPECT_NE(number, 3U);
  EXPECT_EQ(EGF_GetDashRecordByStyle(firstDashOf(tree), 3), second);
  EXPECT_EQ(EGF_GetDashRecordByStyle(firstDashOf(tree), 7), first);
  EXPECT_NE(EGF_GetDashRecordByStyle(firstDashOf(tree), number), nullptr);
}

TEST(Dashes, AreZeroedWhenMade) {
  _egf_dash_record* record = EGF_CreateDashRecord();
  ASSERT_NE(record, nullptr);
  for (std::size_t i = 0; i < sizeof *record; ++i) {
    EXPECT_EQ(readPacked<unsigned char>(record, i), 0);
  }
  RMM_Free(record);
}

TEST(Dashes, ThatCannotBeAppendedStayTheCallers) {
  TreeBuilder tree;
  _egf_dash_record* record = EGF_CreateDashRecord();
  EXPECT_NE(EGF_AppendDashRecord(nullptr, record), 0);
  EXPECT_NE(EGF_AppendDashRecord(tree.pageHeader(), nullptr), 0);
  egfhost::failAllocation(1);
  EXPECT_NE(EGF_AppendDashRecord(tree.pageHeader(), record), 0);
  egfhost::clearFaults();
  EXPECT_EQ(firstDashOf(tree), 0U);
  egfhost::failAt("EGF_AppendDashRecord", 1);
  EXPECT_NE(EGF_AppendDashRecord(tree.pageHeader(), record), 0);
  RMM_Free(record);
}

TEST(Dashes, FailWithTheirFaults) {
  egfhost::failAt("EGF_CreateDashRecord", 1);
  EXPECT_EQ(EGF_CreateDashRecord(), nullptr);
  egfhost::failAllocation(1);
  EXPECT_EQ(EGF_CreateDashRecord(), nullptr);
}

}  // namespace
}  // namespace egfsvg::test
