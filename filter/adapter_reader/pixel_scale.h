// Values to pixels and to space units (1/4096 pixel) at the adapter's resolution, in line: nearly
// all values of a drawing are in SVG pixels, and those take one product.
#pragma once

#include "adapter_reader/page.h"
#include "adapter_reader/plane_point.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_small.h"

namespace egfsvg {

class PixelScale {
 public:
  /// While a page is read, its resolution is at hand; else the map is asked.
  [[gnu::always_inline]] explicit PixelScale(CAdapterReader& adapter)
      : adapter_(adapter),
        resolution_(adapter.state.resolution.pixelsPerInch),
        perUnit_(adapter.state.resolution.perSvgPixel) {
    if (!adapter.state.resolution.isKnown()) [[unlikely]]
      askMap();
  }

  double resolution() const { return resolution_; }
  /// Pixels in one SVG pixel.
  double perSvgPixel() const { return perUnit_; }

  double pixels(const _svg_value& value) const {
    if (value.unit == kUnitPixel) [[likely]]
      return perUnit_ * value.value;
    return adapter_.SVGValueToPixelValue(value, resolution_);
  }
  /// A value that takes its axis from its place.
  double pixels(const _svg_value& value, AxisCode axis) const {
    if (value.unit == kUnitPixel) [[likely]]
      return perUnit_ * value.value;
    return adapter_.SVGValueToPixelValue({value.unit, value.value, axis}, resolution_);
  }
  double spaceUnits(const _svg_value& value) const { return pixels(value) * kSpaceUnits; }

  /// Both coordinates of a point, in space units.
  [[gnu::always_inline]] PlanePoint place(const _svg_value& x, const _svg_value& y) const {
    if (x.unit == kUnitPixel && y.unit == kUnitPixel) [[likely]]
      return {perUnit_ * x.value * kSpaceUnits, perUnit_ * y.value * kSpaceUnits};
    return convertedPlace(x, y);
  }
  _mpl_spacept_tag point(const _svg_value& x, const _svg_value& y) const {
    return stored(place(x, y));
  }

 private:
  [[gnu::noinline, gnu::cold]] void askMap() {
    resolution_ = resolutionOf(adapter_);
    perUnit_ = pixelsPerSvgPixel(resolution_);
  }
  [[gnu::noinline]] PlanePoint convertedPlace(const _svg_value& x, const _svg_value& y) const {
    return {spaceUnits(x), spaceUnits(y)};
  }

  CAdapterReader& adapter_;
  double resolution_;  // pixels per inch
  double perUnit_;     // pixels in one SVG pixel
};

}  // namespace egfsvg
