// Arcs from their ends: fixed cases, and many random ones checked against the ellipse itself.

#include "geometry/elliptic_arc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace egfsvg {
namespace {

constexpr double kPi = std::numbers::pi;

/// The point of a turned ellipse at a host angle, worked out apart from the code under test.
void pointAt(const ArcCenter& arc, double rotation, double degrees, double* x, double* y) {
  const double t = -degrees * kPi / 180.0;  // SVG angles run clockwise on the page
  const double u = arc.rx * std::cos(t);
  const double v = arc.ry * std::sin(t);
  *x = arc.cx + u * std::cos(rotation) - v * std::sin(rotation);
  *y = arc.cy + u * std::sin(rotation) + v * std::cos(rotation);
}

TEST(EllipticArc, HasNoneBetweenEqualEnds) {
  ArcCenter arc{};
  EXPECT_FALSE(arcFromEnds({5, 5, 5, 5, 10, 10, 0, false, false}, &arc));
}

TEST(EllipticArc, GrowsRadiiThatAreTooSmall) {
  ArcCenter arc{};
  ASSERT_TRUE(arcFromEnds({0, 0, 20, 0, 5, 5, 0, false, false}, &arc));
  EXPECT_NEAR(arc.rx, 10.0, 1e-9);
  EXPECT_NEAR(arc.ry, 10.0, 1e-9);
  EXPECT_NEAR(arc.cx, 10.0, 1e-9);
  EXPECT_NEAR(arc.cy, 0.0, 1e-9);
}

TEST(EllipticArc, KeepsANearlyWholeCircle) {
  ArcCenter arc{};
  ASSERT_TRUE(arcFromEnds({100, 50, 99.99, 50, 50, 50, 0, true, true}, &arc));
  EXPECT_NEAR(arc.cx, 99.995, 1e-6);
  EXPECT_NEAR(arc.cy, 100.0, 1e-6);
  // The gap is 0.01 on a radius of 50: 0.01 / 50 radians.
  EXPECT_NEAR(arc.end - arc.start, 360.0 - 0.01 / 50.0 * 180.0 / kPi, 1e-4);
}

TEST(EllipticArc, QuarterArcsRunCounterClockwise) {
  ArcCenter arc{};
  ASSERT_TRUE(arcFromEnds({10, 0, 0, 10, 10, 10, 0, false, false}, &arc));
  EXPECT_NEAR(arc.cx, 10.0, 1e-9);
  EXPECT_NEAR(arc.cy, 10.0, 1e-9);
  EXPECT_NEAR(arc.start, 90.0, 1e-6);
  EXPECT_NEAR(arc.end, 180.0, 1e-6);
  ASSERT_TRUE(arcFromEnds({20, 10, 10, 20, 10, 10, 0, false, true}, &arc));
  EXPECT_NEAR(arc.start, 270.0, 1e-6);
  EXPECT_NEAR(arc.end, 360.0, 1e-6);
}

TEST(EllipticArc, AnglesFollowAScale) {
  EXPECT_NEAR(scaledArcAngle(225.0, 2.0, 1.0), 206.56505117707799, 1e-6);
  EXPECT_NEAR(scaledArcAngle(315.0, 2.0, 1.0), 333.43494882292201, 1e-6);
  EXPECT_EQ(scaledArcAngle(90.0, 2.0, 1.0), 90.0);
}

TEST(EllipticArc, MeetsItsEndsInTheRightDirection) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(-100.0, 100.0);
  std::uniform_real_distribution<double> radius(1.0, 120.0);
  std::uniform_real_distribution<double> turn(-kPi, kPi);
  for (int i = 0; i < 20000; ++i) {
    ArcEnds ends{place(random),  place(random), place(random), place(random), radius(random),
                 radius(random), turn(random),  i % 2 == 0,    i % 4 < 2};
    ArcCenter arc{};
    ASSERT_TRUE(arcFromEnds(ends, &arc));
    ASSERT_GE(arc.start, 0.0);
    ASSERT_LT(arc.start, 360.0);
    ASSERT_GT(arc.end, arc.start);
    ASSERT_LE(arc.end, arc.start + 360.0 + 1e-9);
    double x1, y1, x2, y2;
    pointAt(arc, ends.rotation, ends.sweep ? arc.end : arc.start, &x1, &y1);
    pointAt(arc, ends.rotation, ends.sweep ? arc.start : arc.end, &x2, &y2);
    ASSERT_NEAR(x1, ends.x1, 2e-4) << i;
    ASSERT_NEAR(y1, ends.y1, 2e-4) << i;
    ASSERT_NEAR(x2, ends.x2, 2e-4) << i;
    ASSERT_NEAR(y2, ends.y2, 2e-4) << i;
    if (arc.end - arc.start > 180.01) {
      ASSERT_TRUE(ends.largeArc) << i;
    }
    if (arc.end - arc.start < 179.99 && arc.end - arc.start > 1.0) {
      ASSERT_FALSE(ends.largeArc) << i;
    }
  }
}

}  // namespace
}  // namespace egfsvg
