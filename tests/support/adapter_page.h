// An adapter on an empty page, set up as a read sets it up, that takes element records by hand.
#pragma once

#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "adapter_reader/page.h"
#include "adapter_reader/svg_adapterreader.h"
#include "embedded_host/host.h"
#include "host/egf_blocks.h"
#include "host/egf_objects.h"
#include "host/style_tables.h"
#include "tests/support/egf_builder.h"
#include "tests/support/element_builder.h"

namespace egfsvg::test {

class AdapterPage {
 public:
  // The page is not open yet when `open` is false; open() opens it.
  explicit AdapterPage(double dotsPerInch = 96.0, bool open = true);
  ~AdapterPage();
  AdapterPage(const AdapterPage&) = delete;
  AdapterPage& operator=(const AdapterPage&) = delete;

  // Ends the page that is open, and begins another one on the same container.
  void open();
  void close() { page_.reset(); }

  CAdapterReader& adapter() { return adapter_; }
  CAdapterReader* operator->() { return &adapter_; }
  HostHandle document() const { return document_; }
  HostHandle view() const { return view_; }
  HostHandle container() const { return container_; }
  EgfGroup* root() const;
  EgfPageHeader* pageHeader() const;

  // The callback's result for a record under a tag.
  template <class Record>
  int send(std::int32_t type, const Record& record) {
    std::vector<std::uint64_t> block((sizeof(_handlerObject) + sizeof(Record)) / 8 + 1);
    auto* object = reinterpret_cast<_handlerObject*>(block.data());
    *object = {&adapter_, type, static_cast<std::int32_t>(sizeof(Record))};
    std::memcpy(object->payload<Record>(), &record, sizeof record);
    return adapter_.EnumerateDataCallback(object);
  }
  template <class Record>
  int send(const Record& record) {
    return send(record.head.type, record);
  }
  // Opening and closing tags.
  int openSvg();
  int openGroup();
  int closeTag(std::int32_t type);

  // The children of a group in order, the viewport box among them.
  static std::vector<_egf_obj*> children(_egf_obj* group);
  std::vector<_egf_obj*> children() const { return children(headOf(root())); }

  // A style record by number, copied; the number must be known.
  template <class Record>
  Record style(StyleClass styleClass, std::uint32_t number) const {
    Record record{};
    copyStyle(styleClass, number, &record, sizeof record);
    return record;
  }

 private:
  void copyStyle(StyleClass styleClass, std::uint32_t number, void* out, std::size_t size) const;

  HostHandle document_;
  HostHandle view_;
  HostHandle container_;
  CAdapterReader adapter_;
  std::unique_ptr<PageScope> page_;
};

// Points of an object as pairs, so that they can be compared.
using PointPair = std::pair<float, float>;
std::vector<PointPair> pointsOf(PointArray points, std::size_t count);
inline std::vector<PointPair> pointsOf(const EgfPolygon* polygon) {
  return pointsOf(polygon->points, static_cast<std::size_t>(polygon->pointCount));
}
inline PointPair pairOf(_mpl_spacept_tag point) { return {+point.x, +point.y}; }

}  // namespace egfsvg::test
