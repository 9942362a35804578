#include "bench/growth_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace egfsvg::bench {
namespace {

// What a way is compared with, when both ran.
struct Reference {
  const char* way;
  const char* reference;
  const char* words;
};
constexpr Reference kReferences[] = {
    {"records", "peer", "the other program"},
    {"full", "peer", "the other program"},
    {"write", "snprintf", "snprintf of the same lines"},
};
constexpr const char* kMedian = "median";
constexpr double kGrown = 2.0;  // drawings whose bytes differ less differ in depth

std::vector<std::string> nameParts(const std::string& name) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (start <= name.size()) {
    const std::size_t end = std::min(name.find('/', start), name.size());
    parts.push_back(name.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

}  // namespace

void GrowthReport::ReportRuns(const std::vector<Run>& runs) {
  std::vector<Run> shown;
  for (const Run& run : runs) {
    if (run.error_occurred || run.aggregate_name == kMedian) shown.push_back(run);
  }
  if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
  for (const Run& run : shown) {
    if (run.error_occurred) continue;
    const auto parts = nameParts(run.run_name.function_name);
    const auto bytes = run.counters.find("bytes");
    if (parts.size() != 3 || bytes == run.counters.end()) continue;
    const bool byClock = !run.run_name.time_type.empty();  // else by the processor's time
    const double time = byClock ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    const double seconds = time / benchmark::GetTimeUnitMultiplier(run.time_unit);
    ways_[parts[0]][parts[1]][parts[2]] = Sample{bytes->second.value, seconds};
  }
}

void GrowthReport::printGrowth(const std::string& way, const std::string& family,
                               const Samples& samples) const {
  const auto bySize = [](const auto& a, const auto& b) { return a.second.bytes < b.second.bytes; };
  const auto [least, most] = std::minmax_element(samples.begin(), samples.end(), bySize);
  if (most->second.bytes < kGrown * least->second.bytes) {
    printDepth(way, family, samples);
    return;
  }
  const double exponent = std::log(most->second.seconds / least->second.seconds) /
                          std::log(most->second.bytes / least->second.bytes);
  std::printf("growth  %-8s %-9s %s to %s: time ~ size^%.3f\n", way.c_str(), family.c_str(),
              least->first.c_str(), most->first.c_str(), exponent);
}

void GrowthReport::printDepth(const std::string& way, const std::string& family,
                              const Samples& samples) const {
  if (samples.size() < 2) return;
  const auto perByte = [](const Sample& sample) { return sample.seconds / sample.bytes; };
  const auto shallow = samples.begin();
  const auto deep = std::prev(samples.end());
  std::printf("depth   %-8s %-9s %s to %s: time per byte x %.2f\n", way.c_str(), family.c_str(),
              shallow->first.c_str(), deep->first.c_str(),
              perByte(deep->second) / perByte(shallow->second));
}

void GrowthReport::printRatios(const std::string& way, const std::string& reference,
                               const char* words) const {
  const auto measured = ways_.find(way);
  const auto compared = ways_.find(reference);
  if (measured == ways_.end() || compared == ways_.end()) return;
  for (const auto& [family, samples] : measured->second) {
    const auto family2 = compared->second.find(family);
    if (family2 == compared->second.end()) continue;
    for (const auto& [size, sample] : samples) {
      const auto other = family2->second.find(size);
      if (other == family2->second.end()) continue;
      std::printf("speed   %-8s %-9s %-5s %.2f of %s\n", way.c_str(), family.c_str(), size.c_str(),
                  other->second.seconds / sample.seconds, words);
    }
  }
}

void GrowthReport::Finalize() {
  ConsoleReporter::Finalize();
  std::printf("\n");
  for (const auto& [way, families] : ways_) {
    for (const auto& [family, samples] : families) printGrowth(way, family, samples);
  }
  for (const Reference& row : kReferences) printRatios(row.way, row.reference, row.words);
}

}  // namespace egfsvg::bench
