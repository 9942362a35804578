// The entry points of svg.so that reading and writing need, loaded as a host loads them.
#pragma once

#include <cstdint>

#include "frame/entry_records.h"
#include "host/files.h"

namespace egfsvg::bench {

struct SvgModule {
  explicit SvgModule(const char* path);  // throws std::runtime_error

  std::int32_t (*openAdapter)(_adapterOpenReader*);
  std::int32_t (*preprocess)(_adapterPreprocess*);
  std::int32_t (*readData)(_adapterReadData*, QV_FILEID*);
  std::int32_t (*unloadData)(_adapterUnloadData*);
  std::int32_t (*closeAdapter)(_adapterCloseReader*);
  std::int32_t (*openHandler)(_handlerOpenReader*);
  std::int32_t (*enumerate)(_handlerEnumData*, QV_FILEID*);
  std::int32_t (*closeHandler)(_handlerCloseReader*);
  std::int32_t (*writeFile)(HostHandle view, HostHandle output, int compress);
};

}  // namespace egfsvg::bench
