// Constant tables of names looked up by hash. The slots are laid out at compile time; a name that
// stands twice is found at its first place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/characters.h"

namespace egfsvg {

/// A name and what it stands for.
struct NamedCode {
  const char* name;
  std::int32_t code;
};

/// Cheap and good enough for short names: length, the two ends and every byte folded once.
constexpr std::uint32_t hashName(const char* text, std::size_t length) {
  std::uint32_t hash = static_cast<std::uint32_t>(length);
  for (std::size_t i = 0; i < length; ++i) {
    hash = hash * 33 + static_cast<unsigned char>(lower(text[i]));
  }
  return hash ^ (hash >> 7);
}

/// Positions of `Count` names in `Slots` slots, a power of two.
template <std::size_t Count, std::size_t Slots>
class NameIndex {
  static_assert((Slots & (Slots - 1)) == 0 && Slots >= 2 * Count && Count < 255);

 public:
  using Names = std::array<const char*, Count>;

  constexpr explicit NameIndex(const Names& names) : names_(names) {
    for (std::size_t i = 0; i < Count; ++i) {
      const std::string_view name(names[i]);
      lengths_[i] = static_cast<std::uint8_t>(name.size());
      longest_ = name.size() > longest_ ? name.size() : longest_;
      if (find(name.data(), name.size()) >= 0) continue;
      std::size_t at = hashName(name.data(), name.size()) & (Slots - 1);
      while (slots_[at] != 0) at = (at + 1) & (Slots - 1);
      slots_[at] = static_cast<std::uint8_t>(i + 1);
    }
  }

  /// The position of the first equal name, or -1.
  constexpr int find(const char* text, std::size_t length) const {
    if (text == nullptr || length > longest_) return -1;
    for (std::size_t at = hashName(text, length) & (Slots - 1); slots_[at] != 0;
         at = (at + 1) & (Slots - 1)) {
      const std::size_t i = slots_[at] - 1U;
      if (lengths_[i] == length && equalsNoCase(text, length, names_[i])) {
        return static_cast<int>(i);
      }
    }
    return -1;
  }

  /// The same for a terminated text; a long one is not walked to its end.
  constexpr int find(const char* text) const {
    if (text == nullptr) return -1;
    std::size_t length = 0;
    while (length <= longest_ && text[length] != '\0') ++length;
    return find(text, length);
  }

 private:
  Names names_;
  std::array<std::uint8_t, Count> lengths_{};
  std::array<std::uint8_t, Slots> slots_{};
  std::size_t longest_ = 0;
};

}  // namespace egfsvg
