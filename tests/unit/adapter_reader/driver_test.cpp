#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>

#include "adapter_reader/group_stack.h"
#include "embedded_host/host_trees.h"
#include "frame/result_codes.h"
#include "frame/svghinterface.h"
#include "tests/support/adapter_page.h"
#include "tests/support/drawn_page.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

// An adapter on a text, opened, with a document whose pages it reads.
class Reading {
 public:
  explicit Reading(std::string text, double dotsPerInch = 96.0)
      : source_(std::move(text)),
        document_(egfhost::createDocument()),
        view_(egfhost::createView(document_, dotsPerInch)) {
    adapter_.emplace();
    adapter_->document = document_;
    newPage();
    _adapterOpenReader open{0, source_.stream()};
    EXPECT_EQ(adapter_->OpenReader(&open), 0);
  }
  ~Reading() {
    adapter_->CloseReader();
    adapter_.reset();
    egfhost::destroyView(view_);
    egfhost::destroyDocument(document_);
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  void newPage() { container_ = egfhost::createPage(document_); }
  // Reads into the page, whose objects stand in objects() then.
  int read(std::int32_t pageIndex = 0, const char* pageName = "") {
    _adapterReadData record{};
    record.source = source_.stream();
    record.view = view_;
    record.pageIndex = pageIndex;
    std::strcpy(record.pageName, pageName);
    record.container = container_;
    return adapter_->ReadData(&record, nullptr);
  }
  std::vector<_egf_obj*> objects() const {
    return DrawnPage::children(egfhost::rootOf(container_));
  }

  CAdapterReader* operator->() { return &*adapter_; }
  HostHandle source() const { return source_.stream(); }
  HostHandle view() const { return view_; }
  // Ends the adapter without closing it.
  void drop() {
    adapter_->CloseReader();
    adapter_.emplace();
  }

 private:
  TextSource source_;
  HostHandle document_;
  HostHandle view_;
  HostHandle container_ = 0;
  std::optional<CAdapterReader> adapter_;
};

constexpr const char* kTwoRects =
    "<svg ><g ><rect width='1' height='1'/></g><rect width='2' height='2'/></svg>";

TEST(Driver, NothingWorksBeforeOpening) {
  CAdapterReader adapter;
  _adapterPreprocess preprocess{};
  _adapterQuery query{};
  _adapterReadData read{};
  _adapterUnloadData unload{};
  EXPECT_EQ(adapter.CloseReader(), -5218);
  EXPECT_EQ(adapter.PreprocessSource(&preprocess), -5218);
  EXPECT_EQ(adapter.QueryProperty(&query), -5218);
  EXPECT_EQ(adapter.ReadData(&read, nullptr), -5218);
  EXPECT_EQ(adapter.UnloadData(&unload), 0);
  EXPECT_EQ(adapter.silent, 1);
  EXPECT_EQ(adapter.document, 0U);
  EXPECT_EQ(adapter.viewportWidth, 0.0F);
  EXPECT_EQ(adapter.groupStack, nullptr);
}

// The layer of whole files writes the first member.
TEST(Driver, TheDocumentIsTheFirstMember) {
  CAdapterReader adapter;
  EXPECT_EQ(reinterpret_cast<char*>(&adapter.document) - reinterpret_cast<char*>(&adapter),
            static_cast<std::ptrdiff_t>(sizeof(void*)));  // behind the virtual table
}

TEST(Driver, OpeningAsksHowSilentToBe) {
  for (const std::uint32_t mode : {0U, 1U, 2U, 3U}) {
    egfhost::setModeWord(mode);
    Reading reading(kTwoRects);
    EXPECT_NE(reading->handler, 0U);
    EXPECT_EQ(reading->silent, static_cast<int>(mode & 1));
    EXPECT_EQ(reading->document == 0, false);
  }
}

TEST(Driver, AFailedOpenKeepsNoHandler) {
  const TextSource source("<svg ></svg>");
  CAdapterReader adapter;
  _adapterOpenReader open{0, source.stream()};
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  EXPECT_EQ(adapter.OpenReader(&open), kOutOfMemory);
  egfhost::clearFaults();
  EXPECT_EQ(adapter.handler, 0U);
  EXPECT_EQ(adapter.silent, 0);
}

TEST(Driver, ClosingForgetsTheHandler) {
  Reading reading(kTwoRects);
  EXPECT_EQ(reading->CloseReader(), 0);
  EXPECT_EQ(reading->handler, 0U);
  EXPECT_EQ(reading->CloseReader(), -5218);
}

TEST(Driver, AResolutionThatTheSourceNamesIsSet) {
  struct Row {
    const char* source;
    double dotsPerInch;
  };
  constexpr Row kRows[] = {
      {"<!-- User agent resolution:120 dpi --><svg ></svg>", 120.0},
      {"<!-- User agent resolution:0 dpi --><svg ></svg>", 150.0},
      {"<!-- User agent resolution: dpi --><svg ></svg>", 150.0},
      {"<svg ></svg>", 150.0},
      {"<!-- User agent resolution:99999999999999 dpi --><svg ></svg>", 2147483647.0},
  };
  for (const Row& row : kRows) {
    Reading reading(row.source, 150.0);
    _adapterPreprocess record{0, reading.source()};
    EXPECT_EQ(reading->PreprocessSource(&record), 0);
    EXPECT_EQ(egfhost::resolutionOf(reading.view()), row.dotsPerInch) << row.source;
  }
}

TEST(Driver, WithoutADocumentNoResolutionIsSet) {
  Reading reading("<!-- User agent resolution:120 dpi --><svg ></svg>", 150.0);
  reading->document = 0;
  _adapterPreprocess record{0, reading.source()};
  EXPECT_EQ(reading->PreprocessSource(&record), 0);
  EXPECT_EQ(egfhost::resolutionOf(reading.view()), 150.0);
}

TEST(Driver, QueriesAreCopiedBackOnlyWhenAnswered) {
  Reading reading("<svg ><g id='Page_1'></g><g id='Page_2'></g></svg>");
  _adapterQuery query{};
  query.reader = 7;
  query.source = reading.source();
  query.property = 4;
  query.kind = 3;
  query.value = 77;
  query.rest[255] = 5;
  EXPECT_EQ(reading->QueryProperty(&query), -5216);
  EXPECT_EQ(query.value, 77);
  EXPECT_EQ(query.kind, 3);
  query.property = 3;
  EXPECT_EQ(reading->QueryProperty(&query), 0);
  EXPECT_EQ(query.value, 2);
  EXPECT_EQ(query.kind, 9);
  EXPECT_EQ(query.rest[255], 5);
  EXPECT_EQ(query.reader, 7U);
}

TEST(Driver, APageHasANameOrTakesItsNumber) {
  constexpr const char* kPages =
      "<svg ><g id='Page_1'><rect width='1' height='1'/></g>"
      "<g id='Page_2'><rect width='1' height='1'/><line x2='1'/></g></svg>";
  struct Row {
    std::int32_t index;
    const char* name;
    std::size_t children;  // of the page's only group; 0: no group
  };
  constexpr Row kRows[] = {{0, "", 1},       {1, "", 2},       {2, "", 0},
                           {0, "Page 2", 2}, {1, "Page 1", 1}, {0, "x", 0}};
  Reading reading(kPages);
  for (const Row& row : kRows) {
    reading.newPage();
    ASSERT_EQ(reading.read(row.index, row.name), 0);
    const std::vector<_egf_obj*> groups = reading.objects();
    ASSERT_EQ(groups.size(), row.children == 0 ? 0U : 1U) << row.index << row.name;
    for (_egf_obj* group : groups) EXPECT_EQ(DrawnPage::children(group).size(), row.children);
  }
}

TEST(Driver, ThePagesMembersEndWithThePage) {
  Reading reading(
      "<svg viewBox='0 0 10 10' width='10' height='10'>"
      "<line x2='1' stroke='red' stroke-dasharray='1,2'/></svg>");
  for (int round = 0; round < 2; ++round) {
    reading.newPage();
    EXPECT_EQ(reading.read(), 0);
    EXPECT_EQ(reading->rootGroup, nullptr);
    EXPECT_EQ(reading->map, 0U);
    EXPECT_EQ(reading->pageHeader, nullptr);
    EXPECT_EQ(reading->dashTable, nullptr);
    EXPECT_EQ(reading->dashCount, 1U);
    EXPECT_EQ(reading->groupStack, nullptr);
    EXPECT_EQ(reading.objects().size(), 2U);
  }
}

TEST(Driver, ViewportsStartAtNothing) {
  Reading reading("<svg width='100%' height='100%'><rect width='50%' height='50%'/></svg>");
  reading->viewportWidth = 4096.0F;
  reading->viewportHeight = 4096.0F;
  EXPECT_EQ(reading.read(), 0);
  ASSERT_EQ(reading.objects().size(), 1U);
  EXPECT_EQ(pairOf(as<EgfPolygon>(reading.objects()[0])->points[2]), PointPair(0, 0));
}

TEST(Driver, AMissingContainerDrawsNothing) {
  Reading reading(kTwoRects);
  _adapterReadData record{};
  record.source = reading.source();
  record.view = reading.view();
  EXPECT_EQ(reading->ReadData(&record, nullptr), 0);
  EXPECT_EQ(openGroups.groupDepth, 0);
}

TEST(Driver, APageThatBreaksOffDoesNotSpoilTheNext) {
  Reading broken("<svg ><g ><g ><rect width='1' height='1'/><svg ><line x2='1'/>");
  EXPECT_EQ(broken.read(), 0);
  EXPECT_NE(broken->groupStack, nullptr);
  EXPECT_EQ(openGroups.groupDepth, 4);
  {
    const DrawnPage good(kTwoRects);
    EXPECT_EQ(good.result(), 0);
    EXPECT_EQ(good.objects().size(), 2U);
    EXPECT_EQ(openGroups.groupDepth, 0);
  }
  broken.newPage();
  EXPECT_EQ(broken.read(), 0);  // again, on the same reader
  EXPECT_EQ(openGroups.groupDepth, 4);
  EXPECT_TRUE(broken.objects().empty());
}

TEST(Driver, AnAdapterEndsTheStackThatItLeft) {
  Reading broken("<svg ><g ><rect width='1' height='1'/>");
  EXPECT_EQ(broken.read(), 0);
  EXPECT_NE(openGroups.currentNode, nullptr);
  broken.drop();
  EXPECT_EQ(openGroups.currentNode, nullptr);
  EXPECT_EQ(openGroups.groupDepth, 0);
}

// An adapter that ends leaves the page of another one alone.
TEST(Driver, AnAdapterDoesNotEndTheStackOfAnother) {
  Reading broken("<svg ><g ><rect width='1' height='1'/>");
  EXPECT_EQ(broken.read(), 0);
  AdapterPage other;
  ASSERT_EQ(other.openSvg(), 1);
  ASSERT_EQ(other.openGroup(), 1);
  broken.drop();
  EXPECT_EQ(openGroups.groupDepth, 2);
  EXPECT_EQ(other.send(unstroked(svgRect(0, 0, 1, 1))), 1);
  EXPECT_EQ(other.closeTag(kTagEndGroup), 1);
  EXPECT_EQ(other.closeTag(kTagEndSvg), 1);
  EXPECT_EQ(other.children().size(), 1U);
}

// The host is asked for the rectangles of turned ellipses; those of other shapes are at hand.
TEST(Driver, AHostExceptionEndsThePageAndNothingIsLeft) {
  constexpr const char* kTwoEllipses =
      "<svg ><g ><ellipse rx='1' ry='2' transform='rotate(9)'/></g><circle r='2'/></svg>";
  for (const char* call : {"EEL_AllocObject", "EEL_GetObjectMer", "EEL_AppendObject",
                           "STYLE_AppendUnique", "SEL_CLOR_AddColour", "ISL_GetProperty"}) {
    Reading reading(kTwoEllipses);
    egfhost::throwAt(call, 1);
    EXPECT_EQ(reading.read(), -5201) << call;
    EXPECT_EQ(egfhost::faultsStruck(), 1U) << call;
    egfhost::clearFaults();
    EXPECT_EQ(reading->rootGroup, nullptr) << call;
    reading.newPage();
    EXPECT_EQ(reading.read(), 0) << call;
    EXPECT_EQ(reading.objects().size(), 2U) << call;
  }
}

TEST(Driver, APageThatCannotBeginIsTakenBack) {
  for (const char* call : {"ISL_GetViewProperty", "MPL_GetResXFactor"}) {
    Reading reading(kTwoRects);
    egfhost::throwAt(call, 1);
    try {
      reading.read();
      ADD_FAILURE() << call;
    } catch (CException* exception) {
      exception->Delete();
    }
    egfhost::clearFaults();
    EXPECT_EQ(reading->rootGroup, nullptr) << call;
    EXPECT_EQ(reading->pageHeader, nullptr) << call;
    EXPECT_EQ(reading.read(), 0) << call;
  }
}

// Elements that need none of it ask the host for as little as an object and its points.
TEST(Driver, AnElementCostsItsObjectAlone) {
  AdapterPage page;
  ASSERT_EQ(page.openSvg(), 1);
  const _svg_rect element = unstroked(filled(svgRect(0, 0, 1, 1), kRed));
  Transforms list = Transforms().translate(1, 2).rotate(30);
  const _svg_circle round = list.on(unstroked(svgCircle(0, 0, 1)));
  for (int warmUp = 0; warmUp < 2; ++warmUp) {
    page.send(element);
    page.send(round);
  }
  const std::uint64_t before = egfhost::memoryCounters().allocations;
  for (int i = 0; i < 100; ++i) page.send(element);
  EXPECT_EQ(egfhost::memoryCounters().allocations - before, 200U);
  for (int i = 0; i < 100; ++i) page.send(round);
  EXPECT_EQ(egfhost::memoryCounters().allocations - before, 300U);
}

}  // namespace
}  // namespace egfsvg::test
