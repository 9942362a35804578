// Numbers as text against the C library's own printf.

#include "model/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace egfsvg {
namespace {

std::string fixedOf(double value, int decimals) {
  char text[kNumberTextSize];
  return {text, fixedText(text, value, decimals)};
}
std::string exponentOf(double value) {
  char text[kNumberTextSize];
  return {text, exponentText(text, value)};
}
template <class... Args>
std::string printed(const char* format, Args... args) {
  char text[512];
  const int length = std::snprintf(text, sizeof text, format, args...);
  return {text, static_cast<std::size_t>(length)};
}

void expectAll(double value) {
  for (int decimals = 0; decimals <= 6; ++decimals) {
    ASSERT_EQ(fixedOf(value, decimals), printed("%.*f", decimals, value)) << exponentOf(value);
  }
  ASSERT_EQ(exponentOf(value), printed("%e", value));
}

TEST(NumberText, SpecialNumbers) {
  using Limits = std::numeric_limits<double>;
  for (double value : {0.0,
                       -0.0,
                       0.125,
                       0.375,
                       -0.125,
                       0.5,
                       1.5,
                       2.5,
                       -2.5,
                       0.005,
                       1e-7,
                       4.9e-324,
                       Limits::min(),
                       Limits::max(),
                       -Limits::max(),
                       Limits::infinity(),
                       -Limits::infinity(),
                       4503599627370495.5,
                       4503599627370496.0,
                       1e22,
                       1e300,
                       9999999.9999995,
                       0.9999995,
                       999.995,
                       0.0000005,
                       18014398509481.984}) {
    expectAll(value);
  }
  EXPECT_EQ(fixedOf(0.125, 2), "0.12");
  EXPECT_EQ(fixedOf(-0.001, 2), "-0.00");
}

TEST(NumberText, ManyNumbers) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> page(-5000.0, 5000.0);
  std::uniform_int_distribution<int> ticks(-4'000'000, 4'000'000);
  for (int i = 0; i < 120'000; ++i) {
    expectAll(std::bit_cast<double>(random()));              // any bits
    expectAll(page(random));                                 // page sizes
    expectAll(static_cast<double>(ticks(random)) / 4096.0);  // space units, full of ties
    expectAll(static_cast<double>(ticks(random)) / 200.0);   // near ties of two decimals
  }
}

TEST(NumberText, IntegersAndColours) {
  for (long value : {0L, 7L, -1L, 2147483647L, -2147483648L}) {
    char text[kNumberTextSize];
    EXPECT_EQ(std::string(text, integerText(text, value)), printed("%ld", value));
  }
  for (unsigned word : {0U, 1U, 0xabcdefU, 0x10U, 0xffffffU, 0xff000000U}) {
    char text[kNumberTextSize];
    EXPECT_EQ(std::string(text, colourText(text, word)), printed("%06x", word));
  }
}

}  // namespace
}  // namespace egfsvg
