#include "bench/growth_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace egfsvg::bench {
namespace {

constexpr const char* kPeer = "peer";
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
    const double seconds =
        run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
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
  std::printf("growth  %-8s %-8s %s to %s: time ~ size^%.3f\n", way.c_str(), family.c_str(),
              least->first.c_str(), most->first.c_str(), exponent);
}

void GrowthReport::printDepth(const std::string& way, const std::string& family,
                              const Samples& samples) const {
  if (samples.size() < 2) return;
  const auto perByte = [](const Sample& sample) { return sample.seconds / sample.bytes; };
  const auto shallow = samples.begin();
  const auto deep = std::prev(samples.end());
  std::printf("depth   %-8s %-8s %s to %s: time per byte x %.2f\n", way.c_str(), family.c_str(),
              shallow->first.c_str(), deep->first.c_str(),
              perByte(deep->second) / perByte(shallow->second));
}

void GrowthReport::printRatios(const std::string& way) const {
  const auto peer = ways_.find(kPeer);
  if (peer == ways_.end() || way == kPeer) return;
  for (const auto& [family, samples] : ways_.at(way)) {
    for (const auto& [size, sample] : samples) {
      const auto family2 = peer->second.find(family);
      if (family2 == peer->second.end() || family2->second.count(size) == 0) continue;
      std::printf("speed   %-8s %-8s %-5s %.2f of the other program\n", way.c_str(), family.c_str(),
                  size.c_str(), family2->second.at(size).seconds / sample.seconds);
    }
  }
}

void GrowthReport::Finalize() {
  ConsoleReporter::Finalize();
  std::printf("\n");
  for (const auto& [way, families] : ways_) {
    for (const auto& [family, samples] : families) printGrowth(way, family, samples);
  }
  for (const auto& way : ways_) printRatios(way.first);
}

}  // namespace egfsvg::bench
