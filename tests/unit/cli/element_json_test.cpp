#include "cli/element_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "model/fields.h"
#include "model/lifecycle.h"

namespace egfsvg {
namespace {

// An envelope with a record behind it, as the reader builds it.
template <class Record>
class Envelope {
 public:
  explicit Envelope(std::int32_t type, std::int32_t size = sizeof(Record))
      : bytes_((sizeof(_handlerObject) + sizeof(Record) + sizeof(std::max_align_t) - 1) /
               sizeof(std::max_align_t)) {
    object().type = type;
    object().size = size;
  }

  _handlerObject& object() { return *reinterpret_cast<_handlerObject*>(bytes_.data()); }
  Record* operator->() { return object().template payload<Record>(); }
  Record* record() { return object().template payload<Record>(); }

  std::string json() {
    TextSink sink;
    JsonWriter json(sink);
    writeElement(json, object());
    json.finish();
    return sink.text();
  }

 private:
  std::vector<std::max_align_t> bytes_;
};

std::string value(int unit, const std::string& number, int axis) {
  return "{\"unit\":" + std::to_string(unit) + ",\"value\":" + number +
         ",\"axis\":" + std::to_string(axis) + "}";
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

const std::string kHead =
    R"("index":-1,"desc":null,"externalResourcesRequired":0,"classNames":null,"classCount":0,)"
    R"("transforms":null,"transformCount":0,"hasParent":false,"styleRef":null})";
const std::string kGraphics =
    R"("graphics":{"clipPath":null,"clipRule":1,"color":[255,255,255,0],"colorInterpolation":1,)"
    R"("colorRendering":1,"display":1,"imageRendering":1,"opacity":1,"visibility":1,)"
    R"("cursor":null,"filter":null,"mask":null,"pointerEvents":1,"shapeRendering":1,)"
    R"("textRendering":1})";
const std::string kTests = R"("ta":{"requiredFeatures":{"listCount":0,"passes":1},)"
                           R"("requiredExtensions":{"listCount":0,"passes":1},)"
                           R"("systemLanguage":{"listCount":0,"passes":1}})";
const std::string kEvents =
    R"("events":{"onfocusout":null,"onfocusin":null,"onactivate":null,"onclick":null,)"
    R"("onmousedown":null,"onmouseup":null,"onmouseover":null,"onmousemove":null,)"
    R"("onmouseout":null,"onload":null})";

TEST(ElementJson, PrintsARectWhole) {
  Envelope<_svg_rect> rect(kTagRect, 321);
  initRect(rect.record());
  rect->head.type = kTagRect;
  rect->width = {kUnitMillimetre, 2.5, kAxisWidth};
  EXPECT_EQ(
      rect.json(),
      R"({"type":6,"size":321,"record":{"head":{"type":6,"id":null,)" + kHead +
          R"(,"fill":{"packedColor":0,"fillColor":[255,255,255,0],"fillRule":1,"fillOpacity":1,)"
          R"("fillUrl":null,"fillGradient":null},)"
          R"("stroke":{"packedColor":16777215,"strokeColor":[0,0,0,0],"strokePresent":0,)"
          R"("strokeWidth":)" +
          value(3, "1", 0) +
          R"(,"strokeLinecap":1,"strokeLinejoin":1,"strokeMiterlimit":4,"strokeDashArray":null,)"
          R"("strokeDashCount":0,"strokeDashOffset":)" +
          value(3, "0", 0) + R"(,"strokeOpacity":1,"strokeUrl":null,"strokeGradient":null},)" +
          kGraphics + "," + kTests + "," + kEvents + R"(,"x":)" + value(3, "0", 1) + R"(,"y":)" +
          value(3, "0", 2) + R"(,"width":)" + value(7, "2.5", 1) + R"(,"height":)" +
          value(3, "0", 2) + R"(,"rx":)" + value(3, "0", 1) + R"(,"ry":)" + value(3, "0", 2) +
          "}}");
}

TEST(ElementJson, PrintsClosersAsEmptyRecords) {
  Envelope<_svg_svg> svg(kTagEndSvg, 1128);
  EXPECT_EQ(svg.json(), R"({"type":1000,"size":1128,"record":{}})");
  Envelope<_svg_group> group(kTagEndGroup, 7);
  EXPECT_EQ(group.json(), R"({"type":1001,"size":7,"record":{}})");
}

TEST(ElementJson, PrintsTextsClassesTransformsAndParent) {
  char id[] = "caf\xe9";  // not UTF-8
  char desc[] = "a \"b\"\n";
  ClassName classes[2] = {"one", "two"};
  _svg_value args[2] = {{kUnitPixel, 5, kAxisWidth}, {kUnitPixel, -0.5, kAxisHeight}};
  transformEntry transforms[2] = {{kTranslate, args, 2}, {kRotate, nullptr, 0}};
  _svg_common parent{};
  Envelope<_svg_circle> circle(kTagCircle);
  initCircle(circle.record());
  circle->head.id = id;
  circle->head.desc = desc;
  circle->head.classNames = classes;
  circle->head.classCount = 2;
  circle->head.transforms = transforms;
  circle->head.transformCount = 2;
  circle->head.parent = &parent;
  const std::string text = circle.json();
  EXPECT_TRUE(has(text, "\"id\":\"caf\xEF\xBF\xBD\""));
  EXPECT_TRUE(has(text, R"("desc":"a \"b\"\n")"));
  EXPECT_TRUE(has(text, R"("classNames":["one","two"],"classCount":2)"));
  EXPECT_TRUE(has(text, R"("transforms":[{"kind":5,"argCount":2,"args":[)" + value(3, "5", 1) +
                            "," + value(3, "-0.5", 2) +
                            R"(]},{"kind":1,"argCount":0,"args":null}],"transformCount":2)"))
      << text;
  EXPECT_TRUE(has(text, R"("hasParent":true)"));
}

TEST(ElementJson, PrintsGradientsByTheirKey) {
  char id[] = "grad";
  _svg_gradient gradient{};
  gradient.head.id = id;
  Envelope<_svg_rect> rect(kTagRect);
  initRect(rect.record());
  rect->fill.fillGradient = &gradient;
  EXPECT_TRUE(has(rect.json(), R"("fillGradient":"#grad"})"));
  EXPECT_TRUE(has(rect.json(), R"("strokeGradient":null})"));
}

TEST(ElementJson, PrintsDashesAndPoints) {
  _svg_value dashes[2] = {{kUnitPixel, 5, kAxisNone}, {kUnitPercent, 3, kAxisNone}};
  _svg_point points[2] = {{{3, 1, 1}, {3, 2, 2}}, {{3, 3, 1}, {3, 4, 2}}};
  Envelope<_svg_polygon> polygon(kTagPolygon);
  initPolygon(polygon.record());
  polygon->stroke.strokeDashArray = dashes;
  polygon->stroke.strokeDashCount = 2;
  polygon->points = points;
  polygon->pointCount = 2;
  const std::string text = polygon.json();
  EXPECT_TRUE(has(text, R"("strokeDashArray":[)" + value(3, "5", 0) + "," + value(9, "3", 0) +
                            R"(],"strokeDashCount":2)"));
  EXPECT_TRUE(has(text, R"("points":[{"x":)" + value(3, "1", 1) + R"(,"y":)" + value(3, "2", 2) +
                            R"(},{"x":)" + value(3, "3", 1) + R"(,"y":)" + value(3, "4", 2) + "}]"))
      << text;
}

TEST(ElementJson, PrintsPathData) {
  _svg_path_data data[1]{};
  data[0].command = 3;
  data[0].arg0 = {3, 10, 1};
  _svg_singlepath paths[2] = {{data, 1, 0, 1}, {nullptr, 0, 1, 0}};
  Envelope<_svg_path> path(kTagPath);
  initPath(path.record());
  path->paths = paths;
  path->pathCount = 2;
  const std::string zero = value(0, "0", 0);
  EXPECT_TRUE(has(path.json(), R"("paths":[{"data":[{"command":3,"arg0":)" + value(3, "10", 1) +
                                   R"(,"arg1":)" + zero + R"(,"arg2":)" + zero + R"(,"arg3":)" +
                                   zero + R"(,"arg4":)" + zero + R"(,"arg5":)" + zero +
                                   R"(}],"dataCount":1,"subFlag":0,"closed":1},)"
                                   R"({"data":null,"dataCount":0,"subFlag":1,"closed":0}])"))
      << path.json();
}

TEST(ElementJson, PrintsTheRunsOfAText) {
  char words[2][6] = {"Hello", "World"};
  _svg_text second{};
  initText(&second);
  second.content = words[1];
  Envelope<_svg_text> text(kTagText);
  initText(text.record());
  text->content = words[0];
  text->next = &second;
  const std::string json = text.json();
  EXPECT_TRUE(has(json, R"("content":"Hello","runs":[{"head":{)")) << json;
  EXPECT_TRUE(json.ends_with(R"("content":"World"}]}})")) << json;
  EXPECT_TRUE(has(json, R"("rotate":{"unit":)"));
  text->next = nullptr;
  EXPECT_TRUE(text.json().ends_with(R"("content":"Hello","runs":[]}})"));
}

TEST(ElementJson, PrintsTheChildrenOfALink) {
  auto objects = std::make_unique<_svg_objects[]>(2);
  objects[0].type = kTagRect;
  initRect(&objects[0].rect);
  objects[1].type = kTagCircle;
  initCircle(&objects[1].circle);
  objects[1].circle.r = {kUnitPixel, 7, kAxisNone};
  Envelope<_svg_a> link(kTagLink);
  initA(link.record());
  link->objects = objects.get();
  link->objectCount = 2;
  const std::string json = link.json();
  EXPECT_TRUE(has(json, R"("objects":[{"type":6,"record":{"head":{)")) << json;
  EXPECT_TRUE(has(json, R"({"type":7,"record":{"head":{)"));
  EXPECT_TRUE(has(json, R"("r":)" + value(3, "7", 0)));
}

TEST(ElementJson, PrintsAnOutermostSvgsViewBox) {
  Envelope<_svg_svg> svg(kTagSvg, 4);
  initSVGObj(svg.record());
  EXPECT_TRUE(has(svg.json(), R"({"type":3,"size":4,"record":{)"));
  EXPECT_TRUE(has(svg.json(), R"("viewBox":null)"));
  _svg_viewbox box{{3, 1, 1}, {3, 2, 2}, {3, 50, 2}, {3, 100, 1}};
  svg->viewBox = &box;
  EXPECT_TRUE(has(svg.json(), R"("viewBox":{"x":)" + value(3, "1", 1) + R"(,"y":)" +
                                  value(3, "2", 2) + R"(,"height":)" + value(3, "50", 2) +
                                  R"(,"width":)" + value(3, "100", 1) + "}"));
}

TEST(ElementJson, PrintsNumbersThatAreNoneAsNull) {
  Envelope<_svg_rect> rect(kTagRect);
  initRect(rect.record());
  rect->fill.fillOpacity = std::nan("");
  rect->x.value = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(has(rect.json(), R"("fillOpacity":null)"));
  EXPECT_TRUE(has(rect.json(), R"("x":{"unit":3,"value":null,"axis":1})"));
}

}  // namespace
}  // namespace egfsvg
