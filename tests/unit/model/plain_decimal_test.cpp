#include "model/plain_decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace egfsvg {
namespace {

// The end of a number of the usual form, by a walk of its own; 0 for any other form.
std::size_t usualEnd(const std::string& text) {
  std::size_t at = text.starts_with('-') ? 1 : 0;
  std::size_t digits = 0;
  const auto pass = [&] {
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) ++digits;
  };
  pass();
  if (at < text.size() && text[at] == '.') {
    ++at;
    pass();
  }
  const bool hasExponent = at < text.size() && (text[at] == 'e' || text[at] == 'E');
  return digits == 0 || hasExponent ? 0 : at;
}

// The text stands in a block of its own size, so that a sanitizer sees a read beyond it.
void expectLikeTheCLibrary(const std::string& text) {
  const std::vector<char> block(text.begin(), text.end());
  const char* const first = block.data();
  double value = 0.0;
  const char* const end = plainDecimal(first, first + block.size(), &value);
  const std::size_t wantedEnd = usualEnd(text);
  if (end == nullptr) {
    // Many digits may go the long way.
    EXPECT_TRUE(wantedEnd == 0 || wantedEnd > 15) << text;
    return;
  }
  ASSERT_EQ(static_cast<std::size_t>(end - first), wantedEnd) << text;
  const double wanted = std::strtod(text.substr(0, wantedEnd).c_str(), nullptr);
  ASSERT_EQ(value, wanted) << text;
  ASSERT_EQ(std::signbit(value), std::signbit(wanted)) << text;
}

TEST(PlainDecimal, EveryShortTextOfAFewBytes) {
  const std::string bytes = "09.-eE ";
  std::vector<std::string> texts = {""};
  for (int length = 0; length < 5; ++length) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      expectLikeTheCLibrary(text);
      for (const char byte : bytes) longer.emplace_back(text).push_back(byte);
    }
    texts.swap(longer);
  }
}

TEST(PlainDecimal, RandomTextsAroundAWord) {
  std::mt19937 random(20261121);
  const auto below = [&](unsigned n) { return random() % n; };
  const char others[] = {' ', ',',  '-',    'e',    'z',    '/',   ':',
                         '.', '\0', '\x7f', '\x80', '\xb0', '\xff'};
  for (int i = 0; i < 300000; ++i) {
    std::string text(below(4) == 0 ? 1 : 0, '-');
    for (unsigned n = below(9); n > 0; --n) text += static_cast<char>('0' + below(10));
    if (below(4) != 0) text += '.';
    for (unsigned n = below(9); n > 0; --n) text += static_cast<char>('0' + below(10));
    for (unsigned n = below(4); n > 0; --n) text += others[below(sizeof others)];
    expectLikeTheCLibrary(text);
  }
}

TEST(PlainDecimal, AShortNumberLeavesAnExponentToItsCaller) {
  const std::string text = "1.5e3";
  double value = 0.0;
  const char* const end = shortDecimal(text.data(), text.data() + text.size(), &value);
  ASSERT_NE(end, nullptr);
  EXPECT_EQ(end - text.data(), 3);
  EXPECT_EQ(value, 1.5);
}

}  // namespace
}  // namespace egfsvg
