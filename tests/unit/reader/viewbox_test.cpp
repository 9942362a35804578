#include <limits>

#include "attribute_support.h"

namespace egfsvg::test {
namespace {

struct ViewBoxCase {
  std::string text;
  double x, y, width, height;
};

TEST(ViewBox, fourNumbersInTheAttributesOrder) {
  const ViewBoxCase cases[] = {{"0,0 100 50", 0, 0, 100, 50},
                               {"0 0 100 50", 0, 0, 100, 50},
                               {"0 0 100", 0, 0, 100, 0},
                               {"0-5 10 10", 0, 10, 10, 0},
                               {" \t1,,2\r\n3 , 4 5 6", 1, 2, 3, 4},
                               {"", 0, 0, 0, 0},
                               {"a b c d", 0, 0, 0, 0},
                               {std::string(30, '1') + "5 2", 1.1111111111111111e29, 5, 2, 0}};
  CHandlerReader reader;
  for (const ViewBoxCase& row : cases) {
    SCOPED_TRACE(row.text);
    _svg_viewbox* box = nullptr;
    EXPECT_EQ(reader.SetViewboxAtt(&box, Pair(row.text)), 0);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(isValue(box->x, row.x, kUnitPixel));
    EXPECT_TRUE(isValue(box->y, row.y, kUnitPixel));
    EXPECT_TRUE(isValue(box->width, row.width, kUnitPixel));
    EXPECT_TRUE(isValue(box->height, row.height, kUnitPixel));
    for (const _svg_value& value : {box->x, box->y, box->width, box->height}) {
      EXPECT_EQ(value.axis, 0);
    }
    RMM_Free(box);
  }
}

TEST(ViewBox, unitsAreKept) {
  CHandlerReader reader;
  _svg_viewbox* box = nullptr;
  reader.SetViewboxAtt(&box, Pair("1mm 2% 3in 4"));
  EXPECT_TRUE(isValue(box->x, 1, kUnitMillimetre));
  EXPECT_TRUE(isValue(box->y, 2, kUnitPercent));
  EXPECT_TRUE(isValue(box->width, 3, kUnitInch));
  EXPECT_TRUE(isValue(box->height, 4, kUnitPixel));
  RMM_Free(box);
}

TEST(ViewBox, aSecondAttributeReplacesTheFirst) {
  CHandlerReader reader;
  _svg_viewbox* box = nullptr;
  reader.SetViewboxAtt(&box, Pair("0 0 1 1"));
  reader.SetViewboxAtt(&box, Pair("0 0 2 2"));
  EXPECT_TRUE(isValue(box->width, 2, kUnitPixel));
  EXPECT_EQ(reader.SetViewboxAtt(&box, nullptr), 0);
  EXPECT_TRUE(isValue(box->width, 2, kUnitPixel));
  RMM_Free(box);
}

struct AspectCase {
  const char* text;
  int stored;
};

TEST(PreserveAspect, alignmentAndFit) {
  const AspectCase cases[] = {{"none", 1024},
                              {"", 1025},
                              {"xMinYMin", 1025},
                              {"xMidYMin meet", 1026},
                              {"xMaxYMin", 1028},
                              {"xMinYMid", 1032},
                              {"xMidYMid", 1040},
                              {"XMIDYMID SLICE", 528},
                              {"xMaxYMid slice", 544},
                              {"xMinYMax slice", 576},
                              {"xMidYMax slice", 640},
                              {"xMaxYMax slice", 768},
                              {"none slice", 512},
                              {"xMidYMid bogus", 1040},
                              {"bogus slice", 513},
                              {"defer xMidYMid slice", 1025},
                              {" \n xMidYMid \t slice ", 528}};
  CHandlerReader reader;
  for (const AspectCase& row : cases) {
    SCOPED_TRACE(row.text);
    int aspect = -1;
    EXPECT_EQ(reader.SetPreserveAspectAtt(&aspect, Pair(row.text)), 0);
    EXPECT_EQ(aspect, row.stored);
  }
}

TEST(PreserveAspect, nullIsRefused) {
  CHandlerReader reader;
  int aspect = 7;
  EXPECT_EQ(reader.SetPreserveAspectAtt(&aspect, nullptr), -1);
  _svg_attrib_pair pair{"", 0, nullptr};
  EXPECT_EQ(reader.SetPreserveAspectAtt(&aspect, &pair), -1);
  EXPECT_EQ(aspect, 7);
}

// A long word is one unknown word, whatever it ends in.
TEST(PreserveAspect, longWordsStayWhole) {
  CHandlerReader reader;
  const struct {
    std::string text;
    int stored;
  } cases[] = {
      {std::string(31, 'x') + "slice", 1025},
      {std::string(40, 'x') + " slice", 513},
      {"none " + std::string(31, 'x') + "slice", 1024},
      {"xMidYMid " + std::string(40, 'x') + " slice", 1040},
      {std::string(100000, 'x'), 1025},
  };
  for (const auto& row : cases) {
    int aspect = 0;
    EXPECT_EQ(reader.SetPreserveAspectAtt(&aspect, Pair(row.text)), 0);
    EXPECT_EQ(aspect, row.stored) << row.text.size();
  }
}

TEST(Viewport, anSvgWithoutViewBoxGetsItsOwnSize) {
  CHandlerReader reader;
  Svg svg;
  svg->width = {kUnitInch, 2, 1};
  svg->height = {kUnitInch, 1, 2};
  EXPECT_EQ(reader.SetViewBoxToVPort(svg.get()), 0);
  EXPECT_TRUE(isValue(svg->width, 192, kUnitPixel));
  EXPECT_TRUE(isValue(svg->height, 96, kUnitPixel));
  EXPECT_TRUE(isValue(svg->viewBox->x, 0, kUnitPixel));
  EXPECT_TRUE(isValue(svg->viewBox->y, 0, kUnitPixel));
  EXPECT_TRUE(isValue(svg->viewBox->width, 192, kUnitPixel));
  EXPECT_TRUE(isValue(svg->viewBox->height, 96, kUnitPixel));
  EXPECT_EQ(svg->viewBox->x.axis, 1);
  EXPECT_EQ(svg->viewBox->y.axis, 2);
  EXPECT_EQ(svg->viewBox->height.axis, 2);
  EXPECT_EQ(svg->viewBox->width.axis, 1);
}

TEST(Viewport, percentagesOfTheRootAreMultiplied) {
  struct {
    const char* width;
    const char* height;
    double w, h;
  } const cases[] = {{"100%", "100%", 12000, 7200},
                     {"50%", "50%", 6000, 3600},
                     {"100", "50%", 12000, 3600},
                     {"200", "100%", 24000, 7200}};
  for (const auto& row : cases) {
    CHandlerReader reader;
    Svg svg;
    reader.SetSVGAttribute(svg.get(), kAttWidth, Pair(row.width));
    reader.SetSVGAttribute(svg.get(), kAttHeight, Pair(row.height));
    EXPECT_EQ(reader.SetInitialViewport(svg.get()), 0);
    EXPECT_TRUE(isValue(svg->width, row.w, kUnitPixel));
    EXPECT_TRUE(isValue(svg->height, row.h, kUnitPixel));
    ASSERT_EQ(svg->head.classCount, 1);
    EXPECT_STREQ(svg->head.classNames[0], "defaultInitialViewPort");
  }
}

TEST(Viewport, aClassThatIsThereStays) {
  CHandlerReader reader;
  Svg svg;
  reader.SetSVGAttribute(svg.get(), kAttClass, Pair("own"));
  reader.SetInitialViewport(svg.get());
  ASSERT_EQ(svg->head.classCount, 1);
  EXPECT_STREQ(svg->head.classNames[0], "own");
}

struct ScalingCase {
  double x, y, width, height;
  const char* viewBox;
  const char* aspect;  // null: as initialised
  double scaleX, scaleY, moveX, moveY;
};

TEST(UniformScaling, scaleThenTranslate) {
  const double kInfinity = std::numeric_limits<double>::infinity();
  const ScalingCase cases[] = {{0, 0, 20, 40, "0 0 10 10", nullptr, 2, 2, 0, 0},
                               {0, 0, 20, 40, "0 0 10 10", "xMidYMid slice", 4, 4, -2.5, 0},
                               {0, 0, 20, 40, "0 0 10 10", "xMidYMid", 2, 2, 0, 5},
                               {0, 0, 20, 40, "0 0 10 10", "xMaxYMax", 2, 2, 0, 10},
                               {0, 0, 40, 20, "0 0 10 10", "xMaxYMin", 2, 2, 10, 0},
                               {0, 0, 40, 20, "0 0 10 10", "none", 2, 2, 0, 0},
                               {0, 0, 40, 20, "0 0 10 10", "none slice", 4, 4, 0, 0},
                               {5, 6, 20, 40, "0 0 10 10", nullptr, 2, 2, 2.5, 3},
                               {0, 0, 20, 20, "5 5 10 10", nullptr, 2, 2, -5, -5},
                               {0, 0, 10, 10, "0 0 30 30", nullptr, 0.333333, 0.333333, 0, 0},
                               {0, 0, 10, 10, "0 0 0 10", nullptr, 1, 1, 0, 0},
                               {0, 0, 0, 10, "0 0 10 10", nullptr, 1, 1, 0, 0},
                               {0, 0, kInfinity, 10, "0 0 10 10", nullptr, 1, 1, 0, 0},
                               {kInfinity, 0, 10, 10, "0 0 10 10", nullptr, 1, 1, 0, 0}};
  for (const ScalingCase& row : cases) {
    SCOPED_TRACE(testing::Message() << row.width << " x " << row.height << ", " << row.viewBox);
    CHandlerReader reader;
    Svg svg;
    svg->x = pixels(row.x);
    svg->y = pixels(row.y);
    svg->width = pixels(row.width);
    svg->height = pixels(row.height);
    reader.SetSVGAttribute(svg.get(), kAttViewBox, Pair(row.viewBox));
    if (row.aspect != nullptr) {
      reader.SetSVGAttribute(svg.get(), kAttPreserveAspectRatio, Pair(row.aspect));
    }
    EXPECT_EQ(reader.SetUniformScaling(svg.get()), 0);
    ASSERT_EQ(svg->head.transformCount, 2);
    const transformEntry* list = svg->head.transforms;
    EXPECT_EQ(list[0].kind, kScale);
    EXPECT_TRUE(isValue(list[0].args[0], row.scaleX, kUnitPixel));
    EXPECT_TRUE(isValue(list[0].args[1], row.scaleY, kUnitPixel));
    EXPECT_EQ(list[1].kind, kTranslate);
    EXPECT_TRUE(isValue(list[1].args[0], row.moveX, kUnitPixel));
    EXPECT_TRUE(isValue(list[1].args[1], row.moveY, kUnitPixel));
  }
}

// A stored aspect of 0 never comes from a file: both scales then stand for themselves.
TEST(UniformScaling, noAspectScalesEachAxis) {
  CHandlerReader reader;
  Svg svg;
  svg->width = {kUnitInch, 1, 1};
  svg->height = pixels(48);
  svg->preserveAspectRatio = 0;
  reader.SetSVGAttribute(svg.get(), kAttViewBox, Pair("0 0 48 48"));
  reader.SetUniformScaling(svg.get());
  EXPECT_TRUE(isValue(svg->head.transforms[0].args[0], 2, kUnitPixel));
  EXPECT_TRUE(isValue(svg->head.transforms[0].args[1], 1, kUnitPixel));
  EXPECT_TRUE(isValue(svg->width, 96, kUnitPixel));  // pixels from now on
}

}  // namespace
}  // namespace egfsvg::test
