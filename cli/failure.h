// The end of a command: an exit code and one line that says what, where and what to do.
#pragma once

#include <stdexcept>
#include <string>

#include "cli/exit_codes.h"

namespace egfsvg {

class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& line) : std::runtime_error(line), code_(code) {}

  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace egfsvg
