// Memory of the filter, all of it from the host's named allocator: blocks for records, arrays and
// texts (null on failure), an array that grows, and a standard allocator for containers, whose
// std::bad_alloc the caller turns into its own failure. Every call carries its site: RMM_SITE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

#include "host/memory.h"

namespace egfsvg {

/// Uninitialised block for `count` entries.
template <class T>
T* allocateArray(std::size_t count, const char* file, int line) {
  static_assert(std::is_trivially_destructible_v<T>);
  return static_cast<T*>(RMM_AllocName(count, sizeof(T), file, line));
}

/// Uninitialised block for one record.
template <class T>
T* allocateRecord(const char* file, int line) {
  return allocateArray<T>(1, file, line);
}

/// Zeroed block for one record.
template <class T>
T* allocateZeroed(const char* file, int line) {
  static_assert(std::is_trivially_destructible_v<T>);
  return static_cast<T*>(RMM_CallocName(1, sizeof(T), file, line));
}

/// A terminated copy of `length` bytes; null for a null text.
inline char* duplicateText(const char* text, std::size_t length, const char* file, int line) {
  if (text == nullptr) return nullptr;
  char* copy = allocateArray<char>(length + 1, file, line);
  if (copy == nullptr) return nullptr;
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}
inline char* duplicateText(const char* text, const char* file, int line) {
  return text == nullptr ? nullptr : duplicateText(text, std::strlen(text), file, line);
}

/// Whether all pointers are null.
template <class... T>
bool allNull(T* const&... block) {
  return (reinterpret_cast<std::uintptr_t>(block) | ...) == 0;
}

/// Frees a block that is there, without looking at what else there is.
template <class T>
void freeBlock(T*& block) {
  if (block == nullptr) return;
  RMM_Free(const_cast<std::remove_cv_t<T>*>(block));
  block = nullptr;
}

template <class... T>
[[gnu::noinline]] void freeEach(T*&... block) {
  (freeBlock(block), ...);
}

/// Frees each block that is there, in order, and sets each pointer to null.
template <class... T>
inline void freeAll(T*&... block) {
  if constexpr (sizeof...(block) == 1) {
    (freeBlock(block), ...);
  } else if (!allNull(block...)) {
    freeEach(block...);  // most records own little of what they could
  }
}

/// An array of trivially copyable entries that grows geometrically and owns its block until it is
/// released. A failed growth leaves it as it was.
template <class T>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  GrowingArray(const char* file, int line) : file_(file), line_(line) {}
  ~GrowingArray() { freeAll(data_); }
  GrowingArray(const GrowingArray&) = delete;
  GrowingArray& operator=(const GrowingArray&) = delete;

  T* data() { return data_; }
  const T* data() const { return data_; }
  T* begin() { return data_; }
  T* end() { return data_ + count_; }
  std::int32_t count() const { return count_; }
  bool empty() const { return count_ == 0; }
  T& operator[](std::int32_t index) { return data_[index]; }
  const T& operator[](std::int32_t index) const { return data_[index]; }
  T& back() { return data_[count_ - 1]; }

  /// Keeps the block for reuse.
  void clear() { count_ = 0; }
  /// Drops entries from the end.
  void cutTo(std::int32_t count) { count_ = count < count_ ? count : count_; }

  /// After a write behind the entries, within what was reserved.
  void setCount(std::int32_t count) { count_ = count; }

  bool reserve(std::int32_t capacity) { return capacity <= capacity_ || resize(capacity); }

  /// A place for `added` entries behind the last, or null.
  T* room(std::size_t added) {
    const auto left = static_cast<std::size_t>(capacity_ - count_);
    if (added > left) [[unlikely]]
      return growFor(added) ? data_ + count_ : nullptr;
    return data_ + count_;
  }

  /// A new uninitialised entry, or null.
  T* append() {
    if (count_ == capacity_ && !grow(1)) return nullptr;
    return &data_[count_++];
  }
  bool push(const T& entry) {
    const T copy = entry;  // it may stand in the block that is about to move
    T* slot = append();
    if (slot != nullptr) *slot = copy;
    return slot != nullptr;
  }
  /// Appends `added` entries that do not stand in this array.
  bool append(const T* entries, std::int32_t added) {
    if (added > capacity_ - count_ && !grow(added)) return false;
    if (added > 0)
      std::memcpy(data_ + count_, entries, static_cast<std::size_t>(added) * sizeof(T));
    count_ += added;
    return true;
  }

  /// Hands the block over, cut to its size; null when empty. The array is empty afterwards.
  T* release() {
    if (count_ == 0) freeAll(data_);
    if (count_ != 0 && count_ < capacity_) resize(count_);
    T* block = data_;
    data_ = nullptr;
    count_ = capacity_ = 0;
    return block;
  }

 private:
  static constexpr std::int32_t kFirstCapacity = 8;

  [[gnu::noinline]] bool growFor(std::size_t added) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    return added <= kMost && grow(static_cast<std::int32_t>(added));
  }
  bool grow(std::int32_t added) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    if (added > kMost - count_) return false;
    const std::int32_t needed = count_ + added;
    const std::int32_t doubled = capacity_ > kMost / 2 ? kMost : capacity_ * 2;
    const std::int32_t wanted = doubled < kFirstCapacity ? kFirstCapacity : doubled;
    return resize(needed > wanted ? needed : wanted);
  }
  bool resize(std::int32_t capacity) {
    void* block =
        RMM_ReAllocName(data_, static_cast<std::size_t>(capacity), sizeof(T), file_, line_);
    if (block == nullptr) return false;
    data_ = static_cast<T*>(block);
    capacity_ = capacity;
    return true;
  }

  const char* file_;
  int line_;
  T* data_ = nullptr;
  std::int32_t count_ = 0;
  std::int32_t capacity_ = 0;
};

/// A standard allocator over the host's. Failure throws std::bad_alloc, which must be caught before
/// it leaves the filter.
template <class T>
struct RmmAllocator {
  using value_type = T;

  RmmAllocator() = default;
  template <class U>
  RmmAllocator(const RmmAllocator<U>&) {}

  T* allocate(std::size_t count) {
    void* block = RMM_AllocName(count, sizeof(T), RMM_SITE);
    if (block == nullptr) throw std::bad_alloc();
    return static_cast<T*>(block);
  }
  void deallocate(T* block, std::size_t) noexcept { RMM_Free(block); }

  friend bool operator==(const RmmAllocator&, const RmmAllocator&) { return true; }
};

}  // namespace egfsvg
