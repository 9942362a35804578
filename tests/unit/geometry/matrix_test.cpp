#include "geometry/matrix.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <limits>
#include <random>

namespace egfsvg::test {
namespace {

constexpr int kRounds = 20000;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Often a zero of either sign, so that the signs of results matter.
double number(std::mt19937& random, bool finite) {
  constexpr double kSpecial[] = {0.0, -0.0, 1.0, -1.0, 1e300, -1e-300};
  const unsigned pick = random() % 16;
  if (pick < std::size(kSpecial)) return kSpecial[pick];
  if (!finite && pick == 6) return kInfinity;
  if (!finite && pick == 7) return std::numeric_limits<double>::quiet_NaN();
  return std::uniform_real_distribution<double>(-10.0, 10.0)(random);
}

void fill(PlaneColumns& plane, std::mt19937& random, bool finite) {
  for (double(&column)[2] : plane) {
    for (double& at : column) at = number(random, finite);
  }
}

// Equal to the bit, a NaN to any NaN.
template <std::size_t kRows>
bool same(const double (&a)[kRows][3], const double (&b)[kRows][3]) {
  for (std::size_t i = 0; i < kRows; ++i) {
    for (int k = 0; k < 3; ++k) {
      const bool bothNan = a[i][k] != a[i][k] && b[i][k] != b[i][k];
      if (!bothNan && std::memcmp(&a[i][k], &b[i][k], sizeof(double)) != 0) return false;
    }
  }
  return true;
}

TEST(Matrix, ColumnsOfAPlaneMultiplyAsWholeMatrices) {
  std::mt19937 random(1);
  int finite = 0;
  for (int i = 0; i < kRounds; ++i) {
    PlaneColumns running;
    std::memcpy(running, kIdentityPlane, sizeof running);
    MatrixRows expected;
    copyMatrix(kIdentityRows, expected);
    for (unsigned factors = random() % 5; factors > 0; --factors) {
      PlaneColumns factor;
      fill(factor, random, true);
      multiplyPlane(running, factor);
      MatrixRows whole;
      setMatrix(factor, whole);
      multiplyMatrix(expected, whole);
    }
    if (!isFinite(running)) continue;
    ++finite;
    MatrixRows got;
    setMatrix(running, got);
    ASSERT_TRUE(same(got, expected)) << i;
  }
  EXPECT_GT(finite, kRounds / 2);
}

// What is not finite never leaves a product.
TEST(Matrix, AProductTellsThatAFactorWasNotFinite) {
  std::mt19937 random(2);
  for (int i = 0; i < kRounds; ++i) {
    PlaneColumns running;
    fill(running, random, true);
    PlaneColumns spoilt;
    fill(spoilt, random, true);
    spoilt[random() % 3][random() % 2] = random() % 2 == 0 ? -kInfinity : kInfinity;
    EXPECT_FALSE(isFinite(spoilt));
    multiplyPlane(running, spoilt);
    PlaneColumns last;
    fill(last, random, true);
    multiplyPlane(running, last);
    ASSERT_FALSE(isFinite(running)) << i;
  }
}

TEST(Matrix, TheIdentityTimesAMatrix) {
  std::mt19937 random(3);
  for (int i = 0; i < kRounds; ++i) {
    MatrixRows right;
    for (double(&row)[3] : right) {
      for (double& at : row) at = number(random, random() % 4 != 0);
    }
    MatrixRows expected;
    copyMatrix(kIdentityRows, expected);
    multiplyMatrix(expected, right);
    MatrixRows got;
    multiplyIdentity(right, got);
    ASSERT_TRUE(same(got, expected)) << i;
  }
}

TEST(Matrix, TheIdentityTimesAFinitePlane) {
  std::mt19937 random(4);
  for (int i = 0; i < kRounds; ++i) {
    PlaneColumns plane;
    fill(plane, random, true);
    MatrixRows whole;
    setMatrix(plane, whole);
    MatrixRows expected;
    copyMatrix(kIdentityRows, expected);
    multiplyMatrix(expected, whole);
    MatrixRows got;
    multiplyIdentity(plane, got);
    ASSERT_TRUE(same(got, expected)) << i;
  }
}

}  // namespace
}  // namespace egfsvg::test
