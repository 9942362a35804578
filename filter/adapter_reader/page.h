// What is set up when a page begins and given back when it ends, however it ends.
#pragma once

#include "frame/entry_records.h"
#include "host/wire.h"

class CAdapterReader;

namespace egfsvg {

/// Pixels per inch of the adapter's map. While a page is read it was asked once.
double resolutionOf(const CAdapterReader& adapter);

/// Pixels in one SVG pixel, of which 96 make an inch.
constexpr double pixelsPerSvgPixel(double resolution) {
  constexpr double kCssResolution = 96.0;
  return resolution / kCssResolution;
}

/// Fills the dash table with the records that the page's document holds already.
void loadDashTable(CAdapterReader& adapter);
void freeDashTable(CAdapterReader& adapter);

/// The page members of an adapter, from the container's block and the view.
class PageScope {
 public:
  PageScope(CAdapterReader& adapter, const _adapterReadData& record);
  ~PageScope();
  PageScope(const PageScope&) = delete;
  PageScope& operator=(const PageScope&) = delete;

 private:
  explicit PageScope(CAdapterReader& adapter) : adapter_(adapter) {}

  CAdapterReader& adapter_;
};

}  // namespace egfsvg
