// The elements that become one object each: how a record of each is made and parsed, as data.
#pragma once

#include <cstdint>
#include <cstring>

#include "reader/svg_handlerreader.h"

namespace egfsvg {

class ElementRow;

struct LeafKind {
  int tag;
  std::int32_t size;                // of the record
  const void* defaults;             // a record with the defaults
  const ElementRow* row;            // its attributes
  std::size_t testsAt;              // where its test attributes stand
  std::size_t checkedStrokeAt = 0;  // and its stroke; 0 for kinds whose stroke stays as it is

  void init(void* record) const { std::memcpy(record, defaults, static_cast<std::size_t>(size)); }
  /// Takes the tag's attributes, behind what is inherited and what rules say. kOk, or
  /// kNothingToRead at a syntax error.
  int parse(CHandlerReader& reader, void* record, _svg_common* parent) const;

  _svg_ta& tests(void* record) const {
    return *reinterpret_cast<_svg_ta*>(static_cast<char*>(record) + testsAt);
  }
  void checkStroke(void* record) const;
};

/// Null for a tag that is no such element.
const LeafKind* leafKind(int tag);

}  // namespace egfsvg
