// Where shapes meet the gradient paint service: the setters of its family by the form of their
// extended record.
#pragma once

#include "adapter_reader/mapping.h"
#include "host/egf_codes.h"
#include "host/egf_objects.h"
#include "host/egf_styles.h"

class CAdapterReader;
struct _svg_gradient;

namespace egfsvg {

/// Sets a gradient's ramp, geometry and marks. The bounds are in pixels and stand for the shape
/// before its transform. 0, or -1 with nothing left behind.
template <class Parms>
using GradientSetter = int (CAdapterReader::*)(_viewPortMap* map, _mpl_spacerect_tag bounds,
                                               _egf_obj* object, Parms** parms,
                                               _egf_gdiplus_gradientparms_tag** record,
                                               _svg_gradient* gradient);
using FillGradientSetter = GradientSetter<_egf_gdiplus_fillparms_tag>;
using StrokeGradientSetter = GradientSetter<_egf_gdiplus_stroke_parms_tag>;

/// Whether a style code asks for a gradient.
constexpr bool isGradientCode(int code) { return code == kFillLinear || code == kFillRadial; }

}  // namespace egfsvg
