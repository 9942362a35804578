#include "model/numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

#include "model/characters.h"
#include "model/short_decimal.h"

namespace egfsvg {

namespace {

constexpr std::uint64_t kExactInteger = 1ULL << 53;  // integers up to here are exact doubles
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::ptrdiff_t kPlainDigits = 18;  // always fit in 64 bits, leading zeros and all
constexpr int kSafeDigits = 19;              // always fit in 64 bits
constexpr int kExactPower = 22;              // powers of ten up to here are exact doubles
constexpr std::int64_t kExponentCap = 1'000'000'000;  // far outside any double

/// The digits at `at`, appended to `number`; where they end.
const char* takeDigits(const char* at, const char* last, std::uint64_t* number) {
  for (; at != last && static_cast<unsigned char>(*at - '0') < 10; ++at) {
    *number = *number * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  return at;
}

/// A number of up to 18 digits, one by one. Null, with `value` as it was, for any other form.
const char* longDecimal(const char* first, const char* last, double* value) {
  const bool negative = first != last && *first == '-';
  const char* const digits = first + (negative ? 1 : 0);
  std::uint64_t mantissa = 0;
  const char* at = takeDigits(digits, last, &mantissa);
  std::ptrdiff_t count = at - digits;
  std::ptrdiff_t decimals = 0;
  if (at != last && *at == '.') {
    const char* const fraction = at + 1;
    at = takeDigits(fraction, last, &mantissa);
    decimals = at - fraction;
    count += decimals;
  }
  if (count == 0 || count > kPlainDigits || mantissa > kExactInteger) return nullptr;
  const double magnitude = static_cast<double>(mantissa) / kPowersOfTen[decimals];
  *value = negative ? -magnitude : magnitude;
  return at;
}

/// A number's text taken apart.
struct Decimal {
  std::uint64_t mantissa = 0;  // the first kSafeDigits digits from the first that is not 0
  int kept = 0;                // digits in mantissa
  bool any = false;            // a digit was seen
  std::int64_t scale = 0;      // power of ten of the mantissa
  std::int64_t exponent = 0;   // the written exponent
  bool dropped = false;        // digits beyond mantissa were seen

  void add(char digit, bool afterPoint) {
    any = true;
    if (kept == kSafeDigits) {
      dropped = true;
      scale += afterPoint ? 0 : 1;
      return;
    }
    mantissa = mantissa * 10 + static_cast<std::uint64_t>(digit - '0');
    kept += mantissa != 0 ? 1 : 0;
    scale -= afterPoint ? 1 : 0;
  }
};

const char* skipWhite(const char* at, const char* last) {
  while (at != last && isWhite(*at)) ++at;
  return at;
}

bool takeSign(const char*& at, const char* last) {
  if (at == last || (*at != '-' && *at != '+')) return false;
  return *at++ == '-';
}

const char* readMantissa(const char* at, const char* last, Decimal* number) {
  for (; at != last && isDigit(*at); ++at) number->add(*at, false);
  if (at == last || *at != '.') return at;
  const char* point = at++;
  for (; at != last && isDigit(*at); ++at) number->add(*at, true);
  return number->any ? at : point;
}

const char* readExponent(const char* at, const char* last, Decimal* number) {
  if (at == last || lower(*at) != 'e') return at;
  const char* digits = at + 1;
  const bool negative = takeSign(digits, last);
  if (digits == last || !isDigit(*digits)) return at;
  std::int64_t exponent = 0;
  for (; digits != last && isDigit(*digits); ++digits) {
    if (exponent < kExponentCap) exponent = exponent * 10 + (*digits - '0');
  }
  number->exponent = negative ? -exponent : exponent;
  return digits;
}

/// For what the short way cannot do exactly. The text holds no sign.
double convertLong(const char* first, const char* last, const Decimal& number) {
  double value = 0.0;
  const auto result = std::from_chars(first, last, value);
  if (result.ec != std::errc::result_out_of_range) return value;
  const std::int64_t magnitude = number.kept + number.scale + number.exponent;
  return magnitude > 0 ? HUGE_VAL : 0.0;
}

double convert(const char* first, const char* last, const Decimal& number) {
  const std::int64_t power = number.scale + number.exponent;
  if (number.mantissa == 0) return 0.0;
  if (number.dropped || number.mantissa > kExactInteger || power > kExactPower ||
      power < -kExactPower) {
    return convertLong(first, last, number);
  }
  const double value = static_cast<double>(number.mantissa);
  return power < 0 ? value / kPowersOfTen[-power] : value * kPowersOfTen[power];
}

}  // namespace

const char* plainDecimal(const char* first, const char* last, double* value) {
  const char* end = nullptr;
  if (last - first >= kShortDecimalReach) {
    const ShortDecimal number = ShortDecimal::scan(first);
    end = number.end();
    if (end != nullptr) *value = number.value();
  }
  if (end == nullptr) end = longDecimal(first, last, value);
  return end == nullptr || (end != last && (*end | ('a' - 'A')) == 'e') ? nullptr : end;
}

double decimalPrefix(const char* first, const char* last, const char** end) {
  double plain = 0.0;
  if (const char* plainEnd = plainDecimal(first, last, &plain)) {
    if (end != nullptr) *end = plainEnd;
    return plain;
  }
  const char* at = skipWhite(first, last);
  const bool negative = takeSign(at, last);
  Decimal number;
  const char* stop = readMantissa(at, last, &number);
  if (end != nullptr) *end = first;
  if (!number.any) return 0.0;
  stop = readExponent(stop, last, &number);
  if (end != nullptr) *end = stop;
  const double value = convert(at, stop, number);
  return negative ? -value : value;
}

double decimalPrefix(const char* text) {
  return text == nullptr ? 0.0 : decimalPrefix(text, text + std::strlen(text));
}

std::int32_t saturatingInteger(const char* first, const char* last, const char** end) {
  using Limits = std::numeric_limits<std::int32_t>;
  const char* at = skipWhite(first, last);
  const bool negative = takeSign(at, last);
  const char* digits = at;
  std::int64_t value = 0;
  for (; at != last && isDigit(*at); ++at) {
    if (value <= Limits::max()) value = value * 10 + (*at - '0');
  }
  if (end != nullptr) *end = at == digits ? first : at;
  if (negative) value = -value;
  if (value > Limits::max()) return Limits::max();
  return value < Limits::min() ? Limits::min() : static_cast<std::int32_t>(value);
}

std::int32_t saturatingInteger(const char* text) {
  return text == nullptr ? 0 : saturatingInteger(text, text + std::strlen(text));
}

}  // namespace egfsvg
