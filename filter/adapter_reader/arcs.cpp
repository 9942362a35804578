// Arcs as the adapter's members: the geometry is shared with what writes drawings.

#include "geometry/arcs.h"

#include "adapter_reader/owners.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/arc_curves.h"
#include "host/settings.h"

using namespace egfsvg;

_mpl_spacept_tag* CAdapterReader::svg_discretizeRect(_mpl_spacept_tag* corners, std::int32_t rx,
                                                     std::int32_t ry, unsigned int* count) {
  return discretizeRoundedRect(corners, static_cast<float>(rx), static_cast<float>(ry), count);
}

_mpl_spacept_tag* CAdapterReader::svg_eel_discretizeArc(_mpl_spacept_tag* center, float rx,
                                                        float ry, std::int32_t start,
                                                        std::int32_t end, unsigned int* count) {
  return discretizePolarArc(*center, rx, ry, start, end, count);
}

_mpl_spacept_tag* CAdapterReader::svg_discretizeArc(_mpl_spacept_tag* center, float rx, float ry,
                                                    double rotation, std::int32_t start,
                                                    std::int32_t end, unsigned int* count) {
  return discretizeTurnedArc(*center, rx, ry, rotation, start, end, count);
}

int CAdapterReader::ArcToBezierCurve(double rotation, _mpl_spacept_tag center, double startDeg,
                                     double endDeg, double rx, double ry, int reverse, int large,
                                     _mpl_spacept_tag*& points, int* count) {
  const double factor = settingOn(Setting::kTrueCurves) ? kTrueArcControlFactor : kArcControlFactor;
  points = arcToCurves({rotation, center, startDeg, endDeg, rx, ry, reverse == 1, large == 1},
                       factor, count);
  if (points == nullptr) logOutOfMemory(RMM_SITE);
  return points == nullptr ? -1 : 0;
}
