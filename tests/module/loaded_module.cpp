#include "tests/module/loaded_module.h"

#include <dlfcn.h>

#include <stdexcept>

#include "embedded_host/host.h"
#include "host/egf_codes.h"
#include "host/objects.h"

namespace egfsvg::test {

namespace {

void* load() {
  void* handle = dlopen(SVG_MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw std::runtime_error(dlerror());
  return handle;
}

void* library() {
  static void* handle = load();
  return handle;
}

template <class Function>
void resolve(Function& function, const char* name) {
  function = reinterpret_cast<Function>(exportedName(name));
  if (function == nullptr) throw std::runtime_error(std::string("not exported: ") + name);
}

ReaderEntryPoints resolveAll() {
  ReaderEntryPoints entry{};
  resolve(entry.SVGA_OpenReader, "SVGA_OpenReader");
  resolve(entry.SVGA_PreprocessSource, "SVGA_PreprocessSource");
  resolve(entry.SVGA_QueryProperty, "SVGA_QueryProperty");
  resolve(entry.SVGA_ReadData, "SVGA_ReadData");
  resolve(entry.SVGA_UnloadData, "SVGA_UnloadData");
  resolve(entry.SVGA_CloseReader, "SVGA_CloseReader");
  resolve(entry.SVGA_EnumerateDataCallback, "SVGA_EnumerateDataCallback");
  resolve(entry.SVGH_OpenReader, "SVGH_OpenReader");
  resolve(entry.SVGH_PreprocessSource, "SVGH_PreprocessSource");
  resolve(entry.SVGH_QueryProperty, "SVGH_QueryProperty");
  resolve(entry.SVGH_EnumerateData, "SVGH_EnumerateData");
  resolve(entry.SVGH_CloseReader, "SVGH_CloseReader");
  return entry;
}

}  // namespace

void* exportedName(const char* name) { return dlsym(library(), name); }

const ReaderEntryPoints& module() {
  static const ReaderEntryPoints entry = resolveAll();
  return entry;
}

Drawing::Drawing(const std::string& svg)
    : document_(egfhost::createDocument()),
      view_(egfhost::createView(document_)),
      page_(egfhost::createPage(document_)),
      source_(egfhost::openMemory("drawing.svg", svg)) {}

Drawing::~Drawing() {
  FLR_Close(source_);
  egfhost::destroyView(view_);
  egfhost::destroyDocument(document_);
}

int Drawing::topObjects() const {
  int count = 0;
  _egf_obj* cursor = nullptr;
  while (EEL_GetNextObject(egfhost::rootOf(page_), &cursor, kWalkMask) != nullptr) ++count;
  return count;
}

_adapterReadData Drawing::reading(HostHandle reader) const {
  _adapterReadData record{};
  record.reader = reader;
  record.source = source_;
  record.container = page_;
  record.view = view_;
  return record;
}

OpenReader::OpenReader(const Drawing& drawing) {
  _adapterOpenReader record = drawing.opening();
  if (module().SVGA_OpenReader(&record) != 0) throw std::runtime_error("the reader did not open");
  handle_ = record.reader;
}

OpenReader::~OpenReader() {
  if (handle_ != 0) close();
}

std::int32_t OpenReader::close() {
  _adapterCloseReader record{handle_};
  const std::int32_t result = module().SVGA_CloseReader(&record);
  if (result == 0) handle_ = 0;
  return result;
}

}  // namespace egfsvg::test
