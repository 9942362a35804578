// Commands of path data in the usual form: a letter or none, and short numbers between which stand
// single separators or signs. They are most of all path data.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "model/characters.h"
#include "model/decimal_pair.h"
#include "model/short_decimal.h"
#include "reader/path_numbers.h"
#include "reader/path_rows.h"

namespace egfsvg {

/// What a byte begins where a command may start.
struct CommandStart {
  std::uint8_t command;  // kPathNone where nothing usual starts
  std::uint8_t size;     // bytes in front of the numbers
};
inline constexpr std::uint8_t kSameCommand = 0;  // numbers of the command in force

inline constexpr auto kCommandStarts = [] {
  std::array<CommandStart, 256> starts{};
  for (std::size_t i = 0; i < starts.size(); ++i) {
    const char c = static_cast<char>(i);
    starts[i] = {kPathNone, 0};
    if (isLetter(c)) starts[i] = {static_cast<std::uint8_t>(commandOf(c)), 1};
    if (isDigit(c) || c == '-' || c == '.') starts[i] = {kSameCommand, 0};
    if (c == ',') starts[i] = {kSameCommand, 1};
  }
  return starts;
}();

/// Whether a command reads one number: a horizontal or vertical line.
constexpr bool readsOneNumber(std::int32_t command) {
  return command >= kPathHorizontalAbs && command <= kPathVerticalRel;
}

constexpr bool isMove(std::int32_t command) {
  return command == kPathMoveAbs || command == kPathMoveRel;
}

/// Kept: numbers that follow those of a move are lines.
constexpr std::int32_t lineAfterMove(std::int32_t command) {
  return command == kPathMoveAbs ? kPathLineAbs : kPathLineRel;
}

/// Kept: an absolute line to such a coordinate is no command at all.
inline bool isOutside(double coordinate) { return std::fabs(coordinate) > kMaxLineCoordinate; }

namespace detail {

inline bool isPathSeparator(char c) { return c == ' ' || c == ','; }

/// One number at `at`; its end, or null.
inline const char* takeNumberAlong(const char* at, const char* lastStart, _svg_path_data& record) {
  if (at > lastStart) return nullptr;
  const ShortDecimal number = ShortDecimal::scan(at);
  if (number.end() == nullptr || !isPathByte(*number.end(), kSurelyEndsNumber)) return nullptr;
  record.arg0 = pixels(number.value());
  record.arg1 = record.arg2 = record.arg3 = record.arg4 = record.arg5 = {};
  return number.end();
}

/// Sets a point in pixels.
template <class Pair>
void setPoint(_svg_value& x, _svg_value& y, const Pair& pair) {
  x.unit = y.unit = kUnitPixel;
  x.axis = y.axis = kAxisNone;
  pair.values(x.value, y.value);
}

/// A point of numbers that are too long for one look.
struct LongPoint {
  ShortDecimal x, y;
  void values(double& xOut, double& yOut) const { ShortDecimal::values(x, y, xOut, yOut); }
};
[[gnu::noinline]] inline const char* takeLongPoint(const char* at, _svg_value& x, _svg_value& y) {
  const ShortDecimal first = ShortDecimal::scan(at);
  if (first.end() == nullptr) return nullptr;
  const bool separated = isPathSeparator(*first.end());
  if (!separated && *first.end() != '-') return nullptr;
  const ShortDecimal second = ShortDecimal::scan(first.end() + (separated ? 1 : 0));
  if (second.end() != nullptr) setPoint(x, y, LongPoint{first, second});
  return second.end();
}

/// A point at `at`; where it ends, or null.
inline const char* takePoint(const char* at, _svg_value& x, _svg_value& y) {
  const DecimalPair pair = DecimalPair::scan(at);
  if (pair.end() == nullptr) [[unlikely]]
    return takeLongPoint(at, x, y);
  if (!isPathSeparator(pair.between()) && pair.between() != '-') return nullptr;
  setPoint(x, y, pair);
  return pair.end();
}

/// Points at `at`; where they end, or null.
inline const char* takePoints(const char* at, const char* lastStart, int numbers,
                              _svg_path_data& record) {
  if (numbers < kPathSlots) record.arg2 = record.arg3 = record.arg4 = record.arg5 = {};
  for (int i = 0;;) {
    if (at > lastStart) return nullptr;
    at = takePoint(at, record.*kSlots[i], record.*kSlots[i + 1]);
    if (at == nullptr || !isPathByte(*at, kSurelyEndsNumber)) return nullptr;
    i += 2;
    if (i == numbers) return at;
    if (isPathSeparator(*at)) ++at;
  }
}

}  // namespace detail

/// A command in the usual form at `at`: perhaps a blank, perhaps its letter, and short numbers
/// between which stands one separator or a sign. Every grammar reads these alike. Fills the record;
/// the result is the end, and `command` is the one in force there. Null for any other text.
inline const char* takePlainCommand(const char* at, const char* lastStart, bool mayMove,
                                    std::int32_t& command, _svg_path_data& record) {
  if (*at == ' ') ++at;
  const CommandStart start = kCommandStarts[static_cast<unsigned char>(*at)];
  if (start.command != kSameCommand) command = start.command;
  const int numbers = kCommandRows[command].numbers;
  if (numbers == 0) return nullptr;
  record.command = command;
  at += start.size;
  if (*at == ' ') ++at;
  if (numbers == 1) return detail::takeNumberAlong(at, lastStart, record);
  at = detail::takePoints(at, lastStart, numbers, record);
  if (at == nullptr) return nullptr;
  if (command == kPathLineAbs) {
    return isOutside(record.arg0.value) || isOutside(record.arg1.value) ? nullptr : at;
  }
  if (isMove(command)) [[unlikely]] {
    if (!mayMove) return nullptr;
    command = lineAfterMove(command);
  }
  return at;
}

}  // namespace egfsvg
