#include "host/style_tables.h"

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

class StyleTableTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    table = STYLE_Create();
    ASSERT_NE(0u, table);
  }
  void TearDown() override {
    STYLE_Destroy(table);
    HostTest::TearDown();
  }

  std::uint32_t append(std::uint32_t value) {
    return STYLE_AppendUnique(table, sizeof value, &value);
  }
  std::uint32_t find(std::uint32_t value) {
    return STYLE_QueryStyleNo(table, sizeof value, &value);
  }

  HostHandle table = 0;
};

TEST_F(StyleTableTest, EqualBytesShareANumber) {
  EXPECT_EQ(1u, append(7));
  EXPECT_EQ(1u, append(7));
  EXPECT_EQ(2u, append(8));
  EXPECT_EQ(0u, find(9));
  EXPECT_EQ(2u, find(8));
  EXPECT_EQ(2u, STYLE_QueryTotalStyleCount(table));
}

TEST_F(StyleTableTest, TheSizeBelongsToTheRecord) {
  const char bytes[] = "abcdefgh";
  EXPECT_EQ(1u, STYLE_AppendUnique(table, 8, bytes));
  EXPECT_EQ(2u, STYLE_AppendUnique(table, 4, bytes));
  EXPECT_EQ(0u, STYLE_QueryStyleNo(table, 5, bytes));
}

TEST_F(StyleTableTest, QueryDataGivesAPointerIntoTheTable) {
  append(7);
  std::uint32_t size = 99;
  void* record = &size;
  EXPECT_EQ(0, STYLE_QueryData(table, 1, &size, &record));
  EXPECT_EQ(4u, size);
  std::uint32_t value = 0;
  std::memcpy(&value, record, sizeof value);
  EXPECT_EQ(7u, value);
  void* const first = record;
  for (std::uint32_t i = 100; i < 5000; ++i) append(i);
  STYLE_QueryData(table, 1, &size, &record);
  EXPECT_EQ(first, record);
  EXPECT_EQ(0, STYLE_QueryData(table, 1, nullptr, nullptr));
}

TEST_F(StyleTableTest, NoSuchRecord) {
  append(7);
  for (const std::uint32_t number : {0u, 2u, 0xffffffffu}) {
    std::uint32_t size = 99;
    void* record = &size;
    EXPECT_NE(0, STYLE_QueryData(table, number, &size, &record));
    EXPECT_EQ(0u, size);
    EXPECT_EQ(nullptr, record);
  }
}

TEST_F(StyleTableTest, AMissingTableIsAnEmptyOne) {
  const std::uint32_t value = 1;
  void* record = nullptr;
  std::uint32_t size = 0;
  for (const HostHandle missing : {0u, 12345u, 0xfffffff0u}) {
    EXPECT_EQ(0u, STYLE_AppendUnique(missing, 4, &value));
    EXPECT_EQ(0u, STYLE_QueryStyleNo(missing, 4, &value));
    EXPECT_EQ(0u, STYLE_QueryTotalStyleCount(missing));
    EXPECT_NE(0, STYLE_QueryData(missing, 1, &size, &record));
    EXPECT_EQ(0, STYLE_Enumerate(missing, nullptr, nullptr, nullptr));
    EXPECT_NE(0, STYLE_Destroy(missing));
  }
  EXPECT_EQ(0u, STYLE_AppendUnique(table, 0, &value));
  EXPECT_EQ(0u, STYLE_AppendUnique(table, 4, nullptr));
}

struct Seen {
  std::vector<std::uint32_t> values;
  std::uint32_t stopAt;
};

int note(std::uint32_t size, const void* record, void* userData) {
  auto* const seen = static_cast<Seen*>(userData);
  std::uint32_t value = 0;
  std::memcpy(&value, record, size);
  seen->values.push_back(value);
  return value == seen->stopAt ? -17 : 0;
}

TEST_F(StyleTableTest, EnumerationRunsInOrderUntilAResult) {
  struct Row {
    std::uint32_t stopAt;
    int result;
    std::vector<std::uint32_t> seen;
  };
  for (const std::uint32_t value : {30u, 10u, 20u}) append(value);
  const Row kRows[] = {{0, 0, {30, 10, 20}}, {10, -17, {30, 10}}, {30, -17, {30}}};
  for (const Row& row : kRows) {
    _style_cursor cursor{0, 4};
    Seen seen{{}, row.stopAt};
    EXPECT_EQ(row.result, STYLE_Enumerate(table, &cursor, &note, &seen));
    EXPECT_EQ(row.seen, seen.values);
  }
}

TEST_F(StyleTableTest, ManyRecordsKeepTheirNumbers) {
  constexpr std::uint32_t kRecords = 100000;
  for (std::uint32_t i = 0; i < kRecords; ++i) ASSERT_EQ(i + 1, append(i * 2654435761u));
  for (std::uint32_t i = 0; i < kRecords; ++i) ASSERT_EQ(i + 1, find(i * 2654435761u));
}

TEST_F(StyleTableTest, AFailedAllocationGivesZeroAndKeepsTheTable) {
  append(1);
  failAllocation(1);
  EXPECT_EQ(0u, append(2));
  EXPECT_EQ(1u, append(1));
  EXPECT_EQ(2u, append(2));
  failAllocation(1);
  EXPECT_EQ(0u, STYLE_Create());
}

TEST_F(StyleTableTest, InjectedFailures) {
  append(1);
  void* record = nullptr;
  failAt("STYLE_AppendUnique", 1);
  EXPECT_EQ(0u, append(1));
  failAt("STYLE_QueryData", 1);
  EXPECT_NE(0, STYLE_QueryData(table, 1, nullptr, &record));
  failAt("STYLE_QueryStyleNo", 1);
  EXPECT_EQ(0u, find(1));
  failAt("STYLE_Create", 1);
  EXPECT_EQ(0u, STYLE_Create());
}

}  // namespace
}  // namespace egfhost
