// Element lines, byte for byte.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

#include "embedded_host/host_faults.h"
#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "model/path_commands.h"
#include "tests/support/writer_harness.h"

namespace egfsvg {
namespace {

using test::WriterHarness;

template <class Record>
struct Row {
  std::function<void(Record&)> set;
  const char* expected;
};

template <class Record>
void expectLines(std::int32_t type, void (*init)(Record*),
                 std::initializer_list<Row<Record>> rows) {
  int number = 0;
  for (const Row<Record>& row : rows) {
    Record record;
    init(&record);
    row.set(record);
    WriterHarness harness;
    EXPECT_EQ(harness.write(type, record), 0);
    EXPECT_EQ(harness.text(), row.expected) << "row " << number;
    ++number;
  }
}

char* text(const char* literal) { return const_cast<char*>(literal); }

TEST(ElementLines, Rect) {
  expectLines<_svg_rect>(
      kTagRect, initRect,
      {{[](auto&) {}, R"~(   <rect x="0" y="0" width="0" height="0" stroke="#ffffff"  />)~"},
       {[](auto& r) { r.fill.packedColor = 0x0000ff; },
        R"~(   <rect x="0" y="0" width="0" height="0" fill="#0000ff" stroke="#ffffff"  />)~"},
       {[](auto& r) {
          r.fill.packedColor = 0xabcdef;
          r.stroke.packedColor = -1;
        },
        R"~(   <rect x="0" y="0" width="0" height="0" fill="#abcdef"  />)~"},
       {[](auto& r) {
          r.fill.packedColor = -1;
          r.fill.fillUrl = text("7");
          r.stroke.packedColor = -1;
        },
        R"~(   <rect x="0" y="0" width="0" height="0"  />)~"},
       {[](auto& r) {
          r.fill.packedColor = -2;
          r.fill.fillUrl = text("7");
          r.stroke.packedColor = -2;
          r.stroke.strokeUrl = text("8");
        },
        R"~(   <rect x="0" y="0" width="0" height="0" fill="url(#grad7)" stroke="url(#grad8)"  />)~"},
       {[](auto& r) {
          r.fill.packedColor = 0x112233;
          r.fill.fillUrl = text("7");
          r.stroke.packedColor = -1;
        },
        R"~(   <rect x="0" y="0" width="0" height="0" fill="#112233" fill="url(#grad7)"  />)~"},
       {[](auto& r) {
          r.graphics.opacity = 0.25;
          r.fill.packedColor = 0xff;
          r.stroke.packedColor = -1;
        },
        R"~(   <rect x="0" y="0" width="0" height="0" fill="#0000ff" opacity="0.25"  />)~"},
       {[](auto& r) {
          r.stroke.packedColor = 0x00ff00;
          r.stroke.strokeOpacity = 0.333;
        },
        R"~(   <rect x="0" y="0" width="0" height="0" stroke="#00ff00" stroke-opacity="0.33"  />)~"},
       {[](auto& r) {
          r.stroke.packedColor = 0x00ff00;
          r.stroke.strokeOpacity = 1.5;
        },
        R"~(   <rect x="0" y="0" width="0" height="0" stroke="#00ff00" stroke-opacity="1.50"  />)~"},
       {[](auto& r) {
          r.stroke.packedColor = -1;
          r.x.value = 1.9;
          r.y.value = -1.9;
          r.width.value = 1e99;
        },
        R"~(   <rect x="1" y="-1" width="2147483647" height="0"  />)~"},
       {[](auto& r) {
          r.stroke.packedColor = -1;
          r.x.value = std::nan("");
          r.y.value = -std::numeric_limits<double>::infinity();
        },
        R"~(   <rect x="-2147483648" y="-2147483648" width="0" height="0"  />)~"}});
}

TEST(ElementLines, NumbersThatAreNone) {
  const double infinity = std::numeric_limits<double>::infinity();
  expectLines<_svg_line>(kTagLine, initLine,
                         {{[&](auto& l) {
                             l.stroke.packedColor = -1;
                             l.x1.value = std::nan("");
                             l.y1.value = -std::nan("");
                             l.x2.value = infinity;
                             l.y2.value = -infinity;
                           },
                           R"~(   <line x1="nan"  y1="-nan" x2="inf" y2="-inf" />)~"}});
}

/// With an allocation failing, once or from then on, a line comes whole or not at all.
template <class Write>
void expectWholeLines(Write&& write) {
  WriterHarness reference;
  ASSERT_EQ(write(reference), kOk);
  for (const auto span : {egfhost::FaultSpan::kOnce, egfhost::FaultSpan::kForEver}) {
    std::uint64_t struck = 1;
    for (std::uint64_t n = 1; struck != 0; ++n) {
      WriterHarness harness;
      ASSERT_TRUE(egfhost::failAllocation(n, span));
      const int result = write(harness);
      struck = egfhost::faultsStruck();
      egfhost::clearFaults();
      EXPECT_EQ(result, struck == 0 ? kOk : kLineNotWritten) << n;
      if (struck != 0) {
        EXPECT_EQ(harness.text(), "") << n;
      } else {
        EXPECT_EQ(harness.text(), reference.text());
        EXPECT_LT(1U, n);
      }
    }
  }
}

TEST(ElementLines, NothingIsWrittenWithoutMemory) {
  expectWholeLines([](WriterHarness& harness) {
    _svg_rect rect;
    initRect(&rect);
    rect.head.styleRef = text("12");
    rect.fill.packedColor = 0xff;
    return harness.write(kTagRect, rect);
  });
  expectWholeLines([](WriterHarness& harness) {
    _svg_group group;
    initGroupObj(&group);
    return harness.write(kTagGroup, group);
  });
  expectWholeLines([](WriterHarness& harness) {
    _svg_text record;
    initText(&record);
    return harness.write(kTagText, record);
  });
  for (const std::int32_t type : {17, 37}) {
    expectWholeLines([&](WriterHarness& harness) {
      _svg_style_props style;
      initStyleProps(&style);
      style.selector = text("st1");
      return harness.write(type, style);
    });
  }
}

TEST(ElementLines, JoinsAndMiterLimits) {
  struct JoinRow {
    std::int32_t join, limit;
    const char* expected;
  };
  const JoinRow rows[] = {{3, 4, R"~(stroke-linejoin="bevel" )~"},
                          {2, 4, R"~(stroke-linejoin="round" )~"},
                          {1, 9, R"~(stroke-linejoin="miter" stroke-miterlimit="9" )~"},
                          {1, 4, ""},
                          {-1, 9, ""}};
  for (const JoinRow& row : rows) {
    _svg_rect rect;
    initRect(&rect);
    rect.stroke.packedColor = -1;
    rect.stroke.strokeLinejoin = row.join;
    rect.stroke.strokeMiterlimit = row.limit;
    WriterHarness harness;
    EXPECT_EQ(harness.write(kTagRect, rect), 0);
    EXPECT_EQ(harness.text(), R"~(   <rect x="0" y="0" width="0" height="0" )~" +
                                  std::string(row.expected) + " />");
  }
}

TEST(ElementLines, ClassAndReference) {
  ClassName names[1] = {"a"};
  _svg_rect rect;
  initRect(&rect);
  rect.head.classNames = names;
  rect.head.classCount = 1;
  rect.head.styleRef = text("12");
  rect.stroke.packedColor = -1;
  rect.fill.packedColor = 0xff;
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagRect, rect), 0);
  EXPECT_EQ(
      harness.text(),
      R"~(   <rect class="a" x="0" y="0" width="0" height="0" style="&st12;" fill="#0000ff"  />)~");
}

TEST(ElementLines, WidthsAndDashes) {
  struct WidthRow {
    double width;
    const char* expected;
  };
  const WidthRow rows[] = {{1.0, ""},
                           {1.000001, R"~(stroke-width="1.000001" )~"},
                           {0.0, R"~(stroke-width="0.000000e+00" )~"},
                           {-1.0, ""},
                           {2.5, R"~(stroke-width="2.500000" )~"}};
  for (const WidthRow& row : rows) {
    _svg_circle circle;
    initCircle(&circle);
    circle.stroke.packedColor = -1;
    circle.stroke.strokeWidth.value = row.width;
    WriterHarness harness;
    EXPECT_EQ(harness.write(kTagCircle, circle), 0);
    EXPECT_EQ(harness.text(), R"~(   <circle cx="0.000"  cy="0.000" r="0.000" )~" +
                                  std::string(row.expected) + " />");
  }
  _svg_value dashes[] = {pixels(4), pixels(2.5)};
  _svg_circle circle;
  initCircle(&circle);
  circle.stroke.packedColor = -1;
  circle.stroke.strokeDashArray = dashes;
  circle.stroke.strokeDashCount = 2;
  circle.fill.fillRule = 2;
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagCircle, circle), 0);
  EXPECT_EQ(harness.text(), R"~(   <circle cx="0.000"  cy="0.000" r="0.000" fill-rule="evenodd" )~"
                            R"~(stroke-dasharray="4.000000,2.500000"  />)~");
}

TEST(ElementLines, Line) {
  expectLines<_svg_line>(
      kTagLine, initLine,
      {{[](auto& l) {
          l.head.styleRef = text("7");
          l.stroke.packedColor = -1;
          l.stroke.strokeLinecap = 2;
        },
        R"~(   <line x1="0.00"  y1="0.00" x2="0.00" y2="0.00" style="&stroke_st7;" stroke-linecap="round" />)~"},
       {[](auto& l) {
          l.stroke.packedColor = 0;
          l.stroke.strokeLinecap = 3;
        },
        R"~(   <line x1="0.00"  y1="0.00" x2="0.00" y2="0.00" stroke="#000000" stroke-linecap="square" />)~"}});
}

TEST(ElementLines, EllipseTakesARotation) {
  _svg_value turn[] = {{kUnitDegree, -30.0, 0}, pixels(0), pixels(0)};
  transformEntry rotation{kRotate, turn, 3};
  _svg_value shift[] = {pixels(5), pixels(6)};
  transformEntry translation{kTranslate, shift, 2};
  for (transformEntry* entry : {&rotation, &translation}) {
    _svg_ellipse ellipse;
    initEllipse(&ellipse);
    ellipse.stroke.packedColor = -1;
    ellipse.cx.value = 1.0;
    ellipse.cy.value = 2.9;
    ellipse.rx.value = 3.0;
    ellipse.ry.value = 4.0;
    ellipse.head.transforms = entry;
    ellipse.head.transformCount = 1;
    WriterHarness harness;
    EXPECT_EQ(harness.write(kTagEllipse, ellipse), 0);
    EXPECT_EQ(
        harness.text(),
        entry == &rotation
            ? R"~(   <ellipse cx="1.000"  cy="2.900" rx="3.000" ry="4.000"   transform="rotate(-30.000000 1 2)"/>)~"
            : R"~(   <ellipse cx="1.000"  cy="2.900" rx="3.000" ry="4.000"  />)~");
  }
}

std::string pointLines(std::int32_t type, std::int32_t count) {
  std::vector<_svg_point> points;
  for (std::int32_t i = 0; i < count; ++i) points.push_back({pixels(i), pixels(i + 0.5)});
  _svg_polyline line;
  initPolyline(&line);
  line.stroke.packedColor = -1;
  points.push_back({});
  line.points = points.data();
  line.pointCount = count;
  WriterHarness harness;
  EXPECT_EQ(harness.write(type, line), 0);
  return harness.text();
}

TEST(ElementLines, PointsStandFiveInALine) {
  EXPECT_EQ(pointLines(kTagPolyline, 5),
            R"~(   <polyline points="0.0,0.5 1.0,1.5 2.0,2.5 3.0,3.5 4.0,4.5 |    " />)~");
  EXPECT_EQ(pointLines(kTagPolyline, 2), R"~(   <polyline points="0.0,0.5 1.0,1.5 " />)~");
  EXPECT_EQ(pointLines(kTagPolygon, 7),
            R"~(   <polygon points="0.00,0.50 1.00,1.50 2.00,2.50 3.00,3.50 4.00,4.50 |)~"
            R"~(    5.000,5.500 6.000,6.500 " />)~");
  EXPECT_EQ(pointLines(kTagPolygon, 0), R"~(   <polygon points="" />)~");
}

TEST(ElementLines, PointsWithAStyleReference) {
  const std::pair<std::int32_t, const char*> rows[] = {
      {kTagPolyline, R"~(   <polyline points="" style="&stroke_st7;" stroke-linecap="round" />)~"},
      {kTagPolygon, R"~(   <polygon points="" style="&st7;" />)~"}};
  for (const auto& [type, expected] : rows) {
    _svg_point none{};
    _svg_polyline line;
    initPolyline(&line);
    line.points = &none;
    line.head.styleRef = text("7");
    line.stroke.packedColor = -1;
    line.stroke.strokeLinecap = 2;
    WriterHarness harness;
    EXPECT_EQ(harness.write(type, line), 0);
    EXPECT_EQ(harness.text(), expected);
  }
}

TEST(ElementLines, NoPointArrayNoLine) {
  for (std::int32_t type : {kTagPolyline, kTagPolygon}) {
    _svg_polyline line;
    initPolyline(&line);
    WriterHarness harness;
    EXPECT_EQ(harness.write(type, line), 0);
    EXPECT_EQ(harness.text(), "");
  }
}

struct Segments {
  std::vector<_svg_path_data> data;
  void add(std::int32_t command, std::vector<double> args, int large = 0, int sweep = 0) {
    _svg_path_data d{};
    d.command = command;
    _svg_value* slots[] = {&d.arg0, &d.arg1, &d.arg2, &d.arg3, &d.arg4, &d.arg5};
    for (std::size_t i = 0; i < args.size(); ++i) slots[i]->value = args[i];
    d.arg4.axis = large;
    d.arg5.unit = sweep;
    data.push_back(d);
  }
  std::string written(int* result = nullptr) {
    _svg_singlepath sub{data.data(), static_cast<std::int32_t>(data.size()), 0, 0};
    _svg_path path;
    initPath(&path);
    path.fill.packedColor = path.stroke.packedColor = -1;
    path.paths = &sub;
    path.pathCount = 1;
    WriterHarness harness;
    const int code = harness.write(kTagPath, path);
    if (result != nullptr) *result = code;
    return harness.text();
  }
};

TEST(ElementLines, PathSegments) {
  Segments closed;
  closed.add(kPathMoveAbs, {1, 2});
  closed.add(kPathLineAbs, {3, 4});
  closed.add(kPathClose, {});
  EXPECT_EQ(closed.written(), R"~(   <path d="M1.00,2.00 L3.00,4.00 Z "  />)~");

  Segments arc;
  arc.add(kPathMoveAbs, {0, 0});
  arc.add(kPathArcRel, {1, -1, 0.5, 0.25, 30}, 1, 0);
  EXPECT_EQ(arc.written(),
            R"~(   <path d="M0.00,0.00 a0.500000,0.250000 30.0000 1,0 1.000000,-1.000000 "  />)~");

  Segments silent;
  for (std::int32_t command : {4, 6, 9, 13, 17, 19}) silent.add(command, {1, 2, 3, 4});
  EXPECT_EQ(silent.written(), R"~(   <path d=""  />)~");
}

TEST(ElementLines, PathLinesBreakBeforeASegment) {
  Segments many;
  many.add(kPathMoveAbs, {0, 0});
  for (int i = 0; i < 20; ++i) many.add(kPathLineAbs, {10, 10});
  const std::string l = "L10.00,10.00 ";
  std::string expected = "   <path d=\"M0.00,0.00 ";
  for (int i = 0; i < 7; ++i) expected += l;
  expected += "|    ";
  for (int i = 0; i < 9; ++i) expected += l;
  expected += "|    ";
  for (int i = 0; i < 4; ++i) expected += l;
  EXPECT_EQ(many.written(), expected + "\"  />");
}

TEST(ElementLines, Image) {
  _svg_image image;
  initImage(&image);
  image.link.value = text("a.tif");
  image.x.value = 1.9;
  image.y.value = 2.9;
  image.width.value = 3.9;
  image.height.value = 4.9;
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagImage, image), 0);
  EXPECT_EQ(harness.text(), R"~(   <image xlink:href="a.tif" x="1" y="2" width="3" height="4"/>)~");
}

TEST(ElementLines, Text) {
  const auto written = [](const std::function<void(_svg_text&)>& set) {
    _svg_text record;
    initText(&record);
    record.fill.packedColor = record.stroke.packedColor = -1;
    record.fontspec.fontFamily = text("<Arial>");
    record.content = text("x");
    set(record);
    WriterHarness harness;
    EXPECT_EQ(harness.write(kTagText, record), 0);
    return harness.text();
  };
  const std::string start =
      "   <text x=\"0.00\" y=\"0.00\" font-family=\"Arial\" font-size=\"12.00\"";
  EXPECT_EQ(written([](_svg_text& t) { t.stroke.packedColor = 0xff; }),
            start + "\n    style=\"stroke:#0000ff\">\n     x\n   </text>");
  EXPECT_EQ(written([](_svg_text& t) {
              t.events.onclick = text("f()");
              t.events.onload = text("g()");
            }),
            start + "\n    style=\"\"onload=\"g()\" >\n     x\n   </text>");
  EXPECT_EQ(written([](_svg_text& t) { t.lang.value = text("xml:lang=\"en\""); }),
            start + " xml:lang=\"en\"\n    style=\"\">\n     x\n   </text>");
  EXPECT_EQ(written([](_svg_text& t) { t.lang.value = text(" xml:lang=\"en\""); }),
            start + "\n    style=\"\">\n     x\n   </text>");
  EXPECT_EQ(written([](_svg_text& t) { t.content = nullptr; }),
            start + "\n    style=\"\">\n     \n   </text>");
  _svg_text second;
  initText(&second);
  second.fill.packedColor = 0xff0000;
  second.position.x.value = 1.5;
  second.position.y.value = 2.25;
  second.content = text("b");
  EXPECT_EQ(written([&](_svg_text& t) {
              t.content = text("a");
              t.next = &second;
            }),
            start +
                "\n    style=\"\">\n     a|"
                "   <tspan x=\"1.500\" y=\"2.250\" >\n     b\n   </tspan>|   </text>");
}

}  // namespace
}  // namespace egfsvg
