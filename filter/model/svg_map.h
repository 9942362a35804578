// The keyed table of the reader: entries in order of insertion, keys compared without regard to
// case, the first match counting. Keys are owned by the map, values are not. The first look-up in a
// table that is worth it builds a hash index over the lower-cased keys; without memory for it,
// looks walk the entries. A numbered table has null keys: an entry's key is its position, in
// decimal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "host/memory.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// The letters A to Z of eight bytes made lower-case; bytes above 127 stay.
constexpr std::uint64_t lowerWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  constexpr std::uint64_t kHigh = 0x80 * kOnes;
  const std::uint64_t low = word & ~kHigh;
  const std::uint64_t fromA = low + (0x80 - 'A') * kOnes;
  const std::uint64_t beyondZ = low + (0x7f - 'Z') * kOnes;
  return word | ((fromA ^ beyondZ) & ~word & kHigh) >> 2;
}

/// Multiplies and folds, eight bytes at a time, over the lower-cased text.
inline std::uint32_t hashNoCase(const char* text, std::size_t length) {
  constexpr std::uint64_t kSpreading = 0x9e3779b97f4a7c15U;  // 2^64 by the golden ratio
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::uint64_t hash = length;
  for (std::size_t at = 0; at < length; at += kWord) {
    std::uint64_t word = 0;
    std::memcpy(&word, text + at, length - at < kWord ? length - at : kWord);
    hash = (hash ^ lowerWord(word)) * kSpreading;
    hash ^= hash >> 32;
  }
  return static_cast<std::uint32_t>(hash);
}

/// Open-addressed slots that hold entry numbers from 1; 0 is free.
struct KeyIndex {
  static constexpr std::int32_t kWorthIt = 8;  // entries below which looks just walk

  std::uint32_t* slots = nullptr;
  std::uint32_t capacity = 0;  // a power of two, at least twice the entries

  bool holds(std::int32_t entries) const {
    return capacity >= 2 * static_cast<std::uint32_t>(entries);
  }
  void put(std::uint32_t hash, std::int32_t entry) {
    std::uint32_t at = hash & (capacity - 1);
    while (slots[at] != 0) at = (at + 1) & (capacity - 1);
    slots[at] = static_cast<std::uint32_t>(entry) + 1;
  }
  /// False without memory; the index is empty then.
  bool make(std::int32_t entries) {
    freeAll(slots);
    capacity = 4 * kWorthIt;
    while (capacity < 4 * static_cast<std::uint32_t>(entries)) capacity *= 2;
    slots = static_cast<std::uint32_t*>(RMM_CallocName(capacity, sizeof *slots, RMM_SITE));
    if (slots == nullptr) capacity = 0;
    return slots != nullptr;
  }
};

}  // namespace egfsvg

template <class V>
class Map {
 public:
  struct Entry {
    char* key;
    V* value;
  };

  Entry* entries = nullptr;
  std::int32_t count = 0;

  Map() = default;
  Map(const Map&) = delete;
  Map& operator=(const Map&) = delete;
  ~Map() { clear(); }

  /// The value of the first entry with that key, or null.
  V* find(const char* key) const { return at(isthere(key)); }
  V* find(const char* key, std::size_t length) const { return at(isthere(key, length)); }

  /// The entry's position, or -1; also for a null key.
  std::int32_t isthere(const char* key) const {
    return key == nullptr || count == 0 ? -1 : isthere(key, std::strlen(key));
  }
  std::int32_t isthere(const char* key, std::size_t length) const {
    if (key == nullptr || count == 0) return -1;
    if (entries[0].key == nullptr) return positionOf(key, length);
    return isIndexed() ? lookUp(key, length) : walk(key, length);
  }

  /// The value at a position, or null outside the table.
  V* at(std::int32_t position) const {
    return position >= 0 && position < count ? entries[position].value : nullptr;
  }

  /// Takes the key over, unless key or value is null or memory ends: then the table is unchanged,
  /// the key stays the caller's and `stored`, when asked for, is false. A key that is there keeps
  /// its place: its key text and value are replaced and the old value is returned, for the caller
  /// to free. Otherwise the result is null.
  V* insert(char* key, V* value, bool* stored = nullptr) {
    const bool wanted = key != nullptr && value != nullptr;
    if (stored != nullptr) *stored = wanted;
    if (!wanted) return nullptr;
    const std::int32_t position = isthere(key);
    if (position >= 0) return replace(position, key, value);
    const bool appended = append(key, value);
    if (stored != nullptr) *stored = appended;
    return nullptr;
  }

  /// Takes over a key that is not in the table. False without memory: nothing has changed.
  bool append(char* key, V* value) {
    if (count == capacity_ && !grow()) return false;
    entries[count] = {key, value};
    ++count;
    if (index_.holds(count)) index_.put(egfsvg::hashNoCase(key, std::strlen(key)), count - 1);
    return true;
  }

  /// Adds to a numbered table. False without memory: nothing has changed.
  bool appendNumbered(V* value) {
    if (count == capacity_ && !grow()) return false;
    entries[count++] = {nullptr, value};
    return true;
  }

  /// Frees the keys in order and the arrays. Values stay with their owner.
  void clear() {
    for (std::int32_t i = 0; i < count; ++i) egfsvg::freeAll(entries[i].key);
    egfsvg::freeAll(entries, index_.slots);
    count = capacity_ = 0;
    index_.capacity = 0;
  }

 private:
  static constexpr std::int32_t kFirstCapacity = 8;

  V* replace(std::int32_t position, char* key, V* value) {
    Entry& entry = entries[position];
    V* old = entry.value;
    if (entry.key != key) egfsvg::freeAll(entry.key);
    entry = {key, value};
    return old;
  }

  bool grow() {
    constexpr std::int32_t kMost = 0x3fffffff;
    const std::int32_t wanted = capacity_ == 0 ? kFirstCapacity : capacity_ * 2;
    if (wanted > kMost) return false;
    void* block =
        capacity_ == 0
            ? RMM_CallocName(static_cast<std::size_t>(wanted), sizeof(Entry), RMM_SITE)
            : RMM_ReAllocName(entries, static_cast<std::size_t>(wanted), sizeof(Entry), RMM_SITE);
    if (block == nullptr) return false;
    entries = static_cast<Entry*>(block);
    capacity_ = wanted;
    return true;
  }

  /// Whether the index tells of every entry; it is made when it is worth it.
  bool isIndexed() const {
    if (index_.holds(count)) return true;
    if (count <= egfsvg::KeyIndex::kWorthIt || !index_.make(count)) return false;
    for (std::int32_t i = 0; i < count; ++i) {
      index_.put(egfsvg::hashNoCase(entries[i].key, std::strlen(entries[i].key)), i);
    }
    return true;
  }

  /// Of a number without leading zeros, in a numbered table.
  std::int32_t positionOf(const char* key, std::size_t length) const {
    std::int64_t position = 0;
    if (length == 0 || (length > 1 && key[0] == '0')) return -1;
    for (std::size_t i = 0; i < length; ++i) {
      if (!egfsvg::isDigit(key[i])) return -1;
      position = position * 10 + (key[i] - '0');
      if (position >= count) return -1;
    }
    return static_cast<std::int32_t>(position);
  }

  std::int32_t walk(const char* key, std::size_t length) const {
    for (std::int32_t i = 0; i < count; ++i) {
      if (egfsvg::equalsNoCase(key, length, entries[i].key)) return i;
    }
    return -1;
  }

  std::int32_t lookUp(const char* key, std::size_t length) const {
    const std::uint32_t mask = index_.capacity - 1;
    for (std::uint32_t at = egfsvg::hashNoCase(key, length) & mask;; at = (at + 1) & mask) {
      const std::uint32_t slot = index_.slots[at];
      if (slot == 0) return -1;
      const auto entry = static_cast<std::int32_t>(slot - 1);
      if (isKeyOf(entries[entry], key, length)) return entry;
    }
  }

  /// Most keys are asked for as they were written.
  static bool isKeyOf(const Entry& entry, const char* key, std::size_t length) {
    if (std::strncmp(entry.key, key, length) == 0) return entry.key[length] == '\0';
    return egfsvg::equalsNoCase(key, length, entry.key);
  }

  std::int32_t capacity_ = 0;
  mutable egfsvg::KeyIndex index_;
};
