#include <functional>
#include <vector>

#include "rule_support.h"

namespace egfsvg::test {
namespace {

TEST(TypeSelector, theTagName) {
  StyledReader styled;
  styled.fill("rect", "red");
  styled.fill("use", "blue");
  styled.fill("symbol", "green");
  Rect rect;
  EXPECT_EQ(styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect), 0);
  EXPECT_EQ(rect->fill.fillColor, kRed);
  Group group;
  styled.reader.SetStyleBasedOnTypeSelector(group.get(), kTagGroup);
  EXPECT_EQ(group->pa.fill.fillColor, kUnset);
  styled.reader.SetStyleBasedOnTypeSelector(group.get(), kTagUse);
  EXPECT_EQ(group->pa.fill.fillColor, kBlue);
  Svg svg;
  styled.reader.SetStyleBasedOnTypeSelector(svg.get(), kTagSymbol);
  EXPECT_EQ(svg->pa.fill.fillColor, kGreen);
}

TEST(TypeSelector, keysDisregardCase) {
  StyledReader styled;
  styled.fill("RECT", "red");
  Rect rect;
  styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillColor, kRed);
}

TEST(TypeSelector, aTypeWithoutAName) {
  StyledReader styled;
  styled.fill("rect", "red");
  Rect rect;
  for (int type : {2, 4, 17, 19, 23, 27, 30, 32, 35, 101}) {
    EXPECT_EQ(styled.reader.SetStyleBasedOnTypeSelector(rect.get(), type), -1) << type;
  }
  EXPECT_EQ(rect->fill.fillColor, kUnset);
}

TEST(TypeSelector, declarationsInOrder) {
  StyledReader styled;
  styled.rule("rect", {{"fill", "red"}, {"stroke-width", "3"}, {"fill", "blue"}});
  Rect rect;
  styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillColor, kBlue);
  EXPECT_TRUE(isValue(rect->stroke.strokeWidth, 3, kUnitPixel));
}

// Rules reach shapes, texts, groups and svgs; the style attribute alone reaches the others.
TEST(Rules, theTypesTheyReach) {
  StyledReader styled;
  styled.rule("#e", {{"color", "red"}});
  AttNode* node = styled.reader.styles.find("#e");
  Rect rect;
  Circle circle;
  Ellipse ellipse;
  Line line;
  Polyline polyline;
  Polygon polygon;
  Path path;
  Text words;
  Group group, use;
  Svg svg, symbol;
  const std::vector<std::tuple<int, void*, const _svg_color*>> reached = {
      {kTagRect, rect.get(), &rect->graphics.color},
      {kTagCircle, circle.get(), &circle->graphics.color},
      {kTagEllipse, ellipse.get(), &ellipse->graphics.color},
      {kTagLine, line.get(), &line->graphics.color},
      {kTagPolyline, polyline.get(), &polyline->graphics.color},
      {kTagPolygon, polygon.get(), &polygon->graphics.color},
      {kTagPath, path.get(), &path->graphics.color},
      {kTagText, words.get(), &words->graphics.color},
      {kTagGroup, group.get(), &group->pa.graphics.color},
      {kTagUse, use.get(), &use->pa.graphics.color},
      {kTagSvg, svg.get(), &svg->pa.graphics.color},
      {kTagSymbol, symbol.get(), &symbol->pa.graphics.color}};
  for (const auto& [type, element, color] : reached) {
    EXPECT_EQ(styled.reader.SetAttribute(element, type, node), 0);
    EXPECT_EQ(*color, kRed) << type;
  }
  Defs defs;
  Image image;
  Link link;
  Switch choice;
  Gradient gradient;
  Stop stop;
  const std::vector<std::tuple<int, void*, const _svg_color*>> others = {
      {kTagDefs, defs.get(), &defs->pa.graphics.color},
      {kTagImage, image.get(), &image->graphics.color},
      {kTagLink, link.get(), &link->pa.graphics.color},
      {kTagSwitch, choice.get(), &choice->pa.graphics.color},
      {kTagLinearGradient, gradient.get(), &gradient->graphics.color},
      {kTagRadialGradient, gradient.get(), &gradient->graphics.color},
      {kTagStop, stop.get(), &stop->graphics.color}};
  for (const auto& [type, element, color] : others) {
    EXPECT_EQ(styled.reader.SetAttribute(element, type, node), 0);
    EXPECT_EQ(*color, kUnset) << type;
  }
  EXPECT_EQ(styled.reader.SetAttribute(nullptr, kTagRect, node), 0);
  EXPECT_EQ(styled.reader.SetAttribute(rect.get(), kTagRect, nullptr), 0);
}

TEST(IdSelector, idThenTagAndId) {
  StyledReader styled;
  styled.fill("#a", "red");
  styled.fill("rect#b", "green");
  styled.fill("#b", "blue");
  Rect a, b, c;
  EXPECT_EQ(styled.reader.SetStyleBasedOnIDSelector(a.get(), kTagRect, "a"), 0);
  EXPECT_EQ(a->fill.fillColor, kRed);
  styled.reader.SetStyleBasedOnIDSelector(b.get(), kTagRect, "B");
  EXPECT_EQ(b->fill.fillColor, kGreen);  // the last key looked up wins
  styled.reader.SetStyleBasedOnIDSelector(c.get(), kTagRect, "c");
  EXPECT_EQ(c->fill.fillColor, kUnset);
  EXPECT_EQ(styled.reader.SetStyleBasedOnIDSelector(c.get(), kTagRect, nullptr), 0);
  Circle circle;
  styled.reader.SetStyleBasedOnIDSelector(circle.get(), kTagCircle, "b");
  EXPECT_EQ(circle->fill.fillColor, kBlue);
}

TEST(IdSelector, whereTheAttributeStands) {
  StyledReader styled;
  styled.fill("#a", "red");
  Rect first, second;
  styled.reader.SetRectAttribute(first.get(), kAttFill, Pair("blue"));
  styled.reader.SetRectAttribute(first.get(), kAttId, Pair("a"));
  EXPECT_EQ(first->fill.fillColor, kRed);
  styled.reader.SetRectAttribute(second.get(), kAttId, Pair("a"));
  styled.reader.SetRectAttribute(second.get(), kAttFill, Pair("blue"));
  EXPECT_EQ(second->fill.fillColor, kBlue);
}

struct ClassRuleCase {
  std::vector<std::pair<const char*, const char*>> rules;  // key, colour
  const char* classes;
  _svg_color fill;
};

TEST(ClassSelector, theOrderOfKeys) {
  const ClassRuleCase cases[] = {{{{".a", "red"}}, "a", kRed},
                                 {{{".a", "red"}}, "A", kRed},
                                 {{{".a", "red"}}, "b", kUnset},
                                 {{{"a", "red"}}, "a", kUnset},
                                 {{{".b", "blue"}, {".a", "red"}}, "a b", kBlue},
                                 {{{".b", "blue"}, {".a", "red"}}, "b a", kRed},
                                 {{{"rect.a", "red"}, {".a", "blue"}}, "a", kRed},
                                 {{{"circle.a", "red"}, {".a", "blue"}}, "a", kBlue},
                                 {{{"g .a", "red"}, {".a", "blue"}}, "a", kRed},
                                 {{{"rect.a", "red"}, {"g .a", "blue"}}, "a", kRed},
                                 {{{"g rect.a", "red"}, {"rect.a", "blue"}}, "a", kRed},
                                 {{{"g>.a", "red"}, {"g .a", "blue"}}, "a", kRed},
                                 {{{"rect.a", "red"}, {"g>.a", "blue"}}, "a", kRed},
                                 {{{"g>rect.a", "red"}, {"g rect.a", "blue"}}, "a", kRed},
                                 {{{".p .a", "red"}, {"g .a", "blue"}}, "a", kRed},
                                 {{{"#i .a", "red"}, {".p .a", "blue"}}, "a", kRed},
                                 {{{".a", "red"}}, "x,a;y", kRed}};
  for (const ClassRuleCase& row : cases) {
    SCOPED_TRACE(row.rules[0].first);
    StyledReader styled;
    for (const auto& [key, color] : row.rules) styled.fill(key, color);
    Group group;
    styled.reader.SetClassNameAtt(&group->head, Pair("p"));
    styled.reader.SetIDAtt(&group->head.id, Pair("i"));
    Rect rect;
    rect->head.parent = &group->head;
    styled.reader.SetRectAttribute(rect.get(), kAttClass, Pair(row.classes));
    EXPECT_EQ(rect->fill.fillColor, row.fill);
  }
}

// The names of the first class attribute stay, but the rules of both apply.
TEST(ClassSelector, aSecondClassAttribute) {
  StyledReader styled;
  styled.fill(".b", "red");
  Rect rect;
  styled.reader.SetRectAttribute(rect.get(), kAttClass, Pair("a"));
  styled.reader.SetRectAttribute(rect.get(), kAttClass, Pair("b"));
  ASSERT_EQ(rect->head.classCount, 1);
  EXPECT_STREQ(rect->head.classNames[0], "a");
  EXPECT_EQ(rect->fill.fillColor, kRed);
  Rect empty;
  styled.reader.SetRectAttribute(empty.get(), kAttClass, Pair(""));
  styled.reader.SetRectAttribute(empty.get(), kAttClass, Pair("b"));
  EXPECT_EQ(empty->fill.fillColor, kUnset);
}

TEST(ClassSelector, longNamesAreCut) {
  StyledReader styled;
  styled.fill("." + std::string(128, 'x'), "red");
  styled.fill(".xx", "blue");
  Rect rect;
  styled.reader.SetRectAttribute(rect.get(), kAttClass, Pair(std::string(130, 'x')));
  EXPECT_EQ(rect->fill.fillColor, kBlue);
}

// A chain of ancestors, the first outermost.
struct Chain {
  explicit Chain(std::vector<const char*> groups) {
    _svg_common* parent = nullptr;
    for (const char* classes : groups) {
      auto group = std::make_unique<Group>();
      (*group)->head.parent = parent;
      if (*classes != '\0') reader.SetClassNameAtt(&(*group)->head, Pair(classes));
      parent = &(*group)->head;
      owners.push_back(std::move(group));
    }
  }
  _svg_common* last() { return &(*owners.back())->head; }

  CHandlerReader reader;
  std::vector<std::unique_ptr<Group>> owners;
};

struct DescendantCase {
  std::vector<std::pair<const char*, const char*>> rules;
  std::vector<const char*> groups;  // their classes
  _svg_color fill;
};

TEST(DescendantSelector, threeAncestorsFromTheOutermost) {
  const DescendantCase cases[] = {{{{"g rect", "red"}}, {""}, kRed},
                                  {{{".a rect", "red"}}, {"a"}, kRed},
                                  {{{".a rect", "red"}}, {"a", ""}, kRed},
                                  {{{".a rect", "red"}}, {"a", "", ""}, kRed},
                                  {{{".a rect", "red"}}, {"a", "", "", ""}, kUnset},
                                  {{{".a rect", "red"}, {".b rect", "blue"}}, {"a", "b"}, kBlue},
                                  {{{".a rect", "red"}, {".b rect", "blue"}}, {"b", "a"}, kRed},
                                  {{{".a rect", "red"}, {".b rect", "blue"}}, {"a b"}, kBlue},
                                  {{{".a rect", "red"}, {".b rect", "blue"}}, {"b a"}, kRed},
                                  {{{"g rect", "red"}, {".a rect", "blue"}}, {"a"}, kBlue},
                                  {{{"g g rect", "red"}}, {"", ""}, kUnset},
                                  {{{"svg rect", "red"}}, {""}, kUnset},
                                  {{{"g>rect", "red"}, {"g rect", "blue"}}, {""}, kRed},
                                  {{{".a>rect", "red"}}, {"a", ""}, kUnset},
                                  {{{".a>rect", "red"}}, {"", "a"}, kRed}};
  for (const DescendantCase& row : cases) {
    SCOPED_TRACE(row.rules[0].first);
    StyledReader styled;
    for (const auto& [key, color] : row.rules) styled.fill(key, color);
    Chain chain(row.groups);
    Rect rect;
    rect->head.parent = chain.last();
    styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
    EXPECT_EQ(rect->fill.fillColor, row.fill);
  }
}

TEST(DescendantSelector, anAncestorWithoutANameEndsTheWalk) {
  StyledReader styled;
  styled.fill("g rect", "red");
  styled.fill("switch rect", "blue");
  Switch choice;
  Group inner;
  inner->head.parent = &choice->head;
  Rect rect;
  rect->head.parent = &inner->head;
  styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillColor, kUnset);  // the switch is asked first, and nothing after it
  Group outer;
  choice->head.parent = &outer->head;
  inner->head.parent = nullptr;
  rect->head.parent = &choice->head;
  styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillColor, kRed);  // the outer group is asked before the switch
}

TEST(ChildSelector, alsoUnderAParentWithoutAName) {
  StyledReader styled;
  styled.fill(".k>rect", "red");
  styled.fill("#i>circle", "blue");
  Switch choice;
  styled.reader.SetClassNameAtt(&choice->head, Pair("k"));
  styled.reader.SetIDAtt(&choice->head.id, Pair("i"));
  Rect rect;
  rect->head.parent = &choice->head;
  styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
  EXPECT_EQ(rect->fill.fillColor, kRed);
  Circle circle;
  circle->head.parent = &choice->head;
  styled.reader.SetStyleBasedOnTypeSelector(circle.get(), kTagCircle);
  EXPECT_EQ(circle->fill.fillColor, kBlue);
}

TEST(ChildSelector, parentById) {
  StyledReader styled;
  styled.fill("#b>rect", "red");
  Group group;
  styled.reader.SetIDAtt(&group->head.id, Pair("b"));
  Rect rect;
  rect->head.parent = &group->head;
  EXPECT_EQ(styled.reader.SetStyleBasedOnChildSelector(rect.get(), kTagRect, &group->head, "rect"),
            0);
  EXPECT_EQ(rect->fill.fillColor, kRed);
}

TEST(ContextSelectors, withNothingToAsk) {
  StyledReader styled;
  styled.fill("g rect", "red");
  styled.fill("g>rect", "red");
  Group group;
  Rect rect;
  CHandlerReader& reader = styled.reader;
  EXPECT_EQ(reader.SetStyleBasedOnChildSelector(rect.get(), kTagRect, nullptr, "rect"), 0);
  EXPECT_EQ(reader.SetStyleBasedOnChildSelector(rect.get(), kTagRect, &group->head, nullptr), 0);
  EXPECT_EQ(reader.SetStyleBasedOnDescedantSelector(rect.get(), kTagRect, nullptr, "rect"), 0);
  EXPECT_EQ(reader.SetStyleBasedOnDescedantSelector(rect.get(), kTagRect, &group->head, nullptr),
            0);
  EXPECT_EQ(rect->fill.fillColor, kUnset);
  EXPECT_EQ(reader.SetStyleBasedOnDescedantSelector(rect.get(), kTagRect, &group->head, "rect"), 0);
  EXPECT_EQ(rect->fill.fillColor, kRed);
}

struct AttributeRuleCase {
  const char* key;
  const char* value;
  bool applies;
};

TEST(AttributeSelector, circlesAndTransformsAlone) {
  const AttributeRuleCase cases[] = {{"[transform]", "scale(1)", true},
                                     {"[transform=\"scale(1)\"]", "scale(1)", true},
                                     {"[transform=\"scale(1)\"]", "scale(2)", false},
                                     {"[transform=scale(1)]", "scale(1)", false},
                                     {"circle[transform]", "scale(1)", true},
                                     {"circle[transform=\"scale(1)\"]", "scale(1)", true},
                                     {"rect[transform]", "scale(1)", false}};
  for (const AttributeRuleCase& row : cases) {
    SCOPED_TRACE(row.key);
    StyledReader styled;
    styled.fill(row.key, "red");
    Circle circle;
    Rect rect;
    styled.reader.SetCircleAttribute(circle.get(), kAttTransform, Pair(row.value, "transform"));
    styled.reader.SetRectAttribute(rect.get(), kAttTransform, Pair(row.value, "transform"));
    EXPECT_EQ(circle->fill.fillColor, row.applies ? kRed : kUnset);
    EXPECT_EQ(rect->fill.fillColor, kUnset);
  }
}

TEST(AttributeSelector, theLastKeyWins) {
  StyledReader styled;
  styled.fill("circle[transform=\"scale(1)\"]", "red");
  styled.fill("circle[transform]", "blue");
  styled.fill("[transform]", "green");
  Circle circle;
  styled.reader.SetCircleAttribute(circle.get(), kAttTransform, Pair("scale(1)", "transform"));
  EXPECT_EQ(circle->fill.fillColor, kRed);
  EXPECT_EQ(circle->head.transformCount, 1);
  EXPECT_EQ(styled.reader.SetStyleBasedOnAttribSelector(circle.get(), kTagCircle, nullptr), 0);
}

// Keys longer than the table can hold match nothing, and nothing overruns.
TEST(Selectors, longNames) {
  StyledReader styled;
  styled.fill("#" + std::string(254, 'i'), "red");
  styled.fill("g rect", "blue");
  Rect fits, longer;
  styled.reader.SetRectAttribute(fits.get(), kAttId, Pair(std::string(254, 'i')));
  EXPECT_EQ(fits->fill.fillColor, kRed);
  styled.reader.SetRectAttribute(longer.get(), kAttId, Pair(std::string(100000, 'i')));
  EXPECT_EQ(longer->fill.fillColor, kUnset);
  Group group;
  styled.reader.SetIDAtt(&group->head.id, Pair(std::string(100000, 'i')));
  longer->head.parent = &group->head;
  styled.reader.SetStyleBasedOnTypeSelector(longer.get(), kTagRect);
  EXPECT_EQ(longer->fill.fillColor, kBlue);
}

// What forms the table holds is noticed as it grows, and when it is emptied.
TEST(Selectors, rulesThatComeLater) {
  StyledReader styled;
  Group group;
  Rect rect;
  rect->head.parent = &group->head;
  const auto apply = [&] {
    styled.reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
    return rect->fill.fillColor;
  };
  EXPECT_EQ(apply(), kUnset);
  styled.fill("rect", "red");
  EXPECT_EQ(apply(), kRed);
  styled.fill("g rect", "green");
  EXPECT_EQ(apply(), kGreen);
  styled.fill("g>rect", "blue");
  EXPECT_EQ(apply(), kBlue);
}

TEST(Defs, classesByTheirBareNames) {
  StyledReader styled;
  styled.fill("a", "red");
  styled.fill(".b", "blue");
  Defs found, missing, inherits;
  styled.reader.SetDefsAttribute(found.get(), kAttClass, Pair("a"));
  EXPECT_EQ(found->pa.fill.fillColor, kRed);
  EXPECT_EQ(found->head.classCount, 1);
  styled.reader.SetDefsAttribute(missing.get(), kAttClass, Pair("b a"));
  EXPECT_EQ(missing->pa.fill.fillColor, kUnset);
  EXPECT_EQ(missing->head.classCount, 0);
  EXPECT_EQ(missing->head.classNames, nullptr);
  Group parent;
  styled.reader.SetClassNameAtt(&parent->head, Pair("a"));
  inherits->head.parent = &parent->head;
  EXPECT_EQ(styled.reader.SetStyleBasedOnClass(inherits.get(), kTagDefs), 0);
  EXPECT_EQ(inherits->pa.fill.fillColor, kRed);
  Group other;
  styled.reader.SetClassNameAtt(&other->head, Pair("a"));
  EXPECT_EQ(styled.reader.SetStyleBasedOnClass(other.get(), kTagGroup), 0);
  EXPECT_EQ(other->pa.fill.fillColor, kUnset);
  EXPECT_EQ(styled.reader.SetStyleBasedOnClass(nullptr, kTagDefs), 0);
}

TEST(StyleTable, byKey) {
  StyledReader styled;
  styled.fill("a", "red");
  EXPECT_NE(styled.reader.pGetStyleFromTable("A"), nullptr);
  EXPECT_EQ(styled.reader.pGetStyleFromTable("b"), nullptr);
  EXPECT_EQ(styled.reader.pGetStyleFromTable(nullptr), nullptr);
}

// A rule stays as it was, whatever element it was applied to.
TEST(Rules, currentColourIsEachElementsOwn) {
  StyledReader styled;
  styled.rule("rect", {{"fill", "currentColor"}});
  Rect first, second;
  first->graphics.color = kRed;
  second->graphics.color = {0, 255, 0, 0};
  styled.reader.SetStyleBasedOnTypeSelector(first.get(), kTagRect);
  styled.reader.SetStyleBasedOnTypeSelector(second.get(), kTagRect);
  EXPECT_TRUE(isColor(first->fill.fillColor, 255, 0, 0));
  EXPECT_TRUE(isColor(second->fill.fillColor, 0, 255, 0));
}

}  // namespace
}  // namespace egfsvg::test
