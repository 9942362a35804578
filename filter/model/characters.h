// ASCII character classes and comparison without regard to case. Bytes are unsigned, bytes above
// 127 belong to no class and fold to themselves, and no locale is asked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace egfsvg {

enum CharacterClass : std::uint8_t {
  kClassWhite = 1,  // space, line feed, tab, carriage return; nothing else
  kClassDigit = 2,
  kClassUpper = 4,
  kClassLower = 8,
  kClassPunctuation = 16,
};

namespace detail {

constexpr std::array<std::uint8_t, 256> characterClasses() {
  std::array<std::uint8_t, 256> table{};
  for (int c = '!'; c <= '~'; ++c) table[static_cast<std::size_t>(c)] = kClassPunctuation;
  for (int c = '0'; c <= '9'; ++c) table[static_cast<std::size_t>(c)] = kClassDigit;
  for (int c = 'A'; c <= 'Z'; ++c) table[static_cast<std::size_t>(c)] = kClassUpper;
  for (int c = 'a'; c <= 'z'; ++c) table[static_cast<std::size_t>(c)] = kClassLower;
  for (char c : {' ', '\n', '\t', '\r'}) table[static_cast<std::size_t>(c)] = kClassWhite;
  return table;
}
inline constexpr auto kCharacterClasses = characterClasses();

}  // namespace detail

constexpr bool isOfClass(char c, int classes) {
  return (detail::kCharacterClasses[static_cast<unsigned char>(c)] & classes) != 0;
}
constexpr bool isWhite(char c) { return isOfClass(c, kClassWhite); }
constexpr bool isDigit(char c) { return isOfClass(c, kClassDigit); }
constexpr bool isLetter(char c) { return isOfClass(c, kClassUpper | kClassLower); }
constexpr bool isPunctuation(char c) { return isOfClass(c, kClassPunctuation); }

constexpr char lower(char c) {
  return isOfClass(c, kClassUpper) ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr char upper(char c) {
  return isOfClass(c, kClassLower) ? static_cast<char>(c - ('a' - 'A')) : c;
}

/// Below, at or above 0 as the first text stands before, at or after the second; a null text stands
/// before any other.
constexpr int compareNoCase(const char* first, const char* second) {
  if (first == nullptr || second == nullptr) return (first != nullptr) - (second != nullptr);
  for (;; ++first, ++second) {
    const int a = static_cast<unsigned char>(lower(*first));
    const int b = static_cast<unsigned char>(lower(*second));
    if (a != b || a == 0) return a - b;
  }
}

/// Null equals nothing, not even null.
constexpr bool equalsNoCase(const char* first, const char* second) {
  return first != nullptr && second != nullptr && compareNoCase(first, second) == 0;
}

/// The same for a word that begins with a lower-case letter: the first byte of a text tells it from
/// most others.
inline bool isKeyword(const char* text, const char* word) {
  return (*text | ('a' - 'A')) == *word && equalsNoCase(text, word);
}

/// The same for `length` bytes at `first` against a whole text.
constexpr bool equalsNoCase(const char* first, std::size_t length, const char* second) {
  if (first == nullptr || second == nullptr) return false;
  for (std::size_t i = 0; i < length; ++i) {
    if (second[i] == '\0' || lower(first[i]) != lower(second[i])) return false;
  }
  return second[length] == '\0';
}

}  // namespace egfsvg
