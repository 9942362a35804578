#include "tests/support/adapter_page.h"

#include <stdexcept>

namespace egfsvg::test {

AdapterPage::AdapterPage(double dotsPerInch, bool open)
    : document_(egfhost::createDocument()),
      view_(egfhost::createView(document_, dotsPerInch)),
      container_(egfhost::createPage(document_)) {
  adapter_.document = document_;
  if (open) this->open();
}

AdapterPage::~AdapterPage() {
  page_.reset();
  egfhost::destroyView(view_);
  egfhost::destroyDocument(document_);
}

void AdapterPage::open() {
  page_.reset();
  _adapterReadData record{};
  record.container = container_;
  record.view = view_;
  page_ = std::make_unique<PageScope>(adapter_, record);
}

EgfGroup* AdapterPage::root() const { return as<EgfGroup>(egfhost::rootOf(container_)); }

EgfPageHeader* AdapterPage::pageHeader() const { return egfhost::pageHeaderOf(container_); }

int AdapterPage::openSvg() { return send(svgElement(100.0, 100.0)); }

int AdapterPage::openGroup() {
  _svg_group group;
  initGroupObj(&group);
  return send(kTagGroup, group);
}

int AdapterPage::closeTag(std::int32_t type) { return send(type, std::uint64_t{0}); }

std::vector<_egf_obj*> AdapterPage::children(_egf_obj* group) {
  std::vector<_egf_obj*> found;
  _egf_obj* cursor = nullptr;
  while (EEL_GetNextObject(group, &cursor, kWalkMask) != nullptr) found.push_back(cursor);
  return found;
}

void AdapterPage::copyStyle(StyleClass styleClass, std::uint32_t number, void* out,
                            std::size_t size) const {
  void* record = nullptr;
  std::uint32_t stored = 0;
  const HostHandle table = ISL_GetProperty(document_, static_cast<std::uint32_t>(styleClass));
  if (STYLE_QueryData(table, number, &stored, &record) != 0 || stored != size) {
    throw std::runtime_error("no such style record");
  }
  std::memcpy(out, record, size);
}

std::vector<PointPair> pointsOf(PointArray points, std::size_t count) {
  std::vector<PointPair> pairs;
  for (std::size_t i = 0; i < count; ++i) pairs.push_back(pairOf(points[i]));
  return pairs;
}

}  // namespace egfsvg::test
