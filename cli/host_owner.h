// Owners of what the host and the filter hand out by handle.
#pragma once

#include <utility>

#include "host/wire.h"

namespace egfsvg {

// Releases a handle with the function when it goes; 0 is none.
template <auto release>
class HandleOwner {
 public:
  HandleOwner() = default;
  explicit HandleOwner(HostHandle handle) : handle_(handle) {}
  HandleOwner(HandleOwner&& other) noexcept : handle_(std::exchange(other.handle_, 0)) {}
  HandleOwner& operator=(HandleOwner&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  HandleOwner(const HandleOwner&) = delete;
  HandleOwner& operator=(const HandleOwner&) = delete;
  ~HandleOwner() {
    if (handle_ != 0) release(handle_);
  }

  HostHandle get() const { return handle_; }
  explicit operator bool() const { return handle_ != 0; }

 private:
  HostHandle handle_ = 0;
};

}  // namespace egfsvg
