// The frame of a written file, what stands in it, and the codes of its calls.

#include <gtest/gtest.h>

#include "adapter_writer/unsupported.h"
#include "embedded_host/host_faults.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_settings.h"
#include "embedded_host/host_window.h"
#include "frame/result_codes.h"
#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr AreaPen kPen{.width = 2.0,
                       .stroke = 0x0000ff,
                       .fill = 0xff0000,
                       .fillStyle = kFillOpaque,
                       .joinStyle = kJoinRound};
constexpr LinePen kLine{.width = 2.0, .stroke = 0x0000ff, .joinStyle = kJoinRound};
const Points kTriangle = {{0, 0}, {100, 0}, {50, 50}};

_egf_gdi_fillparms_tag penRecord() {
  _egf_gdi_fillparms_tag pen = kPolygonPen;
  pen.lineWidth = {kMeasureDevice, 2.0};
  pen.strokeColor = colourOf(0x0000ff);
  pen.fillColor = colourOf(0xff0000);
  pen.fillStyle = kFillOpaque;
  pen.modeFlags = 2;
  pen.scaleFactor = 1.0;
  return pen;
}

void setRootBounds(DrawingWriter& drawing, double left, double top, double right, double bottom) {
  as<EgfGroup>(drawing.tree.root())->groupMer = spaceRect(left, top, right, bottom);
}

/// The lines without the notice.
Lines withoutNotice(Lines lines) {
  if (lines.size() > 1) lines.erase(lines.begin() + 1);
  return lines;
}

TEST(WrittenFile, AnEmptyDrawingHasItsFrame) {
  DrawingWriter drawing;
  ASSERT_EQ(drawing.write(), kOk);
  ASSERT_EQ(drawing.lines.size(), 10U);
  EXPECT_EQ(
      withoutNotice(drawing.lines),
      (Lines{
          R"~(<?xml version="1.0" standalone="no"?>)~",
          R"~(<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd" [)~",
          "]>", R"~(<svg  viewBox="0 0 0 0">)~", "   <defs>",
          R"~(       <style type="text/css"><![CDATA[ )~", "       ]]></style>", "   </defs>",
          "</svg>"}));
}

TEST(WrittenFile, ACommentHasALineOfItsOwn) {
  DrawingWriter drawing;
  ASSERT_EQ(drawing.write("User agent resolution:96 dpi"), kOk);
  ASSERT_EQ(drawing.lines.size(), 11U);
  EXPECT_EQ(drawing.lines[2], "<!-- User agent resolution:96 dpi -->");
}

TEST(WrittenFile, EntitiesObjectsAndRulesStandInTheirPlaces) {
  DrawingWriter drawing;
  const std::uint32_t pen = appendStyle(drawing.document(), kStylePen, penRecord());
  drawing.tree.add(polygon(kTriangle, kPen));
  drawing.tree.add(line({0, 0}, {100, 50}, kLine));
  drawing.tree.add(ellipse(50, 50, 10, 10, kPen));
  drawing.tree.add(path({line({0, 0}, {100, 0})}, {.gdiFillStyleNo = pen}));
  setRootBounds(drawing, 0, 0, 100, 50);
  ASSERT_EQ(drawing.write(), kOk);
  EXPECT_EQ(
      withoutNotice(drawing.lines),
      (Lines{
          R"~(<?xml version="1.0" standalone="no"?>)~",
          R"~(<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd" [)~",
          R"~(   <!ENTITY st1 "fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round" >)~",
          "]>", R"~(<svg  viewBox="0 0 100 50">)~",
          R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " />)~",
          R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~",
          R"~(   <circle class="stl2" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~",
          R"~(   <path d="M0.00,0.00 L100.00,0.00 " style="&st1;"  />)~", "   <defs>",
          R"~(       <style type="text/css"><![CDATA[ )~",
          "      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; "
          "stroke-linejoin:round }",
          "      .stl2 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; "
          "stroke-linejoin:round }",
          "      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }", "       ]]></style>",
          "   </defs>", "</svg>"}));
}

const Points kViewport = {{10, 20}, {10, 70}, {110, 70}, {110, 20}};

struct RootRow {
  const char* name;
  const char* rootName;
  _egf_obj* (*first)();
  std::string expected;
};

_egf_obj* hidden(_egf_obj* object) {
  object->objAttr = 0;
  return object;
}

_egf_obj* viewportBox() {
  return hidden(
      edit<EgfPolygon>(polygon(kViewport), [](EgfPolygon& r) { r.head.objClass = kClassBox; }));
}

const RootRow kRootRows[] = {
    {"its own viewport", "setInitialViewPort", viewportBox,
     R"~(<svg x="10" y="20" width="100" height="50" viewBox="10 20 100 50">)~"},
    {"in capitals", "SETINITIALVIEWPORT", viewportBox,
     R"~(<svg x="10" y="20" width="100" height="50" viewBox="10 20 100 50">)~"},
    {"a polygon of four points", "setInitialViewPort", [] { return hidden(polygon(kViewport)); },
     R"~(<svg x="10" y="20" width="100" height="50" viewBox="10 20 100 50">)~"},
    {"a polygon of five points", "setInitialViewPort",
     [] {
       return hidden(polygon({{10, 20}, {10, 70}, {110, 70}, {110, 20}, {10, 20}}));
     },
     R"~(<svg  viewBox="10 20 100 50">)~"},
    {"a line", "setInitialViewPort",
     [] {
       return hidden(line({10, 20}, {110, 70}));
     },
     R"~(<svg  viewBox="10 20 100 50">)~"},
    {"another name", "Page 1", viewportBox, R"~(<svg  viewBox="10 20 100 50">)~"},
    {"no name", nullptr, viewportBox, R"~(<svg  viewBox="10 20 100 50">)~"},
    {"corners the other way", "setInitialViewPort",
     [] {
       return hidden(edit<EgfPolygon>(polygon({{110, 70}, {110, 20}, {10, 20}, {10, 70}}),
                                      [](EgfPolygon& r) { r.head.objClass = kClassBox; }));
     },
     R"~(<svg x="10" y="20" width="100" height="50" viewBox="10 20 100 50">)~"},
};

TEST(WrittenFile, TheRootHasAViewportOrABoxAlone) {
  for (const RootRow& row : kRootRows) {
    DrawingWriter drawing;
    if (row.rootName != nullptr) drawing.tree.nameRoot(row.rootName);
    drawing.tree.add(row.first());
    setRootBounds(drawing, 10, 20, 110, 70);
    ASSERT_EQ(drawing.write(), kOk);
    EXPECT_EQ(drawing.root(), row.expected) << row.name;
    EXPECT_TRUE(drawing.body().empty()) << row.name;
  }
}

TEST(WrittenFile, TheBoxScalesWithTheView) {
  DrawingWriter drawing(200.0, 100.0);
  drawing.tree.nameRoot("setInitialViewPort");
  drawing.tree.add(viewportBox());
  setRootBounds(drawing, 100, 100, 200, 200);
  ASSERT_EQ(drawing.write(), kOk);
  // x, y, width and, scaled like the width, the height of the viewport; then the box.
  EXPECT_EQ(drawing.root(), R"~(<svg x="4" y="19" width="48" height="24" viewBox="48 96 48 96">)~");
}

/// Only a box tells the size that percentages of gradients refer to.
TEST(WrittenFile, ABoxTellsThePixelSize) {
  for (const bool asBox : {true, false}) {
    DrawingWriter drawing;
    drawing.tree.nameRoot("setInitialViewPort");
    drawing.tree.add(asBox ? viewportBox() : hidden(polygon(kViewport)));
    OpenWriter writer(drawing.stream(), drawing.document());
    ASSERT_EQ(writer.write(drawing.tree.handle()), kOk);
    EXPECT_EQ(writer->svgWidth, asBox ? 100 : 0);
    EXPECT_EQ(writer->svgHeight, asBox ? 50 : 0);
  }
}

_egf_obj* viewportChild(unsigned bits) {
  _egf_obj* object = viewportBox();
  object->objAttr2 = static_cast<std::uint8_t>(bits);
  return object;
}

Lines groupLines(_egf_obj* first, std::uint32_t kind = kDocumentKindDrawing) {
  DrawingWriter drawing;
  ISL_SetProperty(drawing.document(), kDocumentKind, kind);
  drawing.tree.add(group({first, box(0, 0, 10, 10, kPen)}));
  EXPECT_EQ(drawing.write(), kOk);
  return drawing.body();
}

const std::string kSmallRect =
    R"~(   <rect x="0" y="0" width="10" height="10" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~";

TEST(WrittenFile, AViewportRectangleMakesANestedSvg) {
  const Lines nested = {R"~(<svg x="10" y="20" width="100" height="50" viewBox="0 0 110 70">)~",
                        kSmallRect, "</svg>"};
  const Lines plain = {"  <g  >", kSmallRect, "  </g>"};
  EXPECT_EQ(groupLines(viewportChild(1)), nested);
  EXPECT_EQ(groupLines(viewportChild(1), kDocumentKindDrawingSheet), nested);
  EXPECT_EQ(groupLines(viewportChild(1), 7), plain);
  EXPECT_EQ(groupLines(viewportChild(2)), plain);
  EXPECT_EQ(groupLines(viewportChild(0)), plain);
}

TEST(WrittenFile, GroupsStandInEachOther) {
  DrawingWriter drawing;
  drawing.tree.add(group({group({}), group({box(0, 0, 10, 10, kPen)})}));
  ASSERT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.body(),
            (Lines{"  <g  >", "  <g  >", "  </g>", "  <g  >", kSmallRect, "  </g>", "  </g>"}));
}

TEST(WrittenFile, HiddenObjectsAreLeftOut) {
  DrawingWriter drawing;
  const int shown = drawing.tree.layer("shown");
  const int off = drawing.tree.layer("off", false);
  const int suppressed = drawing.tree.layer("suppressed", true, true);
  const auto rect = [](double x) { return box(x, 0, 10, 10, kPen); };
  drawing.tree.add(onLayer(rect(1), off));
  drawing.tree.add(onLayer(rect(2), shown));
  drawing.tree.add(onLayer(rect(3), suppressed));
  drawing.tree.add(onLayer(rect(4), 3));
  drawing.tree.add(onLayer(rect(5), kNoLayer));
  drawing.tree.add(hidden(rect(6)));
  drawing.tree.add(viewportChild(3));
  drawing.tree.add(rect(7));
  ASSERT_EQ(drawing.write(), kOk);
  Lines starts;
  for (const std::string& line : drawing.body()) starts.push_back(line.substr(0, 15));
  EXPECT_EQ(starts, (Lines{"   <rect x=\"2\" ", "   <rect x=\"4\" ", "   <rect x=\"5\" ",
                           "   <rect x=\"7\" "}));
}

TEST(WrittenFile, AHiddenRootLeavesTheHeader) {
  DrawingWriter drawing;
  hidden(drawing.tree.root());
  ASSERT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.lines.back(), "]>");
}

TEST(WrittenFile, EachUnsupportedKindIsLoggedOnce) {
  writerStatics() = {};
  egfhost::clearMessages();
  for (int file = 0; file < 2; ++file) {
    DrawingWriter drawing;
    for (const int objClass : {kClassIcon, kClassBookmark, kClassMetafile, kClassComplexLine,
                               kClassRegion, kClassCopy}) {
      drawing.tree.add(opaqueObject(objClass, 0, 0, 1, 1));
      drawing.tree.add(opaqueObject(objClass, 0, 0, 1, 1));
    }
    drawing.tree.add(hotspot("x"));
    drawing.tree.add(hotspot("y"));
    drawing.tree.add(box(0, 0, 10, 10, kPen));
    ASSERT_EQ(drawing.write(), kOk);
    EXPECT_EQ(drawing.body(), (Lines{kSmallRect}));
  }
  Lines names;
  for (const egfhost::Message& message : egfhost::recordedMessages()) {
    EXPECT_EQ(message.number, kMessageUnsupportedObject);
    names.push_back(message.text);
  }
  EXPECT_EQ(names, (Lines{"Icon", "Bookmark", "Metafile", "ComplexLine", "Region", "Copy", ""}));
  writerStatics() = {};
}

TEST(WrittenFile, ANoticeWouldJoinTwoStringsOfTheHost) {
  writerStatics() = {};
  writerStatics().noticeShown = false;
  egfhost::clearMessages();
  reportUnsupported(kClassIcon);
  reportUnsupported(kClassIcon);
  const auto& messages = egfhost::recordedMessages();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].kind, egfhost::MessageKind::kNotice);
  char first[kMessageStringSize];
  char second[kMessageStringSize];
  MSG_LoadStringEx(0, kStringWriterNotice, first, sizeof first);
  MSG_LoadStringEx(0, kStringNoticeDetails, second, sizeof second);
  EXPECT_EQ(messages[0].text, std::string(first) + " " + second);
  EXPECT_TRUE(writerStatics().noticeShown);
  writerStatics() = {};
}

TEST(WrittenFile, StandardObjectsAreMovedAndTurned) {
  constexpr HostHandle kReference = 5;
  _egf_obj* standard = line({0, 0}, {100, 0}, kLine);
  ASSERT_TRUE(egfhost::setStandardObject(kReference, standard));
  EEL_DestroyObject(standard);
  DrawingWriter drawing;
  drawing.tree.add(stockObject(kReference, {10, 20}, 90.0));
  drawing.tree.add(stockObject(kReference + 1, {10, 20}, 90.0));
  ASSERT_EQ(drawing.write(), kOk);
  // A quarter turn counter-clockwise on a page whose y grows downwards.
  EXPECT_EQ(
      drawing.body(),
      (Lines{R"~(   <line class="strk1" x1="10.00"  y1="20.00" x2="10.00" y2="-80.00" />)~"}));
  egfhost::clearStandardObjects();
}

TEST(WrittenFile, StandardObjectsInEachOtherEnd) {
  constexpr HostHandle kReference = 5;
  _egf_obj* standard =
      group({stockObject(kReference, {0, 0}, 0.0), stockObject(kReference, {0, 0}, 0.0)});
  ASSERT_TRUE(egfhost::setStandardObject(kReference, standard));
  EEL_DestroyObject(standard);
  ASSERT_TRUE(egfhost::setSetting("maxReferencedObjects", 100));
  egfhost::clearMessages();
  DrawingWriter drawing;
  drawing.tree.add(stockObject(kReference, {0, 0}, 0.0));
  EXPECT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.body().size(), 200U);
  EXPECT_EQ(egfhost::recordedMessages().size(), 1U);
  egfhost::clearStandardObjects();
}

TEST(WrittenFile, GroupsBeyondTheLimitAreLeftOut) {
  ASSERT_TRUE(egfhost::setSetting("maxNesting", 10));
  egfhost::clearMessages();
  DrawingWriter drawing;
  _egf_obj* deep = group({});
  for (int i = 0; i < 100; ++i) deep = group({deep});
  drawing.tree.add(deep);
  EXPECT_EQ(drawing.write(), kOk);
  // The margin of 16 is above what a read may nest; one place is the root's.
  EXPECT_EQ(drawing.body().size(), 2U * (10 + 16 - 1));
  EXPECT_EQ(egfhost::recordedMessages().size(), 1U);
}

TEST(WrittenFile, ASecondWriteIsASecondDocument) {
  DrawingWriter drawing;
  drawing.tree.add(line({0, 0}, {100, 50}, kLine));
  OpenWriter writer(drawing.stream(), drawing.document());
  ASSERT_EQ(writer.write(drawing.tree.handle()), kOk);
  const Lines first = drawing.lines;
  drawing.lines.clear();
  ASSERT_EQ(writer.write(drawing.tree.handle()), kOk);
  EXPECT_EQ(drawing.lines, first);
}

TEST(WrittenFile, PoolsAreEmptyInEachFile) {
  DrawingWriter drawing;
  drawing.tree.add(line({0, 0}, {100, 50}, kLine));
  for (int file = 0; file < 2; ++file) {
    ASSERT_EQ(drawing.write(), kOk);
    EXPECT_EQ(drawing.rules(),
              (Lines{"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}));
  }
}

TEST(WrittenFile, ObjectsAloneNeedNoTree) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  _adapterWriteData data = writer.request(0);
  const OwnedObject object(group({box(0, 0, 10, 10, kPen), group({})}));
  EXPECT_EQ(writer->AdapterTransferData(object.get(), &data, 0), kOk);
  EXPECT_EQ(drawing.lines, (Lines{"  <g  >", kSmallRect, "  <g  >", "  </g>", "  </g>"}));
  EXPECT_EQ(writer->AdapterTransferData(nullptr, &data, 0), kOk);
}

TEST(WrittenFile, TheScriptIsNoPartOfIt) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  _adapterWriteData data = writer.request(drawing.tree.handle());
  EXPECT_EQ(writer->_createCSSFile(), 0);
  EXPECT_TRUE(drawing.lines.empty());
  EXPECT_EQ(writer->_transferInteractivityData(&data), 0);
  ASSERT_EQ(drawing.lines.size(), 8U);
  EXPECT_EQ(drawing.lines.front(), R"~(<script type="text/ecmascript" > <![CDATA[ )~");
  EXPECT_EQ(drawing.lines.back(), "   ]]></script>");
}

}  // namespace
}  // namespace egfsvg
