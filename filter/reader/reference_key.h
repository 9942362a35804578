// The key under which tables hold what an id names.
#pragma once

#include <cstring>

#include "model/rmm_allocator.h"

namespace egfsvg {

/// "#" and an id. Short ones cost no allocation.
class ReferenceKey {
 public:
  explicit ReferenceKey(const char* id) : length_(std::strlen(id) + 1) {
    if (length_ >= sizeof short_) {
      long_ = allocateArray<char>(length_ + 1, RMM_SITE);
      text_ = long_;
    }
    if (text_ == nullptr) return;
    text_[0] = '#';
    std::memcpy(text_ + 1, id, length_);
  }
  ~ReferenceKey() { freeAll(long_); }
  ReferenceKey(const ReferenceKey&) = delete;
  ReferenceKey& operator=(const ReferenceKey&) = delete;

  /// Null without memory.
  const char* text() const { return text_; }
  std::size_t length() const { return length_; }

 private:
  char short_[128];
  char* long_ = nullptr;
  char* text_ = short_;
  std::size_t length_;
};

}  // namespace egfsvg
