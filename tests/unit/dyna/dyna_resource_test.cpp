#include <array>

#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_blocks.h"
#include "host/palettes.h"
#include "tests/support/drawn_page.h"
#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

constexpr std::uint32_t kUserData = 4711;

constexpr const char* kTwoPages =
    "<svg width='200' height='100'>"
    "<g id='Page_1'><rect x='1' y='2' width='30' height='40' fill='#ff0000'/></g>"
    "<g id='Page_2'><rect x='5' y='6' width='10' height='20' fill='#00ff00'/>"
    "<circle cx='50' cy='50' r='5' fill='#00ff00'/></g></svg>";
constexpr const char* kNoPages =
    "<svg width='200' height='100'><rect x='10' y='20' width='30' height='40'/></svg>";
constexpr const char* kNamesResolution =
    "<!-- User agent resolution:150 dpi --><svg width='20' height='10'>"
    "<rect x='1' y='1' width='2' height='3'/></svg>";

struct PageRequest {
  std::uint32_t page;
  HostHandle view;
  HostHandle object;
};

class DynaResourceTest : public WholeFileTest {
 protected:
  void SetUp() override {
    WholeFileTest::SetUp();
    document = egfhost::createDocument();
    view = egfhost::createView(document, 96);
  }
  void TearDown() override {
    if (resource != 0) destroy();
    egfhost::destroyView(view);
    egfhost::destroyDocument(document);
    WholeFileTest::TearDown();
  }

  HostHandle create(const std::string& svg, int deleteFlag = 0) {
    path = folder.write("drawing.svg", svg);
    const QV_FILEID id = idOf(path);
    const HostHandle file = egfhost::fileObject(path);
    resource = iSVG_CreateDynaLoadResource(file, kUserData, &id, deleteFlag);
    OBJ_DestroyObjectTrace(file, RMM_SITE);
    return resource;
  }
  SvgDynaRes& record() { return *static_cast<SvgDynaRes*>(egfhost::dynaRecord(resource)); }
  int call(DynaOperation operation, std::uintptr_t argument = 0) {
    return egfhost::dynaCall(resource, operation, argument);
  }
  int nextPage(std::uint32_t* page) {
    return call(kDynaNextPage, reinterpret_cast<std::uintptr_t>(page));
  }
  int load(PageRequest& request) {
    return call(kDynaLoadPage, reinterpret_cast<std::uintptr_t>(&request));
  }
  int destroy() {
    const int result = call(kDynaDestroy);
    resource = 0;
    return result;
  }
  static std::size_t objectsOf(HostHandle tree) {
    return DrawnPage::children(egfhost::rootOf(tree)).size();
  }

  // A page group follows the viewport box.
  static std::size_t objectsInPageGroup(HostHandle tree) {
    return DrawnPage::children(DrawnPage::children(egfhost::rootOf(tree)).back()).size();
  }

  std::string path;
  HostHandle document = 0;
  HostHandle view = 0;
  HostHandle resource = 0;
};

TEST_F(DynaResourceTest, ANewResource) {
  ASSERT_NE(0u, create(kTwoPages));
  EXPECT_EQ(0, record().flags);
  EXPECT_EQ(kUserData, record().userData);
  EXPECT_EQ(-1, record().currentPage);
  EXPECT_EQ(2, record().pageCount);
  EXPECT_EQ(0u, record().pages.count);
  EXPECT_NE(0u, record().reader);
  EXPECT_STREQ("drawing.svg", record().fileId.baseName);
  EXPECT_EQ(openBefore, openFiles());
  EXPECT_EQ(0, destroy());
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(DynaResourceTest, NoFileNoResource) {
  EXPECT_EQ(0u, iSVG_CreateDynaLoadResource(0, 1, nullptr, 0));
  EXPECT_EQ(0u, iSVG_CreateDynaLoadResource(document, 1, nullptr, 0));
}

TEST_F(DynaResourceTest, AMissingFileGivesNone) {
  const HostHandle file = egfhost::fileObject(folder.file("none.svg"));
  EXPECT_EQ(0u, iSVG_CreateDynaLoadResource(file, 1, nullptr, 0));
  OBJ_DestroyObjectTrace(file, RMM_SITE);
}

TEST_F(DynaResourceTest, TheFileGoesWithTheResourceWhenAsked) {
  ASSERT_NE(0u, create(kTwoPages, 1));
  EXPECT_EQ(kDynaDeleteFile, record().flags);
  EXPECT_EQ(0, destroy());
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(DynaResourceTest, NextPageStopsAtTheLast) {
  ASSERT_NE(0u, create(kTwoPages));
  std::uint32_t page = 99;
  EXPECT_EQ(0, nextPage(&page));
  EXPECT_EQ(0u, page);
  EXPECT_EQ(0, nextPage(&page));
  EXPECT_EQ(1u, page);
  page = 99;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(-1, nextPage(&page));
    EXPECT_EQ(99u, page);
    EXPECT_EQ(1, record().currentPage);
  }
}

TEST_F(DynaResourceTest, SeveralPagesAreTold) {
  ASSERT_NE(0u, create(kTwoPages));
  EXPECT_EQ(0, call(kDynaHasPages));
  destroy();
  ASSERT_NE(0u, create("<svg><g id='Page_1'><rect width='1' height='1'/></g></svg>"));
  EXPECT_EQ(-1, call(kDynaHasPages));
}

TEST_F(DynaResourceTest, AFileWithoutPageGroupsHasItsWholeAsPageZero) {
  ASSERT_NE(0u, create(kNoPages));
  EXPECT_EQ(0, record().pageCount);
  std::uint32_t page = 99;
  EXPECT_EQ(-1, nextPage(&page));
  EXPECT_EQ(-1, record().currentPage);
  EXPECT_EQ(-1, call(kDynaHasPages));
  PageRequest request{0, view, 0};
  EXPECT_EQ(0, load(request));
  EXPECT_EQ(2u, objectsOf(request.object));  // the viewport box and the rect
}

TEST_F(DynaResourceTest, PagesLoadOnceAndKeepTheirPlace) {
  ASSERT_NE(0u, create(kTwoPages));
  PageRequest second{1, view, 0};
  ASSERT_EQ(0, load(second));
  ASSERT_NE(0u, second.object);
  EXPECT_EQ(2u, record().pages.count);
  EXPECT_EQ(0u, record().pages.items[0]);
  EXPECT_EQ(second.object, record().pages.items[1]);
  EXPECT_EQ(kUserData, at<EgfTreeBlock>(second.object)->userData);
  EXPECT_EQ(kUserData, ISL_GetProperty(view, kDocumentUserData));
  EXPECT_EQ(8u, ISL_GetProperty(view, kDocumentLoadState));
  const std::uint64_t opens = egfhost::fileCounters().opens;
  PageRequest again{1, view, 0};
  EXPECT_EQ(0, load(again));
  EXPECT_EQ(second.object, again.object);
  EXPECT_EQ(opens, egfhost::fileCounters().opens);
  PageRequest first{0, view, 0};
  EXPECT_EQ(0, load(first));
  EXPECT_NE(first.object, second.object);
  EXPECT_EQ(1u, objectsInPageGroup(first.object));
  EXPECT_EQ(2u, objectsInPageGroup(second.object));
}

TEST_F(DynaResourceTest, ALoadedPageIsPlacedInItsView) {
  ASSERT_NE(0u, create(kNoPages));
  PageRequest request{0, view, 0};
  ASSERT_EQ(0, load(request));
  _mpl_spacerect_tag placed{};
  ASSERT_EQ(0, MPL_GetMER(ISL_GetProperty(view, kDocumentMapSource), &placed));
  // The viewport box is 200 x 100 pixels, and the last pixel counts.
  EXPECT_EQ(0.0F, float{placed.left});
  EXPECT_EQ(0.0F, float{placed.top});
  EXPECT_EQ(201.0F, float{placed.right});
  EXPECT_EQ(101.0F, float{placed.bottom});
}

TEST_F(DynaResourceTest, TheViewGetsTheColoursOfThePage) {
  ASSERT_NE(0u, create(kTwoPages));
  auto& reader = *at<CAdapterReader>(record().reader);
  PageRequest request{0, view, 0};
  ASSERT_EQ(0, load(request));
  const auto* first = at<_sel_colour_list>(ISL_GetViewProperty(0, view, kViewPalette));
  ASSERT_NE(nullptr, first);
  EXPECT_LT(0u, first->count);
  EXPECT_NE(first, reader.palette);
  ASSERT_NE(nullptr, reader.palette);
  EXPECT_EQ(0u, reader.palette->count);
}

TEST_F(DynaResourceTest, TheFileNamesTheResolutionOfTheView) {
  ASSERT_NE(0u, create(kNamesResolution));
  PageRequest request{0, view, 0};
  ASSERT_EQ(0, load(request));
  EXPECT_EQ(150.0, egfhost::resolutionOf(view));
}

TEST_F(DynaResourceTest, APageWithoutAView) {
  ASSERT_NE(0u, create(kNamesResolution));
  PageRequest request{0, 0, 0};
  ASSERT_EQ(0, load(request));
  EXPECT_EQ(2u, objectsOf(request.object));
  EXPECT_EQ(96.0, egfhost::resolutionOf(view));
  EXPECT_EQ(0u, ISL_GetViewProperty(0, view, kViewPalette));
  EXPECT_EQ(0, call(kDynaUnloadPage, 0));
  // The reader then serves a view.
  request.view = view;
  ASSERT_EQ(0, load(request));
  EXPECT_EQ(150.0, egfhost::resolutionOf(view));
}

TEST_F(DynaResourceTest, AnUnloadedPageLoadsAnew) {
  ASSERT_NE(0u, create(kTwoPages));
  EXPECT_EQ(-1, call(kDynaUnloadPage, 0));
  PageRequest request{1, view, 0};
  ASSERT_EQ(0, load(request));
  const std::uint64_t live = egfhost::memoryCounters().liveBlocks;
  EXPECT_EQ(-1, call(kDynaUnloadPage, 0));
  EXPECT_EQ(0, call(kDynaUnloadPage, 1));
  EXPECT_GT(live, egfhost::memoryCounters().liveBlocks);
  EXPECT_EQ(0u, record().pages.items[1]);
  EXPECT_EQ(-1, call(kDynaUnloadPage, 1));
  EXPECT_EQ(-1, call(kDynaUnloadPage, 2));
  EXPECT_EQ(-1, call(kDynaUnloadPage, ~std::uintptr_t{0}));
  EXPECT_EQ(0, load(request));
}

TEST_F(DynaResourceTest, APageThatCannotBeReadLeavesItsPlaceFree) {
  ASSERT_NE(0u, create(kTwoPages));
  std::filesystem::rename(path, folder.file("away"));
  PageRequest request{1, view, 77};
  EXPECT_EQ(-1, load(request));
  EXPECT_EQ(77u, request.object);
  EXPECT_EQ(2u, record().pages.count);
  EXPECT_EQ(0u, record().pages.items[1]);
  std::filesystem::rename(folder.file("away"), path);
  EXPECT_EQ(0, load(request));
}

TEST_F(DynaResourceTest, PageNumbersBeyondAllBounds) {
  ASSERT_NE(0u, create(kTwoPages));
  for (const std::uint32_t page : {0xffffffffU, 0xfffffffeU, 0x80000000U}) {
    PageRequest request{page, view, 0};
    EXPECT_EQ(-1, load(request)) << page;
  }
  EXPECT_EQ(0u, record().pages.count);
}

TEST_F(DynaResourceTest, ACallDoesNotReEnter) {
  ASSERT_NE(0u, create(kTwoPages));
  record().flags |= kDynaBusy;
  const SvgDynaRes copy = record();
  std::uint32_t page = 99;
  for (const int operation : {1, 2, 3, 4, 5, 6}) {
    EXPECT_EQ(-1,
              SVG_DynaResCallback(operation, &record(), reinterpret_cast<std::uintptr_t>(&page)));
    EXPECT_EQ(0, std::memcmp(&copy, &record(), sizeof copy)) << operation;
  }
  record().flags &= static_cast<std::uint8_t>(~kDynaBusy);
  EXPECT_EQ(0, nextPage(&page));
  EXPECT_EQ(0, record().flags & kDynaBusy);
}

TEST_F(DynaResourceTest, OperationsThatAreNone) {
  ASSERT_NE(0u, create(kTwoPages));
  for (const int operation : {0, 6, -1, 1000}) {
    EXPECT_EQ(-1, SVG_DynaResCallback(operation, &record(), 0)) << operation;
  }
  EXPECT_EQ(-1, SVG_DynaResCallback(kDynaNextPage, nullptr, 0));
  EXPECT_EQ(-1, call(kDynaNextPage));
  EXPECT_EQ(-1, call(kDynaLoadPage));
  EXPECT_EQ(-1, record().currentPage);
  EXPECT_EQ(0, record().flags & kDynaBusy);
}

// Every call of the host that a resource makes, failing once: no resource, nothing left behind.
TEST_F(DynaResourceTest, AFailingHostAtTheStart) {
  for (const char* call : {"RMM", "FLR_Open", "FLR_GetFullFilename", "DOC_CreateDynaResource"}) {
    for (std::uint64_t n = 1;; ++n) {
      ASSERT_TRUE(egfhost::failAt(call, n)) << call;
      const std::uint64_t struckBefore = egfhost::faultsStruck();
      const HostHandle made = create(kTwoPages, 0);
      const bool struck = egfhost::faultsStruck() > struckBefore;
      egfhost::clearFaults();
      EXPECT_EQ(openBefore, openFiles());
      if (made != 0) destroy();
      if (!struck) break;
      if (std::string_view(call) != "RMM") {
        EXPECT_EQ(0u, made) << call << " " << n;
      }
      ASSERT_LT(n, 500u);
    }
  }
}

// Memory that runs out, once or for good, leaves the page's place free and the resource usable.
TEST_F(DynaResourceTest, PagesWithoutMemory) {
  ASSERT_NE(0u, create(kTwoPages));
  for (const auto span : {egfhost::FaultSpan::kOnce, egfhost::FaultSpan::kForEver}) {
    int refused = 0;
    bool struck = true;
    for (std::uint64_t n = 1; struck; ++n) {
      ASSERT_TRUE(egfhost::failAllocation(n, span));
      PageRequest request{1, view, 77};
      const int result = load(request);
      struck = egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
      EXPECT_TRUE(result == 0 || result == -1) << n << " " << result;
      EXPECT_EQ(0, record().flags) << n;
      EXPECT_EQ(openBefore, openFiles()) << n;
      if (result == 0) {
        EXPECT_EQ(0, call(kDynaUnloadPage, 1)) << n;
        continue;
      }
      ++refused;
      EXPECT_EQ(77u, request.object) << n;
      EXPECT_EQ(-1, call(kDynaUnloadPage, 1)) << n;
      ASSERT_LT(n, 5000u);
    }
    EXPECT_LT(5, refused);
  }
  PageRequest request{1, view, 0};
  ASSERT_EQ(0, load(request));
  EXPECT_EQ(2u, objectsInPageGroup(request.object));
}

TEST_F(DynaResourceTest, AThrowingHostKeepsNothingBusy) {
  const char* kCalls[] = {"FLR_Open",         "FLR_Buffer",          "FLR_Seek",
                          "FLR_Read",         "ISL_GetViewProperty", "ISL_SetProperty",
                          "ISL_GetProperty",  "EEL_CreateEdtDesc",   "DOC_Get",
                          "EEL_GetObjectMer", "ISL_SetViewProperty", "LST_InsertItems",
                          "EEL_AllocObject"};
  ASSERT_NE(0u, create(kNoPages));
  for (const char* name : kCalls) {
    for (const auto kind : {egfhost::FaultKind::kThrow, egfhost::FaultKind::kFail}) {
      ASSERT_TRUE(egfhost::armFault(name, 1, kind)) << name;
      PageRequest request{0, view, 0};
      const int result = load(request);
      egfhost::clearFaults();
      EXPECT_EQ(0, record().flags & kDynaBusy) << name;
      EXPECT_TRUE(result == 0 || result == -1) << name << " " << result;
      EXPECT_EQ(openBefore, openFiles()) << name;
      if (result == 0) {
        EXPECT_EQ(0, call(kDynaUnloadPage));
      }
    }
  }
  PageRequest request{0, view, 0};
  EXPECT_EQ(0, load(request));
}

}  // namespace
}  // namespace egfsvg::test
