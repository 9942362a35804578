#include "model/decimal_pair.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace egfsvg {
namespace {

bool isDigitByte(char c) { return c >= '0' && c <= '9'; }

// The bytes of a number by a walk of its own: sign, digits, one point at most; 0 without a digit.
std::size_t numberSize(const std::string& text, std::size_t from) {
  std::size_t at = from;
  if (at < text.size() && text[at] == '-') ++at;
  bool digits = false;
  for (bool point = false; at < text.size(); ++at) {
    if (!isDigitByte(text[at]) && (text[at] != '.' || point)) break;
    point = point || text[at] == '.';
    digits = digits || isDigitByte(text[at]);
  }
  return digits ? at - from : 0;
}

bool isSame(double one, double other) {
  return one == other && std::signbit(one) == std::signbit(other);
}

// What is found is what stands there; `found` tells whether something was.
template <class Pair>
void expectPair(const std::string& text, bool& found) {
  std::vector<char> block(text.begin(), text.end());
  block.push_back('\0');
  block.insert(block.end(), kDecimalPairReach, '7');  // bytes that must not count
  const Pair pair = Pair::scan(block.data());
  found = pair.end() != nullptr;
  if (!found) return;
  const std::size_t firstSize = numberSize(text, 0);
  ASSERT_NE(firstSize, 0U) << text;
  ASSERT_LT(firstSize, text.size()) << text;
  ASSERT_EQ(pair.between(), text[firstSize]) << text;
  const std::size_t second = firstSize + (text[firstSize] == '-' ? 0 : 1);
  const std::size_t secondSize = numberSize(text, second);
  ASSERT_NE(secondSize, 0U) << text;
  ASSERT_EQ(static_cast<std::size_t>(pair.end() - block.data()), second + secondSize) << text;
  double x = 0.0;
  double y = 0.0;
  pair.values(x, y);
  ASSERT_TRUE(isSame(x, std::strtod(text.substr(0, firstSize).c_str(), nullptr))) << text;
  ASSERT_TRUE(isSame(y, std::strtod(text.substr(second, secondSize).c_str(), nullptr))) << text;
}

template <class Pair>
bool isFound(const std::string& text) {
  bool found = false;
  expectPair<Pair>(text, found);
  return found;
}

TEST(DecimalPair, FindsTheUsualForms) {
  for (const char* text :
       {"1,2", "1 2 ", "12.5,7.25L", "-12.50,-7.25 ", "0.5-0.25", "-.5-.5c", "1234.56,1234.56",
        "-0,0", "5.,6.", "10-20", "123.456 -7.1", "1234567,1234567"}) {
    EXPECT_TRUE(isFound<DecimalPair>(text)) << text;
    EXPECT_TRUE(isFound<PlainDecimalPair>(text)) << text;
  }
}

TEST(DecimalPair, FindsNoneInOtherTexts) {
  for (const char* text : {"", "1", "1,", ",1,2", "1,,2", "1--2", "--1,2", "1,--2", ".,1", "1,.",
                           "-,1", "1.2.3,4", "1,2.3.4", "x", "1,x", "+1,2", "-.,1", "1 -"}) {
    EXPECT_FALSE(isFound<DecimalPair>(text)) << text;
    EXPECT_FALSE(isFound<PlainDecimalPair>(text)) << text;
  }
}

TEST(DecimalPair, RandomTexts) {
  std::mt19937 random(17);
  const auto below = [&](unsigned n) { return random() % n; };
  const auto number = [&] {
    std::string text(below(3) == 0 ? 1 : 0, '-');
    for (unsigned n = below(6); n > 0; --n) text += static_cast<char>('0' + below(10));
    if (below(4) != 0) text += '.';
    for (unsigned n = below(6); n > 0; --n) text += static_cast<char>('0' + below(10));
    return text;
  };
  const std::string others = ", -.Lex/:\x7f\x80\xb0\xff";
  int found = 0;
  for (int i = 0; i < 300000; ++i) {
    std::string text = number() + others[below(below(3) == 0 ? 13 : 3)] + number();
    for (unsigned n = below(4); n > 0; --n) text += others[below(13)];
    text += number();
    found += isFound<DecimalPair>(text) ? 1 : 0;
    isFound<PlainDecimalPair>(text);
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(found, 100000);
}

TEST(DecimalPair, EveryShortTextOfAFewBytes) {
  std::vector<std::string> texts = {""};
  for (int length = 0; length < 7; ++length) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      const bool found = isFound<DecimalPair>(text);
      ASSERT_EQ(isFound<PlainDecimalPair>(text), found) << text;
      for (const char byte : std::string("09.-,")) longer.emplace_back(text).push_back(byte);
    }
    texts.swap(longer);
  }
}

}  // namespace
}  // namespace egfsvg
