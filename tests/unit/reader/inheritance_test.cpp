#include <vector>

#include "embedded_host/host_faults.h"
#include "rule_support.h"

namespace egfsvg::test {
namespace {

// A block in which every field differs from its default.
void fillBlock(_svg_pa& pa) {
  const auto text = [](const char* value) { return duplicateText(value, RMM_SITE); };
  pa.fill = {77, {1, 2, 3, 0}, 2, 0.25, nullptr, nullptr};
  pa.stroke.packedColor = 88;
  pa.stroke.strokeColor = {4, 5, 6, 0};
  pa.stroke.strokePresent = 1;
  pa.stroke.strokeWidth = {kUnitMillimetre, 3, 7};
  pa.stroke.strokeLinecap = 2;
  pa.stroke.strokeLinejoin = 3;
  pa.stroke.strokeMiterlimit = 9;
  pa.stroke.strokeDashArray =
      static_cast<_svg_value*>(RMM_AllocName(2, sizeof(_svg_value), RMM_SITE));
  pa.stroke.strokeDashArray[0] = {kUnitPercent, 5, 1};
  pa.stroke.strokeDashArray[1] = {kUnitPixel, 6, 2};
  pa.stroke.strokeDashCount = 2;
  pa.stroke.strokeDashOffset = {kUnitInch, 4, 3};
  pa.stroke.strokeOpacity = 0.5;
  pa.graphics = {text("clip"),
                 2,
                 {7, 8, 9, 0},
                 3,
                 2,
                 5,
                 3,
                 0.75,
                 2,
                 text("wait"),
                 text("filter"),
                 text("mask"),
                 8,
                 3,
                 4};
  pa.containers.enableBackground = text("new");
  pa.feflood = {{11, 12, 13, 0}, 0.125};
  pa.fontspec = {text("family"), 2, 2, 3, 9, {kUnitPoint, 20, 4}, {kUnitPica, 2, 5}};
  pa.gradients = {{14, 15, 16, 0}, 0.375};
  pa.images.colorProfile = text("profile");
  pa.lighting.lightingColor = {17, 18, 19, 0};
  pa.markers = {text("start"), text("mid"), text("end")};
  pa.textcontentelems = {3,
                         text("super"),
                         2,
                         {kUnitRadian, 1},
                         {kUnitGrad, 2},
                         {kUnitEm, 1, 1},
                         {kUnitEx, 2, 2},
                         4,
                         3,
                         {kUnitPixel, 3, 3}};
  pa.textelems = {5, 3, 2};
  for (_svg_value& side : pa.viewports.clipRect) side = {kUnitInch, 21, 6};
  pa.viewports.overflow = 3;
}

bool sameFill(const _svg_pa_fill& a) {
  return a.packedColor == 0 && a.fillColor == _svg_color{1, 2, 3, 0} && a.fillRule == 2 &&
         a.fillOpacity == 0.25 && a.fillUrl == nullptr && a.fillGradient == nullptr;
}

void expectStroke(const _svg_pa_stroke& stroke) {
  EXPECT_EQ(stroke.packedColor, 0xffffff);
  EXPECT_EQ(stroke.strokeColor, (_svg_color{4, 5, 6, 0}));
  EXPECT_EQ(stroke.strokePresent, 1);
  EXPECT_TRUE(isValue(stroke.strokeWidth, 3, kUnitMillimetre));
  EXPECT_EQ(stroke.strokeLinecap, 2);
  EXPECT_EQ(stroke.strokeLinejoin, 3);
  EXPECT_EQ(stroke.strokeMiterlimit, 9);
  ASSERT_EQ(stroke.strokeDashCount, 2);
  EXPECT_TRUE(isValue(stroke.strokeDashArray[0], 5, kUnitPercent));
  EXPECT_TRUE(isValue(stroke.strokeDashArray[1], 6, kUnitPixel));
  EXPECT_EQ(stroke.strokeDashArray[0].axis, 0);
  EXPECT_EQ(stroke.strokeDashArray[1].axis, 0);
  EXPECT_TRUE(isValue(stroke.strokeDashOffset, 4, kUnitInch));
  EXPECT_EQ(stroke.strokeOpacity, 0.5);
}

void expectGraphics(const _svg_pa_graphics& graphics) {
  EXPECT_EQ(graphics.clipRule, 2);
  EXPECT_EQ(graphics.color, (_svg_color{7, 8, 9, 0}));
  EXPECT_EQ(graphics.colorInterpolation, 3);
  EXPECT_EQ(graphics.colorRendering, 2);
  EXPECT_EQ(graphics.imageRendering, 3);
  EXPECT_EQ(graphics.opacity, 0.75);
  EXPECT_EQ(graphics.visibility, 2);
  EXPECT_EQ(textOf(graphics.cursor), "wait");
  EXPECT_EQ(graphics.pointerEvents, 8);
  EXPECT_EQ(graphics.shapeRendering, 3);
  EXPECT_EQ(graphics.textRendering, 4);
  EXPECT_EQ(textOf(graphics.clipPath), "null");  // these four do not go down
  EXPECT_EQ(graphics.display, 1);
  EXPECT_EQ(textOf(graphics.filter), "null");
  EXPECT_EQ(textOf(graphics.mask), "null");
}

void expectMarkers(const _svg_pa_markers& markers) {
  EXPECT_EQ(textOf(markers.markerStart), "start");
  EXPECT_EQ(textOf(markers.markerMid), "mid");
  EXPECT_EQ(textOf(markers.markerEnd), "end");
}

void expectFont(const _svg_pa_fontspec& font) {
  EXPECT_EQ(textOf(font.fontFamily), "family");
  EXPECT_EQ(font.fontStyle, 2);
  EXPECT_EQ(font.fontVariant, 2);
  EXPECT_EQ(font.fontWeight, 3);
  EXPECT_EQ(font.fontStretch, 9);
  EXPECT_TRUE(isValue(font.fontSize, 20, kUnitPoint));
  EXPECT_EQ(font.fontSize.axis, 4);
  EXPECT_TRUE(isValue(font.fontSizeAdjust, 2, kUnitPica));
}

void expectTextContent(const _svg_pa_textcontentelems& content) {
  EXPECT_EQ(content.direction, 2);
  EXPECT_EQ(content.glyphOrientationHorizontal.unit, kUnitRadian);
  EXPECT_EQ(content.glyphOrientationVertical.unit, kUnitGrad);
  EXPECT_TRUE(isValue(content.kerning, 1, kUnitEm));
  EXPECT_TRUE(isValue(content.letterSpacing, 2, kUnitEx));
  EXPECT_TRUE(isValue(content.wordSpacing, 3, kUnitPixel));
  EXPECT_EQ(content.alignmentBaseline, 1);  // these four do not go down
  EXPECT_EQ(textOf(content.baselineShift), "null");
  EXPECT_EQ(content.textDecoration, 1);
  EXPECT_EQ(content.unicodeBidi, 1);
}

void expectTextElements(const _svg_pa_textelems& elements) {
  EXPECT_EQ(elements.dominantBaseline, 1);  // does not go down
  EXPECT_EQ(elements.textAnchor, 3);
  EXPECT_EQ(elements.writingMode, 2);
}

// A link is a parent of its own: it stands in no table.
struct Inherit : testing::Test {
  Inherit() {
    fillBlock(parent->pa);
    reader.SetTransformAtt(&parent->head, Pair("scale(2) rotate(3)"));
  }
  template <class Element>
  void inherit(Element& element, int type) {
    element->head.parent = &parent->head;
    EXPECT_EQ(reader.InheritStyleAndTransform(element.get(), type), 0);
    ASSERT_EQ(element->head.transformCount, 2);
    EXPECT_EQ(element->head.transforms[0].kind, kScale);
    EXPECT_EQ(element->head.transforms[1].kind, kRotate);
    EXPECT_EQ(element->head.transforms[0].args[1].value, 2);
  }
  template <class Element>
  void expectShape(Element& element) {
    EXPECT_TRUE(sameFill(element->fill));
    expectStroke(element->stroke);
    expectGraphics(element->graphics);
  }
  void expectContainer(const _svg_pa& pa) {
    EXPECT_TRUE(sameFill(pa.fill));
    expectStroke(pa.stroke);
    expectGraphics(pa.graphics);
    expectFont(pa.fontspec);
    expectMarkers(pa.markers);
    expectTextContent(pa.textcontentelems);
    expectTextElements(pa.textelems);
    EXPECT_EQ(textOf(pa.images.colorProfile), "profile");
    EXPECT_EQ(textOf(pa.containers.enableBackground), "null");
    EXPECT_EQ(pa.feflood.floodOpacity, 1.0);
    EXPECT_EQ(pa.gradients.stopOpacity, 1.0);
    EXPECT_EQ(pa.lighting.lightingColor, kUnset);
    EXPECT_EQ(pa.viewports.overflow, 1);
  }

  CHandlerReader reader;
  Link parent;
};

TEST_F(Inherit, shapes) {
  Rect rect;
  Circle circle;
  Ellipse ellipse;
  Line line;
  Polyline polyline;
  Polygon polygon;
  Path path;
  inherit(rect, kTagRect), expectShape(rect);
  inherit(circle, kTagCircle), expectShape(circle);
  inherit(ellipse, kTagEllipse), expectShape(ellipse);
  inherit(line, kTagLine), expectShape(line), expectMarkers(line->markers);
  inherit(polyline, kTagPolyline), expectShape(polyline), expectMarkers(polyline->markers);
  inherit(polygon, kTagPolygon), expectShape(polygon), expectMarkers(polygon->markers);
  EXPECT_EQ(path->pathFlag, 0);
  inherit(path, kTagPath), expectShape(path), expectMarkers(path->markers);
  EXPECT_EQ(path->pathFlag, 1);
}

TEST_F(Inherit, texts) {
  Text text;
  inherit(text, kTagText);
  expectShape(text);
  expectFont(text->fontspec);
  expectTextContent(text->textcontentelems);
  expectTextElements(text->textelems);
}

TEST_F(Inherit, images) {
  Image image;
  inherit(image, kTagImage);
  expectGraphics(image->graphics);
  EXPECT_EQ(textOf(image->images.colorProfile), "profile");
  EXPECT_EQ(image->viewports.overflow, 1);
}

TEST_F(Inherit, gradientsAndStops) {
  Gradient linear, radial(kTagRadialGradient);
  Stop stop;
  inherit(linear, kTagLinearGradient), expectGraphics(linear->graphics);
  inherit(radial, kTagRadialGradient), expectGraphics(radial->graphics);
  inherit(stop, kTagStop), expectGraphics(stop->graphics);
  EXPECT_EQ(stop->gradients.stopOpacity, 1.0);
}

TEST_F(Inherit, containers) {
  Svg svg, symbol;
  Group group, use, cloud, crossout, diamond, annotation;
  Defs defs;
  Link link;
  Switch choice;
  inherit(svg, kTagSvg), expectContainer(svg->pa);
  inherit(symbol, kTagSymbol), expectContainer(symbol->pa);
  inherit(group, kTagGroup), expectContainer(group->pa);
  inherit(use, kTagUse), expectContainer(use->pa);
  inherit(cloud, kTagCloud), expectContainer(cloud->pa);
  inherit(crossout, kTagCrossout), expectContainer(crossout->pa);
  inherit(diamond, kTagDiamond), expectContainer(diamond->pa);
  inherit(annotation, kTagAnnotation), expectContainer(annotation->pa);
  inherit(defs, kTagDefs), expectContainer(defs->pa);
  inherit(link, kTagLink), expectContainer(link->pa);
  inherit(choice, kTagSwitch), expectContainer(choice->pa);
}

TEST_F(Inherit, nothingWithoutAParent) {
  Rect rect;
  EXPECT_EQ(reader.InheritStyleAndTransform(nullptr, kTagRect), -1);
  EXPECT_EQ(reader.InheritStyleAndTransform(rect.get(), kTagRect), 0);
  EXPECT_EQ(rect->fill.fillColor, kUnset);
  EXPECT_EQ(rect->head.transformCount, 0);
}

TEST_F(Inherit, twiceLeavesNothingBehind) {
  Rect rect;
  Text text;
  rect->head.parent = text->head.parent = &parent->head;
  for (int i = 0; i < 2; ++i) {
    reader.InheritStyleAndTransform(rect.get(), kTagRect);
    reader.InheritStyleAndTransform(text.get(), kTagText);
  }
  expectShape(rect);
  expectFont(text->fontspec);
}

TEST_F(Inherit, aGradientGoesDownWithItsReference) {
  Gradient gradient;
  parent->pa.fill.fillUrl = duplicateText("#a", RMM_SITE);
  parent->pa.fill.fillGradient = gradient.get();
  parent->pa.stroke.strokeUrl = duplicateText("#b", RMM_SITE);
  parent->pa.stroke.strokeGradient = gradient.get();
  Rect rect;
  inherit(rect, kTagRect);
  EXPECT_EQ(rect->fill.fillGradient, gradient.get());
  EXPECT_EQ(textOf(rect->fill.fillUrl), "#a");
  EXPECT_EQ(rect->stroke.strokeGradient, gradient.get());
  EXPECT_EQ(textOf(rect->stroke.strokeUrl), "#b");
  EXPECT_NE(rect->fill.fillUrl, parent->pa.fill.fillUrl);
  reader.SetRectAttribute(rect.get(), kAttFill, Pair("red"));
  EXPECT_EQ(rect->fill.fillGradient, nullptr);
  EXPECT_EQ(rect->fill.fillUrl, nullptr);
}

TEST_F(Inherit, aReferenceWithoutAGradientStays) {
  parent->pa.fill.fillUrl = duplicateText("#a", RMM_SITE);
  parent->pa.stroke.strokeUrl = duplicateText("#b", RMM_SITE);
  Rect rect;
  inherit(rect, kTagRect);
  EXPECT_EQ(rect->fill.fillUrl, nullptr);
  EXPECT_EQ(rect->stroke.strokeUrl, nullptr);
}

TEST_F(Inherit, aChildAddsToAListOfItsOwn) {
  Rect child;
  inherit(child, kTagRect);
  reader.SetTransformAtt(&child->head, Pair("skewX(4)"));
  EXPECT_EQ(child->head.transformCount, 3);
  EXPECT_EQ(parent->head.transformCount, 2);
  EXPECT_EQ(parent->head.transforms[1].args[0].value, 3);
}

// The fractions of its bounding box are its own matter.
TEST_F(Inherit, aGradientChangesAListOfItsOwn) {
  reader.SetTransformAtt(&parent->head, Pair("translate(5,6)"));
  Gradient gradient;
  gradient->head.type = kTagLinearGradient;
  gradient->head.parent = &parent->head;
  reader.InheritStyleAndTransform(gradient.get(), kTagLinearGradient);
  reader.SetBoundingBoxUnits(gradient.get());
  ASSERT_EQ(gradient->head.transformCount, 3);
  EXPECT_TRUE(isValue(gradient->head.transforms[2].args[0], 5, kUnitBoundingBox));
  EXPECT_TRUE(isValue(parent->head.transforms[2].args[0], 5, kUnitPixel));
}

TEST_F(Inherit, endlessTextsStayWithTheParent) {
  for (const std::size_t length : {65535UL, 65536UL}) {
    const std::string text(length, 'c');
    reader.SetCursorPatt(&parent->pa.graphics, Pair(text));
    reader.SetFontFamilyPatt(&parent->pa.fontspec, Pair(text));
    Text child;
    inherit(child, kTagText);
    EXPECT_EQ(textOf(child->graphics.cursor), length == 65535 ? text : "null");
    EXPECT_EQ(textOf(child->fontspec.fontFamily), length == 65535 ? text : "null");
    reader.SetMaskPatt(&parent->head, &parent->pa.graphics, Pair(text));
    EXPECT_EQ(reader.SetMaskPatt(&parent->head, &child->graphics, Pair("inherit")), 0);
    EXPECT_EQ(textOf(child->graphics.mask), length == 65535 ? text : "null");
  }
}

TEST_F(Inherit, withoutMemoryTextsAreLeftOut) {
  for (std::uint64_t failing = 1; failing <= 8; ++failing) {
    Text text;
    text->head.parent = &parent->head;
    egfhost::failAllocation(failing, egfhost::FaultSpan::kForEver);
    EXPECT_EQ(reader.InheritStyleAndTransform(text.get(), kTagText), 0);
    egfhost::clearFaults();
    EXPECT_EQ(text->stroke.strokeDashCount, text->stroke.strokeDashArray == nullptr ? 0 : 2);
    EXPECT_TRUE(sameFill(text->fill));
  }
}

TEST_F(Inherit, groupByGroup) {
  Group group;
  std::vector<std::pair<int, void*>> groups = {{kGroupFill, &group->pa.fill},
                                               {kGroupStroke, &group->pa.stroke},
                                               {kGroupGraphics, &group->pa.graphics},
                                               {kGroupFont, &group->pa.fontspec},
                                               {kGroupImages, &group->pa.images},
                                               {kGroupMarkers, &group->pa.markers},
                                               {kGroupTextContent, &group->pa.textcontentelems},
                                               {kGroupTextElements, &group->pa.textelems}};
  for (const auto& [code, field] : groups) {
    EXPECT_EQ(reader.CopyLocalStyle(parent->pa, field, code), 0);
    EXPECT_EQ(reader.CopyLocalStyle(parent->pa, nullptr, code), -1);
  }
  expectContainer(group->pa);
  for (int code : {-1, 0, 4, 5, 7, 9, 13, 14, 100}) {
    EXPECT_EQ(reader.CopyLocalStyle(parent->pa, &group->pa, code), 0);
  }
  expectContainer(group->pa);
}

// "inherit" for what does not go down by itself.
TEST_F(Inherit, byTheKeyword) {
  Group group;
  group->head.parent = &parent->head;
  const std::vector<int> codes = {111, 112, 114, 117, 118, 120, 122, 123,
                                  126, 127, 128, 129, 130, 153, 154, 155};
  for (int code : codes) reader.SetGroupAttribute(group.get(), code, Pair("inherit"));
  const _svg_pa& pa = group->pa;
  EXPECT_EQ(pa.textcontentelems.textDecoration, 4);
  EXPECT_EQ(pa.textcontentelems.unicodeBidi, 3);
  EXPECT_EQ(pa.textcontentelems.alignmentBaseline, 3);
  EXPECT_EQ(textOf(pa.textcontentelems.baselineShift), "super");
  EXPECT_EQ(pa.textelems.dominantBaseline, 5);
  EXPECT_EQ(pa.graphics.display, 5);
  EXPECT_EQ(textOf(pa.graphics.clipPath), "clip");
  EXPECT_EQ(textOf(pa.graphics.mask), "mask");
  EXPECT_EQ(pa.graphics.opacity, 0.75);
  EXPECT_EQ(pa.feflood.floodColor, (_svg_color{11, 12, 13, 0}));
  EXPECT_EQ(pa.feflood.floodOpacity, 0.125);
  EXPECT_EQ(pa.lighting.lightingColor, (_svg_color{17, 18, 19, 0}));
  EXPECT_EQ(pa.gradients.stopColor, (_svg_color{14, 15, 16, 0}));
  EXPECT_EQ(pa.gradients.stopOpacity, 0.375);
  EXPECT_EQ(pa.viewports.overflow, 3);
  for (const _svg_value& side : pa.viewports.clipRect) {
    EXPECT_TRUE(isValue(side, 21, kUnitInch));
  }
  // All else is as it was.
  EXPECT_EQ(pa.fill.fillColor, kUnset);
  EXPECT_EQ(pa.graphics.visibility, 1);
  EXPECT_EQ(pa.textcontentelems.direction, 1);
  EXPECT_EQ(pa.textelems.textAnchor, 1);
}

TEST_F(Inherit, theKeywordOfWhatNothingFills) {
  Group group;
  group->head.parent = &parent->head;
  reader.SetGroupAttribute(group.get(), kAttFilter, Pair("inherit"));
  reader.SetGroupAttribute(group.get(), kAttEnableBackground, Pair("inherit"));
  EXPECT_EQ(group->pa.graphics.filter, nullptr);
  EXPECT_EQ(group->pa.containers.enableBackground, nullptr);
  EXPECT_EQ(group->pa.graphics.clipPath, nullptr);
  // Asked for by their own codes, both are there.
  EXPECT_EQ(reader.SetInheritedProperty(&parent->head, &group->pa.graphics, 3, 125), 0);
  EXPECT_EQ(reader.SetInheritedProperty(&parent->head, &group->pa.containers, 4, 124), 0);
  EXPECT_EQ(textOf(group->pa.graphics.filter), "filter");
  EXPECT_EQ(textOf(group->pa.containers.enableBackground), "new");
}

TEST_F(Inherit, propertiesWithoutARow) {
  Group group;
  Group untouched;
  EXPECT_EQ(reader.SetInheritedProperty(nullptr, &group->pa.graphics, 3, 117), 0);
  EXPECT_EQ(reader.SetInheritedProperty(&parent->head, nullptr, 3, 117), 0);
  const std::pair<int, int> rows[] = {{3, 119},  {3, 0},   {5, 0},   {7, 0},    {11, 109},
                                      {13, 0},   {1, 135}, {2, 144}, {6, 102},  {8, 133},
                                      {10, 140}, {14, 1},  {0, 117}, {-1, 117}, {100, 100}};
  for (const auto& [groupCode, code] : rows) {
    EXPECT_EQ(reader.SetInheritedProperty(&parent->head, &group->pa.graphics, groupCode, code), 0);
  }
  EXPECT_EQ(std::memcmp(&group->pa, &untouched->pa, sizeof group->pa), 0);
}

// What a parent's texts are not set to stays as it is.
TEST_F(Inherit, aTextThatTheParentHasNot) {
  Link plain;
  Group group;
  group->head.parent = &plain->head;
  reader.SetGroupAttribute(group.get(), kAttMask, Pair("own"));
  reader.SetGroupAttribute(group.get(), kAttMask, Pair("inherit"));
  EXPECT_EQ(textOf(group->pa.graphics.mask), "own");
}

TEST_F(Inherit, theBlockOfAParent) {
  _svg_pa* block = nullptr;
  ASSERT_EQ(reader._getParentPA(&parent->head, &block), 0);
  EXPECT_EQ(std::memcmp(block, &parent->pa, sizeof *block), 0);
  RMM_Free(block);
  for (int type : std::initializer_list<int>{kTagRect, kTagText, kTagImage, kTagStop, 0, 999}) {
    _svg_common other{};
    other.type = type;
    ASSERT_EQ(reader._getParentPA(&other, &block), 0);
    const _svg_pa zero{};
    EXPECT_EQ(std::memcmp(block, &zero, sizeof *block), 0) << type;
    RMM_Free(block);
  }
  egfhost::failAllocation(1);
  EXPECT_EQ(reader._getParentPA(&parent->head, &block), -1);
  egfhost::clearFaults();
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(reader._getParentPA(&parent->head, nullptr), -1);
}

// Under a parent without a row an element inherits a block of zeroes.
TEST(InheritZero, opacityAndAll) {
  CHandlerReader reader;
  Text parent;
  Rect rect;
  rect->head.parent = &parent->head;
  reader.InheritStyleAndTransform(rect.get(), kTagRect);
  EXPECT_EQ(rect->graphics.opacity, 0.0);
  EXPECT_EQ(rect->fill.fillOpacity, 0.0);
  EXPECT_TRUE(isColor(rect->fill.fillColor, 0, 0, 0));
}

// Containers in the reader's tables.
struct InheritTables : testing::Test {
  template <class Record>
  Record* enter(Map<Record>& table, void (*init)(Record*), int type, std::int32_t& counter) {
    auto* record = static_cast<Record*>(RMM_AllocName(1, sizeof(Record), RMM_SITE));
    init(record);
    record->head.type = type;
    record->head.index = counter;
    table.insert(duplicateText(std::to_string(counter++).c_str(), RMM_SITE), record);
    return record;
  }
  ~InheritTables() override {
    reader.DestroySVGElemsTable();
    reader.DestroyGroupTable();
    reader.DestroySwitchTable();
  }
  void expectFill(_svg_common* parent) {
    Rect rect;
    rect->head.parent = parent;
    EXPECT_EQ(reader.InheritStyleAndTransform(rect.get(), kTagRect), 0);
    EXPECT_TRUE(isColor(rect->fill.fillColor, 9, 8, parent->type));
    EXPECT_EQ(rect->fill.fillOpacity, 1.0);
  }

  CHandlerReader reader;
};

TEST_F(InheritTables, eachKindOfContainer) {
  for (int type : {kTagSvg, kTagSymbol}) {
    _svg_svg* svg = enter(reader.svgs, initSVGObj, type, reader.svgCount);
    svg->pa.fill.fillColor = {9, 8, type, 0};
    expectFill(&svg->head);
  }
  for (int type : {kTagGroup, kTagUse}) {
    _svg_group* group = enter(reader.groups, initGroupObj, type, reader.groupCount);
    group->pa.fill.fillColor = {9, 8, type, 0};
    expectFill(&group->head);
  }
  _svg_switch* choice = enter(reader.switches, initSwitch, kTagSwitch, reader.switchCount);
  choice->pa.fill.fillColor = {9, 8, kTagSwitch, 0};
  expectFill(&choice->head);
  for (int type : {kTagCloud, kTagCrossout, kTagDiamond, kTagAnnotation}) {
    Group markup;  // stands in no table
    markup->head.type = type;
    markup->pa.fill.fillColor = {9, 8, type, 0};
    expectFill(&markup->head);
  }
}

TEST_F(InheritTables, aContainerThatIsNotInItsTable) {
  Group group;
  group->pa.fill.fillColor = {9, 8, 7, 0};
  Rect rect;
  rect->head.parent = &group->head;
  reader.InheritStyleAndTransform(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillOpacity, 0.0);
  EXPECT_TRUE(isColor(rect->fill.fillColor, 0, 0, 0));
}

TEST_F(InheritTables, aGradientHandsDownTwoGroups) {
  Gradient gradient;
  gradient->graphics.color = kRed;
  gradient->gradients.stopColor = kBlue;
  gradient->gradients.stopOpacity = 0.5;
  reader.SetIDAtt(&gradient->head.id, Pair("g"));
  reader.gradients.insert(duplicateText("#g", RMM_SITE), gradient.get());
  Stop stop;
  stop->head.parent = &gradient->head;
  reader.InheritStyleAndTransform(stop.get(), kTagStop);
  EXPECT_EQ(stop->graphics.color, kRed);
  EXPECT_EQ(stop->gradients.stopColor, kUnset);  // by the keyword alone
  reader.SetStopObjAttribute(stop.get(), kAttStopColor, Pair("inherit"));
  reader.SetStopObjAttribute(stop.get(), kAttStopOpacity, Pair("inherit"));
  EXPECT_EQ(stop->gradients.stopColor, kBlue);
  EXPECT_EQ(stop->gradients.stopOpacity, 0.5);
  _svg_pa* block = nullptr;
  ASSERT_EQ(reader._getParentPA(&gradient->head, &block), 0);
  EXPECT_EQ(block->graphics.color, kRed);
  EXPECT_EQ(block->gradients.stopColor, kBlue);
  EXPECT_EQ(block->fill.fillOpacity, 0.0);
  RMM_Free(block);
  reader.gradients.clear();
}

TEST(TextRuns, takeEverything) {
  CHandlerReader reader;
  Text parent, child;
  Group block;
  Gradient gradient;
  fillBlock(block->pa);
  const _svg_pa& pa = block->pa;
  for (int i = 0; i < 2; ++i) {
    parent->fill = pa.fill;
    parent->fill.fillGradient = gradient.get();
    parent->fill.fillUrl = duplicateText("#a", RMM_SITE);
    parent->stroke = pa.stroke;
    parent->graphics = pa.graphics;
    parent->fontspec = pa.fontspec;
    parent->textcontentelems = pa.textcontentelems;
    parent->textelems = pa.textelems;
    parent->lang.value = duplicateText("en", RMM_SITE);
    if (i == 0) reader.SetTransformAtt(&parent->head, Pair("scale(2)"));
    EXPECT_EQ(reader.InheritStyleAndTransformFromText(child.get(), parent.get()), 0);
    RMM_Free(parent->fill.fillUrl);
    RMM_Free(parent->lang.value);
    parent->fill.fillUrl = parent->lang.value = nullptr;
  }
  EXPECT_EQ(child->fill.packedColor, 77);
  EXPECT_EQ(child->fill.fillColor, (_svg_color{1, 2, 3, 0}));
  EXPECT_EQ(textOf(child->fill.fillUrl), "#a");
  EXPECT_EQ(child->fill.fillGradient, gradient.get());
  ASSERT_EQ(child->stroke.strokeDashCount, 2);
  EXPECT_NE(child->stroke.strokeDashArray, pa.stroke.strokeDashArray);
  EXPECT_EQ(child->graphics.display, 5);
  EXPECT_EQ(textOf(child->graphics.clipPath), "clip");
  EXPECT_EQ(textOf(child->graphics.cursor), "wait");
  EXPECT_EQ(textOf(child->graphics.mask), "mask");
  EXPECT_EQ(textOf(child->fontspec.fontFamily), "family");
  EXPECT_EQ(child->textcontentelems.textDecoration, 4);
  EXPECT_EQ(textOf(child->textcontentelems.baselineShift), "super");
  EXPECT_EQ(child->textelems.dominantBaseline, 5);
  EXPECT_EQ(textOf(child->lang.value), "en");
  EXPECT_EQ(child->head.transformCount, 1);
  EXPECT_EQ(reader.InheritStyleAndTransformFromText(nullptr, parent.get()), -1);
  EXPECT_EQ(reader.InheritStyleAndTransformFromText(child.get(), nullptr), -1);
  // The block owns what the parent borrowed.
  parent->stroke = {};
  parent->graphics = {};
  parent->fontspec = {};
  parent->textcontentelems = {};
}

}  // namespace
}  // namespace egfsvg::test
