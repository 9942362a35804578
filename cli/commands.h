// The commands of the tool. Each does its work and gives the exit code, or throws a Failure.
#pragma once

#include "cli/exit_codes.h"
#include "cli/options.h"

namespace egfsvg {

ExitCode runInfo(const Options& options);
ExitCode runElements(const Options& options);
ExitCode runDump(const Options& options);
ExitCode runConvert(const Options& options);

}  // namespace egfsvg
