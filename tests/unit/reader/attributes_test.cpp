#include <functional>
#include <map>
#include <set>
#include <vector>

#include "attribute_support.h"

namespace egfsvg::test {
namespace {

// For each code a value that changes the field where the element has one.
const std::map<int, const char*>& tellingValues() {
  static const std::map<int, const char*> values = {{1, "i"},
                                                    {2, "d"},
                                                    {3, "true"},
                                                    {4, "c"},
                                                    {5, "color:#010203"},
                                                    {6, "scale(2)"},
                                                    {7, "text/css"},
                                                    {8, "0 0 1 1"},
                                                    {9, "xMidYMid"},
                                                    {10, "disable"},
                                                    {11, "3"},
                                                    {12, "3"},
                                                    {13, "3"},
                                                    {14, "3"},
                                                    {15, "3"},
                                                    {16, "3"},
                                                    {17, "t"},
                                                    {18, "print"},
                                                    {19, "3"},
                                                    {20, "3"},
                                                    {21, "3"},
                                                    {22, "3"},
                                                    {23, "3"},
                                                    {24, "1,2"},
                                                    {25, "3"},
                                                    {26, "3"},
                                                    {27, "M1 1L2 2"},
                                                    {28, "spacing"},
                                                    {29, "3"},
                                                    {30, "3"},
                                                    {31, "3"},
                                                    {32, "u"},
                                                    {33, "preserve"},
                                                    {34, "en"},
                                                    {35, "h"},
                                                    {36, "yes"},
                                                    {37, "userSpaceOnUse"},
                                                    {38, "scale(2)"},
                                                    {39, "reflect"},
                                                    {40, "0.5"},
                                                    {41, "3"},
                                                    {42, "3"},
                                                    {43, "foo"},
                                                    {44, "foo"},
                                                    {45, "fr"},
                                                    {101, "12px a"},
                                                    {102, "f"},
                                                    {103, "3"},
                                                    {104, "3"},
                                                    {105, "wider"},
                                                    {106, "italic"},
                                                    {107, "small-caps"},
                                                    {108, "bold"},
                                                    {109, "rtl"},
                                                    {110, "3"},
                                                    {111, "underline"},
                                                    {112, "embed"},
                                                    {113, "3"},
                                                    {114, "rect(1)"},
                                                    {115, "#010203"},
                                                    {116, "wait"},
                                                    {117, "block"},
                                                    {118, "hidden"},
                                                    {119, "hidden"},
                                                    {120, "url(#c)"},
                                                    {121, "hidden"},
                                                    {122, "url(#m)"},
                                                    {123, "0.25"},
                                                    {124, "new"},
                                                    {125, "url(#f)"},
                                                    {126, "#010203"},
                                                    {127, "0.25"},
                                                    {128, "#010203"},
                                                    {129, "#010203"},
                                                    {130, "0.25"},
                                                    {131, "all"},
                                                    {132, "linearRGB"},
                                                    {133, "p"},
                                                    {134, "optimizeSpeed"},
                                                    {135, "#010203"},
                                                    {136, "0.25"},
                                                    {137, "evenodd"},
                                                    {138, "optimizeSpeed"},
                                                    {139, "m"},
                                                    {140, "m"},
                                                    {141, "m"},
                                                    {142, "m"},
                                                    {143, "crispEdges"},
                                                    {144, "#010203"},
                                                    {145, "1,2"},
                                                    {146, "3"},
                                                    {147, "round"},
                                                    {148, "bevel"},
                                                    {149, "9"},
                                                    {150, "0.25"},
                                                    {151, "7"},
                                                    {152, "optimizeSpeed"},
                                                    {153, "hanging"},
                                                    {154, "super"},
                                                    {155, "central"},
                                                    {156, "3"},
                                                    {157, "3"},
                                                    {158, "3"},
                                                    {159, "end"},
                                                    {160, "tb"},
                                                    {164, "go()"}};
  return values;
}

// Accepted, but nothing comes of it.
const std::set<int> kWithoutEffect = {10, 28, 114, 124, 125};

using Ranges = std::vector<std::pair<int, int>>;

template <class Record>
using Setter = int (CHandlerReader::*)(Record*, int, _svg_attrib_pair*);

template <class Element, class Record>
void expectAccepted(Setter<Record> setter, const Ranges& ranges) {
  CHandlerReader reader;
  for (int code = -3; code <= 300; ++code) {
    SCOPED_TRACE(code);
    bool accepted = false;
    for (const auto& [first, last] : ranges) accepted |= first <= code && code <= last;
    Element element;
    Record before;
    std::memcpy(&before, element.get(), sizeof before);
    const auto value = tellingValues().find(code);
    Pair pair(value == tellingValues().end() ? "x" : value->second);
    EXPECT_EQ((reader.*setter)(element.get(), code, pair), 0);
    const bool changed = std::memcmp(&before, element.get(), sizeof before) != 0;
    EXPECT_EQ(changed, accepted && kWithoutEffect.count(code) == 0);
  }
  Element element;
  Record before;
  std::memcpy(&before, element.get(), sizeof before);
  EXPECT_EQ((reader.*setter)(element.get(), kAttId, nullptr), 0);
  _svg_attrib_pair withoutValue{"", 0, nullptr};
  EXPECT_EQ((reader.*setter)(element.get(), kAttId, &withoutValue), 0);
  EXPECT_EQ((reader.*setter)(nullptr, kAttId, Pair("a")), 0);
  EXPECT_EQ(std::memcmp(&before, element.get(), sizeof before), 0);
}

const Ranges kRectCodes = {{1, 6},     {11, 16},   {43, 45},   {115, 117}, {119, 123},
                           {125, 125}, {131, 132}, {134, 138}, {143, 152}};

Ranges shapeCodes(Ranges own, bool markers) {
  own.insert(own.end(), {{1, 6},
                         {43, 45},
                         {115, 117},
                         {119, 123},
                         {125, 125},
                         {131, 132},
                         {134, 138},
                         {markers ? 140 : 143, 152}});
  return own;
}

TEST(AcceptedCodes, shapes) {
  using R = CHandlerReader;
  expectAccepted<Rect>(&R::SetRectAttribute, kRectCodes);
  expectAccepted<Circle>(&R::SetCircleAttribute, shapeCodes({{19, 19}, {25, 26}}, false));
  expectAccepted<Ellipse>(&R::SetEllipseAttribute, shapeCodes({{15, 16}, {25, 26}}, false));
  expectAccepted<Line>(&R::SetLineAttribute, shapeCodes({{20, 23}}, true));
  expectAccepted<Polyline>(&R::SetPolylineAttribute, shapeCodes({{24, 24}}, true));
  expectAccepted<Polygon>(&R::SetPolygonAttribute, shapeCodes({{24, 24}}, true));
  expectAccepted<Path>(&R::SetPathAttribute, shapeCodes({{27, 27}}, true));
}

// An svg's contentStyleType is 1 from the start: code 7 changes nothing more.
struct OtherStyleSvg : Svg {
  OtherStyleSvg() { record.contentStyleType = 0; }
};

TEST(AcceptedCodes, containers) {
  using R = CHandlerReader;
  expectAccepted<OtherStyleSvg>(&R::SetSVGAttribute,
                                {{1, 14}, {33, 33}, {43, 45}, {102, 138}, {140, 160}});
  expectAccepted<Group>(&R::SetGroupAttribute,
                        {{1, 6}, {11, 14}, {32, 32}, {43, 45}, {102, 138}, {140, 160}});
  // The class of a `defs` is dropped where no rule has its name.
  expectAccepted<Defs>(&R::SetDefsAttribute, {{1, 3}, {5, 6}, {102, 138}, {140, 160}});
  expectAccepted<Switch>(&R::SetSwitchAttribute, {{1, 6}, {43, 45}, {102, 138}, {140, 160}});
  expectAccepted<Link>(
      &R::SetLinkObjAttribute,
      {{1, 6}, {32, 32}, {43, 45}, {102, 134}, {138, 138}, {140, 143}, {153, 160}});
}

TEST(AcceptedCodes, contents) {
  using R = CHandlerReader;
  expectAccepted<Image>(&R::SetImageAttribute, {{1, 6},
                                                {9, 9},
                                                {11, 14},
                                                {32, 32},
                                                {43, 45},
                                                {114, 123},
                                                {125, 125},
                                                {131, 134},
                                                {138, 138},
                                                {143, 143}});
  expectAccepted<Text>(&R::SetTextAttribute, {{1, 6},
                                              {11, 12},
                                              {28, 32},
                                              {34, 34},
                                              {43, 45},
                                              {102, 113},
                                              {115, 117},
                                              {119, 123},
                                              {125, 125},
                                              {131, 132},
                                              {134, 138},
                                              {143, 160},
                                              {164, 164}});
  expectAccepted<Gradient>(
      &R::SetGradientObjAttribute,
      {{1, 5}, {19, 23}, {25, 26}, {32, 32}, {37, 39}, {41, 42}, {115, 115}, {129, 130}});
  expectAccepted<Stop>(&R::SetStopObjAttribute, {{1, 1}, {4, 5}, {40, 40}, {115, 115}, {129, 130}});
}

TEST(StyleTag, itsFiveAttributes) {
  CHandlerReader reader;
  _svg_style_props style;
  initStyleProps(&style);
  style.alternate = 5;
  reader.SetStyleTagAttribute(&style, kAttType, Pair("text/plain"));
  EXPECT_EQ(style.contentType, -1);
  reader.SetStyleTagAttribute(&style, kAttType, Pair("Text/CSS"));
  EXPECT_EQ(style.contentType, -1);
  reader.SetStyleTagAttribute(&style, kAttType, Pair("text/css"));
  EXPECT_EQ(style.contentType, 1);
  reader.SetStyleTagAttribute(&style, kAttType, Pair("text/plain"));
  EXPECT_EQ(style.contentType, 1);
  reader.SetStyleTagAttribute(&style, kAttTitle, Pair("t"));
  EXPECT_EQ(textOf(style.title), "t");
  reader.SetStyleTagAttribute(&style, kAttMedia, Pair("print"));
  EXPECT_EQ(style.media, 1);
  reader.SetStyleTagAttribute(&style, kAttHref, Pair("h1"));
  reader.SetStyleTagAttribute(&style, kAttHref, Pair("h2"));
  EXPECT_EQ(textOf(style.href), "h2");
  reader.SetStyleTagAttribute(&style, kAttAlternate, Pair("yes"));
  EXPECT_EQ(style.alternate, 0);
  for (int code : {1, 4, 34, 37, 135}) reader.SetStyleTagAttribute(&style, code, Pair("x"));
  EXPECT_EQ(reader.SetStyleTagAttribute(nullptr, kAttType, Pair("text/css")), 0);
  EXPECT_EQ(reader.SetStyleTagAttribute(&style, kAttType, nullptr), 0);
  RMM_Free(style.href);
  DestroyStyleElements(&style);
}

TEST(Radii, theLastOneSetsBoth) {
  CHandlerReader reader;
  Rect rect;
  reader.SetRectAttribute(rect.get(), kAttRx, Pair("3"));
  reader.SetRectAttribute(rect.get(), kAttRy, Pair("5"));
  EXPECT_TRUE(isValue(rect->rx, 5, kUnitPixel));
  EXPECT_TRUE(isValue(rect->ry, 5, kUnitPixel));
  reader.SetRectAttribute(rect.get(), kAttRx, Pair("3"));
  EXPECT_TRUE(isValue(rect->rx, 3, kUnitPixel));
  EXPECT_TRUE(isValue(rect->ry, 3, kUnitPixel));
  reader.SetRectAttribute(rect.get(), kAttRx, Pair("10%"));
  EXPECT_TRUE(isValue(rect->rx, 10, kUnitPercent));
  EXPECT_TRUE(isValue(rect->ry, 10, kUnitPercent));
  EXPECT_EQ(rect->rx.axis, 1);
  EXPECT_EQ(rect->ry.axis, 2);
  Ellipse ellipse;
  reader.SetEllipseAttribute(ellipse.get(), kAttRx, Pair("3"));
  reader.SetEllipseAttribute(ellipse.get(), kAttRy, Pair("5"));
  EXPECT_TRUE(isValue(ellipse->rx, 3, kUnitPixel));
  EXPECT_TRUE(isValue(ellipse->ry, 5, kUnitPixel));
}

TEST(Lengths, eachGoesToItsField) {
  CHandlerReader reader;
  Rect rect;
  Circle circle;
  Ellipse ellipse;
  Line line;
  Image image;
  Svg svg;
  Text text;
  const auto expect = [](const _svg_value& value, double number, int axis) {
    EXPECT_TRUE(isValue(value, number, kUnitPixel));
    EXPECT_EQ(value.axis, axis);
  };
  for (int code : {kAttX, kAttY, kAttWidth, kAttHeight}) {
    const std::string number = std::to_string(code);
    reader.SetRectAttribute(rect.get(), code, Pair(number));
    reader.SetImageAttribute(image.get(), code, Pair(number));
    reader.SetSVGAttribute(svg.get(), code, Pair(number));
    reader.SetTextAttribute(text.get(), code, Pair(number));
  }
  expect(rect->x, 11, 1), expect(rect->y, 12, 2);
  expect(rect->width, 13, 1), expect(rect->height, 14, 2);
  expect(image->x, 11, 1), expect(image->y, 12, 2);
  expect(image->width, 13, 1), expect(image->height, 14, 2);
  expect(svg->x, 11, 1), expect(svg->y, 12, 2);
  expect(svg->width, 13, 1), expect(svg->height, 14, 2);
  expect(text->position.x, 11, 1), expect(text->position.y, 12, 2);
  for (int code : {kAttR, kAttCx, kAttCy}) {
    reader.SetCircleAttribute(circle.get(), code, Pair(std::to_string(code)));
    reader.SetEllipseAttribute(ellipse.get(), code, Pair(std::to_string(code)));
  }
  expect(circle->r, 19, 0), expect(circle->cx, 25, 1), expect(circle->cy, 26, 2);
  expect(ellipse->cx, 25, 1), expect(ellipse->cy, 26, 2);
  for (int code : {kAttX1, kAttY1, kAttX2, kAttY2}) {
    reader.SetLineAttribute(line.get(), code, Pair(std::to_string(code)));
  }
  expect(line->x1, 20, 1), expect(line->y1, 21, 2);
  expect(line->x2, 22, 1), expect(line->y2, 23, 2);
  for (int code : {kAttTextLength, kAttDx, kAttDy}) {
    reader.SetTextAttribute(text.get(), code, Pair(std::to_string(code)));
  }
  EXPECT_TRUE(isValue(text->textLength, 29, kUnitPixel));
  EXPECT_TRUE(isValue(text->dx, 30, kUnitPixel));
  EXPECT_TRUE(isValue(text->dy, 31, kUnitPixel));
}

TEST(Lengths, aTextKnowsItsOwnPlace) {
  CHandlerReader reader;
  Text text;
  EXPECT_EQ(text->hasX + text->hasY, 0);
  reader.SetTextAttribute(text.get(), kAttX, Pair("1"));
  EXPECT_EQ(text->hasX, 1);
  EXPECT_EQ(text->hasY, 0);
  reader.SetTextAttribute(text.get(), kAttY, Pair("1"));
  EXPECT_EQ(text->hasY, 1);
}

TEST(GroupPlace, becomesATranslationInAttributeOrder) {
  CHandlerReader reader;
  Group group;
  reader.SetGroupAttribute(group.get(), kAttX, Pair("5"));
  reader.SetGroupAttribute(group.get(), kAttTransform, Pair("rotate(90)"));
  reader.SetGroupAttribute(group.get(), kAttY, Pair("6"));
  EXPECT_TRUE(isValue(group->x, 5, kUnitPixel));
  EXPECT_TRUE(isValue(group->y, 6, kUnitPixel));
  ASSERT_EQ(group->head.transformCount, 3);
  const transformEntry* list = group->head.transforms;
  EXPECT_EQ(list[0].kind, kTranslate);
  EXPECT_EQ(list[1].kind, kRotate);
  EXPECT_EQ(list[2].kind, kTranslate);
  EXPECT_TRUE(isValue(list[0].args[0], 5, kUnitPixel));
  EXPECT_TRUE(isValue(list[0].args[1], 0, kUnitPixel));
  EXPECT_TRUE(isValue(list[2].args[0], 0, kUnitPixel));
  EXPECT_TRUE(isValue(list[2].args[1], 6, kUnitPixel));
}

// The text goes through as it is, whatever its length.
TEST(GroupPlace, anyTextFits) {
  CHandlerReader reader;
  Group group;
  reader.SetGroupAttribute(group.get(), kAttX, Pair(std::string(5000, ' ') + "5"));
  ASSERT_EQ(group->head.transformCount, 1);
  EXPECT_TRUE(isValue(group->head.transforms[0].args[0], 5, kUnitPixel));
}

TEST(GradientSlots, sharedByBothKinds) {
  CHandlerReader reader;
  for (int type : {kTagLinearGradient, kTagRadialGradient}) {
    Gradient gradient(type);
    const auto& slots = gradient->parms.slots;
    const std::pair<std::pair<int, int>, const _svg_value*> rows[] = {{{20, 25}, &slots.g0},
                                                                      {{21, 26}, &slots.g1},
                                                                      {{22, 41}, &slots.g2},
                                                                      {{23, 42}, &slots.g3},
                                                                      {{19, 19}, &slots.g4}};
    for (const auto& [codes, slot] : rows) {
      const int axis = slot->axis;
      for (int code : {codes.first, codes.second}) {
        reader.SetGradientObjAttribute(gradient.get(), code, Pair(std::to_string(code)));
        EXPECT_TRUE(isValue(*slot, code, kUnitPixel));
        EXPECT_EQ(slot->axis, axis);
      }
    }
  }
}

TEST(GradientWords, spreadAndUnits) {
  CHandlerReader reader;
  Gradient gradient;
  const std::pair<const char*, int> spreads[] = {
      {"pad", 1}, {"reflect", 2}, {"repeat", 3}, {"Reflect", 0}, {"", 0}};
  for (const auto& [text, code] : spreads) {
    reader.SetGradientObjAttribute(gradient.get(), kAttSpreadMethod, Pair(text));
    EXPECT_EQ(gradient->spreadMethod, code) << text;
  }
  const std::pair<const char*, int> units[] = {{"foo", 2},
                                               {"USERSPACEONUSE", 1},
                                               {"foo", 1},
                                               {"objectBoundingBox", 2},
                                               {"userSpaceOnUse", 1}};
  for (const auto& [text, code] : units) {
    reader.SetGradientObjAttribute(gradient.get(), kAttGradientUnits, Pair(text));
    EXPECT_EQ(gradient->gradientUnits, code) << text;
  }
}

TEST(StopOffset, alwaysAPercentage) {
  const std::pair<const char*, double> cases[] = {
      {"0.5", 50}, {"50%", 50}, {"1", 100}, {"0.5px", 50}, {"-1", -100}, {"", 0}, {"150%", 150}};
  CHandlerReader reader;
  for (const auto& [text, percent] : cases) {
    SCOPED_TRACE(text);
    Stop stop;
    reader.SetStopObjAttribute(stop.get(), kAttOffset, Pair(text));
    EXPECT_TRUE(isValue(stop->offset, percent, kUnitPercent));
  }
}

TEST(Words, ofTheHead) {
  CHandlerReader reader;
  Rect rect;
  const std::pair<const char*, int> cases[] = {{"True", 1}, {"yes", 0}, {"TRUE", 1}, {"", 0}};
  for (const auto& [text, code] : cases) {
    reader.SetRectAttribute(rect.get(), kAttExternalResourcesRequired, Pair(text));
    EXPECT_EQ(rect->head.externalResourcesRequired, code) << text;
  }
  reader.SetRectAttribute(rect.get(), kAttDesc, Pair("first"));
  reader.SetRectAttribute(rect.get(), kAttDesc, Pair("second"));
  EXPECT_EQ(textOf(rect->head.desc), "first");
  reader.SetRectAttribute(rect.get(), kAttId, Pair("a"));
  reader.SetRectAttribute(rect.get(), kAttId, Pair("b"));
  EXPECT_EQ(textOf(rect->head.id), "b");
}

TEST(Words, xmlSpaceReachesTheReader) {
  CHandlerReader reader;
  Svg svg;
  reader.SetSVGAttribute(svg.get(), kAttXmlSpace, Pair("default"));
  EXPECT_EQ(reader.xmlSpace, 0);
  reader.SetSVGAttribute(svg.get(), kAttXmlSpace, Pair("PRESERVE"));
  EXPECT_EQ(svg->xmlSpace, 1);
  EXPECT_EQ(reader.xmlSpace, 1);
  reader.SetSVGAttribute(svg.get(), kAttXmlSpace, Pair("default"));
  EXPECT_EQ(reader.xmlSpace, 1);
  EXPECT_EQ(reader.SetXmlSpaceAtt(svg.get(), nullptr), -1);
  EXPECT_EQ(reader.SetXmlSpaceAtt(nullptr, Pair("preserve")), -1);
  Svg other;
  reader.SetSVGAttribute(other.get(), kAttXmlSpace, Pair("foo"));
  EXPECT_EQ(reader.xmlSpace, 0);  // the record's own flag
}

TEST(Words, testAttributes) {
  CHandlerReader reader;
  Rect rect;
  const std::pair<const char*, int> features[] = {
      {"org.w3c.svg", 1}, {"foo", 0}, {"ORG.W3C.SVG.STATIC", 1}, {"org.w3c.svg.all", 0}};
  for (const auto& [text, passes] : features) {
    reader.SetRectAttribute(rect.get(), kAttRequiredFeatures, Pair(text));
    EXPECT_EQ(rect->ta.requiredFeatures.passes, passes) << text;
  }
  reader.SetRectAttribute(rect.get(), kAttRequiredExtensions, Pair(""));
  EXPECT_EQ(rect->ta.requiredExtensions.passes, 0);
  const std::pair<const char*, int> languages[] = {
      {"fr", 0}, {"fr,en", 1}, {"xenon", 1}, {"EN", 0}, {"", 0}};
  for (const auto& [text, passes] : languages) {
    reader.SetRectAttribute(rect.get(), kAttSystemLanguage, Pair(text));
    EXPECT_EQ(rect->ta.systemLanguage.passes, passes) << text;
  }
  _svg_attrib_pair withoutValue{"", 0, nullptr};
  rect->ta.systemLanguage.passes = 1;
  EXPECT_EQ(reader.SetSystemLanguageAtt(&rect->ta.systemLanguage, &withoutValue), 0);
  EXPECT_EQ(rect->ta.systemLanguage.passes, 0);
}

TEST(Links, replacedAndKept) {
  CHandlerReader reader;
  Text text;
  reader.SetTextAttribute(text.get(), kAttXlinkHref, Pair("#a"));
  reader.SetTextAttribute(text.get(), kAttXlinkHref, Pair("#b"));
  EXPECT_EQ(textOf(text->link.value), "#b");
  reader.SetTextAttribute(text.get(), kAttXmlLang, Pair("en"));
  reader.SetTextAttribute(text.get(), kAttXmlLang, Pair("de"));
  EXPECT_EQ(textOf(text->lang.value), "de");
  reader.SetTextAttribute(text.get(), kAttOnClick, Pair("a()"));
  reader.SetTextAttribute(text.get(), kAttOnClick, Pair("b()"));
  EXPECT_EQ(textOf(text->events.onclick), "a()");
}

TEST(Setters, withNothingToSet) {
  CHandlerReader reader;
  EXPECT_EQ(reader.SetIDAtt(nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetDescAtt(nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetLinkAtt(nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetLangAtt(nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetOnClickEventAtt(nullptr, Pair("a")), 0);
  char* text = nullptr;
  EXPECT_EQ(reader.SetTitleAtt(&text, nullptr), 0);
  EXPECT_EQ(reader.SetHrefAtt(&text, nullptr), 0);
  EXPECT_EQ(text, nullptr);
  int word = 7;
  EXPECT_EQ(reader.SetZoomAndPanAtt(&word, Pair("disable")), 0);
  EXPECT_EQ(reader.SetLengthAdjustAtt(&word, Pair("spacing")), 0);
  EXPECT_EQ(reader.SetMediaDescAtt(&word, Pair("print")), 0);
  EXPECT_EQ(reader.SetSpreadMethodAtt(&word, nullptr), 0);
  EXPECT_EQ(reader.SetGradientUnitsAtt(&word, nullptr), 0);
  EXPECT_EQ(reader.SetContentStyleTypeAtt(&word, nullptr), 0);
  EXPECT_EQ(reader.SetAlternateAtt(&word, nullptr), 0);
  EXPECT_EQ(word, 7);
}

}  // namespace
}  // namespace egfsvg::test
