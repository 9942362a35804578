// The elements that become one object each: how a record of each is made and parsed.
#pragma once

#include "reader/svg_handlerreader.h"

namespace egfsvg {

struct LeafKind {
  int tag;
  std::int32_t size;  // of the record
  void (*init)(void* record);
  int (*parse)(CHandlerReader& reader, void* record, _svg_common* parent, QV_FILEID* file);
  const _svg_ta& (*tests)(const void* record);
  _svg_pa_stroke* (*checkedStroke)(void* record);  // null for kinds whose stroke stays as it is
};

/// Null for a tag that is no such element.
const LeafKind* leafKind(int tag);

}  // namespace egfsvg
