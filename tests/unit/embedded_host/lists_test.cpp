#include "host/lists.h"

#include <vector>

#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using ListTest = HostTest;
using Items = std::vector<std::uint32_t>;

Items itemsOf(const _lst_items& list) {
  const std::uint32_t* const items = list.items.get();
  return items == nullptr ? Items() : Items(items, items + list.count);
}

TEST_F(ListTest, ItemsComeZeroedAndGo) {
  _lst_items list{};
  ASSERT_EQ(0, LST_InsertItems(&list, 4, 0, 3));
  EXPECT_EQ((Items{0, 0, 0}), itemsOf(list));
  for (std::uint32_t i = 0; i < 3; ++i) list.items[i] = i + 1;
  ASSERT_EQ(0, LST_InsertItems(&list, 4, 1, 2));
  EXPECT_EQ((Items{1, 0, 0, 2, 3}), itemsOf(list));
  ASSERT_EQ(0, LST_InsertItems(&list, 4, 5, 1));
  EXPECT_EQ((Items{1, 0, 0, 2, 3, 0}), itemsOf(list));
  ASSERT_EQ(0, LST_DeleteItems(&list, 4, 1, 2));
  EXPECT_EQ((Items{1, 2, 3, 0}), itemsOf(list));
  ASSERT_EQ(0, LST_DeleteItems(&list, 4, 0, 4));
  EXPECT_EQ(0u, list.items.offset);
  EXPECT_EQ(0u, list.count);
}

TEST_F(ListTest, WhatCannotBeDoneChangesNothing) {
  _lst_items list{};
  ASSERT_EQ(0, LST_InsertItems(&list, 4, 0, 2));
  EXPECT_NE(0, LST_InsertItems(&list, 4, 3, 1));
  EXPECT_NE(0, LST_InsertItems(&list, 8, 0, 1));
  EXPECT_NE(0, LST_InsertItems(&list, 4, 0, 0xffffffff));
  EXPECT_NE(0, LST_InsertItems(nullptr, 4, 0, 1));
  EXPECT_NE(0, LST_DeleteItems(&list, 4, 1, 2));
  EXPECT_NE(0, LST_DeleteItems(&list, 4, 0, 0xffffffff));
  failAllocation(1);
  EXPECT_NE(0, LST_InsertItems(&list, 4, 0, 100000));
  EXPECT_EQ((Items{0, 0}), itemsOf(list));
  EXPECT_EQ(0, LST_InsertItems(&list, 4, 1, 0));
  EXPECT_EQ(0, LST_DeleteItems(&list, 4, 0, 2));
  EXPECT_EQ(0, LST_DeleteItems(&list, 4, 0, 0));
}

}  // namespace
}  // namespace egfhost
