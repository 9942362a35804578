// The converters by themselves: code tables, measures, opacities, types, pools.

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "adapter_writer/style_pools.h"
#include "embedded_host/host_memory.h"
#include "frame/result_codes.h"
#include "host/egf_templates.h"
#include "model/lifecycle.h"
#include "model/path_commands.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr _sel_RGB_type kRed = colourOf(0xff0000);
constexpr _sel_RGB_type kBlue = colourOf(0x0000ff);

TEST(WriterCodeTables, Joins) {
  CAdapterWriter writer;
  for (const auto& [from, to] :
       {std::pair{0, 2}, {11, 3}, {10, 1}, {13, 1}, {3, 1}, {1, 1}, {255, 1}}) {
    EXPECT_EQ(writer._setSvgLineJoin(from), to) << from;
  }
}

TEST(WriterCodeTables, Caps) {
  CAdapterWriter writer;
  for (const auto& [from, to] : {std::pair{0, 2}, {1, 3}, {2, 1}, {3, 1}, {10, 1}}) {
    EXPECT_EQ(writer._setSvgLineCap(from), to) << from;
  }
}

TEST(WriterCodeTables, FillModesAndSpreads) {
  CAdapterWriter writer;
  for (const auto& [from, to] : {std::pair{0, 1}, {1, 2}, {2, 1}})
    EXPECT_EQ(writer._setFillMode(from), to) << from;
  for (const auto& [from, to] : {std::pair{0, 3}, {1, 2}, {2, 3}, {4, 3}}) {
    EXPECT_EQ(writer._setSpreadMethod(static_cast<_egf_wrapmode_tag>(from)), to) << from;
  }
}

TEST(WriterCodeTables, JoinsWithParameters) {
  CAdapterWriter writer;
  _egf_gdiplus_fillparms_tag fill = kFillParms;
  fill.miterLimit = 7.9F;
  _egf_gdiplus_stroke_parms_tag line = kStrokeParms;
  line.miterLimit = 8.9F;
  struct JoinRow {
    int join;
    int areaCode, areaLimit;
    int lineCode, lineLimit;
  };
  for (const JoinRow& row : {JoinRow{0, 2, 4, 2, 4},
                             {11, 3, 4, 3, 4},
                             {10, 1, 7, 1, 8},
                             {13, 1, 7, 1, 8},
                             {3, 1, 7, -1, 4}}) {
    _svg_pa_stroke stroke;
    initStroke(&stroke);
    writer._setSvgLineJoin(stroke, row.join, &fill);
    EXPECT_EQ(stroke.strokeLinejoin, row.areaCode) << row.join;
    EXPECT_EQ(stroke.strokeMiterlimit, row.areaLimit) << row.join;
    initStroke(&stroke);
    writer._setSvgLineJoin(stroke, row.join, &line);
    EXPECT_EQ(stroke.strokeLinejoin, row.lineCode) << row.join;
    EXPECT_EQ(stroke.strokeMiterlimit, row.lineLimit) << row.join;
  }
}

TEST(WriterPaints, FillOpacityByStyle) {
  CAdapterWriter writer;
  _egf_gdiplus_fillparms_tag parms = kFillParms;
  parms.fillAlpha = 51;
  for (int style = 0; style <= 10; ++style) {
    const bool full = style == 1 || style == 2 || style == 9 || style == 10;
    const bool partial = style == 3;
    _svg_pa_fill fill;
    _svg_pa_stroke stroke;
    initFill(&fill);
    initStroke(&stroke);
    writer._setObjFillAndStroke(fill, stroke, nullptr, style, kRed, kBlue);
    EXPECT_EQ(fill.fillOpacity, full ? 1.0 : partial ? 0.5 : 0.0) << style;
    EXPECT_EQ(fill.packedColor, style >= 9 ? -1 : 0xff0000) << style;
    writer._setStyleFillAndStroke(fill, stroke, style, kRed, kBlue);
    EXPECT_EQ(fill.fillOpacity, full ? 1.0 : partial ? 0.5 : 0.0) << style;
    EXPECT_EQ(stroke.strokeOpacity, 1.0) << style;
    EXPECT_EQ(stroke.packedColor, 0x0000ff) << style;
    writer._setObjFillAndStroke(fill, stroke, &parms, style, kRed, kBlue);
    EXPECT_EQ(fill.fillOpacity, full || partial ? 51 / 255.0 : 0.0) << style;
  }
}

struct StrokeRow {
  const char* name;
  std::optional<int> alpha;
  int rasterOp;
  int gradient;
  std::int32_t colour;
  std::int32_t arcColour;
  double opacity;
};

TEST(WriterPaints, StrokesOfLinesAndArcs) {
  const StrokeRow rows[] = {
      {"plain", {}, 0, 0, -1, 0x0000ff, 1.0},
      {"see-through", {}, 1, 0, -1, 0x0000ff, 0.5},
      {"raster code 7", {}, 7, 0, -1, 0x0000ff, 1.0},
      {"alpha 255", 255, 1, 0, -1, 0x0000ff, 1.0},
      {"alpha 51", 51, 1, 0, -1, 0x0000ff, 51 / 255.0},
      {"alpha 0", 0, 0, 0, 0x0000ff, 0x0000ff, 0.0},
      {"gradient", 255, 0, 7, -2, -2, 1.0},
      {"gradient without alpha", 0, 0, 7, -2, -2, 0.0},
  };
  for (const StrokeRow& row : rows) {
    CAdapterWriter writer;
    _egf_gdiplus_stroke_parms_tag parms = kStrokeParms;
    _egf_gdiplus_arcparms_tag arcParms{};
    parms.strokeAlpha = arcParms.strokeAlpha = static_cast<std::uint8_t>(row.alpha.value_or(0));
    _svg_pa_stroke stroke;
    initStroke(&stroke);
    writer._setObjStroke(stroke, row.alpha ? &parms : nullptr, row.rasterOp, kBlue, row.gradient);
    EXPECT_EQ(stroke.packedColor, row.colour) << row.name;
    EXPECT_EQ(stroke.strokeOpacity, row.opacity) << row.name;
    EXPECT_STREQ(stroke.strokeUrl, row.gradient != 0 ? "7" : nullptr) << row.name;
    DestroyStrokeElements(&stroke);
    initStroke(&stroke);
    writer._setArcObjStroke(stroke, row.alpha ? &arcParms : nullptr, row.rasterOp, kBlue,
                            row.gradient);
    EXPECT_EQ(stroke.packedColor, row.arcColour) << row.name;
    EXPECT_EQ(stroke.strokeOpacity, row.opacity) << row.name;
    DestroyStrokeElements(&stroke);
  }
}

TEST(WriterMeasures, UnitsInDevicePixels) {
  CAdapterWriter writer;
  struct UnitRow {
    std::uint32_t unit;
    double value, expected;
  };
  // At 254 pixels in an inch: 100 in a centimetre.
  for (const UnitRow& row : {UnitRow{0, 3, 3},
                             {1, 2, 508},
                             {2, 2, 200},
                             {3, 2, 20},
                             {4, 2, 20000},
                             {5, 2, 6096},
                             {6, 72, 254},
                             {7, 1440, 254},
                             {8, 3, 3},
                             {13, 3, 3},
                             {14, 254, 200},
                             {15, 3, 3},
                             {999, 3, 3}}) {
    EXPECT_NEAR(writer.QVUnitToSVG(row.unit, row.value, 254.0), row.expected, 1e-9) << row.unit;
  }
}

TEST(WriterMeasures, WidthsTakeTheMeanOfBothScales) {
  DrawingWriter drawing(200.0, 100.0);
  OpenWriter writer(drawing.stream(), drawing.document());
  writer->xFactor = 200.0;
  writer->yFactor = 100.0;
  _svg_pa_stroke stroke;
  initStroke(&stroke);
  writer->_setStrokeWidth(stroke, {kMeasureInch, 0.5});
  EXPECT_EQ(stroke.strokeWidth.unit, kUnitPixel);
  EXPECT_NEAR(stroke.strokeWidth.value, 0.5 * 200 * 0.72, 1e-9);
  writer->_setStrokeWidth(stroke, {kMeasureInch, 0.0});
  EXPECT_NEAR(stroke.strokeWidth.value, 0.0001 * 0.72, 1e-12);
}

TEST(WriterMeasures, DashesAreBounded) {
  DrawingWriter drawing;
  std::vector<double> segments(41, 2.0);
  const std::uint32_t style = drawing.tree.dash(segments);
  drawing.tree.pageHeader()->firstDash->segmentCount = 255;
  OpenWriter writer(drawing.stream(), drawing.document());
  writer->styleTreeHead = drawing.tree.pageHeader();
  _svg_pa_stroke stroke;
  initStroke(&stroke);
  writer->_setStrokeDashArray(stroke, style);
  EXPECT_EQ(stroke.strokeDashCount, 41);
  EXPECT_EQ(stroke.strokeDashArray[1].value, -2.0);
  DestroyStrokeElements(&stroke);
}

TEST(WriterMeasures, OutsideOfAPolyline) {
  CAdapterWriter writer;
  const OwnedObject object(polyline({{-3, 4}, {5, -6}}));
  _mpl_spacerect_tag bounds{0, 1, 0, 1};
  writer.PolylineOutsideMer(object.get(), &bounds);
  EXPECT_EQ(bounds.left, -3.0F);
  EXPECT_EQ(bounds.right, 5.0F);
  EXPECT_EQ(bounds.top, -6.0F);
  EXPECT_EQ(bounds.bottom, 4.0F);
}

TEST(WriterTypes, OfObjects) {
  CAdapterWriter writer;
  struct TypeRow {
    const char* name;
    _egf_obj* (*make)();
    int type;
  };
  const TypeRow rows[] = {
      {"group", [] { return group({}); }, 0},
      {"line",
       [] {
         return line({0, 0}, {1, 1});
       },
       0},
      {"path", [] { return path({}); }, 0},
      {"circle", [] { return ellipse(0, 0, 5, 5); }, 7},
      {"ellipse", [] { return ellipse(0, 0, 5, 6); }, 8},
      {"half ellipse", [] { return ellipse(0, 0, 5, 5, {}, 0, 0, 180); }, 5},
      {"turned start", [] { return ellipse(0, 0, 5, 5, {}, 0, 1, 361); }, 5},
      {"box", [] { return box(0, 0, 1, 1); }, 6},
      {"open box", [] { return box(0, 0, 1, 1, {.closed = false}); }, 10},
      {"polygon",
       [] {
         return polygon({{0, 0}, {1, 0}, {1, 1}});
       },
       11},
      {"one subpath",
       [] {
         return polyPath({{{0, 0}, {1, 0}, {1, 1}}});
       },
       11},
      {"two subpaths",
       [] {
         return polyPath({{{0, 0}, {1, 0}}, {{1, 1}, {2, 2}}});
       },
       5},
      {"box without points",
       [] {
         return edit<EgfPolygon>(polygon({}), [](EgfPolygon& r) {
           r.head.objClass = kClassBox;
           r.pointCount = 4;
         });
       },
       11},
  };
  EXPECT_EQ(writer._getSvgObjType(nullptr), 0);
  for (const TypeRow& row : rows) {
    const OwnedObject object(row.make());
    EXPECT_EQ(writer._getSvgObjType(object.get()), row.type) << row.name;
  }
}

TEST(WriterPools, HoldBytesOfTheirSize) {
  DrawingWriter drawing;
  drawing.tree.add(line({0, 0}, {9, 9}, {.width = 2.0, .stroke = 0x0000ff}));
  drawing.tree.add(ellipse(5, 5, 3, 4, {.width = 2.0}, 30.0));
  OpenWriter writer(drawing.stream(), drawing.document());
  ASSERT_EQ(writer.write(drawing.tree.handle()), kOk);
  std::uint32_t size = 0;
  void* record = nullptr;
  ASSERT_EQ(STYLE_QueryData(poolTable(*writer, kStrokePool), 1, &size, &record), 0);
  EXPECT_EQ(size, 36U);
  EXPECT_EQ(readPacked<std::uint8_t>(record, 22), 3);
  EXPECT_EQ(readPacked<std::uint8_t>(record, 23), 0xff);  // the line's own word goes on
  EXPECT_EQ(readPacked<double>(record, 24), 1.0);
  EXPECT_EQ(readPacked<std::uint32_t>(record, 32), 0U);  // behind the 32 bytes of a line's pen
  ASSERT_EQ(STYLE_QueryData(poolTable(*writer, kFillPool), 1, &size, &record), 0);
  EXPECT_EQ(size, 52U);
  EXPECT_EQ(readPacked<std::int32_t>(record, 44), 30000000);
  for (int slot = 0; slot < 4; ++slot)
    EXPECT_EQ(STYLE_QueryTotalStyleCount(writer->styleSet->slots[slot]), 0U) << slot;
}

TEST(WriterPools, GradientRecordsAreWhole) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  const _mpl_spacept_tag points[] = {spacePoint({1, 2}), spacePoint({3, 4})};
  EXPECT_EQ(writer->STYLE_GradParmsAppendUnique(&kFillParms, 0, points, 2), 0);
  EXPECT_EQ(writer->STYLE_GradParmsAppendUnique(
                static_cast<const _egf_gdiplus_fillparms_tag*>(nullptr), 5, points, 2),
            -1);
  ASSERT_EQ(writer->STYLE_GradParmsAppendUnique(&kFillParms, 5, points, 2), 1);
  std::uint32_t size = 0;
  void* record = nullptr;
  ASSERT_EQ(STYLE_QueryData(writer->gradientTable, 1, &size, &record), 0);
  ASSERT_EQ(size, 88U);
  const auto parms = readPacked<awriter::_svg_gradient_parms>(record);
  EXPECT_EQ(parms.spreadMethod, 3);
  EXPECT_EQ(parms.gradientUnits, 1);
  EXPECT_EQ(parms.gradientNo, 5);
  EXPECT_EQ(parms.type, 30);
  EXPECT_EQ((std::array{parms.x1, parms.x2, parms.y1, parms.y2, parms.fx, parms.fy}),
            (std::array{1.0, 3.0, 2.0, 4.0, 0.0, 0.0}));
}

TEST(WriterPaths, MoveToDropsNearPoints) {
  CAdapterWriter writer;
  _svg_singlepath* paths = nullptr;
  _svg_singlepath* sub = nullptr;
  int count = 0;
  ASSERT_EQ(writer._createSubPath(&paths, &sub, &count), 0);
  EXPECT_EQ(count, 1);
  _svg_point current{}, start{};
  const auto moveTo = [&](double x, double y) {
    const _svg_point target{pixels(x), pixels(y)};
    EXPECT_EQ(writer._moveTo(&current, &start, &target, sub), 0);
  };
  moveTo(0.001, 0.001);
  moveTo(0.006, 0.001);
  ASSERT_EQ(sub->dataCount, 1);
  EXPECT_EQ(sub->data[0].command, kPathMoveAbs);
  EXPECT_EQ(start.x.value, 0.001);
  moveTo(0.0061, 0.001);
  moveTo(0.0061, 0.0062);
  ASSERT_EQ(sub->dataCount, 3);
  EXPECT_EQ(sub->data[2].command, kPathLineAbs);
  EXPECT_EQ(sub->data[2].arg1.value, 0.0062);
  EXPECT_EQ(current.x.value, 0.0061);
  ASSERT_EQ(writer._createSubPath(&paths, &sub, &count), 0);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(sub, paths + 1);
  RMM_Free(paths[0].data);
  RMM_Free(paths);
}

TEST(WriterPaths, MissingPensAndPathsHaveCodes) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  _svg_path record{};
  const OwnedObject lost(path({line({0, 0}, {9, 9})}, {.gdiFillStyleNo = 9}));
  EXPECT_EQ(writer->SetSVGPathForPath(lost.get(), &record), kMissingField);
  EXPECT_EQ(record.paths, nullptr);
  const OwnedObject empty(path({}));
  EXPECT_EQ(writer->SetSVGPathForPath(empty.get(), &record), kOk);
  EXPECT_EQ(record.paths, nullptr);
}

/// The box behind a text: a group that stays open, and a white polygon.
Lines eraseLines(std::uint8_t textFlags) {
  DrawingWriter drawing(48.0);
  _egf_obj* object = drawing.tree.add(edit<EgfTextObject>(text({0, 0}, "x"), [&](EgfTextObject& r) {
    r.text.bounds = spaceRect(1, 2, 3, 4);
    r.parms.textFlags = textFlags;
  }));
  OpenWriter writer(drawing.stream(), drawing.document());
  writer->xFactor = writer->yFactor = 48.0;
  _adapterWriteData data = writer.request(drawing.tree.handle());
  EXPECT_EQ(writer->EraseRect(object, &data), 0);
  return drawing.lines;
}

TEST(WriterTexts, HaveABoxBehindThem) {
  const std::string points =
      R"~(   <polygon points="2.000,4.000 6.000,4.000 6.000,8.000 2.000,8.000 " )~";
  EXPECT_EQ(eraseLines(0x20),
            (Lines{"  <g  >",
                   points + R"~(fill="#ffffff" stroke="#ffffff" stroke-width="2.000000" />)~"}));
  EXPECT_EQ(eraseLines(0x60), (Lines{"  <g  >", points + R"~(fill="none" stroke="none" />)~"}));
}

}  // namespace
}  // namespace egfsvg
