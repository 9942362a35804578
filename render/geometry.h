// Points and boxes of the renderer, in pixels with y downwards, and the way from a record's space
// units to the device.
#pragma once

#include "host/egf_small.h"

namespace egfrender {

struct Point {
  double x = 0;
  double y = 0;
};

// Empty until the first point is added.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  bool empty = true;

  double width() const { return right - left; }
  double height() const { return bottom - top; }
  void add(Point point);
  void add(const Box& other);
};

// A record's point in pixels.
Point pixelsOf(const _mpl_spacept_tag& point);

// Places a page on a device: device = (page pixel - origin) * scale.
struct Placement {
  Point origin;
  double scale = 1;

  // Kept within what cairo's fixed-point numbers hold; not a number becomes 0.
  Point device(Point page) const;
};

}  // namespace egfrender
