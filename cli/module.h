// The filter module, loaded by its exported names alone.
#pragma once

#include <cstdint>

#include "frame/entry_records.h"
#include "host/files.h"

namespace egfsvg {

// The entry points that the tool calls. Each takes its record and gives a result code.
struct FilterModule {
  std::int32_t (*openReader)(_adapterOpenReader*);
  std::int32_t (*queryProperty)(_adapterQuery*);
  std::int32_t (*readData)(_adapterReadData*, QV_FILEID*);
  std::int32_t (*unloadData)(_adapterUnloadData*);
  std::int32_t (*closeReader)(_adapterCloseReader*);

  std::int32_t (*openHandler)(_handlerOpenReader*);
  std::int32_t (*preprocessSource)(_handlerPreprocess*);
  std::int32_t (*enumerateData)(_handlerEnumData*, QV_FILEID*);
  std::int32_t (*queryHandler)(_handlerQuery*);
  std::int32_t (*closeHandler)(_handlerCloseReader*);
};

// Loaded at the first call: from $EGFSVG_MODULE, beside the tool, or in ../lib/egfsvg. Throws a
// Failure (70).
const FilterModule& filterModule();

}  // namespace egfsvg
