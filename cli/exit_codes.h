// What the tool tells its caller by its exit code.
#pragma once

namespace egfsvg {

enum class ExitCode : int {
  kGood = 0,
  kSomeRefused = 1,    // some of several inputs were refused
  kUsage = 2,          // the command line
  kBadData = 65,       // the input is no drawing
  kNoInput = 66,       // no such file, or no such page
  kLimit = 69,         // a limit was hit; the message names its option
  kInternal = 70,      // the tool's own fault, or memory ran out
  kCannotCreate = 73,  // an output cannot be created
  kInputOutput = 74,   // reading or writing failed under way
};

constexpr int number(ExitCode code) { return static_cast<int>(code); }

}  // namespace egfsvg
