// What the programs of measurements share.
#pragma once

#include <vector>

namespace egfsvg::bench {

// Takes the options of google-benchmark, turns interleaving on; false when one is not known.
bool takeBenchmarkOptions(std::vector<char*> arguments);

// Measures all that is registered and reports it.
void measureRegistered();

// The result of run(argc, argv); 1, and the reason on standard error, when it throws.
int runProgram(const char* name, int (*run)(int, char**), int argc, char** argv);

}  // namespace egfsvg::bench
