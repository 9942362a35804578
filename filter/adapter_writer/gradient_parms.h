// The pool record of a gradient at one geometry. Records are compared byte by byte: start each from
// the template.
#pragma once

#include <cstdint>

namespace awriter {

struct _svg_gradient_parms {
  std::int32_t spreadMethod;
  std::int32_t gradientUnits;
  std::int32_t gradientNo;  // style number in the document's gradient table
  std::int32_t type;        // the tag code of a linear or a radial gradient
  double x1, x2, y1, y2;    // pixels
  double fx, fy;
  double reserved[3];
};
static_assert(sizeof(_svg_gradient_parms) == 88);

}  // namespace awriter

namespace egfsvg {

inline constexpr awriter::_svg_gradient_parms kGradientParmsTemplate{.spreadMethod = -1,
                                                                     .gradientUnits = -1};

}  // namespace egfsvg
