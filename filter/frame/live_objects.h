// The objects behind the handles of the entry points: made in the host's memory, known while they
// live, ended by their own destructor. A handle that is not known is as good as none.
#pragma once

#include <cstdint>
#include <memory>
#include <new>

#include "host/memory.h"
#include "host/wire.h"

namespace egfsvg {

enum class LiveKind : std::uint8_t {
  kAdapterReader,
  kHandlerReader,
  kAdapterWriter,
  kHandlerWriter,
};

/// False without memory to know it by.
bool enterLiveObject(const void* object, LiveKind kind);
void leaveLiveObject(const void* object);
bool isLiveObject(const void* object, LiveKind kind);

/// How an object of a class is known and which site its memory carries. Specialised beside the
/// entry points: `kKind`, `kFile` (the class's header) and `kLine`.
template <class Object>
struct LiveClass;

/// Ends an object; its memory goes back through the class's own operator delete.
struct LiveDeleter {
  template <class Object>
  void operator()(Object* object) const {
    leaveLiveObject(object);
    delete object;
  }
};
template <class Object>
using LiveOwner = std::unique_ptr<Object, LiveDeleter>;

/// A new object, or null without memory. What its constructor throws passes, its memory given back.
template <class Object>
LiveOwner<Object> makeLiveObject() {
  using Class = LiveClass<Object>;
  void* block = RMM_AllocName(1, sizeof(Object), Class::kFile, Class::kLine);
  if (block == nullptr) return nullptr;
  Object* object = nullptr;
  try {
    object = ::new (block) Object;
  } catch (...) {
    RMM_Free(block);
    throw;
  }
  if (enterLiveObject(object, Class::kKind)) return LiveOwner<Object>(object);
  delete object;
  return nullptr;
}

/// The object behind a handle, or null.
template <class Object>
Object* liveObject(HostHandle handle) {
  void* object = at<void>(handle);
  return isLiveObject(object, LiveClass<Object>::kKind) ? static_cast<Object*>(object) : nullptr;
}

}  // namespace egfsvg
