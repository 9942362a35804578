#include <cctype>
#include <random>
#include <string>

#include "attribute_support.h"
#include "model/name_tables.h"
#include "reader/paints.h"

namespace egfsvg::test {
namespace {

struct ColourCase {
  const char* text;
  int result;
  int red, green, blue;
};

const ColourCase kColours[] = {{"#000", 0, 255, 255, 255},
                               {"#000000", 0, 255, 255, 255},
                               {"rgb(0,0,0)", 0, 255, 255, 255},
                               {"black", 0, 255, 255, 255},
                               {"BLACK", 0, 255, 255, 255},
                               {"white", 0, 0, 0, 0},
                               {"#fff", 0, 0, 0, 0},
                               {"#FFFFFF", 0, 0, 0, 0},
                               {"rgb(255,255,255)", 0, 0, 0, 0},
                               {"#ab", -1, 170, 187, 0},
                               {"#a", -1, 170, 0, 0},
                               {"#", -1, 0, 0, 0},
                               {"#1a2", 0, 17, 170, 34},
                               {"#010203", 0, 1, 2, 3},
                               {"#aBcDeF", 0, 171, 205, 239},
                               {"rgb(100%,0%,0%)", 0, 254, 0, 0},
                               {"rgb(50%,0,0)", 0, 127, 0, 0},
                               {"rgb(300,0,0)", 0, 255, 0, 0},
                               {"unknownname", 0, 255, 255, 255},
                               {"", 0, 255, 255, 255},
                               {"rgb(101%,0,0)", 0, 255, 255, 255},
                               {"rgb(101%,1,2)", 0, 0, 1, 2},
                               {"rgb(200%,1,2)", 0, 0, 1, 2},
                               {"rgb(0%,0%,0%)", 0, 255, 255, 255},
                               {"rgb(100%,100%,100%)", 0, 254, 254, 254},
                               {"rgb(20%,40%,60%)", 0, 51, 102, 153},
                               {"rgb(-10%,5,5)", 0, 0, 5, 5},
                               {"rgb(-5,1,1)", 0, 0, 1, 1},
                               {"rgb(1 2 3)", 0, 1, 2, 3},
                               {"rgb( 10 , 20 , 30 )", 0, 10, 20, 30},
                               {"RGB(10,20,30)", 0, 10, 20, 30},
                               {"rgba(1,2,3,0.5)", 0, 1, 2, 3},
                               {"rgb(1,2)", 0, 1, 2, 0},
                               {"rgb(1", 0, 1, 0, 0},
                               {"rgbfoo", 0, 255, 255, 255},
                               {"rgb", 0, 255, 255, 255},
                               {"rgb(1e2,3,4)", 0, 1, 2, 3},
                               {"rgb(1.9,2.5,3.99)", 0, 1, 2, 3},
                               {"rgb(99999999999,1,1)", 0, 255, 1, 1},
                               {"rgb(-99999999999,1,1)", 0, 0, 1, 1},
                               {"rgb(99999999999%,1,1)", 0, 0, 1, 1},
                               {"#12345", 0, 18, 52, 5},
                               {"#0000", -1, 0, 0, 0},
                               {"#ffffff80", 0, 0, 0, 0},
                               {"#gg0000", -1, 0, 0, 0},
                               {"#12gg00", -1, 18, 0, 0},
                               {"#1g2h3i", 0, 1, 2, 3},
                               {"# 1+2\t3", 0, 1, 2, 3},
                               {"# 1  03", -1, 1, 0, 0},
                               {"#++0203", -1, 0, 0, 0},
                               {"red ", 0, 255, 255, 255},
                               {" red", 0, 255, 255, 255},
                               {"red", 0, 255, 0, 0},
                               {"transparent", 0, 255, 255, 255},
                               {"hsl(0,1,1)", 0, 255, 255, 255},
                               {"darkcyan", 0, 0, 139, 139},
                               {"none", 0, 255, 255, 255}};

/// Random digits, also black, white and texts with a byte that is no digit.
TEST(Colours, sixDigitsInAnyCase) {
  constexpr const char* kDigits[] = {"0123456789abcdef", "0123456789ABCDEF"};
  std::mt19937 random(21);
  CHandlerReader reader;
  for (int round = 0; round < 5000; ++round) {
    const int number = round % 50 == 0 ? 0 : round % 50 == 1 ? 0xffffff : random() & 0xffffff;
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
      text += kDigits[random() % 2][number >> shift & 15];
    }
    const bool exchanged = number == 0 || number == 0xffffff;
    const int stored = exchanged ? 0xffffff - number : number;
    if (random() % 4 == 0) text += "80";
    EXPECT_TRUE(
        isColor(parseColor(reader, Pair(text)), stored >> 16, stored >> 8 & 255, stored & 255))
        << text;
    text[1 + random() % (text.size() - 1)] = "gG-/:@` \x80"[random() % 9];
    int red = 0, green = 0, blue = 0;
    reader.GetSVGColorPatt(red, green, blue, Pair(text));
    EXPECT_TRUE(isColor(parseColor(reader, Pair(text)), red, green, blue)) << text;
  }
}

TEST(Colours, channelsWithBlackAndWhiteExchanged) {
  CHandlerReader reader;
  for (const ColourCase& row : kColours) {
    SCOPED_TRACE(row.text);
    int red = 0;
    int green = 0;
    int blue = 0;
    EXPECT_EQ(reader.GetSVGColorPatt(red, green, blue, Pair(row.text)), row.result);
    EXPECT_TRUE(isColor({red, green, blue, 0}, row.red, row.green, row.blue));
  }
}

// Whatever the scan answers, what it read is stored.
TEST(Colours, fillStoresWhatWasRead) {
  CHandlerReader reader;
  for (const ColourCase& row : kColours) {
    SCOPED_TRACE(row.text);
    Rect rect;
    rect->fill.fillColor = {9, 9, 9, 9};
    reader.SetRectAttribute(rect.get(), kAttColor, Pair(row.text));
    EXPECT_TRUE(isColor(rect->graphics.color, row.red, row.green, row.blue));
    if (std::string(row.text) == "none") continue;
    reader.SetRectAttribute(rect.get(), kAttFill, Pair(row.text));
    EXPECT_TRUE(isColor(rect->fill.fillColor, row.red, row.green, row.blue));
    reader.SetRectAttribute(rect.get(), kAttStroke, Pair(row.text));
    EXPECT_TRUE(isColor(rect->stroke.strokeColor, row.red, row.green, row.blue));
  }
}

TEST(Colours, nullChangesNothing) {
  CHandlerReader reader;
  int red = 1, green = 2, blue = 3;
  EXPECT_EQ(reader.GetSVGColorPatt(red, green, blue, nullptr), 0);
  EXPECT_EQ(red * 100 + green * 10 + blue, 123);
}

struct FillCase {
  const char* first;
  const char* second;
  double opacity;
  int red, green, blue;
};

TEST(Fill, noneAndColours) {
  // Attributes by their code: fill, or fill-opacity when it starts with a digit.
  const FillCase cases[] = {
      {"red", "0", 0.0, 255, 0, 0},         {"0", "red", 1.0, 255, 0, 0},
      {"none", "0.5", 0.5, 255, 255, 255},  {"0.5", "none", 0.0, 255, 255, 255},
      {"red", "none", 0.0, 255, 0, 0},      {"none", "red", 1.0, 255, 0, 0},
      {"0.5", "red", 0.5, 255, 0, 0},       {"red", "inherit", 1.0, 255, 0, 0},
      {"NONE", "0.25", 0.25, 255, 255, 255}};
  CHandlerReader reader;
  for (const FillCase& row : cases) {
    SCOPED_TRACE(testing::Message() << row.first << ", " << row.second);
    Rect rect;
    for (const char* text : {row.first, row.second}) {
      const int code = isdigit(text[0]) != 0 ? kAttFillOpacity : kAttFill;
      reader.SetRectAttribute(rect.get(), code, Pair(text));
    }
    EXPECT_EQ(rect->fill.fillOpacity, row.opacity);
    EXPECT_TRUE(isColor(rect->fill.fillColor, row.red, row.green, row.blue));
  }
}

TEST(Stroke, noneAndColours) {
  struct {
    const char* text;
    int present, red, green, blue;
  } const cases[] = {{"none", 0, 255, 255, 255},
                     {"None", 0, 255, 255, 255},
                     {"red", 1, 255, 0, 0},
                     {"bogus", 1, 255, 255, 255},
                     {"", 1, 255, 255, 255}};
  CHandlerReader reader;
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    reader.SetRectAttribute(rect.get(), kAttStroke, Pair(row.text));
    EXPECT_EQ(rect->stroke.strokePresent, row.present);
    EXPECT_TRUE(isColor(rect->stroke.strokeColor, row.red, row.green, row.blue));
  }
  Rect rect;
  reader.SetRectAttribute(rect.get(), kAttStroke, Pair("inherit"));
  EXPECT_EQ(rect->stroke.strokePresent, 0);
  EXPECT_TRUE(isColor(rect->stroke.strokeColor, 0, 0, 0));
}

// A reader whose gradient table holds one gradient.
struct WithGradient : testing::Test {
  WithGradient() {
    initGradientObj(&gradient);
    reader.gradients.insert(duplicateText("#a", RMM_SITE), &gradient);
  }
  ~WithGradient() override { reader.gradients.clear(); }

  CHandlerReader reader;
  _svg_gradient gradient;
  Rect rect;
};

TEST_F(WithGradient, aReferenceIsFoundByItsText) {
  for (const char* text : {"url(#a)", "URL(#A)", "url( #a )", "url(#a) none", "url(#a", "url#a"}) {
    SCOPED_TRACE(text);
    Rect fresh;
    reader.SetRectAttribute(fresh.get(), kAttFill, Pair(text));
    reader.SetRectAttribute(fresh.get(), kAttStroke, Pair(text));
    EXPECT_EQ(fresh->fill.fillGradient, &gradient);
    EXPECT_EQ(fresh->fill.fillOpacity, 1.0);
    EXPECT_EQ(fresh->stroke.strokeGradient, &gradient);
    EXPECT_EQ(fresh->stroke.strokePresent, 1);
    EXPECT_STRCASEEQ(fresh->fill.fillUrl, "#a");
    EXPECT_STRCASEEQ(fresh->stroke.strokeUrl, "#a");
  }
}

TEST_F(WithGradient, aReferenceThatIsNotFound) {
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("url(#missing)"));
  reader.SetRectAttribute(rect.get(), kAttStroke, Pair("url(#missing)"));
  EXPECT_EQ(rect->fill.fillGradient, nullptr);
  EXPECT_EQ(rect->fill.fillOpacity, 0.0);
  EXPECT_STREQ(rect->fill.fillUrl, "#missing");
  EXPECT_EQ(rect->stroke.strokePresent, 1);
  EXPECT_STREQ(rect->stroke.strokeUrl, "#missing");
  EXPECT_EQ(rect->stroke.strokeGradient, nullptr);
  EXPECT_TRUE(isColor(rect->stroke.strokeColor, 0, 0, 0));
}

TEST_F(WithGradient, quotesStayInTheReference) {
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("url('#a')"));
  EXPECT_EQ(rect->fill.fillGradient, nullptr);
  EXPECT_STREQ(rect->fill.fillUrl, "'#a'");
}

TEST_F(WithGradient, aLaterColourOrNoneClearsIt) {
  for (const char* text : {"red", "none"}) {
    SCOPED_TRACE(text);
    reader.SetRectAttribute(rect.get(), kAttFill, Pair("url(#a)"));
    reader.SetRectAttribute(rect.get(), kAttStroke, Pair("url(#a)"));
    reader.SetRectAttribute(rect.get(), kAttFill, Pair(text));
    reader.SetRectAttribute(rect.get(), kAttStroke, Pair(text));
    EXPECT_EQ(rect->fill.fillGradient, nullptr);
    EXPECT_EQ(rect->fill.fillUrl, nullptr);
    EXPECT_EQ(rect->stroke.strokeGradient, nullptr);
    EXPECT_EQ(rect->stroke.strokeUrl, nullptr);
  }
}

TEST_F(WithGradient, itUndoesNone) {
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("none"));
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("url(#a)"));
  EXPECT_EQ(rect->fill.fillOpacity, 1.0);
  reader.SetRectAttribute(rect.get(), kAttFillOpacity, Pair("0.5"));
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("url(#a)"));
  EXPECT_EQ(rect->fill.fillOpacity, 0.5);
}

TEST(CurrentColour, theColourAsItIsByNow) {
  CHandlerReader reader;
  Rect rect;
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("currentColor"));
  EXPECT_TRUE(isColor(rect->fill.fillColor, 255, 255, 255));
  for (const char* color : {"red", "lime", "black", "white", "#010203"}) {
    SCOPED_TRACE(color);
    reader.SetRectAttribute(rect.get(), kAttColor, Pair(color));
    reader.SetRectAttribute(rect.get(), kAttFill, Pair("currentColor"));
    reader.SetRectAttribute(rect.get(), kAttStroke, Pair("CURRENTCOLOR"));
    const _svg_color expected = rect->graphics.color;
    EXPECT_TRUE(isColor(rect->fill.fillColor, expected.red, expected.green, expected.blue));
    EXPECT_TRUE(isColor(rect->stroke.strokeColor, expected.red, expected.green, expected.blue));
  }
}

TEST(CurrentColour, thePairIsNotWrittenTo) {
  CHandlerReader reader;
  Rect rect;
  Pair pair("currentColor");
  reader.SetRectAttribute(rect.get(), kAttFill, pair);
  EXPECT_EQ(pair.text(), "currentColor");
}

TEST(CurrentColour, theSubstituteIsWhatTheColourMeans) {
  CHandlerReader reader;
  struct {
    _svg_color color;
    const char* text;
  } const cases[] = {{{255, 255, 255, 0}, "rgb(0,0,0)"},
                     {{0, 0, 0, 0}, "rgb(255,255,255)"},
                     {{1, 2, 3, 0}, "rgb(1,2,3)"}};
  for (const auto& row : cases) {
    _svg_pa_graphics group{};
    group.color = row.color;
    Pair pair(std::string("CurrentColor") + std::string(20, '\0'));
    EXPECT_EQ(reader.SetCurrentColorToAttribute(&group, pair), 0);
    EXPECT_STREQ(static_cast<_svg_attrib_pair*>(pair)->value, row.text);
    Pair small("currentColor");
    reader.SetCurrentColorToAttribute(&group, small);
    const bool fits = std::strlen(row.text) <= 12;
    EXPECT_STREQ(static_cast<_svg_attrib_pair*>(small)->value, fits ? row.text : "currentColor");
  }
  _svg_pa_graphics group{};
  Pair other("red");
  EXPECT_EQ(reader.SetCurrentColorToAttribute(&group, other), 0);
  EXPECT_EQ(reader.SetCurrentColorToAttribute(&group, nullptr), 0);
  EXPECT_EQ(reader.SetCurrentColorToAttribute(nullptr, other), 0);
  EXPECT_EQ(other.text(), "red");
}

TEST(CurrentColour, ofGradientsAndStops) {
  CHandlerReader reader;
  Gradient gradient;
  Stop stop;
  reader.SetGradientObjAttribute(gradient.get(), kAttColor, Pair("red"));
  reader.SetGradientObjAttribute(gradient.get(), kAttStopColor, Pair("currentColor"));
  EXPECT_TRUE(isColor(gradient->gradients.stopColor, 255, 0, 0));
  reader.SetGradientObjAttribute(gradient.get(), kAttColor, Pair("currentColor"));
  EXPECT_TRUE(isColor(gradient->graphics.color, 255, 0, 0));
  reader.SetStopObjAttribute(stop.get(), kAttColor, Pair("lime"));
  reader.SetStopObjAttribute(stop.get(), kAttStopColor, Pair("currentColor"));
  EXPECT_TRUE(isColor(stop->gradients.stopColor, 0, 255, 0));
  reader.SetStopObjAttribute(stop.get(), kAttColor, Pair("currentColor"));  // a name like any other
  EXPECT_TRUE(isColor(stop->graphics.color, 255, 255, 255));
}

}  // namespace
}  // namespace egfsvg::test
