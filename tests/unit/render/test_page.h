// A hand-built page with a document for its styles, and the picture of it.
#pragma once

#include <cstdint>
#include <fstream>
#include <stdexcept>

#include "embedded_host/host_documents.h"
#include "render/picture.h"
#include "tests/support/egf_builder.h"
#include "tests/support/files.h"
#include "tests/support/picture.h"

namespace egfsvg::test {

class TestPage {
 public:
  TestPage();
  ~TestPage();
  TestPage(const TestPage&) = delete;
  TestPage& operator=(const TestPage&) = delete;

  HostHandle document() const { return document_; }
  TreeBuilder& tree() { return tree_; }
  _egf_obj* add(_egf_obj* object) { return tree_.add(object); }

  // Makes the root's first child the page's viewport rectangle. To be called first.
  void viewport(double x, double y, double width, double height);

  template <class Record>
  std::uint32_t style(StyleClass styleClass, const Record& record) {
    return appendStyle(document_, styleClass, record);
  }

  egfrender::Page page() const;
  Picture picture(const egfrender::PictureOptions& options = {}) const;

 private:
  HostHandle document_;
  TreeBuilder tree_;
};

inline TestPage::TestPage() : document_(egfhost::createDocument()) {
  if (document_ == 0) throw std::runtime_error("the host gave no memory to a test's document");
}

inline TestPage::~TestPage() { egfhost::destroyDocument(document_); }

inline void TestPage::viewport(double x, double y, double width, double height) {
  add(edit<EgfPolygon>(box(x, y, width, height, {.fillStyle = kFillNone}),
                       [](EgfPolygon& record) { record.head.objAttr = 0; }));
}

inline egfrender::Page TestPage::page() const {
  auto* body = blockBody<EgfTreeBody>(at<EgfBlockHeader>(tree_.handle()));
  return {body, document_, 96.0};
}

inline Picture TestPage::picture(const egfrender::PictureOptions& options) const {
  const TempDir folder;
  const std::string path = folder.file("page.png");
  std::ofstream file(path, std::ios::binary);
  const auto take = [&](std::string_view bytes) {
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file.good();
  };
  if (!egfrender::writePng(page(), options, take)) throw std::runtime_error("no picture");
  file.close();
  return readPng(path);
}

// 0xRRGGBBAA of a pixel.
inline std::uint32_t colourAt(const Picture& picture, unsigned x, unsigned y) {
  const std::uint8_t* pixel = picture.pixel(x, y);
  return static_cast<std::uint32_t>(pixel[0]) << 24U | static_cast<std::uint32_t>(pixel[1]) << 16U |
         static_cast<std::uint32_t>(pixel[2]) << 8U | pixel[3];
}

// Pixels that are not wholly transparent.
inline std::size_t inkedPixels(const Picture& picture) {
  std::size_t count = 0;
  for (std::size_t i = 3; i < picture.pixels.size(); i += 4) count += picture.pixels[i] != 0;
  return count;
}

}  // namespace egfsvg::test
