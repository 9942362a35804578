#include "tests/support/drawn_page.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "adapter_reader/svg_adapterreader.h"
#include "embedded_host/host_trees.h"
#include "frame/svghinterface.h"
#include "host/egf_bits.h"
#include "host/objects.h"
#include "host/style_tables.h"

namespace egfsvg::test {

DrawnPage::DrawnPage(const std::string& text, double dotsPerInch)
    : document_(egfhost::createDocument()),
      view_(egfhost::createView(document_, dotsPerInch)),
      tree_(egfhost::createPage(document_)) {
  const HostHandle source = egfhost::openMemory("drawing.svg", text);
  _adapterOpenReader open{0, source};
  result_ = SVGA_OpenReader(&open);
  if (result_ == 0) {
    at<CAdapterReader>(open.reader)->document = view_;
    _adapterReadData read{};
    read.reader = open.reader;
    read.source = source;
    read.container = tree_;
    read.view = view_;
    result_ = SVGA_ReadData(&read, nullptr);
    _adapterCloseReader close{open.reader};
    SVGA_CloseReader(&close);
  }
  FLR_Close(source);
}

DrawnPage::~DrawnPage() {
  egfhost::destroyView(view_);
  egfhost::destroyDocument(document_);
}

_egf_obj* DrawnPage::root() const { return egfhost::rootOf(tree_); }

std::vector<_egf_obj*> DrawnPage::children(_egf_obj* object) {
  std::vector<_egf_obj*> all;
  _egf_obj* cursor = nullptr;
  while (EEL_GetNextObject(object, &cursor, 0x7a3d) != nullptr) all.push_back(cursor);
  return all;
}

std::vector<_egf_obj*> DrawnPage::objects() const {
  std::vector<_egf_obj*> all = children(root());
  if (!all.empty() && OutputBits::get(all.front()->objAttr) == 0) all.erase(all.begin());
  return all;
}

_egf_obj* DrawnPage::onlyObject(std::int32_t layoutClass) const {
  const std::vector<_egf_obj*> all = objects();
  EXPECT_EQ(all.size(), 1U);
  if (all.size() != 1) return nullptr;
  EXPECT_EQ(static_cast<int>(all.front()->layoutClass), layoutClass);
  return all.front()->layoutClass == layoutClass ? all.front() : nullptr;
}

void DrawnPage::copyStyle(StyleClass styleClass, std::uint32_t number, void* out,
                          std::size_t size) const {
  const HostHandle table =
      static_cast<HostHandle>(ISL_GetProperty(document_, static_cast<int>(styleClass)));
  std::uint32_t stored = 0;
  void* record = nullptr;
  const int result = STYLE_QueryData(table, number, &stored, &record);
  EXPECT_EQ(result, 0) << "style " << number;
  if (result != 0) return;
  EXPECT_EQ(stored, size);
  std::memcpy(out, record, size);
}

std::string pointText(const _mpl_spacept_tag* points, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    const _mpl_spacept_tag p = points[i];
    const auto whole = [](float v) { return std::to_string(std::lround(v)); };
    text += (i > 0 ? " (" : "(") + whole(p.x) + "," + whole(p.y) + ")";
  }
  return text;
}

}  // namespace egfsvg::test
