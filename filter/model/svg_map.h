// The keyed table of the reader: entries in order of insertion, keys compared without regard to
// case, the first match counting. Keys are owned by the map, values are not. A hash index over the
// lower-cased keys is built once the table is worth it; without memory for it, looks walk the
// entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "host/memory.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// FNV-1a over the lower-cased bytes.
constexpr std::uint32_t hashNoCase(const char* text, std::size_t length) {
  std::uint32_t hash = 2166136261U;
  for (std::size_t i = 0; i < length; ++i) {
    hash = (hash ^ static_cast<unsigned char>(lower(text[i]))) * 16777619U;
  }
  return hash;
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
    return index_.slots != nullptr ? lookUp(key, length) : walk(key, length);
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

  bool append(char* key, V* value) {
    if (count == capacity_ && !grow()) return false;
    entries[count] = {key, value};
    ++count;
    if (index_.holds(count)) {
      index_.put(egfsvg::hashNoCase(key, std::strlen(key)), count - 1);
    } else if (count > egfsvg::KeyIndex::kWorthIt) {
      rebuild();
    }
    return true;
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

  void rebuild() {
    if (!index_.make(count)) return;
    for (std::int32_t i = 0; i < count; ++i) {
      index_.put(egfsvg::hashNoCase(entries[i].key, std::strlen(entries[i].key)), i);
    }
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
      if (egfsvg::equalsNoCase(key, length, entries[entry].key)) return entry;
    }
  }

  std::int32_t capacity_ = 0;
  egfsvg::KeyIndex index_;
};
