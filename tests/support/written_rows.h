// Tables of objects and the lines that they are written as.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/support/drawing_writer.h"

namespace egfsvg::test {

/// One object that is the only child of its drawing, or drawings that `make` adds to by itself
/// (it then gives null).
struct WrittenRow {
  const char* name;
  _egf_obj* (*make)(DrawingWriter& drawing);
  Lines body;
  Lines rules;
  double x = 96.0;  // pixels per inch
  double y = 0.0;   // as x
};

inline void PrintTo(const WrittenRow& row, std::ostream* out) { *out << row.name; }

inline std::string rowName(const testing::TestParamInfo<WrittenRow>& info) {
  std::string name = info.param.name;
  for (char& c : name) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (!letter) c = '_';
  }
  return name;
}

class WrittenObject : public testing::TestWithParam<WrittenRow> {};

}  // namespace egfsvg::test
