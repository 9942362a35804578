// Names of a class attribute.
#pragma once

#include <cstddef>
#include <string_view>

#include "model/characters.h"

namespace egfsvg {

inline constexpr std::size_t kClassNameLength = 128;  // a longer name goes on as the next one
inline constexpr std::int32_t kMaxClasses = 1024;     // what comes after is passed over

/// White space, "," and ";" separate names.
class ClassNameWalk {
 public:
  explicit ClassNameWalk(const char* text) : at_(text) {}

  /// The next name; empty at the end.
  std::string_view next() {
    while (isSeparator(*at_)) ++at_;
    const char* first = at_;
    if (left_-- <= 0) return {};
    while (*at_ != '\0' && !isSeparator(*at_) && length(first) < kClassNameLength) ++at_;
    return {first, length(first)};
  }

 private:
  static constexpr bool isSeparator(char c) { return isWhite(c) || c == ',' || c == ';'; }
  std::size_t length(const char* first) const { return static_cast<std::size_t>(at_ - first); }

  const char* at_;
  std::int32_t left_ = kMaxClasses;
};

}  // namespace egfsvg
