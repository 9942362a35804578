#include "tests/support/tool.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace egfsvg::test {
namespace {

TEST(RunProgram, GivesBothStreamsAndTheExitCode) {
  const ToolResult result = runProgram("/bin/sh", {"-c", "cat; echo words >&2; exit 65"}, "data");
  EXPECT_EQ(result.exitCode, 65);
  EXPECT_EQ(result.out, "data");
  EXPECT_EQ(result.err, "words\n");
}

TEST(RunProgram, TellsASignal) {
  EXPECT_EQ(runProgram("/bin/sh", {"-c", "kill -9 $$"}).exitCode, 128 + 9);
}

TEST(RunProgram, MissingProgramIsAnError) {
  EXPECT_THROW(runProgram("/no/such/program", {}), std::runtime_error);
}

}  // namespace
}  // namespace egfsvg::test
