#include "model/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace egfsvg {
namespace {

struct DecimalRow {
  const char* text;
  double value;
  int used;  // bytes of the number, white space before it included
};

TEST(Numbers, DecimalPrefix) {
  const DecimalRow rows[] = {
      {"", 0, 0},
      {"5", 5, 1},
      {"+5", 5, 2},
      {"-3", -3, 2},
      {".5", 0.5, 2},
      {"5.", 5, 2},
      {".", 0, 0},
      {"-", 0, 0},
      {"+.", 0, 0},
      {"--5", 0, 0},
      {"e5", 0, 0},
      {"1e2", 100, 3},
      {"1E2", 100, 3},
      {"1e+2", 100, 4},
      {"1e-2", 0.01, 4},
      {"2e", 2, 1},
      {"2em", 2, 1},
      {"2e-", 2, 1},
      {"2e+x", 2, 1},
      {"1e2.5", 100, 3},
      {"1.2.3", 1.2, 3},
      {"1,5", 1, 1},
      {"1-2", 1, 1},
      {"0x10", 0, 1},
      {"inf", 0, 0},
      {"nan", 0, 0},
      {"INFINITY", 0, 0},
      {"1d5", 1, 1},
      {" \t\r\n7 ", 7, 5},
      {"\f7", 0, 0},
      {"007", 7, 3},
      {"0.1", 0.1, 3},
      {"0.30000000000000004", 0.30000000000000004, 19},
      {"123456789012345678901234567890", 123456789012345678901234567890.0, 30},
      {"9007199254740993", 9007199254740992.0, 16},
      {"1e22", 1e22, 4},
      {"1e23", 1e23, 4},
      {"2.2250738585072014e-308", 2.2250738585072014e-308, 23},
      {"4.9e-324", 5e-324, 8},
      {"1.7976931348623157e308", 1.7976931348623157e308, 22},
      {"00000000000000000000000000000000000000001.5", 1.5, 43},
      {"0.000000000000000000000000000000000000000015", 1.5e-41, 44},
      {"1e999", HUGE_VAL, 5},
      {"-1e999", -HUGE_VAL, 6},
      {"1e-999", 0, 6},
      {"1e99999999999999999999", HUGE_VAL, 22},
      {"1e-99999999999999999999", 0, 23},
      {"0e999", 0, 5},
      {"0.0e99999999999999999999", 0, 24},
  };
  for (const DecimalRow& row : rows) {
    const char* end = nullptr;
    EXPECT_EQ(decimalPrefix(row.text, row.text + std::strlen(row.text), &end), row.value)
        << row.text;
    EXPECT_EQ(end - row.text, row.used) << row.text;
    EXPECT_EQ(decimalPrefix(row.text), row.value) << row.text;
  }
  EXPECT_EQ(decimalPrefix(nullptr), 0.0);
}

TEST(Numbers, DecimalPrefixStopsAtItsEnd) {
  const char text[] = "12345e2";
  for (std::ptrdiff_t length = 0; length <= 5; ++length) {
    const char* end = nullptr;
    const double expected[] = {0, 1, 12, 123, 1234, 12345};
    EXPECT_EQ(decimalPrefix(text, text + length, &end), expected[length]);
    EXPECT_EQ(end, text + length);
  }
  EXPECT_EQ(decimalPrefix(text, text + 6), 12345);
  EXPECT_EQ(decimalPrefix(text, text + 7), 1234500);
}

TEST(Numbers, ManyDigitsOutOfRangeWithoutAnExponent) {
  EXPECT_EQ(decimalPrefix(std::string(400, '1').c_str()), HUGE_VAL);
  EXPECT_EQ(decimalPrefix(("." + std::string(400, '0') + "1").c_str()), 0.0);
  EXPECT_EQ(decimalPrefix((std::string(400, '1') + "e-400").c_str()), 0.1111111111111111);
  EXPECT_EQ(decimalPrefix((std::string(400, '0') + "1").c_str()), 1.0);
}

TEST(Numbers, ZeroKeepsItsSign) {
  EXPECT_TRUE(std::signbit(decimalPrefix("-0")));
  EXPECT_FALSE(std::signbit(decimalPrefix("0")));
}

// Whatever the short way does, it must agree with the C library's conversion.
TEST(Numbers, RandomTextsAgreeWithTheCLibrary) {
  std::mt19937 random(20240607);
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  const auto digits = [&](std::string* text, unsigned most) {
    for (int n = below(most); n > 0; --n) text->push_back(static_cast<char>('0' + below(10)));
  };
  for (int i = 0; i < 200000; ++i) {
    std::string text(std::string("+-").substr(static_cast<std::size_t>(below(2)), below(3) == 0));
    digits(&text, 24);
    if (below(2) != 0) text += '.', digits(&text, 24);
    if (below(3) == 0) text += below(2) != 0 ? "e" : "E-", digits(&text, 4);
    text += "; %-"[below(4)];
    char* wantedEnd = nullptr;
    const double wanted = std::strtod(text.c_str(), &wantedEnd);
    const char* end = nullptr;
    ASSERT_EQ(decimalPrefix(text.data(), text.data() + text.size(), &end), wanted) << text;
    ASSERT_EQ(end, wantedEnd) << text;
  }
}

TEST(Numbers, SaturatingInteger) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  const struct {
    const char* text;
    std::int32_t value;
    int used;
  } rows[] = {{"", 0, 0},
              {"12x", 12, 2},
              {"-12", -12, 3},
              {" +7.9", 7, 3},
              {"x1", 0, 0},
              {"-", 0, 0},
              {"2147483647", kMost, 10},
              {"2147483648", kMost, 10},
              {"-2147483648", kLeast, 11},
              {"-2147483649", kLeast, 11},
              {"99999999999999999999999", kMost, 23},
              {"-99999999999999999999999", kLeast, 24},
              {"0x1F", 0, 1},
              {"1e3", 1, 1}};
  for (const auto& row : rows) {
    const char* end = nullptr;
    EXPECT_EQ(saturatingInteger(row.text, row.text + std::strlen(row.text), &end), row.value)
        << row.text;
    EXPECT_EQ(end - row.text, row.used) << row.text;
    EXPECT_EQ(saturatingInteger(row.text), row.value);
  }
  EXPECT_EQ(saturatingInteger(nullptr), 0);
}

TEST(Numbers, Truncated) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(truncated<std::int32_t>(2.99), 2);
  EXPECT_EQ(truncated<std::int32_t>(-2.99), -2);
  EXPECT_EQ(truncated<std::int32_t>(2147483646.9), 2147483646);
  EXPECT_EQ(truncated<std::int32_t>(2147483647.9), 2147483647);
  EXPECT_EQ(truncated<std::int32_t>(2147483648.0), 2147483647);
  EXPECT_EQ(truncated<std::int32_t>(-2147483648.9), -2147483647 - 1);
  EXPECT_EQ(truncated<std::int32_t>(infinity), 2147483647);
  EXPECT_EQ(truncated<std::int32_t>(-infinity), -2147483647 - 1);
  EXPECT_EQ(truncated<std::int32_t>(std::nan("")), 0);
  EXPECT_EQ(truncated<std::uint8_t>(255.9), 255);
  EXPECT_EQ(truncated<std::uint8_t>(256.0), 255);
  EXPECT_EQ(truncated<std::uint8_t>(-0.5), 0);
  EXPECT_EQ(truncated<std::uint8_t>(-7.0), 0);
  EXPECT_EQ(truncated<std::int64_t>(9.3e18), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(truncated<std::uint32_t>(4294967295.5), 4294967295U);
  EXPECT_EQ(truncated<std::int32_t>(100 * 2.55), 254);
  EXPECT_EQ(truncated<std::int32_t>(20 * 2.55), 51);
}

TEST(Numbers, ShownIntegers) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(shownInteger(-2.99), -2);
  EXPECT_EQ(shownInteger(infinity), 2147483647);
  EXPECT_EQ(shownInteger(-infinity), -2147483647 - 1);
  EXPECT_EQ(shownInteger(std::nan("")), -2147483647 - 1);
  EXPECT_EQ(shownInteger(-std::nan("")), -2147483647 - 1);
}

TEST(Numbers, Rounded) {
  EXPECT_EQ(rounded<std::int32_t>(2.5), 3);
  EXPECT_EQ(rounded<std::int32_t>(-2.5), -3);
  EXPECT_EQ(rounded<std::int32_t>(2.49), 2);
  EXPECT_EQ(rounded<std::int32_t>(1e300), 2147483647);
  EXPECT_EQ(rounded<std::int32_t>(std::nan("")), 0);
}

}  // namespace
}  // namespace egfsvg
