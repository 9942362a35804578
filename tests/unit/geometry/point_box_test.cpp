#include "geometry/point_box.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <vector>

namespace egfsvg::test {
namespace {

constexpr int kRounds = 20000;

// Coordinates that meet often, zeros of both signs, and numbers that are none.
float coordinate(std::mt19937& random) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kSpecial[] = {0.0F,
                                -0.0F,
                                1.0F,
                                -1.0F,
                                kInfinity,
                                -kInfinity,
                                std::numeric_limits<float>::quiet_NaN(),
                                std::numeric_limits<float>::max(),
                                std::numeric_limits<float>::denorm_min()};
  const unsigned pick = random() % 60;
  return pick < std::size(kSpecial) ? kSpecial[pick]
                                    : static_cast<float>(static_cast<int>(random() % 7) - 3);
}

TEST(BoxOfPoints, PairsGiveWhatSingleCoordinatesDo) {
  std::mt19937 random(1);
  int finite = 0;
  for (int round = 0; round < kRounds; ++round) {
    PointBox pairs;
    PlainPointBox plain;
    for (unsigned count = 1 + random() % 6; count > 0; --count) {
      const _mpl_spacept_tag point{coordinate(random), coordinate(random)};
      pairs.include(&point);
      plain.include(&point);
    }
    ASSERT_EQ(pairs.isFinite(), plain.isFinite());
    if (!plain.isFinite()) continue;
    ++finite;
    const _mpl_spacerect_tag a = pairs.rect();
    const _mpl_spacerect_tag b = plain.rect();
    ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << round;
  }
  EXPECT_GT(finite, kRounds / 3);
  EXPECT_LT(finite, kRounds);
}

TEST(BoxOfPoints, HoldsAllPointsAndKeepsTheFirstZero) {
  const std::vector<_mpl_spacept_tag> points{{-0.0F, 7.0F}, {0.0F, -2.5F}, {-0.0F, 3.0F}};
  PointBox box;
  for (const _mpl_spacept_tag& point : points) box.include(&point);
  ASSERT_TRUE(box.isFinite());
  const _mpl_spacerect_tag expected{-0.0F, -0.0F, -2.5F, 7.0F};
  const _mpl_spacerect_tag rect = box.rect();
  EXPECT_EQ(std::memcmp(&rect, &expected, sizeof rect), 0);
}

}  // namespace
}  // namespace egfsvg::test
