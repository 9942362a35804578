// SetPathAtt: one walk over the text. A letter sets the command in force; numbers that follow it
// without a letter repeat it. The tables say what each command reads and where its point stands.

#include "model/path_commands.h"

#include <algorithm>

#include "host/memory.h"
#include "model/characters.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
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

bool samePlace(const _svg_value& a, const _svg_value& b) {
  return a.value == b.value && a.unit == b.unit;
}

/// Passes over what may stand before a number: white space, commas, and letters but "e", which
/// could begin an exponent. Kept: a command letter met here is consumed unseen.
int skipToNumber(const char* text, int index) {
  while (isWhite(text[index]) || text[index] == ',' ||
         (isLetter(text[index]) && text[index] != 'e')) {
    ++index;
  }
  return index;
}

/// The end of a number: white space, a comma, a letter but "e", or a "-" that neither starts the
/// number nor follows an "e". Kept: a second point or a "+" is taken into the number and lost.
int plainNumberEnd(const char* text, int first) {
  int i = first;
  for (; text[i] != '\0' && !isWhite(text[i]) && text[i] != ','; ++i) {
    if (isLetter(text[i]) && text[i] != 'e') break;
    if (text[i] == '-' && i != first && text[i - 1] != 'e') break;
  }
  return i;
}

bool surelyEndsNumber(char c) {
  return isWhite(c) || isLetter(c) || c == ',' || c == '-' || c == '\0';
}

int skipDigits(const char* text, int index) {
  while (isDigit(text[index])) ++index;
  return index;
}

/// The end of a number by the grammar of SVG 1.1: a sign or a second point starts the next one.
int compactNumberEnd(const char* text, int first) {
  const auto isSign = [](char c) { return c == '+' || c == '-'; };
  int i = skipDigits(text, isSign(text[first]) ? first + 1 : first);
  if (text[i] == '.') i = skipDigits(text, i + 1);
  if (text[i] == 'e' || text[i] == 'E') {
    const int digits = isSign(text[i + 1]) ? i + 2 : i + 1;
    if (isDigit(text[digits])) i = skipDigits(text, digits);
  }
  return i > first || text[i] == '\0' ? i : i + 1;
}

class PathWalk {
 public:
  PathWalk(CHandlerReader& reader, _svg_path& path, const char* text)
      : reader_(reader), path_(path), text_(text), compact_(reader.state.settings.compactNumbers) {}

  int run();

 private:
  bool nextCommand();
  bool startSubPath(std::int32_t subFlag);
  bool dispatch();
  bool close();
  bool moveTo();
  bool lineTo();
  bool curve();
  double number() { return reader_.GetNextPathCoord(text_, index_); }
  double arcFlag();
  _svg_path_data* addRecord(std::int32_t command);
  void readArc(_svg_path_data& record);
  void setPoint(const _svg_path_data& record);
  void markClosedIfMet();
  _svg_singlepath& subPath() { return path_.paths[path_.pathCount - 1]; }

  CHandlerReader& reader_;
  _svg_path& path_;
  const char* text_;
  int index_ = 0;
  bool compact_;
  std::int32_t command_ = kPathNone;
  bool subPathDue_ = true;
  bool firstPointDue_ = true;  // Kept: set once, so later sub-paths compare with the path's start
  std::int32_t records_ = 0;
  _svg_value firstX_ = kDefaultValue, firstY_ = kDefaultValue;
  _svg_value lastX_ = kDefaultValue, lastY_ = kDefaultValue;
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
  markClosedIfMet();
  return 0;
}

/// Skips white space and takes a command letter, without consuming it. False at the end.
bool PathWalk::nextCommand() {
  while (isWhite(text_[index_])) ++index_;
  if (isLetter(text_[index_])) command_ = commandOf(text_[index_]);
  return text_[index_] != '\0';
}

/// Closes the sub-path in hand when its ends meet. Kept: numbers as read are compared, so for
/// relative commands these are deltas.
void PathWalk::markClosedIfMet() {
  if (path_.pathCount > 0 && samePlace(firstX_, lastX_) && samePlace(firstY_, lastY_)) {
    subPath().closed = 1;
  }
}

bool PathWalk::startSubPath(std::int32_t subFlag) {
  if (path_.pathCount >= kMaxSubPaths) return false;
  void* grown = RMM_ReAllocName(path_.paths, static_cast<std::size_t>(path_.pathCount) + 1,
                                sizeof(_svg_singlepath), RMM_SITE);
  if (grown == nullptr) return false;
  path_.paths = static_cast<_svg_singlepath*>(grown);
  path_.paths[path_.pathCount++] = {nullptr, 0, subFlag, 0};
  return true;
}

bool PathWalk::dispatch() {
  switch (command_) {
    case kPathNone:
      ++index_;
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
  ++index_;
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
  _svg_path_data* grown = reader_.AddNewPathData(path.data, path.dataCount);
  if (grown == nullptr) return nullptr;
  path.data = grown;
  _svg_path_data* record = &path.data[path.dataCount++];
  *record = {};
  record->command = command;
  ++records_;
  return record;
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
  index_ = skipToNumber(text_, index_);
  const char digit = text_[index_];
  if (digit != '0' && digit != '1') return number();
  ++index_;
  return digit - '0';
}

void PathWalk::setPoint(const _svg_path_data& record) {
  const CommandRow& row = kCommandRows[record.command];
  if (row.pointX != kNoSlot) lastX_ = record.*kSlots[row.pointX];
  if (row.pointY != kNoSlot) lastY_ = record.*kSlots[row.pointY];
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
  const int first = egfsvg::skipToNumber(text, index);
  double value = 0.0;
  // The terminator ends any number.
  const char* end = egfsvg::plainDecimal(text + first, nullptr, &value);
  // Where a plain number ends at one of these, every rule ends it there.
  if (end != nullptr && egfsvg::surelyEndsNumber(*end)) {
    index = static_cast<int>(end - text);
    return value;
  }
  index = state.settings.compactNumbers ? egfsvg::compactNumberEnd(text, first)
                                        : egfsvg::plainNumberEnd(text, first);
  const int counted = std::min(index - first, static_cast<int>(egfsvg::kNumberScratch));
  return egfsvg::decimalPrefix(text + first, text + first + counted);
}

_svg_path_data* CHandlerReader::AddNewPathData(_svg_path_data* data, int count) {
  void* grown = count == 0 ? RMM_AllocName(1, sizeof(_svg_path_data), RMM_SITE)
                           : RMM_ReAllocName(data, static_cast<std::size_t>(count) + 1,
                                             sizeof(_svg_path_data), RMM_SITE);
  return static_cast<_svg_path_data*>(grown);
}
