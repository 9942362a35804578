// A text read into a page of drawing objects, through the entry points.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embedded_host/host.h"
#include "host/egf_codes.h"
#include "host/egf_objects.h"
#include "host/egf_styles.h"

namespace egfsvg::test {

class DrawnPage {
 public:
  /// The viewport box of the outermost svg, if there is one, is left out of `objects()`.
  explicit DrawnPage(const std::string& text, double dotsPerInch = 96.0);
  ~DrawnPage();
  DrawnPage(const DrawnPage&) = delete;
  DrawnPage& operator=(const DrawnPage&) = delete;

  std::int32_t result() const { return result_; }
  _egf_obj* root() const;
  HostHandle document() const { return document_; }
  HostHandle tree() const { return tree_; }

  /// The children of an object in drawing order.
  static std::vector<_egf_obj*> children(_egf_obj* object);
  std::vector<_egf_obj*> objects() const;

  /// The only object of the page, as its record; a failure when there is none or another class.
  template <class Record>
  Record* only(std::int32_t layoutClass) const {
    return reinterpret_cast<Record*>(onlyObject(layoutClass));
  }
  /// A style record by its number, copied.
  template <class Record>
  Record style(StyleClass styleClass, std::uint32_t number) const {
    Record record{};
    copyStyle(styleClass, number, &record, sizeof record);
    return record;
  }

 private:
  _egf_obj* onlyObject(std::int32_t layoutClass) const;
  void copyStyle(StyleClass styleClass, std::uint32_t number, void* out, std::size_t size) const;

  HostHandle document_;
  HostHandle view_;
  HostHandle tree_;
  std::int32_t result_ = 0;
};

/// "(x,y) (x,y)" of points in space units, rounded to whole ones.
std::string pointText(const _mpl_spacept_tag* points, std::size_t count);

}  // namespace egfsvg::test
