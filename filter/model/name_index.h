// Constant tables of names looked up by hash. The slots are laid out at compile time; a name that
// stands twice is found at its first place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "model/characters.h"

namespace egfsvg {

/// A name and what it stands for.
struct NamedCode {
  const char* name;
  std::int32_t code;
};

/// Found by trial: with it hardly two names of the tables share a slot.
inline constexpr std::uint32_t kSpread = 0x25FBD4CDU;

/// Four bytes of a name tell most names apart. Case is left out, roughly: equal names have equal
/// hashes, and that is all.
constexpr std::uint32_t hashName(const char* text, std::size_t length) {
  if (length == 0) return 0;
  const auto folded = [text](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]) | 0x20U);
  };
  const std::uint32_t ends = folded(0) | folded(length - 1) << 8;
  const std::uint32_t inner = folded(length / 2) << 16 | folded(length / 4) << 24;
  const std::uint32_t hash = ((ends | inner) + static_cast<std::uint32_t>(length)) * kSpread;
  return hash ^ hash >> 20;
}

/// Room for a lower-case name and its terminator.
inline constexpr std::size_t kIndexedNameSize = 32;

namespace detail {

template <class Word>
inline bool sameWord(const char* a, const char* b) {
  Word left;
  Word right;
  std::memcpy(&left, a, sizeof left);
  std::memcpy(&right, b, sizeof right);
  return left == right;
}

}  // namespace detail

/// Byte by byte the same, by as few looks as the length allows.
constexpr bool equalBytes(const char* a, const char* b, std::size_t length) {
  if (std::is_constant_evaluated() || length < 4) {
    for (std::size_t i = 0; i < length; ++i) {
      if (a[i] != b[i]) return false;
    }
    return true;
  }
  if (length < 8) {
    return detail::sameWord<std::uint32_t>(a, b) &&
           detail::sameWord<std::uint32_t>(a + length - 4, b + length - 4);
  }
  for (std::size_t i = 0; i + 8 < length; i += 8) {
    if (!detail::sameWord<std::uint64_t>(a + i, b + i)) return false;
  }
  return detail::sameWord<std::uint64_t>(a + length - 8, b + length - 8);
}

/// Positions of `Count` names in `Slots` slots, a power of two.
template <std::size_t Count, std::size_t Slots>
class NameIndex {
  static_assert((Slots & (Slots - 1)) == 0 && Slots >= 2 * Count && Count < 255);

 public:
  using Names = std::array<const char*, Count>;

  constexpr explicit NameIndex(const Names& names) {
    for (std::size_t i = 0; i < Count; ++i) {
      const std::string_view name(names[i]);
      lengths_[i] = static_cast<std::uint8_t>(name.size());
      longest_ = name.size() > longest_ ? name.size() : longest_;
      for (std::size_t k = 0; k < name.size(); ++k) lower_[i][k] = lower(name[k]);
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
      if (lengths_[i] != length) continue;
      if (equalBytes(text, lower_[i].data(), length)) return static_cast<int>(i);
      if (equalsFolded(text, lower_[i], length)) return static_cast<int>(i);
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
  using Text = std::array<char, kIndexedNameSize>;

  static constexpr bool equalsFolded(const char* text, const Text& name, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
      if (lower(text[i]) != name[i]) return false;
    }
    return true;
  }

  std::array<Text, Count> lower_{};
  std::array<std::uint8_t, Count> lengths_{};
  std::array<std::uint8_t, Slots> slots_{};
  std::size_t longest_ = 0;
};

}  // namespace egfsvg
