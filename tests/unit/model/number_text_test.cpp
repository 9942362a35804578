// Numbers as text against the C library's own printf.
//
// EGFSVG_NUMBER_TEXTS=N in the environment sets how many numbers are compared in each format:
//   EGFSVG_NUMBER_TEXTS=10000000 unit_tests --gtest_filter='NumberText.*'

#include "model/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace egfsvg {
namespace {

constexpr int kUsualCount = 200'000;

int wantedCount() {
  const char* count = std::getenv("EGFSVG_NUMBER_TEXTS");
  return count == nullptr ? kUsualCount : std::atoi(count);
}

/// What both sides wrote of one value.
class Texts {
 public:
  template <class Value>
  void printf(const char* format, Value value) {
    printedLength_ =
        static_cast<std::size_t>(std::snprintf(printed_, sizeof printed_, format, value));
  }
  void printf(int decimals, double value) {
    printedLength_ =
        static_cast<std::size_t>(std::snprintf(printed_, sizeof printed_, "%.*f", decimals, value));
  }
  char* ours() { return ours_; }
  void expectSame(const char* end) const {
    const std::string_view ours(ours_, static_cast<std::size_t>(end - ours_));
    const std::string_view printed(printed_, printedLength_);
    ASSERT_EQ(ours, printed);
  }

 private:
  char ours_[kNumberTextSize];
  char printed_[512];
  std::size_t printedLength_ = 0;
};

template <int kDecimals>
void expectFixed(double value, Texts& texts) {
  texts.printf(kDecimals, value);
  texts.expectSame(fixedText<kDecimals>(texts.ours(), value));
}

void expectDouble(double value, Texts& texts) {
  expectFixed<1>(value, texts);
  expectFixed<2>(value, texts);
  expectFixed<3>(value, texts);
  expectFixed<4>(value, texts);
  expectFixed<5>(value, texts);
  expectFixed<6>(value, texts);
  texts.printf("%e", value);
  texts.expectSame(exponentText(texts.ours(), value));
}

void expectInteger(std::uint64_t bits, Texts& texts) {
  const auto number = static_cast<std::int32_t>(bits);
  texts.printf("%ld", static_cast<long>(number));
  texts.expectSame(integerText(texts.ours(), number));
  texts.printf("%ld", static_cast<long>(bits));
  texts.expectSame(integerText(texts.ours(), static_cast<std::int64_t>(bits)));
}

/// printf's blanks are our zeros.
void expectColour(std::uint32_t word, Texts& texts) {
  texts.printf("%06x", word);
  texts.expectSame(colourText(texts.ours(), word));
}

TEST(NumberText, SpecialNumbers) {
  using Limits = std::numeric_limits<double>;
  Texts texts;
  for (double value : {0.0,
                       0.125,
                       0.375,
                       0.5,
                       1.5,
                       2.5,
                       0.005,
                       1e-7,
                       4.9e-324,
                       Limits::min(),
                       Limits::max(),
                       Limits::infinity(),
                       0.00048828125,
                       std::nextafter(0.00048828125, 0.0),
                       2147483647.9999998,
                       2147483648.0,
                       2147483647.995,
                       9999.9999999,
                       99999.9999999,
                       4503599627370495.5,
                       4503599627370496.0,
                       1e22,
                       1e300,
                       9999999.9999995,
                       0.9999995,
                       999.995,
                       0.0000005,
                       18014398509481.984}) {
    expectDouble(value, texts);
    expectDouble(-value, texts);
  }
  for (double value : {0.125, -0.001}) {
    const char* const expected = value > 0 ? "0.12" : "-0.00";
    EXPECT_EQ(std::string(texts.ours(), fixedText<2>(texts.ours(), value)), expected);
  }
}

TEST(NumberText, SpecialIntegersAndColours) {
  Texts texts;
  for (std::int64_t value : {0L, 7L, -1L, 9999L, 10000L, -10000L, 99999999L, 100000000L,
                             2147483647L, -2147483648L, 4294967296L}) {
    expectInteger(static_cast<std::uint64_t>(value), texts);
  }
  for (std::uint32_t word : {0U, 1U, 0xabcdefU, 0x10U, 0xffffffU, 0x1000000U, 0xff000000U}) {
    expectColour(word, texts);
  }
}

/// A quarter of the numbers each: any bits (huge ones, subnormals, NaN), sizes of pages, space
/// units (full of ties), and hundredths of near ties.
TEST(NumberText, ManyNumbers) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> page(-5000.0, 5000.0);
  std::uniform_int_distribution<int> ticks(-4'000'000, 4'000'000);
  Texts texts;
  for (int count = wantedCount(); count > 0 && !HasFatalFailure(); count -= 4) {
    const std::uint64_t bits = random();
    const auto any = std::bit_cast<double>(bits);
    expectDouble(any, texts);
    expectDouble(page(random), texts);
    expectDouble(static_cast<double>(ticks(random)) / 4096.0, texts);
    expectDouble(static_cast<double>(ticks(random)) / 200.0, texts);
    for (int shift : {0, 16, 32, 48}) {
      expectInteger(bits >> shift, texts);
      expectColour(static_cast<std::uint32_t>(bits >> shift) & 0xffffff, texts);
    }
  }
}

}  // namespace
}  // namespace egfsvg
