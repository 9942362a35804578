// What the reader keeps for later: attribute chains, definition chains, reference targets, and the
// marker of the open container.
#pragma once

#include <cstdint>

#include "model/groups.h"

/// One attribute kept for later, or one declaration of a style rule. Chains are in order.
struct AttNode {
  std::int32_t code;  // AttributeCode
  char name[kAttribNameSize];
  std::int32_t valueLength;  // with its terminator
  char* value;               // owned
  AttNode* next;

  /// A chain of copies of this node and those behind it; null without memory.
  AttNode* clone() const;
};

/// One element kept inside `defs` or a text run.
struct DefNode {
  std::int32_t type;  // TagCode
  char* idRef;        // "#" and the id, owned
  char* text;         // owned
  AttNode* attributes;
  DefNode* next;
};

/// Where the target of a `use`, `tref` or entity reference lies in the source.
struct _svg_localref {
  char* text;              // owned, null as created
  std::int32_t fileIndex;  // 0 until the target is met
  std::int32_t tagType;
  std::int32_t refCount;
};

/// Which container element is open. Owns neither.
struct _svg_container {
  _svg_common* current;
  _svg_common* owner;
};
