// Runs the egfsvg tool as a user does, in a process of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace egfsvg::test {

struct ToolResult {
  int exitCode = -1;  // 128 + signal number when a signal ended it
  std::string out;    // standard output
  std::string err;    // standard error
};

// Runs the tool with these arguments; `input` becomes its standard input.
ToolResult runTool(const std::vector<std::string>& arguments, std::string_view input = {});

// The same for any program.
ToolResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      std::string_view input = {});

}  // namespace egfsvg::test
