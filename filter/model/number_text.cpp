#include "model/number_text.h"

#include <charconv>

namespace egfsvg {

char* putLong(char* out, std::uint32_t number) {
  constexpr std::uint32_t kFourDigits = 10000;
  return putDigits<4>(putWhole(out, number / kFourDigits), number % kFourDigits);
}

char* fixedText(char* out, double value, int decimals) {
  return std::to_chars(out, out + kNumberTextSize, value, std::chars_format::fixed, decimals).ptr;
}

char* exponentText(char* out, double value) {
  constexpr int kDecimals = 6;
  return std::to_chars(out, out + kNumberTextSize, value, std::chars_format::scientific, kDecimals)
      .ptr;
}

char* wideIntegerText(char* out, std::int64_t value) {
  return std::to_chars(out, out + kNumberTextSize, value).ptr;
}

char* wideColourText(char* out, std::uint32_t word) {
  return std::to_chars(out, out + kNumberTextSize, word, 16).ptr;
}

}  // namespace egfsvg
