// Tags that are guessed from the ones before against tags that are looked up each.
#include "reader/tag_guess.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

/// A tag's code and index, whether it has attributes, and where it leaves the source.
using Seen = std::tuple<int, int, std::int32_t, std::int32_t>;

enum class Memory { kKept, kCleared };

std::vector<Seen> tagsOf(const std::string& text, Memory memory) {
  TextReader reader(text);
  std::vector<Seen> seen;
  for (int tag = kTagNone; tag != kTagEnd;) {
    if (memory == Memory::kCleared) reader->state.tags = TagGuess();
    int index = -1;
    tag = reader->GetNextTag(&index);
    seen.emplace_back(tag, index, reader->hasAttributes, reader->buffer.getFileIndex());
  }
  return seen;
}

std::string randomTag(std::mt19937& random) {
  static constexpr const char* kNames[] = {"rect",
                                           "rect",
                                           "rectangle",
                                           "RECT",
                                           "re",
                                           "g",
                                           "g",
                                           "/g",
                                           "/g",
                                           "path",
                                           "pattern",
                                           "polyline",
                                           "polygon",
                                           "line",
                                           "/svg",
                                           "linear",
                                           "!--",
                                           "linearGradient",
                                           "a",
                                           "",
                                           "circle",
                                           "textPath",
                                           "/linearGradient",
                                           "sixteen-bytes-ab",
                                           "/textPath",
                                           "defs",
                                           "/defs"};
  static constexpr const char* kLasts[] = {" ", " ", " ", ">", ">", "/>", "\n", "\t", "<", "&"};
  static constexpr const char* kBehind[] = {
      "",  "\n",   "x=\"1\" fill=\"none\"/>\n",
      ">", "text", "a longer text that does not fit into two blocks "};
  return std::string("<") + kNames[random() % std::size(kNames)] +
         kLasts[random() % std::size(kLasts)] + kBehind[random() % std::size(kBehind)];
}

TEST(TagGuess, GivesWhatALookUpGives) {
  std::mt19937 random(21);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 4 == 0 ? cBuffer::kBlockSize - random() % 200 : 0, ' ');
    for (std::size_t count = random() % 40; count > 0; --count) text += randomTag(random);
    if (!text.empty() && random() % 4 == 0) text[random() % text.size()] = '\0';
    EXPECT_EQ(tagsOf(text, Memory::kKept), tagsOf(text, Memory::kCleared)) << text;
  }
}

TEST(TagGuess, IsTheTagThatBeganSoTheLastTime) {
  // With room for a block.
  const std::string rect = "<rect x=\"1\" y=\"2\"/>";
  const std::string group = "<g>                 ";
  TagGuess guess;
  EXPECT_FALSE(guess.of(rect.data()).opens(rect.data()));
  guess.remember(rect.data(), kTagRect, ' ');
  guess.remember(group.data(), kTagGroup, '>');
  EXPECT_TRUE(guess.of(rect.data()).opens(rect.data()));
  EXPECT_EQ(guess.of(rect.data()).code, kTagRect);
  EXPECT_EQ(guess.of(rect.data()).hasAttributes, 1);
  EXPECT_EQ(guess.of(group.data()).code, kTagGroup);
  EXPECT_EQ(guess.of(group.data()).hasAttributes, 0);
  EXPECT_EQ(guess.of(group.data()).length, 3);
}

}  // namespace
}  // namespace egfsvg::test
