#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "adapter_reader/owners.h"
#include "geometry/arc_curves.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr float kTen = 40960.0F;  // ten pixels
constexpr float kTwenty = 81920.0F;
constexpr double kHalfPi = 1.57079632679489661923;

using Arc = RmmOwner<_mpl_spacept_tag>;

struct ArcRow {
  const char* name;
  float rx, ry;
  int start, end;  // degrees
  unsigned int count;
  PointPair first, last;
};

void expectEnds(const Arc& arc, unsigned int count, const ArcRow& row) {
  SCOPED_TRACE(row.name);
  ASSERT_EQ(count, row.count);
  EXPECT_NEAR(arc.get()[0].x, row.first.first, 1.0);
  EXPECT_NEAR(arc.get()[0].y, row.first.second, 1.0);
  EXPECT_NEAR(arc.get()[count - 1].x, row.last.first, 1.0);
  EXPECT_NEAR(arc.get()[count - 1].y, row.last.second, 1.0);
}

TEST(PolarArcs, CirclesAreCutByTheirSize) {
  constexpr ArcRow kRows[] = {
      {"quarter", kTen, kTen, 0, 90, 4, {kTen, 0}, {0, -kTen}},
      {"half", kTen, kTen, 0, 180, 8, {kTen, 0}, {-kTen, 0}},
      {"whole", kTen, kTen, 45, 45, 15, {28963.1F, -28963.1F}, {28963.1F, -28963.1F}},
      {"turn and a half", kTen, kTen, 0, 540, 8, {kTen, 0}, {-kTen, 0}},
      {"backwards", kTen, kTen, 90, 0, 11, {0, -kTen}, {kTen, 0}},  // 270 degrees: 10.5 segments
      {"point", 0, 0, 0, 90, 2, {0, 0}, {0, 0}},
      {"tiny", 41, 41, 0, 360, 2, {41, 0}, {41, 0}},  // 6.28 / sqrt(4 / 0.02) = 0.44
  };
  AdapterPage page;
  for (const ArcRow& row : kRows) {
    _mpl_spacept_tag center{0, 0};
    unsigned int count = 0;
    const Arc arc(page->svg_eel_discretizeArc(&center, row.rx, row.ry, row.start * kMillionths,
                                              row.end * kMillionths, &count));
    expectEnds(arc, count, row);
  }
}

TEST(PolarArcs, EllipsesGoInSteps) {
  constexpr ArcRow kRows[] = {
      // Two degrees a step: 90 steps of a half turn, both ends and the end once more.
      {"right half", kTwenty, kTen, 270, 90, 92, {0, kTen}, {0, -kTen}},
      {"whole", kTwenty, kTen, 30, 390, 182, {kTwenty, 0}, {kTwenty, 0}},
      // 360 / (22 * 3.1415927) * 0.017453292 / 2 = 0.045455 a step: 34.6 steps
      {"flat", kTwenty, 0, 0, 90, 36, {0, 0}, {0, 0}},
  };
  AdapterPage page;
  for (const ArcRow& row : kRows) {
    _mpl_spacept_tag center{0, 0};
    unsigned int count = 0;
    const Arc arc(page->svg_eel_discretizeArc(&center, row.rx, row.ry, row.start * kMillionths,
                                              row.end * kMillionths, &count));
    ASSERT_GE(count + 1, row.count);
    ASSERT_LE(count, row.count);
    ArcRow near = row;
    near.count = count;
    expectEnds(arc, count, near);
  }
}

TEST(PolarArcs, TheRightHalfOfAnEllipse) {
  AdapterPage page;
  _mpl_spacept_tag center{100.5F, 0};
  unsigned int count = 0;
  const Arc arc(page->svg_eel_discretizeArc(&center, kTwenty, kTen, 270 * kMillionths,
                                            90 * kMillionths, &count));
  EXPECT_EQ(count, 92U);
  for (unsigned int i = 0; i < count; ++i) {
    const double x = static_cast<double>(arc.get()[i].x) - 100.5;
    const double y = arc.get()[i].y;
    EXPECT_GE(x, 0.0) << i;
    EXPECT_EQ(x, std::trunc(x)) << i;  // whole space units off the centre
    EXPECT_EQ(y, std::trunc(y)) << i;
    EXPECT_NEAR(x * x / (kTwenty * kTwenty) + y * y / (kTen * kTen), 1.0, 1e-3) << i;
  }
}

TEST(TurnedArcs, Vectors) {
  struct Row {
    ArcRow arc;
    double rotation;
  };
  constexpr Row kRows[] = {
      {{"quarter", kTen, kTen, 0, 90, 61, {kTen, 0}, {0, -kTen}}, 0.0},
      {{"half", kTen, kTen, 0, 180, 121, {kTen, 0}, {-kTen, 0}}, 0.0},
      {{"full", kTen, kTen, 0, 360, 241, {kTen, 0}, {kTen, 0}}, 0.0},
      {{"start is end", kTen, kTen, 10, 10, 241, {40337.7F, -7112.6F}, {40337.7F, -7112.6F}}, 0.0},
      {{"turned", kTwenty, kTen, 0, 90, 61, {0, kTwenty}, {kTen, 0}}, kHalfPi},
      {{"upright line", 0, kTen, 0, 90, 61, {0, 0}, {0, -kTen}}, 0.0},
      {{"one degree", kTen, kTen, 0, 1, 2, {kTen, 0}, {40953.8F, -714.9F}}, 0.0},
  };
  AdapterPage page;
  for (const Row& row : kRows) {
    _mpl_spacept_tag center{0, 0};
    unsigned int count = 0;
    const Arc arc(page->svg_discretizeArc(&center, row.arc.rx, row.arc.ry, row.rotation,
                                          row.arc.start * kMillionths, row.arc.end * kMillionths,
                                          &count));
    expectEnds(arc, count, row.arc);
  }
}

// The size of an ellipse counts by its x radius alone, once that asks for more than the angle does.
TEST(TurnedArcs, TheXRadiusGivesTheSegments) {
  AdapterPage page;
  _mpl_spacept_tag center{0, 0};
  unsigned int count = 0;
  // 2 pi / sqrt(4 / 20000) = 444.3 segments of a circle of 10000 pixels
  Arc arc(page->svg_discretizeArc(&center, 10000 * 4096.0F, kTen, 0.0, 0, 0, &count));
  EXPECT_EQ(count, 445U);
  arc.reset(page->svg_discretizeArc(&center, kTen, 10000 * 4096.0F, 0.0, 0, 0, &count));
  EXPECT_EQ(count, 241U);
}

TEST(Arcs, NumbersWithoutEndGiveTheMostSegments) {
  AdapterPage page;
  _mpl_spacept_tag center{0, 0};
  const float endless = std::numeric_limits<float>::infinity();
  unsigned int count = 0;
  Arc arc(page->svg_discretizeArc(&center, endless, endless, 0.0, 0, 0, &count));
  EXPECT_EQ(count, 32768U);
  arc.reset(page->svg_eel_discretizeArc(&center, endless, endless, 0, 0, &count));
  EXPECT_EQ(count, 32768U);
  arc.reset(page->svg_eel_discretizeArc(&center, -kTen, -kTen, 0, 0, &count));  // a negative size
  EXPECT_EQ(count, 32768U);
  for (const float odd : {endless, std::nanf(""), 1e30F, -1.0F}) {
    arc.reset(page->svg_eel_discretizeArc(&center, odd, kTen, 0, 0, &count));
    EXPECT_LE(count, 32770U) << odd;
    arc.reset(page->svg_eel_discretizeArc(&center, odd, kTen, std::numeric_limits<int>::min(),
                                          std::numeric_limits<int>::max(), &count));
    EXPECT_LE(count, 32770U) << odd;
    arc.reset(page->svg_eel_discretizeArc(&center, odd, kTen, std::numeric_limits<int>::max(),
                                          std::numeric_limits<int>::min(), &count));
    EXPECT_LE(count, 32770U) << odd;
  }
}

TEST(Arcs, ARoundedOutlineIsFourArcs) {
  AdapterPage page;
  _mpl_spacept_tag corners[4] = {
      {0, 0}, {0, 50 * 4096.0F}, {100 * 4096.0F, 50 * 4096.0F}, {100 * 4096.0F, 0}};
  unsigned int count = 0;
  const Arc outline(page->svg_discretizeRect(corners, 40960, 40960, &count));
  ASSERT_EQ(count, 16U);
  // Each arc has four points: from one side to the next, in pixels.
  constexpr PointPair kEnds[] = {{10, 0},  {0, 10},   {0, 40},   {10, 50},
                                 {90, 50}, {100, 40}, {100, 10}, {90, 0}};
  for (int i = 0; i < 8; ++i) {
    const _mpl_spacept_tag point = outline.get()[i / 2 * 4 + i % 2 * 3];
    EXPECT_NEAR(point.x / 4096.0, kEnds[i].first, 1e-3) << i;
    EXPECT_NEAR(point.y / 4096.0, kEnds[i].second, 1e-3) << i;
  }
}

TEST(Arcs, FailuresLeaveNothing) {
  AdapterPage page;
  _mpl_spacept_tag corners[4] = {{0, 0}, {0, kTen}, {kTen, kTen}, {kTen, 0}};
  for (std::uint64_t failing = 1; failing <= 5; ++failing) {
    unsigned int count = 7;
    egfhost::failAllocation(failing);
    EXPECT_EQ(page->svg_discretizeRect(corners, 4096, 4096, &count), nullptr) << failing;
    EXPECT_EQ(count, 0U);
    egfhost::clearFaults();
  }
  unsigned int count = 7;
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  EXPECT_EQ(page->svg_discretizeArc(&corners[0], kTen, kTen, 0.0, 0, 0, &count), nullptr);
  EXPECT_EQ(page->svg_eel_discretizeArc(&corners[0], kTen, kTwenty, 0, 0, &count), nullptr);
  egfhost::clearFaults();
}

struct CurveRow {
  const char* name;
  float rx, ry;
  double start, end;
  int reverse;
  PointPair points[3];      // behind the first, bare
  PointPair truePoints[3];  // with the close fit
};

constexpr CurveRow kCurveRows[] = {
    {"quarter",
     kTen,
     kTen,
     0,
     90,
     0,
     {{40960, -16966.19F}, {16966.19F, -40960}, {0, -40960}},
     {{40960, -22621.58F}, {22621.58F, -40960}, {0, -40960}}},
    {"reversed",
     kTen,
     kTen,
     0,
     90,
     1,
     {{16966.19F, -40960}, {40960, -16966.19F}, {40960, 0}},
     {{22621.58F, -40960}, {40960, -22621.58F}, {40960, 0}}},
    {"ellipse",
     kTwenty,
     kTen,
     0,
     90,
     0,
     {{81920, -16966.19F}, {33932.38F, -40960}, {0, -40960}},
     {{81920, -22621.58F}, {45243.17F, -40960}, {0, -40960}}},
    {"no width",
     0,
     kTen,
     0,
     90,
     0,
     {{0, -16966.19F}, {0, -40960}, {0, -40960}},
     {{0, -22621.58F}, {0, -40960}, {0, -40960}}},
    {"no sweep",
     kTen,
     kTen,
     90,
     90,
     0,
     {{0, -40960}, {0, -40960}, {0, -40960}},
     {{0, -40960}, {0, -40960}, {0, -40960}}},
};

TEST(ArcCurves, Points) {
  AdapterPage page;
  for (const std::uint32_t trueCurves : {0U, 1U}) {
    egfhost::setSetting("trueCurves", trueCurves);
    for (const CurveRow& row : kCurveRows) {
      SCOPED_TRACE(row.name);
      _mpl_spacept_tag* points = nullptr;
      int count = 0;
      EXPECT_EQ(page->ArcToBezierCurve(0.0, {0, 0}, row.start, row.end, row.rx, row.ry, row.reverse,
                                       0, points, &count),
                0);
      const Arc curve(points);
      ASSERT_EQ(count, 4);
      EXPECT_EQ(pairOf(points[0]), PointPair(0.0F, 0.0F));  // the caller's
      const auto& expected = trueCurves != 0 ? row.truePoints : row.points;
      for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(points[i + 1].x, expected[i].first, 0.01) << i;
        EXPECT_NEAR(points[i + 1].y, expected[i].second, 0.01) << i;
      }
    }
  }
}

TEST(ArcCurves, SegmentsBySweep) {
  struct Row {
    double degrees;
    int large;
    int count;
  };
  constexpr Row kRows[] = {{90, 0, 4},   {91, 0, 13},  {180, 0, 13}, {270, 0, 19},
                           {300, 0, 49}, {360, 0, 49}, {90, 1, 19},  {200, 1, 19}};
  AdapterPage page;
  for (const Row& row : kRows) {
    for (const double sign : {1.0, -1.0}) {
      _mpl_spacept_tag* points = nullptr;
      int count = 0;
      page->ArcToBezierCurve(0.0, {0, 0}, 0.0, sign * row.degrees, kTen, kTen, 0, row.large, points,
                             &count);
      const Arc curve(points);
      EXPECT_EQ(count, row.count) << row.degrees;
    }
  }
}

// Every end of a segment lies on the ellipse, turned and moved.
TEST(ArcCurves, EndsLieOnTheTurnedEllipse) {
  AdapterPage page;
  _mpl_spacept_tag* points = nullptr;
  int count = 0;
  page->ArcToBezierCurve(kHalfPi, {1000, 2000}, 30.0, 330.0, kTwenty, kTen, 0, 0, points, &count);
  const Arc curve(points);
  ASSERT_EQ(count, 49);
  for (int i = 3; i < count; i += 3) {
    const double x = points[i].x - 1000.0;
    const double y = points[i].y - 2000.0;
    EXPECT_NEAR(x * x / (kTen * kTen) + y * y / (kTwenty * kTwenty), 1.0, 1e-5) << i;
  }
  // 330 degrees: (20 cos, -10 sin) = (17.320508, 5), a quarter turn about: (-5, 17.320508)
  EXPECT_NEAR(points[48].x, 1000.0 - 5 * 4096, 0.1);
  EXPECT_NEAR(points[48].y, 2000.0 + 17.320508 * 4096, 0.1);
}

TEST(ArcCurves, FailureGivesNoPoints) {
  AdapterPage page;
  _mpl_spacept_tag* points = nullptr;
  int count = 5;
  egfhost::failAllocation(1);
  EXPECT_EQ(page->ArcToBezierCurve(0.0, {0, 0}, 0, 90, kTen, kTen, 0, 0, points, &count), -1);
  EXPECT_EQ(points, nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(egfhost::countMessages(kMessageOutOfMemory), 1U);
}

}  // namespace
}  // namespace egfsvg::test
