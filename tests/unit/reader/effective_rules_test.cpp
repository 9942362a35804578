// Long rules: what matters of them gives what all of them give.
#include "reader/effective_rules.h"

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "rule_support.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

struct Declaration {
  const char* name;
  const char* value;
};

// Every way in which a property is set: by keyword, text, number, not at all, from the parent, and
// the paints, which touch each other's fields.
const Declaration kDeclarations[] = {{"fill", "red"},
                                     {"fill", "blue"},
                                     {"fill", "none"},
                                     {"fill", "url(#a)"},
                                     {"fill", "url(#missing)"},
                                     {"fill", "currentColor"},
                                     {"fill", "inherit"},
                                     {"fill-opacity", "0"},
                                     {"fill-opacity", "0.5"},
                                     {"fill-opacity", "inherit"},
                                     {"color", "lime"},
                                     {"color", "#010203"},
                                     {"color", "inherit"},
                                     {"stroke", "red"},
                                     {"stroke", "none"},
                                     {"stroke", "url(#a)"},
                                     {"stroke", "url(#missing)"},
                                     {"stroke", "currentColor"},
                                     {"stroke", "inherit"},
                                     {"stroke-dasharray", "1,2"},
                                     {"stroke-dasharray", "3 4 5"},
                                     {"stroke-dasharray", "5"},
                                     {"stroke-dasharray", "none,1"},
                                     {"stroke-miterlimit", "7"},
                                     {"stroke-miterlimit", "1"},
                                     {"stroke-miterlimit", "x"},
                                     {"stroke-width", "3"},
                                     {"stroke-width", "inherit"},
                                     {"image-rendering", "optimizeSpeed"},
                                     {"image-rendering", "foo"},
                                     {"image-rendering", "inherit"},
                                     {"color-rendering", "optimizeQuality"},
                                     {"display", "block"},
                                     {"display", "foo"},
                                     {"display", "inherit"},
                                     {"opacity", "0.25"},
                                     {"opacity", "inherit"},
                                     {"clip-path", "url(#c)"},
                                     {"clip-path", "inherit"},
                                     {"mask", "inherit"},
                                     {"filter", "inherit"},
                                     {"enable-background", "inherit"},
                                     {"clip", "inherit"},
                                     {"baseline-shift", "super"},
                                     {"baseline-shift", "inherit"},
                                     {"text-decoration", "inherit"},
                                     {"text-decoration", "underline"},
                                     {"font-family", "a"},
                                     {"font-family", "inherit"},
                                     {"font-size", "inherit"},
                                     {"glyph-orientation-vertical", "45"},
                                     {"stop-color", "currentColor"},
                                     {"stop-color", "inherit"}};

// All that rules can set in a group, as a text.
std::string describe(const _svg_pa& pa) {
  std::ostringstream out;
  const auto value = [&](const _svg_value& v) { out << v.value << "u" << v.unit << " "; };
  out << pa.fill.fillColor << pa.fill.fillOpacity << textOf(pa.fill.fillUrl)
      << (pa.fill.fillGradient != nullptr) << pa.stroke.strokeColor << int{pa.stroke.strokePresent}
      << textOf(pa.stroke.strokeUrl) << (pa.stroke.strokeGradient != nullptr)
      << pa.stroke.strokeMiterlimit << " ";
  value(pa.stroke.strokeWidth);
  for (int i = 0; i < pa.stroke.strokeDashCount; ++i) value(pa.stroke.strokeDashArray[i]);
  out << pa.graphics.color << pa.graphics.imageRendering << pa.graphics.colorRendering
      << pa.graphics.display << " " << pa.graphics.opacity << textOf(pa.graphics.clipPath)
      << textOf(pa.graphics.mask) << textOf(pa.graphics.filter)
      << textOf(pa.containers.enableBackground) << textOf(pa.textcontentelems.baselineShift)
      << pa.textcontentelems.textDecoration << textOf(pa.fontspec.fontFamily)
      << pa.textcontentelems.glyphOrientationVertical.value << pa.gradients.stopColor;
  value(pa.fontspec.fontSize);
  value(pa.viewports.clipRect[0]);
  return out.str();
}

struct LongRules : testing::Test {
  LongRules() {
    initGradientObj(&gradient);
    styled.reader.gradients.insert(duplicateText("#a", RMM_SITE), &gradient);
    CHandlerReader& reader = styled.reader;
    for (const auto& [name, value] : {Declaration{"display", "compact"},
                                      {"opacity", "0.75"},
                                      {"clip-path", "parent"},
                                      {"mask", "parent"},
                                      {"baseline-shift", "parent"},
                                      {"text-decoration", "blink"},
                                      {"stop-color", "green"}}) {
      reader.SetLinkObjAttribute(parent.get(), GetAttType(name), Pair(value));
    }
  }
  ~LongRules() override { styled.reader.gradients.clear(); }

  // The rule "g" of these declarations.
  AttNode* enter(const std::vector<Declaration>& declarations) {
    AttNode* first = nullptr;
    AttNode** end = &first;
    for (const auto& [name, value] : declarations) {
      auto* node = static_cast<AttNode*>(RMM_CallocName(1, sizeof(AttNode), RMM_SITE));
      node->code = GetAttType(name);
      node->value = duplicateText(value, RMM_SITE);
      *end = node;
      end = &node->next;
    }
    DestroyAttElements(styled.reader.styles.insert(duplicateText("g", RMM_SITE), first));
    styled.reader.state.rules.setTail(0, nullptr);
    return first;
  }

  // What is left of these declarations, as a text.
  std::string matters(const std::vector<Declaration>& declarations) {
    AttNode** nodes = effectiveDeclarations(enter(declarations), styled.reader.gradients);
    std::string text;
    for (AttNode** node = nodes; node != nullptr && *node != nullptr; ++node) {
      text += std::to_string((*node)->code) + ":" + (*node)->value + ";";
    }
    RMM_Free(nodes);
    return text;
  }

  // A group as it is before the rule: by one of two ways.
  void prepare(Group& group, bool bare) {
    group->head.parent = &parent->head;
    if (bare) return;
    group->pa.fill.fillOpacity = 0.0;
    group->pa.graphics.color = kBlue;
    group->pa.graphics.imageRendering = 3;
    group->pa.graphics.colorRendering = 3;
  }

  std::string wholeChain(const AttNode* chain, bool bare) {
    Group group;
    prepare(group, bare);
    for (const AttNode* node = chain; node != nullptr; node = node->next) {
      styled.reader.SetAttribute(group.get(), kTagGroup, const_cast<AttNode*>(node));
    }
    return describe(group->pa);
  }
  std::string asARule(bool bare) {
    Group group;
    prepare(group, bare);
    styled.reader.SetStyleBasedOnTypeSelector(group.get(), kTagGroup);
    return describe(group->pa);
  }

  StyledReader styled;
  _svg_gradient gradient;
  Link parent;
};

TEST_F(LongRules, giveWhatTheWholeChainGives) {
  std::mt19937 random(20260821);
  std::uniform_int_distribution<std::size_t> pick(0, std::size(kDeclarations) - 1);
  std::uniform_int_distribution<int> length(16, 40);
  for (int round = 0; round < 3000; ++round) {
    std::vector<Declaration> declarations;
    // Every other round from a few declarations alone, so that they meet often.
    const std::size_t few = pick(random);
    for (int i = length(random); i > 0; --i) {
      const std::size_t which =
          round % 2 == 0 ? pick(random) : (few + pick(random) % 12) % std::size(kDeclarations);
      declarations.push_back(kDeclarations[which]);
    }
    const AttNode* chain = enter(declarations);
    for (bool bare : {true, false}) {
      std::string rule;
      for (const auto& [name, value] : declarations) rule += std::string(name) + ":" + value + ";";
      ASSERT_EQ(asARule(bare), wholeChain(chain, bare)) << rule;
    }
  }
}

TEST_F(LongRules, whatIsLeftOfThem) {
  struct {
    std::vector<Declaration> declarations;
    const char* left;
  } const cases[] = {
      {{{"fill", "red"}, {"fill", "blue"}}, "135:blue;"},
      {{{"fill", "none"}, {"fill", "blue"}}, "135:none;135:blue;"},
      {{{"fill", "red"}, {"fill", "none"}}, "135:red;135:none;"},
      {{{"fill", "red"}, {"fill-opacity", "0"}, {"fill", "blue"}}, "136:0;135:blue;"},
      {{{"color", "red"}, {"fill", "currentColor"}, {"color", "lime"}},
       "115:red;135:currentColor;115:lime;"},
      {{{"color", "red"}, {"color", "lime"}, {"fill", "currentColor"}},
       "115:lime;135:currentColor;"},
      {{{"stroke", "red"}, {"stroke", "none"}}, "144:none;"},
      {{{"stroke", "red"}, {"stroke", "url(#a)"}}, "144:red;144:url(#a);"},
      {{{"stroke-width", "1"}, {"stroke-width", "inherit"}}, "151:inherit;"},
      {{{"display", "block"}, {"display", "inherit"}}, "117:block;117:inherit;"},
      {{{"display", "inherit"}, {"display", "inherit"}}, "117:inherit;"},
      {{{"stroke-dasharray", "1,2"}, {"stroke-dasharray", "5"}}, "145:1,2;"},
      {{{"stroke-miterlimit", "7"}, {"stroke-miterlimit", "1"}}, "149:7;"},
      {{{"image-rendering", "auto"}, {"image-rendering", "foo"}}, "138:auto;138:foo;"},
      {{{"color-rendering", "auto"}, {"image-rendering", "foo"}}, "138:foo;"},
      {{{"baseline-shift", "a"}, {"baseline-shift", "a"}}, "154:a;154:a;"},
      {{{"baseline-shift", "inherit"}, {"baseline-shift", "a"}, {"baseline-shift", "inherit"}},
       "154:a;154:inherit;"},
      {{{"fill", "url(#a)"}, {"fill", "url( #A )"}}, "135:url( #A );"},
      {{{"fill", "url(#missing)"}, {"fill", "red"}}, "135:url(#missing);135:red;"},
      {{{"fill", "url(#missing)"}, {"fill", "none"}}, "135:none;"},
      {{{"clip", "inherit"}, {"clip", "x"}}, "114:inherit;"},
      {{{"fill", "inherit"}, {"filter", "x"}}, ""}};
  for (const auto& row : cases) EXPECT_EQ(matters(row.declarations), row.left);
}

TEST_F(LongRules, otherAttributesAreLeftAlone) {
  AttNode* chain = enter({{"transform", "scale(2)"}, {"fill", "red"}});
  EXPECT_EQ(effectiveDeclarations(chain, styled.reader.gradients), nullptr);
}

// However long the rule is, each property is seen a few times at the most; gathered shifts
// excepted.
TEST_F(LongRules, leaveLittle) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::size_t> pick(0, std::size(kDeclarations) - 1);
  std::vector<Declaration> declarations;
  while (declarations.size() < 20000) {
    const Declaration& declaration = kDeclarations[pick(random)];
    if (std::string(declaration.name) != "baseline-shift") declarations.push_back(declaration);
  }
  const std::string left = matters(declarations);
  EXPECT_LE(std::count(left.begin(), left.end(), ';'), 2 * 60);
}

// A gradient that becomes known after the rule was used.
TEST_F(LongRules, followTheGradients) {
  std::vector<Declaration> declarations(20, {"stroke", "red"});
  declarations.insert(declarations.end(), {{"fill", "url(#late)"}, {"fill", "red"}});
  const AttNode* chain = enter(declarations);
  EXPECT_EQ(asARule(true), wholeChain(chain, true));
  _svg_gradient late;
  initGradientObj(&late);
  styled.reader.gradients.insert(duplicateText("#late", RMM_SITE), &late);
  for (bool bare : {true, false}) EXPECT_EQ(asARule(bare), wholeChain(chain, bare));
}

// A rule that grew after it was used.
TEST(LongRule, thatGrows) {
  CHandlerReader reader;
  const auto read = [&](const std::string& sheet) {
    TextReader source(sheet);
    EXPECT_EQ(reader.ParseCSSFile(&source->buffer), 0);
    Rect rect;
    reader.SetStyleBasedOnTypeSelector(rect.get(), kTagRect);
    return rect->fill.fillColor;
  };
  std::string many;
  for (int i = 0; i < 20; ++i) many += "rect{fill:red}";
  EXPECT_EQ(read(many), kRed);
  EXPECT_EQ(read("rect{fill:blue}"), kBlue);
  EXPECT_EQ(read("rect{stroke-width:3}"), kBlue);
}

// The names that a rect with the classes c and d and the id i goes by, in a group with the classes
// k and l and the id p in an svg: the keys that are looked up for them, in order.
using Keys = std::vector<std::string>;

void addInContext(Keys& keys, const std::string& subject) {
  for (const char* ancestor : {"svg ", "g ", ".k ", ".l ", "#p ", "g>", ".k>", ".l>", "#p>"}) {
    keys.push_back(ancestor + subject);
  }
}

Keys typeKeys() {
  Keys keys{"rect"};
  addInContext(keys, "rect");
  return keys;
}

Keys classKeys() {
  Keys keys;
  for (const char* name : {".c", ".d"}) {
    keys.push_back(name);
    addInContext(keys, name);
    keys.push_back(std::string("rect") + name);
    addInContext(keys, std::string("rect") + name);
  }
  return keys;
}

Keys idKeys() { return {"#i", "rect#i"}; }

struct MixedSheet : testing::Test {
  MixedSheet() {
    parent->head.parent = &root->head;
    parent->head.type = kTagGroup;
    root->head.type = kTagSvg;
    CHandlerReader& reader = styled.reader;
    reader.SetClassNameAtt(&parent->head, Pair("k l"));
    parent->head.id = duplicateText("p", RMM_SITE);
  }

  // Rules of few declarations with one or more of the selectors, in no order.
  std::string sheet(std::mt19937& random, const Keys& keys) {
    std::uniform_int_distribution<std::size_t> key(0, keys.size() - 1);
    std::uniform_int_distribution<std::size_t> declaration(0, std::size(kDeclarations) - 1);
    std::uniform_int_distribution<int> few(1, 4);
    std::string text;
    for (int rule = 0; rule < 600; ++rule) {
      text += keys[key(random)];
      for (int i = few(random); i > 1; --i) text += " , " + keys[key(random)];
      text += " {";
      for (int i = few(random); i > 0; --i) {
        const auto& [name, value] = kDeclarations[declaration(random)];
        text += std::string(name) + " : \"" + value + "\"; ";
      }
      text += "}\n";
    }
    return text;
  }

  void applyPlainly(_svg_rect* rect, const Keys& keys) {
    for (const std::string& key : keys) {
      AttNode* node = styled.reader.pGetStyleFromTable(key.c_str());
      for (; node != nullptr; node = node->next) {
        styled.reader.SetAttribute(rect, kTagRect, node);
      }
    }
  }

  static std::string describeRect(const _svg_rect& rect) {
    _svg_pa pa{};
    pa.fill = rect.fill;
    pa.stroke = rect.stroke;
    pa.graphics = rect.graphics;
    return describe(pa);
  }

  StyledReader styled;
  Group root;
  Group parent;
};

TEST_F(MixedSheet, isAppliedKeyByKey) {
  Keys keys;
  for (const Keys& some : {typeKeys(), classKeys(), idKeys()}) {
    keys.insert(keys.end(), some.begin(), some.end());
  }
  std::mt19937 random(20260822);
  CHandlerReader& reader = styled.reader;
  for (int round = 0; round < 20; ++round) {
    const std::string text = sheet(random, keys);
    TextReader source(text);
    ASSERT_EQ(reader.ParseCSSFile(&source->buffer), 0);
    Rect fast;
    Rect plain;
    fast->head.parent = plain->head.parent = &parent->head;
    fast->head.type = plain->head.type = kTagRect;
    const auto expectSame = [&](const Keys& looked) {
      applyPlainly(plain.get(), looked);
      EXPECT_EQ(describeRect(*fast.get()), describeRect(*plain.get())) << text;
    };
    reader.SetStyleBasedOnTypeSelector(fast.get(), kTagRect);
    expectSame(typeKeys());
    reader.SetStyleBasedOnClassSelector(fast.get(), kTagRect, "c d");
    expectSame(classKeys());
    reader.SetStyleBasedOnIDSelector(fast.get(), kTagRect, "i");
    expectSame(idKeys());
    if (HasFailure()) break;
  }
}

// Elements of few classes, most of which bring the same style, while the sheet grows.
TEST_F(MixedSheet, classesGiveTheSameToEveryElement) {
  const Keys keys{".c", ".d", ".e", ".f", ".g"};
  std::mt19937 random(20260823);
  const auto pick = [&](std::size_t count) { return random() % count; };
  CHandlerReader& reader = styled.reader;
  for (int step = 0; step < 2000; ++step) {
    if (step % 100 == 0) {
      TextReader source(keys[pick(5)] + "{" + (step < 200 ? "fill:red" : "color:lime") + "}" +
                        (step % 500 == 0 ? sheet(random, {keys[pick(5)]}) : ""));
      ASSERT_EQ(reader.ParseCSSFile(&source->buffer), 0);
    }
    Rect fast;
    Rect plain;
    for (std::size_t i = pick(4); i > 2; --i) {
      const auto& [name, value] = kDeclarations[pick(std::size(kDeclarations))];
      reader.SetRectAttribute(fast.get(), GetAttType(name), Pair(value));
      reader.SetRectAttribute(plain.get(), GetAttType(name), Pair(value));
    }
    std::string classes;
    Keys looked;
    for (std::size_t i = 1 + pick(3); i > 0; --i) {
      looked.push_back(keys[pick(5)]);
      classes += looked.back().substr(1) + " ";
    }
    reader.SetStyleBasedOnClassSelector(fast.get(), kTagRect, classes.c_str());
    applyPlainly(plain.get(), looked);
    ASSERT_EQ(describeRect(*fast.get()), describeRect(*plain.get())) << step << ": " << classes;
  }
}

}  // namespace
}  // namespace egfsvg::test
