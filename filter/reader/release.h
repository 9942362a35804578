// The end of records that the reader owns: what a record holds and its own block.
#pragma once

#include <memory>

#include "model/elements.h"
#include "model/keyed.h"

namespace egfsvg {

/// What a group holds, without its block.
void empty(_svg_group* record);

void release(_svg_svg* record);
void release(_svg_group* record);
void release(_svg_switch* record);
void release(_svg_defs* record);
void release(_svg_localref* record);
void release(_svg_gradient* record);
void release(AttNode* chain);
void release(_svg_objects* record);

struct Releaser {
  template <class Record>
  void operator()(Record* record) const {
    release(record);
  }
};

/// A record until a table or a caller takes it over.
template <class Record>
using Owned = std::unique_ptr<Record, Releaser>;

}  // namespace egfsvg
