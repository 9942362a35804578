// SetPathAtt: one walk over the text. A letter sets the command in force; numbers that follow it
// without a letter repeat it. The tables say what each command reads and where its point stands.

#include <algorithm>
#include <cstring>

#include "host/memory.h"
#include "model/characters.h"
#include "model/decimal_pair.h"
#include "model/gathered_array.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
#include "model/path_commands.h"
#include "reader/path_numbers.h"
#include "reader/path_rows.h"
#include "reader/path_text.h"
#include "reader/plain_path_commands.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {
namespace {

constexpr std::ptrdiff_t kNearRecords = 64;

class PathWalk {
 public:
  PathWalk(CHandlerReader& reader, _svg_path& path, const ValueText& text)
      : path_(path),
        first_(text.first),
        at_(text.first),
        last_(text.last),
        readable_(text.readable),
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
  [[gnu::noinline]] bool takePlainCommands();
  [[gnu::noinline]] void setPointAlong(const _svg_path_data* first, const _svg_path_data* record);
  double number() { return takeNumber(at_, last_, compact_); }
  double arcFlag();
  _svg_path_data* addRecord(std::int32_t command);
  std::ptrdiff_t expectedRecords() const;
  bool storeRecords();
  void readArc(_svg_path_data& record);
  void setPoint(const _svg_path_data& record);
  void markClosedIfMet();
  _svg_singlepath& subPath() { return path_.paths[path_.pathCount - 1]; }

  _svg_path& path_;
  const char* first_;
  const char* at_;
  const char* last_;
  const char* readable_;
  bool compact_;
  std::int32_t command_ = kPathNone;
  bool subPathDue_ = true;
  bool firstPointDue_ = true;  // Kept: set once, so later sub-paths compare with the path's start
  std::int32_t storedRecords_ = 0;
  double firstX_ = 0.0, firstY_ = 0.0;
  double lastX_ = 0.0, lastY_ = 0.0;
  GatheredArray<_svg_path_data, kNearRecords> records_{RMM_SITE};  // of the sub-path in hand
};

int PathWalk::run() {
  while (nextCommand()) {
    if (subPathDue_) {
      markClosedIfMet();
      if (!startSubPath(0)) break;
      subPathDue_ = false;
    }
    if (!takePlainCommands() && !dispatch()) break;
  }
  if (path_.paths == nullptr) return -1;
  storeRecords();
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
  if (!storeRecords()) return false;
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
  if (!records_.empty()) {
    markClosedIfMet();
    if (!startSubPath(path_.pathFlag)) return false;
  }
  const std::int32_t line = lineAfterMove(command_);
  const bool added = curve();
  command_ = line;
  return added;
}

/// Kept: a line to a point out of bounds is no command at all, and only the absolute form asks.
bool PathWalk::lineTo() {
  const double x = number();
  const double y = number();
  if (isOutside(x) || isOutside(y)) return true;
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

/// Takes as many commands of the usual form as follow, within the room that the sub-path has. False
/// when there are none.
bool PathWalk::takePlainCommands() {
  if (readable_ - at_ < kDecimalPairReach) return false;
  const char* const lastStart = readable_ - kDecimalPairReach;
  _svg_path_data* const first = records_.next();
  const std::ptrdiff_t left = kMaxPathRecords - storedRecords_ - records_.count();
  _svg_path_data* const full = first + std::min(records_.full() - first, left);
  _svg_path_data* place = first;
  const char* at = at_;
  bool mayMove = records_.empty();
  for (; place != full; ++place) {
    std::int32_t command = command_;
    const char* const next = takePlainCommand(at, lastStart, mayMove, command, *place);
    if (next == nullptr) break;
    at = next;
    command_ = command;
    mayMove = false;
    if (readsOneNumber(command)) setPointAlong(first, place);
  }
  if (place == first) return false;
  at_ = at;
  records_.setNext(place);
  if (firstPointDue_) setPoint(*first);
  setPoint(place[-1]);
  return true;
}

/// The point of a record that gives one of its coordinates, and of those since `first` before it.
void PathWalk::setPointAlong(const _svg_path_data* first, const _svg_path_data* record) {
  if (firstPointDue_) setPoint(*first);
  if (record != first) setPoint(record[-1]);
  setPoint(*record);
}

_svg_path_data* PathWalk::addRecord(std::int32_t command) {
  if (storedRecords_ + records_.count() >= kMaxPathRecords) return nullptr;
  if (records_.next() == records_.full() && !records_.grow(expectedRecords())) return nullptr;
  _svg_path_data* const record = records_.append();
  *record = {};
  record->command = command;
  return record;
}

/// How many records the whole text may give when its rest is like what was read.
std::ptrdiff_t PathWalk::expectedRecords() const {
  const std::ptrdiff_t have = storedRecords_ + records_.count();
  const std::ptrdiff_t spare = have / 8;
  return have * (last_ - first_) / (at_ - first_ + 1) + spare;
}

/// Hands what was gathered to the sub-path in hand. False without memory.
bool PathWalk::storeRecords() {
  if (records_.empty()) return true;
  const std::int32_t count = records_.count();
  _svg_path_data* const data = records_.release();
  if (data == nullptr) return false;
  subPath().data = data;
  subPath().dataCount = count;
  storedRecords_ += count;
  return true;
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

int egfsvg::readPathData(CHandlerReader& reader, _svg_path* path, const ValueText& d) {
  DestroyPathElements(path);  // a second d on one element starts again
  return PathWalk(reader, *path, d).run();
}

int CHandlerReader::SetPathAtt(_svg_path* path, const char* d) {
  if (path == nullptr || d == nullptr) return -1;
  const char* const last = d + std::strlen(d);
  return egfsvg::readPathData(*this, path, {d, last, last + 1});
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
