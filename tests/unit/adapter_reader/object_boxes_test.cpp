#include "adapter_reader/object_boxes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <limits>
#include <random>

#include "geometry/point_checks.h"
#include "host/egf.h"
#include "host/egf_codes.h"
#include "host/memory.h"
#include "model/owners.h"

namespace egfsvg::test {
namespace {

constexpr int kRounds = 20000;

ObjectOwner make(int objClass) { return ObjectOwner(EEL_AllocObject(objClass, RMM_SITE)); }

// Coordinates that meet often, zeros of both signs, and numbers that are none.
float coordinate(std::mt19937& random) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kSpecial[] = {0.0F,
                                -0.0F,
                                1.0F,
                                -1.0F,
                                4096.0F,
                                -kInfinity,
                                kInfinity,
                                std::numeric_limits<float>::quiet_NaN(),
                                std::numeric_limits<float>::max()};
  const unsigned pick = random() % 40;
  return pick < std::size(kSpecial) ? kSpecial[pick]
                                    : static_cast<float>(static_cast<int>(random() % 2001) - 1000);
}

_mpl_spacept_tag point(std::mt19937& random) { return {coordinate(random), coordinate(random)}; }

// What is at hand is what the host says, to the bit; the host is asked for the rest.
void expectAsTheHost(_egf_obj* object, int* atHand) {
  _mpl_spacerect_tag kept;
  if (!boxAtHand(object, &kept)) return;
  ++*atHand;
  _mpl_spacerect_tag told;
  ASSERT_EQ(EEL_GetObjectMer(object, &told, 0), 0);
  EXPECT_EQ(std::memcmp(&kept, &told, sizeof kept), 0);
}

TEST(ObjectBoxes, LinesHaveTheBoxOfTheirEnds) {
  std::mt19937 random(1);
  const ObjectOwner line = make(kClassLine);
  int atHand = 0;
  for (int i = 0; i < kRounds; ++i) {
    as<EgfLine>(line.get())->startPt = point(random);
    as<EgfLine>(line.get())->endPt = point(random);
    expectAsTheHost(line.get(), &atHand);
  }
  EXPECT_GT(atHand, kRounds / 3);
  EXPECT_LT(atHand, kRounds);
}

TEST(ObjectBoxes, WholeEllipsesHaveTheBoxOfTheirRadii) {
  std::mt19937 random(3);
  const ObjectOwner object = make(kClassEllipse);
  auto* ellipse = as<EgfEllipse>(object.get());
  int atHand = 0;
  for (int i = 0; i < kRounds; ++i) {
    ellipse->center = point(random);
    ellipse->radiusPt = point(random);
    ellipse->endAngle = random() % 4 == 0 ? kFullTurn / 2 : kFullTurn;
    ellipse->pen.ellipseRotation = random() % 4 == 0 ? 30 * kMillionths : 0;
    expectAsTheHost(object.get(), &atHand);
  }
  EXPECT_GT(atHand, kRounds / 5);
  EXPECT_LT(atHand, kRounds);
}

TEST(ObjectBoxes, PolygonsAndPolylinesKeepWhatTheHostComputed) {
  std::mt19937 random(2);
  int atHand = 0;
  for (int i = 0; i < kRounds / 10; ++i) {
    constexpr int kPoints = 5;
    const ObjectOwner polygon = make(kClassPolygon);
    const ObjectOwner polyline = make(kClassPolyline);
    for (auto* points :
         {&as<EgfPolygon>(polygon.get())->points, &as<EgfPolyline>(polyline.get())->points}) {
      *points = static_cast<_mpl_spacept_tag*>(
          RMM_AllocName(kPoints, sizeof(_mpl_spacept_tag), RMM_SITE));
      for (int at = 0; at < kPoints; ++at) (*points)[at] = point(random);
    }
    as<EgfPolygon>(polygon.get())->pointCount = kPoints;
    as<EgfPolyline>(polyline.get())->pointCount = kPoints;
    EGF_CalcPolygonMer(polygon.get(), 0);
    EGF_CalcPolylineMer(polyline.get(), 0);
    expectAsTheHost(polygon.get(), &atHand);
    expectAsTheHost(polyline.get(), &atHand);
  }
  EXPECT_GT(atHand, 100);
}

TEST(ObjectBoxes, ContainersKeepTheBoxOfTheirChildren) {
  for (const int objClass : {kClassGroup, kClassPath}) {
    const ObjectOwner container = make(objClass);
    int atHand = 0;
    expectAsTheHost(container.get(), &atHand);
    EXPECT_EQ(atHand, 0) << objClass;  // empty, so the host decides
    const ObjectOwner line = make(kClassLine);
    as<EgfLine>(line.get())->startPt = {-5.0F, 7.0F};
    as<EgfLine>(line.get())->endPt = {3.0F, 7.0F};
    ASSERT_EQ(EEL_PutObject(container.get(), line.get(), 0), 0);
    expectAsTheHost(container.get(), &atHand);
    EXPECT_EQ(atHand, 1) << objClass;
  }
}

TEST(ObjectBoxes, BoxesGrowAsTheHostsDo) {
  std::mt19937 random(4);
  for (int i = 0; i < kRounds; ++i) {
    const bool empty = random() % 8 == 0;
    const _mpl_spacerect_tag old = empty
                                       ? _mpl_spacerect_tag{0.0F, -0.0F, 0.0F, 0.0F}
                                       : _mpl_spacerect_tag{coordinate(random), coordinate(random),
                                                            coordinate(random), coordinate(random)};
    const _mpl_spacerect_tag by{coordinate(random), coordinate(random), coordinate(random),
                                coordinate(random)};
    _mpl_spacerect_tag grown = old;
    _mpl_spacerect_tag expected = old;
    growBox(&grown, by);
    EEL_ExpandMer(&expected, &by);
    ASSERT_EQ(std::memcmp(&grown, &expected, sizeof grown), 0) << i;
  }
}

TEST(ObjectBoxes, OthersAreTheHostsToMeasure) {
  _mpl_spacerect_tag box;
  for (const int objClass : {kClassEllipse, kClassText, kClassImage}) {  // no angles: no whole one
    EXPECT_FALSE(boxAtHand(make(objClass).get(), &box)) << objClass;
  }
  // All points at the origin: the zeros look like none.
  EXPECT_FALSE(boxAtHand(make(kClassPolygon).get(), &box));
}

}  // namespace
}  // namespace egfsvg::test
