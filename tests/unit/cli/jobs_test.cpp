#include "cli/jobs.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <vector>

#include "tests/support/files.h"

namespace egfsvg {
namespace {

TEST(Jobs, GivesEachCodeInOrder) {
  for (const int parallel : {1, 2, 5}) {
    std::size_t ends = 0;
    const auto codes = runJobs(
        7, parallel, [](std::size_t index) { return static_cast<ExitCode>(60 + index); },
        [&](std::size_t done) {
          EXPECT_GE(done, 1U);
          EXPECT_LE(done, 7U);
          ++ends;
        });
    EXPECT_EQ(codes, (std::vector<int>{60, 61, 62, 63, 64, 65, 66}));
    EXPECT_EQ(ends, 7U);
  }
}

TEST(Jobs, AreProcessesOfTheirOwn) {
  const test::TempDir folder;
  const auto work = [&](std::size_t index) {
    folder.write(std::to_string(index), std::to_string(::getpid()));
    return ExitCode::kGood;
  };
  runJobs(2, 2, work, [](std::size_t) {});
  const std::string own = std::to_string(::getpid());
  EXPECT_NE(test::readFile(folder.file("0")), own);
  EXPECT_NE(test::readFile(folder.file("1")), own);
  EXPECT_NE(test::readFile(folder.file("0")), test::readFile(folder.file("1")));
}

TEST(Jobs, OutliveOneThatDies) {
  const auto work = [](std::size_t index) {
    if (index == 1) ::raise(SIGKILL);
    return ExitCode::kGood;
  };
  EXPECT_EQ(runJobs(3, 2, work, [](std::size_t) {}), (std::vector<int>{0, 70, 0}));
}

TEST(Jobs, MayBeNone) {
  EXPECT_TRUE(runJobs(
                  0, 4, [](std::size_t) { return ExitCode::kGood; }, [](std::size_t) {})
                  .empty());
}

}  // namespace
}  // namespace egfsvg
