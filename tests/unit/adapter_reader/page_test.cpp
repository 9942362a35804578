#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "adapter_reader/group_stack.h"
#include "frame/result_codes.h"
#include "host/egf_bits.h"
#include "tests/support/adapter_page.h"
#include "tests/support/drawn_page.h"

namespace egfsvg::test {
namespace {

// The tree of a page as text: classes, groups with their children.
std::string shapeOf(_egf_obj* object) {
  std::string text = std::to_string(object->objClass);
  if (object->objClass != kClassGroup) return text;
  text += "[";
  for (_egf_obj* child : DrawnPage::children(object)) {
    if (text.back() != '[') text += " ";
    text += shapeOf(child);
  }
  return text + "]";
}

struct TreeRow {
  const char* source;
  const char* tree;  // 1 group, 3 box, 5 line, 6 ellipse, 8 polyline, 9 polygon, 33 path
};

TEST(Page, Trees) {
  constexpr TreeRow kRows[] = {
      {"<svg></svg>", "1[]"},
      {"<svg ><g ></g></svg>", "1[]"},
      {"<svg ><g ><rect width='1' height='1'/></g></svg>", "1[1[3]]"},
      {"<svg ><g ><g ><rect width='1' height='1'/></g></g><line x2='1'/></svg>", "1[1[1[3]] 5]"},
      {"<svg viewBox='0 0 10 10' width='10' height='10'><rect width='1' height='1'/></svg>",
       "1[3 3]"},
      {"<svg ><rect width='1' height='1' display='none'/></svg>", "1[]"},
      {"<svg ><g display='none'><rect width='1' height='1'/></g></svg>", "1[1[3]]"},
      {"<svg ><rect width='1' height='1' visibility='hidden'/></svg>", "1[]"},
      {"<svg ><g ><rect width='1' height='1' visibility='hidden'/></g></svg>", "1[]"},
      {"<svg ><circle r='1'/><ellipse rx='1' ry='2'/></svg>", "1[6 6]"},
      {"<svg ><polyline points='0,0 1,1' fill='none'/><polyline points='0,0 1,1'/></svg>",
       "1[8 9]"},
      {"<svg ><polygon points='0,0 1,1 2,0'/><polygon points=''/></svg>", "1[9]"},
      {"<svg ><path d='M0 0L1 1'/><rect rx='1' width='4' height='4'/></svg>", "1[33 33]"},
      {"<svg ><svg width='5' height='5'><rect width='1' height='1'/></svg></svg>", "1[1[3 3]]"},
      {"<svg ><unknown/><rect width='1' height='1'/></svg>", "1[3]"},
      {"<svg ><switch><rect width='1' height='1' systemLanguage='xx'/>"
       "<circle r='1' systemLanguage='xx'/><line x2='1'/></switch></svg>",
       "1[3]"},
      {"<svg ><rect id='r' width='1' height='1'/><use xlink:href='#r'/></svg>", "1[3]"},
      {"<!DOCTYPE svg [<!ENTITY e \"<rect width='1' height='1'/>\">]><svg >&e; &e;</svg>",
       "1[3 3]"},
      {"<svg ><rect width='1e999' height='1'/><line x2='1'/></svg>", "1[5]"},
      {"<svg ><line /></svg>", "1[5]"},
      {"<svg ><line y1='5' x2='9' y2='5'/></svg>", "1[5]"},  // a flat one is a rectangle
  };
  for (const TreeRow& row : kRows) {
    const DrawnPage page(row.source);
    EXPECT_EQ(page.result(), 0) << row.source;
    EXPECT_EQ(shapeOf(page.root()), row.tree) << row.source;
    EXPECT_EQ(openGroups.currentNode, nullptr) << row.source;
    EXPECT_EQ(openGroups.groupDepth, 0) << row.source;
  }
}

TEST(Page, AnElementBeforeAnySvgEndsThePage) {
  const DrawnPage page("<rect width='1' height='1'/><svg ><line x2='1'/></svg>");
  EXPECT_EQ(page.result(), 0);
  EXPECT_EQ(shapeOf(page.root()), "1[]");
  EXPECT_EQ(egfhost::countMessages(kMessageNoOpenContainer), 1U);
}

struct FaultRow {
  std::int32_t type;
  int result;
  std::size_t logged, notices;
};

TEST(Page, WhatComesOutsideAContainerIsLogged) {
  constexpr FaultRow kRows[] = {
      {kTagRect, 0, 1, 1},     {kTagPath, 0, 1, 1},      {kTagText, 0, 1, 1},
      {kTagImage, 0, 1, 1},    {kTagLink, 0, 1, 1},      {kTagCloud, 0, 1, 1},
      {kTagDiamond, 0, 1, 1},  {kTagCrossout, 0, 1, 1},  {kTagAnnotation, 0, 1, 1},
      {kTagGroup, 0, 1, 0},    {kTagEndGroup, 0, 1, 0},  {kTagEndSvg, 0, 1, 0},
      {kTagDefs, -5214, 0, 0}, {kTagStyle, -5214, 0, 0}, {0, -5214, 0, 0},
      {-1, -5214, 0, 0},
  };
  for (const FaultRow& row : kRows) {
    AdapterPage page;
    page->silent = 0;
    egfhost::clearMessages();
    // Room for any record.
    EXPECT_EQ(page.send(row.type, std::array<std::uint64_t, 512>{}), row.result) << row.type;
    EXPECT_EQ(egfhost::countMessages(kMessageNoOpenContainer), row.logged) << row.type;
    std::size_t notices = 0;
    for (const egfhost::Message& message : egfhost::recordedMessages()) {
      if (message.kind == egfhost::MessageKind::kNotice) ++notices;
    }
    EXPECT_EQ(notices, row.notices) << row.type;
  }
}

TEST(Page, ANoticeIsTwoHostTextsJoinedByABlank) {
  AdapterPage page;
  EXPECT_EQ(page->_logError(0, kMessageNoOpenContainer), 0);
  char first[256];
  char second[256];
  MSG_LoadStringEx(0, kStringReaderNotice, first, sizeof first);
  MSG_LoadStringEx(0, kStringNoticeDetails, second, sizeof second);
  bool found = false;
  for (const egfhost::Message& message : egfhost::recordedMessages()) {
    if (message.kind != egfhost::MessageKind::kNotice) continue;
    EXPECT_EQ(message.text, std::string(first) + " " + second);
    found = true;
  }
  EXPECT_TRUE(found);
  egfhost::clearMessages();
  EXPECT_EQ(page->_logError(1, kMessageNoOpenContainer), 0);
  EXPECT_EQ(egfhost::messageCount(), 1U);
}

TEST(Page, TheRootIsNamedAfterWhatSizesIt) {
  struct Row {
    const char* attributes;
    const char* name;
  };
  constexpr Row kRows[] = {
      {"", "defaultInitialViewPort"},  // sides are 100% when nothing is said
      {"width='50%' height='50%'", "defaultInitialViewPort"},
      {"width='50' height='50'", "setInitialViewPort"},
      {"width='50' height='50' id='x'", "setInitialViewPort"},
      {"class='a DefaultInitialViewport'", "DefaultInitialViewport"},
      {"class='defaultInitialViewPort a'", "setInitialViewPort"},
  };
  for (const Row& row : kRows) {
    const DrawnPage page(std::string("<svg ") + row.attributes + "></svg>");
    EXPECT_STREQ(as<EgfGroup>(page.root())->groupName.get(), row.name) << row.attributes;
  }
}

TEST(Page, TheViewportBoxOfTheRoot) {
  AdapterPage page;
  _svg_viewbox box = svgViewBox(0, 0, 100, 50);
  EXPECT_EQ(page.send(svgElement(200, 100, &box)), 1);
  EXPECT_EQ(page->viewportWidth, 819200.0F);
  EXPECT_EQ(page->viewportHeight, 409600.0F);
  ASSERT_EQ(page.children().size(), 1U);
  const auto* viewport = as<EgfPolygon>(page.children()[0]);
  EXPECT_EQ(viewport->head.objClass, 3);
  EXPECT_EQ(pointsOf(viewport),
            (std::vector<PointPair>{{0, 0}, {0, 204800}, {409600, 204800}, {409600, 0}}));
  EXPECT_EQ(viewport->pen.fillStyle, 0);
  EXPECT_EQ(viewport->head.objAttr & 3, 0);
  EXPECT_EQ(viewport->head.objAttr2 & 3, 0);
  EXPECT_EQ(GroupViewportBits::get(page.root()->groupFlags), 1U);
  const _mpl_spacerect_tag mer = page.root()->groupMer;
  EXPECT_EQ(+mer.right, 409600.0F);
  EXPECT_EQ(+mer.bottom, 204800.0F);
}

TEST(Page, ADefaultViewportIsSizedByTheViewBox) {
  for (const char* name : {"defaultInitialViewPort", "DEFAULTINITIALVIEWPORT"}) {
    AdapterPage page;
    _svg_viewbox box = svgViewBox(5, 6, 100, 50);
    _svg_svg element = svgElement(200, 100, &box);
    ClassName classes[2] = {};
    std::strcpy(classes[0], "other");
    std::strcpy(classes[1], name);
    element.head.classNames = classes;
    element.head.classCount = 2;
    EXPECT_EQ(page.send(element), 1);
    EXPECT_EQ(page->viewportWidth, 409600.0F);
    EXPECT_EQ(page->viewportHeight, 204800.0F);
    EXPECT_STREQ(page.root()->groupName.get(), name);
    EXPECT_EQ(pairOf(as<EgfPolygon>(page.children()[0])->points[0]), PointPair(20480, 24576));
  }
}

TEST(Page, WithoutAViewBoxTheViewportStays) {
  AdapterPage page;
  page->viewportWidth = 1.0F;
  page->viewportHeight = 2.0F;
  EXPECT_EQ(page.send(svgElement(200, 100)), 1);
  EXPECT_EQ(page->viewportWidth, 1.0F);
  EXPECT_EQ(page->viewportHeight, 2.0F);
  EXPECT_TRUE(page.children().empty());
  EXPECT_STREQ(page.root()->groupName.get(), "setInitialViewPort");
}

TEST(Page, ANestedSvgIsAGroupOfItsOwn) {
  AdapterPage page;
  _svg_viewbox box = svgViewBox(0, 0, 1000, 1000);
  _svg_svg outer = svgElement(1000, 1000, &box);
  Transforms moved = Transforms().translate(100, 0);
  moved.put(outer.head);
  ASSERT_EQ(page.send(outer), 1);
  _svg_viewbox innerBox = svgViewBox(0, 0, 7, 7);
  _svg_svg inner = svgElement(20, 10, &innerBox, &outer.head);
  inner.x.value = 5;
  inner.y.value = 6;
  inner.width = percent(10, kAxisWidth);
  char id[] = "name";
  inner.head.id = id;
  ASSERT_EQ(page.send(inner), 1);
  EXPECT_EQ(page->viewportWidth, 409600.0F);  // a tenth of the outer one
  EXPECT_EQ(page->viewportHeight, 40960.0F);
  ASSERT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  ASSERT_EQ(page.closeTag(kTagEndSvg), 1);
  EXPECT_EQ(page->viewportWidth, 4096000.0F);
  EXPECT_EQ(openGroups.groupDepth, 1);
  ASSERT_EQ(page.closeTag(kTagEndSvg), 1);
  EXPECT_EQ(openGroups.groupDepth, 0);
  EXPECT_EQ(page->groupStack, nullptr);
  ASSERT_EQ(page.children().size(), 2U);
  const auto* group = as<EgfGroup>(page.children()[1]);
  EXPECT_EQ(group->head.objClass, 1);
  EXPECT_EQ(+group->head.hostFlags, 79U);
  EXPECT_EQ(group->linkFlags & 3, 0);
  EXPECT_STREQ(group->groupName.get(), "name");
  EXPECT_EQ(GroupViewportBits::get(group->groupFlags), 1U);
  const std::vector<_egf_obj*> inside = AdapterPage::children(page.children()[1]);
  ASSERT_EQ(inside.size(), 2U);
  const auto* viewport = as<EgfPolygon>(inside[0]);
  EXPECT_EQ(viewport->head.objAttr & 3, 0);
  EXPECT_EQ(viewport->head.objAttr2 & 3, 1);
  // Its own box, under the transforms of its parent: (105, 6) to (205, 16) pixels.
  EXPECT_EQ(
      pointsOf(viewport),
      (std::vector<PointPair>{{430080, 24576}, {430080, 65536}, {839680, 65536}, {839680, 24576}}));
}

TEST(Page, GroupsKeepTheViewportAndTakeTheirChildrensRectangle) {
  AdapterPage page;
  ASSERT_EQ(page.openSvg(), 1);
  ASSERT_EQ(page.openGroup(), 1);
  const auto* group = as<EgfGroup>(currentGroup());
  EXPECT_EQ(+group->head.hostFlags, 15U);
  ASSERT_EQ(page.send(unstroked(svgRect(1, 2, 3, 4))), 1);
  ASSERT_EQ(page.send(unstroked(svgRect(10, 20, 3, 4))), 1);
  page->viewportWidth = 77.0F;
  ASSERT_EQ(page.closeTag(kTagEndGroup), 1);
  EXPECT_EQ(page->viewportWidth, 0.0F);
  const _mpl_spacerect_tag inner = group->groupMer;
  EXPECT_EQ(+inner.left, 4096.0F);
  EXPECT_EQ(+inner.right, 13 * 4096.0F);
  EXPECT_EQ(+inner.top, 8192.0F);
  EXPECT_EQ(+inner.bottom, 24 * 4096.0F);
  const _mpl_spacerect_tag outer = page.root()->groupMer;
  EXPECT_EQ(+outer.left, 4096.0F);
  EXPECT_EQ(+outer.bottom, 24 * 4096.0F);
}

TEST(Page, SvgForRectangles) {
  AdapterPage page;
  _svg_viewbox box = svgViewBox(1, 2, 3, 4);
  _svg_svg element = svgElement(50, 60, &box);
  const OwnedObject object(page->SVG_formatEGFSvg(&element));
  const auto* polygon = as<EgfPolygon>(object.get());
  EXPECT_EQ(object->objClass, 9);
  EXPECT_EQ(FigureBits::get(polygon->pen.modeFlags), 1U);
  EXPECT_EQ(+polygon->pen.scaleFactor, 1.0);
  EXPECT_EQ(pointsOf(polygon),
            (std::vector<PointPair>{{4096, 24576}, {0, 0}, {16384, 24576}, {16384, 8192}}));
  EXPECT_EQ(page->viewportWidth, 0.0F);
  element.viewBox = nullptr;
  EXPECT_EQ(page->SVG_formatEGFSvg(&element), nullptr);
  EXPECT_EQ(page->SVG_ViewPortCreate(&element, 0), nullptr);
}

TEST(Page, ContentOfHiddenContainersShowsUnlessTheHostHidesIt) {
  struct Row {
    const char* source;
    const char* bare;
    const char* hidden;
  };
  constexpr Row kRows[] = {
      {"<svg ><g display='none'><rect width='1' height='1'/></g><line x2='1'/></svg>", "1[1[3] 5]",
       "1[5]"},
      {"<svg ><g display='none'><g ><rect width='1' height='1'/></g></g></svg>", "1[1[1[3]]]",
       "1[]"},
      {"<svg display='none'><rect width='1' height='1'/></svg>", "1[3]", "1[]"},
      {"<svg ><g ><rect width='1' height='1'/></g></svg>", "1[1[3]]", "1[1[3]]"},
      {"<svg ><switch display='none'><rect width='1' height='1'/></switch></svg>", "1[3]", "1[]"},
      {"<svg ><defs><rect id='r' width='1' height='1'/></defs>"
       "<use display='none' xlink:href='#r'/><use xlink:href='#r'/></svg>",
       "1[3 3]", "1[3]"},
  };
  for (const Row& row : kRows) {
    egfhost::setSetting("hideUnderNone", 0);
    EXPECT_EQ(shapeOf(DrawnPage(row.source).root()), row.bare) << row.source;
    egfhost::setSetting("hideUnderNone", 1);
    EXPECT_EQ(shapeOf(DrawnPage(row.source).root()), row.hidden) << row.source;
  }
}

TEST(Page, ThreeHundredColoursOfAFile) {
  std::string source = "<svg >";
  char colour[64];
  for (int i = 1; i <= 300; ++i) {
    std::snprintf(colour, sizeof colour, "<rect width='1' height='1' fill='#%06x'/>", i * 7919);
    source += colour;
  }
  const DrawnPage page(source + "</svg>");
  EXPECT_EQ(page.result(), 0);
  ASSERT_EQ(page.objects().size(), 300U);
  EXPECT_EQ(colourWord(as<EgfPolygon>(page.objects()[299])->pen.fillColor), 300U * 7919U);
}

TEST(Page, AGroupThatCannotBeMadeDropsItsContentAlone) {
  AdapterPage page;
  ASSERT_EQ(page.openSvg(), 1);
  egfhost::failAt("EEL_AllocObject", 1);
  EXPECT_EQ(page.openGroup(), 1);
  egfhost::clearFaults();
  EXPECT_EQ(egfhost::countMessages(kMessageOutOfMemory), 1U);
  EXPECT_EQ(openGroups.groupDepth, 2);
  EXPECT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  EXPECT_EQ(page.openGroup(), 1);
  EXPECT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  EXPECT_EQ(page.closeTag(kTagEndGroup), 1);
  EXPECT_EQ(page.closeTag(kTagEndGroup), 1);
  EXPECT_TRUE(page.children().empty());
  EXPECT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  EXPECT_EQ(page.children().size(), 1U);
}

TEST(Page, ASvgThatCannotBeMadeEndsThePage) {
  AdapterPage page;
  _svg_svg outer = svgElement(1, 1);
  ASSERT_EQ(page.send(outer), 1);
  const _svg_svg inner = svgElement(1, 1, nullptr, &outer.head);
  egfhost::failAt("EEL_AllocObject", 1);
  EXPECT_EQ(page.send(inner), 0);
  egfhost::clearFaults();
  EXPECT_EQ(egfhost::countMessages(kMessageOutOfMemory), 1U);
  EXPECT_EQ(openGroups.groupDepth, 1);
  EXPECT_EQ(page.closeTag(kTagEndSvg), 1);
}

// A record whose parents are known but whose container is not open.
TEST(Page, ANestedSvgWithNothingOpenIsLogged) {
  AdapterPage page;
  _svg_svg outer = svgElement(1, 1);
  EXPECT_EQ(page.send(svgElement(1, 1, nullptr, &outer.head)), 0);
  EXPECT_EQ(egfhost::countMessages(kMessageNoOpenContainer), 1U);
}

// The page's group is never handed to itself.
TEST(Page, ASecondRootInsideTheFirst) {
  AdapterPage page;
  ASSERT_EQ(page.openSvg(), 1);
  ASSERT_EQ(page.openSvg(), 1);
  EXPECT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  EXPECT_EQ(page.closeTag(kTagEndSvg), 1);
  EXPECT_EQ(page.closeTag(kTagEndSvg), 1);
  EXPECT_EQ(page.children().size(), 1U);
}

TEST(Page, AnObjectThatTheGroupRefusesIsDestroyed) {
  AdapterPage page;
  ASSERT_EQ(page.openSvg(), 1);
  egfhost::failAt("EEL_AppendObject", 1);
  EXPECT_EQ(page.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  egfhost::clearFaults();
  EXPECT_TRUE(page.children().empty());
}

}  // namespace
}  // namespace egfsvg::test
