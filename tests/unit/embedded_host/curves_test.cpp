#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "host/memory.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

constexpr double kChordErrorPx = 0.05;

struct Flat {
  explicit Flat(const Points& controls) {
    std::vector<_mpl_spacept_tag> points;
    for (const Px& point : controls) points.push_back(spacePoint(point));
    block = EEL_DiscretizeCurve(points.data(), 4, 1, 0, &count);
  }
  ~Flat() { RMM_Free(block); }
  Flat(const Flat&) = delete;
  Flat& operator=(const Flat&) = delete;

  _mpl_spacept_tag* block = nullptr;
  std::uint32_t count = 0;
};

Px curveAt(const Points& p, double t) {
  const double u = 1 - t;
  const double b[] = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
  return {b[0] * p[0].x + b[1] * p[1].x + b[2] * p[2].x + b[3] * p[3].x,
          b[0] * p[0].y + b[1] * p[1].y + b[2] * p[2].y + b[3] * p[3].y};
}

double distance(Px point, Px from, Px to) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double length = dx * dx + dy * dy;
  double t = length == 0 ? 0 : ((point.x - from.x) * dx + (point.y - from.y) * dy) / length;
  t = std::min(1.0, std::max(0.0, t));
  return std::hypot(point.x - from.x - t * dx, point.y - from.y - t * dy);
}

Px pixels(_mpl_spacept_tag point) { return {point.x / 4096.0, point.y / 4096.0}; }

TEST(DiscretizeCurve, HasBothEndsAndKeepsTheChordError) {
  const struct {
    const char* name;
    Points controls;
    std::uint32_t fewest, most;
  } rows[] = {
      {"straight", {{0, 0}, {1, 0}, {2, 0}, {3, 0}}, 9, 9},
      {"small", {{0, 0}, {0, 1}, {1, 1}, {1, 0}}, 9, 9},
      {"quarter circle of 50 px", {{50, 0}, {50, 27.6}, {27.6, 50}, {0, 50}}, 9, 30},
      {"loop", {{0, 0}, {300, 400}, {-200, 400}, {100, 0}}, 40, 129},
      {"one point", {{7, 7}, {7, 7}, {7, 7}, {7, 7}}, 9, 9},
  };
  for (const auto& row : rows) {
    const Flat flat(row.controls);
    ASSERT_NE(flat.block, nullptr) << row.name;
    EXPECT_GE(flat.count, row.fewest) << row.name;
    EXPECT_LE(flat.count, row.most) << row.name;
    const _mpl_spacept_tag first = spacePoint(row.controls.front());
    const _mpl_spacept_tag last = spacePoint(row.controls.back());
    EXPECT_EQ(flat.block[0].x, first.x) << row.name;
    EXPECT_EQ(flat.block[0].y, first.y) << row.name;
    EXPECT_EQ(flat.block[flat.count - 1].x, last.x) << row.name;
    EXPECT_EQ(flat.block[flat.count - 1].y, last.y) << row.name;
    const std::uint32_t chords = flat.count - 1;
    for (int i = 0; i <= 10000; ++i) {
      const double t = i / 10000.0;
      const auto chord = std::min(chords - 1, static_cast<std::uint32_t>(t * chords));
      EXPECT_LE(distance(curveAt(row.controls, t), pixels(flat.block[chord]),
                         pixels(flat.block[chord + 1])),
                kChordErrorPx)
          << row.name << " at " << t;
    }
  }
}

TEST(DiscretizeCurve, TakesAtMost128Chords) {
  const double huge = 1e9;
  EXPECT_EQ(Flat({{0, 0}, {huge, huge}, {-huge, huge}, {huge, 0}}).count, 129U);
  const double endless = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Flat({{0, 0}, {endless, 0}, {0, endless}, {1, 1}}).count, 129U);
  EXPECT_EQ(Flat({{0, 0}, {std::nan(""), 0}, {0, 1}, {1, 1}}).count, 129U);
}

TEST(DiscretizeCurve, RefusesWhatIsNoCubic) {
  const _mpl_spacept_tag points[4] = {};
  std::uint32_t count = 7;
  EXPECT_EQ(EEL_DiscretizeCurve(points, 3, 1, 0, &count), nullptr);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(EEL_DiscretizeCurve(nullptr, 4, 1, 0, &count), nullptr);
  EXPECT_EQ(EEL_DiscretizeCurve(points, 4, 1, 0, nullptr), nullptr);
  egfhost::failAllocation(1);
  EXPECT_EQ(EEL_DiscretizeCurve(points, 4, 1, 0, &count), nullptr);
  egfhost::clearFaults();
  egfhost::failAt("EEL_DiscretizeCurve", 1);
  EXPECT_EQ(EEL_DiscretizeCurve(points, 4, 1, 0, &count), nullptr);
}

const EgfPolygon& polygonRecord(const OwnedObject& object) { return *as<EgfPolygon>(object.get()); }

TEST(XlatEllipse, GivesAPolygonWithTheSamePen) {
  const AreaPen pen{.width = 2.5,
                    .stroke = 0x123456,
                    .fill = 0xff0000,
                    .lineStyle = 4,
                    .fillStyle = kFillPartial,
                    .fillParmsNo = 5,
                    .fillGradientNo = 6,
                    .strokeGradientNo = 7,
                    .gradPts = {{1, 2}, {3, 4}}};
  const OwnedObject source(edit<EgfEllipse>(ellipse(50, 50, 20, 10, pen), [](EgfEllipse& record) {
    record.pen.joinStyle = kJoinBevel;
    record.pen.styleMask = 0x11;
    record.pen.layerMask = 0x22;
    record.pen.scaleFactor = 2.0;
    record.pen.modeFlags = 0x01;
    record.head.layerIndex = 3;
  }));
  const OwnedObject object(EEL_XlatEllipseToPolygon(source.get(), 0));
  ASSERT_NE(object, nullptr);
  const EgfPolygon& record = polygonRecord(object);
  EXPECT_EQ(record.head.objClass, 9);
  EXPECT_EQ(record.head.layoutClass, 9);
  EXPECT_EQ(record.head.layerIndex, 3);
  EXPECT_EQ(record.pen.lineWidth.value, 2.5);
  EXPECT_EQ(colourWord(record.pen.strokeColor), 0x123456U);
  EXPECT_EQ(colourWord(record.pen.fillColor), 0xff0000U);
  EXPECT_EQ(record.pen.lineStyle, 4U);
  EXPECT_EQ(record.pen.fillStyle, 3);
  EXPECT_EQ(record.pen.joinStyle, 11);
  EXPECT_EQ(record.pen.styleMask, 0x11U);
  EXPECT_EQ(record.pen.layerMask, 0x22U);
  EXPECT_EQ(record.pen.scaleFactor, 2.0);
  EXPECT_EQ(record.pen.modeFlags, 0x03);  // the fill rule kept, closed
  EXPECT_EQ(record.trailingWord, 1000U);
  EXPECT_EQ(record.fillParmsNo, 5U);
  EXPECT_EQ(record.fillGradientNo, 6U);
  EXPECT_EQ(record.strokeGradientNo, 7U);
  ASSERT_EQ(record.gradPtCount, 2);
  EXPECT_NE(record.gradPts.offset, as<EgfEllipse>(source.get())->gradPts.offset);
  EXPECT_EQ(record.gradPts.get()[1].y, 4 * 4096.0F);
  EXPECT_EQ(record.subPathCount, 0U);
  EXPECT_FALSE(record.subPathSizes);
}

// How far a point stands from a turned ellipse, by the ellipse's own equation scaled to pixels.
double strayOf(Px point, Px center, double rx, double ry, double rotation) {
  const double turn = rotation * M_PI / 180;  // back: host turns run the other way than the page's
  const double dx = point.x - center.x, dy = point.y - center.y;
  const double u = std::cos(turn) * dx - std::sin(turn) * dy;
  const double v = std::sin(turn) * dx + std::cos(turn) * dy;
  return (std::hypot(u / rx, v / ry) - 1.0) * std::min(rx, ry);
}

TEST(XlatEllipse, OutlineLiesOnTheTurnedEllipse) {
  const struct {
    double rx, ry, rotation;
  } rows[] = {{10, 10, 0}, {20, 10, 0}, {20, 10, 30}, {20, 10, -30}, {1, 400, 77}, {0.01, 0.02, 5}};
  for (const auto& row : rows) {
    const OwnedObject source(ellipse(50, 60, row.rx, row.ry, {}, row.rotation));
    const OwnedObject object(EEL_XlatEllipseToPolygon(source.get(), 0));
    const EgfPolygon& record = polygonRecord(object);
    const _mpl_spacept_tag* points = record.points.get();
    const int count = record.pointCount;
    ASSERT_GE(count, 8);
    EXPECT_EQ(count % 4, 0);
    for (int i = 0; i < count; ++i) {
      EXPECT_NEAR(strayOf(pixels(points[i]), {50, 60}, row.rx, row.ry, row.rotation), 0.0, 1e-3);
      const Px next = pixels(points[(i + 1) % count]);
      const Px middle{(pixels(points[i]).x + next.x) / 2, (pixels(points[i]).y + next.y) / 2};
      EXPECT_LE(std::fabs(strayOf(middle, {50, 60}, row.rx, row.ry, row.rotation)), kChordErrorPx);
    }
    // Clockwise on the page from angle 0, without the first point again at the end.
    const double turn = -row.rotation * M_PI / 180;
    EXPECT_NEAR(points[0].x / 4096.0, 50 + row.rx * std::cos(turn), 1e-3);
    EXPECT_NEAR(points[0].y / 4096.0, 60 + row.rx * std::sin(turn), 1e-3);
    EXPECT_NEAR(points[count / 4].x / 4096.0, 50 - row.ry * std::sin(turn), 1e-3);
    EXPECT_NEAR(points[count / 4].y / 4096.0, 60 + row.ry * std::cos(turn), 1e-3);
  }
}

TEST(XlatEllipse, PartOfAnEllipseIsAnOpenRunFromStartToEnd) {
  const OwnedObject source(ellipse(0, 0, 20, 10, {}, 0, 90, 270));
  const OwnedObject object(EEL_XlatEllipseToPolygon(source.get(), 0));
  const EgfPolygon& record = polygonRecord(object);
  const _mpl_spacept_tag* points = record.points.get();
  EXPECT_EQ(FigureBits::get(record.pen.modeFlags), kFigureOpen);
  EXPECT_EQ(pixels(points[0]).x, 0);
  EXPECT_EQ(pixels(points[0]).y, -10);
  EXPECT_EQ(pixels(points[record.pointCount - 1]).y, 10);
  EXPECT_LT(pixels(points[record.pointCount / 2]).x, -19);
}

TEST(XlatEllipse, RefusesWhatIsNoEllipse) {
  const OwnedObject object(box(0, 0, 1, 1));
  EXPECT_EQ(EEL_XlatEllipseToPolygon(object.get(), 0), nullptr);
  EXPECT_EQ(EEL_XlatEllipseToPolygon(nullptr, 0), nullptr);
}

TEST(XlatEllipse, WithoutMemoryGivesNothingAndKeepsNothing) {
  const OwnedObject source(ellipse(0, 0, 20, 10, {.gradPts = {{1, 2}, {3, 4}}}));
  for (std::uint64_t n = 1; n <= 3; ++n) {
    egfhost::failAllocation(n);
    EXPECT_EQ(EEL_XlatEllipseToPolygon(source.get(), 0), nullptr) << n;
    egfhost::clearFaults();
  }
  egfhost::failAt("EEL_XlatEllipseToPolygon", 1);
  EXPECT_EQ(EEL_XlatEllipseToPolygon(source.get(), 0), nullptr);
}

}  // namespace
}  // namespace egfsvg::test
