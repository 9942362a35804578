#include "tests/support/saved_document.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "adapter_reader/svg_adapterreader.h"
#include "frame/svghinterface.h"
#include "host/compression.h"
#include "host/egf_blocks.h"
#include "tests/support/files.h"

namespace egfsvg::test {

SavedDocument::SavedDocument(double dotsPerInch)
    : document_(egfhost::createDocument()), view_(egfhost::createView(document_, dotsPerInch)) {}

SavedDocument::~SavedDocument() {
  egfhost::destroyView(view_);
  egfhost::destroyDocument(document_);
}

void SavedDocument::take(TreeBuilder& tree) {
  ISL_SetProperty(document_, kDocumentObjectTree, tree.release());
}

std::int32_t SavedDocument::read(const std::string& svg) {
  const HostHandle page = egfhost::createPage(document_);
  const HostHandle source = egfhost::openMemory("drawing.svg", svg);
  _adapterOpenReader open{0, source};
  std::int32_t result = SVGA_OpenReader(&open);
  if (result == 0) {
    at<CAdapterReader>(open.reader)->document = view_;
    _adapterPreprocess preprocess{open.reader, source};
    SVGA_PreprocessSource(&preprocess);
    _adapterReadData data{};
    data.reader = open.reader;
    data.source = source;
    data.container = page;
    data.view = view_;
    result = SVGA_ReadData(&data, nullptr);
    _adapterCloseReader close{open.reader};
    SVGA_CloseReader(&close);
  }
  FLR_Close(source);
  return result;
}

std::int32_t SavedDocument::save(std::string* written, int compress) const {
  written->clear();
  const HostHandle output = egfhost::openMemoryOutput("saved.svg", written);
  const std::int32_t result = iSVG_WriteFile(view_, output, compress);
  if (result == 0) {
    EXPECT_EQ(0, FLR_Close(output));
  } else {
    egfhost::discardOutput(output);
  }
  return result;
}

std::string SavedDocument::text() const {
  std::string written;
  EXPECT_EQ(0, save(&written));
  return written;
}

std::uint32_t SavedDocument::treeReferences() const {
  const HostHandle tree = egfhost::documentTree(document_);
  return tree == 0 ? 0 : at<EgfTreeBlock>(tree)->header.references;
}

std::string unpacked(const std::string& bytes) {
  const TempDir folder;
  egfhost::allowFolder(folder.path().string(), egfhost::FileAccess::kWrite);
  const std::string packed = folder.write("packed", bytes);
  if (ZLIB_UnCompressFile(packed.c_str(), folder.file("plain").c_str(), 0) != 0) {
    throw std::runtime_error(egfhost::describe(egfhost::compressionFailure()));
  }
  return readFile(folder.file("plain"));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> elementLines(const std::string& text) {
  std::vector<std::string> elements;
  bool inside = false;
  for (const std::string& line : linesOf(text)) {
    if (line == "   <defs>") break;
    if (inside) elements.push_back(line);
    if (line.starts_with("<svg")) inside = true;
  }
  return elements;
}

}  // namespace egfsvg::test
