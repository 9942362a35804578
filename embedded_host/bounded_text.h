// Copying text into buffers of a fixed size.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace egfhost {

struct CopiedText {
  std::size_t length;  // bytes stored before the zero
  bool whole;          // nothing was cut
};

// Stores what fits and a zero; size is at least 1.
inline CopiedText copyText(char* target, std::size_t size, std::string_view text) {
  const std::size_t length = std::min(text.size(), size - 1);
  std::memcpy(target, text.data(), length);
  target[length] = '\0';
  return {length, length == text.size()};
}

inline const char* textOrEmpty(const char* text) { return text == nullptr ? "" : text; }

// The text of a field of fixed size, which need not end with a zero.
template <std::size_t kSize>
std::string_view fieldText(const char (&field)[kSize]) {
  return {field, strnlen(field, kSize)};
}

}  // namespace egfhost
