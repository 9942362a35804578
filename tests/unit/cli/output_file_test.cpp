#include "cli/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "cli/failure.h"
#include "tests/support/files.h"

namespace egfsvg {
namespace {

namespace fs = std::filesystem;

std::size_t filesIn(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

ExitCode codeOf(const std::string& path) {
  try {
    OutputFile::create(path);
  } catch (const Failure& failure) {
    return failure.code();
  }
  return ExitCode::kGood;
}

TEST(OutputFile, AppearsWholeAtTheCommit) {
  const test::TempDir folder;
  const std::string path = folder.file("out.json");
  {
    const auto output = OutputFile::create(path);
    output->write("one ");
    output->write("two");
    EXPECT_FALSE(fs::exists(path));
    output->commit();
    EXPECT_EQ(test::readFile(path), "one two");
  }
  EXPECT_EQ(filesIn(folder.path()), 1U);
}

TEST(OutputFile, IsNeverSeenWithoutCommit) {
  const test::TempDir folder;
  OutputFile::create(folder.file("out.json"))->write("half");
  EXPECT_EQ(filesIn(folder.path()), 0U);
}

TEST(OutputFile, KeepsTheOldFileUntilTheCommit) {
  const test::TempDir folder;
  const std::string path = folder.write("out.json", "old");
  {
    const auto output = OutputFile::create(path);
    output->write("new");
    EXPECT_EQ(test::readFile(path), "old");
  }
  EXPECT_EQ(test::readFile(path), "old");
  const auto output = OutputFile::create(path);
  output->write("new");
  output->commit();
  EXPECT_EQ(test::readFile(path), "new");
}

TEST(OutputFile, HasThePermissionsOfANewFile) {
  const test::TempDir folder;
  const mode_t before = ::umask(027);
  const std::string path = folder.file("out.json");
  const auto output = OutputFile::create(path);
  output->commit();
  ::umask(before);
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(OutputFile, WritesDevicesStraight) {
  const auto output = OutputFile::create("/dev/null");
  output->write("anything");
  output->commit();
  EXPECT_TRUE(output->workingPath().empty());
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OutputFile, RefusesWhatCannotBeCreated) {
  const test::TempDir folder;
  EXPECT_EQ(codeOf(folder.file("none/out.json")), ExitCode::kCannotCreate);
  EXPECT_EQ(codeOf(folder.path().string()), ExitCode::kCannotCreate);
  folder.write("file", "");
  EXPECT_EQ(codeOf(folder.file("file/out.json")), ExitCode::kCannotCreate);
}

TEST(OutputFile, SaysWhenADeviceIsFull) {
  const auto output = OutputFile::create("/dev/full");
  try {
    output->write("x");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code(), ExitCode::kInputOutput);
    EXPECT_NE(std::string(failure.what()).find("/dev/full"), std::string::npos);
  }
}

TEST(OutputFile, CreatesFolders) {
  const test::TempDir folder;
  createDirectory(folder.file("a/b/c"));
  EXPECT_TRUE(fs::is_directory(folder.file("a/b/c")));
  createDirectory(folder.file("a/b"));
  folder.write("file", "");
  EXPECT_THROW(createDirectory(folder.file("file/x")), Failure);
}

}  // namespace
}  // namespace egfsvg
