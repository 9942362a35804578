// printf formats that are taken apart when the filter is compiled: the conversions that the written
// form needs are %.Nf, %f, %e, %d, %ld, %s, and %6x for a colour of six digits.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/number_text.h"

namespace egfsvg {

/// The text of a format, as a template argument.
template <std::size_t kSize>
struct FormatText {
  char text[kSize];

  consteval FormatText(const char (&literal)[kSize]) { std::copy_n(literal, kSize, text); }
  constexpr std::string_view view() const { return {text, kSize - 1}; }
};

/// One format behind the other.
template <std::size_t kFirst, std::size_t kSecond>
consteval auto operator+(const FormatText<kFirst>& first, const FormatText<kSecond>& second) {
  char joined[kFirst + kSecond - 1];
  std::copy_n(first.text, kFirst - 1, joined);
  std::copy_n(second.text, kSecond, joined + kFirst - 1);
  return FormatText<kFirst + kSecond - 1>(joined);
}

enum class Conversion : std::uint8_t { kNone, kFixed, kExponent, kInteger, kColour, kText };

/// Literal bytes, then a conversion; the last part has none.
struct FormatPart {
  std::size_t start = 0;
  std::size_t length = 0;
  Conversion conversion = Conversion::kNone;
  int decimals = 6;

  /// The room that it needs, without that of a text.
  constexpr std::size_t room() const {
    const bool isDouble = conversion == Conversion::kFixed || conversion == Conversion::kExponent;
    return length + (isDouble ? kNumberTextSize : kIntegerTextSize);
  }
};

/// What it does not know is no constant and does not compile.
constexpr Conversion conversionOf(char letter) {
  switch (letter) {
    case 'f':
      return Conversion::kFixed;
    case 'e':
      return Conversion::kExponent;
    case 'd':
      return Conversion::kInteger;
    case 'x':
      return Conversion::kColour;
    case 's':
      return Conversion::kText;
    default:
      throw "unknown conversion";
  }
}

/// Takes a part apart; returns where the next one starts.
template <std::size_t kSize>
constexpr std::size_t takePart(const FormatText<kSize>& format, std::size_t at, FormatPart& part) {
  const auto& text = format.text;
  part.start = at;
  while (text[at] != '%' && at + 1 < kSize) ++at;
  part.length = at - part.start;
  if (at + 1 == kSize) return at;
  ++at;
  if (text[at] == '.') {
    part.decimals = text[at + 1] - '0';
    at += 2;
  }
  while (text[at] == 'l' || text[at] == '6') ++at;
  part.conversion = conversionOf(text[at]);
  return at + 1;
}

template <std::size_t kSize>
constexpr std::size_t countParts(const FormatText<kSize>& format) {
  std::size_t count = 1;
  for (std::size_t i = 0; i < kSize; ++i) count += format.text[i] == '%' ? 1 : 0;
  return count;
}

/// The parts of one format.
template <FormatText kFormat>
struct FormatParts {
  static constexpr std::size_t kCount = countParts(kFormat);

  static constexpr std::array<FormatPart, kCount> kParts = [] {
    std::array<FormatPart, kCount> parts;
    std::size_t at = 0;
    for (FormatPart& part : parts) at = takePart(kFormat, at, part);
    return parts;
  }();

  static constexpr std::size_t kRoom = [] {
    std::size_t room = 0;
    for (const FormatPart& part : kParts) room += part.room();
    return room;
  }();

  /// Writes the literal bytes of a part.
  template <std::size_t kPart>
  static char* putLiteral(char* out) {
    constexpr FormatPart kLiteral = kParts[kPart];
    std::copy_n(kFormat.text + kLiteral.start, kLiteral.length, out);
    return out + kLiteral.length;
  }
};

}  // namespace egfsvg
