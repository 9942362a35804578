#include "model/svg_map.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"

namespace egfsvg {
namespace {

struct Value {
  int number;
};

char* key(const std::string& text) { return duplicateText(text.c_str(), RMM_SITE); }

TEST(Map, FindsWithoutRegardToCase) {
  Map<Value> map;
  Value first{1};
  EXPECT_EQ(map.insert(key("ABC"), &first), nullptr);
  EXPECT_EQ(map.find("abc"), &first);
  EXPECT_EQ(map.isthere("aBc"), 0);
  EXPECT_EQ(map.find("abcd"), nullptr);
  EXPECT_EQ(map.find("abcd", 3), &first);
  EXPECT_EQ(map.find("ab"), nullptr);
}

TEST(Map, ReplacesInPlaceAndReturnsTheOldValue) {
  Map<Value> map;
  Value first{1}, second{2}, other{3};
  map.insert(key("ABC"), &first);
  map.insert(key("x"), &other);
  bool stored = false;
  EXPECT_EQ(map.insert(key("abc"), &second, &stored), &first);
  EXPECT_TRUE(stored);
  EXPECT_EQ(map.count, 2);
  EXPECT_EQ(map.at(0), &second);
  EXPECT_STREQ(map.entries[0].key, "abc");
  EXPECT_EQ(map.find("ABC"), &second);
}

TEST(Map, EmptyAndNullArguments) {
  Map<Value> map;
  Value value{1};
  EXPECT_EQ(map.find("a"), nullptr);
  EXPECT_EQ(map.find(nullptr), nullptr);
  EXPECT_EQ(map.isthere("zz"), -1);
  EXPECT_EQ(map.isthere(nullptr), -1);
  bool stored = true;
  EXPECT_EQ(map.insert(nullptr, &value, &stored), nullptr);
  EXPECT_FALSE(stored);
  char* mine = key("k");
  stored = true;
  EXPECT_EQ(map.insert(mine, nullptr, &stored), nullptr);
  EXPECT_FALSE(stored);
  EXPECT_EQ(map.count, 0);
  EXPECT_EQ(map.entries, nullptr);
  EXPECT_EQ(map.at(0), nullptr);
  RMM_Free(mine);
}

TEST(Map, KeepsTheOrderOfInsertion) {
  Map<Value> map;
  std::vector<Value> values(5000);
  for (int i = 0; i < 5000; ++i) {
    map.insert(key("Key" + std::to_string(4999 - i)), &values[static_cast<std::size_t>(i)]);
  }
  ASSERT_EQ(map.count, 5000);
  for (int i = 0; i < 5000; ++i) {
    EXPECT_EQ(map.at(i), &values[static_cast<std::size_t>(i)]);
    EXPECT_EQ(map.isthere(("kEY" + std::to_string(4999 - i)).c_str()), i);
  }
  EXPECT_EQ(map.at(-1), nullptr);
  EXPECT_EQ(map.at(5000), nullptr);
  EXPECT_EQ(map.isthere("key5000"), -1);
}

TEST(Map, ClearsAndStartsAnew) {
  Map<Value> map;
  Value value{1};
  for (int i = 0; i < 100; ++i) map.insert(key(std::to_string(i)), &value);
  map.clear();
  EXPECT_EQ(map.count, 0);
  EXPECT_EQ(map.find("5"), nullptr);
  map.insert(key("5"), &value);
  EXPECT_EQ(map.isthere("5"), 0);
}

TEST(Map, NumberedEntriesAreFoundByTheirPosition) {
  Map<Value> map;
  std::vector<Value> values(1200);
  for (Value& value : values) ASSERT_TRUE(map.appendNumbered(&value));
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_EQ(map.find(std::to_string(i).c_str()), &values[i]);
  }
  for (const char* other : {"", "1200", "00", "01", "-1", "1 ", "a", "99999999999999999999"}) {
    EXPECT_EQ(map.isthere(other), -1) << other;
  }
}

// Whatever allocation fails, the table stays whole and the caller knows whose the key is.
TEST(Map, EveryAllocationFailureLeavesTheTableWhole) {
  for (std::uint64_t n = 1; n <= 40; ++n) {
    Map<Value> map;
    std::vector<Value> values(200);
    std::vector<std::string> kept;
    std::vector<char*> keys;
    for (int i = 0; i < 200; ++i) keys.push_back(key("k" + std::to_string(i)));
    ASSERT_TRUE(egfhost::failAllocation(n));
    for (int i = 0; i < 200; ++i) {
      bool stored = false;
      map.insert(keys[static_cast<std::size_t>(i)], &values[static_cast<std::size_t>(i)], &stored);
      if (stored) {
        kept.push_back("K" + std::to_string(i));
      } else {
        RMM_Free(keys[static_cast<std::size_t>(i)]);
      }
    }
    egfhost::clearFaults();
    ASSERT_EQ(map.count, static_cast<int>(kept.size()));
    EXPECT_GE(kept.size(), 199U);
    for (int i = 0; i < map.count; ++i) {
      EXPECT_EQ(map.isthere(kept[static_cast<std::size_t>(i)].c_str()), i);
    }
  }
}

TEST(Map, WorksWithoutMemoryForAnIndex) {
  Map<Value> map;
  std::vector<Value> values(100);
  std::vector<char*> keys;
  for (int i = 0; i < 100; ++i) keys.push_back(key(std::to_string(i)));
  map.insert(keys[0], &values[0]);
  // Nothing but what the first block still holds: entries that fit are stored, none is lost.
  ASSERT_TRUE(egfhost::failAllocation(1, egfhost::FaultSpan::kForEver));
  std::size_t stored = 1;
  for (std::size_t i = 1; i < 100; ++i) {
    bool taken = false;
    map.insert(keys[i], &values[i], &taken);
    if (taken) {
      ++stored;
    } else {
      RMM_Free(keys[i]);
    }
  }
  egfhost::clearFaults();
  ASSERT_EQ(map.count, static_cast<int>(stored));
  for (int i = 0; i < map.count; ++i) EXPECT_EQ(map.isthere(std::to_string(i).c_str()), i);
}

}  // namespace
}  // namespace egfsvg
