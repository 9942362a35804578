#include <functional>
#include <vector>

#include "attribute_support.h"

namespace egfsvg::test {
namespace {

template <class Group, class Field>
std::function<std::int32_t&(_svg_pa&)> at(Group _svg_pa::*group, Field Group::*field) {
  return [group, field](_svg_pa& pa) -> std::int32_t& { return pa.*group.*field; };
}

// A keyword property of the whole block, by its code.
struct KeywordCase {
  int code;
  std::function<std::int32_t&(_svg_pa&)> field;
  std::vector<std::pair<const char*, int>> words;
  int otherwise;
};

std::vector<KeywordCase> keywordCases() {
  constexpr auto font = &_svg_pa::fontspec;
  constexpr auto graphics = &_svg_pa::graphics;
  constexpr auto stroke = &_svg_pa::stroke;
  constexpr auto content = &_svg_pa::textcontentelems;
  constexpr auto text = &_svg_pa::textelems;
  return {
      {105,
       at(font, &_svg_pa_fontspec::fontStretch),
       {{"normal", 1},
        {"wider", 2},
        {"narrower", 3},
        {"ultra-condensed", 4},
        {"extra-condensed", 5},
        {"condensed", 6},
        {"semi-condensed", 7},
        {"semi-expanded", 8},
        {"expanded", 9},
        {"extra-expanded", 10},
        {"ultra-expanded", 11}},
       1},
      {106,
       at(font, &_svg_pa_fontspec::fontStyle),
       {{"normal", 1}, {"italic", 2}, {"oblique", 3}},
       1},
      {107, at(font, &_svg_pa_fontspec::fontVariant), {{"normal", 1}, {"small-caps", 2}}, 1},
      {108,
       at(font, &_svg_pa_fontspec::fontWeight),
       {{"normal", 1}, {"bold", 2}, {"bolder", 3}, {"lighter", 4}, {"700", 1}, {"900", 1}},
       1},
      {109, at(content, &_svg_pa_textcontentelems::direction), {{"ltr", 1}, {"rtl", 2}}, 1},
      {111,
       at(content, &_svg_pa_textcontentelems::textDecoration),
       {{"none", 1},
        {"underline", 2},
        {"overline", 3},
        {"line-through", 4},
        {"blink", 5},
        {"underline line-through", 6},
        {"line-through underline", 6},
        {"underline  line-through", 1}},
       1},
      {112,
       at(content, &_svg_pa_textcontentelems::unicodeBidi),
       {{"none", 1}, {"embed", 2}, {"bidi-override", 3}},
       1},
      {117,
       at(graphics, &_svg_pa_graphics::display),
       {{"none", 17},
        {"inline", 1},
        {"block", 2},
        {"list-item", 3},
        {"run-in", 4},
        {"compact", 5},
        {"marker", 6},
        {"table", 7},
        {"inline-table", 8},
        {"table-row-group", 9},
        {"table-header-group", 10},
        {"table-footer-group", 11},
        {"table-row", 12},
        {"table-column-group", 13},
        {"table-column", 14},
        {"table-cell", 15},
        {"table-caption", 16},
        {"flex", 17},
        {"", 17}},
       17},
      {118,
       at(&_svg_pa::viewports, &_svg_pa_viewports::overflow),
       {{"visible", 1}, {"hidden", 2}, {"scroll", 3}, {"auto", 4}},
       4},
      {119,
       at(graphics, &_svg_pa_graphics::visibility),
       {{"visible", 1}, {"hidden", 2}, {"collapse", 3}},
       1},
      {121,
       at(graphics, &_svg_pa_graphics::clipRule),
       {{"visible", 1}, {"hidden", 2}, {"collapse", 3}, {"nonzero", 1}, {"evenodd", 1}},
       1},
      {131,
       at(graphics, &_svg_pa_graphics::pointerEvents),
       {{"visiblePainted", 1},
        {"visibleFill", 2},
        {"visibleStroke", 3},
        {"visible", 4},
        {"painted", 5},
        {"fill", 6},
        {"stroke", 7},
        {"all", 8},
        {"none", 9}},
       1},
      {132,
       at(graphics, &_svg_pa_graphics::colorInterpolation),
       {{"auto", 1}, {"sRGB", 2}, {"linearRGB", 3}},
       2},
      {134,
       at(graphics, &_svg_pa_graphics::colorRendering),
       {{"auto", 1}, {"optimizeSpeed", 2}, {"optimizeQuality", 3}},
       1},
      {137, at(&_svg_pa::fill, &_svg_pa_fill::fillRule), {{"nonzero", 1}, {"evenodd", 2}}, 1},
      {143,
       at(graphics, &_svg_pa_graphics::shapeRendering),
       {{"auto", 1}, {"optimizeSpeed", 2}, {"crispEdges", 3}, {"geometricPrecision", 4}},
       1},
      {147,
       at(stroke, &_svg_pa_stroke::strokeLinecap),
       {{"butt", 1}, {"round", 2}, {"square", 3}},
       1},
      {148,
       at(stroke, &_svg_pa_stroke::strokeLinejoin),
       {{"miter", 1}, {"round", 2}, {"bevel", 3}},
       1},
      {152,
       at(graphics, &_svg_pa_graphics::textRendering),
       {{"auto", 1}, {"optimizeSpeed", 2}, {"optimizeLegibility", 3}, {"geometricPrecision", 4}},
       1},
      {153,
       at(content, &_svg_pa_textcontentelems::alignmentBaseline),
       {{"auto", 1},
        {"baseline", 2},
        {"before-edge", 3},
        {"text-before-edge", 4},
        {"middle", 5},
        {"after-edge", 6},
        {"text-after-edge", 7},
        {"ideographic", 8},
        {"alphabetic", 9},
        {"hanging", 10},
        {"mathematical", 11}},
       1},
      {155,
       at(text, &_svg_pa_textelems::dominantBaseline),
       {{"auto", 1},
        {"auto-sensescript", 2},
        {"no-change", 3},
        {"reset-size", 4},
        {"alphabetic", 5},
        {"hanging", 6},
        {"ideographic", 7},
        {"mathematical", 8},
        {"central", 9},
        {"middle", 10},
        {"text-top", 11},
        {"text-bottom", 12},
        {"text_after-edge", 13},
        {"text_before-edge", 14},
        {"text-before-edge", 1},
        {"text-after-edge", 1},
        {"auto-sense-script", 1}},
       1},
      {159, at(text, &_svg_pa_textelems::textAnchor), {{"start", 1}, {"middle", 2}, {"end", 3}}, 1},
      {160,
       at(text, &_svg_pa_textelems::writingMode),
       {{"lr-tb", 1}, {"lr", 1}, {"rl-tb", 2}, {"rl", 2}, {"tb-rl", 3}, {"tb", 3}},
       1},
  };
}

std::string upperCase(std::string text) {
  for (char& c : text) c = upper(c);
  return text;
}

TEST(Keywords, eachWordInAnyCaseAndTheFallback) {
  CHandlerReader reader;
  for (const KeywordCase& row : keywordCases()) {
    Group group;
    std::int32_t& field = row.field(group->pa);
    auto words = row.words;
    for (const char* other : {"foo", "normall", "0", "a word that is longer than any keyword is"}) {
      words.emplace_back(other, row.otherwise);
    }
    for (const auto& [word, code] : words) {
      SCOPED_TRACE(testing::Message() << row.code << " " << word);
      for (const std::string& text : {std::string(word), upperCase(word)}) {
        field = 99;
        EXPECT_EQ(reader.SetGroupAttribute(group.get(), row.code, Pair(text)), 0);
        EXPECT_EQ(field, code);
      }
    }
    field = 99;
    reader.SetGroupAttribute(group.get(), row.code, Pair("inherit"));  // no parent: nothing
    EXPECT_EQ(field, 99) << row.code;
    reader.SetGroupAttribute(group.get(), row.code, Pair("INHERIT"));
    EXPECT_EQ(field, 99) << row.code;
    reader.SetGroupAttribute(group.get(), row.code, Pair(" inherit"));
    EXPECT_EQ(field, row.otherwise) << row.code;
  }
}

TEST(Keywords, imageRenderingFallsBackOnAnotherField) {
  CHandlerReader reader;
  Rect rect;
  reader.SetRectAttribute(rect.get(), kAttColorRendering, Pair("optimizeSpeed"));
  reader.SetRectAttribute(rect.get(), kAttImageRendering, Pair("foo"));
  EXPECT_EQ(rect->graphics.colorRendering, 1);
  EXPECT_EQ(rect->graphics.imageRendering, 1);
  reader.SetRectAttribute(rect.get(), kAttColorRendering, Pair("optimizeSpeed"));
  reader.SetRectAttribute(rect.get(), kAttImageRendering, Pair("optimizeQuality"));
  EXPECT_EQ(rect->graphics.imageRendering, 3);
  EXPECT_EQ(rect->graphics.colorRendering, 2);
  reader.SetRectAttribute(rect.get(), kAttImageRendering, Pair("inherit"));
  EXPECT_EQ(rect->graphics.imageRendering, 3);
  EXPECT_EQ(rect->graphics.colorRendering, 2);
  reader.SetRectAttribute(rect.get(), kAttImageRendering, Pair("foo"));
  EXPECT_EQ(rect->graphics.imageRendering, 3);
  EXPECT_EQ(rect->graphics.colorRendering, 1);
}

struct NumberCase {
  const char* text;
  double number;
};

TEST(Numbers, plainDoubles) {
  const NumberCase cases[] = {{"50%", 50},    {"foo", 0},  {"1E-1", 0.1},   {"-1", -1},
                              {"0.25", 0.25}, {".5", 0.5}, {" 0.75", 0.75}, {"", 0},
                              {"0x1", 0},     {"inf", 0}};
  CHandlerReader reader;
  Group group;
  const std::pair<int, double*> fields[] = {{123, &group->pa.graphics.opacity},
                                            {127, &group->pa.feflood.floodOpacity},
                                            {130, &group->pa.gradients.stopOpacity},
                                            {136, &group->pa.fill.fillOpacity},
                                            {150, &group->pa.stroke.strokeOpacity}};
  for (const auto& [code, field] : fields) {
    for (const NumberCase& row : cases) {
      SCOPED_TRACE(testing::Message() << code << " " << row.text);
      *field = 99;
      reader.SetGroupAttribute(group.get(), code, Pair(row.text));
      EXPECT_TRUE(sameNumber(row.number, *field)) << *field;
    }
    *field = 99;
    reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
    EXPECT_EQ(*field, 99) << code;
  }
}

// "inherit" is no word here: it reads as 0.
TEST(Numbers, lengths) {
  CHandlerReader reader;
  Group group;
  const std::pair<int, _svg_value*> fields[] = {{103, &group->pa.fontspec.fontSize},
                                                {104, &group->pa.fontspec.fontSizeAdjust},
                                                {110, &group->pa.textcontentelems.letterSpacing},
                                                {113, &group->pa.textcontentelems.wordSpacing},
                                                {146, &group->pa.stroke.strokeDashOffset},
                                                {151, &group->pa.stroke.strokeWidth},
                                                {158, &group->pa.textcontentelems.kerning}};
  for (const auto& [code, field] : fields) {
    SCOPED_TRACE(code);
    reader.SetGroupAttribute(group.get(), code, Pair("2.5mm"));
    EXPECT_TRUE(isValue(*field, 2.5, kUnitMillimetre));
    reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
    EXPECT_TRUE(isValue(*field, 0, kUnitPixel));
  }
}

TEST(Numbers, angles) {
  CHandlerReader reader;
  Group group;
  reader.SetGroupAttribute(group.get(), 156, Pair("2rad"));
  reader.SetGroupAttribute(group.get(), 157, Pair("45"));
  EXPECT_EQ(group->pa.textcontentelems.glyphOrientationHorizontal.value, 2);
  EXPECT_EQ(group->pa.textcontentelems.glyphOrientationHorizontal.unit, kUnitRadian);
  EXPECT_EQ(group->pa.textcontentelems.glyphOrientationVertical.value, 45);
  EXPECT_EQ(group->pa.textcontentelems.glyphOrientationVertical.unit, kUnitDegree);
}

TEST(Texts, storedAsWrittenAndReplaced) {
  CHandlerReader reader;
  Group group;
  const std::pair<int, char**> fields[] = {
      {102, &group->pa.fontspec.fontFamily}, {116, &group->pa.graphics.cursor},
      {120, &group->pa.graphics.clipPath},   {122, &group->pa.graphics.mask},
      {133, &group->pa.images.colorProfile}, {140, &group->pa.markers.markerMid},
      {141, &group->pa.markers.markerStart}, {142, &group->pa.markers.markerEnd}};
  for (const auto& [code, field] : fields) {
    SCOPED_TRACE(code);
    reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
    EXPECT_EQ(textOf(*field), "null");
    reader.SetGroupAttribute(group.get(), code, Pair("'A b', c"));
    EXPECT_EQ(textOf(*field), "'A b', c");
    reader.SetGroupAttribute(group.get(), code, Pair("url(#m)"));
    EXPECT_EQ(textOf(*field), "url(#m)");
    reader.SetGroupAttribute(group.get(), code, Pair("Inherit"));
    EXPECT_EQ(textOf(*field), "url(#m)");
  }
}

TEST(Texts, baselineShiftsGather) {
  CHandlerReader reader;
  Text text;
  reader.SetTextAttribute(text.get(), kAttBaselineShift, Pair("super"));
  EXPECT_EQ(textOf(text->textcontentelems.baselineShift), "super");
  reader.SetTextAttribute(text.get(), kAttBaselineShift, Pair("10%"));
  reader.SetTextAttribute(text.get(), kAttBaselineShift, Pair("inherit"));
  EXPECT_EQ(textOf(text->textcontentelems.baselineShift), "super 10%");
}

TEST(Texts, baselineShiftsGatherUpTo65535Bytes) {
  CHandlerReader reader;
  Text text;
  const std::string first(65530, 's');
  for (const char* word : {first.c_str(), "12345", "1234", "5"}) {
    reader.SetTextAttribute(text.get(), kAttBaselineShift, Pair(word));
  }
  EXPECT_EQ(textOf(text->textcontentelems.baselineShift), first + " 1234");
}

TEST(Texts, whatNothingFills) {
  CHandlerReader reader;
  Group group;
  reader.SetGroupAttribute(group.get(), kAttFilter, Pair("url(#f)"));
  reader.SetGroupAttribute(group.get(), kAttEnableBackground, Pair("new"));
  reader.SetGroupAttribute(group.get(), kAttClip, Pair("rect(1 2 3 4)"));
  EXPECT_EQ(group->pa.graphics.filter, nullptr);
  EXPECT_EQ(group->pa.containers.enableBackground, nullptr);
  for (const _svg_value& side : group->pa.viewports.clipRect) {
    EXPECT_TRUE(isValue(side, 0, kUnitPixel));
  }
}

TEST(ColourProperties, eachField) {
  CHandlerReader reader;
  Group group;
  const std::pair<int, _svg_color*> fields[] = {{115, &group->pa.graphics.color},
                                                {126, &group->pa.feflood.floodColor},
                                                {128, &group->pa.lighting.lightingColor},
                                                {129, &group->pa.gradients.stopColor}};
  for (const auto& [code, field] : fields) {
    SCOPED_TRACE(code);
    reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
    EXPECT_TRUE(isColor(*field, 255, 255, 255));
    reader.SetGroupAttribute(group.get(), code, Pair("#010203"));
    EXPECT_TRUE(isColor(*field, 1, 2, 3));
    reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
    EXPECT_TRUE(isColor(*field, 1, 2, 3));
  }
}

// The record of a style element takes every property, and has no parent to inherit from.
TEST(StyleRecord, takesEveryProperty) {
  CHandlerReader reader;
  _svg_style_props style;
  initStyleProps(&style);
  for (const KeywordCase& row : keywordCases()) {
    SCOPED_TRACE(row.code);
    EXPECT_EQ(reader.SetStyleTagPresentationAtt(&style, row.code, Pair(row.words[1].first)), 0);
    EXPECT_EQ(row.field(style.pa), row.words[1].second);
  }
  reader.SetStyleTagPresentationAtt(&style, kAttColor, Pair("red"));
  reader.SetStyleTagPresentationAtt(&style, kAttFill, Pair("currentColor"));
  reader.SetStyleTagPresentationAtt(&style, kAttStroke, Pair("currentColor"));
  EXPECT_TRUE(isColor(style.pa.fill.fillColor, 255, 0, 0));
  EXPECT_TRUE(isColor(style.pa.stroke.strokeColor, 255, 0, 0));
  reader.SetStyleTagPresentationAtt(&style, kAttStrokeWidth, Pair("3"));
  EXPECT_TRUE(isValue(style.pa.stroke.strokeWidth, 3, kUnitPixel));
  style.pa.graphics.display = 5;
  reader.SetStyleTagPresentationAtt(&style, kAttDisplay, Pair("inherit"));
  EXPECT_EQ(style.pa.graphics.display, 5);
  for (int code : {-1, 0, 1, 100, 161, 1000}) {
    EXPECT_EQ(reader.SetStyleTagPresentationAtt(&style, code, Pair("red")), 0);
  }
  EXPECT_EQ(reader.SetStyleTagPresentationAtt(nullptr, kAttFill, Pair("red")), 0);
  EXPECT_EQ(reader.SetStyleTagPresentationAtt(&style, kAttFill, nullptr), 0);
  DestroyStyleElements(&style);
}

// Each setter leaves everything alone for a null group or pair.
TEST(Setters, nullGroupOrPair) {
  CHandlerReader reader;
  _svg_pa_fill fill{};
  _svg_pa_stroke stroke{};
  EXPECT_EQ(reader.SetFillPatt(nullptr, Pair("inherit")), 0);
  EXPECT_EQ(reader.SetFillPatt(nullptr, Pair("red")), 0);
  EXPECT_EQ(reader.SetFillPatt(&fill, nullptr), 0);
  EXPECT_EQ(reader.SetStrokePatt(nullptr, Pair("red")), 0);
  EXPECT_EQ(reader.SetStrokePatt(&stroke, nullptr), 0);
  EXPECT_EQ(reader.SetDisplayPatt(nullptr, nullptr, Pair("inherit")), 0);
  EXPECT_EQ(reader.SetDisplayPatt(nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(reader.SetOpacityPatt(nullptr, nullptr, Pair("1")), 0);
  EXPECT_EQ(reader.SetFontFamilyPatt(nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetFontStylePatt(nullptr, Pair("italic")), 0);
  EXPECT_EQ(reader.SetBaselineShiftPatt(nullptr, nullptr, Pair("a")), 0);
  EXPECT_EQ(reader.SetClipPatt(nullptr, nullptr, Pair("inherit")), 0);
  EXPECT_EQ(reader.SetImageRenderingPatt(nullptr, Pair("auto")), 0);
  EXPECT_EQ(reader.SetStopColorPatt(nullptr, nullptr, Pair("red")), 0);
  EXPECT_EQ(reader.SetStrokeMiterlimitPatt(nullptr, Pair("5")), 0);
  EXPECT_EQ(reader.SetFontPatt(nullptr, nullptr), 0);
  EXPECT_EQ(reader.SetMarkerPatt(nullptr, nullptr), 0);
  EXPECT_EQ(fill.fillOpacity, 0.0);
  EXPECT_EQ(stroke.strokePresent, 0);
}

}  // namespace
}  // namespace egfsvg::test
