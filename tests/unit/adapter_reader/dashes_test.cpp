#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

std::vector<_svg_value> lengths(const std::vector<double>& numbers,
                                std::int32_t unit = kUnitPixel) {
  std::vector<_svg_value> values;
  for (const double number : numbers) values.push_back({unit, number, 0});
  return values;
}

std::uint32_t styleOf(AdapterPage& page, std::vector<_svg_value> dashes) {
  return page->castLineStyle(pixels(0.0), dashes.data(), static_cast<int>(dashes.size()));
}

const _egf_dash_record* recordOf(AdapterPage& page, std::uint32_t number) {
  return EGF_GetDashRecordByStyle(page.pageHeader()->firstDash.offset, number);
}

std::vector<double> segmentsOf(const _egf_dash_record* record) {
  std::vector<double> segments;
  for (int i = 0; i < record->segmentCount; ++i) segments.push_back(record->segments[i]);
  return segments;
}

void expectNear(const std::vector<double>& got, const std::vector<double>& expected) {
  ASSERT_EQ(got.size(), expected.size());
  for (std::size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], expected[i], 1e-7) << i;
}

TEST(Dashes, PatternsBecomeRecords) {
  struct Row {
    double dotsPerInch;
    std::vector<_svg_value> dashes;
    std::vector<double> segments;
  };
  const Row kRows[] = {
      {96.0, lengths({5, 3, 2}), {5, -3, 2, -5, 3, -2}},
      {96.0, lengths({5, 3}), {5, -3}},
      {96.0, lengths({4}), {4, -4}},
      {96.0, lengths({5, 3}, kUnitMillimetre), {18.8976378, -11.3385827}},
      {192.0, lengths({5, 3}), {10, -6}},
      {96.0, lengths({5, 0}), {5, 0}},
      {96.0, lengths({1, 1}, kUnitEm), {0, 0}},
  };
  for (const Row& row : kRows) {
    AdapterPage page(row.dotsPerInch);
    const std::uint32_t number = styleOf(page, row.dashes);
    ASSERT_NE(number, 0U);
    const _egf_dash_record* record = recordOf(page, number);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(+record->unit, 0U);
    expectNear(segmentsOf(record), row.segments);
  }
}

TEST(Dashes, AGapOfNothingIsNoNegativeZero) {
  AdapterPage page;
  const std::vector<double> segments = segmentsOf(recordOf(page, styleOf(page, lengths({5, 0}))));
  EXPECT_FALSE(std::signbit(segments[1]));
}

TEST(Dashes, EqualPatternsShareOneRecord) {
  AdapterPage page;
  const std::uint32_t first = styleOf(page, lengths({5, 3}));
  EXPECT_EQ(styleOf(page, lengths({5, 3})), first);
  EXPECT_EQ(styleOf(page, lengths({5.000009, 2.999991})), first);
  EXPECT_EQ(+page->dashCount, 1U);
  EXPECT_EQ(std::string(recordOf(page, first)->name), "SVG Pattern 0");
  EXPECT_FALSE(recordOf(page, first)->next);
  const std::uint32_t second = styleOf(page, lengths({5.00002, 3}));
  EXPECT_NE(second, first);
  EXPECT_NE(styleOf(page, lengths({5, 3, 5, 3})), first);
  EXPECT_EQ(std::string(recordOf(page, second)->name), "SVG Pattern 1");
  EXPECT_EQ(+page->dashNameCounter, 3U);
  EXPECT_EQ(+page->dashCount, 3U);
}

// Neighbours in the index: the pattern is found whatever side of a cell it falls on.
TEST(Dashes, PatternsWithinTheToleranceAreAlwaysFound) {
  AdapterPage page;
  for (int i = 0; i < 2000; ++i) {
    const double length = 1.0 + 0.000777 * i;
    const std::uint32_t first = styleOf(page, lengths({length, 2.0}));
    EXPECT_EQ(styleOf(page, lengths({length + 9e-6, 2.0 - 9e-6})), first) << length;
    EXPECT_EQ(styleOf(page, lengths({length - 9e-6, 2.0 + 9e-6})), first) << length;
  }
  EXPECT_EQ(+page->dashCount, 2000U);
}

TEST(Dashes, TheFirstOfSeveralThatAgreeIsTaken) {
  AdapterPage page;
  const std::uint32_t first = styleOf(page, lengths({5.0, 3.0}));
  const std::uint32_t second = styleOf(page, lengths({5.000015, 3.0}));
  EXPECT_NE(first, second);
  EXPECT_EQ(styleOf(page, lengths({5.0000075, 3.0})), first);
}

TEST(Dashes, NoDashesAreSolid) {
  AdapterPage page;
  EXPECT_EQ(page->castLineStyle(pixels(1.0), nullptr, 0), 0U);
  EXPECT_EQ(page->castLineStyle(pixels(1.0), nullptr, 3), 0U);
  std::vector<_svg_value> dashes = lengths({1, 2});
  EXPECT_EQ(page->castLineStyle(pixels(1.0), dashes.data(), 0), 0U);
  EXPECT_EQ(page->castLineStyle(pixels(1.0), dashes.data(), -1), 0U);
  EXPECT_FALSE(page.pageHeader()->firstDash);
}

TEST(Dashes, LongPatternsAreCutToWhatARecordHolds) {
  AdapterPage page;
  struct Row {
    std::size_t dashes;
    int segments;
  };
  constexpr Row kRows[] = {{19, 38}, {21, 38}, {41, 38}, {40, 40}, {42, 40}, {1000, 40}};
  for (const Row& row : kRows) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < row.dashes; ++i) numbers.push_back(1.0 + static_cast<double>(i));
    const std::vector<double> segments =
        segmentsOf(recordOf(page, styleOf(page, lengths(numbers))));
    ASSERT_EQ(static_cast<int>(segments.size()), row.segments) << row.dashes;
    EXPECT_EQ(segments[1], -2.0);
    EXPECT_EQ(segments[19], row.segments == 38 ? -1.0 : -20.0);
  }
}

TEST(Dashes, NumbersWithoutEndAreKeptFinite) {
  AdapterPage page;
  const double endless = std::numeric_limits<double>::infinity();
  const std::uint32_t number = styleOf(page, lengths({endless, 1}));
  EXPECT_TRUE(std::isfinite(segmentsOf(recordOf(page, number))[0]));
  EXPECT_EQ(styleOf(page, lengths({endless, 1})), number);
  const std::uint32_t nothing = styleOf(page, lengths({endless, 1}, kUnitEm));  // 0 * inf
  EXPECT_EQ(segmentsOf(recordOf(page, nothing))[0], 0.0);
}

// Records that the document held before, in any unit.
TEST(Dashes, TheDocumentsOwnPatternsAreFound) {
  struct Row {
    std::uint32_t unit;
    double length;  // of 72 pixels at 144 pixels per inch, in the unit
  };
  constexpr Row kRows[] = {{0, 72.0},   {1, 0.5},        {2, 1.27}, {3, 12.7},
                           {4, 0.0127}, {5, 0.5 / 12.0}, {6, 36.0}, {7, 720.0}};
  for (const Row& row : kRows) {
    AdapterPage page(144.0, false);
    _egf_dash_record* held = EGF_CreateDashRecord();
    held->segments[0] = row.length;
    held->segments[1] = -row.length;
    held->segmentCount = 2;
    held->unit = row.unit;
    ASSERT_EQ(EGF_AppendDashRecord(page.pageHeader(), held), 0);
    page.open();
    EXPECT_EQ(+page->dashCount, 1U);
    EXPECT_EQ(styleOf(page, lengths({48, 48})), +held->number) << row.unit;
    EXPECT_EQ(+page->dashNameCounter, 0U);
    page.close();
    EXPECT_EQ(page->dashTable, nullptr);
  }
}

TEST(Dashes, ASecondPageStartsWithWhatTheFirstLeft) {
  AdapterPage page;
  const std::uint32_t first = styleOf(page, lengths({5, 3}));
  page.open();
  EXPECT_EQ(+page->dashCount, 1U);
  EXPECT_EQ(+page->dashNameCounter, 0U);
  EXPECT_EQ(styleOf(page, lengths({5, 3})), first);
}

TEST(Dashes, FailuresGiveASolidLine) {
  AdapterPage page;
  for (const char* call : {"EGF_CreateDashRecord", "EGF_AppendDashRecord"}) {
    egfhost::failAt(call, 1);
    EXPECT_EQ(styleOf(page, lengths({5, 3})), 0U) << call;
    egfhost::clearFaults();
  }
  EXPECT_NE(styleOf(page, lengths({5, 3})), 0U);
  page.close();
  EXPECT_EQ(styleOf(page, lengths({5, 3})), 0U);  // no page to hold it
}

}  // namespace
}  // namespace egfsvg::test
