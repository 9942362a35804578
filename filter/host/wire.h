// The ground of the contract between host and filter: 32-bit handles, 32-bit references and access
// to packed fields. Everything that is named by a handle or a reference lives in one reserved
// 4 GiB address range, the cage; a handle is the distance from the start of the cage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

// A function or object that the host exports.
#define EGFHOST_API __attribute__((visibility("default")))

// A record whose layout is fixed by byte offsets: no padding, readable through any pointer.
#define EGF_WIRE __attribute__((packed, may_alias))

// A document, view, map, stream, file object, style table, gauge level, reader or writer.
// 0 means none.
using HostHandle = std::uint32_t;

// First byte of the cage. The host sets it before any module runs and never changes it.
extern "C" EGFHOST_API char* RMM_cageBase;

namespace egfsvg {

// The native address behind a handle; null for 0.
template <class T>
inline T* at(HostHandle handle) {
  return handle == 0 ? nullptr : reinterpret_cast<T*>(RMM_cageBase + handle);
}

// The handle of an address inside the cage; 0 for null.
inline HostHandle handleOf(const void* address) {
  return address == nullptr
             ? 0
             : static_cast<HostHandle>(static_cast<const char*>(address) - RMM_cageBase);
}

// A field of a record at a byte offset, by value. Offsets come from offsetof or a field table.
template <class T>
inline T readPacked(const void* record, std::size_t offset = 0) {
  static_assert(std::is_trivially_copyable_v<T>);
  T value;
  std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
  return value;
}

template <class T>
inline void writePacked(void* record, std::size_t offset, T value) {
  static_assert(std::is_trivially_copyable_v<T>);
  std::memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

}  // namespace egfsvg

// A 32-bit pointer as it stands in a wire record. It has no alignment of its own, so that a member
// call on a packed field is safe.
template <class T>
struct EGF_WIRE ref32 {
  HostHandle offset;

  T* get() const { return egfsvg::at<T>(offset); }
  T* operator->() const { return get(); }
  T& operator[](std::size_t index) const { return get()[index]; }
  explicit operator bool() const { return offset != 0; }
  ref32& operator=(T* address) {
    offset = egfsvg::handleOf(address);
    return *this;
  }
  static ref32 of(T* address) { return ref32{egfsvg::handleOf(address)}; }
};

template <>
struct EGF_WIRE ref32<void> {
  HostHandle offset;

  void* get() const { return egfsvg::at<void>(offset); }
  explicit operator bool() const { return offset != 0; }
  ref32& operator=(void* address) {
    offset = egfsvg::handleOf(address);
    return *this;
  }
  static ref32 of(void* address) { return ref32{egfsvg::handleOf(address)}; }
};

static_assert(sizeof(ref32<char>) == 4 && alignof(ref32<char>) == 1);
static_assert(std::is_trivially_copyable_v<ref32<char>>);
