// Fails each allocation, and each host call that building a page makes, in turn, over a dozen small
// drawings. Nothing may crash or leak, and the result is a told one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "adapter_reader/svg_adapterreader.h"
#include "embedded_host/host.h"
#include "frame/result_codes.h"
#include "frame/svghinterface.h"

namespace egfsvg::test {
namespace {

constexpr const char* kDrawings[] = {
    "<rect width='1' height='1'/><svg ></svg>",
    "<svg viewBox='0 0 10 10' width='20' height='10'><rect width='1' height='1'/></svg>",
    "<svg ><g ><g ><rect width='5' height='5' rx='1' fill='red' opacity='.5'/></g></g></svg>",
    "<svg ><rect width='5' height='5' rx='1' transform='rotate(30)' stroke='blue'/></svg>",
    "<svg ><circle r='5' transform='skewX(30)'/><circle r='5' transform='rotate(30)'/></svg>",
    "<svg ><ellipse rx='5' ry='3' stroke='red' stroke-dasharray='5,3,2'/></svg>",
    "<svg ><line x2='5' stroke='red' stroke-dasharray='5,3'/><line y2='5' stroke='lime'/></svg>",
    "<svg ><polyline points='0,0 1,1 2,0' fill='none' stroke='red'/></svg>",
    "<svg ><polyline points='0,0 1,1 2,0' stroke-linejoin='round'/></svg>",
    "<svg ><polygon points='0,0 1,1 2,0' fill-rule='evenodd' transform='scale(2 3)'/></svg>",
    "<svg ><svg viewBox='0 0 1 1' width='5' height='5' id='a'><rect width='1' height='1'/></svg>"
    "<g ><line x2='1'/></g></svg>",
    "<svg ><path d='M0 0L5 0C5 5 0 5 0 0Z' fill='red'/><path d='M0 0A5 3 0 0 1 9 9'/></svg>",
    "<svg ><defs><linearGradient id='l'><stop offset='0' stop-color='red'/>"
    "<stop offset='1' stop-color='blue'/></linearGradient></defs>"
    "<rect width='5' height='5' fill='url(#l)'/><line x2='5' y2='1' stroke='url(#l)'/></svg>",
    "<svg ><defs><radialGradient id='r'><stop offset='0' stop-color='red'/>"
    "<stop offset='1' stop-color='blue'/></radialGradient></defs>"
    "<circle r='5' fill='url(#r)'/><circle r='5' stroke='url(#r)' fill='none'/></svg>",
    "<svg ><g ><rect width='1' height='1'/>",  // broken off
};

/// A document with an empty page, a source and an open reader.
class PageRead {
 public:
  explicit PageRead(const char* drawing)
      : document_(egfhost::createDocument()),
        view_(egfhost::createView(document_)),
        source_(egfhost::openMemory("drawing.svg", drawing)) {
    record_.container = egfhost::createPage(document_);
    record_.view = view_;
    record_.source = source_;
  }
  ~PageRead() {
    FLR_Close(source_);
    egfhost::destroyView(view_);
    egfhost::destroyDocument(document_);
  }
  PageRead(const PageRead&) = delete;
  PageRead& operator=(const PageRead&) = delete;

  /// Opens, reads and closes; the result of the first of them that failed.
  std::int32_t run() {
    _adapterOpenReader open{0, source_};
    std::int32_t result = SVGA_OpenReader(&open);
    if (result != kOk) return result;
    at<CAdapterReader>(open.reader)->document = view_;
    record_.reader = open.reader;
    result = SVGA_ReadData(&record_, nullptr);
    _adapterCloseReader close{open.reader};
    const std::int32_t closed = SVGA_CloseReader(&close);
    return result != kOk ? result : closed;
  }

 private:
  HostHandle document_;
  HostHandle view_;
  HostHandle source_;
  _adapterReadData record_{};
};

bool isTold(std::int32_t result) {
  constexpr std::int32_t kTold[] = {kOk, kExceptionCaught, kOutOfMemory, kNothingToRead};
  return std::find(std::begin(kTold), std::end(kTold), result) != std::end(kTold);
}

/// Runs the drawing with the fault at call after call, until it does not strike any more.
void sweep(const char* drawing, const char* call, egfhost::FaultKind kind,
           egfhost::FaultSpan span) {
  constexpr std::uint64_t kMostCalls = 100000;
  for (std::uint64_t n = 1; n < kMostCalls; ++n) {
    const std::vector<egfhost::SiteUse> before = egfhost::liveSites();
    std::int32_t result = kOk;
    bool struck = false;
    {
      PageRead read(drawing);
      ASSERT_TRUE(egfhost::armFault(call, n, kind, span)) << call;
      result = read.run();
      struck = egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
    }
    const auto left = egfhost::liveSitesSince(before);
    ASSERT_TRUE(left.empty()) << call << " " << n << " of " << drawing << "\n"
                              << egfhost::describeSites(left);
    ASSERT_TRUE(isTold(result)) << result << ": " << call << " " << n << " of " << drawing;
    if (!struck) return;
  }
  FAIL() << call << " never stops being called";
}

class PageSweep : public testing::TestWithParam<const char*> {};

TEST_P(PageSweep, EachAllocationFailsOnce) {
  sweep(GetParam(), "RMM", egfhost::FaultKind::kFail, egfhost::FaultSpan::kOnce);
}

TEST_P(PageSweep, EachAllocationFailsForEver) {
  sweep(GetParam(), "RMM", egfhost::FaultKind::kFail, egfhost::FaultSpan::kForEver);
}

constexpr const char* kPageCalls[] = {"EEL_AllocObject",          "EEL_PutObject",
                                      "EEL_AppendObject",         "EEL_GetObjectMer",
                                      "EEL_XlatEllipseToPolygon", "EGF_CreateDashRecord",
                                      "EGF_AppendDashRecord",     "STYLE_AppendUnique",
                                      "SEL_CLOR_Alloc",           "SEL_CLOR_AddColour",
                                      "ISL_GetProperty",          "ISL_GetViewProperty",
                                      "OBJ_GetRootTrace",         "MPL_GetResXFactor",
                                      "MSG_LogMsg_Named"};

TEST_P(PageSweep, EachHostCallFails) {
  for (const char* call : kPageCalls) {
    sweep(GetParam(), call, egfhost::FaultKind::kFail, egfhost::FaultSpan::kOnce);
    sweep(GetParam(), call, egfhost::FaultKind::kFail, egfhost::FaultSpan::kForEver);
  }
}

TEST_P(PageSweep, EachHostCallThrows) {
  for (const char* call : kPageCalls) {
    sweep(GetParam(), call, egfhost::FaultKind::kThrow, egfhost::FaultSpan::kOnce);
  }
}

// A sweep over a call that no drawing makes would prove nothing.
TEST(PageSweepCalls, EachIsMadeBySomeDrawing) {
  for (const char* call : kPageCalls) {
    bool made = false;
    for (const char* drawing : kDrawings) {
      PageRead read(drawing);
      ASSERT_TRUE(egfhost::armFault(call, 1, egfhost::FaultKind::kFail, egfhost::FaultSpan::kOnce));
      read.run();
      made = made || egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
    }
    EXPECT_TRUE(made) << call;
  }
}

INSTANTIATE_TEST_SUITE_P(Drawings, PageSweep, testing::ValuesIn(kDrawings));

}  // namespace
}  // namespace egfsvg::test
