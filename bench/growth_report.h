// Prints the medians as the usual console table, then one line for each family and way of reading
// or writing: how time grows with the size of the drawing, and how it stands beside what it is
// compared with.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace egfsvg::bench {

// Benchmarks are named way/family/size, for instance full/shapes/10m; each has the counter "bytes".
class GrowthReport : public benchmark::ConsoleReporter {
 public:
  GrowthReport() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Sample {
    double bytes;
    double seconds;  // median over the repetitions
  };
  using Samples = std::map<std::string, Sample>;  // by size

  void printGrowth(const std::string& way, const std::string& family, const Samples& samples) const;
  void printDepth(const std::string& way, const std::string& family, const Samples& samples) const;
  void printRatios(const std::string& way, const std::string& reference, const char* words) const;

  std::map<std::string, std::map<std::string, Samples>> ways_;  // by way, then family
};

}  // namespace egfsvg::bench
