#include "dyna/host_results.h"
#include "host/settings.h"
#include "tests/support/saved_document.h"
#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

constexpr AreaPen kPen{.width = 2.0, .stroke = 0x0000ff, .fill = 0xff0000};

class WriteFileTest : public WholeFileTest {
 protected:
  // A box of 100 x 50 pixels and a line.
  static void draw(SavedDocument& document) {
    TreeBuilder tree;
    tree.add(box(0, 0, 100, 50, kPen));
    tree.add(line({0, 0}, {100, 50}));
    document.take(tree);
  }
  static bool hasLine(const std::string& text, const std::string& wanted) {
    const std::vector<std::string> lines = linesOf(text);
    return std::find(lines.begin(), lines.end(), wanted) != lines.end();
  }
};

TEST_F(WriteFileTest, TheResolutionStandsInAComment) {
  struct Row {
    double dotsPerInch;
    std::string number;  // empty for no comment
  };
  const Row kRows[] = {{96, "96"},   {200, ""},  {199.6, "200"}, {199.4, "199"}, {200.5, "201"},
                       {72.5, "73"}, {0.5, "1"}, {0.4, "0"},     {300, "300"},   {1200, "1200"}};
  for (const Row& row : kRows) {
    SavedDocument document(row.dotsPerInch);
    draw(document);
    const std::string text = document.text();
    if (row.number.empty()) {
      EXPECT_EQ(std::string::npos, text.find("User agent")) << row.dotsPerInch;
    } else {
      EXPECT_TRUE(hasLine(text, "<!-- User agent resolution:" + row.number + " dpi -->")) << text;
    }
  }
}

TEST_F(WriteFileTest, ACompressedFileHoldsThePlainOne) {
  SavedDocument document;
  draw(document);
  const std::string plain = document.text();
  std::string packed;
  ASSERT_EQ(0, document.save(&packed, 1));
  EXPECT_EQ(std::string("\x1f\x8b\x08"), packed.substr(0, 3));
  EXPECT_EQ(plain, unpacked(packed));
  EXPECT_EQ(before, temporaries());
  std::string again;
  ASSERT_EQ(0, document.save(&again, 1));
  EXPECT_EQ(packed, again);
}

TEST_F(WriteFileTest, ALargeFileIsCopiedWhole) {
  SavedDocument document;
  TreeBuilder tree;
  for (int i = 0; i < 3000; ++i) tree.add(line({0.37 * i, 0}, {i * 1.0, i * i * 0.01}));
  document.take(tree);
  const std::string plain = document.text();
  EXPECT_LT(200000u, plain.size());
  std::string packed;
  ASSERT_EQ(0, document.save(&packed, 1));
  EXPECT_LT(3u * 4096, packed.size());
  EXPECT_EQ(plain, unpacked(packed));
}

TEST_F(WriteFileTest, OnlyOneCompresses) {
  SavedDocument document;
  draw(document);
  for (const int compress : {0, 2, -1}) {
    std::string text;
    ASSERT_EQ(0, document.save(&text, compress));
    EXPECT_EQ("<?xml", text.substr(0, 5)) << compress;
  }
}

TEST_F(WriteFileTest, ADocumentWithoutADrawingGivesAnEmptyFile) {
  SavedDocument document;
  std::string text = "before";
  EXPECT_EQ(0, document.save(&text));
  EXPECT_EQ("", text);
  EXPECT_EQ(0, document.save(&text, 1));
  EXPECT_EQ("", unpacked(text));
}

TEST_F(WriteFileTest, ASaveKeepsTheDocument) {
  SavedDocument document;
  draw(document);
  const std::string first = document.text();
  EXPECT_EQ(1u, document.treeReferences());
  EXPECT_EQ(first, document.text());
  egfhost::failAt("FLR_PutLine", 1);
  std::string written;
  EXPECT_EQ(1, document.save(&written));
  EXPECT_EQ("", written);
  EXPECT_EQ(1u, document.treeReferences());
  EXPECT_EQ(first, document.text());
}

TEST_F(WriteFileTest, NamespacesAreDeclaredWhenTheHostAsks) {
  SavedDocument document;
  draw(document);
  EXPECT_TRUE(hasLine(document.text(), "<svg  viewBox=\"0 0 100 50\">"));
  CFG_GetDefaults(0, 0)[static_cast<int>(Setting::kNamespaces)] = 1;
  EXPECT_TRUE(hasLine(document.text(),
                      "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                      "xmlns:xlink=\"http://www.w3.org/1999/xlink\"  viewBox=\"0 0 100 50\">"));
}

TEST_F(WriteFileTest, OutputsThatTakeNothing) {
  SavedDocument document;
  draw(document);
  EXPECT_EQ(1, iSVG_WriteFile(document.view(), 0, 0));
  const HostHandle input = egfhost::openMemory("in.svg", "text");
  EXPECT_EQ(1, iSVG_WriteFile(document.view(), input, 0));
  EXPECT_EQ(-1, iSVG_WriteFile(document.view(), input, 1));
  FLR_Close(input);
  EXPECT_EQ(before, temporaries());
}

TEST(HostResultsTest, EachCodeHasItsResult) {
  struct Row {
    std::int32_t code;
    std::int32_t result;
  };
  constexpr Row kRows[] = {{0, 0},      {-5201, -6408}, {-5202, 1},  {-5203, 2},  {-5204, 1},
                           {-5205, 1},  {-5206, 1},     {-5207, -1}, {-5214, -1}, {-5215, 4096},
                           {-5216, -1}, {-5217, 8},     {-5218, 1},  {-1, -1},    {1, -1}};
  for (const Row& row : kRows) EXPECT_EQ(row.result, hostResult(row.code)) << row.code;
}

}  // namespace
}  // namespace egfsvg::test
