// One reference to a host object: a page's tree block, a file.
#pragma once

#include <utility>

#include "host/documents.h"
#include "host/memory.h"

namespace egfsvg {

/// Drops its reference at the end. 0 is none.
class ObjectReference {
 public:
  ObjectReference() = default;
  explicit ObjectReference(HostHandle handle) : handle_(handle) {}
  ObjectReference(ObjectReference&& other) noexcept : handle_(other.release()) {}
  ObjectReference& operator=(ObjectReference&&) = delete;
  ~ObjectReference() {
    if (handle_ != 0) OBJ_DestroyObjectTrace(handle_, RMM_SITE);
  }

  explicit operator bool() const { return handle_ != 0; }
  HostHandle get() const { return handle_; }
  HostHandle release() { return std::exchange(handle_, 0); }

 private:
  HostHandle handle_ = 0;
};

}  // namespace egfsvg
