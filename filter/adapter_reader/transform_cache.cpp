#include "adapter_reader/transform_cache.h"

#include <algorithm>

namespace egfsvg {

bool TransformCache::same(const Step& step, const transformEntry& entry) {
  if (step.kind != entry.kind || step.argCount != entry.argCount) return false;
  return std::equal(step.args, step.args + step.argCount, entry.args,
                    [](const _svg_value& a, const _svg_value& b) {
                      return a.value == b.value && a.unit == b.unit && a.axis == b.axis;
                    });
}

std::int32_t TransformCache::match(const TransformScene& scene, const transformEntry* entries,
                                   std::int32_t count, MatrixRows& product) {
  if (!(scene == scene_)) steps_.clear();
  scene_ = scene;
  const std::int32_t most = std::min(count, steps_.count());
  std::int32_t matched = 0;
  while (matched < most && same(steps_[matched], entries[matched])) ++matched;
  steps_.cutTo(matched);
  copyMatrix(matched == 0 ? kIdentityRows : steps_[matched - 1].product, product);
  return matched;
}

void TransformCache::keep(const transformEntry& entry, std::int32_t position,
                          const MatrixRows& product) {
  if (position != steps_.count() || entry.argCount > kMostArgs) return;
  Step* step = steps_.append();
  if (step == nullptr) return;
  step->kind = entry.kind;
  step->argCount = entry.argCount;
  std::copy_n(entry.args, entry.argCount, step->args);
  copyMatrix(product, step->product);
}

}  // namespace egfsvg
