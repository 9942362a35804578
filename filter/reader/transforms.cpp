// Transform lists: each call appends the functions of its text to the element's list.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/result_codes.h"
#include "model/byte_block.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "model/short_decimal.h"
#include "model/transform_list.h"
#include "reader/number_scan.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"
#include "reader/value_text.h"

namespace egfsvg {

namespace {

bool startsWithNoCase(const char* at, const char* last, const char* name) {
  for (; *name != '\0'; ++at, ++name) {
    if (at == last || upper(*at) != *name) return false;
  }
  return true;
}

bool containsNoCase(const char* first, const char* last, const char* name) {
  for (const char* at = first; at != last; ++at) {
    if (startsWithNoCase(at, last, name)) return true;
  }
  return false;
}

constexpr int kMostArguments = 6;

/// A function as it was read: its row, and the arguments that the text gives.
struct FunctionText {
  int row;
  int count;
  double args[kMostArguments];
};

/// The functions as SVG 1.1 spells them, in table order; none stands inside another.
struct PlainName {
  char text[kByteBlockSize];  // with the bracket
  std::size_t length;
};
constexpr PlainName kPlainNames[kSvgTransformationCount] = {{"matrix(", 7}, {"translate(", 10},
                                                            {"scale(", 6},  {"rotate(", 7},
                                                            {"skewX(", 6},  {"skewY(", 6}};

/// The only row whose name may have this as its fifth letter.
constexpr std::size_t kTellingByte = 4;
constexpr std::size_t kTellingValues = 32;
constexpr auto kRowOfTellingByte = [] {
  std::array<std::uint8_t, kTellingValues> rows{};
  for (std::size_t row = 0; row < kSvgTransformationCount; ++row) {
    const auto byte = static_cast<unsigned char>(kPlainNames[row].text[kTellingByte]);
    rows[byte % kTellingValues] = static_cast<std::uint8_t>(row);
  }
  return rows;
}();

/// Reads a function of the usual form: its name as SVG 1.1 spells it, and short numbers, one
/// separator and perhaps blanks behind each but the last. Every rule reads these alike. Moves
/// behind the closing bracket; false, with `at` as it was, for any other text.
bool readPlainFunction(FunctionText& function, const char*& at, const ValueText& text) {
  if (text.readable - at < static_cast<std::ptrdiff_t>(kByteBlockSize)) return false;
  const auto telling = static_cast<unsigned char>(at[kTellingByte]);
  function.row = kRowOfTellingByte[telling % kTellingValues];
  const PlainName& name = kPlainNames[function.row];
  if (ByteBlock::load(at).first(name.length) != ByteBlock::load(name.text)) return false;
  const char* number = at + name.length;
  for (int i = 0; i < SVG_TRANSFORMATION_ARGUMENTS[function.row]; ++i) {
    if (text.readable - number < kShortDecimalReach) return false;
    const ShortDecimal found = ShortDecimal::scan(number);
    if (found.end() == nullptr) return false;
    function.args[i] = found.value();
    number = found.end() + 1;
    if (*found.end() == ')') {
      function.count = i + 1;
      at = number;
      return true;
    }
    if (!isListSeparator(*found.end())) return false;
    while (isWhite(*number)) ++number;
  }
  return false;
}

/// Row of the first function, in table order, whose name stands anywhere in the text; -1 for none.
int functionRow(const char* first, const char* last) {
  for (int row = 0; row < kSvgTransformationCount; ++row) {
    if (containsNoCase(first, last, SVG_TRANSFORMATION_NAMES[row])) return row;
  }
  return -1;
}

/// Angles are the first argument of a rotation and the only one of a skew.
bool startsWithAngle(std::int32_t kind) {
  return kind == kRotate || kind == kSkewX || kind == kSkewY;
}

/// What an argument is that the text does not give.
double missingArgument(const transformEntry& entry, int position) {
  constexpr int kMatrixDiagonal = 3;
  if (entry.kind == kMatrix) return position == 0 || position == kMatrixDiagonal ? 1.0 : 0.0;
  if (entry.kind == kScale) return position == 0 ? 1.0 : entry.args[position - 1].value;
  return 0.0;
}

/// Gives a new entry its arguments.
void storeArguments(transformEntry& entry, const FunctionText& function) {
  _svg_value* const args = entry.args;
  for (int i = 0; i < function.count; ++i) args[i] = pixels(function.args[i]);
  for (int i = function.count; i < entry.argCount; ++i) args[i] = pixels(missingArgument(entry, i));
  if (startsWithAngle(entry.kind)) args[0].unit = kUnitDegree;
}

const char* skipWhite(const char* at, const char* last) {
  while (at != last && isWhite(*at)) ++at;
  return at;
}

/// Reads the arguments behind the bracket; returns the byte that ends the function, or the end of
/// the text.
const char* readArguments(FunctionText& function, const char* at, const char* last,
                          TransformNumberRule rule) {
  function.count = 0;
  while (at != last && *at != ')' && function.count < SVG_TRANSFORMATION_ARGUMENTS[function.row]) {
    const TransformNumber number = rule(at, last);
    if (number.present) function.args[function.count++] = number.value;
    at = number.stop;
    if (at == last || *at == ')') break;
    at = skipWhite(number.next, last);
  }
  return at;
}

/// Reads a function of any form and moves behind it. False when it has no name or no bracket.
[[gnu::noinline]] bool readFunction(FunctionText& function, const char*& at, const char* last,
                                    TransformNumberRule rule) {
  const auto* bracket =
      static_cast<const char*>(std::memchr(at, '(', static_cast<std::size_t>(last - at)));
  function.row = bracket == nullptr ? -1 : functionRow(at, bracket);
  if (function.row < 0) return false;
  at = readArguments(function, bracket + 1, last, rule);
  if (at != last) ++at;
  return true;
}

}  // namespace

}  // namespace egfsvg

// An unknown name, or one without a bracket, ends the list there.
int CHandlerReader::SetTransformAtt(_svg_common* head, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (head == nullptr || pair == nullptr || pair->value == nullptr) return 0;
  const auto rule = transformNumberRule(state.settings.compactNumbers);
  const ValueText text = textOf(*pair);
  const char* const last = text.last;
  const char* at = text.first;
  while (at != last && head->transformCount < kMaxTransforms) {
    FunctionText function;
    if (!readPlainFunction(function, at, text) && !readFunction(function, at, last, rule)) {
      report(*this, Diagnostic::kBadTransform, at, RMM_SITE);
      return 0;
    }
    transformEntry* const entry = appendTransform(head, SVG_TRANSFORMATION_KINDS[function.row],
                                                  SVG_TRANSFORMATION_ARGUMENTS[function.row]);
    if (entry == nullptr) return kOutOfMemory;
    storeArguments(*entry, function);
    at = skipWhite(at, last);
  }
  if (at != last && !state.transformsAreCut) {
    char name[kElementNameSize];
    state.transformsAreCut = true;
    reportLimit(*this, Diagnostic::kTransformListLimit, elementName(head->type, name), RMM_SITE);
  }
  return 0;
}
