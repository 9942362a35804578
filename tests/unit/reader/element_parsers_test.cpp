#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_settings.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/release.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

TEST(LeafParsers, WithoutAttributesDefaultsAndInheritance) {
  TextSource source("<svg><g fill=\"red\"><rect></g></svg>");
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type != 6) return std::int32_t{kGoOn};
    const auto* rect = object.payload<_svg_rect>();
    EXPECT_EQ(rect->head.type, 6);
    EXPECT_EQ(rect->head.index, -1);
    EXPECT_EQ(rect->head.parent->type, 14);
    EXPECT_EQ(rect->x.value, 0.0);
    EXPECT_EQ(rect->x.axis, 1);
    EXPECT_EQ(rect->fill.fillColor.red, 255);
    EXPECT_EQ(rect->fill.fillColor.green, 0);
    EXPECT_EQ(reader.hasAttributes, 0);
    return std::int32_t{kGoOn};
  });
}

TEST(LeafParsers, EachTakesItsGeometry) {
  const std::string svg = "<svg>";
  const auto rect = nthRecord<_svg_rect>(svg + "<rect x='1' y='2' width='3' height='4'/>", 6);
  EXPECT_EQ(rect.x.value + 10 * rect.y.value + 100 * rect.width.value + 1000 * rect.height.value,
            4321.0);
  const auto circle = nthRecord<_svg_circle>(svg + "<circle cx='1' cy='2' r='3'/>", 7);
  EXPECT_EQ(circle.cx.value + 10 * circle.cy.value + 100 * circle.r.value, 321.0);
  const auto ellipse = nthRecord<_svg_ellipse>(svg + "<ellipse cx='1' cy='2' rx='3' ry='4'/>", 8);
  EXPECT_EQ(
      ellipse.cx.value + 10 * ellipse.cy.value + 100 * ellipse.rx.value + 1000 * ellipse.ry.value,
      4321.0);
  const auto line = nthRecord<_svg_line>(svg + "<line x1='1' y1='2' x2='3' y2='4'/>", 9);
  EXPECT_EQ(line.x1.value + 10 * line.y1.value + 100 * line.x2.value + 1000 * line.y2.value,
            4321.0);
  lookAtEach<_svg_polyline>(svg + "<polyline points='1 2 3 4'/>", 10,
                            [](const _svg_polyline& polyline) {
                              ASSERT_EQ(polyline.pointCount, 2);
                              EXPECT_EQ(polyline.isClosed, 0);
                              EXPECT_EQ(polyline.points[1].y.value, 4.0);
                            });
  lookAtEach<_svg_polygon>(svg + "<polygon points='1 2 3 4 5 6'/>", 11,
                           [](const _svg_polygon& polygon) {
                             ASSERT_EQ(polygon.pointCount, 3);
                             EXPECT_EQ(polygon.isClosed, 1);
                           });
  lookAtEach<_svg_image>(svg + "<image x='1' width='3' xlink:href='data:image/png;base64,AA'/>", 16,
                         [](const _svg_image& image) {
                           EXPECT_EQ(image.x.value + 10 * image.width.value, 31.0);
                           EXPECT_EQ(image.preserveAspectRatio, 1025);
                         });
}

/// The parser of each leaf called by itself, behind its tag.
TEST(LeafParsers, ASyntaxErrorIsTold) {
  TextReader reader("<rect x=\"1\" y=2>");
  ASSERT_EQ(reader->GetNextTag(nullptr), 6);
  _svg_rect rect;
  initRect(&rect);
  EXPECT_EQ(reader->ParseRectTagData(&rect, nullptr), -5217);
  EXPECT_EQ(rect.x.value, 1.0);
  svg_DestroyObjectAtt(&rect, 6);

  TextReader stop("<stop offset=\"0.5\" id='s'/>");
  ASSERT_EQ(stop->GetNextTag(nullptr), 32);
  _svg_stop record;
  initStopObj(&record);
  EXPECT_EQ(stop->ParseStopTagData(&record, nullptr), 0);
  EXPECT_EQ(record.offset.value, 50.0);
  EXPECT_EQ(record.offset.unit, 9);
  EXPECT_EQ(record.head.type, 32);
  EXPECT_STREQ(record.head.id, "s");
  DestroyCommonElements(&record.head);

  TextReader defs("<defs id=\"d\" x=>");
  ASSERT_EQ(defs->GetNextTag(nullptr), 15);
  _svg_defs container;
  initDefsObj(&container);
  EXPECT_EQ(defs->ParseDefsTagData(&container, nullptr), -5217);
  EXPECT_EQ(container.head.type, 15);
  EXPECT_STREQ(container.head.id, "d");
  DestroyCommonElements(&container.head);
}

TEST(SvgParser, RootsStandAtTheOrigin) {
  const _svg_svg root = nthRecord<_svg_svg>("<svg x='5' y='6' width='10' height='10'>", 3);
  EXPECT_EQ(root.x.value, 0.0);
  EXPECT_EQ(root.y.value, 0.0);
  const _svg_svg inner = nthRecord<_svg_svg>("<svg><svg x='5' y='6'>", 3, 1);
  EXPECT_EQ(inner.x.value, 5.0);
}

TEST(SvgParser, PercentagesTakeTheFirstView) {
  const struct {
    const char* text;
    double width, height;
  } rows[] = {
      {"<svg width='50%' height='50%'>", 6000, 3600},
      {"<svg width='100' height='50%'>", 12000, 3600},
      {"<svg>", 12000, 7200},
      {"<svg width='200'>", 24000, 7200},
  };
  for (const auto& row : rows) {
    const _svg_svg svg = nthRecord<_svg_svg>(row.text, 3);
    EXPECT_EQ(svg.width.value, row.width) << row.text;
    EXPECT_EQ(svg.height.value, row.height) << row.text;
    EXPECT_EQ(svg.width.unit, 3);
    EXPECT_EQ(svg.viewBox, nullptr);
    EXPECT_EQ(svg.head.classCount, 1);
  }
}

TEST(SvgParser, ViewBoxesComeFromTheSize) {
  lookAtEach<_svg_svg>("<svg width='200' height='100'>", 3, [](const _svg_svg& svg) {
    ASSERT_NE(svg.viewBox, nullptr);
    EXPECT_EQ(svg.viewBox->x.value, 0.0);
    EXPECT_EQ(svg.viewBox->width.value, 200.0);
    EXPECT_EQ(svg.viewBox->height.value, 100.0);
    EXPECT_EQ(svg.viewBox->x.axis, 1);
    EXPECT_EQ(svg.viewBox->y.axis, 2);
    EXPECT_EQ(svg.viewBox->height.axis, 2);
    EXPECT_EQ(svg.viewBox->width.axis, 1);
    EXPECT_EQ(svg.head.classCount, 0);
  });
  TextSource source("<svg width='2in' height='1in'>");
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    const auto* svg = object.payload<_svg_svg>();
    EXPECT_EQ(svg->width.value, 192.0);
    EXPECT_EQ(svg->viewBox->height.value, 96.0);
    EXPECT_EQ(reader.viewportWidth, 192.0);
    EXPECT_EQ(reader.viewportHeight, 96.0);
    return std::int32_t{kGoOn};
  });
}

TEST(SvgParser, AViewBoxLeavesTheSizeOfARoot) {
  TextSource source("<svg width='10cm' height='5cm' viewBox='0 0 100 50'>");
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    const auto* svg = object.payload<_svg_svg>();
    EXPECT_EQ(svg->width.value, 10.0);
    EXPECT_EQ(svg->width.unit, 6);
    EXPECT_EQ(svg->head.transformCount, 0);
    EXPECT_EQ(reader.viewportWidth, 10.0);
    EXPECT_EQ(reader.viewportHeight, 5.0);
    return std::int32_t{kGoOn};
  });
}

TEST(SvgParser, AnInnerViewBoxScales) {
  lookAtEach<_svg_rect>(
      "<svg width='100' height='100'><svg x='0' y='0' width='20' height='40' viewBox='0 0 10 10'>"
      "<rect>",
      6, [](const _svg_rect& rect) {
        ASSERT_EQ(rect.head.transformCount, 2);
        EXPECT_EQ(rect.head.transforms[0].kind, 6);
        EXPECT_EQ(rect.head.transforms[0].args[0].value, 2.0);
        EXPECT_EQ(rect.head.transforms[1].kind, 5);
      });
}

TEST(SvgParser, WithoutMemory) {
  for (std::uint64_t call = 1; call <= 4; ++call) {
    TextReader reader("<svg width='10' height='10'>");
    ASSERT_EQ(reader->GetNextTag(nullptr), 3);
    _svg_svg* svg = nullptr;
    ASSERT_TRUE(egfhost::failAllocation(call, egfhost::FaultSpan::kForEver));
    if (reader->ParseSVGTagData(nullptr, &svg, 0) == nullptr) {
      EXPECT_EQ(svg, nullptr);
      EXPECT_EQ(reader->svgCount, 0);
      EXPECT_TRUE(reader->state.outOfMemory);
    }
    egfhost::clearFaults();
  }
}

TEST(GroupParser, NumbersAndKeys) {
  TextReader reader("<g ><g ><g >");
  _svg_common* parent = nullptr;
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(reader->GetNextTag(nullptr), 14);
    _svg_group* group = nullptr;
    parent = reader->ParseGroupTagData(parent, &group, i == 2 ? 1 : 0);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(parent, &group->head);
    EXPECT_EQ(group->head.index, i);
    EXPECT_EQ(group->head.type, i == 2 ? 24 : 14);
    EXPECT_EQ(reader->groups.find(std::to_string(i).c_str()), group);
    EXPECT_EQ(reader->_getParentObj(parent), parent);
  }
  EXPECT_EQ(reader->groupCount, 3);
}

TEST(GroupParser, MarkupGroupsTakeNoNumber) {
  TextReader reader("<g class=\"QV7.5_Cloud\"><g >");
  ASSERT_EQ(reader->GetNextTag(nullptr), 14);
  _svg_group* markup = nullptr;
  ASSERT_NE(reader->ParseGroupTagData(nullptr, &markup, 0), nullptr);
  EXPECT_EQ(markup->head.type, 101);
  EXPECT_EQ(markup->head.index, 0);
  EXPECT_EQ(reader->groupCount, 0);
  EXPECT_EQ(reader->groups.count, 0);
  ASSERT_EQ(reader->GetNextTag(nullptr), 14);
  _svg_group* plain = nullptr;
  ASSERT_NE(reader->ParseGroupTagData(nullptr, &plain, 0), nullptr);
  EXPECT_EQ(plain->head.index, 0);
  EXPECT_EQ(plain->head.type, 14);
  release(markup);
}

TEST(GroupParser, AUseIsNoMarkupGroup) {
  TextReader reader("<use class=\"QV7.5_Cloud\">");
  ASSERT_EQ(reader->GetNextTag(nullptr), 24);
  _svg_group* use = nullptr;
  ASSERT_NE(reader->ParseGroupTagData(nullptr, &use, 1), nullptr);
  EXPECT_EQ(use->head.type, 24);
  EXPECT_EQ(reader->groups.count, 1);
}

TEST(SetMarkupGroupType, TakesTheFirstKindExactly) {
  const struct {
    std::vector<const char*> names;
    int result, type;
  } rows[] = {
      {{"QV7.5_Cloud"}, 1, 101},
      {{"QV7.5_Crossout"}, 1, 102},
      {{"QV7.5_Diamond"}, 1, 103},
      {{"QV7.5_Anno"}, 1, 104},
      {{"qv7.5_anno"}, 0, 14},
      {{"QV7.5_Anno2"}, 0, 14},
      {{"a QV7.5_Diamond"}, 1, 103},
      {{"a,QV7.5_Diamond;QV7.5_Anno"}, 1, 103},
      {{"a", "QV7.5_Anno", "QV7.5_Cloud"}, 1, 104},
      {{""}, 0, 14},
  };
  for (const auto& row : rows) {
    CHandlerReader reader;
    std::vector<char> slots(row.names.size() * sizeof(ClassName), '\0');
    _svg_group group;
    initGroupObj(&group);
    group.head.type = 14;
    group.head.classNames = reinterpret_cast<ClassName*>(slots.data());
    group.head.classCount = static_cast<std::int32_t>(row.names.size());
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      std::strcpy(group.head.classNames[i], row.names[i]);
    }
    EXPECT_EQ(reader._setMarkupGroupType(&group), row.result) << row.names[0];
    EXPECT_EQ(group.head.type, row.type) << row.names[0];
  }
}

TEST(SwitchParser, AFailureGivesTheParent) {
  TextReader reader("<switch id=\"s\"><switch x=1>");
  ASSERT_EQ(reader->GetNextTag(nullptr), 35);
  _svg_switch* first = nullptr;
  _svg_common* parent = reader->ParseSwitchTagData(nullptr, &first);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(parent, &first->head);
  EXPECT_EQ(reader->switchCount, 1);
  EXPECT_EQ(reader->switches.find("0"), first);
  ASSERT_EQ(reader->GetNextTag(nullptr), 35);
  _svg_switch* second = nullptr;
  EXPECT_EQ(reader->ParseSwitchTagData(parent, &second), parent);
  EXPECT_EQ(second, nullptr);
  EXPECT_EQ(reader->switchCount, 1);
}

/// The types of an `a`'s children, and what else a test asks of it.
template <class LookAt>
void lookAtLink(const std::string& text, LookAt lookAt) {
  lookAtEach<_svg_a>(text, 21, lookAt);
}

std::vector<int> childTypes(const _svg_a& link) {
  std::vector<int> types;
  for (int i = 0; i < link.objectCount; ++i) types.push_back(link.objects[i].type);
  return types;
}

TEST(LinkParser, HoldsItsChildrenInOrder) {
  lookAtLink("<a xlink:href=\"u\"><rect x=\"1\"/><circle r=\"1\"/><path d=\"M0 0 L1 1\"/></a>",
             [](const _svg_a& link) {
               EXPECT_EQ(childTypes(link), (std::vector<int>{6, 7, 5}));
               EXPECT_STREQ(link.link.value, "u");
               EXPECT_EQ(link.objects[0].head.parent, &link.head);
               EXPECT_EQ(link.head.type, 21);
             });
  lookAtLink("<a ></a>", [](const _svg_a& link) {
    EXPECT_EQ(link.objectCount, 0);
    EXPECT_EQ(link.objects, nullptr);
  });
}

TEST(LinkParser, KeepsTheLastCData) {
  lookAtLink("<a ><![CDATA[one]]><![CDATA[two]]></a>", [](const _svg_a& link) {
    EXPECT_STREQ(link.cdata, "two");
    EXPECT_EQ(link.cdataLength, 4);
  });
  lookAtLink("<a ><![CDATA[one]]><![CDATA[ ",
             [](const _svg_a& link) { EXPECT_STREQ(link.cdata, "one"); });
}

TEST(LinkParser, ReadsOnThroughCommentsAndErrors) {
  lookAtLink("<a ><!-- <rect x=\"1\"/> --></a>",
             [](const _svg_a& link) { EXPECT_EQ(link.objectCount, 1); });
  lookAtLink("<a ><rect x=5/><circle r=\"2\"/></a>", [](const _svg_a& link) {
    ASSERT_EQ(childTypes(link), (std::vector<int>{6, 7}));
    EXPECT_EQ(link.objects[0].rect.x.value, 0.0);
    EXPECT_EQ(link.objects[1].circle.r.value, 2.0);
  });
}

TEST(LinkParser, GroupsAreNoObjects) {
  lookAtLink("<svg fill=\"red\"><a ><g fill=\"lime\"><rect></g><circle></a></svg>",
             [](const _svg_a& link) {
               ASSERT_EQ(childTypes(link), (std::vector<int>{6, 7}));
               EXPECT_EQ(link.objects[0].rect.fill.fillColor.green, 255);
               EXPECT_EQ(link.objects[0].head.parent->type, 14);
               EXPECT_EQ(link.objects[1].head.parent, &link.head);
             });
}

TEST(LinkParser, MarkupGroupsAreObjects) {
  lookAtLink(
      "<a ><g class=\"QV7.5_Diamond\" id=\"d\"><path d=\"M0 0\"/></g>"
      "<rect fill=\"red\" x=\"1\"/></a>",
      [](const _svg_a& link) {
        ASSERT_EQ(childTypes(link), (std::vector<int>{103, 6}));
        const _svg_rect& rect = link.objects[1].rect;
        EXPECT_EQ(rect.graphics.opacity, 1.0);
        EXPECT_EQ(rect.fill.fillOpacity, 1.0);
        EXPECT_EQ(rect.fill.fillColor.red, 255);
        EXPECT_EQ(rect.fill.fillColor.green, 0);
        const _svg_markup_diamond& diamond = link.objects[0].diamond;
        EXPECT_STREQ(diamond.group.head.id, "d");
        EXPECT_EQ(diamond.outline.head.parent, &diamond.group.head);
      });
  lookAtLink(
      "<a ><g class=\"QV7.5_Cloud\"><polyline points=\"1 2\"/></g>"
      "<g class=\"QV7.5_Crossout\"><line x1=\"1\"/><line x1=\"2\"/></g></a>",
      [](const _svg_a& link) {
        ASSERT_EQ(childTypes(link), (std::vector<int>{101, 102}));
        EXPECT_EQ(link.objects[0].cloud.outline.pointCount, 1);
        EXPECT_EQ(link.objects[1].crossout.line2.x1.value, 2.0);
      });
}

TEST(LinkParser, AnAnnotationCostsNoLink) {
  lookAtLink("<svg><a ><g class=\"QV7.5_Anno\"><rect></g><circle></a></svg>",
             [](const _svg_a& link) {
               EXPECT_EQ(childTypes(link), (std::vector<int>{6, 7}));
               EXPECT_EQ(link.objects[1].head.parent, &link.head);
             });
}

TEST(LinkParser, ChildrenAfterAGroupInAGroup) {
  lookAtLink(
      "<svg><a ><g fill=\"red\"><g class=\"QV7.5_Diamond\"><path></g><rect></g><rect></a></svg>",
      [](const _svg_a& link) {
        ASSERT_EQ(childTypes(link), (std::vector<int>{103, 6, 6}));
        EXPECT_EQ(link.objects[1].rect.fill.fillColor.green, 0);
        EXPECT_EQ(link.objects[2].rect.fill.fillOpacity, 1.0);
        EXPECT_EQ(link.objects[2].rect.graphics.opacity, 1.0);
      });
}

TEST(LinkParser, DeepGroupsEnd) {
  std::string text = "<svg><a >";
  for (int i = 0; i < 500; ++i) text += "<g >";
  text += "<rect>";
  for (int i = 0; i < 500; ++i) text += "</g>";
  lookAtLink(text + "<circle></a></svg>", [](const _svg_a& link) {
    EXPECT_EQ(childTypes(link), (std::vector<int>{6, 7}));
    EXPECT_EQ(link.objects[1].head.parent, &link.head);
  });
}

TEST(ParseMarkupGroupsData, LeavesAnnotationsUnread) {
  TextReader reader("<g class=\"QV7.5_Anno\"><text>a</text></g>");
  ASSERT_EQ(reader->GetNextTag(nullptr), 14);
  _svg_group* group = nullptr;
  ASSERT_NE(reader->ParseGroupTagData(nullptr, &group, 0), nullptr);
  const int before = reader->buffer.getFileIndex();
  auto* object = allocateZeroed<_svg_objects>(RMM_SITE);
  EXPECT_EQ(reader->ParseMarkupGroupsData(object, group), 0);
  EXPECT_EQ(object->type, 104);
  EXPECT_EQ(reader->buffer.getFileIndex(), before);
  RMM_Free(object);
  release(group);
}

TEST(CreateAttribList, KeepsPairsInOrder) {
  TextReader reader("x=\"1\" id=\"me\" bogus='2'/>");
  AttNode* list = nullptr;
  char* idRef = nullptr;
  EXPECT_EQ(reader->CreateAttribList(&list, &idRef), 0);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->code, 11);
  EXPECT_STREQ(list->name, "x");
  EXPECT_STREQ(list->value, "1");
  EXPECT_EQ(list->valueLength, 2);
  EXPECT_EQ(list->next->code, 1);
  EXPECT_EQ(list->next->next->code, -1);
  EXPECT_STREQ(list->next->next->name, "bogus");
  EXPECT_EQ(list->next->next->next, nullptr);
  EXPECT_STREQ(idRef, "#me");
  DestroyAttElements(list);
  freeAll(idRef);
}

TEST(CreateAttribList, NothingForNoAttributes) {
  for (const char* text : {"/>", "", "x=1>"}) {
    TextReader reader(text);
    AttNode marker{};
    AttNode* list = &marker;
    char* idRef = nullptr;
    EXPECT_EQ(reader->CreateAttribList(&list, &idRef), 0);
    EXPECT_EQ(list, nullptr) << text;
    EXPECT_EQ(idRef, nullptr);
  }
}

TEST(CreateAttribList, WithoutMemory) {
  for (std::uint64_t call = 1; call <= 6; ++call) {
    TextReader reader("x=\"1\" id=\"me\"/>");
    AttNode* list = nullptr;
    char* idRef = nullptr;
    ASSERT_TRUE(egfhost::failAllocation(call));
    EXPECT_EQ(reader->CreateAttribList(&list, &idRef), 0);
    egfhost::clearFaults();
    DestroyAttElements(list);
    freeAll(idRef);
  }
}

TEST(Containers, TheOpenContainer) {
  CHandlerReader reader;
  TextReader source("<g >");
  source->GetNextTag(nullptr);
  _svg_group* group = nullptr;
  _svg_common* parent = source->ParseGroupTagData(nullptr, &group, 0);
  _svg_container* open = nullptr;

  source->_setContainerElem(&open, parent, 14);
  ASSERT_NE(open, nullptr);
  EXPECT_EQ(open->current, parent);
  EXPECT_EQ(open->owner, parent);

  _svg_rect rect;
  initRect(&rect);
  rect.head.type = 6;
  rect.head.parent = parent;
  source->_setContainerElem(&open, &rect.head, 6);
  EXPECT_EQ(open->current, nullptr);
  EXPECT_EQ(open->owner, nullptr);

  source->_setContainerElem(&open, parent, -1);
  EXPECT_EQ(open->current, parent);
  EXPECT_EQ(open->owner, parent);

  source->_setContainerElem(&open, nullptr, 14);
  EXPECT_EQ(open->current, nullptr);

  // A link stands in no table and is its own record.
  _svg_a link;
  initA(&link);
  link.head.type = 21;
  source->_setContainerElem(&open, &link.head, -1);
  EXPECT_EQ(open->owner, &link.head);

  // Types whose record is looked up by name do not recurse.
  _svg_gradient gradient;
  initGradientObj(&gradient);
  gradient.head.type = 30;
  source->_setContainerElem(&open, &gradient.head, -1);
  EXPECT_EQ(open->owner, nullptr);
  freeAll(open);
}

TEST(Containers, TheRecordBehindAnElement) {
  TextReader reader("<svg ><g ><switch ><g class=\"QV7.5_Cloud\">");
  _svg_svg* svg = nullptr;
  _svg_group* group = nullptr;
  _svg_switch* choice = nullptr;
  _svg_group* markup = nullptr;
  reader->GetNextTag(nullptr);
  _svg_common* top = reader->ParseSVGTagData(nullptr, &svg, 0);
  reader->GetNextTag(nullptr);
  _svg_common* second = reader->ParseGroupTagData(top, &group, 0);
  reader->GetNextTag(nullptr);
  _svg_common* third = reader->ParseSwitchTagData(second, &choice);
  reader->GetNextTag(nullptr);
  _svg_common* fourth = reader->ParseGroupTagData(third, &markup, 0);
  EXPECT_EQ(reader->_getParentObj(top), top);
  EXPECT_EQ(reader->_getParentObj(second), second);
  EXPECT_EQ(reader->_getParentObj(third), third);
  EXPECT_EQ(reader->_getParentObj(fourth), nullptr);
  EXPECT_EQ(reader->_getParentObj(nullptr), nullptr);
  EXPECT_EQ(reader->_getContainerElem(fourth), fourth);
  EXPECT_EQ(reader->_getContainerElem(second), nullptr);
  reader->_setContainerElem(&reader->container, second, 14);
  EXPECT_EQ(reader->_getContainerElem(second), second);
  EXPECT_EQ(reader->_getContainerElem(top), nullptr);

  for (const int index : {-1, 1, 1000}) {
    _svg_common other{};
    other.type = 14;
    other.index = index;
    EXPECT_EQ(reader->_getParentObj(&other), nullptr) << index;
  }
  for (const int type : {15, 6, 21, 30, 31, 0}) {
    _svg_common other{};
    other.type = type;
    EXPECT_EQ(reader->_getParentObj(&other), nullptr) << type;
  }
  release(markup);
}

TEST(Containers, TransformListsGoDownWhole) {
  CHandlerReader reader;
  TextReader source("<g transform=\"translate(1,2) rotate(3)\">");
  source->GetNextTag(nullptr);
  _svg_group* group = nullptr;
  _svg_common* from = source->ParseGroupTagData(nullptr, &group, 0);
  _svg_common to{};
  initSVGCommon(&to);
  to.parent = from;
  reader.CopyOwnerTransformList(&to);
  ASSERT_EQ(to.transformCount, 2);
  EXPECT_EQ(to.transforms[1].kind, 1);
  EXPECT_EQ(to.transforms[1].argCount, 3);
  EXPECT_EQ(to.transforms[0].args[1].value, 2.0);
  const transformEntry* kept = to.transforms;
  reader.CopyTransformList(&to, from);
  EXPECT_EQ(to.transforms, kept);
  DestroyCommonElements(&to);
  _svg_common orphan{};
  reader.CopyOwnerTransformList(&orphan);
  reader.CopyOwnerTransformList(nullptr);
  reader.CopyTransformList(&orphan, nullptr);
  reader.CopyTransformList(nullptr, from);
  EXPECT_EQ(orphan.transforms, nullptr);
  to.type = kTagLinearGradient;  // the one that takes a copy
  ASSERT_TRUE(egfhost::failAllocation(1));
  reader.CopyTransformList(&to, from);
  egfhost::clearFaults();
  EXPECT_TRUE(reader.state.outOfMemory);
  EXPECT_EQ(to.transforms, nullptr);
}

}  // namespace
}  // namespace egfsvg::test
