#include "embedded_host/measures.h"

#include "host/egf_codes.h"
#include "host/resolution.h"

namespace egfhost {

double pixelsOf(__meas length, HostHandle map) {
  using namespace egfsvg;
  if (length.unit == kMeasureDevice) return length.value;
  double resolution = kDefaultResolution;
  MPL_GetResXFactor(1, 1, map, &resolution);
  const double centimetre = resolution / 2.54;
  switch (length.unit) {
    case kMeasureInch:
      return resolution * length.value;
    case kMeasureCentimetre:
      return centimetre * length.value;
    case kMeasureMillimetre:
      return centimetre / 10.0 * length.value;
    case kMeasureMetre:
      return centimetre * 100.0 * length.value;
    case kMeasureFoot:
      return resolution * 12.0 * length.value;
    case kMeasurePoint:
      return resolution / 72.0 * length.value;
    case kMeasureTwip:
      return resolution / 1440.0 * length.value;
    case kMeasurePixel200:
      return 200.0 / resolution * length.value;
    default:
      return length.value;
  }
}

}  // namespace egfhost
