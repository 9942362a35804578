// SetPathAtt: one walk over the text. A letter sets the command in force; numbers that follow it
// without a letter repeat it. The tables say what each command reads and where its point stands.

#include "model/path_commands.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/memory.h"
#include "model/characters.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
#include "model/plain_decimal.h"
#include "model/value_parser.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {
namespace {

using Slot = _svg_value _svg_path_data::*;
constexpr Slot kSlots[] = {&_svg_path_data::arg0, &_svg_path_data::arg1, &_svg_path_data::arg2,
                           &_svg_path_data::arg3, &_svg_path_data::arg4, &_svg_path_data::arg5};
constexpr int kNoSlot = -1;

/// What a command reads: plain numbers into the first slots, and the slots of its end point.
struct CommandRow {
  int numbers;
  int pointX, pointY;
};

constexpr CommandRow kCommandRows[] = {
    {0, kNoSlot, kNoSlot},
    {0, kNoSlot, kNoSlot},
    {0, kNoSlot, kNoSlot},
    {2, 0, 1},
    {2, 0, 1},  // M m
    {2, 0, 1},
    {2, 0, 1},  // L l
    {6, 4, 5},
    {6, 4, 5},  // C c
    {4, 2, 3},
    {4, 2, 3},  // Q q
    {0, 0, 1},
    {0, 0, 1},  // A a: read by readArc
    {1, 0, kNoSlot},
    {1, 0, kNoSlot},  // H h
    {1, kNoSlot, 0},
    {1, kNoSlot, 0},  // V v
    {4, 2, 3},
    {4, 2, 3},  // S s
    {2, 0, 1},
    {2, 0, 1},  // T t
};

constexpr std::int32_t kFirstRecords = 8;  // what a sub-path has room for at first

constexpr std::int32_t commandOf(char letter) {
  switch (letter) {
    case 'Z':
    case 'z':
      return kPathClose;
    case 'M':
      return kPathMoveAbs;
    case 'm':
      return kPathMoveRel;
    case 'L':
      return kPathLineAbs;
    case 'l':
      return kPathLineRel;
    case 'C':
      return kPathCubicAbs;
    case 'c':
      return kPathCubicRel;
    case 'Q':
      return kPathQuadAbs;
    case 'q':
      return kPathQuadRel;
    case 'A':
      return kPathArcAbs;
    case 'a':
      return kPathArcRel;
    case 'H':
      return kPathHorizontalAbs;
    case 'h':
      return kPathHorizontalRel;
    case 'V':
      return kPathVerticalAbs;
    case 'v':
      return kPathVerticalRel;
    case 'S':
      return kPathSmoothCubicAbs;
    case 's':
      return kPathSmoothCubicRel;
    case 'T':
      return kPathSmoothQuadAbs;
    case 't':
      return kPathSmoothQuadRel;
    default:
      return kPathNone;
  }
}

/// What a byte means to a number of path data.
enum PathByte : std::uint8_t {
  kBeforeNumber = 1,      // white space, a comma, a letter but "e", which could begin an exponent
  kSurelyEndsNumber = 2,  // in either grammar: white space, a comma, "-", the terminator, a letter
                          // that begins no exponent
};

constexpr std::array<std::uint8_t, 256> pathBytes() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const char c = static_cast<char>(i);
    const bool separates = isWhite(c) || c == ',';
    if (separates || (isLetter(c) && c != 'e')) table[i] |= kBeforeNumber;
    const bool ends = separates || c == '-' || c == '\0' || (isLetter(c) && lower(c) != 'e');
    if (ends) table[i] |= kSurelyEndsNumber;
  }
  return table;
}
constexpr auto kPathBytes = pathBytes();

bool isPathByte(char c, PathByte meaning) {
  return (kPathBytes[static_cast<unsigned char>(c)] & meaning) != 0;
}

/// Passes over what may stand before a number. Kept: a command letter met here is consumed unseen.
const char* skipToNumber(const char* at) {
  while (isPathByte(*at, kBeforeNumber)) ++at;
  return at;
}

/// The end of a number: white space, a comma, a letter but "e", or a "-" that neither starts the
/// number nor follows an "e". Kept: a second point or a "+" is taken into the number and lost.
const char* plainNumberEnd(const char* first) {
  const char* at = first;
  for (; *at != '\0' && !isPathByte(*at, kBeforeNumber); ++at) {
    if (*at == '-' && at != first && at[-1] != 'e') break;
  }
  return at;
}

const char* skipDigits(const char* at) {
  while (isDigit(*at)) ++at;
  return at;
}

/// The end of a number by the grammar of SVG 1.1: a sign or a second point starts the next one.
const char* compactNumberEnd(const char* first) {
  const auto isSign = [](char c) { return c == '+' || c == '-'; };
  const char* at = skipDigits(isSign(*first) ? first + 1 : first);
  if (*at == '.') at = skipDigits(at + 1);
  if (*at == 'e' || *at == 'E') {
    const char* const digits = isSign(at[1]) ? at + 2 : at + 1;
    if (isDigit(*digits)) at = skipDigits(digits);
  }
  return at > first || *at == '\0' ? at : at + 1;
}

/// A number of any form at `at`, which is moved to its end.
[[gnu::noinline]] double takeOddNumber(const char*& at, const char* last, bool compact) {
  const char* const first = at;
  double value = 0.0;
  at = plainDecimal(first, last, &value);
  if (at != nullptr && isPathByte(*at, kSurelyEndsNumber)) return value;
  at = compact ? compactNumberEnd(first) : plainNumberEnd(first);
  const auto counted = std::min(static_cast<std::size_t>(at - first), kNumberScratch);
  return decimalPrefix(first, first + counted);
}

/// The next number of path data, behind what may stand before it; `at` is moved to its end. `last`
/// is the terminator of the text.
inline double takeNumber(const char*& at, const char* last, bool compact) {
  at = skipToNumber(at);
  const bool negative = *at == '-';
  double value = 0.0;
  const char* const end = shortDecimal(at + (negative ? 1 : 0), last, &value);
  // Where a plain number ends at one of these, every rule ends it there.
  if (end == nullptr || !isPathByte(*end, kSurelyEndsNumber)) [[unlikely]] {
    return takeOddNumber(at, last, compact);
  }
  at = end;
  return detail::withSign(value, negative);
}

class PathWalk {
 public:
  PathWalk(CHandlerReader& reader, _svg_path& path, const char* text)
      : path_(path),
        at_(text),
        last_(text + std::strlen(text)),
        compact_(reader.state.settings.compactNumbers) {}

  int run();

 private:
  bool nextCommand();
  bool startSubPath(std::int32_t subFlag);
  bool dispatch();
  bool close();
  bool moveTo();
  bool lineTo();
  bool curve();
  double number() { return takeNumber(at_, last_, compact_); }
  double arcFlag();
  _svg_path_data* addRecord(std::int32_t command);
  bool resizeRecords(std::int32_t room);
  void trimRecords();
  void readArc(_svg_path_data& record);
  void setPoint(const _svg_path_data& record);
  void markClosedIfMet();
  _svg_singlepath& subPath() { return path_.paths[path_.pathCount - 1]; }

  _svg_path& path_;
  const char* at_;
  const char* last_;
  bool compact_;
  std::int32_t command_ = kPathNone;
  bool subPathDue_ = true;
  bool firstPointDue_ = true;  // Kept: set once, so later sub-paths compare with the path's start
  std::int32_t records_ = 0;
  std::int32_t room_ = 0;  // records that the data of the sub-path in hand has room for
  double firstX_ = 0.0, firstY_ = 0.0;
  double lastX_ = 0.0, lastY_ = 0.0;
};

int PathWalk::run() {
  while (nextCommand()) {
    if (subPathDue_) {
      markClosedIfMet();
      if (!startSubPath(0)) break;
      subPathDue_ = false;
    }
    if (!dispatch()) break;
  }
  if (path_.paths == nullptr) return -1;
  trimRecords();
  markClosedIfMet();
  return 0;
}

/// Skips white space and takes a command letter, without consuming it. False at the end.
bool PathWalk::nextCommand() {
  while (isWhite(*at_)) ++at_;
  if (isLetter(*at_)) command_ = commandOf(*at_);
  return *at_ != '\0';
}

/// Closes the sub-path in hand when its ends meet. Kept: numbers as read are compared, so for
/// relative commands these are deltas.
void PathWalk::markClosedIfMet() {
  if (path_.pathCount > 0 && firstX_ == lastX_ && firstY_ == lastY_) {
    subPath().closed = 1;
  }
}

bool PathWalk::startSubPath(std::int32_t subFlag) {
  if (path_.pathCount >= kMaxSubPaths) return false;
  trimRecords();
  void* grown = RMM_ReAllocName(path_.paths, static_cast<std::size_t>(path_.pathCount) + 1,
                                sizeof(_svg_singlepath), RMM_SITE);
  if (grown == nullptr) return false;
  path_.paths = static_cast<_svg_singlepath*>(grown);
  path_.paths[path_.pathCount++] = {nullptr, 0, subFlag, 0};
  room_ = 0;
  return true;
}

bool PathWalk::dispatch() {
  switch (command_) {
    case kPathNone:
      ++at_;
      return true;
    case kPathClose:
      return close();
    case kPathMoveAbs:
    case kPathMoveRel:
      return moveTo();
    case kPathLineAbs:
      return lineTo();
    default:
      return curve();
  }
}

/// Kept: the command stays in force, so each character after a close makes one more sub-path.
bool PathWalk::close() {
  subPath().closed = 1;
  if (addRecord(kPathClose) == nullptr) return false;
  ++at_;
  subPathDue_ = true;
  return true;
}

bool PathWalk::moveTo() {
  if (subPath().dataCount > 0) {
    markClosedIfMet();
    if (!startSubPath(path_.pathFlag)) return false;
  }
  const std::int32_t line = command_ == kPathMoveAbs ? kPathLineAbs : kPathLineRel;
  const bool added = curve();
  command_ = line;
  return added;
}

/// Kept: a line to a point out of bounds is no command at all, and only the absolute form asks.
bool PathWalk::lineTo() {
  const double x = number();
  const double y = number();
  const auto outside = [](double v) { return v > kMaxLineCoordinate || v < -kMaxLineCoordinate; };
  if (outside(x) || outside(y)) return true;
  _svg_path_data* record = addRecord(command_);
  if (record == nullptr) return false;
  record->arg0 = pixels(x);
  record->arg1 = pixels(y);
  setPoint(*record);
  return true;
}

bool PathWalk::curve() {
  _svg_path_data* record = addRecord(command_);
  if (record == nullptr) return false;
  if (command_ == kPathArcAbs || command_ == kPathArcRel) readArc(*record);
  for (int i = 0; i < kCommandRows[command_].numbers; ++i) record->*kSlots[i] = pixels(number());
  setPoint(*record);
  return true;
}

_svg_path_data* PathWalk::addRecord(std::int32_t command) {
  if (records_ >= kMaxPathRecords) return nullptr;
  _svg_singlepath& path = subPath();
  if (path.dataCount == room_ && !resizeRecords(room_ == 0 ? kFirstRecords : 2 * room_)) {
    return nullptr;
  }
  _svg_path_data* record = &path.data[path.dataCount++];
  *record = {};
  record->command = command;
  ++records_;
  return record;
}

/// False without memory; what is there stays as it is.
bool PathWalk::resizeRecords(std::int32_t room) {
  void* const resized = RMM_ReAllocName(subPath().data, static_cast<std::size_t>(room),
                                        sizeof(_svg_path_data), RMM_SITE);
  if (resized == nullptr) return false;
  subPath().data = static_cast<_svg_path_data*>(resized);
  room_ = room;
  return true;
}

/// Gives back what the sub-path in hand does not need.
void PathWalk::trimRecords() {
  if (path_.pathCount > 0 && subPath().dataCount < room_) resizeRecords(subPath().dataCount);
}

/// The flags take the places of a unit and an axis, rounded.
void PathWalk::readArc(_svg_path_data& record) {
  record.arg2 = pixels(number());
  record.arg3 = pixels(number());
  record.arg4 = {kUnitDegree, number(), kAxisNone};
  record.arg4.axis = rounded<std::int32_t>(arcFlag());
  record.arg5.unit = rounded<std::int32_t>(arcFlag());
  record.arg0 = pixels(number());
  record.arg1 = pixels(number());
}

/// With compact numbers a flag is one digit, so "01" is two flags.
double PathWalk::arcFlag() {
  if (!compact_) return number();
  at_ = skipToNumber(at_);
  const char digit = *at_;
  if (digit != '0' && digit != '1') return number();
  ++at_;
  return digit - '0';
}

void PathWalk::setPoint(const _svg_path_data& record) {
  const CommandRow& row = kCommandRows[record.command];
  if (row.pointX != kNoSlot) lastX_ = (record.*kSlots[row.pointX]).value;
  if (row.pointY != kNoSlot) lastY_ = (record.*kSlots[row.pointY]).value;
  if (!firstPointDue_) return;
  if (row.pointX != kNoSlot) firstX_ = lastX_;
  if (row.pointY != kNoSlot) firstY_ = lastY_;
  firstPointDue_ = false;
}

}  // namespace
}  // namespace egfsvg

int CHandlerReader::SetPathAtt(_svg_path* path, const char* d) {
  if (path == nullptr || d == nullptr) return -1;
  DestroyPathElements(path);  // a second d on one element starts again
  return egfsvg::PathWalk(*this, *path, d).run();
}

double CHandlerReader::GetNextPathCoord(const char* text, int& index) {
  const char* at = text + index;
  const double value = egfsvg::takeNumber(at, at + std::strlen(at), state.settings.compactNumbers);
  index = static_cast<int>(at - text);
  return value;
}

_svg_path_data* CHandlerReader::AddNewPathData(_svg_path_data* data, int count) {
  void* grown = count == 0 ? RMM_AllocName(1, sizeof(_svg_path_data), RMM_SITE)
                           : RMM_ReAllocName(data, static_cast<std::size_t>(count) + 1,
                                             sizeof(_svg_path_data), RMM_SITE);
  return static_cast<_svg_path_data*>(grown);
}
