// Names of a class attribute.
#pragma once

#include <array>
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
    while (*at_ != '\0' && endsName(*at_)) ++at_;
    const char* first = at_;
    if (left_-- <= 0) return {};
    const char* const most = first + kClassNameLength;
    while (at_ != most && !endsName(*at_)) ++at_;
    return {first, static_cast<std::size_t>(at_ - first)};
  }

 private:
  static constexpr auto kEnds = [] {
    std::array<bool, 256> ends{};
    for (int c = 0; c < 256; ++c) ends[static_cast<std::size_t>(c)] = isWhite(static_cast<char>(c));
    ends['\0'] = ends[','] = ends[';'] = true;
    return ends;
  }();
  static constexpr bool endsName(char c) { return kEnds[static_cast<unsigned char>(c)]; }

  const char* at_;
  std::int32_t left_ = kMaxClasses;
};

}  // namespace egfsvg
