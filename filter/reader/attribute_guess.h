// Which attribute follows which. Elements of a kind mostly bring the same attributes in the same
// order, so that the name that came behind an attribute the last time is compared first: with the
// blank in front of it, the "=" and the quote, in one step; an element's first one without the
// blank, which has ended the tag's name. What does not fit is looked up, and remembered. A guess is
// no more than that: what the source says is compared byte by byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/short_name_tables.h"

namespace egfsvg {

/// What stands before the value of an attribute in the most usual form.
struct NamePattern {
  static constexpr ByteMask kOpensNothing = ~ByteMask{0};

  alignas(kByteBlockSize) char text[kByteBlockSize] = {};
  ByteMask unused = kOpensNothing;  // bytes of `text` behind the pattern
  std::uint32_t length = 0;         // 0 when the name is too long
  std::uint32_t code = 0;

  constexpr NamePattern() = default;
  constexpr NamePattern(std::string_view before, std::string_view name, int nameCode) {
    constexpr std::string_view kBehind = "=\"";
    const std::size_t size = before.size() + name.size() + kBehind.size();
    if (size > kByteBlockSize) return;
    for (const std::string_view part : {before, name, kBehind}) {
      for (const char c : part) text[length++] = c;
    }
    unused = kWholeBlock & ~((ByteMask{1} << size) - 1);
    code = static_cast<std::uint32_t>(nameCode);
  }

  /// Whether the text at `at`, of which a whole block can be read, begins so.
  bool opens(const char* at) const {
    return (ByteBlock::load(at).equal(ByteBlock::loadAligned(text)) | unused) == kWholeBlock;
  }
};

class AttributeGuess {
 public:
  AttributeGuess() { next_.fill(&kNone); }

  /// A place from which guesses are made: behind an attribute, or at the first one of an element.
  using Place = std::size_t;
  static Place behind(std::uint32_t attribute) { return attribute; }
  static Place first(std::int32_t elementType) {
    return kCodes + static_cast<std::size_t>(elementType) % kTypes;
  }

  const NamePattern& at(Place place) const { return *next_[place]; }
  void remember(Place place, std::uint32_t code) {
    const NamePattern& pattern = (place < kCodes ? kPatterns.behind : kPatterns.first)[code];
    if (pattern.length != 0) next_[place] = &pattern;
  }

 private:
  static constexpr std::size_t kCodes = kAttOnLoad + 1;
  static constexpr std::size_t kTypes = 64;  // element types share places beyond

  /// By code.
  struct Patterns {
    std::array<NamePattern, kCodes> behind;
    std::array<NamePattern, kCodes> first;
  };
  static constexpr NamePattern kNone{};
  static constexpr Patterns kPatterns = [] {
    Patterns patterns{};
    for (const NamedCode& row : kAttributeNames) {
      const auto code = static_cast<std::size_t>(row.code);
      patterns.behind[code] = NamePattern(" ", row.name, row.code);
      patterns.first[code] = NamePattern("", row.name, row.code);
    }
    return patterns;
  }();

  std::array<const NamePattern*, kCodes + kTypes> next_;
};

}  // namespace egfsvg
