// Which attribute follows which. Elements of a kind mostly bring the same attributes in the same
// order, so that the name that came behind an attribute the last time is compared first: with the
// blank in front of it, the "=" and the quote, in one step. What does not fit is looked up, and
// remembered. A guess is no more than that: what the source says is compared byte by byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/short_name_tables.h"

namespace egfsvg {

/// What stands before the value of an attribute in the most usual form.
struct NamePattern {
  static constexpr std::size_t kAround = 3;  // bytes around the name

  static constexpr ByteMask kOpensNothing = ~ByteMask{0};

  alignas(kByteBlockSize) char text[kByteBlockSize] = {};
  ByteMask unused = kOpensNothing;  // bytes of `text` behind the pattern
  std::uint32_t length = 0;         // 0 when the name is too long
  std::uint32_t code = 0;

  constexpr NamePattern() = default;
  constexpr NamePattern(std::string_view name, int nameCode)
      : unused(kWholeBlock & ~((ByteMask{1} << (name.size() + kAround)) - 1)),
        length(static_cast<std::uint32_t>(name.size() + kAround)),
        code(static_cast<std::uint32_t>(nameCode)) {
    std::size_t at = 0;
    text[at++] = ' ';
    for (const char c : name) text[at++] = c;
    text[at++] = '=';
    text[at++] = '"';
  }

  /// Whether the text at `at`, of which a whole block can be read, begins so.
  bool opens(const char* at) const {
    return (ByteBlock::load(at).equal(ByteBlock::loadAligned(text)) | unused) == kWholeBlock;
  }
};

class AttributeGuess {
 public:
  AttributeGuess() { next_.fill(&kPatterns[0]); }

  /// A place from which guesses are made: behind an attribute, or at the first one of an element.
  using Place = std::size_t;
  static Place behind(std::uint32_t attribute) { return attribute; }
  static Place first(std::int32_t elementType) {
    return kCodes + static_cast<std::size_t>(elementType) % kTypes;
  }

  const NamePattern& at(Place place) const { return *next_[place]; }
  void remember(Place place, std::uint32_t code) {
    const NamePattern& pattern = kPatterns[code];
    if (pattern.length != 0) next_[place] = &pattern;
  }

 private:
  static constexpr std::size_t kCodes = kAttOnLoad + 1;
  static constexpr std::size_t kTypes = 64;  // element types share places beyond

  /// By code; the first is no attribute's.
  static constexpr auto kPatterns = [] {
    std::array<NamePattern, kCodes> patterns{};
    for (const NamedCode& row : kAttributeNames) {
      const std::string_view name(row.name);
      if (name.size() + NamePattern::kAround > kByteBlockSize) continue;
      patterns[static_cast<std::size_t>(row.code)] = NamePattern(name, row.code);
    }
    return patterns;
  }();

  std::array<const NamePattern*, kCodes + kTypes> next_;
};

}  // namespace egfsvg
