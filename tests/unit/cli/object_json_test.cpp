#include "cli/object_json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "cli/dump.h"
#include "host/egf_rows.h"
#include "host/egf_templates.h"
#include "tests/support/object_json.h"
#include "tests/unit/render/test_page.h"

namespace egfsvg {
namespace {

using namespace test;  // NOLINT(google-build-using-namespace)

std::string jsonOf(const _egf_obj& object) {
  TextSink sink;
  JsonWriter json(sink);
  writeObject(json, object);
  json.finish();
  return sink.text();
}

std::string dumpOf(const egfrender::Page& page) {
  TextSink sink;
  JsonWriter json(sink);
  json.beginObject();
  json.key("pages");
  json.beginArray();
  writePage(json, page, "Page 1");
  json.endArray();
  json.key("styles");
  writeStyles(json, page.document);
  json.key("dashes");
  writeDashes(json, page.body->pageHeader);
  json.key("palette");
  writeColours(json, nullptr);
  json.endObject();
  json.finish();
  return sink.text();
}

TEST(ObjectJson, PrintsAGroupWithItsChildren) {
  const OwnedObject object(
      group({line({1, 2}, {3, 4}, {.width = 1.5, .stroke = 0xff0000})}, "name"));
  EXPECT_EQ(jsonOf(*object),
            "{\"objClass\":1,\"objAttr\":1,\"objAttr2\":0,\"layerIndex\":65535,"
            "\"groupMer\":{\"left\":4096,\"right\":12288,\"top\":8192,\"bottom\":16384},"
            "\"groupFlags\":0,\"linkFlags\":0,\"groupName\":\"name\",\"children\":[\n"
            "  {\"objClass\":5,\"objAttr\":1,\"objAttr2\":0,\"layerIndex\":65535,"
            "\"startPt\":[4096,8192],\"endPt\":[12288,16384],\"gradPtCount\":0,\"gradPts\":null,"
            "\"lineWidth\":{\"unit\":0,\"value\":1.5},\"strokeColor\":\"0x00ff0000\","
            "\"lineStyle\":0,\"rasterOp\":0,\"capStyle\":10,\"hostWord22\":65535,"
            "\"scaleFactor\":1,\"strokeParmsNo\":0,\"strokeGradientNo\":0}\n"
            " ]}");
}

TEST(ObjectJson, PrintsABoxFlat) {
  const OwnedObject object(box(1, 2, 3, 4, {.fill = 0x04ff0000}));
  EXPECT_EQ(jsonOf(*object),
            "{\"objClass\":3,\"objAttr\":1,\"objAttr2\":0,\"layerIndex\":65535,"
            "\"points\":[[4096,8192],[4096,24576],[16384,24576],[16384,8192]],"
            "\"bounds\":{\"left\":4096,\"right\":16384,\"top\":8192,\"bottom\":24576},"
            "\"lineWidth\":{\"unit\":0,\"value\":0},\"strokeColor\":\"0x00ffffff\","
            "\"fillColor\":\"0x04ff0000\",\"lineStyle\":0,\"fillStyle\":1,\"joinStyle\":13,"
            "\"modeFlags\":2,\"styleMask\":303,\"layerMask\":65535,\"scaleFactor\":1,"
            "\"trailingWord\":1000,\"pointCount\":4,\"subPathCount\":0,\"subPathSizes\":null,"
            "\"gradPtCount\":0,\"gradPts\":null,\"fillParmsNo\":0,\"fillGradientNo\":0,"
            "\"strokeGradientNo\":0}");
}

TEST(ObjectJson, KeepsTheLayoutBehindAMark) {
  const OwnedObject object(edit<EgfEllipse>(
      ellipse(5, 5, 2, 1), [](EgfEllipse& record) { record.head.objClass = kMarkEllipse; }));
  const std::string text = jsonOf(*object);
  EXPECT_EQ(text.find("{\"objClass\":99,"), 0U) << text;
  EXPECT_NE(text.find("\"layoutClass\":6"), std::string::npos) << text;
}

TEST(ObjectJson, PrintsNumbersThatAreNoneAsNull) {
  const OwnedObject object(edit<EgfLine>(line({0, 0}, {1, 1}), [](EgfLine& record) {
    record.startPt = {std::numeric_limits<float>::quiet_NaN(),
                      std::numeric_limits<float>::infinity()};
    record.pen.lineWidth = {0, -std::numeric_limits<double>::infinity()};
  }));
  const std::string text = jsonOf(*object);
  EXPECT_NE(text.find("\"startPt\":[null,null]"), std::string::npos);
  EXPECT_NE(text.find("\"lineWidth\":{\"unit\":0,\"value\":null}"), std::string::npos);
}

TEST(ObjectJson, PrintsACountBelowZeroAsNone) {
  const OwnedObject object(
      edit<EgfPolygon>(box(0, 0, 1, 1), [](EgfPolygon& record) { record.pointCount = -5; }));
  EXPECT_NE(jsonOf(*object).find("\"points\":[],"), std::string::npos);
}

TEST(ObjectJson, PrintsStyleRecords) {
  TestPage page;
  auto ramp = kGradientParms;
  ramp.stopCount = 2;
  ramp.stopAlpha[1] = 127;
  ramp.stopColors[0] = colourOf(0x00ffffff);
  ramp.stopPositions[1] = 1000;
  page.style(kStyleGradient, ramp);
  page.style(kStyleStroke, kStrokeParms);
  TextSink sink;
  JsonWriter json(sink);
  writeStyles(json, page.document());
  json.finish();
  EXPECT_EQ(sink.text(),
            "{\n"
            " \"165\":[\n"
            "  {\"gradMatrix\":{\"m11\":1,\"m12\":0,\"m21\":0,\"m22\":1,\"dx\":0,\"dy\":0},"
            "\"gradReflect\":0,\"stopCount\":2,\"stopAlpha\":[0,127],"
            "\"stopColors\":[\"0x00ffffff\",\"0x00000000\"],\"stopPositions\":[0,1000]}\n"
            " ],\n"
            " \"166\":[\n"
            "  {\"capStyle\":3,\"strokeFillStyle\":1,\"strokeAlpha\":255,\"wrapMode\":0,"
            "\"gradientKind\":0,\"gradientFlags\":1,\"angleIsSet\":0,\"gradientAngle\":90000000,"
            "\"miterLimit\":10}\n"
            " ],\n"
            " \"168\":[],\n"
            " \"170\":[]\n"
            "}");
}

TEST(ObjectJson, PrintsDashes) {
  TestPage page;
  page.tree().dash({5, -3.5});
  TextSink sink;
  JsonWriter json(sink);
  writeDashes(json, *page.tree().pageHeader());
  json.finish();
  EXPECT_NE(sink.text().find("\"segments\":[5,-3.5],\"unit\":0,\"segmentCount\":2}"),
            std::string::npos)
      << sink.text();
}

// Every class with something in it, styles and dashes: the dump of what was read back from a dump
// is the same text.
TEST(ObjectJson, IsReadBackTheSame) {
  TestPage page;
  page.viewport(0, 0, 100, 50);
  const AreaPen area{.width = 2.25,
                     .stroke = 0x123456,
                     .lineStyle = page.tree().dash({5, -3, 0.1, -2}),
                     .fillParmsNo = page.style(kStyleFill, kFillParms),
                     .fillGradientNo = page.style(kStyleGradient, kGradientParms),
                     .gradPts = {{0, 0}, {1.5, 2.5}}};
  const LinePen pen{.width = 0.3, .strokeParmsNo = page.style(kStyleStroke, kStrokeParms)};
  page.style(kStylePen, kPolygonPen);
  page.tree().dash({7}, kMeasurePoint);
  page.add(group(
      {box(1, 2, 3, 4, area), polygon({{0, 0}, {1.1, 2.2}, {3, 4}}, area),
       polyPath({{{0, 0}, {1, 1}}, {{2, 2}, {3, 3}, {4, 5}}}, area), ellipse(5, 6, 7, 8, area, 30),
       line({0, 1}, {2, 3}, pen), polyline({{0, 0}, {1, 2}, {3, 4}}, pen),
       group({text({1, 2}, "caf\xc3\xa9 \"x\""), annotation({3, 4}, "one\ntwo")}, "inner",
             kGroupHotspot)},
      "outer"));
  page.add(path({arc(1, 2, 3, 4, 0, 90, true), curve({{0, 0}, {1, 0}, {2, 1}, {2, 2}}),
                 path({line({0, 0}, {1, 1})}, {.pathKind = 1})},
                {.gdiFillStyleNo = 1}));
  page.add(arrowLine({0, 0}, {9, 9}, {.points = {{1, 2}, {3, 4}, {5, 6}, {7, 8}}}, pen));
  page.add(cloud({{0, 0}, {9, 0}, {9, 9}, {0, 9}}, {{1, 1}, {2, 2}, {3, 1}}));
  page.add(diamond({{5, 0}, {9, 5}, {5, 9}, {0, 5}}));
  page.add(crossout({0, 0}, {9, 9}, {9, 0}, {0, 9}));
  page.add(image(1, 2, 3, 4));
  page.add(stockObject(77, {1, 2}, 45));
  page.add(hotspot("http://example.org/"));
  page.add(opaqueObject(kClassIcon, 1, 2, 3, 4));
  page.add(edit<EgfPolygon>(box(0, 0, 1, 1),
                            [](EgfPolygon& record) { record.head.objClass = kMarkRect; }));
  const std::string first = dumpOf(page.page());

  TestPage twin;
  const HostHandle tree = readDump(first, twin.document());
  const auto* body = blockBody<EgfTreeBody>(at<EgfBlockHeader>(tree));
  EXPECT_EQ(dumpOf({body, twin.document(), 96}), first);
}

TEST(ObjectJson, ReadsASingleObject) {
  const OwnedObject object(readObject(
      R"({"objClass":9,"points":[[0,0],[4096,8192]],"pointCount":2,"strokeColor":"0x000000ff"})"));
  ASSERT_EQ(object->layoutClass, kClassPolygon);
  const auto* record = as<EgfPolygon>(object.get());
  EXPECT_EQ(record->pointCount, 2);
  EXPECT_EQ(record->points[1].y, 8192.0F);
  EXPECT_EQ(colourWord(record->pen.strokeColor), 0xffU);
  EXPECT_EQ(record->head.layerIndex, kNoLayer);
}

TEST(ObjectJson, RefusesWhatItDoesNotKnow) {
  for (const char* text : {"", "{", R"({"objClass":4711})", R"({"objClass":3,"nonsense":1})",
                           R"({"objClass":5,"startPt":[1]})", R"({"objClass":5,"startPt":"x"})"}) {
    EXPECT_THROW(readObject(text), std::runtime_error) << text;
  }
}

TEST(ObjectJson, GoesDownAnyDepth) {
  _egf_obj* nest = box(0, 0, 1, 1);
  for (int i = 0; i < 20000; ++i) nest = group({nest});
  const OwnedObject root(nest);
  const std::string text = jsonOf(*root);
  EXPECT_EQ(std::count(text.begin(), text.end(), '{'), std::count(text.begin(), text.end(), '}'));
  EXPECT_NE(text.find("\"objClass\":3"), std::string::npos);
}

}  // namespace
}  // namespace egfsvg
