#include "bench/bench_program.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string>

#include "bench/growth_report.h"

namespace egfsvg::bench {

bool takeBenchmarkOptions(std::vector<char*> arguments) {
  std::string interleaved = "--benchmark_enable_random_interleaving=true";
  arguments.push_back(interleaved.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  return !benchmark::ReportUnrecognizedArguments(count, arguments.data());
}

void measureRegistered() {
  GrowthReport report;
  benchmark::RunSpecifiedBenchmarks(&report);
  benchmark::ClearRegisteredBenchmarks();
}

int runProgram(const char* name, int (*run)(int, char**), int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", name, failure.what());
    return 1;
  }
}

}  // namespace egfsvg::bench
