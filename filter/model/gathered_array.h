// An array whose length is known only at its end. Its entries are gathered on the stack as long as
// they are few, so that the usual array costs one block of its exact size.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "model/rmm_allocator.h"

namespace egfsvg {

/// Gathers trivially copyable entries, the first `kNear` of them on the stack, and owns what it has
/// until it is released. A failed growth leaves it as it was.
template <class T, std::ptrdiff_t kNear>
class GatheredArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  GatheredArray(const char* file, int line) : file_(file), line_(line) {}
  ~GatheredArray() { freeAll(block_); }
  GatheredArray(const GatheredArray&) = delete;
  GatheredArray& operator=(const GatheredArray&) = delete;

  std::int32_t count() const { return static_cast<std::int32_t>(next_ - first()); }
  bool empty() const { return next_ == first(); }
  /// The place behind the last entry, and the end of the room. What is written in between becomes
  /// entries by `setNext`.
  T* next() { return next_; }
  T* full() { return full_; }
  void setNext(T* next) { next_ = next; }

  /// A place for a new uninitialised entry, or null without memory.
  T* append() {
    if (next_ == full_ && !grow()) return nullptr;
    return next_++;
  }

  /// Makes room for more entries: at first for about as many as are expected in all. False without
  /// memory.
  bool grow(std::ptrdiff_t expected = 0) {
    const std::ptrdiff_t have = next_ - first();
    const std::ptrdiff_t room =
        block_ == nullptr ? std::clamp(expected, kLeastBlock, kMostExpected) : 2 * have;
    T* const block = resized(room);
    if (block == nullptr) return false;
    if (block_ == nullptr) copyNear(block, have);
    place(block, have, room);
    return true;
  }

  /// Hands a block of the exact size over and is empty then. Null when it was, or without memory.
  T* release() {
    const std::ptrdiff_t have = next_ - first();
    T* block = block_;
    if (have == 0) {
      freeAll(block);
    } else if (block == nullptr) {
      block = resized(have);
      if (block != nullptr) copyNear(block, have);
    } else if (next_ != full_) {
      T* const cut = resized(have);
      if (cut != nullptr) block = cut;
    }
    block_ = nullptr;
    next_ = near_;
    full_ = near_ + kNear;
    return block;
  }

 private:
  static constexpr std::ptrdiff_t kLeastBlock = 4 * kNear;
  static constexpr std::ptrdiff_t kMostExpected = 16 * kNear;

  T* first() { return block_ == nullptr ? near_ : block_; }
  const T* first() const { return block_ == nullptr ? near_ : block_; }
  T* resized(std::ptrdiff_t room) {
    return static_cast<T*>(
        RMM_ReAllocName(block_, static_cast<std::size_t>(room), sizeof(T), file_, line_));
  }
  void copyNear(T* block, std::ptrdiff_t count) const {
    std::memcpy(static_cast<void*>(block), near_, static_cast<std::size_t>(count) * sizeof(T));
  }
  void place(T* block, std::ptrdiff_t have, std::ptrdiff_t room) {
    block_ = block;
    next_ = block + have;
    full_ = block + room;
  }

  const char* file_;
  int line_;
  T* block_ = nullptr;  // null while the entries are near
  T* next_ = near_;
  T* full_ = near_ + kNear;
  T near_[kNear];
};

}  // namespace egfsvg
