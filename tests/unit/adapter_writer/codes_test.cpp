// The codes of the writer's calls, and how far a write goes when a line or a block cannot be had.

#include <gtest/gtest.h>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"
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

/// A line is refused when it holds the text.
void refuse(DrawingWriter& drawing, std::string text) {
  drawing.answer = [text = std::move(text)](std::string_view line) -> std::optional<int> {
    return line.find(text) != line.npos ? std::optional<int>(-1) : std::nullopt;
  };
}

bool holds(const Lines& lines, std::string_view text) {
  for (const std::string& line : lines) {
    if (line.find(text) != line.npos) return true;
  }
  return false;
}

_egf_obj* rectAt(double x) { return box(x, 0, 10, 10, kPen); }

TEST(WriterCodes, OpenAsksForItsFields) {
  EXPECT_EQ(SVGA_OpenWriter(nullptr), kMissingField);
  _adapterOpenWriter open{77, 0};
  EXPECT_EQ(SVGA_OpenWriter(&open), kMissingField);
  EXPECT_EQ(open.writer, 0U);
  EXPECT_EQ(SVGH_OpenWriter(nullptr), kMissingField);
  open.writer = 77;
  EXPECT_EQ(SVGH_OpenWriter(&open), kMissingField);
  EXPECT_EQ(open.writer, 0U);
}

TEST(WriterCodes, WriteAsksForItsFieldsInOrder) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  EXPECT_EQ(SVGA_WriteData(nullptr, 0), kMissingField);
  _adapterWriteData data = writer.request(drawing.tree.handle());
  data.stream = 0;
  EXPECT_EQ(SVGA_WriteData(&data, 0), kMissingField);
  data = writer.request(0);
  data.writer = 0;
  EXPECT_EQ(SVGA_WriteData(&data, 0), kMissingField);
  data = writer.request(drawing.tree.handle());
  data.writer = 0;
  EXPECT_EQ(SVGA_WriteData(&data, 0), kOutOfMemory);
  EXPECT_TRUE(drawing.lines.empty());
}

TEST(WriterCodes, CloseAsksForItsWriter) {
  EXPECT_EQ(SVGA_CloseWriter(nullptr), kMissingField);
  _adapterCloseWriter close{0};
  EXPECT_EQ(SVGA_CloseWriter(&close), kOutOfMemory);
  EXPECT_EQ(SVGH_CloseWriter(nullptr), kMissingField);
  EXPECT_EQ(SVGH_CloseWriter(&close), kMissingField);
}

TEST(WriterCodes, TheSerialiserAsksForItsFields) {
  DrawingWriter drawing;
  _handlerOpenWriter open{0, drawing.stream()};
  ASSERT_EQ(SVGH_OpenWriter(&open), kOk);
  EXPECT_EQ(SVGH_WriteObject(nullptr), kMissingField);
  _handlerWriteObject object{open.writer, 0, kWriteEnd, 0};
  EXPECT_EQ(SVGH_WriteObject(&object), kMissingField);
  object = {0, drawing.stream(), kWriteEnd, 0};
  EXPECT_EQ(SVGH_WriteObject(&object), kMissingField);
  object = {open.writer, drawing.stream(), kWriteEnd, 0};
  EXPECT_EQ(SVGH_WriteObject(&object), kOk);
  object.type = 13;
  EXPECT_EQ(SVGH_WriteObject(&object), kUnknownWriteType);
  _handlerCloseWriter close{open.writer};
  EXPECT_EQ(SVGH_CloseWriter(&close), kOk);
  EXPECT_EQ(SVGH_CloseWriter(&close), kMissingField);
}

TEST(WriterCodes, AWriterThatIsNotOpenHasNoHandler) {
  CAdapterWriter writer;
  EXPECT_EQ(writer.CloseWriter(), kNoHandler);
  egfhost::countCalls();
  _adapterWriteData data{};
  EXPECT_EQ(writer.WriteData(&data, 0), kNoHandler);
  EXPECT_EQ(egfhost::callCount("MPL_GetResXFactor"), 1U);
  EXPECT_EQ(egfhost::callCount("MPL_GetResYFactor"), 1U);
  egfhost::clearFaults();
  EXPECT_EQ(writer.xFactor, 96.0);
}

TEST(WriterCodes, AClosedWriterHasNoHandler) {
  DrawingWriter drawing;
  CAdapterWriter writer;
  _adapterOpenWriter open{0, drawing.stream()};
  ASSERT_EQ(writer.OpenWriter(&open), kOk);
  EXPECT_NE(writer.styleSet, nullptr);
  EXPECT_EQ(writer.CloseWriter(), kOk);
  EXPECT_EQ(writer.styleSet, nullptr);
  EXPECT_EQ(writer.gradientTable, 0U);
  EXPECT_EQ(writer.CloseWriter(), kNoHandler);
}

TEST(WriterCodes, TheSeventhTableIsASettingOfTheHost) {
  for (const std::uint32_t wanted : {0U, 1U}) {
    CFG_GetDefaults(0, 0)[static_cast<std::uint32_t>(Setting::kSeventhStyleTable)] = wanted;
    DrawingWriter drawing;
    OpenWriter writer(drawing.stream(), drawing.document());
    EXPECT_EQ(writer->styleSet->seventh != 0, wanted != 0);
    EXPECT_EQ(writer->styleSet->eighth, 0U);
  }
}

TEST(WriterCodes, AnEmptyTreeIsAMissingField) {
  DrawingWriter drawing;
  auto* block = at<EgfTreeBlock>(drawing.tree.handle());
  const ref32<_egf_obj> root = block->body.root;
  block->body.root = nullptr;
  EXPECT_EQ(drawing.write(), kMissingField);
  EXPECT_TRUE(drawing.lines.empty());
  block->body.root = root;
}

TEST(WriterFailures, OnlyMinusOneIsAFailure) {
  for (const int answer : {-2, 0, 17}) {
    DrawingWriter drawing;
    drawing.tree.add(rectAt(1));
    drawing.answer = [answer](std::string_view) { return answer; };
    EXPECT_EQ(drawing.write(), kOk) << answer;
    EXPECT_EQ(drawing.lines.size(), 11U) << answer;
  }
}

TEST(WriterFailures, TheFirstLineEndsIt) {
  DrawingWriter drawing;
  appendStyle(drawing.document(), kStylePen, kPolygonPen);
  int asked = 0;
  drawing.answer = [&](std::string_view) {
    ++asked;
    return -1;
  };
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(egfhost::currentCursor(), egfhost::kArrowCursor);
}

TEST(WriterFailures, AnEntityEndsIt) {
  DrawingWriter drawing;
  _egf_gdi_fillparms_tag pen = kPolygonPen;
  appendStyle(drawing.document(), kStylePen, pen);
  pen.lineStyle = 1;
  appendStyle(drawing.document(), kStylePen, pen);
  refuse(drawing, "<!ENTITY st1");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  EXPECT_EQ(drawing.lines.size(), 3U);
}

TEST(WriterFailures, TheEndOfTheDoctypeEndsIt) {
  DrawingWriter drawing;
  refuse(drawing, "]>");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  EXPECT_EQ(drawing.lines.size(), 3U);
}

TEST(WriterFailures, AChildEndsAPlainGroup) {
  DrawingWriter drawing;
  drawing.tree.add(group({rectAt(1), rectAt(2), rectAt(3)}));
  refuse(drawing, "<rect x=\"2\"");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  const Lines body = drawing.body();
  ASSERT_EQ(body.size(), 2U);
  EXPECT_EQ(body[0], "  <g  >");
  EXPECT_FALSE(holds(drawing.lines, "</svg>"));
}

TEST(WriterFailures, AnOpenTagEndsAPlainGroup) {
  DrawingWriter drawing;
  drawing.tree.add(group({rectAt(1)}));
  drawing.tree.add(rectAt(2));
  refuse(drawing, "  <g");
  EXPECT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.body().size(), 1U);
}

TEST(WriterFailures, AChildOfTheRootIsForgottenByTheNext) {
  DrawingWriter drawing;
  for (double x : {1.0, 2.0, 3.0}) drawing.tree.add(rectAt(x));
  refuse(drawing, "<rect x=\"2\"");
  EXPECT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.body().size(), 2U);
  EXPECT_EQ(drawing.lines.back(), "</svg>");
}

TEST(WriterFailures, TheLastChildOfTheRootCounts) {
  DrawingWriter drawing;
  for (double x : {1.0, 2.0, 3.0}) drawing.tree.add(rectAt(x));
  refuse(drawing, "<rect x=\"3\"");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  EXPECT_EQ(drawing.lines.back(), "   </defs>");
  EXPECT_TRUE(holds(drawing.lines, "]]></style>"));
}

TEST(WriterFailures, TheDefinitionsAreNotTold) {
  for (const char* text : {"   <defs>", "<style", "]]></style>", "   </defs>", ".strk1"}) {
    DrawingWriter drawing;
    drawing.tree.add(line({0, 0}, {1, 1}));
    refuse(drawing, text);
    EXPECT_EQ(drawing.write(), kOk) << text;
    EXPECT_EQ(drawing.lines.back(), "</svg>") << text;
  }
}

TEST(WriterFailures, TheLastLineCounts) {
  DrawingWriter drawing;
  refuse(drawing, "</svg>");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
}

TEST(WriterFailures, AnArrowLineGoesOnToItsEnd) {
  const Points heads = {{90, 5}, {90, -5}, {10, 5}, {10, -5}};
  for (const char* text : {"<g", "<line", "<polygon"}) {
    DrawingWriter drawing;
    drawing.tree.add(arrowLine({0, 0}, {100, 0}, {.points = heads}));
    refuse(drawing, text);
    EXPECT_EQ(drawing.write(), kOk) << text;
    EXPECT_EQ(drawing.body().back(), "  </g>") << text;
  }
  DrawingWriter drawing;
  drawing.tree.add(arrowLine({0, 0}, {100, 0}, {.both = true, .points = heads}));
  refuse(drawing, "</g>");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
}

_egf_obj* manySquares(int count) {
  std::vector<Points> subPaths;
  for (int i = 0; i < count; ++i) {
    const double x = 1000.0 + i;
    subPaths.push_back({{x, 0}, {x, 9}, {1, 9}});
  }
  return polyPath(subPaths, kPen);
}

TEST(WriterFailures, APathOfAGroupIsForgotten) {
  DrawingWriter drawing;
  drawing.tree.add(manySquares(21));
  refuse(drawing, "d=\"M1020");
  EXPECT_EQ(drawing.write(), kOk);
  EXPECT_EQ(drawing.body().back(), "  </g>");
}

TEST(WriterFailures, TheGroupOfPathsCounts) {
  DrawingWriter drawing;
  drawing.tree.add(manySquares(21));
  refuse(drawing, "<g fill");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
  EXPECT_TRUE(drawing.body().empty());
}

TEST(WriterFailures, OnePathCounts) {
  DrawingWriter drawing;
  drawing.tree.add(manySquares(2));
  refuse(drawing, "<path");
  EXPECT_EQ(drawing.write(), kLineNotWritten);
}

TEST(WriterMemory, TheHeadersEnvelopeLeavesTheCursor) {
  DrawingWriter drawing;
  OpenWriter writer(drawing.stream(), drawing.document());
  ASSERT_TRUE(egfhost::failAllocation(1));
  EXPECT_EQ(writer.write(drawing.tree.handle()), kOutOfMemory);
  EXPECT_EQ(egfhost::faultsStruck(), 1U);
  egfhost::clearFaults();
  EXPECT_TRUE(drawing.lines.empty());
  EXPECT_NE(egfhost::currentCursor(), egfhost::kArrowCursor);
  SetCursor(egfhost::kArrowCursor);
  SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, egfhost::kArrowCursor);
}

TEST(WriterMemory, TheCursorIsPutBack) {
  DrawingWriter drawing;
  HostHandle during = 0;
  drawing.answer = [&](std::string_view) -> std::optional<int> {
    during = egfhost::currentCursor();
    return std::nullopt;
  };
  const HostHandle frameCursor = egfhost::frameClassCursor();
  ASSERT_EQ(drawing.write(), kOk);
  EXPECT_EQ(during, LoadCursorA(0, kWaitCursor));
  EXPECT_EQ(egfhost::currentCursor(), egfhost::kArrowCursor);
  EXPECT_EQ(egfhost::frameClassCursor(), frameCursor);
}

TEST(WriterMemory, AnEntityWithoutItsNameEndsTheFile) {
  DrawingWriter drawing;
  appendStyle(drawing.document(), kStylePen, kPolygonPen);
  std::size_t entities = 0;
  for (std::uint64_t n = 1;; ++n) {
    drawing.lines.clear();
    std::optional<OpenWriter> writer(std::in_place, drawing.stream(), drawing.document());
    ASSERT_TRUE(egfhost::failAllocation(n, egfhost::FaultSpan::kForEver));
    const int result = writer->write(drawing.tree.handle());
    const bool struck = egfhost::faultsStruck() != 0;
    egfhost::clearFaults();
    for (const std::string& line : drawing.lines) {
      if (line.find("<!ENTITY") == line.npos) continue;
      ++entities;
      EXPECT_EQ(line.find("<!ENTITY st1 \""), 3U) << n << ": " << line;
    }
    if (!struck) break;
    EXPECT_NE(result, kOk) << n;
  }
  EXPECT_LT(0U, entities);
  SetCursor(egfhost::kArrowCursor);
  SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, egfhost::kArrowCursor);
}

/// One object of each kind that is written, with styles, gradients and dashes.
void addEverything(DrawingWriter& drawing) {
  const HostHandle document = drawing.document();
  AreaPen area = kPen;
  area.lineStyle = drawing.tree.dash({4, -2});
  area.fillParmsNo = appendStyle(document, kStyleFill, kFillParms);
  _egf_gdiplus_gradientparms_tag ramp = kGradientParms;
  ramp.stopCount = 4;
  ramp.gradMatrix.dx = 4096.0F;
  area.fillGradientNo = appendStyle(document, kStyleGradient, ramp);
  area.strokeGradientNo = area.fillGradientNo;
  area.gradPts = {{0, 0}, {9, 9}};
  LinePen pen{.width = 2.0};
  pen.lineStyle = area.lineStyle;
  const std::uint32_t penNo = appendStyle(document, kStylePen, kPolygonPen);
  drawing.tree.add(box(0, 0, 10, 10, area));
  drawing.tree.add(ellipse(5, 5, 3, 4, area, 30.0));
  drawing.tree.add(ellipse(5, 5, 4, 4, area));
  drawing.tree.add(ellipse(5, 5, 4, 4, area, 30.0, 0, 90));
  drawing.tree.add(polygon({{0, 0}, {1, 0}, {1, 1}}, area));
  drawing.tree.add(polyline({{0, 0}, {1, 0}, {1, 1}}, pen));
  drawing.tree.add(line({0, 0}, {5, 5}, pen));
  drawing.tree.add(arrowLine(
      {0, 0}, {100, 0}, {.both = true, .points = {{90, 5}, {90, -5}, {10, 5}, {10, -5}}}, pen));
  drawing.tree.add(arc(5, 5, 4, 4, 0, 90));
  drawing.tree.add(path({line({0, 0}, {9, 9}), path({polyline({{1, 1}, {2, 2}})})},
                        {.gdiFillStyleNo = penNo, .fillParmsNo = area.fillParmsNo}));
  drawing.tree.add(manySquares(3));
  drawing.tree.add(manySquares(21));
  drawing.tree.add(group({rectAt(1)}));
}

/// Fails each allocation of a write in turn. Nothing crashes or leaks; a write that says that it is
/// whole has its frame, and one that is not says why.
TEST(WriterMemory, NoBlockIsMissed) {
  DrawingWriter drawing;
  addEverything(drawing);
  ASSERT_EQ(drawing.write(), kOk);
  const std::size_t whole = drawing.lines.size();
  std::uint64_t shortened = 0;
  for (std::uint64_t n = 1;; ++n) {
    drawing.lines.clear();
    std::optional<OpenWriter> writer(std::in_place, drawing.stream(), drawing.document());
    ASSERT_TRUE(egfhost::failAllocation(n));
    const int result = writer->write(drawing.tree.handle());
    const bool struck = egfhost::faultsStruck() != 0;
    egfhost::clearFaults();
    EXPECT_TRUE(result == kOk || result == kOutOfMemory || result == kLineNotWritten)
        << n << ": " << result;
    if (result == kOk) {
      EXPECT_EQ(drawing.lines.back(), "</svg>") << n;
    }
    if (drawing.lines.size() != whole) ++shortened;
    if (!struck) break;
  }
  EXPECT_GT(shortened, 10U);
  SetCursor(egfhost::kArrowCursor);
  SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, egfhost::kArrowCursor);
}

/// The same for what the host's calls throw.
TEST(WriterMemory, NoExceptionLeaks) {
  for (const char* call :
       {"FLR_PutLine", "STYLE_AppendUnique", "STYLE_QueryData", "STYLE_QueryStyleNo",
        "STYLE_Enumerate", "ISL_GetProperty", "OBJ_GetRootTrace", "MPL_GetResXFactor",
        "MPL_GetResYFactor", "EEL_AllocObject", "EEL_PutObject", "EEL_GetObjectMer",
        "EEL_GetNextObject", "EGF_GetDashRecordByStyle"}) {
    DrawingWriter drawing;
    addEverything(drawing);
    for (std::uint64_t n = 1;; ++n) {
      std::optional<OpenWriter> writer(std::in_place, drawing.stream(), drawing.document());
      ASSERT_TRUE(egfhost::throwAt(call, n)) << call;
      const int result = writer->write(drawing.tree.handle());
      const bool struck = egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
      EXPECT_TRUE(result == kOk || result == kExceptionCaught)
          << call << " " << n << ": " << result;
      EXPECT_EQ(egfhost::currentCursor(), egfhost::kArrowCursor) << call << " " << n;
      if (!struck) break;
    }
  }
}

TEST(WriterMemory, OpeningGivesBackWhatItTook) {
  DrawingWriter drawing;
  for (std::uint64_t n = 1;; ++n) {
    _adapterOpenWriter open{77, drawing.stream()};
    ASSERT_TRUE(egfhost::failAllocation(n));
    const int result = SVGA_OpenWriter(&open);
    const bool struck = egfhost::faultsStruck() != 0;
    egfhost::clearFaults();
    EXPECT_EQ(result, struck ? kOutOfMemory : kOk) << n;
    EXPECT_EQ(open.writer != 0, !struck) << n;
    if (struck) continue;
    _adapterCloseWriter close{open.writer};
    EXPECT_EQ(SVGA_CloseWriter(&close), kOk);
    break;
  }
}

}  // namespace
}  // namespace egfsvg
