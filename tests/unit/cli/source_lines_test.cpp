#include "cli/source_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/files.h"

namespace egfsvg {
namespace {

TEST(SourceLines, CountsLinesAndCharacters) {
  const test::TempDir folder;
  SourceLines lines(folder.write("a.svg",
                                 "ab\nc\xc3\xa9"
                                 "d\n\nx"));
  struct Row {
    std::uint64_t offset, line, column;
  };
  for (const Row& row :
       {Row{0, 1, 1}, Row{1, 1, 2}, Row{2, 1, 3}, Row{3, 2, 1}, Row{4, 2, 2}, Row{6, 2, 3},
        Row{7, 2, 4}, Row{8, 3, 1}, Row{9, 4, 1}, Row{10, 4, 2}, Row{1000, 4, 2}}) {
    const LineColumn place = lines.at(row.offset);
    EXPECT_EQ(place.line, row.line) << row.offset;
    EXPECT_EQ(place.column, row.column) << row.offset;
  }
}

TEST(SourceLines, GoesBackAndForthOverALargeFile) {
  const test::TempDir folder;
  std::string text;
  constexpr std::uint64_t kLines = 40000;
  for (std::uint64_t i = 0; i < kLines; ++i) text += "123456789\n";
  SourceLines lines(folder.write("a.svg", text));
  for (const std::uint64_t line : {39999U, 0U, 6553U, 6554U, 13107U, 20000U, 39999U, 1U}) {
    const LineColumn place = lines.at(line * 10 + 4);
    EXPECT_EQ(place.line, line + 1);
    EXPECT_EQ(place.column, 5U);
  }
}

TEST(SourceLines, KnowsNothingOfAMissingFile) {
  SourceLines lines("/no/such/file");
  EXPECT_EQ(lines.at(5).line, 1U);
  EXPECT_EQ(lines.at(5).column, 1U);
}

}  // namespace
}  // namespace egfsvg
