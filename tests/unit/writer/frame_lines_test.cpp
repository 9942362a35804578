// The frame of a file, pooled styles, gradients, links, and the codes of the dispatch.

#include <gtest/gtest.h>

#include "embedded_host/host_settings.h"
#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "tests/support/writer_harness.h"

namespace egfsvg {
namespace {

using test::WriterHarness;

constexpr const char* kDoctype =
    R"~(<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd" [)~";

TEST(FrameLines, HeaderHasACommentWhenThereIsOne) {
  for (const char* comment : {"", "User agent resolution:96 dpi"}) {
    _objectStream record{};
    std::snprintf(record.comment, sizeof record.comment, "%s", comment);
    WriterHarness harness;
    EXPECT_EQ(harness.write(1, record), 0);
    ASSERT_EQ(harness.lines.size(), *comment == '\0' ? 3U : 4U);
    EXPECT_EQ(harness.lines.front(), R"~(<?xml version="1.0" standalone="no"?>)~");
    const std::string& notice = harness.lines[1];
    EXPECT_EQ(notice.substr(0, 5), "<!-- ");
    EXPECT_EQ(notice.substr(notice.size() - 4), " -->");
    EXPECT_EQ(notice.find_first_of("<&", 5), std::string::npos);
    EXPECT_EQ(notice.substr(5, notice.size() - 9).find("--"), std::string::npos);
    if (*comment != '\0') {
      EXPECT_EQ(harness.lines[2], "<!-- User agent resolution:96 dpi -->");
    }
    EXPECT_EQ(harness.lines.back(), kDoctype);
  }
}

TEST(FrameLines, FixedLines) {
  struct FixedRow {
    std::int32_t type;
    const char* expected;
  };
  const FixedRow rows[] = {{4, R"~(       <style type="text/css"><![CDATA[ )~"},
                           {15, "   <defs>"},
                           {1000, "</svg>"},
                           {1001, "  </g>"},
                           {1002, "   </defs>"},
                           {1004, "       ]]></style>"},
                           {1017, "]>"},
                           {1018, "   ]]></script>"},
                           {2, ""}};
  for (const FixedRow& row : rows) {
    WriterHarness harness;
    EXPECT_EQ(harness.write(row.type), 0) << row.type;
    EXPECT_EQ(harness.text(), row.expected) << row.type;
  }
}

TEST(FrameLines, UnknownTypesWriteNothing) {
  for (std::int32_t type : {0, 13, 18, 24, 25, 30, 34, 100, 105, 1003, 1005, 1019, -1}) {
    WriterHarness harness;
    EXPECT_EQ(harness.write(type), kUnknownWriteType) << type;
    EXPECT_TRUE(harness.lines.empty());
  }
}

TEST(FrameLines, OnlyMinusOneIsAFailure) {
  for (int answer : {-1, -2, 0, 17}) {
    WriterHarness harness;
    harness.answer = answer;
    EXPECT_EQ(harness.write(15), answer == -1 ? kLineNotWritten : kOk) << answer;
  }
}

std::string svgLine(std::int32_t widthUnit, bool box) {
  _svg_svg record;
  initSVGObj(&record);
  _svg_viewbox view{};
  view.x.value = 1;
  view.y.value = 2;
  view.height.value = 40;
  view.width.value = 30;
  record.x.value = 1.9;
  record.y.value = 2.9;
  record.width = {widthUnit, 300.9, kAxisWidth};
  record.height = {widthUnit, 400.9, kAxisHeight};
  if (box) record.viewBox = &view;
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagSvg, record), 0);
  return harness.text();
}

TEST(FrameLines, SvgHasThreeForms) {
  EXPECT_EQ(svgLine(kUnitPixel, false), R"~(<svg x="1" y="2" width="300" height="400">)~");
  EXPECT_EQ(svgLine(kUnitPixel, true),
            R"~(<svg x="1" y="2" width="300" height="400" viewBox="1 2 30 40">)~");
  EXPECT_EQ(svgLine(kUnitPercent, true), R"~(<svg  viewBox="1 2 30 40">)~");
}

TEST(FrameLines, TheOutermostSvgCarriesNamespacesWhenAsked) {
  CFG_GetDefaults(0, 0)[static_cast<std::uint32_t>(Setting::kNamespaces)] = 1;
  _svg_svg record;
  initSVGObj(&record);
  record.width = record.height = pixels(5);
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagSvg, record), 0);
  EXPECT_EQ(harness.write(kTagSvg, record), 0);
  EXPECT_EQ(harness.write(kTagEndSvg), 0);
  EXPECT_EQ(harness.write(kTagEndSvg), 0);
  EXPECT_EQ(harness.write(kTagSvg, record), 0);
  const std::string outer =
      R"~(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink")~"
      R"~( x="0" y="0" width="5" height="5">)~";
  EXPECT_EQ(harness.text(),
            outer + R"~(|<svg x="0" y="0" width="5" height="5">|</svg>|</svg>|)~" + outer);
}

TEST(FrameLines, AnUnfinishedDocumentIsForgottenByTheNext) {
  CFG_GetDefaults(0, 0)[static_cast<std::uint32_t>(Setting::kNamespaces)] = 1;
  const _objectStream header{};
  _svg_svg record;
  initSVGObj(&record);
  WriterHarness harness;
  for (int document = 0; document < 2; ++document) {
    EXPECT_EQ(harness.write(1, header), 0);
    EXPECT_EQ(harness.write(kTagSvg, record), 0);
    EXPECT_EQ(harness.lines.back().substr(0, 11), "<svg xmlns=") << document;
  }
}

_svg_style_props styleNamed(const char* name) {
  _svg_style_props style;
  initStyleProps(&style);
  style.selector = const_cast<char*>(name);
  return style;
}

TEST(FrameLines, EntitiesAndRules) {
  _svg_style_props entity = styleNamed("st9");
  entity.pa.fill.packedColor = 0x10;
  entity.pa.stroke.packedColor = -1;
  entity.pa.stroke.strokeLinejoin = 2;
  entity.pa.stroke.strokeLinecap = 2;
  WriterHarness first;
  EXPECT_EQ(first.write(17, entity), 0);
  EXPECT_EQ(first.text(), R"~(   <!ENTITY st9 "fill:#000010; stroke-linejoin:round" >)~");

  _svg_style_props rule = styleNamed("stl9");
  rule.pa.fill.fillOpacity = 0.0;
  rule.pa.stroke.strokeOpacity = 0.0;
  rule.pa.stroke.packedColor = 0xff;
  rule.pa.stroke.strokeWidth.value = 5;
  WriterHarness second;
  EXPECT_EQ(second.write(37, rule), 0);
  EXPECT_EQ(second.text(), "      .stl9 { fill:none; stroke:none }");

  _svg_style_props stroke = styleNamed("st1");  // starts with the stroke: no separator
  stroke.pa.stroke.packedColor = 0xff;
  WriterHarness third;
  EXPECT_EQ(third.write(17, stroke), 0);
  EXPECT_EQ(third.text(), R"~(   <!ENTITY st1 "stroke:#0000ff" >)~");

  _svg_style_props width = styleNamed("st2");
  width.pa.fill.packedColor = width.pa.stroke.packedColor = -1;
  width.pa.stroke.strokeWidth.value = 2.0;
  WriterHarness fourth;
  EXPECT_EQ(fourth.write(17, width), 0);
  EXPECT_EQ(fourth.text(), R"~(   <!ENTITY st2 "; stroke-width:2.000000" >)~");
}

TEST(FrameLines, StyleListsEveryProperty) {
  _svg_value dashes[] = {pixels(1), pixels(2)};
  _svg_style_props rule = styleNamed("stl1");
  rule.pa.fill.packedColor = 0xff0000;
  rule.pa.fill.fillOpacity = 0.5;
  rule.pa.fill.fillRule = 2;
  rule.pa.stroke.packedColor = 0;
  rule.pa.stroke.strokeOpacity = 0.25;
  rule.pa.stroke.strokeWidth.value = 0.0000001;
  rule.pa.stroke.strokeLinecap = 3;
  rule.pa.stroke.strokeLinejoin = 1;
  rule.pa.stroke.strokeMiterlimit = 7;
  rule.pa.stroke.strokeDashArray = dashes;
  rule.pa.stroke.strokeDashCount = 2;
  rule.pa.graphics.opacity = 0.75;
  WriterHarness harness;
  EXPECT_EQ(harness.write(37, rule), 0);
  EXPECT_EQ(harness.text(),
            "      .stl1 { fill:#ff0000; fill-opacity:0.50; stroke:#000000; stroke-opacity:0.25; "
            "stroke-width:1.000000e-07; opacity:0.75; fill-rule:evenodd; "
            "stroke-dasharray:1.000000,2.000000; stroke-linejoin:miter; stroke-miterlimit:7; "
            "stroke-linecap:square }");
}

TEST(FrameLines, Gradients) {
  _svg_stop stops[2];
  for (_svg_stop& stop : stops) initStopObj(&stop);
  stops[0].offset = percent(49.9);
  stops[0].gradients.stopColor = {1, 2, 3, 0};
  stops[1].offset = percent(100);
  stops[1].gradients.stopColor = {255, 0, 0, 0};
  stops[1].gradients.stopOpacity = 0.0;
  _svg_gradient gradient;
  initGradientObj(&gradient);
  initLinearGrad(&gradient);
  gradient.head.type = kTagLinearGradient;
  gradient.head.id = const_cast<char*>("1");
  gradient.stops = stops;
  gradient.stopCount = 1;
  WriterHarness linear;
  EXPECT_EQ(linear.write(29, gradient), 0);
  EXPECT_EQ(
      linear.text(),
      R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0%" y1="0.0%" x2="100.0%" y2="0.0%" >|)~"
      R"~(          <stop offset="49%" stop-color="rgb(1,2,3)" />|)~"
      R"~(       </linearGradient>)~");

  initRadialGrad(&gradient);
  gradient.head.type = kTagRadialGradient;
  gradient.parms.radial.fx = pixels(30);
  gradient.parms.radial.fy = pixels(40);
  gradient.spreadMethod = kSpreadReflect;
  gradient.stopCount = 2;
  _svg_value m[6] = {pixels(1), pixels(0), pixels(0), pixels(-1), pixels(2.5), pixels(3)};
  transformEntry entry{kMatrix, m, 6};
  gradient.head.transforms = &entry;
  gradient.head.transformCount = 1;
  WriterHarness radial;
  EXPECT_EQ(radial.write(29, gradient), 0);
  EXPECT_EQ(
      radial.text(),
      R"~(       <radialGradient id="grad1" gradientUnits="userSpaceOnUse" fx="30.0" fy="40.0" cx="50.0%" cy="50.0%" r="50.0%" )~"
      R"~(spreadMethod="reflect" gradientTransform="matrix(1.0000,0.0000,0.0000,-1.0000,2.5000,3.0000)" >|)~"
      R"~(          <stop offset="49%" stop-color="rgb(1,2,3)" />|)~"
      R"~(          <stop offset="100%" stop-color="rgb(255,0,0)" stop-opacity="0.00" />|)~"
      R"~(       </radialGradient>)~");
}

TEST(FrameLines, LinksWriteSevenKindsOfChildren) {
  static _svg_objects children[2];
  initImage(&children[0].image);
  children[0].type = kTagImage;
  initCircle(&children[1].circle);
  children[1].type = kTagCircle;
  children[1].circle.stroke.packedColor = -1;
  _svg_a link;
  initA(&link);
  link.link.value = const_cast<char*>("u");
  link.cdata = const_cast<char*>("t");
  link.objects = children;
  link.objectCount = 2;
  WriterHarness harness;
  EXPECT_EQ(harness.write(kTagLink, link), 0);
  EXPECT_EQ(harness.text(), R"~(  <a xlink:href="u">|      <![CDATA[t]]>|)~"
                            R"~(   <circle cx="0.000"  cy="0.000" r="0.000"  />|  </a>)~");
}

TEST(FrameLines, GroupsWithAndWithoutAClass) {
  _svg_group group;
  initGroupObj(&group);
  group.pa.stroke.packedColor = -1;
  WriterHarness plain;
  EXPECT_EQ(plain.write(kTagGroup, group), 0);
  EXPECT_EQ(plain.text(), "  <g  >");
  ClassName names[1] = {"QV7.5_Anno"};
  group.head.classNames = names;
  group.head.classCount = 1;
  WriterHarness named;
  EXPECT_EQ(named.write(kTagGroup, group), 0);
  EXPECT_EQ(named.text(), R"~(  <g class="QV7.5_Anno"   >)~");
}

TEST(FrameLines, ScriptIsAFixedFunction) {
  _svg_script script;
  initScript(&script);
  WriterHarness harness;
  EXPECT_EQ(harness.write(39, script), 0);
  ASSERT_EQ(harness.lines.size(), 7U);
  EXPECT_EQ(harness.lines[0], R"~(<script type="text/ecmascript" > <![CDATA[ )~");
  EXPECT_EQ(harness.lines[6],
            "  elementToShow1.setAttribute('visibility', '' + visibilityValue1);\n}");
}

}  // namespace
}  // namespace egfsvg
