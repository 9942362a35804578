#include "adapter_reader/path_walk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "adapter_reader/point_map.h"
#include "model/units.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr double kPixel = 4096.0;

/// Writes down what a walk hands on, in whole pixels.
class Notes {
 public:
  bool beginSubPath(const _svg_singlepath&) { return note("("); }
  bool moveTo(PlanePoint to) { return note("M" + text(to)); }
  bool lineTo(PlanePoint from, PlanePoint to) { return note("L" + text(from) + text(to)); }
  bool curveTo(const CubicPoints& c) {
    return note("C" + text(c.from) + text(c.first) + text(c.second) + text(c.to));
  }
  bool arcTo(const ArcEnds& ends, const ArcCenter&) {
    return note("A" + text({ends.x1, ends.y1}) + text({ends.x2, ends.y2}));
  }
  bool closeTo(PlanePoint from, PlanePoint first) { return note("Z" + text(from) + text(first)); }
  bool endSubPath(const _svg_singlepath&) { return note(")"); }

  std::string all;
  int left = 1000;  // steps until it says that memory ran out

 private:
  static std::string text(PlanePoint point) {
    return " " + std::to_string(std::lround(point.x / kPixel)) + "," +
           std::to_string(std::lround(point.y / kPixel));
  }
  bool note(const std::string& step) {
    all += (all.empty() ? "" : " ") + step;
    return --left > 0;
  }
};

_svg_path_data command(std::int32_t code, std::initializer_list<double> numbers) {
  _svg_path_data data{};
  data.command = code;
  _svg_value* const slots[] = {&data.arg0, &data.arg1, &data.arg2,
                               &data.arg3, &data.arg4, &data.arg5};
  std::size_t next = 0;
  for (const double number : numbers) *slots[next++] = {kUnitPixel, number, kAxisNone};
  return data;
}

_svg_path_data arc(std::int32_t code, double x, double y, double radius) {
  _svg_path_data data = command(code, {x, y, radius, radius});
  data.arg4 = {kUnitDegree, 0.0, 0};
  data.arg5.unit = 1;
  return data;
}

using Commands = std::vector<_svg_path_data>;

std::string walked(std::vector<Commands> subPaths, int steps = 1000) {
  AdapterPage page;
  std::vector<_svg_singlepath> parts;
  for (Commands& commands : subPaths) {
    parts.push_back({commands.data(), static_cast<std::int32_t>(commands.size()), 0, 0});
  }
  _svg_path path{};
  path.paths = parts.data();
  path.pathCount = static_cast<std::int32_t>(parts.size());
  Notes notes;
  notes.left = steps;
  const bool whole = PathWalk<Notes>(page.adapter(), notes).run(path);
  return notes.all + (whole ? "" : " !");
}

struct Row {
  const char* name;
  std::vector<Commands> subPaths;
  const char* expected;
};

TEST(PathWalk, ResolvesEachCommand) {
  const _svg_path_data move = command(kPathMoveAbs, {10, 20});
  const Row rows[] = {
      {"lines",
       {{move, command(kPathLineAbs, {30, 40}), command(kPathLineRel, {1, -2})}},
       "( M 10,20 L 10,20 30,40 L 30,40 31,38 )"},
      {"across and down",
       {{move, command(kPathHorizontalAbs, {5}), command(kPathVerticalAbs, {6}),
         command(kPathHorizontalRel, {5}), command(kPathVerticalRel, {6})}},
       "( M 10,20 L 10,20 5,20 L 5,20 5,6 L 5,6 10,6 L 10,6 10,12 )"},
      {"cubics",
       {{move, command(kPathCubicAbs, {1, 2, 3, 4, 5, 6}),
         command(kPathCubicRel, {1, 2, 3, 4, 5, 6})}},
       "( M 10,20 C 10,20 1,2 3,4 5,6 C 5,6 6,8 8,10 10,12 )"},
      {"smooth after a cubic",
       {{move, command(kPathCubicAbs, {1, 2, 3, 4, 5, 6}),
         command(kPathSmoothCubicAbs, {9, 9, 20, 20}), command(kPathSmoothCubicRel, {1, 1, 2, 2})}},
       "( M 10,20 C 10,20 1,2 3,4 5,6 C 5,6 7,8 9,9 20,20 C 20,20 31,31 21,21 22,22 )"},
      {"smooth after another",
       {{move, command(kPathQuadAbs, {3, 3, 6, 6}), command(kPathSmoothCubicAbs, {9, 9, 20, 20})}},
       "( M 10,20 C 10,20 4,4 3,3 6,6 C 6,6 6,6 9,9 20,20 )"},
      {"quadratics",
       {{move, command(kPathQuadAbs, {30, 30, 60, 0}), command(kPathQuadRel, {30, 30, 60, 0})}},
       "( M 10,20 C 10,20 40,20 30,30 60,0 C 60,0 100,20 90,30 120,0 )"},
      {"smooth after a quadratic",
       {{move, command(kPathQuadAbs, {30, 30, 60, 0}), command(kPathSmoothQuadAbs, {120, 0}),
         command(kPathSmoothQuadRel, {60, 0})}},
       "( M 10,20 C 10,20 40,20 30,30 60,0 C 60,0 100,-20 90,-30 120,0 C 120,0 160,20 150,30 "
       "180,0 )"},
      {"a smooth quadratic alone",
       {{command(kPathSmoothQuadAbs, {30, 60})}},
       "( C 0,0 10,20 0,0 30,60 )"},
      {"a smooth quadratic after a line",
       {{move, command(kPathSmoothQuadAbs, {50, 10})}},
       "( M 10,20 C 10,20 30,30 20,40 50,10 )"},
      {"a close goes back",
       {{move, command(kPathLineAbs, {30, 40}), command(kPathClose, {}),
         command(kPathLineRel, {1, 1})}},
       "( M 10,20 L 10,20 30,40 Z 30,40 10,20 L 10,20 11,21 )"},
      {"the next sub-path goes on",
       {{move, command(kPathLineAbs, {30, 40})},
        {command(kPathLineRel, {1, 1}), command(kPathClose, {})}},
       "( M 10,20 L 10,20 30,40 ) ( L 30,40 31,41 Z 31,41 30,40 )"},
      {"arcs",
       {{move, arc(kPathArcAbs, 30, 20, 10), arc(kPathArcRel, 20, 0, 10)}},
       "( M 10,20 A 10,20 30,20 A 30,20 50,20 )"},
      {"an arc without a radius", {{move, arc(kPathArcRel, 5, 5, 0)}}, "( M 10,20 L 10,20 15,25 )"},
      {"an arc to where it starts", {{move, arc(kPathArcRel, 0, 0, 10)}}, "( M 10,20 )"},
      {"no command", {{move, command(kPathNone, {1, 2})}}, "( M 10,20 )"},
  };
  for (const Row& row : rows) EXPECT_EQ(walked(row.subPaths), row.expected) << row.name;
}

TEST(PathWalk, EndsWhereMemoryRunsOut) {
  const Commands commands = {command(kPathMoveAbs, {1, 1}), command(kPathLineAbs, {2, 2}),
                             command(kPathLineAbs, {3, 3})};
  EXPECT_EQ(walked({commands}, 3), "( M 1,1 L 1,1 2,2 !");
}

/// The same arithmetic in the same order, written out: the results agree to the bit.
TEST(PointMap, IsTheProductOfTheWholeMatrix) {
  std::mt19937 random(20);
  std::uniform_real_distribution<double> factor(-3.0, 3.0);
  std::uniform_real_distribution<float> place(-1e6F, 1e6F);
  for (int round = 0; round < 20000; ++round) {
    _transformMatrix matrix{};
    for (double(&row)[3] : matrix.m) {
      for (double& number : row)
        number = round % 5 == 0 ? std::round(factor(random)) : factor(random);
    }
    const _mpl_spacept_tag point{round % 7 == 0 ? -0.0F : place(random), place(random)};
    const double x = static_cast<double>(point.x);
    const double y = static_cast<double>(point.y);
    const auto& m = matrix.m;
    const _mpl_spacept_tag expected{
        static_cast<float>(m[0][0] * x + m[0][1] * y + m[0][2] * kPixel),
        static_cast<float>(m[1][0] * x + m[1][1] * y + m[1][2] * kPixel)};
    const _mpl_spacept_tag mapped = PointMap(matrix)(point);
    ASSERT_EQ(std::memcmp(&mapped, &expected, sizeof mapped), 0) << round;
  }
}

}  // namespace
}  // namespace egfsvg::test
