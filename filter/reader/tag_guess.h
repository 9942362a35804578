// Which tag it may be. A drawing has few kinds of tags, so that by its first two bytes a name is
// mostly the one that began with them the last time: that one is compared first, with the "<" in
// front of it and the byte that ends it, in one step. What does not fit is looked up, and
// remembered. A guess is no more than that: what the source says is compared byte by byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "model/short_name_tables.h"

namespace egfsvg {

/// A tag up to the end of its name.
struct TagPattern {
  static constexpr ByteMask kOpensNothing = ~ByteMask{0};
  static constexpr std::size_t kAround = 2;  // bytes around the name

  alignas(kByteBlockSize) char text[kByteBlockSize] = {};
  ByteMask unused = kOpensNothing;  // bytes of `text` behind the pattern
  std::int32_t length = 0;          // 0 when the name is too long
  std::int32_t code = 0;
  std::int32_t hasAttributes = 0;

  constexpr TagPattern() = default;
  constexpr TagPattern(std::string_view name, std::int32_t tagCode, char last)
      : unused(kWholeBlock & ~((ByteMask{1} << (name.size() + kAround)) - 1)),
        length(static_cast<std::int32_t>(name.size() + kAround)),
        code(tagCode),
        hasAttributes(last == '>' ? 0 : 1) {
    std::size_t at = 0;
    text[at++] = '<';
    for (const char c : name) text[at++] = c;
    text[at++] = last;
  }

  /// Whether the tag at `opener`, from where a whole block can be read, is this one.
  bool opens(const char* opener) const {
    return (ByteBlock::load(opener).equal(ByteBlock::loadAligned(text)) | unused) == kWholeBlock;
  }
};

class TagGuess {
 public:
  TagGuess() { last_.fill(&kNoTag); }

  /// What the tag at `opener` may be.
  const TagPattern& of(const char* opener) const { return *last_[slotOf(opener)]; }
  /// A tag of the table in its own spelling, whose name ends with the byte `last`.
  void remember(const char* opener, int code, char last) {
    if (last != ' ' && last != '>') return;
    for (const TagPattern& pattern : last == '>' ? kPatterns.closed : kPatterns.open) {
      if (pattern.code == code && pattern.opens(opener)) last_[slotOf(opener)] = &pattern;
    }
  }

 private:
  static constexpr std::size_t kSlots = 256;

  static std::size_t slotOf(const char* opener) {
    constexpr std::uint32_t kGoldenRatio = 0x9E3779B1U;
    constexpr int kShift = 24;
    std::uint16_t first;
    std::memcpy(&first, opener + 1, sizeof first);
    return first * kGoldenRatio >> kShift;
  }

  struct Patterns {
    std::array<TagPattern, std::size(kTagNames)> open;    // a blank ends the name
    std::array<TagPattern, std::size(kTagNames)> closed;  // ">" does
  };
  static constexpr TagPattern kNoTag{};
  static constexpr Patterns kPatterns = [] {
    Patterns patterns{};
    std::size_t at = 0;
    for (const NamedCode& row : kTagNames) {
      const std::string_view name(row.name);
      const bool fits = name.size() + TagPattern::kAround <= kByteBlockSize;
      if (!fits || name.find('!') != name.npos) continue;
      patterns.open[at] = TagPattern(name, row.code, ' ');
      patterns.closed[at] = TagPattern(name, row.code, '>');
      ++at;
    }
    return patterns;
  }();

  std::array<const TagPattern*, kSlots> last_;
};

}  // namespace egfsvg
