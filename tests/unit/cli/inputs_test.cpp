#include "cli/inputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/failure.h"
#include "embedded_host/host_files.h"
#include "host/compression.h"
#include "tests/support/files.h"

namespace egfsvg {
namespace {

constexpr std::uint64_t kNoBound = 1U << 30U;

Failure failureOf(const std::string& path, std::uint64_t maxBytes = kNoBound) {
  try {
    ReadyInput input(path, maxBytes);
  } catch (const Failure& failure) {
    return failure;
  }
  return {ExitCode::kGood, ""};
}

std::string gzipped(const test::TempDir& folder, const std::string& text) {
  const std::string plain = folder.write("plain.svg", text);
  const std::string packed = folder.file("packed.svgz");
  egfhost::allowFolder(folder.path().string(), egfhost::FileAccess::kWrite);
  EXPECT_EQ(ZLIB_CompressFile(plain.c_str(), packed.c_str()), 0);
  return packed;
}

TEST(Inputs, ListsAFolderSorted) {
  const test::TempDir folder;
  for (const char* name : {"b.svg", "a/z.SVGZ", "a/b.svg", "notes.txt", "c.png", "a/c/d.svgz"}) {
    folder.write(name, "<svg/>");
  }
  std::vector<std::string> names;
  for (const InputName& name : expandInputs({folder.path().string()})) {
    EXPECT_EQ(name.path, folder.file(name.relative));
    names.push_back(name.relative);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"a/b.svg", "a/c/d.svgz", "a/z.SVGZ", "b.svg"}));
}

TEST(Inputs, TakesFilesAsTheyAre) {
  const auto names = expandInputs({"x/y.xml", "-", "none.svg"});
  ASSERT_EQ(names.size(), 3U);
  EXPECT_EQ(names[0].path, "x/y.xml");
  EXPECT_EQ(names[0].relative, "y.xml");
  EXPECT_EQ(names[1].path, "-");
  EXPECT_EQ(names[2].relative, "none.svg");
}

TEST(Inputs, RefusesAnEmptyFolder) {
  const test::TempDir folder;
  EXPECT_THROW(expandInputs({folder.path().string()}), Failure);
}

TEST(ReadyInput, TakesAPlainFileInPlace) {
  const test::TempDir folder;
  const std::string path = folder.write("a.svg", "<svg></svg>");
  const ReadyInput input(path, kNoBound);
  EXPECT_EQ(input.path(), path);
  EXPECT_EQ(input.name(), path);
  EXPECT_FALSE(input.compressed());
  EXPECT_EQ(input.bytes(), 11U);
}

TEST(ReadyInput, UnpacksGzipByItsMark) {
  const test::TempDir folder;
  const std::string packed = gzipped(folder, "<svg></svg>");
  std::filesystem::rename(packed, folder.file("named.svg"));
  std::string scratch;
  {
    const ReadyInput input(folder.file("named.svg"), kNoBound);
    EXPECT_TRUE(input.compressed());
    EXPECT_EQ(input.bytes(), 11U);
    scratch = input.path();
    EXPECT_EQ(test::readFile(scratch), "<svg></svg>");
  }
  EXPECT_FALSE(std::filesystem::exists(scratch));
}

TEST(ReadyInput, SaysWhatIsWrong) {
  const test::TempDir folder;
  const std::string packed = gzipped(folder, "<svg>" + std::string(5000, 'x') + "</svg>");
  const std::string bytes = test::readFile(packed);
  struct Row {
    std::string path;
    ExitCode code;
    std::string words;
  };
  const std::vector<Row> rows = {
      {folder.file("none.svg"), ExitCode::kNoInput, "No such file"},
      {folder.path().string(), ExitCode::kNoInput, "is a folder"},
      {folder.write("cut.svgz", bytes.substr(0, bytes.size() - 6)), ExitCode::kBadData,
       "cannot be unpacked"},
      {folder.write("bad.svgz", "\x1f\x8b\x08garbage"), ExitCode::kBadData, "cannot be unpacked"},
  };
  for (const Row& row : rows) {
    const Failure failure = failureOf(row.path);
    EXPECT_EQ(failure.code(), row.code) << row.path;
    EXPECT_EQ(std::string(failure.what()).find(row.path), 0U) << failure.what();
    EXPECT_NE(std::string(failure.what()).find(row.words), std::string::npos) << failure.what();
    EXPECT_EQ(std::string(failure.what()).find('\n'), std::string::npos);
  }
}

TEST(ReadyInput, KeepsTheBoundOnBytes) {
  const test::TempDir folder;
  const std::string plain = folder.write("a.svg", std::string(100, ' '));
  EXPECT_EQ(failureOf(plain, 100).code(), ExitCode::kGood);
  EXPECT_EQ(failureOf(plain, 99).code(), ExitCode::kLimit);
  EXPECT_NE(std::string(failureOf(plain, 99).what()).find("--max-source-bytes"), std::string::npos);
  const std::string packed = gzipped(folder, std::string(5000, ' '));
  EXPECT_EQ(failureOf(packed, 5000).code(), ExitCode::kGood);
  EXPECT_EQ(failureOf(packed, 4999).code(), ExitCode::kLimit);
}

}  // namespace
}  // namespace egfsvg
