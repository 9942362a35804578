#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "embedded_host/box.h"
#include "embedded_host/host_faults.h"
#include "embedded_host/host_trees.h"
#include "host/egf_bits.h"
#include "host/memory.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct BoxRow {
  const char* name;
  _egf_obj* object;
  double left, top, right, bottom;  // pixels
  double within = 0.0;              // pixels
};

void expectRect(_mpl_spacerect_tag mer, const BoxRow& row) {
  const double scale = 4096.0;
  EXPECT_NEAR(mer.left / scale, row.left, row.within) << row.name;
  EXPECT_NEAR(mer.top / scale, row.top, row.within) << row.name;
  EXPECT_NEAR(mer.right / scale, row.right, row.within) << row.name;
  EXPECT_NEAR(mer.bottom / scale, row.bottom, row.within) << row.name;
}

TEST(ObjectMer, IsTheGeometryOfEachClass) {
  const double half = std::sqrt(0.5);
  const BoxRow rows[] = {
      {"box", box(10, 20, 30, 40), 10, 20, 40, 60},
      {"box of no width", box(10, 20, 0, 40), 10, 20, 10, 60},
      {"box with a thick pen", box(10, 20, 30, 40, {.width = 8}), 10, 20, 40, 60},
      {"polygon of one point", polygon({{3, 4}}), 3, 4, 3, 4},
      {"open polygon", polygon({{3, 4}, {-1, 9}, {5, 5}}, {.closed = false}), -1, 4, 5, 9},
      {"two subpaths", polyPath({{{0, 0}, {1, 1}}, {{8, 9}, {-3, 2}}}), -3, 0, 8, 9},
      {"line across", line({5, 7}, {-5, 7}), -5, 7, 5, 7},
      {"polyline", polyline({{0, 0}, {10, 0}, {10, 10}}), 0, 0, 10, 10},
      {"arrow line without heads", arrowLine({1, 1}, {9, 1}, {}), 1, 1, 9, 1},
      {"arrow line", arrowLine({1, 1}, {9, 1}, {.points = {{8, 3}, {8, -1}, {2, 3}, {2, -1}}}), 1,
       -1, 9, 3},
      {"image", image(1, 2, 3, 4), 1, 2, 3, 4},
      {"crossout", crossout({0, 0}, {10, 5}, {0, 5}, {12, -1}), 0, -1, 12, 5},
      {"cloud", cloud({{0, 0}, {10, 0}, {10, 8}, {0, 8}}), 0, 0, 10, 8},
      {"cloud with its outline", cloud({{0, 0}, {10, 0}, {10, 8}, {0, 8}}, {{-2, 3}, {11, 9}}), -2,
       0, 11, 9},
      {"diamond", diamond({{0, 5}, {5, 0}, {10, 5}, {5, 10}}), 0, 0, 10, 10},
      {"stock object", stockObject(1, {4, 5}, 90), 4, 5, 4, 5},
      {"icon", opaqueObject(kClassIcon, 1, 2, 3, 4), 1, 2, 3, 4},
      {"circle", ellipse(50, 50, 10, 10), 40, 40, 60, 60},
      {"ellipse", ellipse(50, 50, 20, 10), 30, 40, 70, 60},
      {"ellipse turned a quarter", ellipse(50, 50, 20, 10, {}, 90), 40, 30, 60, 70},
      {"ellipse turned back a quarter", ellipse(50, 50, 20, 10, {}, -90), 40, 30, 60, 70},
      // Half extents of a turned ellipse: sqrt(20^2 cos^2 + 10^2 sin^2) and the other way round.
      {"ellipse turned 30 degrees", ellipse(0, 0, 20, 10, {}, 30), -18.02775638, -13.22875656,
       18.02775638, 13.22875656, 1e-4},
      {"circle turned", ellipse(0, 0, 10, 10, {}, 33), -10, -10, 10, 10, 1e-4},
      {"ellipse with negative radii", ellipse(50, 50, -20, -10), 30, 40, 70, 60},
      {"ellipse that ends where it starts", ellipse(0, 0, 2, 1, {}, 0, 45, 45), -2, -1, 2, 1},
      // y falls as the angle grows.
      {"first quarter", ellipse(0, 0, 20, 10, {}, 0, 0, 90), 0, -10, 20, 0},
      {"upper half", ellipse(0, 0, 20, 10, {}, 0, 0, 180), -20, -10, 20, 0},
      {"three quarters", ellipse(0, 0, 20, 10, {}, 0, 90, 360), -20, -10, 20, 10},
      {"across the start", ellipse(0, 0, 10, 10, {}, 0, 315, 45), 10 * half, -10 * half, 10,
       10 * half, 1e-4},
      {"first quarter turned a quarter", ellipse(0, 0, 20, 10, {}, 90, 0, 90), -10, -20, 0, 0},
      {"arc", arc(10, 10, 10, 10, 90, 180), 0, 0, 10, 10},
      {"arc drawn backwards", arc(10, 10, 10, 10, 90, 180, true), 0, 0, 10, 10},
      {"arc of two radii", arc(0, 0, 20, 10, 180, 270), -20, 0, 0, 10},
      {"full arc", arc(0, 0, 20, 10, 0, 360), -20, -10, 20, 10},
      // A quarter circle as a curve reaches its ends; control points lie outside.
      {"curve within its controls", curve({{0, 0}, {0, 8}, {10, 8}, {10, 0}}), 0, 0, 10, 6},
      {"curve that swings out in x", curve({{0, 0}, {12, 0}, {-6, 10}, {6, 10}}), -0.0, 0, 6, 10,
       0.35},
      {"chain of two curves",
       curve({{0, 0}, {0, 8}, {10, 8}, {10, 0}, {10, -8}, {20, -8}, {20, 0}}), 0, -6, 20, 6},
  };
  for (const BoxRow& row : rows) {
    const OwnedObject object(row.object);
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0) << row.name;
    expectRect(mer, row);
  }
}

// The turning points of a cubic, found apart from the code by fine sampling.
TEST(ObjectMer, OfACurveHoldsEveryPointAndNoMore) {
  const Points shapes[] = {
      {{0, 0}, {12, 0}, {-6, 10}, {6, 10}}, {{0, 0}, {30, 40}, {-20, 40}, {10, 0}},
      {{5, 5}, {5, 5}, {5, 5}, {5, 5}},     {{0, 0}, {1, 1}, {2, 2}, {3, 3}},
      {{0, 0}, {0, 10}, {0, 10}, {0, 0}},   {{-3, 7}, {100, -50}, {-100, 50}, {3, -7}},
  };
  for (const Points& p : shapes) {
    double left = kInfinity, right = -kInfinity, top = kInfinity, bottom = -kInfinity;
    constexpr int kSamples = 100000;
    for (int i = 0; i <= kSamples; ++i) {
      const double t = static_cast<double>(i) / kSamples;
      const double u = 1 - t;
      const auto at = [&](double Px::*axis) {
        return u * u * u * p[0].*axis + 3 * u * u * t * p[1].*axis + 3 * u * t * t * p[2].*axis +
               t * t * t * p[3].*axis;
      };
      left = std::min(left, at(&Px::x));
      right = std::max(right, at(&Px::x));
      top = std::min(top, at(&Px::y));
      bottom = std::max(bottom, at(&Px::y));
    }
    const OwnedObject object(curve(p));
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
    expectRect(mer, {"curve", nullptr, left, top, right, bottom, 1e-4});
  }
}

// The same box, one coordinate at a time.
struct PlainBox {
  float left = std::numeric_limits<float>::infinity();
  float right = -std::numeric_limits<float>::infinity();
  float top = left;
  float bottom = right;
  bool finite = true;

  void include(double x, double y) {
    const auto px = static_cast<float>(x);
    const auto py = static_cast<float>(y);
    finite = finite && std::isfinite(px) && std::isfinite(py);
    left = std::min(left, px);
    right = std::max(right, px);
    top = std::min(top, py);
    bottom = std::max(bottom, py);
  }
  bool isUsable() const { return finite && left <= right; }
};

// To the bit, so that the sign of a zero counts.
void expectSameBox(const PlainBox& plain, _mpl_spacerect_tag rect) {
  const float sides[] = {rect.left, rect.right, rect.top, rect.bottom};
  const float expected[] = {plain.left, plain.right, plain.top, plain.bottom};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(expected[i]), std::bit_cast<std::uint32_t>(sides[i]));
  }
}

TEST(PointBox, IsThatOfEachCoordinateAlone) {
  constexpr float kSpecial[] = {0.0F, -0.0F, 1e30F, -1e30F, 1e-40F, 7.0F};
  constexpr auto kNever = std::numeric_limits<float>::quiet_NaN();
  constexpr auto kEndless = std::numeric_limits<float>::infinity();
  std::mt19937 random(99);
  const auto number = [&](bool spoilt) {
    if (spoilt && random() % 16 == 0) return random() % 2 == 0 ? kNever : -kEndless;
    if (random() % 2 == 0) return kSpecial[random() % std::size(kSpecial)];
    return static_cast<float>(static_cast<int>(random() % 2001) - 1000) / 8;
  };
  for (int round = 0; round < 3000; ++round) {
    const bool spoilt = round % 4 == 0;
    std::vector<_mpl_spacept_tag> points(random() % 6);
    PlainBox plain;
    for (_mpl_spacept_tag& point : points) {
      point = {number(spoilt), number(spoilt)};
      plain.include(point.x, point.y);
    }
    egfhost::Box tested;
    tested.include(points.data(), points.size());
    ASSERT_EQ(plain.isUsable(), tested.isUsable()) << round;
    if (plain.isUsable()) expectSameBox(plain, tested.rect());
  }
}

double cubicAt(const double (&p)[4], double t) {
  const double u = 1.0 - t;
  return u * u * u * p[0] + 3.0 * u * u * t * p[1] + 3.0 * u * t * t * p[2] + t * t * t * p[3];
}

// Where a coordinate's derivative is 0.
std::vector<double> turnsOf(const double (&p)[4]) {
  const double a = p[3] - 3.0 * p[2] + 3.0 * p[1] - p[0];
  const double b = 2.0 * (p[2] - 2.0 * p[1] + p[0]);
  const double c = p[1] - p[0];
  const double discriminant = b * b - 4.0 * a * c;
  if (!(discriminant >= 0.0)) return {};
  const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
  std::vector<double> turns;
  for (const double root : {c / q, q / a}) {
    if (root > 0.0 && root < 1.0) turns.push_back(root);
  }
  return turns;
}

TEST(ObjectMer, OfACurveIsThatOfEachCoordinateAlone) {
  std::mt19937 random(4711);
  std::uniform_real_distribution<double> anywhere(-100.0, 100.0);
  for (int round = 0; round < 5000; ++round) {
    // Some points coincide, some curves stay between their ends.
    const double spread = round % 3 == 0 ? 0.01 : 1.0;
    Points p;
    for (int i = 0; i < 4; ++i) {
      const bool again = i > 0 && random() % 4 == 0;
      p.push_back(again ? p.back() : Px{anywhere(random) * spread, anywhere(random) * spread});
    }
    if (round % 5 == 0) p[3] = {200, 300};
    if (round % 10 == 0) p[0] = {-200, -300};
    const OwnedObject object(curve(p));
    const _mpl_spacept_tag* const stored = as<EgfPolygon>(object.get())->points.get();
    double x[4];
    double y[4];
    for (int i = 0; i < 4; ++i) {
      x[i] = stored[i].x;
      y[i] = stored[i].y;
    }
    PlainBox plain;
    plain.include(x[0], y[0]);
    plain.include(x[3], y[3]);
    for (const double t : turnsOf(x)) plain.include(cubicAt(x, t), cubicAt(y, t));
    for (const double t : turnsOf(y)) plain.include(cubicAt(x, t), cubicAt(y, t));
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
    expectSameBox(plain, mer);
  }
}

// The box of a cubic, one coordinate at a time.
void includeCubic(PlainBox& box, const _mpl_spacept_tag* p) {
  const double x[] = {p[0].x, p[1].x, p[2].x, p[3].x};
  const double y[] = {p[0].y, p[1].y, p[2].y, p[3].y};
  box.include(x[0], y[0]);
  box.include(x[3], y[3]);
  for (const double t : turnsOf(x)) box.include(cubicAt(x, t), cubicAt(y, t));
  for (const double t : turnsOf(y)) box.include(cubicAt(x, t), cubicAt(y, t));
}

// A path takes a short way to its rectangle: the same as that of all its children's own ones.
TEST(ObjectMer, OfAPathIsThatOfItsChildrenTogether) {
  std::mt19937 random(815);
  std::uniform_real_distribution<double> anywhere(-100.0, 100.0);
  constexpr double kOdd[] = {0.0, -0.0, 100.0, -100.0};
  const auto number = [&](bool spoilt) {
    if (spoilt && random() % 8 == 0) return random() % 2 == 0 ? kNaN : kInfinity;
    return random() % 4 == 0 ? kOdd[random() % std::size(kOdd)] : anywhere(random);
  };
  for (int round = 0; round < 4000; ++round) {
    const OwnedObject parent(path({}));
    PlainBox all;
    bool any = false;
    for (unsigned child = random() % 6; child > 0; --child) {
      const bool isCurve = random() % 2 == 0;
      const bool spoilt = random() % 8 == 0;
      Points points;
      for (unsigned i = isCurve ? 1 + 3 * (random() % 4) : random() % 4; i > 0; --i) {
        points.push_back({number(spoilt), number(spoilt)});
      }
      _egf_obj* const object = isCurve ? curve(points) : polyline(points);
      ASSERT_EQ(EEL_AppendObject(parent.get(), object), 0);
      const _mpl_spacept_tag* const stored =
          isCurve ? as<EgfPolygon>(object)->points.get() : as<EgfPolyline>(object)->points.get();
      PlainBox own;
      std::size_t i = 0;
      for (; isCurve && i + 3 < points.size(); i += 3) includeCubic(own, stored + i);
      for (; i < points.size(); ++i) own.include(stored[i].x, stored[i].y);
      if (!own.isUsable()) continue;
      all.include(own.left, own.top);
      all.include(own.right, own.bottom);
      any = true;
    }
    EXPECT_EQ(any ? 1 : 0, as<EgfPath>(parent.get())->hasBounds) << round;
    if (any) expectSameBox(all, as<EgfPath>(parent.get())->bounds);
    ASSERT_FALSE(testing::Test::HasFailure()) << round;
  }
}

// An ellipse that stands upright is measured without its hypotenuses.
TEST(ObjectMer, OfAnUprightEllipseIsThatOfItsHypotenuses) {
  std::mt19937 random(4242);
  std::uniform_real_distribution<double> anywhere(-1000.0, 1000.0);
  for (int round = 0; round < 4000; ++round) {
    const int quarters = static_cast<int>(random() % 9) - 4;
    const double ry = random() % 8 == 0 ? 0.0 : anywhere(random);
    const OwnedObject object(
        ellipse(anywhere(random), anywhere(random), anywhere(random), ry, {}, 90.0 * quarters));
    const auto* const record = as<EgfEllipse>(object.get());
    const _mpl_spacept_tag center = record->center;
    const _mpl_spacept_tag corner = record->radiusPt;
    const double width = std::fabs(double{corner.x} - center.x);
    const double height = std::fabs(double{corner.y} - center.y);
    const double cosine = quarters % 2 == 0 ? 1 : 0;
    const double halfWidth = std::hypot(cosine * width, (1 - cosine) * height);
    const double halfHeight = std::hypot((1 - cosine) * width, cosine * height);
    PlainBox plain;
    plain.include(center.x - halfWidth, center.y - halfHeight);
    plain.include(center.x + halfWidth, center.y + halfHeight);
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
    expectSameBox(plain, mer);
  }
}

TEST(ObjectMer, OfATurnedPartOfAnEllipseHoldsEveryPointAndNoMore) {
  const double rx = 20, ry = 7;
  for (const double rotation : {0.0, 17.0, 90.0, 123.0, -45.0}) {
    for (const double start : {0.0, 10.0, 100.0, 200.0, 300.0}) {
      for (const double sweep : {20.0, 95.0, 180.0, 271.0}) {
        const double turn = -rotation * M_PI / 180;
        double left = kInfinity, right = -kInfinity, top = kInfinity, bottom = -kInfinity;
        constexpr int kSamples = 20000;
        for (int i = 0; i <= kSamples; ++i) {
          const double a = (start + sweep * i / kSamples) * M_PI / 180;
          const double u = rx * std::cos(a), v = -ry * std::sin(a);
          const double x = std::cos(turn) * u - std::sin(turn) * v;
          const double y = std::sin(turn) * u + std::cos(turn) * v;
          left = std::min(left, x);
          right = std::max(right, x);
          top = std::min(top, y);
          bottom = std::max(bottom, y);
        }
        const OwnedObject object(ellipse(0, 0, rx, ry, {}, rotation, start, start + sweep));
        _mpl_spacerect_tag mer;
        ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
        const std::string name =
            std::to_string(rotation) + "/" + std::to_string(start) + "/" + std::to_string(sweep);
        expectRect(mer, {name.c_str(), nullptr, left, top, right, bottom, 1e-3});
      }
    }
  }
}

TEST(ObjectMer, IsMissingForObjectsWithoutGeometry) {
  const struct {
    const char* name;
    _egf_obj* object;
  } rows[] = {
      {"polygon without points", polygon({})},
      {"polyline without points", polyline({})},
      {"diamond without points", allocObject(kClassDiamond)},
      {"group without children", group({})},
      {"group of children without geometry", group({polygon({})})},
      {"path without children", path({})},
      {"path of children without geometry", path({polygon({})})},
      {"text without text", allocObject(kClassText)},
      {"annotation without text", allocObject(kClassAnnotation)},
      {"hotspot data", hotspot("vcexample.org")},
      {"infinite box", box(kInfinity, 0, 1, 1)},
      {"box that is no number", box(0, kNaN, 1, 1)},
      {"polygon with one bad point", polygon({{0, 0}, {1, 1}, {kNaN, 0}, {2, 2}})},
      {"endless line", line({0, 0}, {0, -kInfinity})},
      {"endless circle", ellipse(0, 0, kInfinity, 1)},
      {"endless arc", arc(0, 0, 1, kInfinity, 0, 90)},
      {"negative count",
       edit<EgfPolygon>(polygon({{1, 1}}), [](EgfPolygon& record) { record.pointCount = -1; })},
  };
  for (const auto& row : rows) {
    const OwnedObject object(row.object);
    _mpl_spacerect_tag mer{1, 2, 3, 4};
    EXPECT_NE(EEL_GetObjectMer(object.get(), &mer, 0), 0) << row.name;
    EXPECT_EQ(mer.left, 0) << row.name;
    EXPECT_EQ(mer.right, 0) << row.name;
    EXPECT_EQ(mer.top, 0) << row.name;
    EXPECT_EQ(mer.bottom, 0) << row.name;
  }
}

TEST(ObjectMer, OfNothingIsMissing) {
  _mpl_spacerect_tag mer{1, 2, 3, 4};
  EXPECT_NE(EEL_GetObjectMer(nullptr, &mer, 0), 0);
  EXPECT_EQ(mer.right, 0);
  const OwnedObject object(box(0, 0, 1, 1));
  EXPECT_NE(EEL_GetObjectMer(object.get(), nullptr, 0), 0);
  egfhost::failAt("EEL_GetObjectMer", 1);
  EXPECT_NE(EEL_GetObjectMer(object.get(), &mer, 0), 0);
}

TEST(ObjectMer, OfAGroupIsTheOneItKeeps) {
  const OwnedObject object(group({box(0, 0, 1, 1)}));
  as<EgfGroup>(object.get())->groupMer = spaceRect(5, 6, 7, 8);
  _mpl_spacerect_tag mer;
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectRect(mer, {"group", nullptr, 5, 6, 7, 8});
  as<EgfGroup>(object.get())->groupMer = {};
  EXPECT_NE(EEL_GetObjectMer(object.get(), &mer, 0), 0);
}

TEST(ObjectMer, OfAPathGrowsWithEachChild) {
  const OwnedObject object(path({}));
  const OwnedObject first(line({0, 0}, {0, 0}));
  const OwnedObject second(arc(10, 10, 5, 5, 0, 90));
  _mpl_spacerect_tag mer;
  EEL_PutObject(object.get(), first.get(), 0);
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectRect(mer, {"one point", nullptr, 0, 0, 0, 0});
  EEL_PutObject(object.get(), second.get(), 0);
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectRect(mer, {"point and arc", nullptr, 0, 0, 15, 10});
}

TEST(ObjectMer, OfATreeBlockIsItsRoots) {
  TreeBuilder tree;
  auto* block = at<_egf_obj>(tree.handle());
  _mpl_spacerect_tag mer;
  EXPECT_NE(EEL_GetObjectMer(block, &mer, 0), 0);
  tree.add(box(1, 2, 3, 4));
  ASSERT_EQ(EEL_GetObjectMer(block, &mer, 0), 0);
  expectRect(mer, {"tree", nullptr, 1, 2, 4, 6});
}

TEST(ExpandMer, IsAUnion) {
  const struct {
    _mpl_spacerect_tag mer, other, expected;
  } rows[] = {
      {{1, 2, 3, 4}, {0, 5, 3.5F, 9}, {0, 5, 3, 9}},
      {{1, 2, 3, 4}, {1.5F, 1.6F, 3.5F, 3.6F}, {1, 2, 3, 4}},
      {{0, 0, 0, 0}, {5, 6, 7, 8}, {5, 6, 7, 8}},  // empty: a copy
      {{0, 0, 0, 0}, {-5, -4, -3, -2}, {-5, -4, -3, -2}},
      {{1, 2, 3, 4}, {0, 0, 0, 0}, {0, 2, 0, 4}},  // a point at the origin
      {{0, 0, 0, 1}, {5, 6, 7, 8}, {0, 6, 0, 8}},
  };
  for (const auto& row : rows) {
    _mpl_spacerect_tag mer = row.mer;
    EEL_ExpandMer(&mer, &row.other);
    EXPECT_EQ(mer.left, row.expected.left);
    EXPECT_EQ(mer.right, row.expected.right);
    EXPECT_EQ(mer.top, row.expected.top);
    EXPECT_EQ(mer.bottom, row.expected.bottom);
  }
  _mpl_spacerect_tag mer{1, 2, 3, 4};
  EEL_ExpandMer(&mer, nullptr);
  EEL_ExpandMer(nullptr, &mer);
  EXPECT_EQ(mer.right, 2);
}

// Where a record keeps its rectangle, and the call that brings it up to date.
TEST(CalcMer, KeepsTheRectangleInTheRecord) {
  const struct {
    const char* name;
    _egf_obj* object;
    int (*calc)(_egf_obj*, HostHandle);
    std::size_t slot;
    double left, top, right, bottom;
  } rows[] = {
      {"box", box(1, 2, 3, 4), EGF_CalcPolygonMer, 28, 1, 2, 4, 6},
      {"polygon", polygon({{1, 2}, {3, 5}}), EGF_CalcPolygonMer, 28, 1, 2, 3, 5},
      {"polyline", polyline({{1, 2}, {3, 5}}), EGF_CalcPolylineMer, 24, 1, 2, 3, 5},
  };
  for (const auto& row : rows) {
    const OwnedObject object(row.object);
    writePacked(object.get(), row.slot, _mpl_spacerect_tag{9, 9, 9, 9});
    EXPECT_EQ(row.calc(object.get(), 0), 0) << row.name;
    expectRect(readPacked<_mpl_spacerect_tag>(object.get(), row.slot),
               {row.name, nullptr, row.left, row.top, row.right, row.bottom});
  }
}

TEST(CalcMer, OfAnEllipseFollowsItsOwnGeometry) {
  const OwnedObject object(ellipse(50, 50, 10, 5));
  const _mpl_spacerect_tag beforeTransform{1, 2, 1, 2};
  EXPECT_EQ(EGF_CalcEllipseMer(&beforeTransform, object.get()), 0);
  _mpl_spacerect_tag mer;
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectRect(mer, {"ellipse", nullptr, 40, 45, 60, 55});
}

TEST(CalcMer, ClearsTheRectangleOfAnObjectThatHasNone) {
  const OwnedObject object(polygon({}));
  writePacked(object.get(), 28, _mpl_spacerect_tag{9, 9, 9, 9});
  EXPECT_NE(EGF_CalcPolygonMer(object.get(), 0), 0);
  EXPECT_EQ(readPacked<float>(object.get(), 28), 0.0F);
  EXPECT_NE(EGF_CalcPolygonMer(nullptr, 0), 0);
}

// A path that looks at what its curves could add ends up with the rectangle of all their own.
TEST(PathMer, IsThatOfItsCurvesTogether) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> near(-900.0F, 900.0F);
  const auto place = [&] {
    const unsigned kind = random() % 400;
    if (kind == 0) return std::numeric_limits<float>::quiet_NaN();
    if (kind == 1) return std::numeric_limits<float>::infinity();
    return kind < 40 ? std::round(near(random) / 300.0F) * 300.0F : near(random);
  };
  for (int round = 0; round < 200; ++round) {
    const OwnedObject path(EEL_AllocObject(kClassPath, RMM_SITE));
    auto* record = as<EgfPath>(path.get());
    _mpl_spacerect_tag expected{};
    bool any = false;
    for (int i = 0; i < 30; ++i) {
      _egf_obj* child = EEL_AllocObject(kClassPolygon, RMM_SITE);
      auto* curve = as<EgfPolygon>(child);
      const int count = static_cast<int>(random() % 8);
      auto* points = static_cast<_mpl_spacept_tag*>(
          RMM_AllocName(static_cast<std::size_t>(count), sizeof(_mpl_spacept_tag), RMM_SITE));
      for (int k = 0; k < count; ++k) points[k] = {place(), place()};
      curve->points = PointArray::of(points);
      curve->pointCount = count;
      if (random() % 4 != 0) curve->pen.modeFlags = CurveChildBits::with(0, kCurveChild);
      _mpl_spacerect_tag own;
      if (EEL_GetObjectMer(child, &own, 0) == 0) {
        expected = any ? _mpl_spacerect_tag{std::min<float>(expected.left, own.left),
                                            std::max<float>(expected.right, own.right),
                                            std::min<float>(expected.top, own.top),
                                            std::max<float>(expected.bottom, own.bottom)}
                       : own;
        any = true;
      }
      ASSERT_EQ(EEL_AppendObject(path.get(), child), 0);
      const _mpl_spacerect_tag kept = record->bounds;
      ASSERT_EQ(record->hasBounds, any ? 1U : 0U);
      ASSERT_EQ(std::memcmp(&kept, &expected, sizeof kept), 0) << round << ' ' << i;
    }
  }
}

}  // namespace
}  // namespace egfsvg::test
