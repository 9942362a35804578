// An attribute made up by the reader itself.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstring>

#include "model/values.h"

namespace egfsvg {

/// A pair over a fixed text. What does not fit is dropped; two numbers of any size always fit.
class TextPair {
 public:
  explicit TextPair(const char* name) {
    std::size_t length = std::strlen(name);
    std::memcpy(pair_.name, name, length + 1);
    pair_.valueSize = kSize;
    pair_.value = text_;
    pair_.valueLength = 0;
    text_[0] = '\0';
  }
  TextPair(const TextPair&) = delete;
  TextPair& operator=(const TextPair&) = delete;

  void clear() {
    length_ = 0;
    pair_.valueLength = 0;
    text_[0] = '\0';
  }

  TextPair& add(const char* text) { return add(text, std::strlen(text)); }
  TextPair& add(const char* text, std::size_t length) {
    if (length >= kSize - length_) return *this;
    std::memcpy(text_ + length_, text, length);
    length_ += length;
    pair_.valueLength = static_cast<std::int32_t>(length_);
    text_[length_] = '\0';
    return *this;
  }

  /// The number with six decimals, as "%f" prints it.
  TextPair& addFixed(double number) {
    char digits[kNumberSize];
    const auto result =
        std::to_chars(digits, digits + kNumberSize, number, std::chars_format::fixed, kDecimals);
    return add(digits, static_cast<std::size_t>(result.ptr - digits));
  }
  TextPair& addInteger(int number) {
    char digits[kNumberSize];
    const auto result = std::to_chars(digits, digits + kNumberSize, number);
    return add(digits, static_cast<std::size_t>(result.ptr - digits));
  }

  _svg_attrib_pair* pair() { return &pair_; }

 private:
  static constexpr int kDecimals = 6;
  static constexpr std::size_t kNumberSize = 328;  // sign, 309 digits, point, decimals
  static constexpr std::size_t kSize = 2 * kNumberSize + 32;

  _svg_attrib_pair pair_;
  std::size_t length_ = 0;
  char text_[kSize];
};

}  // namespace egfsvg
