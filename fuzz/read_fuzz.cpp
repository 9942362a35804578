// A whole read: the drawing through the entry points into a host page, as a host does it.
#include "embedded_host/host_documents.h"
#include "frame/svghinterface.h"
#include "fuzz/fuzz_support.h"

namespace egfsvg::fuzz {
namespace {

constexpr std::int32_t kPagesProperty = 3;
// Limits that keep one input short.
constexpr std::uint32_t kMostNesting = 200;
constexpr std::uint32_t kMostReferencedObjects = 2000;

void readPage(HostHandle source, HostHandle page, HostHandle view) {
  _adapterOpenReader opened = {0, source};
  require(SVGA_OpenReader(&opened) == 0, "a reader opens");
  _adapterQuery query = {};
  query.reader = opened.reader;
  query.source = source;
  query.property = kPagesProperty;
  SVGA_QueryProperty(&query);
  _adapterPreprocess preprocessed = {opened.reader, source};
  SVGA_PreprocessSource(&preprocessed);
  _adapterReadData read = {};
  read.reader = opened.reader;
  read.source = source;
  read.container = page;
  read.view = view;
  QV_FILEID file = {};
  SVGA_ReadData(&read, &file);
  _adapterUnloadData unloaded = {opened.reader, 0};
  SVGA_UnloadData(&unloaded);
  _adapterCloseReader closed = {opened.reader};
  require(SVGA_CloseReader(&closed) == 0, "a reader closes");
}

void readDrawing(const Input& input) {
  const HostHandle document = egfhost::createDocument();
  const HostHandle view = egfhost::createView(document);
  const HostHandle page = egfhost::createPage(document);
  const HostHandle source = egfhost::openMemory("drawing.svg", input.text);
  readPage(source, page, view);
  FLR_Close(source);
  egfhost::destroyView(view);
  egfhost::destroyDocument(document);
}

}  // namespace
}  // namespace egfsvg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  egfhost::setSetting("maxNesting", kMostNesting);
  egfhost::setSetting("maxReferencedObjects", kMostReferencedObjects);
  egfhost::setSetting("hideUnderNone", input.kind() & 1);
  egfhost::setSetting("useAnywhere", (input.kind() >> 1) & 1);
  egfhost::setSetting("trueCurves", (input.kind() >> 2) & 1);
  egfhost::setSetting("uprightText", (input.kind() >> 3) & 1);
  const LeakCheck leaks;
  readDrawing(input);
  return 0;
}
