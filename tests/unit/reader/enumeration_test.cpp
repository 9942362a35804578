#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_framework.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_progress.h"
#include "embedded_host/host_settings.h"
#include "host/diagnostics.h"
#include "host/framework.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

struct Row {
  std::string text;
  ReadOutcome outcome;
  std::string pageName = "Page 1";
};

const std::string kTwoPages =
    "<svg><g id=\"Page_2\"><rect x=\"1\"/></g><g id=\"Page_1\"><circle r=\"1\"/></g></svg>";

TEST(EnumerateData, Sequences) {
  const Row rows[] = {
      {"<svg></svg>", {{3, 1000}, 0}},
      {kTwoPages, {{3, 14, 7, 1001, 1000}, 0}},
      {kTwoPages, {{3, 14, 6, 1001, 1000}, 0}, "Page_2"},
      {kTwoPages, {{3, 1000}, 0}, "Page 12"},
      {kTwoPages, {{3, 1000}, 0}, "Foo"},
      {kTwoPages, {{3, 1000}, 0}, "Page"},
      {"<svg><g /></svg>", {{3, 14, 1001, 1000}, 0}},
      {"<svg><g/><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><g></g></svg>", {{3, 14, 1001, 1000}, 0}},
      {"<svg><g id=\"a\" / ><rect></g></svg>", {{3, 14, 1001, 6, 1001}, 0}},
      {"</g>", {{}, 0}},
      {"</svg>", {{}, 0}},
      {"<rect>", {{6}, 0}},
      {"<svg><style type=\"text/css\">rect{fill:red}</style><rect x=\"1\"/></svg>",
       {{3, 6, 1000}, 0}},
      {"<svg><rect x=\"1", {{3, 6}, 0}},
      {"<svg><rect x=\"1\"", {{3, 6}, 0}},
      {"<svg><circle r=\"1\"/ ><rect x=\"1\"/></svg>", {{3, 7, 6, 1000}, 0}},
      {"<svg><svg width=\"5\"/><rect x=\"1\"/></svg>", {{3, 3, 6, 1000}, 0}},
      {"<svg><clipPath id=\"c\"/><rect x=\"1\"/></svg>", {{3}, 0}},
      {"<svg><clipPath><rect x=\"1\"/>", {{3}, 0}},
      {"<svg><clipPath><rect x=\"1\"/></clipPath><circle></svg>", {{3, 7, 1000}, 0}},
      {"<svg><clipPath>&a;<rect x=\"1\"/></clipPath></svg>", {{3, 6, 1000}, 0}},
      {"<svg><symbol id=\"s\"><rect x=\"1\"/></symbol><circle r=\"1\"/></svg>", {{3, 7, 1000}, 0}},
      {"<svg><symbol id=\"s\"/><rect x=\"1\"/></svg>", {{3}, 0}},
      {"<svg><marker id=\"m\"/><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><marker id=\"m\"><rect x=\"1\"/></marker></svg>", {{3, 1000}, 0}},
      {"<svg><marker id=\"m\"/>", {{3}, 0}},
      {"<svg><marker id=\"m\">", {{3}, 0}},
      {"<svg><pattern id=\"m\"/><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><pattern id=\"m\"><rect x=\"1\"/></pattern></svg>", {{3, 1000}, 0}},
      {"<svg><defs><rect id=\"a\" x=\"1\"/></defs><circle r=\"1\"/></svg>", {{3, 7, 1000}, 0}},
      {"<svg><defs /><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><defs></defs><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><defs><g><rect></g><defs><g></g></defs><svg></svg></defs><rect></svg>",
       {{3, 6, 1000}, 0}},
      {"<svg><!-- a --><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><!-- a -- b --><rect x=\"1\"/></svg>", {{3}, 0}},
      {"<svg><!-- a ---><rect x=\"1\"/></svg>", {{3}, 0}},
      {"<svg><!----><rect x=\"1\"/></svg>", {{3}, 0}},
      {"<svg><![CDATA[ <rect x=\"1\"/> ]]></svg>", {{3, 6, 1000}, 0}},
      {"<svg><script><![CDATA[ if(a<g ) x; ]]></script></svg>", {{3, 14, 1000}, 0}},
      {"<svg><g id=\"/>\"><rect x=\"1\"/></g></svg>", {{3, 14, 1001, 6, 1001}, 0}},
      {"<svg><g id=5><rect x=\"1\"/></g></svg>", {{3}, 0}},
      {"<svg><rect x=5/><circle r=\"1\"/></svg>", {{3}, 0}},
      {"<svg x=5><circle r=\"1\"/></svg>", {{}, 0}},
      {"<svg></svg><svg></svg>", {{3, 1000, 3, 1000}, 0}},
      {"<svg><g></svg>", {{3, 14, 1000}, 0}},
      {"<svg></g><rect></svg>", {{3, 1001, 6}, 0}},
      {"<svg><g id=\"MyPage_1\"><rect x=\"1\"/></g></svg>", {{3, 1000}, 0}},
      {"<svg><g id=\"Page_\"><rect x=\"1\"/></g></svg>", {{3, 1000}, 0}},
      {"<svg><g class=\"Page_7\"><rect x=\"1\"/></g></svg>", {{3, 14, 6, 1001, 1000}, 0}},
      {"<svg><g id=\"Page_1\" id=\"Page_2\"><rect x=\"1\"/></g></svg>", {{3, 1000}, 0}},
      {"<svg><g id=\"Page_2\"><g><rect></g></g><circle></svg>", {{3, 7, 1000}, 0}},
      {"<svg><g id=\"Page_2\"><g /><rect x=\"1\"/></g><g id=\"Page_1\"><circle r=\"1\"/></g></svg>",
       {{3}, 0}},
      {"<svg><g id=\"Page_2\"><!-- </g> --><rect x=\"1\"/></g></svg>", {{3, 6, 1001}, 0}},
      {"<svg><g id=\"Page_2\"><rect", {{3}, 0}},
      {"<svg><linearGradient id=\"a\"><stop offset=\"0\"/></linearGradient><rect x=\"1\"/></svg>",
       {{3, 6, 1000}, 0}},
      {"<svg><a /><rect x=\"1\"/></svg>", {{3, 21}, 0}},
      {"<svg><a ><rect></a><rect></svg>", {{3, 21, 6, 1000}, 0}},
      {"<svg><a x=1><rect></a></svg>", {{3}, 0}},
      {"<svg>&unknown;<rect></svg>", {{3, 6, 1000}, 0}},
      {"<svg><path d=\"M0 0\"/><line/><line /><ellipse><polyline><polygon><image></svg>",
       {{3, 5, 9, 8, 10, 11, 16, 1000}, 0}},
      {"<svg><g class=\"QV7.5_Cloud\"><polyline points=\"0,0,10,0,10,10,0,10\"/></g></svg>",
       {{3, 101, 1000}, 0}},
      {"<svg><g class=\"qv7.5_cloud\"><polyline points=\"0,0,1,1\"/></g></svg>",
       {{3, 14, 10, 1001, 1000}, 0}},
      {"<svg><g class=\"foo QV7.5_Cloud\"><polyline points=\"0,0,1,1\"/></g></svg>",
       {{3, 101, 1000}, 0}},
      {"<svg><g class=\"QV7.5_Crossout\"><line x1=\"1\"/><line x2=\"2\"/><line "
       "y1=\"3\"/></g></svg>",
       {{3, 102, 1000}, 0}},
      {"<svg><g class=\"QV7.5_Diamond\"><path d=\"M0 0\"/></g><rect></svg>",
       {{3, 103, 6, 1000}, 0}},
      {"<svg><g class=\"QV7.5_Diamond\"><path d=5/><rect></g><rect></svg>", {{3}, 0}},
      {"<svg><g class=\"QV7.5_Cloud\"><g><polyline></g><rect></g></svg>", {{3, 101, 6, 1001}, 0}},
      {"<svg><g class=\"QV7.5_Cloud\"><polyline>", {{3, 101}, 0}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(readText(row.text, row.pageName), row.outcome) << row.text << " " << row.pageName;
  }
}

TEST(EnumerateData, NothingToRead) {
  for (const char* text : {"", "no tag", "<", "<foo/>", "\xff\xfe\x01\x02"}) {
    EXPECT_EQ(readText(text), (ReadOutcome{{}, -5217})) << text;
  }
}

TEST(EnumerateData, TheCallbacksResultEndsTheRead) {
  const struct {
    std::int32_t given;
    int result;
  } rows[] = {{0, 0}, {2, 2}, {-1, -1}, {-5201, -5201}, {100, 100}};
  for (const auto& row : rows) {
    for (const char* text : {"<svg></svg>", "<rect/><rect />", "<g ></g>", "<a ></a><g>"}) {
      const ReadOutcome outcome =
          readText(text, "Page 1", [&](_handlerObject&) { return row.given; });
      EXPECT_EQ(outcome.types.size(), 1U) << text;
      EXPECT_EQ(outcome.result, row.result) << text;
    }
  }
}

TEST(EnumerateData, ACloserOrAMemberMayEndTheRead) {
  const std::string text =
      "<svg><g class=\"QV7.5_Cloud\"><polyline points=\"1,2\"/></g><g></g><rect></svg>";
  for (const int last : {101, 14, 1001, 6, 1000}) {
    const ReadOutcome outcome = readText(text, "Page 1", [&](_handlerObject& object) {
      return object.type == last ? 7 : std::int32_t{kGoOn};
    });
    EXPECT_EQ(outcome.types.back(), last);
    EXPECT_EQ(outcome.result, 7);
  }
}

TEST(EnumerateData, SizesOfWhatIsSent) {
  const std::string text =
      "<svg><g ><path><rect><circle><ellipse><line><polyline><polygon><image></g>"
      "<a ></a><g class=\"QV7.5_Crossout\"></g><g class=\"QV7.5_Diamond\"></g>"
      "<g class=\"QV7.5_Cloud\"></g></svg>";
  std::vector<std::pair<int, int>> seen;
  readText(text, "Page 1", [&](_handlerObject& object) {
    seen.emplace_back(object.type, object.size);
    return std::int32_t{kGoOn};
  });
  const auto size = [](std::size_t bytes) { return static_cast<int>(bytes); };
  EXPECT_EQ(seen, (std::vector<std::pair<int, int>>{{3, 4},
                                                    {14, size(sizeof(_svg_group))},
                                                    {5, size(sizeof(_svg_path))},
                                                    {6, size(sizeof(_svg_rect))},
                                                    {7, size(sizeof(_svg_circle))},
                                                    {8, size(sizeof(_svg_ellipse))},
                                                    {9, size(sizeof(_svg_line))},
                                                    {10, size(sizeof(_svg_polyline))},
                                                    {11, size(sizeof(_svg_polygon))},
                                                    {16, size(sizeof(_svg_image))},
                                                    {1001, size(sizeof(_svg_group))},
                                                    {21, size(sizeof(_svg_a))},
                                                    {102, size(sizeof(_svg_markup_crossout))},
                                                    {103, size(sizeof(_svg_markup_diamond))},
                                                    {101, size(sizeof(_svg_polyline))},
                                                    {1000, size(sizeof(_svg_svg))}}));
}

TEST(EnumerateData, GroupsTellDefaultsAlone) {
  lookAtEach<_svg_group>("<svg><g fill=\"red\" id=\"x\" transform=\"scale(2)\">", 14,
                         [](const _svg_group& group) {
                           EXPECT_EQ(group.head.id, nullptr);
                           EXPECT_EQ(group.head.transformCount, 0);
                           EXPECT_EQ(group.pa.fill.fillColor.green, 255);
                           EXPECT_EQ(group.width.unit, -1);
                         });
}

TEST(EnumerateData, AnSvgIsToldAsAPlainCopy) {
  TextSource source("<svg id=\"top\" width=\"10\" height=\"20\"></svg>");
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type == 3) {
      const auto* svg = object.payload<_svg_svg>();
      EXPECT_STREQ(svg->head.id, "top");
      EXPECT_EQ(svg->head.id, reader.svgs.at(0)->head.id);
      EXPECT_EQ(svg->head.index, 0);
      EXPECT_EQ(reader.svgs.find("0"), reader.svgs.at(0));
    }
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(reader.svgs.count, 0);
}

TEST(EnumerateData, StrokesAreTidiedOnFourShapes) {
  const std::string head = "<svg><g stroke=\"red\" stroke-width=\"3\">";
  const _svg_rect rect = nthRecord<_svg_rect>(head + "<rect stroke=\"none\"/></g></svg>", 6);
  EXPECT_EQ(rect.stroke.strokePresent, 0);
  EXPECT_EQ(rect.stroke.strokeWidth.value, 0.0);
  EXPECT_EQ(rect.stroke.strokeOpacity, 0.0);
  EXPECT_EQ(rect.stroke.strokeLinecap, 0);
  EXPECT_EQ(nthRecord<_svg_circle>(head + "<circle stroke=\"none\"/>", 7).stroke.strokeOpacity,
            0.0);
  EXPECT_EQ(nthRecord<_svg_ellipse>(head + "<ellipse stroke=\"none\"/>", 8).stroke.strokeOpacity,
            0.0);
  EXPECT_EQ(nthRecord<_svg_polygon>(head + "<polygon stroke=\"none\"/>", 11).stroke.strokeOpacity,
            0.0);
  EXPECT_EQ(nthRecord<_svg_line>(head + "<line stroke=\"none\"/>", 9).stroke.strokeWidth.value,
            3.0);
  EXPECT_EQ(nthRecord<_svg_polyline>(head + "<polyline stroke=\"none\"/>", 10).stroke.strokeOpacity,
            1.0);
  EXPECT_EQ(nthRecord<_svg_path>(head + "<path stroke=\"none\"/>", 5).stroke.strokeOpacity, 1.0);
}

TEST(EnumerateData, TruncatedValuesLoseTheirLastByte) {
  EXPECT_EQ(nthRecord<_svg_rect>("<svg><rect x=\"1", 6).x.value, 0.0);
  EXPECT_EQ(nthRecord<_svg_rect>("<svg><rect x=\"12", 6).x.value, 1.0);
  EXPECT_EQ(nthRecord<_svg_rect>("<svg><rect x=\"1\"", 6).x.value, 1.0);
}

TEST(EnumerateData, MarkupMembers) {
  lookAtEach<_svg_polyline>(
      "<svg><g class=\"QV7.5_Cloud\"><polyline points=\"0,0\"/>"
      "<polyline points=\"0,0,10,0,10,10,0,10\"/></g></svg>",
      101, [](const _svg_polyline& cloud) {
        EXPECT_EQ(cloud.pointCount, 4);
        EXPECT_EQ(cloud.isClosed, 0);
        EXPECT_EQ(cloud.head.type, 10);
        EXPECT_EQ(cloud.head.parent->type, 101);
      });
  lookAtEach<_svg_markup_crossout>(
      "<svg><g id=\"c\" class=\"QV7.5_Crossout\" stroke=\"red\"><line x1=\"1\"/><line x2=\"2\"/>"
      "<line y1=\"3\"/></g></svg>",
      102, [](const _svg_markup_crossout& crossout) {
        EXPECT_STREQ(crossout.group.head.id, "c");
        EXPECT_EQ(crossout.group.head.type, 102);
        EXPECT_EQ(crossout.line1.x1.value, 1.0);
        EXPECT_EQ(crossout.line2.x2.value, 2.0);
        EXPECT_EQ(crossout.line1.y1.value, 0.0);
        EXPECT_EQ(crossout.line2.y1.value, 0.0);
        EXPECT_EQ(crossout.line2.stroke.strokePresent, 1);
        EXPECT_EQ(crossout.line1.head.parent, &crossout.group.head);
      });
  lookAtEach<_svg_markup_diamond>(
      "<svg><g class=\"QV7.5_Diamond\"><path d=\"M1 1\"/><path d=\"M0 0L2 2\"/></g></svg>", 103,
      [](const _svg_markup_diamond& diamond) {
        ASSERT_EQ(diamond.outline.pathCount, 1);
        EXPECT_EQ(diamond.outline.paths[0].dataCount, 2);
      });
}

TEST(EnumerateData, SiblingsAfterAMarkupGroupStillInherit) {
  const _svg_rect rect = nthRecord<_svg_rect>(
      "<svg fill=\"red\"><g class=\"QV7.5_Diamond\"><path d=\"M0 0\"/></g><rect></svg>", 6);
  EXPECT_EQ(rect.fill.fillColor.red, 255);
  EXPECT_EQ(rect.fill.fillColor.green, 0);
  EXPECT_EQ(rect.fill.fillOpacity, 1.0);
  EXPECT_EQ(rect.graphics.opacity, 1.0);
}

TEST(EnumerateData, ViewportsAreTakenByDepth) {
  const std::string text =
      "<svg width=\"200\" height=\"100\">"
      "<svg width=\"20\" height=\"10\"></svg>"
      "<svg width=\"80\" height=\"40\"><svg width=\"30\" height=\"30\"></svg>"
      "<svg width=\"50%\" height=\"50%\">";
  const _svg_svg last = nthRecord<_svg_svg>(text, 3, 4);
  EXPECT_EQ(last.width.value, 10.0);
  EXPECT_EQ(last.height.value, 5.0);
  EXPECT_EQ(last.width.unit, 3);
  const _svg_svg inner = nthRecord<_svg_svg>("<svg width=\"200\" height=\"100\"><svg>", 3, 1);
  EXPECT_EQ(inner.width.value, 200.0);
  EXPECT_EQ(inner.height.value, 100.0);
}

TEST(EnumerateData, TheViewportIsBackAfterAnInnerSvg) {
  TextSource source(
      "<svg width=\"200\" height=\"100\"><svg width=\"50%\" height=\"50%\"><rect></svg><rect>");
  CHandlerReader reader;
  std::vector<double> widths;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type == 6) widths.push_back(reader.viewportWidth);
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(widths, (std::vector<double>{100.0, 200.0}));
}

TEST(EnumerateData, DefsOfOtherPagesAreTakenIn) {
  const std::string text =
      "<svg><use xlink:href=\"#r\"/><g id=\"Page_2\"><defs><rect "
      "id=\"r\"/></defs></g><circle></svg>";
  TextSource source(text);
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type == 7) {
      const _svg_localref* entry = reader.localRefs.find("#r");
      EXPECT_NE(entry, nullptr);
      if (entry != nullptr) {
        EXPECT_EQ(entry->fileIndex, static_cast<int>(text.find("<rect")));
        EXPECT_EQ(entry->tagType, 6);
        EXPECT_EQ(entry->refCount, 1);
      }
    }
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(reader.localRefs.count, 0);
}

TEST(EnumerateData, AReaderServesManyReads) {
  TextSource one("<svg><g><rect></g></svg>");
  TextSource two("<svg><circle r=\"1\"/></svg>");
  CHandlerReader reader;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(readWith(reader, one.stream()), (ReadOutcome{{3, 14, 6, 1001, 1000}, 0}));
    EXPECT_EQ(reader.groupCount + reader.svgCount, 0);
    EXPECT_EQ(readWith(reader, two.stream()), (ReadOutcome{{3, 7, 1000}, 0}));
  }
}

TEST(EnumerateData, ThrowingCallbacksLeaveNothingBehind) {
  const std::string text =
      "<svg><defs><g id=\"s\"><rect></g></defs><g><use xlink:href=\"#s\"/><a ><rect></a>"
      "<g class=\"QV7.5_Cloud\"><polyline points=\"1,2\"/></g></g></svg>";
  for (int at = 1; at <= 8; ++at) {
    int calls = 0;
    TextSource source(text);
    CHandlerReader reader;
    try {
      readWith(reader, source.stream(), "Page 1", [&](_handlerObject&) -> std::int32_t {
        if (++calls == at) throw at;
        return kGoOn;
      });
      FAIL() << "nothing was thrown at " << at;
    } catch (int thrown) {
      EXPECT_EQ(thrown, at);
    }
    EXPECT_EQ(readWith(reader, source.stream()).result, 0);
  }
}

TEST(EnumerateData, NestingHasALimit) {
  const auto nested = [](int depth) {
    std::string text = "<svg>";
    for (int i = 0; i < depth; ++i) text += "<g>";
    return text + "<rect>";
  };
  egfhost::clearMessages();
  ReadOutcome outcome = readText(nested(1023));
  EXPECT_EQ(outcome.types.size(), 1025U);
  EXPECT_EQ(outcome.types.back(), 6);
  EXPECT_EQ(egfhost::countMessages(static_cast<int>(Diagnostic::kNestingLimit)), 0U);
  outcome = readText(nested(1024));
  EXPECT_EQ(outcome, (ReadOutcome{std::vector<int>(outcome.types), 0}));
  EXPECT_EQ(outcome.types.size(), 1024U);
  EXPECT_EQ(egfhost::countMessages(static_cast<int>(Diagnostic::kNestingLimit)), 1U);
  ASSERT_TRUE(egfhost::setSetting("maxNesting", 3));
  EXPECT_EQ(readText("<svg><g><g><rect></g></g><g></g><svg></svg><g><g><g><rect>").types,
            (std::vector<int>{3, 14, 14, 6, 1001, 1001, 14, 1001, 3, 1000, 14, 14}));
  ASSERT_TRUE(egfhost::setSetting("maxNesting", 2000));
  EXPECT_EQ(readText(nested(1999)).types.back(), 6);
}

TEST(EnumerateData, ManyElementsSideBySideDoNotNest) {
  std::string text = "<svg><defs>";
  for (int i = 0; i < 3000; ++i) text += "<g id=\"x\" />";
  text += "</defs>";
  for (int i = 0; i < 3000; ++i) text += "<g ></g><g />";
  const ReadOutcome outcome = readText(text + "</svg>");
  EXPECT_EQ(outcome.types.size(), 2U + 4 * 3000);
  EXPECT_EQ(outcome.types.back(), 1000);
}

TEST(EnumerateData, DeepDefsEnd) {
  std::string text = "<svg>";
  for (int i = 0; i < 3000; ++i) text += "<defs><g>";
  for (int i = 0; i < 3000; ++i) text += "</defs>";
  EXPECT_EQ(readText(text + "<rect></svg>").types, (std::vector<int>{3, 6, 1000}));
}

TEST(EnumerateData, DiagnosticsOnRequest) {
  const std::string text = "<svg bogus=\"1\"><foo x=\"1\"/><rect y=\"1\"/>&none;<rect x=5>";
  egfhost::clearMessages();
  readText(text);
  EXPECT_TRUE(egfhost::recordedMessages().empty());
  ASSERT_TRUE(egfhost::setSetting("diagnostics", 1));
  readText(text);
  const struct {
    Diagnostic diagnostic;
    const char* text;
  } rows[] = {{Diagnostic::kUnknownAttribute, "14 bogus"},
              {Diagnostic::kUnknownElement, "15 foo"},
              {Diagnostic::kUnresolvedEntity, "46 none"},
              {Diagnostic::kSyntaxError, "55 rect"}};
  const auto& messages = egfhost::recordedMessages();
  ASSERT_EQ(messages.size(), std::size(rows));
  for (std::size_t i = 0; i < messages.size(); ++i) {
    EXPECT_EQ(messages[i].number, static_cast<int>(rows[i].diagnostic));
    EXPECT_EQ(messages[i].text, rows[i].text);
  }
}

const std::string kSweepDrawing =
    "<svg width=\"50%\" viewBox=\"0 0 1 1\"><style>x</style><!-- c --><defs><g id=\"t\" "
    "class=\"c\"><rect id=\"r\" fill=\"red\" transform=\"scale(2)\"/></g><svg/></defs>"
    "<symbol id=\"s\"><path d=\"M0 0L1 1\"/></symbol>"
    "<g transform=\"translate(1) rotate(2)\" stroke-dasharray=\"1,2\" clip-path=\"url(#x)\">"
    "<use xlink:href=\"#t\"/><use xlink:href=\"#s\"/><use xlink:href=\"#none\"/>"
    "<polyline points=\"1,2,3,4\" style=\"fill:blue;stroke:red\"/></g>&amp;"
    "<a xlink:href=\"u\"><rect><g><line></g><g class=\"QV7.5_Crossout\"><line><line></g>"
    "<![CDATA[text]]></a><g class=\"QV7.5_Cloud\"><polyline points=\"1,2\"/></g>"
    "<switch><rect x=\"1\"/><rect></switch><image xlink:href=\"a.png\"/></svg>";

TEST(EnumerateData, EachAllocationMayFail) {
  ASSERT_TRUE(egfhost::failAllocation(1U << 30));
  const ReadOutcome whole = readText(kSweepDrawing);
  EXPECT_EQ(whole.result, 0);
  const std::uint64_t calls = egfhost::callCount("RMM");
  EXPECT_GT(calls, 50U);
  for (const auto span : {egfhost::FaultSpan::kOnce, egfhost::FaultSpan::kForEver}) {
    for (std::uint64_t call = 1; call <= calls; ++call) {
      egfhost::clearFaults();
      TextSource source(kSweepDrawing);
      CHandlerReader reader;
      ASSERT_TRUE(egfhost::failAllocation(call, span));
      const int result = readWith(reader, source.stream()).result;
      EXPECT_TRUE(result == 0 || result == kOutOfMemory) << result << " at " << call;
      egfhost::clearFaults();
      EXPECT_EQ(readWith(reader, source.stream()), whole) << call;
    }
  }
}

TEST(EnumerateData, WithoutMemoryForTheSource) {
  for (const auto span : {egfhost::FaultSpan::kOnce, egfhost::FaultSpan::kForEver}) {
    egfhost::clearFaults();
    TextSource source("<svg><rect x=\"1\"/></svg>");
    CHandlerReader reader;
    ASSERT_TRUE(egfhost::failAllocation(1, span));
    EXPECT_EQ(readWith(reader, source.stream()), (ReadOutcome{{}, kOutOfMemory}));
  }
}

TEST(EnumerateData, EachReadMayFail) {
  const std::string text = kSweepDrawing + std::string(9000, ' ') + "<rect>" + kSweepDrawing;
  for (const auto kind :
       {egfhost::FaultKind::kFail, egfhost::FaultKind::kCutShort, egfhost::FaultKind::kThrow}) {
    for (std::uint64_t call = 1; call <= 12; ++call) {
      TextSource source(text);
      CHandlerReader reader;
      ASSERT_TRUE(egfhost::armFault("FLR_Read", call, kind));
      try {
        const int result = readWith(reader, source.stream()).result;
        EXPECT_TRUE(result == 0 || result == kNothingToRead) << result << " at " << call;
      } catch (CException* exception) {
        exception->Delete();
      }
      egfhost::clearFaults();
    }
  }
}

// Gradients and stops that are longer than what the reader takes at a time.
TEST(EnumerateData, AThrowingFileLeavesNothingOfGradients) {
  const std::string blanks(9000, ' ');
  const auto gradient = [&](const std::string& id) {
    return "<linearGradient " + id + " gradientTransform=\"scale(2)\"" + blanks + "x1=\"1\">" +
           blanks + "<stop id=\"s\" offset=\"0\"" + blanks + "stop-color=\"red\"/>" + blanks +
           "</linearGradient>";
  };
  const std::string text = "<svg>" + gradient("id=\"a\"") + gradient("") + "</svg>";
  int thrown = 0;
  for (std::uint64_t call = 1; call <= 40; ++call) {
    const auto before = egfhost::liveSites();
    {
      TextSource source(text);
      CHandlerReader reader;
      ASSERT_TRUE(egfhost::throwAt("FLR_Read", call));
      try {
        readWith(reader, source.stream());
      } catch (CException* exception) {
        exception->Delete();
        ++thrown;
      }
      egfhost::clearFaults();
    }
    EXPECT_EQ(egfhost::describeSites(egfhost::liveSitesSince(before)), "") << call;
  }
  EXPECT_GT(thrown, 8);
}

TEST(EnumerateData, EachTruncationEnds) {
  for (std::size_t length = 0; length < kSweepDrawing.size(); ++length) {
    const int result = readText(kSweepDrawing.substr(0, length)).result;
    EXPECT_TRUE(result == 0 || (result == kNothingToRead && length < 5)) << length;
  }
}

}  // namespace
}  // namespace egfsvg::test
