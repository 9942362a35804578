#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "attribute_support.h"
#include "reader/number_scan.h"

namespace egfsvg::test {
namespace {

using Coordinates = std::vector<std::pair<double, double>>;

struct PointsCase {
  std::string text;
  Coordinates points;
};

Coordinates pointsOf(CHandlerReader& reader, const std::string& block) {
  int count = -1;
  _svg_point* points = reader.SetPointsAtt(&count, Pair(block));
  EXPECT_EQ(points == nullptr, count == 0);
  Coordinates result;
  for (int i = 0; i < count; ++i) {
    for (const _svg_value* value : {&points[i].x, &points[i].y}) {
      EXPECT_EQ(value->unit, kUnitPixel);
      EXPECT_EQ(value->axis, kAxisWidth);
    }
    result.emplace_back(points[i].x.value, points[i].y.value);
  }
  RMM_Free(points);
  return result;
}

void expectPoints(CHandlerReader& reader, const PointsCase& row) {
  SCOPED_TRACE(row.text.substr(0, 60));
  EXPECT_EQ(pointsOf(reader, row.text), row.points);
  EXPECT_EQ(pointsOf(reader, withRoomBehind(row.text)), row.points);
}

TEST(Points, pairsOfNumbers) {
  const PointsCase cases[] = {{"1,2 3,4", {{1, 2}, {3, 4}}},
                              {"1,2 3", {{1, 2}}},
                              {"1 2\n3\t4\r", {{1, 2}, {3, 4}}},
                              {",,1,,2,,", {{1, 2}}},
                              {"10px,1em", {{10, 1}}},
                              {"0x10,inf", {{0, 0}}},
                              {"1E2,3", {{100, 3}}},
                              {"-1.5,+2e1", {{-1.5, 20}}},
                              {"1-2,3", {{1, 3}}},
                              {"5", {}},
                              {"", {}},
                              {" , ", {}},
                              {"nan,1", {{0, 1}}}};
  CHandlerReader reader;
  for (const PointsCase& row : cases) expectPoints(reader, row);
}

// A token is cut at 30 bytes, and one byte behind it is lost.
TEST(Points, longTokensAreCut) {
  CHandlerReader reader;
  expectPoints(reader, {"0." + std::string(28, '0') + "x7,8", {{0, 7}}});
  expectPoints(reader, {std::string(29, '1') + " 7", {{1.1111111111111111e28, 7}}});
}

TEST(Points, manyPointsArriveWhole) {
  CHandlerReader reader;
  for (int count : {9, 10, 11, 20, 25, 1000}) {
    PointsCase row;
    for (int i = 0; i < count; ++i) {
      row.text += std::to_string(i) + "," + std::to_string(-i) + " ";
      row.points.emplace_back(i, -i);
    }
    expectPoints(reader, row);
  }
}

TEST(Points, roomBehindTheTextChangesNothing) {
  constexpr const char* kParts[] = {"1",  "12.5",  "-3.25", "-0",  "640.75", ".5", "1e2",     "+4",
                                    "5.", "1.5.5", ".",     "7px", "-",      "x",  "123456.7"};
  constexpr const char* kBetween[] = {",", " ", ",", " ", ",", " ", ",", " ", ", ", "\n", "-", ""};
  std::mt19937 random(5);
  for (int i = 0; i < 4000; ++i) {
    std::string text;
    for (unsigned parts = random() % 30; parts > 0; --parts) {
      text += kParts[random() % (random() % 8 == 0 ? std::size(kParts) : 6)];
      text += kBetween[random() % std::size(kBetween)];
    }
    CHandlerReader reader;
    reader.state.settings.compactNumbers = i % 2 == 1;
    ASSERT_EQ(pointsOf(reader, text), pointsOf(reader, withRoomBehind(text))) << text;
  }
}

TEST(Points, nullGivesNothing) {
  CHandlerReader reader;
  int count = 5;
  EXPECT_EQ(reader.SetPointsAtt(&count, nullptr), nullptr);
  EXPECT_EQ(reader.SetPointsAtt(nullptr, Pair("1,2")), nullptr);
}

TEST(Points, aSecondAttributeReplacesTheFirst) {
  CHandlerReader reader;
  Polygon polygon;
  reader.SetPolygonAttribute(polygon.get(), kAttPoints, Pair("1,2 3,4"));
  reader.SetPolygonAttribute(polygon.get(), kAttPoints, Pair("5,6"));
  ASSERT_EQ(polygon->pointCount, 1);
  EXPECT_TRUE(isValue(polygon->points[0].x, 5, kUnitPixel));
  reader.SetPolygonAttribute(polygon.get(), kAttPoints, Pair("7"));
  EXPECT_EQ(polygon->pointCount, 0);
  EXPECT_EQ(polygon->points, nullptr);
}

TEST(Points, compactNumbersFollowTheGrammar) {
  CHandlerReader reader;
  reader.state.settings.compactNumbers = true;
  const PointsCase cases[] = {{"1,2 3,4", {{1, 2}, {3, 4}}},
                              {"1-2-3.5.5", {{1, -2}, {-3.5, 0.5}}},
                              {"1e2-3", {{100, -3}}},
                              {"10px 20px", {{10, 20}}},
                              {"10px-20px", {{10, -20}}},
                              {"x,1", {{0, 1}}},
                              {"1 -", {{1, 0}}}};
  for (const PointsCase& row : cases) expectPoints(reader, row);
}

}  // namespace
}  // namespace egfsvg::test
