// Gradients of objects: each geometry of a gradient record is one record of the writer's pool.

#include <cmath>
#include <cstdlib>

#include "adapter_writer/user_scale.h"
#include "geometry/angles.h"
#include "host/egf_bits.h"
#include "host/style_tables.h"

namespace egfsvg {
namespace {

using awriter::_svg_gradient_parms;

constexpr double kQuarterTurn = 1.5707963267;  // a quarter turn as whole degrees give it
constexpr int kNoParms = -1;

/// Where a gradient lies. Points that are not there count as 0.
struct GradientPoints {
  const _mpl_spacept_tag* points;
  int count;

  _mpl_spacept_tag at(int index) const {
    return points != nullptr && index < count ? points[index] : _mpl_spacept_tag{0.0F, 0.0F};
  }
};

struct GradientForm {
  bool radial;
  _egf_wrapmode_tag wrapMode;
  bool angleIsSet;
  std::int32_t angle;  // millionths of a degree
};

GradientForm formOf(const _egf_gdiplus_fillparms_tag& parms) {
  return {PathGradientBits::get(parms.gradientKind) != 0, parms.wrapMode, parms.angleIsSet == 1,
          parms.gradientAngle};
}

GradientForm formOf(const _egf_gdiplus_stroke_parms_tag& parms) {
  return {parms.gradientKind != 0, parms.wrapMode, parms.angleIsSet == 1, parms.gradientAngle};
}

/// Kept: the focus of a radial gradient is scaled like an x on both axes.
void setFocus(const UserScale& scale, _mpl_spacept_tag focus, _svg_gradient_parms* record) {
  record->fx = scale.x(focus.x);
  record->fy = scale.x(focus.y);
}

void setVector(const UserScale& scale, const GradientPoints& points, _svg_gradient_parms* record) {
  const _mpl_spacept_tag from = points.at(0);
  const _mpl_spacept_tag to = points.at(1);
  record->x1 = scale.x(from.x);
  record->y1 = scale.y(from.y);
  record->x2 = scale.x(to.x);
  record->y2 = scale.y(to.y);
}

template <class Parms>
int poolGradient(CAdapterWriter& writer, const Parms* parms, std::uint32_t gradientNo,
                 const GradientPoints& points) {
  if (gradientNo == 0) return 0;
  if (parms == nullptr) return kNoParms;
  const GradientForm form = formOf(*parms);
  _svg_gradient_parms record = kGradientParmsTemplate;
  record.gradientNo = static_cast<std::int32_t>(gradientNo);
  record.type = form.radial ? kTagRadialGradient : kTagLinearGradient;
  record.spreadMethod = writer._setSpreadMethod(form.wrapMode);
  record.gradientUnits = kGradientUserSpace;
  const UserScale scale = scaleOf(writer);
  if (form.radial) {
    setFocus(scale, points.at(0), &record);
  } else {
    setVector(scale, points, &record);
    if (form.angleIsSet) writer._setDirectionalLineAngle(&record, form.angle);
  }
  return static_cast<int>(STYLE_AppendUnique(writer.gradientTable, sizeof record, &record));
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int CAdapterWriter::STYLE_GradParmsAppendUnique(const _egf_gdiplus_fillparms_tag* parms,
                                                std::uint32_t gradientNo,
                                                const _mpl_spacept_tag* points, int pointCount) {
  return poolGradient(*this, parms, gradientNo, {points, pointCount});
}

int CAdapterWriter::STYLE_GradParmsAppendUnique(const _egf_gdiplus_stroke_parms_tag* parms,
                                                std::uint32_t gradientNo,
                                                const _mpl_spacept_tag* points, int pointCount) {
  return poolGradient(*this, parms, gradientNo, {points, pointCount});
}

/// Turns the vector to the angle and keeps its projection. A level vector stays as it is.
void CAdapterWriter::_setDirectionalLineAngle(awriter::_svg_gradient_parms* parms,
                                              std::int32_t angle) {
  const double turned = radiansOf(static_cast<double>(angle / kMillionths));
  if (turned == 0.0 || turned == kQuarterTurn) return;
  const double dy = parms->y2 - parms->y1;
  if (dy == 0.0) return;
  const double base = std::fabs(std::atan(dy / (parms->x2 - parms->x1)));
  const double sine = std::sin(base);
  if (turned == base || sine == 0.0) return;
  const double length = std::cos(std::fabs(turned - base)) * dy / sine;
  parms->x2 = std::cos(turned) * length + parms->x1;
  parms->y2 = std::sin(turned) * length + parms->y1;
}
