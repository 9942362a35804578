#include "embedded_host/host_faults.h"
#include "frame/result_codes.h"
#include "rule_support.h"

namespace egfsvg::test {
namespace {

int applyStyle(CHandlerReader& reader, void* element, std::string text, int type) {
  return reader.SetLocalStyleAtt(element, text.data(), type);
}

struct StyleCase {
  const char* text;
  int result;
  _svg_color fill;
  double strokeWidth;
};

TEST(LocalStyle, propertiesAsAttributes) {
  const StyleCase cases[] = {{"fill:red", 0, kRed, 1},
                             {"fill:red;", 0, kRed, 1},
                             {"fill : red ;stroke-width : 3", 0, kRed, 3},
                             {" ;, fill:red ;; stroke-width:3", 0, kRed, 3},
                             {"FILL:RED", 0, kRed, 1},
                             {"unknown:1;fill:red", 0, kRed, 1},
                             {"font:12px a;fill:red;marker:none", 0, kRed, 1},
                             {"fill:red;fill:blue", 0, kBlue, 1},
                             {"/* c */fill:red", 0, kRed, 1},
                             {"/* c */ /* d */fill:red/* e */;stroke-width:3", 0, kUnset, 3},
                             {"fill:red;/* c */stroke-width:3", 0, kRed, 3},
                             {"fill:red;nothing", kNothingToRead, kRed, 1},
                             {"nothing", kNothingToRead, kUnset, 1},
                             {"style:fill:red;stroke-width:3", 0, kUnset, 3},
                             {"", 0, kUnset, 1},
                             {" ", 0, kUnset, 1},
                             {";", 0, kUnset, 1},
                             {"/*", 0, kUnset, 1},
                             {"/* no end", 0, kUnset, 1},
                             {"&", 0, kUnset, 1},
                             {"&;", 0, kUnset, 1},
                             {"&missing;fill:red", 0, kRed, 1}};
  CHandlerReader reader;
  for (const StyleCase& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    EXPECT_EQ(applyStyle(reader, rect.get(), row.text, kTagRect), row.result);
    EXPECT_EQ(rect->fill.fillColor, row.fill);
    EXPECT_TRUE(isValue(rect->stroke.strokeWidth, row.strokeWidth, kUnitPixel));
  }
}

TEST(LocalStyle, entitiesAnywhere) {
  StyledReader styled;
  styled.rule("#st3", {{"fill", "#ff0000"}, {"stroke", "none"}});
  styled.rule("#st4", {{"stroke-width", "7"}});
  styled.fill("rect#st4", "green");
  struct {
    const char* text;
    _svg_color fill;
    double strokeWidth;
  } const cases[] = {{"&st3;", kRed, 1},
                     {"&ST3", kRed, 1},
                     {"&st4;", kGreen, 7},
                     {"&st4;&st3;", kRed, 7},
                     {"&st3; fill:blue", kBlue, 1},
                     {"fill:blue;&st3;", kRed, 1},
                     {"stroke-width:2;&st3;;&st4;", kGreen, 7}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    rect->stroke.strokePresent = 1;
    EXPECT_EQ(applyStyle(styled.reader, rect.get(), row.text, kTagRect), 0);
    EXPECT_EQ(rect->fill.fillColor, row.fill);
    EXPECT_TRUE(isValue(rect->stroke.strokeWidth, row.strokeWidth, kUnitPixel));
  }
  Rect rect;
  rect->stroke.strokePresent = 1;
  applyStyle(styled.reader, rect.get(), "&st3;", kTagRect);
  EXPECT_EQ(rect->stroke.strokePresent, 0);
}

// The attribute stands for its properties at its place in the tag.
TEST(LocalStyle, geometryToo) {
  CHandlerReader reader;
  Rect rect;
  reader.SetRectAttribute(rect.get(), kAttStyle, Pair("x:5;width:7;transform:scale(2);id:r"));
  EXPECT_TRUE(isValue(rect->x, 5, kUnitPixel));
  EXPECT_TRUE(isValue(rect->width, 7, kUnitPixel));
  EXPECT_EQ(rect->head.transformCount, 1);
  EXPECT_EQ(textOf(rect->head.id), "r");
}

TEST(LocalStyle, eachElementByItsType) {
  CHandlerReader reader;
  const char* const text = "visibility:hidden;color:red";
  const auto expect = [&](auto& element, int type) {
    SCOPED_TRACE(type);
    EXPECT_EQ(applyStyle(reader, element.get(), text, type), 0);
    _svg_pa_graphics* graphics = nullptr;
    if constexpr (requires { element->pa; }) {
      graphics = &element->pa.graphics;
    } else {
      graphics = &element->graphics;
    }
    EXPECT_EQ(graphics->color, kRed);
    return graphics->visibility;
  };
  Rect rect;
  Circle circle;
  Ellipse ellipse;
  Line line;
  Polyline polyline;
  Polygon polygon;
  Path path;
  Text words;
  Image image;
  Group group, use;
  Svg svg, symbol;
  Defs defs;
  Gradient linear, radial(kTagRadialGradient);
  Stop stop;
  EXPECT_EQ(expect(rect, kTagRect), 2);
  EXPECT_EQ(expect(circle, kTagCircle), 2);
  EXPECT_EQ(expect(ellipse, kTagEllipse), 2);
  EXPECT_EQ(expect(line, kTagLine), 2);
  EXPECT_EQ(expect(polyline, kTagPolyline), 2);
  EXPECT_EQ(expect(polygon, kTagPolygon), 2);
  EXPECT_EQ(expect(path, kTagPath), 2);
  EXPECT_EQ(expect(words, kTagText), 2);
  EXPECT_EQ(expect(image, kTagImage), 2);
  EXPECT_EQ(expect(group, kTagGroup), 2);
  EXPECT_EQ(expect(use, kTagUse), 2);
  EXPECT_EQ(expect(svg, kTagSvg), 2);
  EXPECT_EQ(expect(symbol, kTagSymbol), 2);
  EXPECT_EQ(expect(defs, kTagDefs), 2);
  EXPECT_EQ(expect(linear, kTagLinearGradient), 1);  // gradients take no visibility
  EXPECT_EQ(expect(radial, kTagRadialGradient), 1);
  EXPECT_EQ(expect(stop, kTagStop), 1);
}

TEST(LocalStyle, otherTypesTakeNothing) {
  CHandlerReader reader;
  Rect rect;
  for (int type : {-1, 0, 4, 13, 17, 18, 21, 23, 26, 33, 35, 101, 1000}) {
    EXPECT_EQ(applyStyle(reader, rect.get(), "fill:red", type), 0);
    EXPECT_EQ(rect->fill.fillColor, kUnset) << type;
  }
}

// Links and switches have the properties of an image and of an svg, in their own fields.
TEST(LocalStyle, ofLinksAndSwitches) {
  CHandlerReader reader;
  Link link;
  const char* const text =
      "fill:red;opacity:0.5;stroke-width:3;clip-path:c;x:5;width:6;xlink:href:u;id:i;"
      "color-profile:p;font-family:f;shape-rendering:crispEdges;image-rendering:optimizeSpeed;"
      "preserveAspectRatio:none;transform:scale(2);text-anchor:end;pointer-events:all";
  EXPECT_EQ(reader.SetLinkObjAttribute(link.get(), kAttStyle, Pair(text)), 0);
  EXPECT_EQ(link->pa.fill.fillColor, kUnset);
  EXPECT_EQ(link->pa.graphics.opacity, 0.5);
  EXPECT_TRUE(isValue(link->pa.stroke.strokeWidth, 1, kUnitPixel));
  EXPECT_EQ(textOf(link->pa.graphics.clipPath), "c");
  EXPECT_EQ(textOf(link->link.value), "null");
  EXPECT_EQ(textOf(link->head.id), "i");
  EXPECT_EQ(textOf(link->pa.images.colorProfile), "p");
  EXPECT_EQ(textOf(link->pa.fontspec.fontFamily), "null");
  EXPECT_EQ(link->pa.graphics.shapeRendering, 3);
  EXPECT_EQ(link->pa.graphics.imageRendering, 2);
  EXPECT_EQ(link->pa.graphics.pointerEvents, 8);
  EXPECT_EQ(link->pa.textelems.textAnchor, 1);
  EXPECT_EQ(link->head.transformCount, 1);

  Switch choice;
  EXPECT_EQ(reader.SetSwitchAttribute(choice.get(), kAttStyle, Pair(text)), 0);
  EXPECT_EQ(choice->pa.fill.fillColor, kRed);
  EXPECT_EQ(choice->pa.graphics.opacity, 0.5);
  EXPECT_TRUE(isValue(choice->pa.stroke.strokeWidth, 3, kUnitPixel));
  EXPECT_EQ(textOf(choice->head.id), "i");
  EXPECT_EQ(textOf(choice->pa.fontspec.fontFamily), "f");
  EXPECT_EQ(choice->pa.textelems.textAnchor, 3);
}

TEST(LocalStyle, entitiesOfLinksAndSwitches) {
  StyledReader styled;
  styled.rule("#e", {{"opacity", "0.5"}, {"viewBox", "0 0 1 1"}});
  Link link;
  Switch choice;
  styled.reader.SetLinkObjAttribute(link.get(), kAttStyle, Pair("&e;"));
  styled.reader.SetSwitchAttribute(choice.get(), kAttStyle, Pair("&e;"));
  EXPECT_EQ(link->pa.graphics.opacity, 1.0);  // rules never reach the type of an image
  EXPECT_EQ(choice->pa.graphics.opacity, 0.5);
}

TEST(LocalStyle, aValueOfAnyLength) {
  CHandlerReader reader;
  Text text;
  const std::string family(20000, 'f');
  reader.SetTextAttribute(text.get(), kAttStyle, Pair("font-family:" + family + ";fill:red"));
  EXPECT_EQ(textOf(text->fontspec.fontFamily), family);
  EXPECT_EQ(text->fill.fillColor, kRed);
}

TEST(LocalStyle, nullAndNoMemory) {
  CHandlerReader reader;
  Rect rect;
  char text[] = "fill:red";
  EXPECT_EQ(reader.SetLocalStyleAtt(nullptr, text, kTagRect), 0);
  EXPECT_EQ(reader.SetLocalStyleAtt(rect.get(), nullptr, kTagRect), 0);
  egfhost::failAllocation(1);
  EXPECT_EQ(reader.SetLocalStyleAtt(rect.get(), text, kTagRect), 0);
  egfhost::clearFaults();
  EXPECT_EQ(rect->fill.fillColor, kUnset);
}

TEST(Comments, inATextEndAtASlashOrBracket) {
  struct {
    const char* text;
    int index;
    int result;
  } const cases[] = {{"/*a/b*/c", 0, 4}, {"rect", 0, 0},     {"/* x > y */", 0, 6}, {"", 0, 0},
                     {"/*", 0, 2},       {"/* x", 0, 4},     {"/", 0, 0},           {"/a", 0, 0},
                     {"ab/*c*/d", 2, 7}, {"ab/*c*/d", 1, 1}, {"/*/d", 0, 3}};
  CHandlerReader reader;
  for (const auto& row : cases) {
    EXPECT_EQ(reader.SkipCSScomment(row.text, row.index), row.result) << row.text;
  }
}

}  // namespace
}  // namespace egfsvg::test
