// Casts of single values: lengths to pixels and space units, colours, keyword codes, angles.

#include <cmath>

#include "adapter_reader/paint_codes.h"
#include "adapter_reader/pixel_scale.h"
#include "geometry/angles.h"
#include "host/egf_codes.h"
#include "host/resolution.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

constexpr double kPointsPerInch = 72.0;
constexpr double kPicasPerInch = 6.0;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kDegreesPerGrad = 0.9;
constexpr double kTenths = 10.0;

/// One row of a keyword's codes; what no row names gets the row's last resort.
struct CodeRow {
  int svg;
  int host;
};
constexpr CodeRow kCapRows[] = {{1, kCapButt}, {2, kCapRound}, {3, kCapSquare}};
constexpr CodeRow kJoinRows[] = {{2, kJoinRound}, {3, kJoinBevel}};
constexpr CodeRow kFillRuleRows[] = {{1, 0}, {2, 1}};

template <std::size_t kRows>
int codeOf(const CodeRow (&rows)[kRows], int svg, int otherwise) {
  for (const CodeRow& row : rows) {
    if (row.svg == svg) return row.host;
  }
  return otherwise;
}

double inPixels(float spaceUnits) { return static_cast<double>(spaceUnits) / kSpaceUnits; }

/// What a percentage is a percentage of, in pixels.
double percentBase(const CAdapterReader& adapter, int axis) {
  const double width = inPixels(adapter.viewportWidth);
  const double height = inPixels(adapter.viewportHeight);
  if (axis == kAxisWidth) return width;
  if (axis == kAxisHeight) return height;
  return std::sqrt((width * width + height * height) / 2.0);
}

std::uint8_t channel(std::int32_t value) { return static_cast<std::uint8_t>(value); }

}  // namespace

int joinCode(int strokeLinejoin) { return codeOf(kJoinRows, strokeLinejoin, kJoinMiter); }

double resolutionOf(const CAdapterReader& adapter) {
  if (adapter.state.resolution.isKnown()) return adapter.state.resolution.pixelsPerInch;
  double resolution = kDefaultResolution;
  MPL_GetResXFactor(1, 1, adapter.map, &resolution);
  return resolution;
}

}  // namespace egfsvg

using namespace egfsvg;

/// Kept: em and ex have no font here and are nothing long.
double CAdapterReader::SVGUnitToPixel(int unit, double res) {
  switch (unit) {
    case kUnitPixel:
      return pixelsPerSvgPixel(res);
    case kUnitPoint:
      return res / kPointsPerInch;
    case kUnitPica:
      return res / kPicasPerInch;
    case kUnitCentimetre:
      return res / kCentimetresPerInch;
    case kUnitMillimetre:
      return res / kCentimetresPerInch / kTenths;
    case kUnitInch:
      return res;
    case kUnitBoundingBox:
      return 1.0;
    default:
      return 0.0;
  }
}

double CAdapterReader::SVGValueToPixelValue(const _svg_value& value, double res) {
  if (value.unit == kUnitPercent) return percentBase(*this, value.axis) * value.value / 100.0;
  return SVGUnitToPixel(value.unit, res) * value.value;
}

float CAdapterReader::castS32(const _svg_value& value) {
  return static_cast<float>(PixelScale(*this).spaceUnits(value));
}

void CAdapterReader::castLineThickness(const _svg_value& value, __meas* out) {
  *out = {kMeasureDevice, PixelScale(*this).pixels(value)};
}

int CAdapterReader::castFillMode(int fillRule) { return codeOf(kFillRuleRows, fillRule, 0); }

_sel_RGB_type CAdapterReader::castColor(const _svg_color& colour) {
  return {channel(colour.blue), channel(colour.green), channel(colour.red),
          channel(colour.colorExtra)};
}

int CAdapterReader::castLineCap(int strokeLinecap) {
  return codeOf(kCapRows, strokeLinecap, kCapRound);
}

int CAdapterReader::castJoinStyle(_svg_pa_stroke& stroke) {
  return joinCode(stroke.strokeLinejoin);
}

void CAdapterReader::SVGPointToPts(const _svg_point& point, const _svg_value& dx,
                                   const _svg_value& dy, _mpl_spacept_tag* out) {
  if (out == nullptr) return;
  const PixelScale scale(*this);
  const auto units = [&](const _svg_value& place, const _svg_value& offset) {
    return static_cast<float>((scale.pixels(place) + scale.pixels(offset)) * kSpaceUnits);
  };
  *out = {units(point.x, dx), units(point.y, dy)};
}

void CAdapterReader::SVGPointToPts(const _svg_point& point, _mpl_spacept_tag* out) {
  if (out == nullptr) return;
  *out = PixelScale(*this).point(point.x, point.y);
}

/// Kept: not repeatable. A point that is already in space units comes out as 0.
void CAdapterReader::SVGPointToPts(_svg_point& point) {
  const PixelScale scale(*this);
  for (_svg_value* value : {&point.x, &point.y}) {
    value->value = scale.spaceUnits(*value);
    value->unit = kUnitSpace;
  }
}

int CAdapterReader::SVGAngleToAngle(const _svg_angle& angle) {
  switch (angle.unit) {
    case kUnitDegree:
      return truncated<std::int32_t>(angle.value * kTenths);
    case kUnitRadian:
      return truncated<std::int32_t>(degreesOf(angle.value) * kTenths);
    case kUnitGrad:
      return truncated<std::int32_t>(angle.value * kDegreesPerGrad * kTenths);
    default:
      return 0;
  }
}

double CAdapterReader::SVGAngleToRAD(const _svg_angle& angle) {
  switch (angle.unit) {
    case kUnitDegree:
      return kAdapterPi * angle.value / 180.0;
    case kUnitRadian:
      return angle.value;
    case kUnitGrad:
      return kDegreesPerGrad * angle.value * kAdapterPi / 180.0;
    default:
      return 0.0;
  }
}
