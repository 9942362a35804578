// Transform lists: each call appends the functions of its text to the element's list.

#include <cstring>
#include <string_view>

#include "frame/result_codes.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "model/transform_list.h"
#include "reader/number_scan.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

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

/// The names as SVG 1.1 spells them, in table order; none stands inside another.
constexpr std::string_view kPlainNames[kSvgTransformationCount] = {"matrix", "translate", "scale",
                                                                   "rotate", "skewX",     "skewY"};

/// Row of the first function, in table order, whose name stands anywhere in the text; -1 for none.
int functionRow(const char* first, const char* last) {
  const std::string_view name(first, static_cast<std::size_t>(last - first));
  for (int row = 0; row < kSvgTransformationCount; ++row) {
    if (name == kPlainNames[row]) return row;
  }
  for (int row = 0; row < kSvgTransformationCount; ++row) {
    if (containsNoCase(first, last, SVG_TRANSFORMATION_NAMES[row])) return row;
  }
  return -1;
}

/// Angles are the first argument of a rotation and the only one of a skew.
UnitCode argumentUnit(std::int32_t kind, int position) {
  const bool angle = position == 0 && (kind == kRotate || kind == kSkewX || kind == kSkewY);
  return angle ? kUnitDegree : kUnitPixel;
}

/// What an argument is that the text does not give.
double missingArgument(const transformEntry& entry, int position) {
  constexpr int kMatrixDiagonal = 3;
  if (entry.kind == kMatrix) return position == 0 || position == kMatrixDiagonal ? 1.0 : 0.0;
  if (entry.kind == kScale) return position == 0 ? 1.0 : entry.args[position - 1].value;
  return 0.0;
}

void storeArgument(transformEntry& entry, int position, double value) {
  entry.args[position] = {argumentUnit(entry.kind, position), value, kAxisNone};
}

const char* skipWhite(const char* at, const char* last) {
  while (at != last && isWhite(*at)) ++at;
  return at;
}

/// Reads the arguments behind the bracket; returns the byte that ends the function, or the end of
/// the text.
const char* readArguments(transformEntry& entry, const char* at, const char* last,
                          TransformNumberRule rule) {
  int count = 0;
  while (at != last && *at != ')' && count < entry.argCount) {
    const TransformNumber number = rule(at, last);
    if (number.present) storeArgument(entry, count++, number.value);
    at = number.stop;
    if (at == last || *at == ')') break;
    at = skipWhite(number.next, last);
  }
  for (; count < entry.argCount; ++count) {
    storeArgument(entry, count, missingArgument(entry, count));
  }
  return at;
}

}  // namespace

}  // namespace egfsvg

// An unknown name, or one without a bracket, ends the list there.
int CHandlerReader::SetTransformAtt(_svg_common* head, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (head == nullptr || pair == nullptr || pair->value == nullptr) return 0;
  const auto rule = transformNumberRule(state.settings.compactNumbers);
  const char* last = pair->value + std::strlen(pair->value);
  const char* at = pair->value;
  while (at != last && head->transformCount < kMaxTransforms) {
    const auto* bracket =
        static_cast<const char*>(std::memchr(at, '(', static_cast<std::size_t>(last - at)));
    const int row = bracket == nullptr ? -1 : functionRow(at, bracket);
    if (row < 0) {
      report(*this, Diagnostic::kBadTransform, at, RMM_SITE);
      return 0;
    }
    transformEntry* entry =
        appendTransform(head, SVG_TRANSFORMATION_KINDS[row], SVG_TRANSFORMATION_ARGUMENTS[row]);
    if (entry == nullptr) return kOutOfMemory;
    at = readArguments(*entry, bracket + 1, last, rule);
    if (at != last) at = skipWhite(at + 1, last);
  }
  if (at != last && !state.transformsAreCut) {
    char name[kElementNameSize];
    state.transformsAreCut = true;
    reportLimit(*this, Diagnostic::kTransformListLimit, elementName(head->type, name), RMM_SITE);
  }
  return 0;
}
