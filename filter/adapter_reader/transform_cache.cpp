#include "adapter_reader/transform_cache.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace egfsvg {

namespace {

/// Equal to the bit: the zeros of both signs give different products.
bool sameValue(const _svg_value& a, const _svg_value& b) {
  return std::bit_cast<std::uint64_t>(a.value) == std::bit_cast<std::uint64_t>(b.value) &&
         a.unit == b.unit && a.axis == b.axis;
}

}  // namespace

bool TransformCache::same(const Step& step, const transformEntry& entry) {
  if (step.kind != entry.kind || step.argCount != entry.argCount) return false;
  for (std::int32_t i = 0; i < entry.argCount; ++i) {
    if (!sameValue(step.args[i], entry.args[i])) return false;
  }
  return true;
}

/// Most lists of equal length differ in their last entry, so the comparison begins there.
bool TransformCache::isKept(const transformEntry* entries, std::int32_t count) const {
  if (entries == nullptr || count != steps_.count()) return false;
  std::int32_t left = count;
  while (left > 0 && same(steps_[left - 1], entries[left - 1])) --left;
  return left == 0;
}

ListStamp TransformCache::stampOf(const TransformScene& scene, const transformEntry* entries,
                                  std::int32_t count) const {
  if (count <= 0) return ListStamp::kEmpty;
  return scene == scene_ && isKept(entries, count) ? stamp_ : ListStamp::kNone;
}

std::int32_t TransformCache::match(const TransformScene& scene, const transformEntry* entries,
                                   std::int32_t count, PlaneColumns& product) {
  changeStamp();
  if (!(scene == scene_)) steps_.clear();
  scene_ = scene;
  const std::int32_t most = std::min(count, steps_.count());
  std::int32_t matched = 0;
  while (matched < most && same(steps_[matched], entries[matched])) ++matched;
  steps_.cutTo(matched);
  std::memcpy(product, matched == 0 ? kIdentityPlane : steps_[matched - 1].product, sizeof product);
  return matched;
}

void TransformCache::keep(const transformEntry& entry, std::int32_t position,
                          const PlaneColumns& product) {
  if (position != steps_.count() || entry.argCount > kMostArgs) return;
  Step* step = steps_.append();
  if (step == nullptr) return;
  changeStamp();
  step->kind = entry.kind;
  step->argCount = entry.argCount;
  for (std::int32_t i = 0; i < entry.argCount; ++i) step->args[i] = entry.args[i];
  std::memcpy(step->product, product, sizeof product);
}

}  // namespace egfsvg
