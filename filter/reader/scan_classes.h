// Which bytes end a fast look at a tag or attribute name. What is not plain goes the long way.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace egfsvg {

enum ScanClass : std::uint8_t {
  kEndsTagName = 1,   // white space and ">"
  kOddInTagName = 2,  // "!" may open a comment or CDATA, a zero byte ends the compared text
  kOddInAttName = 4,  // dropped, ending or zero: anything but a plain byte
};

namespace detail {

constexpr std::array<std::uint8_t, 256> scanClasses() {
  std::array<std::uint8_t, 256> table{};
  const auto add = [&table](char c, int classes) {
    auto& entry = table[static_cast<unsigned char>(c)];
    entry = static_cast<std::uint8_t>(entry | classes);
  };
  for (char c : {' ', '\n', '\t', '\r', '>'}) add(c, kEndsTagName | kOddInAttName);
  for (char c : {'!', '\0'}) add(c, kOddInTagName);
  for (char c : {'/', '=', '\0'}) add(c, kOddInAttName);
  return table;
}
inline constexpr auto kScanClasses = scanClasses();

}  // namespace detail

constexpr bool isScanned(char c, int classes) {
  return (detail::kScanClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

}  // namespace egfsvg
