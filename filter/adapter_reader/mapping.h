// Records of the map from user space to the page. Matrices act on column vectors; the translation
// column is in pixels, while points are in space units (1/4096 pixel).
#pragma once

#include <cstdint>

#include "model/values.h"

struct _svg_viewbox;
struct _svg_pa_viewports;

/// x' = m[0][0] x + m[0][1] y + m[0][2], y' likewise from the second row.
struct _transformMatrix {
  double m[3][3];
};

struct _viewBox {
  _svg_viewbox* box;  // not owned; the fit of a view box is never computed
  _transformMatrix matrix;
};

struct _userSpace {
  _transformMatrix matrix;
  transformEntry* transforms;  // not owned: the element's own list
  std::int32_t transformCount;
};

struct _viewPortMap {
  _svg_pa_viewports* viewport;  // not owned
  _userSpace* userSpace;
  _viewBox* viewBox;
  _transformMatrix matrix;  // the product
};
