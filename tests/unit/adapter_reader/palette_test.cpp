#include <gtest/gtest.h>

#include <set>

#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

std::set<std::uint32_t> coloursOf(const _sel_colour_list* list) {
  std::set<std::uint32_t> words;
  for (std::uint32_t i = 0; i < list->count; ++i) words.insert(colourWord(list->colours[i]));
  return words;
}

TEST(Palette, ColoursAreAddedOnce) {
  AdapterPage page;
  ASSERT_NE(page->palette, nullptr);
  EXPECT_EQ(page->QueryColourPalette(), page->palette);
  EXPECT_EQ(+page->palette->capacity, 0x1000000U);
  for (const std::uint32_t word : {0x123456U, 0U, 0xFFFFFFU, 0x123456U, 0U}) {
    page->UpdatePalette(colourOf(word));
  }
  EXPECT_EQ(coloursOf(page->palette), (std::set<std::uint32_t>{0x123456U, 0U, 0xFFFFFFU}));
  EXPECT_EQ(+page->palette->count, 3U);
}

TEST(Palette, ThreeHundredColoursGiveAtMostTwoHundredAndFiftySix) {
  AdapterPage page;
  std::set<std::uint32_t> first;
  for (std::uint32_t word = 1; word <= 300; ++word) {
    page->UpdatePalette(colourOf(word * 7919));
    if (word <= 255) first.insert(word * 7919);
  }
  EXPECT_LE(+page->palette->count, 256U);
  const std::set<std::uint32_t> kept = coloursOf(page->palette);
  for (const std::uint32_t word : first) EXPECT_TRUE(kept.contains(word)) << word;
}

// What is remembered of earlier colours does not outlive the palette.
TEST(Palette, AFreshPaletteTakesTheSameColoursAgain) {
  AdapterPage page;
  page->UpdatePalette(colourOf(0x123456));
  _sel_colour_list* old = page->palette;
  _sel_colour_list* fresh = page->CreatePalette();
  EXPECT_NE(fresh, old);
  EXPECT_EQ(page->palette, fresh);
  RMM_Free(old->colours.get());
  RMM_Free(old);
  page->UpdatePalette(colourOf(0x123456));
  EXPECT_EQ(coloursOf(fresh), (std::set<std::uint32_t>{0x123456U}));
}

TEST(Palette, ManyColoursOfOneSlotAllArrive) {
  AdapterPage page;
  std::set<std::uint32_t> words;
  for (std::uint32_t i = 0; i < 200; ++i) words.insert(i * 0x10001);
  for (int round = 0; round < 3; ++round) {
    for (const std::uint32_t word : words) page->UpdatePalette(colourOf(word));
  }
  EXPECT_EQ(coloursOf(page->palette), words);
}

TEST(Palette, FailuresKeepThePalette) {
  AdapterPage page;
  for (std::uint32_t word = 0; word < 256; ++word) page->UpdatePalette(colourOf(word));
  const std::set<std::uint32_t> before = coloursOf(page->palette);
  for (const char* call : {"SEL_CLOR_Alloc", "SEL_CLOR_AddColour", "SEL_CLOR_Combine"}) {
    egfhost::failAt(call, 1);
    page->UpdatePalette(colourOf(0xABCDEF));
    EXPECT_EQ(egfhost::faultsStruck(), 1U) << call;
    egfhost::clearFaults();
    EXPECT_EQ(coloursOf(page->palette), before) << call;
  }
  // Nothing was noted: the colour is offered again.
  egfhost::countCalls();
  page->UpdatePalette(colourOf(0xABCDEF));
  EXPECT_EQ(egfhost::callCount("SEL_CLOR_Combine"), 1U);
  egfhost::clearFaults();
}

TEST(Palette, WithoutAPaletteColoursAreDropped) {
  egfhost::failAt("SEL_CLOR_Alloc", 1);
  CAdapterReader adapter;
  egfhost::clearFaults();
  EXPECT_EQ(adapter.palette, nullptr);
  adapter.UpdatePalette(colourOf(1));
}

}  // namespace
}  // namespace egfsvg::test
