// Measures of the host, and the bounds of a polyline.

#include <algorithm>

#include "adapter_writer/user_scale.h"
#include "host/egf_codes.h"

/// Device pixels at the resolution.
double CAdapterWriter::QVUnitToSVG(std::uint32_t unit, double value, double resolution) {
  using namespace egfsvg;
  constexpr double kCentimetresPerInch = 2.54;
  switch (unit) {
    case kMeasureInch:
      return resolution * value;
    case kMeasureCentimetre:
      return resolution / kCentimetresPerInch * value;
    case kMeasureMillimetre:
      return resolution / kCentimetresPerInch / 10.0 * value;
    case kMeasureMetre:
      return resolution / kCentimetresPerInch * 100.0 * value;
    case kMeasureFoot:
      return resolution * 12.0 * value;
    case kMeasurePoint:
      return resolution / 72.0 * value;
    case kMeasureTwip:
      return resolution / 1440.0 * value;
    case kMeasurePixel200:
      return 200.0 / resolution * value;
    default:
      return value;
  }
}

/// Nothing in a written file needs it. Pixels of the device.
void CAdapterWriter::PolylineOutsideMer(_egf_obj* object, _mpl_spacerect_tag* bounds) {
  using namespace egfsvg;
  constexpr auto kPerUnit = static_cast<float>(kPerSpaceUnit);
  const auto& polyline = *as<EgfPolyline>(object);
  const PointArray points = polyline.points;
  _mpl_spacerect_tag grown = *bounds;
  for (std::uint32_t i = 0; points && i < polyline.pointCount; ++i) {
    const float x = points[i].x * kPerUnit;
    const float y = points[i].y * kPerUnit;
    grown = {std::min<float>(grown.left, x), std::max<float>(grown.right, x),
             std::min<float>(grown.top, y), std::max<float>(grown.bottom, y)};
  }
  *bounds = grown;
}
