#include "geometry/point_checks.h"

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
    FiniteCheck check;
    for (unsigned count = 1 + random() % 6; count > 0; --count) {
      const _mpl_spacept_tag point{coordinate(random), coordinate(random)};
      pairs.include(&point);
      plain.include(&point);
      check.include(&point);
    }
    ASSERT_EQ(pairs.isFinite(), plain.isFinite());
    ASSERT_EQ(check.isFinite(), plain.isFinite());
    if (!plain.isFinite()) continue;
    ++finite;
    const _mpl_spacerect_tag a = pairs.rect();
    const _mpl_spacerect_tag b = plain.rect();
    ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << round;
  }
  EXPECT_GT(finite, kRounds / 3);
  EXPECT_LT(finite, kRounds);
}

TEST(BoxOfPoints, GrowsAllSidesAtOnceAsOneByOne) {
  std::mt19937 random(4);
  int none = 0;
  for (int round = 0; round < kRounds; ++round) {
    const auto rect = [&]() -> _mpl_spacerect_tag {
      if (random() % 6 == 0) return {0.0F, -0.0F, 0.0F, -0.0F};
      return {coordinate(random), coordinate(random), coordinate(random), coordinate(random)};
    };
    _mpl_spacerect_tag sides = rect();
    _mpl_spacerect_tag plain = sides;
    const _mpl_spacerect_tag by = rect();
    ASSERT_EQ(isNone(sides), plainIsNone(plain)) << round;
    none += isNone(sides) ? 1 : 0;
    growBox(&sides, by);
    plainGrowBox(&plain, by);
    ASSERT_EQ(std::memcmp(&sides, &plain, sizeof sides), 0) << round;
  }
  EXPECT_GT(none, kRounds / 10);
  EXPECT_LT(none, kRounds / 2);
}

TEST(BoxOfPoints, NeighboursMeetWhereBothCoordinatesAreEqual) {
  std::mt19937 random(3);
  int met = 0;
  for (int round = 0; round < kRounds; ++round) {
    _mpl_spacept_tag four[4];
    for (_mpl_spacept_tag& point : four) point = {coordinate(random), coordinate(random)};
    if (random() % 4 == 0) four[1 + random() % 3] = four[random() % 3];
    ASSERT_EQ(neighboursMeet(four), plainNeighboursMeet(four)) << round;
    met += plainNeighboursMeet(four) ? 1 : 0;
  }
  EXPECT_GT(met, kRounds / 20);
  EXPECT_LT(met, kRounds / 2);
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
