// The commands of path data: their letters, what each reads and where its point stands.
#pragma once

#include <cstdint>

#include "model/elements.h"
#include "model/path_commands.h"

namespace egfsvg {

using Slot = _svg_value _svg_path_data::*;
inline constexpr int kPathSlots = 6;
inline constexpr Slot kSlots[kPathSlots] = {&_svg_path_data::arg0, &_svg_path_data::arg1,
                                            &_svg_path_data::arg2, &_svg_path_data::arg3,
                                            &_svg_path_data::arg4, &_svg_path_data::arg5};
inline constexpr int kNoSlot = -1;

/// What a command reads: plain numbers into the first slots, and the slots of its end point.
struct CommandRow {
  int numbers;
  int pointX, pointY;
};

inline constexpr CommandRow kCommandRows[] = {
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

}  // namespace egfsvg
