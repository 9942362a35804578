// Digits from tables, two at a time. Each writes at `out` and returns the end.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace egfsvg {

/// The texts of all numbers below kBase squared, two digits each.
template <std::size_t kBase>
constexpr auto digitPairs() {
  constexpr char kDigits[] = "0123456789abcdef";
  std::array<char, 2 * kBase * kBase> pairs{};
  for (std::size_t i = 0; i < kBase * kBase; ++i) {
    pairs[2 * i] = kDigits[i / kBase];
    pairs[2 * i + 1] = kDigits[i % kBase];
  }
  return pairs;
}
inline constexpr auto kDecimalPairs = digitPairs<10>();
inline constexpr auto kHexPairs = digitPairs<16>();

constexpr std::uint64_t powerOfTen(int exponent) {
  std::uint64_t power = 1;
  for (; exponent > 0; --exponent) power *= 10;
  return power;
}

inline char* putPair(char* out, std::uint32_t number) {
  std::memcpy(out, &kDecimalPairs[std::size_t{2} * number], 2);
  return out + 2;
}

inline char* putHexPair(char* out, std::uint32_t number) {
  std::memcpy(out, &kHexPairs[std::size_t{2} * number], 2);
  return out + 2;
}

/// Exactly so many digits, with leading zeros.
template <int kCount>
inline char* putDigits(char* out, std::uint32_t number) {
  if constexpr (kCount == 1) {
    *out = static_cast<char>('0' + number);
    return out + 1;
  } else if constexpr (kCount == 2) {
    return putPair(out, number);
  } else {
    return putPair(putDigits<kCount - 2>(out, number / 100), number % 100);
  }
}

/// The shortest digits of a number below 10000. Four bytes are written also for fewer.
inline char* putShort(char* out, std::uint32_t number) {
  char digits[4];
  putDigits<4>(digits, number);
  const int zeros = (number < 1000 ? 1 : 0) + (number < 100 ? 1 : 0) + (number < 10 ? 1 : 0);
  std::uint32_t word;
  std::memcpy(&word, digits, sizeof word);
  word >>= 8 * zeros;  // the first digit stands in the lowest byte
  std::memcpy(out, &word, sizeof word);
  return out + (4 - zeros);
}

/// The digits of a larger number.
char* putLong(char* out, std::uint32_t number);

/// The shortest digits. Four bytes are written also for fewer.
inline char* putWhole(char* out, std::uint32_t number) {
  constexpr std::uint32_t kFourDigits = 10000;
  return number < kFourDigits ? putShort(out, number) : putLong(out, number);
}

}  // namespace egfsvg
