// Host objects that handles name: documents, views, maps, streams, files, style tables, gauges.
// The handle is the cage offset of a small tag; the object itself stands on the process's heap.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <utility>

#include "embedded_host/blocks.h"
#include "host/memory.h"
#include "host/wire.h"

namespace egfhost {

enum class HostKind : std::uint32_t {
  kDocument = 1,
  kView,
  kMap,
  kFile,
  kStream,
  kStyleTable,
  kGauge,
  kDynaResource
};

class HostObject {
 public:
  explicit HostObject(HostKind kind) : kind_(kind) {}
  virtual ~HostObject() = default;
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  HostKind kind() const { return kind_; }
  HostHandle handle() const { return handle_; }

  void addReference() { ++references_; }
  // True when that was the last one.
  bool dropReference() { return --references_ == 0; }

 private:
  friend bool attachHandle(HostObject* object, const char* file, int line);
  HostKind kind_;
  HostHandle handle_ = 0;
  std::uint32_t references_ = 1;
};

// Makes the tag that gives an object its handle; false when memory is short.
bool attachHandle(HostObject* object, const char* file, int line);

// What stands in the cage at a handle.
struct HandleTag {
  // The low half is no first word of a tree block or a layer block.
  static constexpr std::uint32_t kLive = 0x4c444e48;

  std::uint32_t mark;  // kLive while the object lives
  HostKind kind;
  HostObject* object;
};

// What a live block at a handle is the tag of; null when it is no tag (any more).
inline HostObject* taggedObject(HostHandle liveBlock) {
  const auto* const tag = reinterpret_cast<const HandleTag*>(cageStart + liveBlock);
  return tag->mark == HandleTag::kLive ? tag->object : nullptr;
}

// The object behind a handle; null for 0 and for what is no handle (any more).
inline HostObject* hostObject(HostHandle handle) {
  return isLiveAt(handle) ? taggedObject(handle) : nullptr;
}

// Ends an object and its handle, whatever references are left. Null is allowed.
void endHostObject(HostObject* object);

// Drops one reference and ends the object at the last one.
void releaseHostObject(HostObject* object);

// The object behind a handle when it is of that class, else null.
template <class T>
T* hostObjectAs(HostHandle handle) {
  HostObject* const object = hostObject(handle);
  return object != nullptr && object->kind() == T::kKind ? static_cast<T*>(object) : nullptr;
}

// A new object with its handle and one reference; null when memory is short.
template <class T, class... Arguments>
T* makeHostObject(const char* file, int line, Arguments&&... arguments) {
  try {
    auto object = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    return attachHandle(object.get(), file, line) ? object.release() : nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// Runs what a host call does. Failures of the process's own heap become the call's failure; a
// CException* that was asked for passes.
template <class Result, class Work>
Result hostCall(Result failure, Work&& work) {
  try {
    return work();
  } catch (const std::exception&) {
    return failure;
  }
}

}  // namespace egfhost
