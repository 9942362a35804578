// Runs a piece of work and turns whatever ends it into an exit code and a line.
#pragma once

#include <functional>
#include <string>

#include "cli/exit_codes.h"

namespace egfsvg {

// what names the work in the line of a fault that says nothing about itself.
ExitCode guarded(const std::function<ExitCode()>& work, const std::string& what);

}  // namespace egfsvg
