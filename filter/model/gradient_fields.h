// Field rows of gradients and their stops.
#pragma once

#include "model/elements.h"
#include "model/group_fields.h"

namespace egfsvg::element_rows {

inline constexpr ElementField kStopRows[] = {EGFSVG_RECORD(_svg_stop, head, kHeadFields),
                                             EGFSVG_RECORD(_svg_stop, graphics, kGraphicsFields),
                                             EGFSVG_RECORD(_svg_stop, gradients, kGradientsFields),
                                             EGFSVG_FIELD(_svg_stop, offset, kValue)};
inline constexpr ElementRecord kStopFields(kStopRows);

/// The two sides of a gradient's geometry share their slots.
inline constexpr ElementField kLinearRows[] = {
    {"x1", offsetof(model::_svg_gradient_parms, slots.g0), ElementShape::kValue},
    {"y1", offsetof(model::_svg_gradient_parms, slots.g1), ElementShape::kValue},
    {"x2", offsetof(model::_svg_gradient_parms, slots.g2), ElementShape::kValue},
    {"y2", offsetof(model::_svg_gradient_parms, slots.g3), ElementShape::kValue}};
inline constexpr ElementRecord kLinearFields(kLinearRows);

inline constexpr ElementField kRadialRows[] = {
    {"cx", offsetof(model::_svg_gradient_parms, slots.g0), ElementShape::kValue},
    {"cy", offsetof(model::_svg_gradient_parms, slots.g1), ElementShape::kValue},
    {"fx", offsetof(model::_svg_gradient_parms, slots.g2), ElementShape::kValue},
    {"fy", offsetof(model::_svg_gradient_parms, slots.g3), ElementShape::kValue},
    {"r", offsetof(model::_svg_gradient_parms, slots.g4), ElementShape::kValue}};
inline constexpr ElementRecord kRadialFields(kRadialRows);

inline constexpr ElementField kGradientRows[] = {
    EGFSVG_RECORD(_svg_gradient, head, kHeadFields),
    EGFSVG_RECORD(_svg_gradient, graphics, kGraphicsFields),
    EGFSVG_RECORD(_svg_gradient, gradients, kGradientsFields),
    EGFSVG_FIELD(_svg_gradient, spreadMethod, kInteger),
    EGFSVG_FIELD(_svg_gradient, gradientUnits, kInteger),
    EGFSVG_RECORD(_svg_gradient, link, kLinkFields),
    EGFSVG_ARRAY(_svg_gradient, stops, stopCount, _svg_stop, kRecord, &kStopFields),
    EGFSVG_FIELD(_svg_gradient, stopCount, kInteger),
    {.key = "parms",
     .offset = offsetof(_svg_gradient, parms),
     .shape = ElementShape::kRecord,
     .record = &kLinearFields,
     .onlyFor = kTagLinearGradient},
    {.key = "parms",
     .offset = offsetof(_svg_gradient, parms),
     .shape = ElementShape::kRecord,
     .record = &kRadialFields,
     .onlyFor = kTagRadialGradient}};
inline constexpr ElementRecord kGradientFields(kGradientRows);

}  // namespace egfsvg::element_rows
