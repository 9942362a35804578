// svg.so as a host loads it: found by its path, called through its exported names.
#pragma once

#include <string>

#include "frame/svghinterface.h"

namespace egfsvg::test {

// The address of an exported name, or null.
void* exportedName(const char* name);

// The entry points of the reader, by their own names.
struct ReaderEntryPoints {
  decltype(&::SVGA_OpenReader) SVGA_OpenReader;
  decltype(&::SVGA_PreprocessSource) SVGA_PreprocessSource;
  decltype(&::SVGA_QueryProperty) SVGA_QueryProperty;
  decltype(&::SVGA_ReadData) SVGA_ReadData;
  decltype(&::SVGA_UnloadData) SVGA_UnloadData;
  decltype(&::SVGA_CloseReader) SVGA_CloseReader;
  decltype(&::SVGA_EnumerateDataCallback) SVGA_EnumerateDataCallback;
  decltype(&::SVGH_OpenReader) SVGH_OpenReader;
  decltype(&::SVGH_PreprocessSource) SVGH_PreprocessSource;
  decltype(&::SVGH_QueryProperty) SVGH_QueryProperty;
  decltype(&::SVGH_EnumerateData) SVGH_EnumerateData;
  decltype(&::SVGH_CloseReader) SVGH_CloseReader;
};

// Loads the module on first use; throws std::runtime_error with the loader's words.
const ReaderEntryPoints& module();

// A document with an empty page, a view and a source over bytes, all gone at the end.
class Drawing {
 public:
  explicit Drawing(const std::string& svg);
  ~Drawing();
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  HostHandle source() const { return source_; }
  HostHandle view() const { return view_; }
  HostHandle page() const { return page_; }

  // Children of the page's root group.
  int topObjects() const;

  // Records that name this drawing.
  _adapterOpenReader opening() const { return {0, source_}; }
  _adapterReadData reading(HostHandle reader) const;

 private:
  HostHandle document_;
  HostHandle view_;
  HostHandle page_;
  HostHandle source_;
};

// A reader open on a drawing, closed at the end when it still is.
class OpenReader {
 public:
  explicit OpenReader(const Drawing& drawing);
  ~OpenReader();
  OpenReader(const OpenReader&) = delete;
  OpenReader& operator=(const OpenReader&) = delete;

  HostHandle handle() const { return handle_; }
  std::int32_t close();

 private:
  HostHandle handle_ = 0;
};

}  // namespace egfsvg::test
