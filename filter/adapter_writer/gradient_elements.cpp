// Pooled gradients as gradient elements with their stops.

#include <algorithm>
#include <cmath>

#include "adapter_writer/colour_swap.h"
#include "adapter_writer/element_parts.h"
#include "model/lifecycle.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kDoubledStops = 2;  // the ramp's first and last stand twice
constexpr std::int32_t kPositionsPerPercent = 10;
constexpr std::int32_t kWholeOffset = 100;
constexpr double kAlphaSteps = 255.0;
constexpr std::int32_t kMatrixArgs = 6;

/// Kept: the sign of a percentage is lost.
void makePercent(_svg_value& field, std::int32_t whole) {
  field.unit = kUnitPercent;
  field.value = std::fabs(field.value / whole) * 100.0;
}

void setLinear(const CAdapterWriter& writer, const awriter::_svg_gradient_parms& pooled,
               _svg_gradient* gradient) {
  initLinearGrad(gradient);
  auto& vector = gradient->parms.linear;
  setPixels(vector.x1, pooled.x1);
  setPixels(vector.y1, pooled.y1);
  setPixels(vector.x2, pooled.x2);
  setPixels(vector.y2, pooled.y2);
  if (writer.svgWidth == 0 || writer.svgHeight == 0) return;
  makePercent(vector.x1, writer.svgWidth);
  makePercent(vector.y1, writer.svgHeight);
  makePercent(vector.x2, writer.svgWidth);
  makePercent(vector.y2, writer.svgHeight);
}

void setRadial(const awriter::_svg_gradient_parms& pooled, _svg_gradient* gradient) {
  initRadialGrad(gradient);
  setPixels(gradient->parms.radial.fx, pooled.fx);
  setPixels(gradient->parms.radial.fy, pooled.fy);
}

_svg_color stopColour(_sel_RGB_type colour) {
  const std::int32_t word = swappedColour(colour);
  constexpr std::int32_t kByte = 0xff;
  return {word >> 16 & kByte, word >> 8 & kByte, word & kByte, colour.extra};
}

std::int32_t percentOf(const _egf_gdiplus_gradientparms_tag& ramp, std::int32_t index) {
  return ramp.stopPositions[index] / kPositionsPerPercent;
}

/// A stop of the element: the entry of the ramp that it takes, and its offset in percent.
struct StopSource {
  std::int32_t entry;
  std::int32_t offset;
};

/// A radial ramp runs from the edge to the focus, so its stops are taken backwards.
StopSource sourceOf(const _egf_gdiplus_gradientparms_tag& ramp, bool radial, std::int32_t stop,
                    std::int32_t count) {
  const std::int32_t entry = radial ? count - stop : stop + 1;
  const std::int32_t offset = percentOf(ramp, entry);
  if (!radial) return {entry, offset};
  if (ramp.gradReflect == 0) return {entry, kWholeOffset - offset};
  return {entry, offset * (ramp.gradReflect + 1)};
}

/// Without memory the gradient has no stops.
void setStops(const _egf_gdiplus_gradientparms_tag& ramp, bool radial, std::int32_t count,
              _svg_gradient* gradient) {
  gradient->stops = static_cast<_svg_stop*>(
      RMM_CallocName(static_cast<std::size_t>(count), sizeof(_svg_stop), RMM_SITE));
  if (gradient->stops == nullptr) return;
  gradient->stopCount = count;
  for (std::int32_t i = 0; i < count; ++i) {
    const StopSource source = sourceOf(ramp, radial, i, count);
    _svg_stop& stop = gradient->stops[i];
    stop.gradients.stopColor = stopColour(ramp.stopColors[source.entry]);
    stop.gradients.stopOpacity = ramp.stopAlpha[source.entry] / kAlphaSteps;
    stop.offset = percent(source.offset);
  }
}

bool isIdentity(const _egf_matrix_tag& m) {
  return m.m11 == 1.0F && m.m12 == 0.0F && m.m21 == 0.0F && m.m22 == 1.0F && m.dx == 0.0F &&
         m.dy == 0.0F;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int CAdapterWriter::SetGradProps(const awriter::_svg_gradient_parms* pooled,
                                 _svg_gradient* gradient) {
  const std::uint32_t number = STYLE_QueryStyleNo(gradientTable, sizeof *pooled, pooled);
  gradient->head.id = styleName("", number);
  gradient->head.type = pooled->type;
  gradient->spreadMethod = pooled->spreadMethod;
  gradient->gradientUnits = pooled->gradientUnits;
  const bool radial = pooled->type == kTagRadialGradient;
  radial ? setRadial(*pooled, gradient) : setLinear(*this, *pooled, gradient);
  std::uint32_t size = 0;
  void* record = nullptr;
  const int result =
      STYLE_QueryData(documentTable(*this, kStyleGradient),
                      static_cast<std::uint32_t>(pooled->gradientNo), &size, &record);
  if (result != 0 || size < sizeof(_egf_gdiplus_gradientparms_tag)) return result;
  const auto& ramp = *static_cast<const _egf_gdiplus_gradientparms_tag*>(record);
  const std::int32_t count =
      std::min<std::int32_t>(ramp.stopCount, kMaxGradientStops) - kDoubledStops;
  if (count < 1) return 0;
  setStops(ramp, radial, count, gradient);
  if (radial) gradient->spreadMethod = ramp.gradReflect == 0 ? kSpreadPad : kSpreadRepeat;
  return _setGradientTransform(gradient, ramp.gradMatrix);
}

/// Kept: both shifts are scaled like an x.
int CAdapterWriter::_setGradientTransform(_svg_gradient* gradient, _egf_matrix_tag matrix) {
  if (isIdentity(matrix)) return 0;
  _svg_value* args = setTransform(*this, gradient->head, kMatrix, kMatrixArgs);
  if (args == nullptr) return -1;
  const UserScale scale = scaleOf(*this);
  const double values[kMatrixArgs] = {matrix.m11, matrix.m12,         matrix.m21,
                                      matrix.m22, scale.x(matrix.dx), scale.x(matrix.dy)};
  for (std::int32_t i = 0; i < kMatrixArgs; ++i) args[i] = pixels(values[i]);
  return 0;
}
