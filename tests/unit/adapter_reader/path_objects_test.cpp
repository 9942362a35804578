// Path objects: children, curves, arcs and flattened figures.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "adapter_reader/svg_adapterreader.h"
#include "embedded_host/host_settings.h"
#include "host/egf_bits.h"
#include "host/settings.h"
#include "model/lifecycle.h"
#include "reader/svg_handlerreader.h"
#include "tests/support/drawn_page.h"

namespace egfsvg {
namespace {

using test::DrawnPage;
using test::pointText;

std::string svgOf(const std::string& d, const std::string& more = "") {
  return "<svg viewBox=\"0 0 200 200\"><path d=\"" + d + "\" " + more + "/></svg>";
}

void setSetting(Setting setting, std::uint32_t value) {
  CFG_GetDefaults(0, 0)[static_cast<std::uint32_t>(setting)] = value;
}

/// "5[(0,0) (1,1)]" for each child: its class and its points, or an arc's figures.
std::string childText(_egf_obj* child);
std::string childrenText(_egf_obj* path) {
  std::string text;
  for (_egf_obj* child : DrawnPage::children(path)) {
    text += (text.empty() ? "" : " ") + childText(child);
  }
  return text;
}

std::string childText(_egf_obj* child) {
  const std::string name = std::to_string(child->layoutClass);
  switch (child->layoutClass) {
    case kClassLine: {
      const auto* line = as<EgfLine>(child);
      const _mpl_spacept_tag ends[2] = {line->startPt, line->endPt};
      return name + "[" + pointText(ends, 2) + "]";
    }
    case kClassPolyline: {
      const auto* run = as<EgfPolyline>(child);
      return name + "[" + pointText(run->points.get(), run->pointCount) + "]";
    }
    case kClassPolygon: {
      const auto* curve = as<EgfPolygon>(child);
      return name + "[" +
             pointText(curve->points.get(), static_cast<std::size_t>(curve->pointCount)) + "]";
    }
    case kClassPath:
      return name + "{" + childrenText(child) + "}";
    default:
      return name;
  }
}

std::string pathText(const std::string& d) {
  const DrawnPage page(svgOf(d));
  auto* path = page.only<EgfPath>(kClassPath);
  if (path == nullptr) return "";
  const std::uint32_t kind = path->pathKind;
  return std::to_string(kind) + ": " + childrenText(&path->head);
}

struct TextRow {
  const char* d;
  const char* expected;
};

TEST(PathObjects, ChildrenInDrawingOrder) {
  const TextRow rows[] = {
      {"M0 0 L10 0 L10 10 L0 10 Z", "1: 8[(0,0) (40960,0) (40960,40960) (0,40960) (0,0)]"},
      {"M0 0 L10 10", "0: 5[(0,0) (40960,40960)]"},
      {"M0 0 L10 0 Z", "1: 8[(0,0) (40960,0) (0,0)]"},
      // Returns to its start but for the rounding of sums: no second last point.
      {"M0.1 0.1 l0.2 0 l0 0.2 l-0.2 -0.2 z", "1: 8[(410,410) (1229,410) (1229,1229) (410,410)]"},
      {"M0 0 L10 0 M20 0 L30 0 L30 10",
       "0: 33{5[(0,0) (40960,0)]} 33{8[(81920,0) (122880,0) (122880,40960)]}"},
      {"M0 0 L1 0 M5 5 M9 9 L9 0", "0: 33{5[(0,0) (4096,0)]} 33{5[(36864,36864) (36864,0)]}"},
      {"M0 0 C0 0 50 50 100 0", "0: 9[(0,0) (9024,0) (204800,204800) (409600,0)]"},
      {"M0 0 C50 50 100 0 100 0", "0: 9[(0,0) (204800,204800) (418624,0) (409600,0)]"},
      {"M0 0 C0 0 50 50 50 50", "0: 9[(0,0) (9024,0) (204800,204800) (204800,204800)]"},
      {"M0 0 C50 50 50 50 100 0", "0: 9[(0,0) (204800,204800) (213824,204800) (409600,0)]"},
      {"M0 0 L10 0 C20 0 30 10 30 20 L30 40",
       "0: 5[(0,0) (40960,0)] 9[(40960,0) (81920,0) (122880,40960) (122880,81920)] "
       "5[(122880,81920) (122880,163840)]"},
      {"M0 0 L10 0 S20 10 30 0",
       "0: 5[(0,0) (40960,0)] 9[(40960,0) (49984,0) (81920,40960) (122880,0)]"},
      {"M0 0 L10 0 z m5 5 l5 0",
       "0: 33{8[(0,0) (40960,0) (0,0)]} 33{5[(20480,20480) (40960,20480)]}"},
      {"m5 5 l5 0", "0: 5[(20480,20480) (40960,20480)]"},
      {"M1 1 H5 V9 h-2 v-3",
       "0: 8[(4096,4096) (20480,4096) (20480,36864) (12288,36864) (12288,24576)]"},
  };
  for (const TextRow& row : rows) EXPECT_EQ(pathText(row.d), row.expected) << row.d;
}

TEST(PathObjects, NothingToDrawIsNoObject) {
  for (const char* d : {"", "M5 5", "M5 5 Z"}) {
    EXPECT_TRUE(DrawnPage(svgOf(d)).objects().empty()) << d;
  }
  EXPECT_TRUE(DrawnPage(svgOf("M0 0L9 9", "visibility=\"hidden\"")).objects().empty());
}

TEST(PathObjects, NestedKindsTellWhichSubPathCloses) {
  const DrawnPage page(svgOf("M0 0 L10 0 z m5 5 l5 0"));
  auto* path = page.only<EgfPath>(kClassPath);
  ASSERT_NE(path, nullptr);
  const auto parts = DrawnPage::children(&path->head);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(+as<EgfPath>(parts[0])->pathKind, kPathClosedFigure);
  EXPECT_EQ(+as<EgfPath>(parts[1])->pathKind, 0U);
}

TEST(PathObjects, QuadraticsAreRaised) {
  // Control (20,10), from (0,0) to (30,0). As told: one third from the control to the end, then
  // the control. With true curves: two thirds to the control, then a third on to the end.
  EXPECT_EQ(pathText("M0 0 Q20 10 30 0"), "0: 9[(0,0) (95573,27307) (81920,40960) (122880,0)]");
  setSetting(Setting::kTrueCurves, 1);
  EXPECT_EQ(pathText("M0 0 Q20 10 30 0"), "0: 9[(0,0) (54613,27307) (95573,27307) (122880,0)]");
}

TEST(PathObjects, ASmoothQuadraticReflectsTheOriginAfterOtherCommands) {
  setSetting(Setting::kTrueCurves, 1);
  // From (10,10): the control is (20,20); two thirds of the way there, then a third on to (30,10).
  EXPECT_EQ(pathText("M10 10 T30 10"),
            "0: 9[(40960,40960) (68267,68267) (95573,68267) (122880,40960)]");
}

struct ArcRow {
  const char* d;
  double cx, cy, rx, ry;  // space units
  std::int32_t start, end;
  int flags;
};

TEST(PathObjects, UprightArcsStayArcs) {
  const ArcRow rows[] = {
      {"M10 0 A10 10 0 0 0 0 10", 40960, 40960, 40960, 40960, 90000000, 180000000, 0x01},
      {"M20 10 A10 10 0 0 1 10 20", 40960, 40960, 40960, 40960, 270000000, 360000000, 0x05},
      {"M0 0 A20 10 0 0 0 30 10", 81116.547, 5722.5894, 81920, 40960, 175964598, 319844403, 0x01},
  };
  for (const ArcRow& row : rows) {
    const DrawnPage page(svgOf(row.d));
    auto* path = page.only<EgfPath>(kClassPath);
    ASSERT_NE(path, nullptr) << row.d;
    const auto parts = DrawnPage::children(&path->head);
    ASSERT_EQ(parts.size(), 1U) << row.d;
    ASSERT_EQ(static_cast<int>(parts[0]->layoutClass), kClassArc) << row.d;
    const auto* arc = as<EgfArc>(parts[0]);
    const _mpl_spacept_tag center = arc->center;
    const _mpl_spacept_tag radii = arc->radiusPt;
    EXPECT_NEAR(center.x, row.cx, 0.02) << row.d;
    EXPECT_NEAR(center.y, row.cy, 0.02) << row.d;
    EXPECT_NEAR(radii.x, row.rx, 0.02) << row.d;
    EXPECT_NEAR(radii.y, row.ry, 0.02) << row.d;
    EXPECT_NEAR(+arc->startAngle, row.start, 2) << row.d;
    EXPECT_NEAR(+arc->endAngle, row.end, 2) << row.d;
    EXPECT_EQ(static_cast<int>(arc->pen.arcFlags), row.flags) << row.d;
  }
}

/// The path data of an arc about (110,110), by its host angles.
std::string arcData(double rx, double ry, double start, double end, bool clockwise) {
  const auto at = [&](double degrees) {
    const double t = degrees * std::numbers::pi / 180.0;
    char text[64];
    std::snprintf(text, sizeof text, "%.6f,%.6f", 110.0 + rx * std::cos(t),
                  110.0 - ry * std::sin(t));
    return std::string(text);
  };
  const std::string radii = std::to_string(rx) + "," + std::to_string(ry);
  return "M" + at(clockwise ? end : start) + " A" + radii + " 0 " +
         (end - start > 180.0 ? "1 " : "0 ") + (clockwise ? "1 " : "0 ") +
         at(clockwise ? start : end);
}

/// "4[10.9-190.1 0x01]" for each arc child, in tenths of a degree; else the class alone.
std::string arcText(const std::string& d) {
  const DrawnPage page(svgOf(d));
  auto* path = page.only<EgfPath>(kClassPath);
  if (path == nullptr) return "";
  std::string text;
  for (_egf_obj* child : DrawnPage::children(&path->head)) {
    char part[64];
    std::snprintf(part, sizeof part, "%d", child->layoutClass);
    if (child->layoutClass == kClassArc) {
      const auto* arc = as<EgfArc>(child);
      std::snprintf(part, sizeof part, "4[%.1f-%.1f 0x%02x]", arc->startAngle / 1e6,
                    arc->endAngle / 1e6, static_cast<unsigned>(arc->pen.arcFlags));
    }
    text += (text.empty() ? "" : " ") + std::string(part);
  }
  return text;
}

// Whole degrees tell the large flag when an arc is written: those that would come back as another
// arc are cut in half, or become curves.
TEST(PathObjects, ArcsKeepTheirFlagsInWholeDegrees) {
  struct Row {
    double rx, ry, start, end;
    bool clockwise;
    const char* children;
  };
  const Row rows[] = {{100, 100, 10.9, 190.1, false, "4[10.9-100.5 0x01] 4[100.5-190.1 0x01]"},
                      {100, 100, 10.9, 190.1, true, "4[100.5-190.1 0x05] 4[10.9-100.5 0x05]"},
                      {100, 100, 10.1, 189.9, false, "4[10.1-189.9 0x01]"},
                      {100, 100, 10.9, 190.9, false, "4[10.9-190.9 0x01]"},
                      {100, 100, 10.1, 190.8, true, "4[10.1-190.8 0x05]"},
                      {100, 100, 10.9, 12.1, false, "4[10.9-12.1 0x01]"},
                      {100, 100, 10.1, 10.9, false, "9"},
                      {100, 10, 0.5, 3.0, true, "9"},  // polar angles of 0.05 and 0.3
                      {100, 10, 8.0, 12.0, true, "4[0.8-1.2 0x05]"}};  // across a whole degree
  for (const Row& row : rows) {
    const std::string d = arcData(row.rx, row.ry, row.start, row.end, row.clockwise);
    EXPECT_EQ(arcText(d), row.children) << d;
  }
}

TEST(PathObjects, TurnedArcsBecomeCurves) {
  struct CountRow {
    const char* d;
    int points;
  };
  const CountRow rows[] = {{"M10 0 A10 10 0 0 0 0 10", 4},
                           {"M0 0 A10 10 0 0 0 20 0", 13},
                           {"M10 0 A10 10 0 1 0 0 10", 19}};
  for (const CountRow& row : rows) {
    const DrawnPage page(svgOf(row.d, "transform=\"rotate(30)\""));
    auto* path = page.only<EgfPath>(kClassPath);
    ASSERT_NE(path, nullptr) << row.d;
    const auto parts = DrawnPage::children(&path->head);
    ASSERT_EQ(parts.size(), 1U) << row.d;
    ASSERT_EQ(static_cast<int>(parts[0]->layoutClass), kClassPolygon) << row.d;
    const auto* curve = as<EgfPolygon>(parts[0]);
    EXPECT_EQ(+curve->pointCount, row.points) << row.d;
    EXPECT_EQ(static_cast<int>(curve->pen.modeFlags), 8) << row.d;
  }
}

TEST(PathObjects, TheWholeFigureIsPainted) {
  const DrawnPage page(svgOf("M0 0 L10 0 L10 10 Z"));
  auto* path = page.only<EgfPath>(kClassPath);
  ASSERT_NE(path, nullptr);
  const auto pen = page.style<_egf_gdi_fillparms_tag>(kStylePen, path->gdiFillStyleNo);
  EXPECT_EQ(static_cast<int>(pen.fillStyle), kFillOpaque);
  EXPECT_EQ(static_cast<int>(pen.modeFlags), 0x02);
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, path->fillParmsNo);
  EXPECT_EQ(static_cast<int>(parms.strokeAlpha), 0);

  const DrawnPage open(svgOf("M0 0 L10 0 L10 10", "stroke=\"red\" stroke-linecap=\"square\""));
  path = open.only<EgfPath>(kClassPath);
  ASSERT_NE(path, nullptr);
  const auto caps = open.style<_egf_gdiplus_fillparms_tag>(kStyleFill, path->fillParmsNo);
  EXPECT_EQ(static_cast<int>(caps.startCap), kCapSquare);
  EXPECT_EQ(static_cast<int>(caps.endCap), kCapSquare);
}

/// A path element filled from its text, for the formatter that hotspots use.
EgfPolygon* flattened(CAdapterReader& adapter, const char* d, int pathFlag = 0) {
  CHandlerReader reader;
  _svg_path path;
  initPath(&path);
  path.pathFlag = pathFlag;
  path.head.type = kTagPath;
  reader.SetPathAtt(&path, d);
  auto* object = adapter.SVG_formatEGFPath(&path);
  svg_DestroyObjectAtt(&path, kTagPath);
  return as<EgfPolygon>(object);
}

TEST(FlatPaths, BecomeOnePolygon) {
  struct FlatRow {
    const char* d;
    int points;
    int subPaths;
  };
  const FlatRow rows[] = {{"M10 0 A10 10 0 0 0 0 10", 62, 1},
                          {"M0 0 L10 0 L10 10 Z", 4, 1},
                          {"M0 0 L10 0 L0 0 Z", 3, 1},
                          {"M0 0 L10 0 L10 10 M20 20 L30 30", 5, 2},
                          {"M0 0 A5 5 0 0 0 0 0", 1, 1}};
  CAdapterReader adapter;
  for (const FlatRow& row : rows) {
    EgfPolygon* polygon = flattened(adapter, row.d);
    ASSERT_NE(polygon, nullptr) << row.d;
    EXPECT_EQ(+polygon->pointCount, row.points) << row.d;
    EXPECT_EQ(static_cast<bool>(polygon->subPathSizes), row.subPaths > 1) << row.d;
    EXPECT_EQ(+polygon->subPathCount, static_cast<std::uint32_t>(row.subPaths)) << row.d;
    EXPECT_EQ(polygon->pen.modeFlags & 6, 2) << row.d;
    EEL_DestroyObject(&polygon->head);
  }
}

// A sub-path that a move opened within another one is closed too, when the path has a parent.
TEST(FlatPaths, SizesOfSubPaths) {
  struct SizeRow {
    const char* d;
    int pathFlag;
    std::vector<int> sizes;
  };
  const SizeRow rows[] = {{"M0 0 L9 0 L9 9 M1 1 L5 1 L5 5", 0, {3, 3}},
                          {"M0 0 L9 0 L9 9 M1 1 L5 1 L5 5", 1, {3, 4}},
                          {"M0 0 L9 0 L9 9 M1 1 L5 1 L1 1", 1, {3, 3}},
                          {"M0 0 L9 0 L9 9 Z M1 1 L5 1 L5 5", 1, {4, 3}},
                          {"M0 0 L9 0 M1 1 M2 2 L5 5", 1, {2, 1, 3}}};
  CAdapterReader adapter;
  for (const SizeRow& row : rows) {
    EgfPolygon* polygon = flattened(adapter, row.d, row.pathFlag);
    ASSERT_NE(polygon, nullptr) << row.d;
    std::vector<int> sizes;
    for (std::uint32_t i = 0; i < polygon->subPathCount; ++i) {
      sizes.push_back(polygon->subPathSizes[i]);
    }
    EXPECT_EQ(sizes, row.sizes) << row.d << " " << row.pathFlag;
    EEL_DestroyObject(&polygon->head);
  }
}

TEST(FlatPaths, ASweepIsDrawnTheOtherWay) {
  CAdapterReader adapter;
  EgfPolygon* polygon = flattened(adapter, "M20 10 A10 10 0 0 1 10 20");
  ASSERT_NE(polygon, nullptr);
  const _mpl_spacept_tag first = polygon->points[1];
  const _mpl_spacept_tag last = polygon->points[static_cast<std::size_t>(polygon->pointCount) - 1];
  EXPECT_NEAR(first.x, 81920, 1);  // the arc's list repeats its start
  EXPECT_NEAR(first.y, 40960, 1);
  EXPECT_NEAR(last.x, 40960, 1);
  EXPECT_NEAR(last.y, 81920, 1);
  EEL_DestroyObject(&polygon->head);
}

TEST(PathParts, ArcsByTheirCentre) {
  CAdapterReader adapter;
  CHandlerReader reader;
  _svg_path path;
  initPath(&path);
  ASSERT_EQ(reader.SetPathAtt(&path, "A5 5 0 0 0 20 0 a5 5 0 0 0 0 0"), 0);
  _mpl_spacept_tag center{};
  double rx = 0, ry = 0, start = 0, end = 0;
  EXPECT_EQ(
      adapter.ArcEndpointToCenter(&path.paths[0].data[0], 0, 0, &center, &rx, &ry, &start, &end, 0),
      0);
  EXPECT_NEAR(center.x, 40960, 0.01);
  EXPECT_NEAR(center.y, 0, 0.01);
  EXPECT_NEAR(rx, 40960, 0.01);
  EXPECT_EQ(
      adapter.ArcEndpointToCenter(&path.paths[0].data[1], 7, 7, &center, &rx, &ry, &start, &end, 1),
      -1);
  DestroyPathElements(&path);
}

TEST(PathParts, ScaledArcsKeepTheirQuadrant) {
  CAdapterReader adapter;
  double start = 225, end = 315, rx = 10, ry = 10;
  adapter._scaleEllipseArc(&start, &end, &rx, &ry, 2.0, 1.0);
  EXPECT_NEAR(start, 206.5651, 1e-4);
  EXPECT_NEAR(end, 333.4349, 1e-4);
  EXPECT_EQ(rx, 20.0);
  EXPECT_EQ(ry, 10.0);
}

}  // namespace
}  // namespace egfsvg
