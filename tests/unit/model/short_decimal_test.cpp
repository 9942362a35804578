#include "model/short_decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "model/numbers.h"

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

// The bytes of a short decimal by a walk of its own; 0 where there is none within seven bytes
// behind a sign, or where what follows is not seen.
std::size_t shortEnd(const std::string& text) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  std::size_t at = sign;
  std::size_t digits = 0;
  for (bool point = false; at < text.size(); ++at) {
    const bool isDigit = text[at] >= '0' && text[at] <= '9';
    if (!isDigit && (text[at] != '.' || point)) break;
    point = point || !isDigit;
    digits += isDigit ? 1 : 0;
  }
  return digits == 0 || at - sign > 7 ? 0 : at;
}

template <class Number>
void expectShort(const std::string& text) {
  // The bytes behind are such as must not be taken for the number's.
  std::vector<char> block(text.begin(), text.end());
  block.push_back('\0');
  block.insert(block.end(), 8, '7');
  const Number number = Number::scan(block.data());
  const std::size_t wantedEnd = shortEnd(text);
  ASSERT_EQ(number.end() == nullptr, wantedEnd == 0) << text;
  if (wantedEnd == 0) return;
  ASSERT_EQ(static_cast<std::size_t>(number.end() - block.data()), wantedEnd) << text;
  const double wanted = std::strtod(text.substr(0, wantedEnd).c_str(), nullptr);
  ASSERT_EQ(number.value(), wanted) << text;
  ASSERT_EQ(std::signbit(number.value()), std::signbit(wanted)) << text;
  double first = 0.0;
  double second = 0.0;
  const std::string other = "-70.25";
  block.insert(block.end(), other.begin(), other.end());
  block.insert(block.end(), 9, '\0');
  const Number again = Number::scan(block.data());
  const Number behind = Number::scan(block.data() + block.size() - 9 - other.size());
  Number::values(again, behind, first, second);
  ASSERT_EQ(first, wanted) << text;
  ASSERT_EQ(std::signbit(first), std::signbit(wanted)) << text;
  ASSERT_EQ(second, -70.25) << text;
  Number::values(behind, again, first, second);
  ASSERT_EQ(first, -70.25) << text;
  ASSERT_EQ(second, wanted) << text;
}

TEST(ShortDecimal, EveryShortTextOfAFewBytes) {
  std::vector<std::string> texts = {""};
  for (int length = 0; length < 6; ++length) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      expectShort<ShortDecimal>(text);
      expectShort<PlainShortDecimal>(text);
      for (const char byte : std::string("09.-e ")) longer.emplace_back(text).push_back(byte);
    }
    texts.swap(longer);
  }
}

TEST(ShortDecimal, RandomTextsAroundAWord) {
  std::mt19937 random(7);
  const auto below = [&](unsigned n) { return random() % n; };
  const char others[] = {' ', ',', '-', 'e', '/', ':', '.', '\x7f', '\x80', '\xb0', '\xff'};
  for (int i = 0; i < 300000; ++i) {
    std::string text(below(3) == 0 ? 1 : 0, '-');
    for (unsigned n = below(8); n > 0; --n) text += static_cast<char>('0' + below(10));
    if (below(4) != 0) text += '.';
    for (unsigned n = below(8); n > 0; --n) text += static_cast<char>('0' + below(10));
    for (unsigned n = below(4); n > 0; --n) text += others[below(sizeof others)];
    expectShort<ShortDecimal>(text);
    expectShort<PlainShortDecimal>(text);
  }
}

}  // namespace
}  // namespace egfsvg
