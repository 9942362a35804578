#include "adapter_reader/dash_index.h"

#include <cmath>

#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr double kCellSize = 1e-3;  // above the tolerance times the sum of all weights
constexpr std::int32_t kFirstBuckets = 64;

}  // namespace

void DashIndex::clear() {
  heads_.clear();
  entries_.clear();
}

/// A weighted sum of the segments; the weights, from 1 to 2, keep patterns of equal sums apart.
std::int64_t DashIndex::cellOf(std::span<const double> segments) {
  constexpr double kGoldenPart = 0.6180339887498949;
  double sum = 0.0;
  double weight = 0.0;
  for (const double segment : segments) {
    weight += kGoldenPart;
    weight -= std::floor(weight);
    sum += segment * (1.0 + weight);
  }
  // Far below the ends of the type, so that the neighbours of a cell exist too.
  constexpr double kFarthest = 1e18;
  const double cell = std::floor(sum / kCellSize);
  return truncated<std::int64_t>(cell < -kFarthest  ? -kFarthest
                                 : cell > kFarthest ? kFarthest
                                                    : cell);
}

std::int32_t DashIndex::bucketOf(std::int64_t cell) const {
  const std::uint64_t mixed = static_cast<std::uint64_t>(cell) * 0x9E3779B97F4A7C15U;
  return static_cast<std::int32_t>((mixed >> 40) & static_cast<std::uint32_t>(heads_.count() - 1));
}

bool DashIndex::growHeads() {
  const std::int32_t buckets = heads_.empty() ? kFirstBuckets : heads_.count() * 2;
  heads_.clear();
  if (!heads_.reserve(buckets)) return false;
  for (std::int32_t i = 0; i < buckets; ++i) heads_.push(kNone);
  for (std::int32_t at = 0; at < entries_.count(); ++at) {
    std::int32_t& head = heads_[bucketOf(entries_[at].cell)];
    entries_[at].next = head;
    head = at;
  }
  return true;
}

bool DashIndex::add(std::span<const double> segments) {
  if (entries_.count() >= heads_.count() && !growHeads()) return false;
  const std::int64_t cell = cellOf(segments);
  std::int32_t& head = heads_[bucketOf(cell)];
  if (!entries_.push({cell, head})) return false;
  head = entries_.count() - 1;
  return true;
}

}  // namespace egfsvg
