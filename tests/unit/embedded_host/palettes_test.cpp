#include "host/palettes.h"

#include <vector>

#include "host/egf_small.h"
#include "host/memory.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using PaletteTest = HostTest;

void freeList(_sel_colour_list* list) {
  RMM_Free(list->colours.get());
  RMM_Free(list);
}

int add(_sel_colour_list* list, std::uint32_t word) {
  return SEL_CLOR_AddColour(list, egfsvg::colourOf(word));
}

std::vector<std::uint32_t> coloursOf(const _sel_colour_list* list) {
  std::vector<std::uint32_t> words;
  for (std::uint32_t i = 0; i < list->count; ++i) {
    words.push_back(egfsvg::colourWord(list->colours[i]));
  }
  return words;
}

using Words = std::vector<std::uint32_t>;

TEST_F(PaletteTest, ACapacityTakesNoMemory) {
  const std::uint64_t before = memoryCounters().liveBytes;
  _sel_colour_list* const list = SEL_CLOR_Alloc(kDocumentPaletteCapacity, RMM_SITE);
  ASSERT_NE(nullptr, list);
  EXPECT_EQ(0u, list->count);
  EXPECT_EQ(0x1000000u, list->capacity);
  EXPECT_EQ(nullptr, list->colours.get());
  EXPECT_LT(memoryCounters().liveBytes - before, 100u);
  freeList(list);
}

TEST_F(PaletteTest, ColoursStayUniqueAndInOrder) {
  _sel_colour_list* const list = SEL_CLOR_Alloc(8, RMM_SITE);
  for (const std::uint32_t word : {0xff0000u, 0u, 0xff0000u, 0xffffffu, 0u, 0x01000000u}) {
    EXPECT_EQ(0, add(list, word));
  }
  EXPECT_EQ((Words{0xff0000, 0, 0xffffff, 0x01000000}), coloursOf(list));
  freeList(list);
}

TEST_F(PaletteTest, AFullListTakesNoNewColour) {
  _sel_colour_list* const list = SEL_CLOR_Alloc(2, RMM_SITE);
  EXPECT_EQ(0, add(list, 1));
  EXPECT_EQ(0, add(list, 2));
  EXPECT_NE(0, add(list, 3));
  EXPECT_EQ(0, add(list, 2));
  EXPECT_EQ((Words{1, 2}), coloursOf(list));
  freeList(list);
  EXPECT_NE(0, SEL_CLOR_AddColour(nullptr, egfsvg::colourOf(1)));
}

TEST_F(PaletteTest, ManyColours) {
  constexpr std::uint32_t kColours = 200000;
  _sel_colour_list* const list = SEL_CLOR_Alloc(kDocumentPaletteCapacity, RMM_SITE);
  for (int round = 0; round < 2; ++round) {
    for (std::uint32_t i = 0; i < kColours; ++i) ASSERT_EQ(0, add(list, i * 83));
  }
  EXPECT_EQ(kColours, list->count);
  EXPECT_EQ(83u * 12345, egfsvg::colourWord(list->colours[12345]));
  freeList(list);
}

TEST_F(PaletteTest, CombineStoresANewList) {
  struct Row {
    Words first;
    Words second;
    std::uint32_t capacity;
    Words expected;
  };
  const Row kRows[] = {{{1, 2}, {2, 3}, 256, {1, 2, 3}},
                       {{1, 2, 3}, {4}, 3, {1, 2, 3}},
                       {{}, {4, 4, 5}, 256, {4, 5}},
                       {{7}, {}, 256, {7}}};
  for (const Row& row : kRows) {
    _sel_colour_list* first = SEL_CLOR_Alloc(16, RMM_SITE);
    _sel_colour_list* const second = SEL_CLOR_Alloc(16, RMM_SITE);
    for (const std::uint32_t word : row.first) add(first, word);
    for (const std::uint32_t word : row.second) add(second, word);
    _sel_colour_list* const before = first;
    EXPECT_EQ(0, SEL_CLOR_Combine(&first, second, row.capacity));
    EXPECT_NE(before, first);
    EXPECT_EQ(row.expected, coloursOf(first));
    EXPECT_EQ(row.capacity, first->capacity);
    EXPECT_EQ(row.first, coloursOf(before));
    for (_sel_colour_list* const list : {before, first, second}) freeList(list);
  }
}

TEST_F(PaletteTest, CopiesAreTheirOwn) {
  _sel_colour_list* const list = SEL_CLOR_Alloc(16, RMM_SITE);
  add(list, 1);
  _sel_colour_list* const copy = SEL_CLOR_Copy(list, RMM_SITE);
  _sel_colour_list* const twin = SEL_CLOR_Duplicate(list, RMM_SITE);
  add(list, 2);
  EXPECT_EQ((Words{1}), coloursOf(copy));
  EXPECT_EQ((Words{1}), coloursOf(twin));
  EXPECT_EQ(16u, copy->capacity);
  EXPECT_EQ(0, add(copy, 1));
  EXPECT_EQ(1u, copy->count);
  for (_sel_colour_list* const each : {list, copy, twin}) freeList(each);
  EXPECT_EQ(nullptr, SEL_CLOR_Copy(nullptr, RMM_SITE));
}

TEST_F(PaletteTest, FailuresLeaveListsAsTheyWere) {
  _sel_colour_list* list = SEL_CLOR_Alloc(16, RMM_SITE);
  failAllocation(1);
  EXPECT_NE(0, add(list, 1));
  EXPECT_EQ(0u, list->count);
  EXPECT_EQ(0, add(list, 1));
  _sel_colour_list* const before = list;
  for (const std::uint64_t n : {1u, 2u}) {
    failAllocation(n);
    EXPECT_NE(0, SEL_CLOR_Combine(&list, before, 16));
    EXPECT_EQ(before, list);
    failAllocation(n);
    EXPECT_EQ(nullptr, SEL_CLOR_Copy(list, RMM_SITE));
  }
  failAt("SEL_CLOR_Alloc", 1);
  EXPECT_EQ(nullptr, SEL_CLOR_Alloc(16, RMM_SITE));
  freeList(list);
}

}  // namespace
}  // namespace egfhost
