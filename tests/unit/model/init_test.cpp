#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include "model/lifecycle.h"

namespace {

void expectValue(const _svg_value& value, int unit, double number, int axis) {
  EXPECT_EQ(value.unit, unit);
  EXPECT_EQ(value.value, number);
  EXPECT_EQ(value.axis, axis);
}

void expectColor(const _svg_color& color, int red, int green, int blue) {
  EXPECT_EQ(color.red, red);
  EXPECT_EQ(color.green, green);
  EXPECT_EQ(color.blue, blue);
  EXPECT_EQ(color.colorExtra, 0);
}

void expectHead(const _svg_common& head) {
  EXPECT_EQ(head.type, 0);
  EXPECT_EQ(head.index, -1);
  EXPECT_EQ(head.externalResourcesRequired, 0);
  EXPECT_EQ(head.classCount, 0);
  EXPECT_EQ(head.transformCount, 0);
  EXPECT_TRUE(head.id == nullptr && head.desc == nullptr && head.classNames == nullptr &&
              head.transforms == nullptr && head.parent == nullptr && head.styleRef == nullptr);
}

void expectFill(const _svg_pa_fill& fill) {
  EXPECT_EQ(fill.packedColor, 0);
  expectColor(fill.fillColor, 255, 255, 255);
  EXPECT_EQ(fill.fillRule, 1);
  EXPECT_EQ(fill.fillOpacity, 1.0);
  EXPECT_TRUE(fill.fillUrl == nullptr && fill.fillGradient == nullptr);
}

void expectStroke(const _svg_pa_stroke& stroke) {
  EXPECT_EQ(stroke.packedColor, 0xffffff);
  expectColor(stroke.strokeColor, 0, 0, 0);
  EXPECT_EQ(stroke.strokePresent, 0);
  expectValue(stroke.strokeWidth, 3, 1.0, 0);
  EXPECT_EQ(stroke.strokeLinecap, 1);
  EXPECT_EQ(stroke.strokeLinejoin, 1);
  EXPECT_EQ(stroke.strokeMiterlimit, 4);
  EXPECT_EQ(stroke.strokeDashArray, nullptr);
  EXPECT_EQ(stroke.strokeDashCount, 0);
  expectValue(stroke.strokeDashOffset, 3, 0.0, 0);
  EXPECT_EQ(stroke.strokeOpacity, 1.0);
  EXPECT_TRUE(stroke.strokeUrl == nullptr && stroke.strokeGradient == nullptr);
}

void expectGraphics(const _svg_pa_graphics& graphics) {
  expectColor(graphics.color, 255, 255, 255);
  for (int code : {graphics.clipRule, graphics.colorInterpolation, graphics.colorRendering,
                   graphics.display, graphics.imageRendering, graphics.visibility,
                   graphics.pointerEvents, graphics.shapeRendering, graphics.textRendering}) {
    EXPECT_EQ(code, 1);
  }
  EXPECT_EQ(graphics.opacity, 1.0);
  EXPECT_TRUE(graphics.clipPath == nullptr && graphics.cursor == nullptr &&
              graphics.filter == nullptr && graphics.mask == nullptr);
}

void expectTA(const _svg_ta& ta) {
  EXPECT_EQ(ta.requiredFeatures.passes, 1);
  EXPECT_EQ(ta.requiredExtensions.passes, 1);
  EXPECT_EQ(ta.systemLanguage.passes, 1);
  EXPECT_EQ(ta.requiredFeatures.listCount, 0);
  EXPECT_TRUE(ta.requiredFeatures.list == nullptr && ta.requiredExtensions.list == nullptr &&
              ta.systemLanguage.list == nullptr);
}

void expectText(const _svg_pa_textcontentelems& text) {
  for (int code : {text.alignmentBaseline, text.direction, text.textDecoration, text.unicodeBidi}) {
    EXPECT_EQ(code, 1);
  }
  EXPECT_EQ(text.baselineShift, nullptr);
  EXPECT_EQ(text.glyphOrientationHorizontal.unit, 10);
  EXPECT_EQ(text.glyphOrientationHorizontal.value, 0.0);
  EXPECT_EQ(text.glyphOrientationVertical.unit, 10);
  EXPECT_EQ(text.glyphOrientationVertical.value, 90.0);
  for (const _svg_value& value : {text.kerning, text.letterSpacing, text.wordSpacing}) {
    expectValue(value, 3, 0.0, 0);
  }
}

void expectFont(const _svg_pa_fontspec& font) {
  EXPECT_EQ(font.fontFamily, nullptr);
  for (int code : {font.fontStyle, font.fontVariant, font.fontWeight, font.fontStretch}) {
    EXPECT_EQ(code, 1);
  }
  expectValue(font.fontSize, 3, 12.0, 0);
  expectValue(font.fontSizeAdjust, 3, 0.0, 0);
}

void expectPA(const _svg_pa& pa) {
  expectFill(pa.fill);
  expectStroke(pa.stroke);
  expectGraphics(pa.graphics);
  EXPECT_EQ(pa.containers.enableBackground, nullptr);
  expectColor(pa.feflood.floodColor, 255, 255, 255);
  EXPECT_EQ(pa.feflood.floodOpacity, 1.0);
  expectFont(pa.fontspec);
  expectColor(pa.gradients.stopColor, 255, 255, 255);
  EXPECT_EQ(pa.gradients.stopOpacity, 1.0);
  EXPECT_EQ(pa.images.colorProfile, nullptr);
  expectColor(pa.lighting.lightingColor, 255, 255, 255);
  EXPECT_TRUE(pa.markers.markerStart == nullptr && pa.markers.markerMid == nullptr &&
              pa.markers.markerEnd == nullptr);
  expectText(pa.textcontentelems);
  EXPECT_EQ(pa.textelems.dominantBaseline, 1);
  EXPECT_EQ(pa.textelems.textAnchor, 1);
  EXPECT_EQ(pa.textelems.writingMode, 1);
  for (const _svg_value& value : pa.viewports.clipRect) expectValue(value, 3, 0.0, 0);
  EXPECT_EQ(pa.viewports.overflow, 1);
}

template <class Record>
struct Fresh {
  Record record;
  Fresh() { std::memset(static_cast<void*>(&record), 0xa5, sizeof record); }
};

template <class Shape>
void expectShape(const Shape& shape) {
  expectHead(shape.head);
  expectFill(shape.fill);
  expectStroke(shape.stroke);
  expectGraphics(shape.graphics);
  expectTA(shape.ta);
  EXPECT_TRUE(shape.events.onclick == nullptr && shape.events.onfocusout == nullptr &&
              shape.events.onload == nullptr);
}

TEST(Init, Rect) {
  Fresh<_svg_rect> fresh;
  initRect(&fresh.record);
  expectShape(fresh.record);
  int axis = 1;
  for (const _svg_value& value : {fresh.record.x, fresh.record.y, fresh.record.width,
                                  fresh.record.height, fresh.record.rx, fresh.record.ry}) {
    expectValue(value, 3, 0.0, axis);
    axis = 3 - axis;
  }
}

TEST(Init, CircleAndEllipse) {
  Fresh<_svg_circle> circle;
  initCircle(&circle.record);
  expectShape(circle.record);
  expectValue(circle.record.cx, 3, 0.0, 1);
  expectValue(circle.record.cy, 3, 0.0, 2);
  expectValue(circle.record.r, 3, 0.0, 0);
  Fresh<_svg_ellipse> ellipse;
  initEllipse(&ellipse.record);
  expectShape(ellipse.record);
  expectValue(ellipse.record.cx, 3, 0.0, 1);
  expectValue(ellipse.record.cy, 3, 0.0, 2);
  expectValue(ellipse.record.rx, 3, 0.0, 1);
  expectValue(ellipse.record.ry, 3, 0.0, 2);
}

TEST(Init, Lines) {
  Fresh<_svg_line> line;
  initLine(&line.record);
  expectShape(line.record);
  EXPECT_EQ(line.record.markers.markerEnd, nullptr);
  expectValue(line.record.x1, 3, 0.0, 1);
  expectValue(line.record.y1, 3, 0.0, 2);
  expectValue(line.record.x2, 3, 0.0, 1);
  expectValue(line.record.y2, 3, 0.0, 2);
  Fresh<_svg_polyline> polyline;
  initPolyline(&polyline.record);
  expectShape(polyline.record);
  EXPECT_EQ(polyline.record.pointCount, 0);
  EXPECT_EQ(polyline.record.isClosed, 0);
  EXPECT_EQ(polyline.record.points, nullptr);
  Fresh<_svg_polygon> polygon;
  initPolygon(&polygon.record);
  expectShape(polygon.record);
  EXPECT_EQ(polygon.record.pointCount, 0);
  EXPECT_EQ(polygon.record.isClosed, 1);
  EXPECT_EQ(polygon.record.points, nullptr);
  Fresh<_svg_path> path;
  initPath(&path.record);
  expectShape(path.record);
  EXPECT_EQ(path.record.pathCount, 0);
  EXPECT_EQ(path.record.paths, nullptr);
  EXPECT_EQ(path.record.pathFlag, 0);
}

TEST(Init, Image) {
  Fresh<_svg_image> fresh;
  _svg_image& image = fresh.record;
  initImage(&image);
  expectHead(image.head);
  EXPECT_EQ(image.images.colorProfile, nullptr);
  expectGraphics(image.graphics);
  expectTA(image.ta);
  EXPECT_EQ(image.viewports.overflow, 1);
  EXPECT_EQ(image.link.value, nullptr);
  EXPECT_EQ(image.link.dataKind, 0);
  EXPECT_EQ(image.preserveAspectRatio, 1025);
  expectValue(image.x, 3, 0.0, 1);
  expectValue(image.y, 3, 0.0, 2);
  expectValue(image.width, 3, 0.0, 1);
  expectValue(image.height, 3, 0.0, 2);
}

TEST(Init, GroupLeavesItsSizeUnset) {
  Fresh<_svg_group> fresh;
  _svg_group& group = fresh.record;
  initGroupObj(&group);
  expectHead(group.head);
  expectPA(group.pa);
  expectTA(group.ta);
  expectValue(group.x, 3, 0.0, 1);
  expectValue(group.y, 3, 0.0, 2);
  expectValue(group.width, -1, 0.0, 1);
  expectValue(group.height, -1, 0.0, 2);
  EXPECT_EQ(group.link.value, nullptr);
}

TEST(Init, Svg) {
  Fresh<_svg_svg> fresh;
  _svg_svg& svg = fresh.record;
  initSVGObj(&svg);
  expectHead(svg.head);
  EXPECT_EQ(svg.contentStyleType, 1);
  EXPECT_EQ(svg.xmlSpace, 0);
  expectPA(svg.pa);
  expectTA(svg.ta);
  for (const char* slot : svg.events.animation.slots) EXPECT_EQ(slot, nullptr);
  for (const char* slot : svg.events.document.slots) EXPECT_EQ(slot, nullptr);
  EXPECT_EQ(svg.viewBox, nullptr);
  EXPECT_EQ(svg.preserveAspectRatio, 1025);
  EXPECT_EQ(svg.zoomAndPan, 2);
  expectValue(svg.x, 3, 0.0, 1);
  expectValue(svg.y, 3, 0.0, 2);
  expectValue(svg.width, 9, 100.0, 1);
  expectValue(svg.height, 9, 100.0, 2);
}

TEST(Init, OtherContainers) {
  Fresh<_svg_defs> defs;
  initDefsObj(&defs.record);
  expectHead(defs.record.head);
  expectPA(defs.record.pa);
  EXPECT_EQ(defs.record.defMarker, 0);
  EXPECT_EQ(defs.record.defNodes, nullptr);
  Fresh<_svg_switch> choice;
  initSwitch(&choice.record);
  expectHead(choice.record.head);
  expectPA(choice.record.pa);
  expectTA(choice.record.ta);
  Fresh<_svg_a> link;
  initA(&link.record);
  expectHead(link.record.head);
  expectPA(link.record.pa);
  expectTA(link.record.ta);
  EXPECT_TRUE(link.record.objects == nullptr && link.record.cdata == nullptr &&
              link.record.link.value == nullptr);
  EXPECT_EQ(link.record.reserved, 0);
  EXPECT_EQ(link.record.objectCount, 0);
  EXPECT_EQ(link.record.cdataLength, 0);
}

TEST(Init, Text) {
  Fresh<_svg_text> fresh;
  _svg_text& text = fresh.record;
  initText(&text);
  expectShape(text);
  expectFont(text.fontspec);
  expectText(text.textcontentelems);
  EXPECT_EQ(text.textelems.textAnchor, 1);
  expectValue(text.position.x, 3, 0.0, 1);
  expectValue(text.position.y, 3, 0.0, 2);
  EXPECT_EQ(text.hasX, 0);
  EXPECT_EQ(text.hasY, 0);
  expectValue(text.dx, 3, 0.0, 0);
  expectValue(text.dy, 3, 0.0, 0);
  EXPECT_EQ(text.rotate.unit, 10);
  EXPECT_EQ(text.rotate.value, 0.0);
  expectValue(text.textLength, 3, 0.0, 0);
  EXPECT_EQ(text.lengthAdjust, 1);
  EXPECT_EQ(text.contentLength, 0);
  EXPECT_TRUE(text.link.value == nullptr && text.lang.value == nullptr && text.content == nullptr &&
              text.next == nullptr);
}

TEST(Init, GradientsShareTheirSlots) {
  Fresh<_svg_gradient> fresh;
  _svg_gradient& gradient = fresh.record;
  initGradientObj(&gradient);
  expectHead(gradient.head);
  expectGraphics(gradient.graphics);
  EXPECT_EQ(gradient.gradients.stopOpacity, 1.0);
  EXPECT_EQ(gradient.spreadMethod, 1);
  EXPECT_EQ(gradient.gradientUnits, 2);
  EXPECT_EQ(gradient.link.value, nullptr);
  EXPECT_EQ(gradient.stops, nullptr);
  EXPECT_EQ(gradient.stopCount, 0);
  initLinearGrad(&gradient);
  expectValue(gradient.parms.linear.x1, 9, 0.0, 1);
  expectValue(gradient.parms.linear.y1, 9, 0.0, 2);
  expectValue(gradient.parms.linear.x2, 9, 100.0, 1);
  expectValue(gradient.parms.linear.y2, 9, 0.0, 2);
  initRadialGrad(&gradient);
  expectValue(gradient.parms.radial.cx, 9, 50.0, 1);
  expectValue(gradient.parms.radial.cy, 9, 50.0, 2);
  expectValue(gradient.parms.radial.fx, 9, 50.0, 1);
  expectValue(gradient.parms.radial.fy, 9, 50.0, 2);
  expectValue(gradient.parms.radial.r, 9, 50.0, 0);
  EXPECT_EQ(&gradient.parms.linear.x2, &gradient.parms.radial.fx);
  EXPECT_EQ(&gradient.parms.linear.y2, &gradient.parms.slots.g3);
  Fresh<_svg_stop> stop;
  initStopObj(&stop.record);
  expectHead(stop.record.head);
  expectValue(stop.record.offset, 3, 0.0, 0);
}

TEST(Init, StyleCursorScript) {
  Fresh<_svg_style_props> style;
  initStyleProps(&style.record);
  EXPECT_EQ(style.record.contentType, -1);
  EXPECT_EQ(style.record.media, 1);
  EXPECT_EQ(style.record.alternate, 0);
  EXPECT_TRUE(style.record.selector == nullptr && style.record.title == nullptr &&
              style.record.href == nullptr && style.record.common == nullptr);
  expectPA(style.record.pa);
  Fresh<_svg_cursor> cursor;
  initCursor(&cursor.record);
  expectTA(cursor.record.ta);
  expectValue(cursor.record.x, 3, 0.0, 1);
  expectValue(cursor.record.y, 3, 0.0, 2);
  Fresh<_svg_script> script;
  initScript(&script.record);
  EXPECT_EQ(script.record.reserved, 0);
  EXPECT_EQ(script.record.type, 1);
  EXPECT_EQ(script.record.href, nullptr);
}

TEST(Init, ViewboxAxesInFieldOrder) {
  Fresh<_svg_viewbox> fresh;
  initSVGViewbox(fresh.record);
  expectValue(fresh.record.x, 3, 0.0, 1);
  expectValue(fresh.record.y, 3, 0.0, 2);
  expectValue(fresh.record.height, 3, 0.0, 2);
  expectValue(fresh.record.width, 3, 0.0, 1);
  EXPECT_LT(offsetof(_svg_viewbox, height), offsetof(_svg_viewbox, width));
}

TEST(Init, GroupsOneByOne) {
  Fresh<_svg_pa> fresh;
  _svg_pa& pa = fresh.record;
  initFill(&pa.fill);
  initStroke(&pa.stroke);
  initGraphics(&pa.graphics);
  initContainers(&pa.containers);
  initFeflood(&pa.feflood);
  pa.fontspec.fontSize.axis = 0;
  initFontspec(&pa.fontspec);
  initGradients(&pa.gradients);
  initImages(&pa.images);
  initLighting(&pa.lighting);
  initMarkers(&pa.markers);
  initTextcontentelems(&pa.textcontentelems);
  initTextelems(&pa.textelems);
  initViewports(&pa.viewports);
  expectPA(pa);
}

TEST(Init, FontSizeKeepsItsAxis) {
  _svg_pa_fontspec font;
  font.fontSize = {9, 80.0, 2};
  initFontspec(&font);
  expectValue(font.fontSize, 3, 12.0, 2);
}

TEST(Init, HeadIsReturned) {
  Fresh<_svg_common> fresh;
  EXPECT_EQ(initSVGCommon(&fresh.record), &fresh.record);
  expectHead(fresh.record);
  EXPECT_EQ(initSVGCommon(nullptr), nullptr);
}

// Pools compare records byte by byte, so equal records must be equal in their padding too.
TEST(Init, PaddingIsTheTemplates) {
  Fresh<_svg_text> first;
  _svg_text second;
  std::memset(static_cast<void*>(&second), 0x5a, sizeof second);
  initText(&first.record);
  initText(&second);
  EXPECT_EQ(std::memcmp(&first.record, &second, sizeof second), 0);
}

TEST(Init, NullDoesNothing) {
  initRect(nullptr);
  initText(nullptr);
  initLinearGrad(nullptr);
  initRadialGrad(nullptr);
  initFontspec(nullptr);
  initStyleProps(nullptr);
}

template <class... Record>
constexpr bool allPlain() {
  return (std::is_trivially_copyable_v<Record> && ...) &&
         (std::is_standard_layout_v<Record> && ...);
}
static_assert(
    allPlain<_svg_value, _svg_angle, _svg_color, _svg_point, _svg_viewbox, _svg_attrib_pair,
             _xml_obj, transformEntry, _svg_common, _svg_pa, _svg_ta, _svg_event, _svg_rect,
             _svg_circle, _svg_ellipse, _svg_line, _svg_polyline, _svg_polygon, _svg_path,
             _svg_singlepath, _svg_path_data, _svg_image, _svg_group, _svg_defs, _svg_svg, _svg_a,
             _svg_switch, _svg_gradient, _svg_stop, _svg_text, _svg_markup_cloud,
             _svg_markup_crossout, _svg_markup_diamond, _svg_markup_anno, _svg_objects,
             _svg_style_props, _svg_cursor, _svg_script, _svg_localref, _svg_container, AttNode,
             DefNode>());

}  // namespace
