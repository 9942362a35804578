#include "model/byte_block.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

#include "model/name_tables.h"
#include "model/short_name_tables.h"

namespace egfsvg::test {
namespace {

constexpr std::size_t kSlack = 2 * kByteBlockSize;

/// Random bytes, of which many are alike.
std::string randomText(std::mt19937& random, std::size_t length) {
  std::string text(length, '\0');
  for (char& c : text) c = static_cast<char>(random() % 4 == 0 ? random() : 'A' + random() % 60);
  return text;
}

template <class Question>
ByteMask askEach(const std::string& text, Question question) {
  ByteMask mask = 0;
  for (std::size_t i = 0; i < kByteBlockSize; ++i) {
    if (question(static_cast<unsigned char>(text[i]))) mask |= ByteMask{1} << i;
  }
  return mask;
}

template <class Block>
void askRandomBlocks() {
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    const std::string text = randomText(random, kByteBlockSize);
    const auto asked = static_cast<unsigned char>(text[random() % kByteBlockSize] + random() % 2);
    const Block block = Block::load(text.data());
    EXPECT_EQ(block.equal(static_cast<char>(asked)),
              askEach(text, [asked](unsigned char c) { return c == asked; }));
    EXPECT_EQ(block.either(static_cast<char>(asked), 'Q'),
              askEach(text, [asked](unsigned char c) { return c == asked || c == 'Q'; }));
    EXPECT_EQ(block.upToOr(static_cast<char>(asked), 'Q'),
              askEach(text, [asked](unsigned char c) { return c <= asked || c == 'Q'; }));
    char bytes[kByteBlockSize];
    const std::size_t count = random() % (kByteBlockSize + 1);
    block.first(count).store(bytes);
    for (std::size_t i = 0; i < kByteBlockSize; ++i) {
      EXPECT_EQ(bytes[i], i < count ? text[i] : '\0') << i;
    }
    std::uint64_t halves[2];
    std::memcpy(halves, text.data(), sizeof halves);
    EXPECT_EQ(block.sum(), halves[0] + halves[1]);
    std::string other = text;
    EXPECT_TRUE(block == Block::load(other.data()));
    other[count % kByteBlockSize] ^= 1;
    EXPECT_FALSE(block == Block::load(other.data()));
  }
}

TEST(ByteBlock, AnswersForEachByte) { askRandomBlocks<ByteBlock>(); }

TEST(ByteBlock, AnswersForEachByteInPlainCode) { askRandomBlocks<PlainByteBlock>(); }

TEST(ByteBlock, FindsBytesFromBothEnds) {
  std::mt19937 random(8);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 80, 'x');
    for (int hits = 0; hits < 3 && !text.empty(); ++hits) {
      text[random() % text.size()] = hits == 1 ? '&' : '<';
    }
    const std::size_t length = text.size();
    const auto orEnd = [length](std::size_t at) { return at == std::string::npos ? length : at; };
    const std::size_t first = orEnd(text.find('<'));
    const std::size_t either = orEnd(text.find_first_of("<&"));
    const std::size_t last = text.rfind('<');
    text += std::string(kSlack, '<');  // behind the end there is more, which does not count
    const char* const end = text.data() + length;
    EXPECT_EQ(findByte(text.data(), end, '<'), text.data() + first);
    // What is sought stands behind the end at the latest.
    EXPECT_EQ(findByteAhead(text.data(), '<'), text.data() + first);
    EXPECT_EQ(findEitherAhead(text.data(), '&', '<'), text.data() + either);
    EXPECT_EQ(findLastByte(text.data(), end, '<'),
              last == std::string::npos ? nullptr : text.data() + last);
  }
  EXPECT_EQ(findByte(nullptr, nullptr, '<'), nullptr);
}

/// The text with room for a block behind it.
std::string padded(const std::string& text) { return text + std::string(kByteBlockSize, '='); }

/// Whether the index finds the name, with the whole table's code.
template <std::size_t Count, std::size_t Slots, class WholeTable>
bool finds(const ShortNameIndex<Count, Slots>& index, const std::string& name,
           const WholeTable& wholeTable) {
  int code = -1;
  const std::string text = padded(name);
  if (!index.find(ByteBlock::load(text.data()), name.size(), code)) return false;
  EXPECT_EQ(code, wholeTable(name.data(), name.size())) << name;
  return true;
}

template <std::size_t Count, std::size_t Slots, class WholeTable>
void compareAll(const ShortNameIndex<Count, Slots>& index, const NamedCode (&rows)[Count],
                const WholeTable& wholeTable) {
  std::mt19937 random(9);
  std::set<std::string> names;
  for (const NamedCode& row : rows) names.insert(row.name);
  for (const std::string& name : names) {
    if (name.size() > kByteBlockSize || name.find('!') != name.npos) continue;
    EXPECT_TRUE(finds(index, name, wholeTable)) << name;
    for (int round = 0; round < 8; ++round) {
      std::string wrong = name;
      wrong[random() % wrong.size()] = static_cast<char>(1 + random() % 255);
      EXPECT_EQ(finds(index, wrong, wholeTable), names.contains(wrong)) << wrong;
      const std::string shorter = name.substr(0, random() % name.size() + 1);
      EXPECT_EQ(finds(index, shorter, wholeTable), names.contains(shorter)) << shorter;
    }
    if (name.size() == kByteBlockSize) continue;
    EXPECT_EQ(finds(index, name + "1", wholeTable), names.contains(name + "1")) << name;
  }
}

TEST(ShortNames, AttributesAsInTheWholeTable) {
  compareAll(kShortAttributes, kAttributeNames, attributeCode);
}

TEST(ShortNames, TagsAsInTheWholeTable) { compareAll(kShortTags, kTagNames, tagCode); }

TEST(ShortNames, CommentsAndDeclarationsAreLeftOut) {
  for (const std::string name : {"!--", "!entity", "![cdata[", ""}) {
    int code = 0;
    const std::string text = padded(name);
    EXPECT_FALSE(kShortTags.find(ByteBlock::load(text.data()), name.size(), code)) << name;
  }
}

}  // namespace
}  // namespace egfsvg::test
