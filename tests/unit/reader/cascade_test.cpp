// Whole drawings: in which order the sources of a property reach a record.
#include "rule_support.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

std::string sheet(const std::string& rules) {
  return "<style type=\"text/css\"><![CDATA[ " + rules + " ]]></style>";
}

struct FillCase {
  std::string rules;
  std::string body;
  _svg_color fill;  // of the first rect
};

void expectFill(const FillCase& row) {
  SCOPED_TRACE(row.rules + " " + row.body);
  const std::string style = row.rules.empty() ? "" : sheet(row.rules);
  const auto rect = nthRecord<_svg_rect>("<svg >" + style + row.body + "</svg>", kTagRect);
  EXPECT_EQ(rect.fill.fillColor, row.fill);
}

TEST(Cascade, theLastWriterWins) {
  const FillCase cases[] = {{"rect{fill:red}", "<rect />", kRed},
                            {"RECT{fill:red}", "<rect />", kRed},
                            {"rect{fill:red}", "<rect fill=\"blue\"/>", kBlue},
                            {"", "<rect fill=\"red\" style=\"fill:blue\"/>", kBlue},
                            {"", "<rect style=\"fill:blue\" fill=\"red\"/>", kRed},
                            {"", "<g fill=\"red\"><rect /></g>", kRed},
                            {"", "<g fill=\"red\"><rect fill=\"blue\"/></g>", kBlue},
                            {"rect{fill:blue}", "<g fill=\"red\"><rect /></g>", kBlue},
                            {"#a{fill:red}", "<rect fill=\"blue\" id=\"a\"/>", kRed},
                            {"#a{fill:red}", "<rect id=\"a\" fill=\"blue\"/>", kBlue},
                            {".a{fill:red}", "<rect fill=\"blue\" class=\"a\"/>", kRed},
                            {".a{fill:red}", "<rect class=\"a\" fill=\"blue\"/>", kBlue},
                            {".a{fill:red}#b{fill:blue}", "<rect id=\"b\" class=\"a\"/>", kRed},
                            {".a{fill:red}#b{fill:blue}", "<rect class=\"a\" id=\"b\"/>", kBlue},
                            {".a{fill:red}rect{fill:blue}", "<rect class=\"a\"/>", kRed},
                            {".b{fill:blue}.a{fill:red}", "<rect class=\"a b\"/>", kBlue},
                            {".x{fill:red}.x{fill:blue}", "<rect class=\"x\"/>", kBlue},
                            {"a,rect{fill:red}", "<rect />", kRed},
                            {"foo{fill:blue}", "<rect />", kUnset},
                            {"rect{foo:1;fill:red}", "<rect />", kRed},
                            {"rect{fill : red ;}", "<rect />", kRed},
                            {".b{fill:red}", "<rect class=\"a\" class=\"b\"/>", kRed},
                            {"*.x{fill:red}", "<rect class=\"x\"/>", kRed},
                            {".{fill:red}", "<rect class=\"a\" class=\"\"/>", kUnset},
                            {".{fill:red}", "<rect class=\"a\" style=\"class:\"/>", kUnset},
                            {"rect#a{fill:red}#a{fill:blue}", "<rect id=\"a\"/>", kRed},
                            {"rect.a{fill:red}.a{fill:blue}", "<rect class=\"a\"/>", kRed},
                            {"[transform]{fill:red}", "<rect transform=\"scale(1)\"/>", kUnset}};
  for (const FillCase& row : cases) expectFill(row);
}

TEST(Cascade, ancestors) {
  const FillCase cases[] = {
      {"g rect{fill:red}", "<g ><rect /></g>", kRed},
      {"g rect{fill:red}", "<g ><svg ><rect /></svg></g>", kRed},
      {"g rect{fill:red}", "<g ><svg ><svg ><rect /></svg></svg></g>", kRed},
      {"g rect{fill:red}", "<g ><svg ><svg ><svg ><rect /></svg></svg></svg></g>", kUnset},
      {".a rect{fill:red}", "<g class=\"a\"><rect /></g>", kRed},
      {".a rect{fill:red}", "<g class=\"a\"><g ><g ><rect /></g></g></g>", kRed},
      {".a rect{fill:red}", "<g class=\"a\"><g ><g ><g ><rect /></g></g></g></g>", kUnset},
      {"#b>rect{fill:red}", "<g id=\"b\"><rect /></g>", kRed},
      {"#b>rect{fill:red}", "<g id=\"b\"><g ><rect /></g></g>", kUnset},
      {"#b rect{fill:red}", "<g id=\"b\"><g ><rect /></g></g>", kRed},
      {"g>rect{fill:red}g rect{fill:blue}rect{fill:green}", "<g ><rect /></g>", kRed},
      {"g rect{fill:red}rect{fill:green}", "<g ><rect /></g>", kRed},
      {".a rect{fill:red}.b rect{fill:blue}", "<g class=\"a\"><g class=\"b\"><rect /></g></g>",
       kBlue},
      {".a rect{fill:red}.b rect{fill:blue}", "<g class=\"b\"><g class=\"a\"><rect /></g></g>",
       kRed},
      {"svg>rect{fill:red}", "<rect />", kRed}};
  for (const FillCase& row : cases) expectFill(row);
}

TEST(Cascade, attributeRulesReachCircles) {
  const std::string text = "<svg >" + sheet("[transform]{fill:red}") +
                           "<circle transform=\"scale(1)\"/><circle /></svg>";
  EXPECT_EQ(nthRecord<_svg_circle>(text, kTagCircle, 0).fill.fillColor, kRed);
  EXPECT_EQ(nthRecord<_svg_circle>(text, kTagCircle, 1).fill.fillColor, kUnset);
}

TEST(Cascade, rulesOfAUse) {
  const std::string text = "<svg >" + sheet("use{fill:red} use rect{stroke:blue}") +
                           "<defs ><rect id=\"r\"/></defs><use xlink:href=\"#r\"/></svg>";
  const auto rect = nthRecord<_svg_rect>(text, kTagRect);
  EXPECT_EQ(rect.fill.fillColor, kRed);
  EXPECT_EQ(rect.stroke.strokeColor, kBlue);
}

TEST(Cascade, entitiesAsTheWriterStoresThem) {
  const std::string text =
      "<!DOCTYPE svg [ <!ENTITY st3 \"fill:#ff0000; stroke:none\" > ]>"
      "<svg ><rect stroke=\"blue\" style=\"&st3;\"/><rect style=\"&st3;\" fill=\"blue\"/>"
      "<rect id=\"st3\"/></svg>";
  const auto first = nthRecord<_svg_rect>(text, kTagRect, 0);
  EXPECT_EQ(first.fill.fillColor, kRed);
  EXPECT_EQ(first.stroke.strokePresent, 0);
  EXPECT_EQ(nthRecord<_svg_rect>(text, kTagRect, 1).fill.fillColor, kBlue);
  EXPECT_EQ(nthRecord<_svg_rect>(text, kTagRect, 2).fill.fillColor, kRed);
}

TEST(Cascade, dashesOfRules) {
  const auto count = [](const std::string& rule) {
    return nthRecord<_svg_rect>("<svg >" + sheet(rule) + "<rect /></svg>", kTagRect)
        .stroke.strokeDashCount;
  };
  EXPECT_EQ(count("rect{stroke-dasharray:5 3}"), 0);
  EXPECT_EQ(count("rect{stroke-dasharray:5,3}"), 2);
}

/// The innermost group around the first rect.
_svg_pa groupBlock(const std::string& text) {
  _svg_pa block{};
  lookAtEach<_svg_rect>(text, kTagRect, [&](_svg_rect& rect) {
    block = reinterpret_cast<const _svg_group*>(rect.head.parent)->pa;
  });
  return block;
}

TEST(Cascade, fontVariantBySpelling) {
  const auto variant = [](const std::string& rule, const std::string& attributes) {
    return groupBlock("<svg >" + sheet(rule) + "<g " + attributes + "><rect /></g></svg>")
        .fontspec.fontVariant;
  };
  EXPECT_EQ(variant("g{font-variant:small-caps}", ""), 1);
  EXPECT_EQ(variant("g{font-variante:small-caps}", ""), 2);
  EXPECT_EQ(variant("a{}", "style=\"font-variant:small-caps\""), 2);
  EXPECT_EQ(variant("a{}", "font-variant=\"small-caps\""), 2);
}

TEST(Cascade, currentColourOfEachElement) {
  const std::string text = "<svg >" + sheet("rect{fill:currentColor}") +
                           "<g color=\"red\"><rect /></g><g color=\"lime\"><rect /></g></svg>";
  EXPECT_TRUE(isColor(nthRecord<_svg_rect>(text, kTagRect, 0).fill.fillColor, 255, 0, 0));
  EXPECT_TRUE(isColor(nthRecord<_svg_rect>(text, kTagRect, 1).fill.fillColor, 0, 255, 0));
  const std::string late = "<svg ><rect fill=\"currentColor\" color=\"red\"/></svg>";
  EXPECT_EQ(nthRecord<_svg_rect>(late, kTagRect).fill.fillColor, kUnset);
}

TEST(Cascade, gradientsAndColours) {
  const std::string gradient = "<linearGradient id=\"a\"><stop offset=\"0\"/></linearGradient>";
  struct {
    const char* body;
    bool gradient;
    double opacity;
    _svg_color fill;
  } const cases[] = {{"<g fill=\"url(#a)\"><rect /></g>", true, 1.0, kUnset},
                     {"<g fill=\"url(#a)\"><rect fill=\"red\"/></g>", false, 1.0, kRed},
                     {"<g fill=\"url(#a)\"><rect fill=\"none\"/></g>", false, 0.0, kUnset},
                     {"<g fill=\"none\"><rect fill=\"url(#a)\"/></g>", true, 1.0, kUnset},
                     {"<g fill=\"none\"><rect fill=\"url(#b)\"/></g>", false, 0.0, kUnset},
                     {"<g fill=\"none\"><rect /></g>", false, 0.0, kUnset},
                     {"<rect fill=\"url(#a)\"/>", true, 1.0, kUnset}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.body);
    const auto rect =
        nthRecord<_svg_rect>("<svg >" + std::string(row.body) + gradient + "</svg>", kTagRect);
    EXPECT_EQ(rect.fill.fillGradient != nullptr, row.gradient);
    EXPECT_EQ(rect.fill.fillOpacity, row.opacity);
    EXPECT_EQ(rect.fill.fillColor, row.fill);
  }
}

TEST(Cascade, whatDoesNotGoDown) {
  const auto rect = [](const std::string& body) {
    return nthRecord<_svg_rect>("<svg >" + body + "</svg>", kTagRect);
  };
  EXPECT_EQ(rect("<g display=\"none\"><rect /></g>").graphics.display, 1);
  EXPECT_EQ(rect("<g display=\"none\"><rect display=\"inherit\"/></g>").graphics.display, 17);
  EXPECT_EQ(rect("<g opacity=\"0.5\"><rect /></g>").graphics.opacity, 0.5);
  EXPECT_EQ(rect("<g opacity=\"0.5\"><rect opacity=\"0.8\"/></g>").graphics.opacity, 0.8);
  EXPECT_EQ(rect("<g opacity=\"0.5\"><rect opacity=\"inherit\"/></g>").graphics.opacity, 0.5);
  const auto width = rect(
                         "<g stroke-width=\"5\"><rect stroke=\"red\" stroke-width=\"inherit\"/>"
                         "</g>")
                         .stroke.strokeWidth;
  EXPECT_TRUE(isValue(width, 0, kUnitPixel));
  const auto text = [](const std::string& attributes) {
    return groupBlock("<svg ><g text-decoration=\"underline\"><g " + attributes +
                      "><rect /></g></g></svg>")
        .textcontentelems.textDecoration;
  };
  EXPECT_EQ(text(""), 1);
  EXPECT_EQ(text("text-decoration=\"inherit\""), 2);
}

TEST(Cascade, stopsByTheKeyword) {
  const std::string text =
      "<svg ><linearGradient id=\"g\" stop-color=\"red\"><stop stop-color=\"inherit\"/><stop />"
      "</linearGradient><rect fill=\"url(#g)\"/></svg>";
  lookAtEach<_svg_rect>(text, kTagRect, [](_svg_rect& rect) {
    ASSERT_NE(rect.fill.fillGradient, nullptr);
    ASSERT_EQ(rect.fill.fillGradient->stopCount, 2);
    EXPECT_EQ(rect.fill.fillGradient->stops[0].gradients.stopColor, kRed);
    EXPECT_EQ(rect.fill.fillGradient->stops[1].gradients.stopColor, kUnset);
  });
}

TEST(Cascade, markersOfLinesAlone) {
  const std::string attributes = " marker-end=\"url(#m)\"/>";
  lookAtEach<_svg_line>("<svg ><line" + attributes + "</svg>", kTagLine, [](_svg_line& line) {
    EXPECT_EQ(textOf(line.markers.markerEnd), "url(#m)");
  });
  lookAtEach<_svg_line>(
      "<svg ><g" + attributes.substr(0, 21) + "><line /></g></svg>", kTagLine,
      [](_svg_line& line) { EXPECT_EQ(textOf(line.markers.markerEnd), "url(#m)"); });
}

TEST(Cascade, theRootsOwnClass) {
  const auto svg = nthRecord<_svg_svg>(
      sheet(".defaultInitialViewPort{fill:red}") + "<svg width=\"50%\"></svg>", kTagSvg);
  EXPECT_EQ(svg.pa.fill.fillColor, kRed);
}

// Hundreds of rules and elements: each element asks for its own keys alone.
TEST(Cascade, manyRulesAndElements) {
  std::string rules;
  std::string body;
  for (int i = 0; i < 500; ++i) {
    rules += ".c" + std::to_string(i) + "{stroke-width:" + std::to_string(i + 1) + "}";
    body += "<rect class=\"c" + std::to_string(499 - i) + "\"/>";
  }
  int seen = 0;
  lookAtEach<_svg_rect>("<svg >" + sheet(rules) + "<g stroke=\"red\">" + body + "</g></svg>",
                        kTagRect, [&](_svg_rect& rect) {
                          EXPECT_TRUE(isValue(rect.stroke.strokeWidth, 500 - seen, kUnitPixel));
                          ++seen;
                        });
  EXPECT_EQ(seen, 500);
}

}  // namespace
}  // namespace egfsvg::test
