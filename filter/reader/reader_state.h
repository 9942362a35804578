// What a reader keeps besides its required members: scratch blocks that are reused between
// elements, the settings and limits in force, and what has been counted against them.
#pragma once

#include <cstdint>

#include "model/values.h"

namespace egfsvg {

/// Limits of one read. 0 in the host's settings means the built-in value here.
struct ReaderLimits {
  std::int32_t maxNesting = 1024;                 // open g and svg elements
  std::int32_t maxReferenceDepth = 64;            // references inside references
  std::int64_t maxReferencedObjects = 1'000'000;  // objects sent through references, a read
  std::int64_t maxSourceBytes = 0x7fffffff;
};

/// Host settings that the reader asks for.
struct ReaderSettings {
  bool compactNumbers = false;
  bool useAnywhere = false;
  bool plainStyle = false;
  bool trueCurves = false;
  bool diagnostics = false;
};

struct ReaderState {
  ReaderLimits limits;
  ReaderSettings settings;
  std::int32_t nesting = 0;         // open containers
  std::int32_t referenceDepth = 0;  // open references
  std::int64_t referencedObjects = 0;
  bool callbackStopped = false;     // a callback inside a nested enumeration returned 0
  int localStyleDepth = 0;          // style attributes being applied
  char* valueBlock = nullptr;       // reused value block of an attribute pair, owned
  std::int32_t valueBlockSize = 0;
};

}  // namespace egfsvg
