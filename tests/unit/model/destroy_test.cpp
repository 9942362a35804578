// Each test owns blocks through a record and releases the record: a block left behind, or freed
// twice, fails the test by itself.
#include <gtest/gtest.h>

#include <cstring>

#include "embedded_host/host_memory.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"

namespace {

using egfsvg::allocateArray;
using egfsvg::allocateRecord;

char* text() { return egfsvg::duplicateText("text", RMM_SITE); }

void own(_svg_common* head) {
  head->id = text();
  head->desc = text();
  head->classNames = static_cast<ClassName*>(RMM_CallocName(2, sizeof(ClassName), RMM_SITE));
  head->classCount = 2;
  head->transforms = allocateArray<transformEntry>(2, RMM_SITE);
  for (int i = 0; i < 2; ++i) {
    head->transforms[i] = {5, allocateArray<_svg_value>(2, RMM_SITE), 2};
  }
  head->transformCount = 2;
  head->styleRef = text();
}

void own(_svg_pa_stroke* stroke) {
  stroke->strokeDashArray = allocateArray<_svg_value>(3, RMM_SITE);
  stroke->strokeDashCount = 3;
  stroke->strokeUrl = text();
}

void own(_svg_pa_graphics* graphics) {
  graphics->clipPath = text();
  graphics->cursor = text();
  graphics->filter = text();
  graphics->mask = text();
}

void own(_svg_pa_markers* markers) {
  markers->markerStart = text();
  markers->markerMid = text();
  markers->markerEnd = text();
}

void own(_svg_ta* ta) {
  ta->requiredFeatures.list = text();
  ta->requiredExtensions = {text(), 1, 1};
  ta->systemLanguage = {text(), 1, 1};
}

void own(_svg_event_graphical* events) {
  for (char** slot :
       {&events->onfocusout, &events->onfocusin, &events->onactivate, &events->onclick,
        &events->onmousedown, &events->onmouseup, &events->onmouseover, &events->onmousemove,
        &events->onmouseout, &events->onload}) {
    *slot = text();
  }
}

void own(_svg_pa* pa) {
  own(&pa->stroke);
  pa->fill.fillUrl = text();
  own(&pa->graphics);
  pa->containers.enableBackground = text();
  pa->fontspec.fontFamily = text();
  pa->images.colorProfile = text();
  own(&pa->markers);
  pa->textcontentelems.baselineShift = text();
}

template <class Shape>
void ownShape(Shape* shape) {
  own(&shape->head);
  own(&shape->stroke);
  shape->fill.fillUrl = text();
  own(&shape->graphics);
  own(&shape->ta);
  own(&shape->events);
}

template <class Shape>
void ownMarkedShape(Shape* shape) {
  ownShape(shape);
  own(&shape->markers);
}

template <class Shape>
void ownPointShape(Shape* shape) {
  ownMarkedShape(shape);
  shape->points = allocateArray<_svg_point>(4, RMM_SITE);
  shape->pointCount = 4;
}

void ownPath(_svg_path* path) {
  ownMarkedShape(path);
  path->paths = allocateArray<_svg_singlepath>(2, RMM_SITE);
  for (int i = 0; i < 2; ++i) {
    path->paths[i] = {allocateArray<_svg_path_data>(3, RMM_SITE), 3, 0, 0};
  }
  path->pathCount = 2;
}

void ownRun(_svg_text* run) {
  ownShape(run);
  run->fontspec.fontFamily = text();
  run->textcontentelems.baselineShift = text();
  run->content = text();
  run->contentLength = 4;
  run->link.value = text();
  run->lang.value = text();
}

void ownText(_svg_text* first) {
  ownRun(first);
  for (int i = 0; i < 2; ++i) {
    auto* run = allocateRecord<_svg_text>(RMM_SITE);
    initText(run);
    ownRun(run);
    run->next = first->next;
    first->next = run;
  }
}

template <class Container>
void ownContainer(Container* container) {
  own(&container->head);
  own(&container->pa);
  own(&container->ta);
}

void ownGroup(_svg_group* group) {
  ownContainer(group);
  own(&group->events);
  group->link.value = text();
}

template <class Record, class Owner>
void expectReleased(std::int32_t type, void (*init)(Record*), Owner owner) {
  SCOPED_TRACE(type);
  Record record;
  init(&record);
  const auto before = egfhost::memoryCounters().liveBlocks;
  owner(&record);
  EXPECT_GT(egfhost::memoryCounters().liveBlocks, before + 10);
  svg_DestroyObjectAtt(&record, type);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before);
  svg_DestroyObjectAtt(&record, type);
}

TEST(Destroy, EveryTypeReleasesAllThatItOwns) {
  expectReleased<_svg_svg>(3, initSVGObj, [](_svg_svg* svg) {
    ownContainer(svg);
    svg->viewBox = allocateRecord<_svg_viewbox>(RMM_SITE);
    svg->events.document.slots[5] = text();
  });
  expectReleased<_svg_path>(5, initPath, ownPath);
  expectReleased<_svg_rect>(6, initRect, ownShape<_svg_rect>);
  expectReleased<_svg_circle>(7, initCircle, ownShape<_svg_circle>);
  expectReleased<_svg_ellipse>(8, initEllipse, ownShape<_svg_ellipse>);
  expectReleased<_svg_line>(9, initLine, ownMarkedShape<_svg_line>);
  expectReleased<_svg_polyline>(10, initPolyline, ownPointShape<_svg_polyline>);
  expectReleased<_svg_polygon>(11, initPolygon, ownPointShape<_svg_polygon>);
  expectReleased<_svg_text>(12, initText, ownText);
  expectReleased<_svg_group>(14, initGroupObj, ownGroup);
  expectReleased<_svg_image>(16, initImage, [](_svg_image* image) {
    own(&image->head);
    own(&image->graphics);
    own(&image->ta);
    own(&image->events);
    image->images.colorProfile = text();
    image->link.value = text();
  });
}

TEST(Destroy, MarkupFormsReleaseTheirMembers) {
  const auto zero = [](auto* record) {
    std::memset(static_cast<void*>(record), 0, sizeof *record);
  };
  expectReleased<_svg_markup_cloud>(101, zero, [](_svg_markup_cloud* cloud) {
    ownGroup(&cloud->group);
    ownPointShape(&cloud->outline);
    ownPath(&cloud->curve);
  });
  expectReleased<_svg_markup_crossout>(102, zero, [](_svg_markup_crossout* crossout) {
    ownGroup(&crossout->group);
    ownMarkedShape(&crossout->line1);
    ownMarkedShape(&crossout->line2);
  });
  expectReleased<_svg_markup_diamond>(103, zero, [](_svg_markup_diamond* diamond) {
    ownGroup(&diamond->group);
    ownPath(&diamond->outline);
  });
  expectReleased<_svg_markup_anno>(104, zero, [](_svg_markup_anno* annotation) {
    ownGroup(&annotation->group);
    ownText(&annotation->note);
  });
}

TEST(Destroy, ALinkReleasesItsChildren) {
  expectReleased<_svg_a>(21, initA, [](_svg_a* link) {
    ownContainer(link);
    own(&link->events);
    link->link.value = text();
    link->cdata = text();
    link->cdataLength = 5;
    link->objects = static_cast<_svg_objects*>(RMM_CallocName(4, sizeof(_svg_objects), RMM_SITE));
    link->objectCount = 4;
    link->objects[0].type = 6;
    ownShape(&link->objects[0].rect);
    link->objects[1].type = 12;
    ownText(&link->objects[1].text);
    link->objects[2].type = 101;
    ownPointShape(&link->objects[2].cloud.outline);
    link->objects[3].type = 0;
  });
  svg_DestroyObject(nullptr);
}

TEST(Destroy, OtherTypesAndNullDoNothing) {
  _svg_group group;
  initGroupObj(&group);
  group.head.id = text();
  for (std::int32_t type : {-1, 0, 1, 2, 4, 13, 15, 17, 18, 22, 25, 35, 100, 105, 1000, 1001}) {
    svg_DestroyObjectAtt(&group, type);
    EXPECT_STREQ(group.head.id, "text") << type;
  }
  RMM_Free(group.head.id);
  svg_DestroyObjectAtt(nullptr, 6);
}

TEST(Destroy, PointsWithACountOfZeroStay) {
  for (std::int32_t type : {10, 11}) {
    _svg_polyline polyline;
    initPolyline(&polyline);
    polyline.points = allocateArray<_svg_point>(1, RMM_SITE);
    _svg_point* const points = polyline.points;
    svg_DestroyObjectAtt(&polyline, type);
    EXPECT_EQ(polyline.points, points);
    RMM_Free(points);
  }
}

TEST(Destroy, GroupsTwice) {
  _svg_pa pa;
  initPA(&pa);
  own(&pa);
  _svg_common head;
  initSVGCommon(&head);
  own(&head);
  _svg_ta ta;
  initTA(&ta);
  own(&ta);
  _svg_event events{};
  own(&events.graphical);
  for (char*& slot : events.animation.slots) slot = text();
  for (char*& slot : events.document.slots) slot = text();
  for (int i = 0; i < 2; ++i) {
    DestroyPAElements(&pa);
    DestroyCommonElements(&head);
    DestroyTAElements(&ta);
    DestroyEAElements(&events);
  }
  EXPECT_TRUE(pa.stroke.strokeDashArray == nullptr && pa.stroke.strokeUrl == nullptr &&
              pa.fill.fillUrl == nullptr && pa.markers.markerMid == nullptr);
  EXPECT_TRUE(head.id == nullptr && head.classNames == nullptr && head.transforms == nullptr);
  EXPECT_EQ(head.transformCount, 0);
  EXPECT_EQ(ta.requiredExtensions.listCount, 0);
  EXPECT_EQ(ta.systemLanguage.listCount, 0);
  EXPECT_EQ(ta.systemLanguage.passes, 1);
  EXPECT_EQ(events.document.slots[5], nullptr);
}

TEST(Destroy, NullGroups) {
  DestroyCommonElements(nullptr);
  DestroyPAElements(nullptr);
  DestroyTAElements(nullptr);
  DestroyEAElements(nullptr);
  DestroyAttElements(nullptr);
  DestroyDefNodes(nullptr);
  DestroyPathElements(nullptr);
  DestroyTextElements(nullptr);
  DestroyGrElements(nullptr);
  DestroyAElements(nullptr);
  DestroyStyleElements(nullptr);
}

AttNode* attributeChain(int length) {
  AttNode* chain = nullptr;
  for (int i = 0; i < length; ++i) {
    auto* node = egfsvg::allocateZeroed<AttNode>(RMM_SITE);
    node->value = text();
    node->next = chain;
    chain = node;
  }
  return chain;
}

TEST(Destroy, Chains) {
  DestroyAttElements(attributeChain(3));
  DefNode* chain = nullptr;
  for (int i = 0; i < 3; ++i) {
    auto* node = egfsvg::allocateZeroed<DefNode>(RMM_SITE);
    node->idRef = text();
    node->text = text();
    node->attributes = attributeChain(2);
    node->next = chain;
    chain = node;
  }
  DestroyDefNodes(chain);
}

TEST(Destroy, Gradient) {
  _svg_gradient gradient;
  initGradientObj(&gradient);
  gradient.link.value = text();
  gradient.stops = allocateArray<_svg_stop>(2, RMM_SITE);
  gradient.stopCount = 2;
  for (int i = 0; i < 2; ++i) {
    initStopObj(&gradient.stops[i]);
    own(&gradient.stops[i].head);
    own(&gradient.stops[i].graphics);
  }
  DestroyGrElements(&gradient);
  EXPECT_EQ(gradient.stops, nullptr);
  EXPECT_EQ(gradient.stopCount, 0);
  DestroyGrElements(&gradient);
}

TEST(Destroy, StyleLeavesTheLinkToItsUser) {
  _svg_style_props style;
  initStyleProps(&style);
  _svg_common head;
  initSVGCommon(&head);
  own(&head);
  style.selector = text();
  style.title = text();
  style.href = text();
  style.common = &head;
  own(&style.pa);
  DestroyStyleElements(&style);
  EXPECT_EQ(style.selector, nullptr);
  EXPECT_STREQ(style.href, "text");
  RMM_Free(style.href);
}

TEST(StrokeConsistence, NothingStroked) {
  _svg_pa_stroke stroke;
  initStroke(&stroke);
  _svg_gradient gradient;
  stroke.strokeWidth = {8, 3.0, 2};
  stroke.strokeOpacity = 0.7;
  stroke.strokeUrl = text();
  stroke.strokeGradient = &gradient;
  checkStrokeConsistence(stroke);
  EXPECT_EQ(stroke.strokeWidth.value, 0.0);
  EXPECT_EQ(stroke.strokeWidth.unit, 8);
  EXPECT_EQ(stroke.strokeWidth.axis, 2);
  EXPECT_EQ(stroke.strokeOpacity, 0.0);
  EXPECT_EQ(stroke.strokeLinecap, 0);
  EXPECT_EQ(stroke.strokeLinejoin, 0);
  EXPECT_EQ(stroke.strokeMiterlimit, 4);
  EXPECT_EQ(stroke.strokeUrl, nullptr);
  EXPECT_EQ(stroke.strokeGradient, nullptr);
}

TEST(StrokeConsistence, AStrokeIsLeftAlone) {
  _svg_pa_stroke stroke;
  initStroke(&stroke);
  stroke.strokePresent = 1;
  stroke.strokeWidth.value = 3.0;
  stroke.strokeUrl = text();
  char* const url = stroke.strokeUrl;
  checkStrokeConsistence(stroke);
  EXPECT_EQ(stroke.strokeWidth.value, 3.0);
  EXPECT_EQ(stroke.strokeOpacity, 1.0);
  EXPECT_EQ(stroke.strokeLinecap, 1);
  EXPECT_EQ(stroke.strokeUrl, url);
  RMM_Free(url);
}

}  // namespace
