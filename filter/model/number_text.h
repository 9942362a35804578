// Numbers as text, byte for byte what the C library's printf writes in the "C" locale, without
// asking it. Each writes at `out` and returns the end; nothing is terminated.
#pragma once

#include <cstddef>
#include <cstdint>

namespace egfsvg {

/// Room that any of these can need: a double of 309 digits, a point and decimals, a sign.
inline constexpr std::size_t kNumberTextSize = 340;

/// "%.Nf" for N from 0 to 6: ties to the even digit by the number's exact value.
char* fixedText(char* out, double value, int decimals);

/// "%e".
char* exponentText(char* out, double value);

/// "%ld".
char* integerText(char* out, std::int64_t value);

/// "%6x" with its leading blanks turned to zeros: at least six lower-case digits.
char* colourText(char* out, std::uint32_t word);

}  // namespace egfsvg
