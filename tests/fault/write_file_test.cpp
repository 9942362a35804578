// Saving with each call of the host failing in turn: the told results, nothing left behind, and a
// document that can be saved as if nothing had been.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "tests/support/saved_document.h"

namespace egfsvg::test {
namespace {

using egfhost::FaultKind;
using egfhost::FaultSpan;

constexpr std::uint64_t kMostCalls = 5000;

std::set<std::string> temporaries() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(FLR_GetTempPath())) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

void draw(SavedDocument& document) {
  TreeBuilder tree;
  const AreaPen pen{
      .width = 2.0, .stroke = 0x0000ff, .fill = 0xff0000, .lineStyle = tree.dash({4.0, -2.0})};
  _egf_gdi_fillparms_tag shared{};
  appendStyle(document.document(), kStylePen, shared);
  tree.add(box(0, 0, 100, 50, pen));
  tree.add(ellipse(50, 25, 20, 10, pen, 30.0));
  tree.add(group({line({0, 0}, {100, 50}), polyline({{0, 0}, {10, 10}, {20, 0}})}));
  tree.add(
      arrowLine({0, 0}, {100, 0},
                {.closed = true, .both = true, .points = {{90, 5}, {90, -5}, {10, 5}, {10, -5}}}));
  tree.add(polygon({{0, 0}, {100, 0}, {50, 50}}, pen));
  document.take(tree);
}

class WriteFaultTest : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { egfhost::resetForTest(); }
  void TearDown() override { egfhost::resetForTest(); }

  // Saves with the n-th call failing; false when there was no n-th call.
  bool saveFailing(const char* call, std::uint64_t n, FaultKind kind,
                   FaultSpan span = FaultSpan::kOnce) {
    egfhost::clearFaults();
    EXPECT_TRUE(egfhost::armFault(call, n, kind, span)) << call;
    result = document.save(&written, GetParam());
    const bool struck = egfhost::faultsStruck() > 0;
    egfhost::clearFaults();
    return struck;
  }

  // What holds after each save, whatever failed.
  void checkWorld(const std::string& what) {
    EXPECT_EQ(before, temporaries()) << what;
    EXPECT_EQ(1u, document.treeReferences()) << what;
    EXPECT_EQ(reference, document.text()) << what;
    if (result != 0) {
      EXPECT_EQ("", written) << what;
    }
  }

  std::string textOf(const std::string& bytes) const {
    return GetParam() == 1 ? unpacked(bytes) : bytes;
  }

  void prepare() {
    draw(document);
    before = temporaries();
    reference = document.text();
    ASSERT_NE("", reference);
  }

  SavedDocument document;
  std::set<std::string> before;
  std::string reference;
  std::string written;
  std::int32_t result = 0;
};

TEST_P(WriteFaultTest, EachAllocation) {
  prepare();
  int refused = 0;
  for (std::uint64_t n = 1; saveFailing("RMM", n, FaultKind::kFail); ++n) {
    const std::string what = "allocation " + std::to_string(n);
    checkWorld(what);
    // What fails inside a drawing's object may leave out that object; the file is whole all the
    // same. A missing writer gives 2, and a stream or temporary file that is not there -1 or 1.
    if (result == 0) {
      EXPECT_TRUE(textOf(written).ends_with("</svg>\n")) << what;
    } else {
      ++refused;
      EXPECT_TRUE(result == 2 || result == 1 || result == -1) << what << ": " << result;
    }
    ASSERT_LT(n, kMostCalls);
  }
  EXPECT_LT(4, refused);
  EXPECT_EQ(0, result);
  EXPECT_EQ(reference, textOf(written));
}

// Memory that has run out is never taken for a good save.
TEST_P(WriteFaultTest, NoAllocationFromThenOn) {
  prepare();
  std::uint64_t n = 1;
  for (; saveFailing("RMM", n, FaultKind::kFail, FaultSpan::kForEver); ++n) {
    const std::string what = "allocations from " + std::to_string(n);
    checkWorld(what);
    EXPECT_TRUE(result == 2 || result == 1 || result == -1) << what << ": " << result;
    ASSERT_LT(n, kMostCalls);
  }
  EXPECT_LT(20u, n);
  EXPECT_EQ(0, result);
}

TEST_P(WriteFaultTest, NoLineFromThenOn) {
  prepare();
  const std::uint64_t count = linesOf(reference).size();
  for (std::uint64_t n = 1; n <= count; ++n) {
    ASSERT_TRUE(saveFailing("FLR_PutLine", n, FaultKind::kFail, FaultSpan::kForEver)) << n;
    EXPECT_EQ(1, result) << n;
    checkWorld("lines from " + std::to_string(n));
  }
}

TEST_P(WriteFaultTest, EachLine) {
  prepare();
  int refused = 0;
  for (std::uint64_t n = 1; saveFailing("FLR_PutLine", n, FaultKind::kFail); ++n) {
    const std::string what = "line " + std::to_string(n);
    checkWorld(what);
    EXPECT_TRUE(result == 0 || result == 1) << what << ": " << result;
    if (result == 1) ++refused;
    ASSERT_LT(n, kMostCalls);
  }
  EXPECT_LT(4, refused);
}

// The lines ahead of the drawing and the last one: their failure ends the save.
TEST_P(WriteFaultTest, LinesOfTheFrame) {
  prepare();
  const std::uint64_t count = linesOf(reference).size();
  for (const std::uint64_t n : {std::uint64_t{1}, std::uint64_t{2}, std::uint64_t{3}, count}) {
    ASSERT_TRUE(saveFailing("FLR_PutLine", n, FaultKind::kFail)) << n;
    EXPECT_EQ(1, result) << n;
    checkWorld("line " + std::to_string(n));
  }
}

// Calls on files, beside the lines: a save that cannot be kept never gives 0.
TEST_P(WriteFaultTest, EachFileCall) {
  prepare();
  struct Row {
    const char* call;
    bool harmless;  // its failure does not touch what is written
  };
  constexpr Row kRows[] = {{"FLR_OpenFile", false},       {"FLR_Read", false},
                           {"FLR_Write", false},          {"FLR_FileExists", false},
                           {"FLR_GetUniqueFname", false}, {"ZLIB_CompressFile", false},
                           {"FLR_DeleteFile", true},      {"MPL_GetResYFactor", true}};
  int struck = 0;
  for (const Row& row : kRows) {
    for (std::uint64_t n = 1; saveFailing(row.call, n, FaultKind::kFail); ++n) {
      const std::string what = row.call + (" " + std::to_string(n));
      ++struck;
      checkWorld(what);
      EXPECT_EQ(row.harmless ? 0 : -1, result) << what;
      ASSERT_LT(n, kMostCalls);
    }
  }
  EXPECT_EQ(GetParam() == 1 ? 12 : 1, struck);
}

TEST_P(WriteFaultTest, ShortReadsAndWrites) {
  prepare();
  if (GetParam() != 1) return;
  ASSERT_TRUE(saveFailing("FLR_Read", 1, FaultKind::kCutShort));
  EXPECT_EQ(0, result);
  EXPECT_EQ(reference, textOf(written));
  ASSERT_TRUE(saveFailing("FLR_Write", 1, FaultKind::kCutShort));
  EXPECT_EQ(-1, result);
  checkWorld("a short write");
}

TEST_P(WriteFaultTest, ClosingTheTemporaryFile) {
  prepare();
  if (GetParam() != 1) return;
  for (std::uint64_t n = 1; n <= 2; ++n) {
    ASSERT_TRUE(saveFailing("FLR_Close", n, FaultKind::kFail));
    // The second one closes what was read to its end.
    EXPECT_EQ(n == 1 ? -1 : 0, result);
    checkWorld("close " + std::to_string(n));
  }
}

// A host that throws gives its own result, through every depth.
TEST_P(WriteFaultTest, AThrowingHost) {
  prepare();
  const char* const kCalls[] = {
      "FLR_OpenFile",        "FLR_PutLine",        "FLR_Write",         "FLR_Read",
      "FLR_FileExists",      "FLR_GetUniqueFname", "ZLIB_CompressFile", "ISL_GetProperty",
      "ISL_GetViewProperty", "MPL_GetResXFactor",  "STYLE_Create",      "STYLE_AppendUnique",
      "STYLE_Enumerate",     "EEL_GetObjectMer",   "EEL_GetNextObject", "OBJ_GetRootTrace"};
  int struck = 0;
  for (const char* call : kCalls) {
    for (std::uint64_t n = 1; saveFailing(call, n, FaultKind::kThrow); ++n) {
      const std::string what = call + (" " + std::to_string(n));
      ++struck;
      checkWorld(what);
      EXPECT_TRUE(result == 0 || result == -6408) << what << ": " << result;
      ASSERT_LT(n, kMostCalls);
    }
  }
  EXPECT_LT(40, struck);
}

// The same calls failing in their own way, once or for good: what is missing is left out, or the
// save is refused.
TEST_P(WriteFaultTest, AFailingHost) {
  prepare();
  const char* const kCalls[] = {"ISL_GetProperty",
                                "ISL_GetViewProperty",
                                "MPL_GetResXFactor",
                                "MPL_GetResYFactor",
                                "STYLE_Create",
                                "STYLE_AppendUnique",
                                "STYLE_QueryData",
                                "STYLE_QueryStyleNo",
                                "STYLE_Enumerate",
                                "EEL_GetObjectMer",
                                "EEL_GetNextObject",
                                "OBJ_GetRootTrace",
                                "EGF_GetDashRecordByStyle",
                                "EEL_AllocObject",
                                "EEL_PutObject",
                                "DOC_Get"};
  int struck = 0;
  for (const char* call : kCalls) {
    for (const auto span : {FaultSpan::kOnce, FaultSpan::kForEver}) {
      for (std::uint64_t n = 1; saveFailing(call, n, FaultKind::kFail, span); ++n) {
        const std::string what = call + (" " + std::to_string(n));
        ++struck;
        checkWorld(what);
        EXPECT_TRUE(result == 0 || result == 1 || result == 2 || result == -1)
            << what << ": " << result;
        ASSERT_LT(n, kMostCalls);
      }
    }
  }
  EXPECT_LT(80, struck);
}

INSTANTIATE_TEST_SUITE_P(PlainAndCompressed, WriteFaultTest, testing::Values(0, 1));

}  // namespace
}  // namespace egfsvg::test
