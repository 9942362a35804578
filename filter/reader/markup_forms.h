// The kinds of markup groups.
#pragma once

#include <cstddef>

#include "model/elements.h"

namespace egfsvg {

struct MarkupForm {
  int type;
  int memberTag;
  std::size_t size;  // of the record that is sent
  bool withGroup;    // the record is the group and its members, not the member alone
  void (*setParents)(_svg_objects& object);  // members of a child of an `a` point at its group
};

/// Null for a type that is no markup group.
const MarkupForm* markupForm(int type);

}  // namespace egfsvg
