#include "reader/class_memo.h"

#include <cstring>

#include "model/svg_map.h"

namespace egfsvg {

bool ClassMemo::Result::isOf(std::uint32_t hashed, std::string_view other) const {
  return hash == hashed && length == other.size() &&
         std::memcmp(name, other.data(), other.size()) == 0;
}

std::size_t ClassMemo::slotOf(std::uint32_t hash, std::string_view name) const {
  std::size_t at = hash % kSlots;
  while (slots_[at] != 0 && !results_[slots_[at] - 1].isOf(hash, name)) at = (at + 1) % kSlots;
  return at;
}

bool ClassMemo::replay(std::string_view name, ShapeStyle& style) const {
  if (results_.empty()) return false;
  const std::size_t slot = slotOf(hashNoCase(name.data(), name.size()), name);
  if (slots_[slot] == 0) return false;
  const Result& result = results_[slots_[slot] - 1];
  if (std::memcmp(&result.before, &style, sizeof style) != 0) return false;
  std::memcpy(&style, &result.after, sizeof style);
  return true;
}

void ClassMemo::keep(std::string_view name, const ShapeStyle& before, const ShapeStyle& after,
                     Former former) {
  if (name.size() > kLongest) return;
  const std::uint32_t hash = hashNoCase(name.data(), name.size());
  const std::size_t slot = slotOf(hash, name);
  if (slots_[slot] == 0) {
    if (results_.count() == kMost) return;
    Result* added = results_.append();
    if (added == nullptr) return;
    added->hash = hash;
    added->length = static_cast<std::uint32_t>(name.size());
    std::memcpy(added->name, name.data(), name.size());
    slots_[slot] = static_cast<std::uint16_t>(results_.count());
  } else if (former == Former::kStays) {
    return;
  }
  Result& result = results_[slots_[slot] - 1];
  std::memcpy(&result.before, &before, sizeof before);
  std::memcpy(&result.after, &after, sizeof after);
}

void ClassMemo::forget() {
  if (results_.empty()) return;
  slots_.fill(0);
  results_.clear();
}

}  // namespace egfsvg
