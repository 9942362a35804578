// Shapes of random records against the same lines made by snprintf.

#include "model/path_commands.h"
#include "tests/unit/writer/printed_text.h"

namespace egfsvg {
namespace {

using namespace test;

ClassName className[1] = {"stl7"};

/// A record with the groups, and sometimes a class and a reference.
template <class Record>
Record shapeWith(Random& random, const Paints& paints, void (*init)(Record*)) {
  Record record;
  init(&record);
  record.fill = paints.fill;
  record.stroke = paints.stroke;
  record.graphics = paints.graphics;
  if (random.pick(2) == 0) {
    record.head.classNames = className;
    record.head.classCount = 1;
  }
  if (random.pick(3) == 0) record.head.styleRef = const_cast<char*>("5");
  return record;
}

std::string head(const char* element, const _svg_common& record) {
  return print(record.classCount != 0 ? "   <%s class=\"stl7\" " : "   <%s ", element);
}
std::string referenced(const _svg_common& record, const char* reference, const std::string& text) {
  return record.styleRef != nullptr ? reference + text : text;
}
constexpr const char* kArea = "style=\"&st5;\" ";
constexpr const char* kLine = "style=\"&stroke_st5;\" ";

TEST(PrintedLines, PlainShapes) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random);
    auto line = shapeWith<_svg_line>(random, paints, initLine);
    for (_svg_value* v : {&line.x1, &line.y1, &line.x2, &line.y2}) *v = random.value();
    expectText(kTagLine, line,
               head("line", line.head) +
                   print("x1=\"%.2f\"  y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\" ", line.x1.value,
                         line.y1.value, line.x2.value, line.y2.value) +
                   referenced(line.head, kLine, paints.attributes() + paints.capped()) + "/>");
    auto rect = shapeWith<_svg_rect>(random, paints, initRect);
    for (_svg_value* v : {&rect.x, &rect.y, &rect.width, &rect.height}) *v = random.value();
    expectText(kTagRect, rect,
               head("rect", rect.head) +
                   print("x=\"%ld\" y=\"%ld\" width=\"%ld\" height=\"%ld\" ", whole(rect.x),
                         whole(rect.y), whole(rect.width), whole(rect.height)) +
                   referenced(rect.head, kArea, paints.attributes() + paints.joined()) + " />");
    auto circle = shapeWith<_svg_circle>(random, paints, initCircle);
    for (_svg_value* v : {&circle.cx, &circle.cy, &circle.r}) *v = random.value();
    expectText(kTagCircle, circle,
               head("circle", circle.head) +
                   print("cx=\"%.3f\"  cy=\"%.3f\" r=\"%.3f\" ", circle.cx.value, circle.cy.value,
                         circle.r.value) +
                   referenced(circle.head, kArea, paints.attributes()) + " />");
  }
}

TEST(PrintedLines, EllipsesAndGroups) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random);
    auto ellipse = shapeWith<_svg_ellipse>(random, paints, initEllipse);
    for (_svg_value* v : {&ellipse.cx, &ellipse.cy, &ellipse.rx, &ellipse.ry}) *v = random.value();
    _svg_value turn[] = {random.value()};
    transformEntry entry{random.pick(2) == 0 ? kRotate : kMatrix, turn, 1};
    ellipse.head.transforms = random.pick(3) == 0 ? nullptr : &entry;
    ellipse.head.transformCount = ellipse.head.transforms == nullptr ? 0 : 1;
    const bool turned = ellipse.head.transforms != nullptr && entry.kind == kRotate;
    expectText(kTagEllipse, ellipse,
               head("ellipse", ellipse.head) +
                   print("cx=\"%.3f\"  cy=\"%.3f\" rx=\"%.3f\" ry=\"%.3f\" ", ellipse.cx.value,
                         ellipse.cy.value, ellipse.rx.value, ellipse.ry.value) +
                   referenced(ellipse.head, kArea, paints.attributes()) + " " +
                   (turned ? print(" transform=\"rotate(%f %ld %ld)\"", turn[0].value,
                                   whole(ellipse.cx), whole(ellipse.cy))
                           : "") +
                   "/>");
    _svg_group group;
    initGroupObj(&group);
    group.pa.fill = paints.fill;
    group.pa.stroke = paints.stroke;
    group.pa.graphics = paints.graphics;
    group.head.classNames = className;
    group.head.classCount = static_cast<std::int32_t>(random.pick(2));
    expectText(kTagGroup, group,
               (group.head.classCount != 0 ? "  <g class=\"stl7\"  " : "  <g ") +
                   paints.attributes() + paints.joined() + paints.capped() + " >");
  }
}

template <class Record>
void expectPoints(Random& random, std::int32_t type, const char* name, void (*init)(Record*)) {
  const bool polygon = type == kTagPolygon;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random);
    auto record = shapeWith<Record>(random, paints, init);
    std::vector<_svg_point> points(1 + random.pick(12));
    const std::size_t count = points.size();
    std::string expected = head(name, record.head) + "points=\"";
    for (std::size_t j = 0; j < count; ++j) {
      points[j] = {random.value(), random.value()};
      const bool rest = j >= count - count % 5;
      expected += print(!polygon ? "%.1f,%.1f "
                        : rest   ? "%.3f,%.3f "
                                 : "%.2f,%.2f ",
                        points[j].x.value, points[j].y.value);
      if (!rest && j % 5 == 4) expected += "|    ";
    }
    record.points = points.data();
    record.pointCount = static_cast<std::int32_t>(count);
    const std::string caps = polygon ? "" : paints.capped();
    expectText(type, record,
               expected + "\" " +
                   referenced(record.head, polygon ? kArea : kLine,
                              paints.attributes() + paints.joined() + caps) +
                   "/>");
  }
}

TEST(PrintedLines, Polylines) {
  Random random;
  expectPoints<_svg_polyline>(random, kTagPolyline, "polyline", initPolyline);
}

TEST(PrintedLines, Polygons) {
  Random random;
  expectPoints<_svg_polygon>(random, kTagPolygon, "polygon", initPolygon);
}

std::string segment(const _svg_path_data& d) {
  const double a = d.arg0.value, b = d.arg1.value, c = d.arg2.value, e = d.arg3.value,
               f = d.arg4.value, g = d.arg5.value;
  switch (d.command) {
    case 2:
      return "Z ";
    case 3:
      return print("M%.2f,%.2f ", a, b);
    case 5:
      return print("L%.2f,%.2f ", a, b);
    case 7:
      return print("C%.2f,%.2f %.2f,%.2f %.2f,%.2f ", a, b, c, e, f, g);
    case 11:
      return print("A%.2f,%.2f %.2f %d,%d %.2f,%.2f ", c, e, f, d.arg4.axis, d.arg5.unit, a, b);
    case 12:
      return print("a%.6f,%.6f %.4f %d,%d %.6f,%.6f ", c, e, f, d.arg4.axis, d.arg5.unit, a, b);
    default:
      return "";
  }
}

TEST(PrintedLines, Paths) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random);
    auto path = shapeWith<_svg_path>(random, paints, initPath);
    std::vector<_svg_path_data> data(random.pick(30));
    std::string lines, line = head("path", path.head) + "d=\"";
    for (_svg_path_data& d : data) {
      const std::int32_t kCommands[] = {2, 3, 5, 5, 7, 11, 12, 4, 19};
      d.command = kCommands[random.pick(9)];
      for (_svg_value* v : {&d.arg0, &d.arg1, &d.arg2, &d.arg3, &d.arg4, &d.arg5}) {
        *v = random.value();
      }
      d.arg4.axis = static_cast<std::int32_t>(random.pick(2));
      d.arg5.unit = static_cast<std::int32_t>(random.pick(2));
      if (line.size() > 110) {
        lines += line + "|";
        line = "    ";
      }
      line += segment(d);
    }
    const auto cut = static_cast<std::int32_t>(random.pick(data.size() + 1));
    const auto count = static_cast<std::int32_t>(data.size());
    _svg_singlepath subs[] = {{data.data(), cut, 0, 0}, {data.data() + cut, count - cut, 0, 0}};
    path.paths = subs;
    path.pathCount = 2;
    _svg_value turn[] = {random.value(), random.value(), random.value()};
    transformEntry entry{kRotate, turn, 3};
    path.head.transforms = random.pick(2) == 0 ? nullptr : &entry;
    path.head.transformCount = path.head.transforms == nullptr ? 0 : 1;
    expectText(
        kTagPath, path,
        lines + line + "\" " +
            referenced(path.head, kArea, paints.attributes() + paints.joined() + paints.capped()) +
            " " +
            (path.head.transforms != nullptr ? print(" transform=\"rotate(%f %ld %ld)\"",
                                                     turn[0].value, whole(turn[1]), whole(turn[2]))
                                             : "") +
            "/>");
  }
}

}  // namespace
}  // namespace egfsvg
