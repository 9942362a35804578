// The gradient-parameter family: one road for all shapes. What differs is the class of the object
// and whether its extended record is the fill or the stroke form.

#include <algorithm>
#include <limits>

#include "adapter_reader/owners.h"
#include "adapter_reader/style_slots.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/angles.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "host/memory.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr double kQuarterTurn = 1.5707963267;  // radians, as the adapter takes it
constexpr std::uint32_t kAngleSet = 1;

using GradientRecord = _egf_gdiplus_gradientparms_tag;
using GradientOwner = RmmOwner<GradientRecord>;

// What marks a radial gradient in each form of the extended record.
void markRadial(_egf_gdiplus_fillparms_tag* parms) {
  parms->wrapMode = _egf_wrapmode_tag::kRadial;
  parms->gradientKind = PathGradientBits::with(GradientShapeBits::with(parms->gradientKind, 0), 1);
  parms->gradientFlags = GradientModeBits::with(parms->gradientFlags, 0);
}
void markRadial(_egf_gdiplus_stroke_parms_tag* parms) {
  parms->wrapMode = _egf_wrapmode_tag::kRadial;
  parms->gradientKind = 1;
  parms->gradientFlags = 0;
  parms->reserved32 = 0;
}

/// A gradient's points go to the object, which owns them from then on.
template <class Object>
void storePoints(Object* object, _mpl_spacept_tag* points, unsigned int count) {
  constexpr unsigned int kMost = std::numeric_limits<std::uint16_t>::max();
  RMM_Free(object->gradPts.get());
  object->gradPts = PointArray::of(points);
  object->gradPtCount = static_cast<std::uint16_t>(std::min(count, kMost));
}

/// What one call works on.
template <class Object, class Parms>
struct GradientJob {
  CAdapterReader& adapter;
  _viewPortMap* map;
  _mpl_spacerect_tag bounds;
  Object* object;
  Parms* parms;
  GradientRecord* record;
  _svg_gradient* gradient;

  bool radial() const {
    parms->wrapMode = _egf_wrapmode_tag::kRadial;
    _mpl_spacept_tag* ring = nullptr;
    unsigned int count = 0;
    unsigned int steps = 1;
    const int placed = adapter.SetGradientPath(map, bounds, gradient, &ring, &count, &steps);
    RmmOwner<_mpl_spacept_tag> points(ring);
    if (placed != 0 || adapter.SetInterpolationColours(gradient, record, steps) != 0) return false;
    storePoints(object, points.release(), count);
    markRadial(parms);
    return true;
  }

  bool linear() const {
    parms->wrapMode = static_cast<_egf_wrapmode_tag>(adapter.GetWrapMode(gradient));
    RmmOwner<_mpl_spacept_tag> points(allocateArray<_mpl_spacept_tag>(2, RMM_SITE));
    if (!points) {
      logOutOfMemory(RMM_SITE);
      return false;
    }
    _mpl_spacept_tag* p = points.get();
    double angle = 0.0;
    std::int32_t before = 0;
    std::int32_t after = 0;
    if (adapter.SetGradientVector(map, bounds, gradient, p[0], p[1], &angle, &before, &after) !=
            0 ||
        adapter.SetGradientColours(gradient, record, before, after) != 0) {
      return false;
    }
    if (angle != 0.0 && angle != kQuarterTurn) setAngle(angle, p);
    storePoints(object, points.release(), 2);
    return true;
  }

  /// A vector that runs to the left has its ramp turned; one that rises is mirrored.
  void setAngle(double angle, _mpl_spacept_tag* p) const {
    const auto degrees = truncated<std::int32_t>(degreesOf(angle));
    parms->gradientAngle = degrees * kMillionths;
    parms->angleIsSet = kAngleSet;
    const double dx = (static_cast<double>(p[1].x) - static_cast<double>(p[0].x)) / kSpaceUnits;
    const double dy = (static_cast<double>(p[1].y) - static_cast<double>(p[0].y)) / kSpaceUnits;
    if (dx < 0.0) adapter.ReverseGradientColor(record);
    if (dx * dy < 0.0) {
      adapter.SetReflectionBrushTransfrm(record, p);
      parms->gradientAngle = degrees * -kMillionths;
    }
  }
};

template <class Object, class Parms>
int setGradient(CAdapterReader& adapter, _viewPortMap* map, const _mpl_spacerect_tag& bounds,
                _egf_obj* object, Parms** parms, GradientRecord** slot, _svg_gradient* gradient) {
  if (gradient == nullptr) return -1;
  *slot = nullptr;
  GradientOwner record(allocateRecord<GradientRecord>(RMM_SITE));
  if (!record) {
    logOutOfMemory(RMM_SITE);
    return -1;
  }
  *record = kGradientParms;
  if (openSlot(parms) == nullptr) return -1;
  const GradientJob<Object, Parms> job{adapter, map,          bounds,  as<Object>(object),
                                       *parms,  record.get(), gradient};
  if (gradient->head.type == kTagRadialGradient && !job.radial()) return -1;
  if (gradient->head.type == kTagLinearGradient && !job.linear()) return -1;
  *slot = record.release();
  return 0;
}

}  // namespace
}  // namespace egfsvg

int CAdapterReader::SetPathGradientParms(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                         _egf_obj* object, _egf_gdiplus_fillparms_tag** parms,
                                         _egf_gdiplus_gradientparms_tag** record,
                                         _svg_gradient* gradient) {
  *record = nullptr;
  return egfsvg::setGradient<egfsvg::EgfPath>(*this, shapeMap, bounds, object, parms, record,
                                              gradient);
}

int CAdapterReader::SetPgonGradientParms(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                         _egf_obj* object, _egf_gdiplus_fillparms_tag** parms,
                                         _egf_gdiplus_gradientparms_tag** record,
                                         _svg_gradient* gradient) {
  *record = nullptr;
  return egfsvg::setGradient<egfsvg::EgfPolygon>(*this, shapeMap, bounds, object, parms, record,
                                                 gradient);
}

int CAdapterReader::SetElipsGradientParms(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                          _egf_obj* object, _egf_gdiplus_fillparms_tag** parms,
                                          _egf_gdiplus_gradientparms_tag** record,
                                          _svg_gradient* gradient) {
  return egfsvg::setGradient<egfsvg::EgfEllipse>(*this, shapeMap, bounds, object, parms, record,
                                                 gradient);
}

int CAdapterReader::SetLineGradientParms(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                         _egf_obj* object, _egf_gdiplus_stroke_parms_tag** parms,
                                         _egf_gdiplus_gradientparms_tag** record,
                                         _svg_gradient* gradient) {
  return egfsvg::setGradient<egfsvg::EgfLine>(*this, shapeMap, bounds, object, parms, record,
                                              gradient);
}

int CAdapterReader::SetPlineGradientParms(_viewPortMap* shapeMap, _mpl_spacerect_tag bounds,
                                          _egf_obj* object, _egf_gdiplus_stroke_parms_tag** parms,
                                          _egf_gdiplus_gradientparms_tag** record,
                                          _svg_gradient* gradient) {
  return egfsvg::setGradient<egfsvg::EgfPolyline>(*this, shapeMap, bounds, object, parms, record,
                                                  gradient);
}

/// A mirror in y about the gradient's first point, kept as the brush's own matrix.
int CAdapterReader::SetReflectionBrushTransfrm(_egf_gdiplus_gradientparms_tag* record,
                                               _mpl_spacept_tag* points) {
  const float dx =
      points[0].x == 0.0F ? 0.0F : -points[0].x;  // never -0, since pools compare bytes
  record->gradMatrix = {1.0F, 0.0F, 0.0F, -1.0F, dx, points[0].y + 0.0F};
  return 0;
}
