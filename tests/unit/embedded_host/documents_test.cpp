#include "host/documents.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "embedded_host/host.h"
#include "host/egf.h"
#include "host/egf_blocks.h"
#include "host/egf_codes.h"
#include "host/egf_small.h"
#include "host/memory.h"
#include "host/objects.h"
#include "host/palettes.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

class DocumentTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    document = createDocument();
    view = createView(document, 120);
    ASSERT_NE(0u, view);
  }
  void TearDown() override {
    destroyView(view);
    destroyDocument(document);
    HostTest::TearDown();
  }

  std::uint32_t referencesOf(HostHandle tree) {
    return egfsvg::at<egfsvg::EgfTreeBlock>(tree)->header.references;
  }

  HostHandle document = 0;
  HostHandle view = 0;
};

TEST_F(DocumentTest, TheMapIsFoundFromEitherPlace) {
  const HostHandle map = ISL_GetViewProperty(view, 0, kViewMap);
  ASSERT_NE(0u, map);
  EXPECT_EQ(map, ISL_GetViewProperty(0, view, kViewMap));
  EXPECT_EQ(map, ISL_GetViewProperty(document, 0, kViewMap));
  EXPECT_EQ(map, ISL_GetViewProperty(0, document, kViewMap));
  EXPECT_EQ(0u, ISL_GetViewProperty(0, 0, kViewMap));
  EXPECT_EQ(0u, ISL_GetViewProperty(map, 0, kViewMap));
}

TEST_F(DocumentTest, ResolutionOfAMap) {
  const HostHandle map = ISL_GetViewProperty(view, 0, kViewMap);
  double x = 0;
  double y = 0;
  EXPECT_EQ(0, MPL_GetResXFactor(1, 1, map, &x));
  EXPECT_EQ(0, MPL_GetResYFactor(1, 1, map, &y));
  EXPECT_EQ(120.0, x);
  EXPECT_EQ(120.0, y);
  EXPECT_EQ(0, MPL_SetResolution(200, 100, 1, 0, map));
  MPL_GetResXFactor(1, 1, map, &x);
  MPL_GetResYFactor(1, 1, map, &y);
  EXPECT_EQ(200.0, x);
  EXPECT_EQ(100.0, y);
  EXPECT_EQ(200.0, resolutionOf(view));
}

TEST_F(DocumentTest, AMissingMapHasTheUsualResolution) {
  double x = 1;
  double y = 1;
  EXPECT_NE(0, MPL_GetResXFactor(1, 1, 0, &x));
  EXPECT_NE(0, MPL_GetResYFactor(1, 1, 0, &y));
  EXPECT_EQ(96.0, x);
  EXPECT_EQ(96.0, y);
  EXPECT_NE(0, MPL_SetResolution(10, 10, 1, 0, 0));
  EXPECT_NE(0, MPL_GetResXFactor(1, 1, 0, nullptr));
}

TEST_F(DocumentTest, UselessResolutionsChangeNothing) {
  const HostHandle map = ISL_GetViewProperty(view, 0, kViewMap);
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const double value : {0.0, -1.0, kInfinite, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_NE(0, MPL_SetResolution(value, 96, 1, 0, map));
    EXPECT_NE(0, MPL_SetResolution(96, value, 1, 0, map));
    EXPECT_EQ(120.0, resolutionOf(view));
  }
}

TEST_F(DocumentTest, WorkUnitsAreSpaceUnitsOver4096) {
  const _mpl_spacerect_tag space{4096, 8192, -2048, 1};
  _mpl_spacerect_tag work{};
  EXPECT_EQ(0, MPL_XWORKtoWORK(&space, &work));
  EXPECT_EQ(1.0F, float{work.left});
  EXPECT_EQ(2.0F, float{work.right});
  EXPECT_EQ(-0.5F, float{work.top});
  EXPECT_EQ(1.0F / 4096, float{work.bottom});
  EXPECT_NE(0, MPL_XWORKtoWORK(nullptr, &work));
}

TEST_F(DocumentTest, TheMapSourceGivesTheCompositionLocation) {
  const HostHandle source = ISL_GetProperty(view, kDocumentMapSource);
  _mpl_spacerect_tag rect{1, 1, 1, 1};
  EXPECT_NE(0, MPL_GetMER(source, &rect));
  EXPECT_EQ(0.0F, float{rect.right});
  EXPECT_EQ(0, MPL_SetCOMPloc(ISL_GetViewProperty(view, 0, kViewMap), 10, 20, 100, 50));
  EXPECT_EQ(0, MPL_GetMER(source, &rect));
  EXPECT_EQ(10.0F, float{rect.left});
  EXPECT_EQ(110.0F, float{rect.right});
  EXPECT_EQ(20.0F, float{rect.top});
  EXPECT_EQ(70.0F, float{rect.bottom});
  EXPECT_NE(0, MPL_SetCOMPloc(0, 0, 0, 1, 1));
  EXPECT_NE(0, MPL_GetMER(0, &rect));
}

TEST_F(DocumentTest, StyleTablesHangOnTheDocument) {
  constexpr std::uint32_t kTables[] = {165, 166, 167, 168, 170};
  std::vector<HostHandle> seen;
  for (const std::uint32_t property : kTables) {
    const HostHandle root = OBJ_GetRootTrace(view, RMM_SITE);
    const HostHandle table = ISL_GetProperty(root, property);
    EXPECT_EQ(table, ISL_GetProperty(document, property));
    const std::uint32_t value = property;
    EXPECT_EQ(1u, STYLE_AppendUnique(table, sizeof value, &value));
    EXPECT_EQ(1u, STYLE_QueryTotalStyleCount(table));
    EXPECT_NE(0, ISL_SetProperty(document, property, 1));
    EXPECT_EQ(std::count(seen.begin(), seen.end(), table), 0);
    seen.push_back(table);
  }
  EXPECT_EQ(0u, ISL_GetProperty(document, 169));
}

TEST_F(DocumentTest, WordsOfADocument) {
  EXPECT_EQ(0x18170000u, ISL_GetProperty(document, kDocumentKind));
  EXPECT_EQ(0, ISL_SetProperty(document, kDocumentKind, kDocumentKindDrawingSheet));
  EXPECT_EQ(0x18180000u, ISL_GetProperty(view, kDocumentKind));
  EXPECT_EQ(0u, ISL_GetProperty(document, kDocumentUserData));
  EXPECT_EQ(0, ISL_SetProperty(view, kDocumentUserData, 77));
  EXPECT_EQ(0, ISL_SetProperty(view, kDocumentLoadState, kDocumentLoadStateDemand));
  EXPECT_EQ(77u, ISL_GetProperty(document, kDocumentUserData));
  EXPECT_EQ(8u, ISL_GetProperty(document, kDocumentLoadState));
  EXPECT_EQ(0u, ISL_GetProperty(0, kDocumentKind));
  EXPECT_NE(0, ISL_SetProperty(0, kDocumentKind, 1));
}

TEST_F(DocumentTest, RootsAndContexts) {
  const HostHandle page = createPage(document);
  for (const HostHandle each : {document, view, page}) {
    EXPECT_EQ(document, OBJ_GetRootTrace(each, RMM_SITE));
    EXPECT_EQ(document, DOC_Get(each, 1, 0, 0));
  }
  EXPECT_EQ(0u, OBJ_GetRootTrace(0, RMM_SITE));
  EXPECT_EQ(0u, DOC_Get(12345, 1, 0, 0));
}

TEST_F(DocumentTest, TheTreeIsGivenWithAReference) {
  EXPECT_EQ(0u, ISL_GetProperty(document, kDocumentObjectTree));
  const HostHandle page = createPage(document);
  ASSERT_NE(0u, page);
  EXPECT_EQ(page, documentTree(view));
  EXPECT_EQ(1u, referencesOf(page));
  EXPECT_EQ(page, ISL_GetProperty(view, kDocumentObjectTree));
  EXPECT_EQ(2u, referencesOf(page));
  EXPECT_EQ(0, OBJ_DestroyObjectTrace(page, RMM_SITE));
  EXPECT_EQ(1u, referencesOf(page));
  EXPECT_EQ(page, documentTree(document));
  EXPECT_EQ(0, OBJ_DestroyObjectTrace(page, RMM_SITE));
  EXPECT_EQ(0u, documentTree(document));
  EXPECT_NE(0, OBJ_DestroyObjectTrace(page, RMM_SITE));
}

TEST_F(DocumentTest, ADocumentEndsWithItsTreeWhateverTheCount) {
  const HostHandle page = createPage(document);
  ISL_GetProperty(document, kDocumentObjectTree);
  OBJ_AddReferenceTrace(page, RMM_SITE);
  EXPECT_EQ(3u, referencesOf(page));
  destroyDocument(document);
  EXPECT_EQ(0u, ISL_GetViewProperty(view, 0, kViewMap));
  EXPECT_EQ(0u, DOC_Get(view, 1, 0, 0));
}

TEST_F(DocumentTest, ANewPageReplacesTheOldOne) {
  const std::uint64_t before = memoryCounters().liveBlocks;
  createPage(document);
  const std::uint64_t one = memoryCounters().liveBlocks;
  createPage(document);
  EXPECT_EQ(one, memoryCounters().liveBlocks);
  EXPECT_GT(one, before);
}

TEST_F(DocumentTest, AFreeTreeEndsAtItsLastReference) {
  const HostHandle tree = EEL_CreateEdtDesc(0, 0);
  EXPECT_EQ(0u, OBJ_GetRootTrace(tree, RMM_SITE));
  EXPECT_EQ(0, OBJ_AddReferenceTrace(tree, RMM_SITE));
  EXPECT_EQ(0, OBJ_DestroyObjectTrace(tree, RMM_SITE));
  EXPECT_EQ(0, OBJ_DestroyObjectTrace(tree, RMM_SITE));
  EXPECT_NE(0, OBJ_AddReferenceTrace(tree, RMM_SITE));
}

TEST_F(DocumentTest, AViewOwnsItsPalette) {
  for (int i = 0; i < 2; ++i) {
    _sel_colour_list* const list = SEL_CLOR_Alloc(256, RMM_SITE);
    SEL_CLOR_AddColour(list, egfsvg::colourOf(1));
    const HostHandle handle = egfsvg::handleOf(list);
    EXPECT_EQ(0, ISL_SetViewProperty(0, view, kViewPalette, handle));
    EXPECT_EQ(handle, ISL_GetViewProperty(0, view, kViewPalette));
    EXPECT_EQ(0, ISL_SetViewProperty(0, view, kViewPalette, handle));
  }
  EXPECT_NE(0, ISL_SetViewProperty(0, document, kViewPalette, 0));
  EXPECT_NE(0, ISL_SetViewProperty(0, view, kViewMap, 0));
  EXPECT_EQ(0, ISL_SetViewProperty(view, 0, 99, 5));
  EXPECT_EQ(5u, ISL_GetViewProperty(view, 0, 99));
}

TEST_F(DocumentTest, EachAllocationOfADocumentCanFail) {
  countCalls();
  destroyDocument(createDocument());
  const std::uint64_t allocations = callCount("RMM");
  EXPECT_GE(allocations, 7u);
  for (std::uint64_t n = 1; n <= allocations; ++n) {
    failAllocation(n);
    EXPECT_EQ(0u, createDocument()) << n;
  }
  failAllocation(1);
  EXPECT_EQ(0u, createView(document));
  EXPECT_EQ(0u, createView(0));
}

TEST_F(DocumentTest, InjectedFailures) {
  const HostHandle map = ISL_GetViewProperty(view, 0, kViewMap);
  double factor = 0;
  failAt("MPL_GetResXFactor", 1);
  EXPECT_NE(0, MPL_GetResXFactor(1, 1, map, &factor));
  EXPECT_EQ(96.0, factor);
  failAt("ISL_GetProperty", 1);
  EXPECT_EQ(0u, ISL_GetProperty(document, kDocumentKind));
  failAt("ISL_GetViewProperty", 1);
  EXPECT_EQ(0u, ISL_GetViewProperty(view, 0, kViewMap));
  failAt("DOC_Get", 1);
  EXPECT_EQ(0u, DOC_Get(view, 1, 0, 0));
  EXPECT_EQ(document, DOC_Get(view, 1, 0, 0));
}

struct DynaCall {
  int operation;
  std::uintptr_t argument;
};
std::vector<DynaCall> dynaCalls;

int dynaProcedure(int operation, void* record, std::uintptr_t argument) {
  EXPECT_EQ(&dynaCalls, record);
  dynaCalls.push_back({operation, argument});
  return operation * 10;
}

TEST_F(DocumentTest, DemandLoadedResourcesAreCalledUntilTheyEnd) {
  dynaCalls.clear();
  const HostHandle resource = DOC_CreateDynaResource(&dynaProcedure, &dynaCalls);
  ASSERT_NE(0u, resource);
  EXPECT_EQ(&dynaCalls, dynaRecord(resource));
  EXPECT_EQ(40, dynaCall(resource, kDynaUnloadPage, 3));
  EXPECT_EQ(10, dynaCall(resource, kDynaDestroy, 0));
  EXPECT_EQ(-1, dynaCall(resource, kDynaNextPage, 0));
  EXPECT_EQ(nullptr, dynaRecord(resource));
  ASSERT_EQ(2u, dynaCalls.size());
  EXPECT_EQ(3u, dynaCalls[0].argument);
  EXPECT_EQ(0u, DOC_CreateDynaResource(nullptr, &dynaCalls));
  EXPECT_EQ(0u, DOC_CreateDynaResource(&dynaProcedure, nullptr));
}

TEST_F(DocumentTest, StandardObjectsAreGivenAsCopies) {
  EXPECT_EQ(nullptr, ETX_ObjQueryStdObj(5, 1, 0));
  _egf_obj* const line = EEL_AllocObject(egfsvg::kClassLine, RMM_SITE);
  ASSERT_TRUE(setStandardObject(5, line));
  EEL_DestroyObject(line);
  _egf_obj* const copy = ETX_ObjQueryStdObj(5, 1, 0);
  ASSERT_NE(nullptr, copy);
  EXPECT_EQ(5, EGF_GetObjectClass(copy));
  EEL_DestroyObject(copy);
  EXPECT_EQ(nullptr, ETX_ObjQueryStdObj(6, 1, 0));
  clearStandardObjects();
  EXPECT_EQ(nullptr, ETX_ObjQueryStdObj(5, 1, 0));
  EXPECT_FALSE(setStandardObject(5, nullptr));
}

}  // namespace
}  // namespace egfhost
