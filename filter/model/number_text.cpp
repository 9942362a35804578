#include "model/number_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace egfsvg {
namespace {

constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1023 + kMantissaBits;
constexpr std::uint64_t kMantissaMask = (std::uint64_t{1} << kMantissaBits) - 1;
constexpr std::uint64_t kPowersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000};
constexpr int kWideBits = 64;

/// An unsigned number of 128 bits, as far as scaling needs it.
struct Wide {
  std::uint64_t high, low;
};

/// mantissa * 10^decimals; the mantissa has at most 53 bits and the factor 20.
Wide scaled(std::uint64_t mantissa, std::uint64_t factor) {
  const std::uint64_t lowPart = (mantissa & 0xffffffffU) * factor;
  const std::uint64_t highPart = (mantissa >> 32) * factor;
  const std::uint64_t low = lowPart + (highPart << 32);
  return {(highPart >> 32) + (low < lowPart ? 1U : 0U), low};
}

/// The number shifted right by `bits` (1 to 127), rounded to nearest, ties to even. False when the
/// result needs more than 64 bits.
bool shiftedRight(const Wide& n, int bits, std::uint64_t* out) {
  std::uint64_t whole, rest, half;
  bool more = false;  // of the bits below those in `rest`
  if (bits < kWideBits) {
    if ((n.high >> bits) != 0) return false;
    whole = (n.high << (kWideBits - bits)) | (n.low >> bits);
    rest = n.low & ((std::uint64_t{1} << bits) - 1);
    half = std::uint64_t{1} << (bits - 1);
  } else {
    const int over = bits - kWideBits;
    whole = over == 0 ? n.high : n.high >> over;
    rest = over == 0 ? n.low : n.high & ((std::uint64_t{1} << over) - 1);
    half = over == 0 ? std::uint64_t{1} << (kWideBits - 1) : std::uint64_t{1} << (over - 1);
    more = over != 0 && n.low != 0;
  }
  const bool up = rest > half || (rest == half && (more || (whole & 1) != 0));
  *out = whole + (up ? 1U : 0U);
  return true;
}

/// value * 10^decimals as an integer, for magnitudes that fit.
bool scaledInteger(std::uint64_t bits, int decimals, std::uint64_t* out) {
  const int exponent = static_cast<int>(bits >> kMantissaBits);
  if (exponent == 0) {  // zero and subnormals round to 0
    *out = 0;
    return true;
  }
  const std::uint64_t mantissa = (bits & kMantissaMask) | (kMantissaMask + 1);
  const int shift = kExponentBias - exponent;
  if (shift >= 2 * kWideBits) {
    *out = 0;
    return true;
  }
  if (shift <= 0) return false;  // 2^52 and above, infinities and NaN
  return shiftedRight(scaled(mantissa, kPowersOfTen[decimals]), shift, out);
}

constexpr std::array<char, 200> digitPairs() {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}
constexpr auto kDigitPairs = digitPairs();

/// The digits of a number, at least `least` of them, ending at `end`; returns their start.
char* digitsBackwards(char* end, std::uint64_t number, int least) {
  char* const stop = end - least;
  while (number >= 100) {
    end -= 2;
    std::memcpy(end, &kDigitPairs[2 * (number % 100)], 2);
    number /= 100;
  }
  if (number >= 10) {
    end -= 2;
    std::memcpy(end, &kDigitPairs[2 * number], 2);
  } else {
    *--end = static_cast<char>('0' + number);
  }
  while (end > stop) *--end = '0';
  return end;
}

}  // namespace

char* fixedText(char* out, double value, int decimals) {
  constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  std::uint64_t number;
  if (!scaledInteger(bits & ~kSignBit, decimals, &number)) {
    return std::to_chars(out, out + kNumberTextSize, value, std::chars_format::fixed, decimals).ptr;
  }
  char digits[24];
  char* const end = digits + sizeof digits;
  const char* start = digitsBackwards(end, number, decimals + 1);
  if ((bits & kSignBit) != 0) *out++ = '-';
  const auto whole = static_cast<std::size_t>(end - start) - static_cast<std::size_t>(decimals);
  std::memcpy(out, start, whole);
  out += whole;
  if (decimals == 0) return out;
  *out++ = '.';
  std::memcpy(out, start + whole, static_cast<std::size_t>(decimals));
  return out + decimals;
}

char* exponentText(char* out, double value) {
  constexpr int kDecimals = 6;
  return std::to_chars(out, out + kNumberTextSize, value, std::chars_format::scientific, kDecimals)
      .ptr;
}

char* integerText(char* out, std::int64_t value) {
  return std::to_chars(out, out + kNumberTextSize, value).ptr;
}

char* colourText(char* out, std::uint32_t word) {
  constexpr int kDigits = 6;
  char digits[8];
  const char* end = std::to_chars(digits, digits + sizeof digits, word, 16).ptr;
  for (auto n = end - digits; n < kDigits; ++n) *out++ = '0';
  std::memcpy(out, digits, static_cast<std::size_t>(end - digits));
  return out + (end - digits);
}

}  // namespace egfsvg
