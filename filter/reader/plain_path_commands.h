// Commands of path data in the usual form: a letter or none, and points of short numbers between
// which stand single separators or signs. They are most of all path data.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "model/characters.h"
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

/// The numbers of a command that reads points and nothing else, into its slots one by one; 0 for
/// any other.
inline constexpr auto kPointNumbers = [] {
  std::array<std::int8_t, std::size(kCommandRows)> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const int count = kCommandRows[i].numbers;
    numbers[i] = static_cast<std::int8_t>(count % 2 == 0 ? count : 0);
  }
  return numbers;
}();

constexpr bool isMove(std::int32_t command) {
  return command == kPathMoveAbs || command == kPathMoveRel;
}

/// Kept: numbers that follow those of a move are lines.
constexpr std::int32_t lineAfterMove(std::int32_t command) {
  return command == kPathMoveAbs ? kPathLineAbs : kPathLineRel;
}

/// Kept: an absolute line to such a coordinate is no command at all.
inline bool isOutside(double coordinate) { return std::fabs(coordinate) > kMaxLineCoordinate; }

/// A command of points in the usual form at `at`: perhaps a blank, perhaps its letter, and short
/// numbers between which stands one separator or a sign. Every grammar reads these alike. Fills the
/// record; the result is the end. Null for any other text.
inline const char* takePlainCommand(const char* at, const char* lastStart, std::int32_t command,
                                    bool mayMove, _svg_path_data& record) {
  const auto isSeparator = [](char c) { return c == ' ' || c == ','; };
  if (*at == ' ') ++at;
  const CommandStart start = kCommandStarts[static_cast<unsigned char>(*at)];
  if (start.command != kSameCommand) command = start.command;
  const int numbers = kPointNumbers[static_cast<std::size_t>(command)];
  if (numbers == 0 || (isMove(command) && !mayMove)) return nullptr;
  record.command = command;
  if (numbers < kPathSlots) record.arg2 = record.arg3 = record.arg4 = record.arg5 = {};
  at += start.size;
  if (*at == ' ') ++at;
  for (int i = 0;;) {
    if (at > lastStart) return nullptr;
    const ShortDecimal x = ShortDecimal::scan(at);
    if (x.end() == nullptr) return nullptr;
    const bool separated = isSeparator(*x.end());
    if (!separated && *x.end() != '-') return nullptr;
    const ShortDecimal y = ShortDecimal::scan(x.end() + (separated ? 1 : 0));
    if (y.end() == nullptr || !isPathByte(*y.end(), kSurelyEndsNumber)) return nullptr;
    _svg_value& xOut = record.*kSlots[i];
    _svg_value& yOut = record.*kSlots[i + 1];
    xOut.unit = yOut.unit = kUnitPixel;
    xOut.axis = yOut.axis = kAxisNone;
    ShortDecimal::values(x, y, xOut.value, yOut.value);
    at = y.end();
    i += 2;
    if (i == numbers) break;
    if (isSeparator(*at)) ++at;
  }
  const bool isLost =
      command == kPathLineAbs && (isOutside(record.arg0.value) || isOutside(record.arg1.value));
  return isLost ? nullptr : at;
}

}  // namespace egfsvg
