// Several drawings, each in a process of its own, so that one that fails cannot hurt the others.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "cli/exit_codes.h"

namespace egfsvg {

// Runs work(index) for each index below count in child processes, at most `parallel` at a time, and
// gives their exit codes in order of the indices. A child that dies otherwise gives kInternal. The
// child does not return from work's caller: it ends with the code. onEnd(done) is called in this
// process whenever one has ended.
std::vector<int> runJobs(std::size_t count, int parallel,
                         const std::function<ExitCode(std::size_t)>& work,
                         const std::function<void(std::size_t)>& onEnd);

}  // namespace egfsvg
