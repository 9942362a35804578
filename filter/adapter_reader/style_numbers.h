// Offers extended records to the document's style tables. While a page is read, the tables are
// looked up once and a record equal to the last one of its class is not offered again.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/egf_codes.h"
#include "host/egf_pens.h"
#include "host/egf_styles.h"
#include "host/wire.h"

namespace egfsvg {

class StyleNumbers {
 public:
  void beginPage();
  void endPage();

  /// The record's number in the table of its class; 0 when the document has no such table, or
  /// memory ran out.
  std::uint32_t number(HostHandle document, const _egf_gdi_fillparms_tag& pen);
  std::uint32_t number(HostHandle document, const _egf_gdiplus_fillparms_tag& parms);
  std::uint32_t number(HostHandle document, const _egf_gdiplus_stroke_parms_tag& parms);
  std::uint32_t number(HostHandle document, const _egf_gdiplus_gradientparms_tag& ramp);

 private:
  template <class Record>
  struct Last {
    bool lookedUp = false;     // the table, of the page's document
    HostHandle table = 0;      // 0: the document has none
    std::uint32_t number = 0;  // 0: nothing offered yet
    Record record;
  };
  template <class Record>
  HostHandle tableOf(HostHandle document, StyleClass styleClass, Last<Record>& last) const;
  template <class Record>
  std::uint32_t offer(HostHandle document, StyleClass styleClass, const Record& record,
                      Last<Record>& last);

  bool pageOpen_ = false;
  Last<_egf_gdi_fillparms_tag> pen_;
  Last<_egf_gdiplus_fillparms_tag> fill_;
  Last<_egf_gdiplus_stroke_parms_tag> stroke_;
  Last<_egf_gdiplus_gradientparms_tag> gradient_;
};

}  // namespace egfsvg
