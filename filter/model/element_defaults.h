// Default values of the element records, copied whole by the `init...` functions.
#pragma once

#include "model/elements.h"
#include "model/group_defaults.h"

namespace egfsvg {

inline constexpr std::int32_t kDefaultAspect = 1025;  // xMidYMid meet
inline constexpr std::int32_t kDefaultZoomAndPan = 2;
inline constexpr std::int32_t kContentTypeCss = 1;
inline constexpr std::int32_t kContentTypeUnset = -1;

constexpr _svg_value unsetLength(std::int32_t axis) { return {kUnitUnset, 0.0, axis}; }

inline constexpr _svg_rect kDefaultRect{.head = kDefaultHead,
                                        .fill = kDefaultFill,
                                        .stroke = kDefaultStroke,
                                        .graphics = kDefaultGraphics,
                                        .ta = kDefaultTA,
                                        .x = pixels(0, kAxisWidth),
                                        .y = pixels(0, kAxisHeight),
                                        .width = pixels(0, kAxisWidth),
                                        .height = pixels(0, kAxisHeight),
                                        .rx = pixels(0, kAxisWidth),
                                        .ry = pixels(0, kAxisHeight)};

inline constexpr _svg_circle kDefaultCircle{.head = kDefaultHead,
                                            .fill = kDefaultFill,
                                            .stroke = kDefaultStroke,
                                            .graphics = kDefaultGraphics,
                                            .ta = kDefaultTA,
                                            .cx = pixels(0, kAxisWidth),
                                            .cy = pixels(0, kAxisHeight),
                                            .r = pixels(0)};

inline constexpr _svg_ellipse kDefaultEllipse{.head = kDefaultHead,
                                              .fill = kDefaultFill,
                                              .stroke = kDefaultStroke,
                                              .graphics = kDefaultGraphics,
                                              .ta = kDefaultTA,
                                              .cx = pixels(0, kAxisWidth),
                                              .cy = pixels(0, kAxisHeight),
                                              .rx = pixels(0, kAxisWidth),
                                              .ry = pixels(0, kAxisHeight)};

inline constexpr _svg_line kDefaultLine{.head = kDefaultHead,
                                        .fill = kDefaultFill,
                                        .stroke = kDefaultStroke,
                                        .graphics = kDefaultGraphics,
                                        .markers = kDefaultMarkers,
                                        .ta = kDefaultTA,
                                        .x1 = pixels(0, kAxisWidth),
                                        .y1 = pixels(0, kAxisHeight),
                                        .x2 = pixels(0, kAxisWidth),
                                        .y2 = pixels(0, kAxisHeight)};

inline constexpr _svg_polyline kDefaultPolyline{.head = kDefaultHead,
                                                .fill = kDefaultFill,
                                                .stroke = kDefaultStroke,
                                                .graphics = kDefaultGraphics,
                                                .markers = kDefaultMarkers,
                                                .ta = kDefaultTA};

inline constexpr _svg_polygon kDefaultPolygon{.head = kDefaultHead,
                                              .fill = kDefaultFill,
                                              .stroke = kDefaultStroke,
                                              .graphics = kDefaultGraphics,
                                              .markers = kDefaultMarkers,
                                              .ta = kDefaultTA,
                                              .isClosed = 1};

inline constexpr _svg_path kDefaultPath{.head = kDefaultHead,
                                        .fill = kDefaultFill,
                                        .stroke = kDefaultStroke,
                                        .graphics = kDefaultGraphics,
                                        .markers = kDefaultMarkers,
                                        .ta = kDefaultTA};

inline constexpr _svg_image kDefaultImage{.head = kDefaultHead,
                                          .images = kDefaultImages,
                                          .graphics = kDefaultGraphics,
                                          .ta = kDefaultTA,
                                          .viewports = kDefaultViewports,
                                          .preserveAspectRatio = kDefaultAspect,
                                          .x = pixels(0, kAxisWidth),
                                          .y = pixels(0, kAxisHeight),
                                          .width = pixels(0, kAxisWidth),
                                          .height = pixels(0, kAxisHeight)};

inline constexpr _svg_group kDefaultGroup{.head = kDefaultHead,
                                          .pa = kDefaultPA,
                                          .ta = kDefaultTA,
                                          .x = pixels(0, kAxisWidth),
                                          .y = pixels(0, kAxisHeight),
                                          .width = unsetLength(kAxisWidth),
                                          .height = unsetLength(kAxisHeight)};

inline constexpr _svg_defs kDefaultDefs{.head = kDefaultHead, .pa = kDefaultPA};

inline constexpr _svg_svg kDefaultSvg{.head = kDefaultHead,
                                      .contentStyleType = kContentTypeCss,
                                      .pa = kDefaultPA,
                                      .ta = kDefaultTA,
                                      .preserveAspectRatio = kDefaultAspect,
                                      .zoomAndPan = kDefaultZoomAndPan,
                                      .x = pixels(0, kAxisWidth),
                                      .y = pixels(0, kAxisHeight),
                                      .width = percent(100, kAxisWidth),
                                      .height = percent(100, kAxisHeight)};

inline constexpr _svg_a kDefaultLink{.head = kDefaultHead, .pa = kDefaultPA, .ta = kDefaultTA};
inline constexpr _svg_switch kDefaultSwitch{
    .head = kDefaultHead, .pa = kDefaultPA, .ta = kDefaultTA};

inline constexpr _svg_text kDefaultText{.head = kDefaultHead,
                                        .fill = kDefaultFill,
                                        .stroke = kDefaultStroke,
                                        .graphics = kDefaultGraphics,
                                        .ta = kDefaultTA,
                                        .fontspec = kDefaultFontspec,
                                        .textcontentelems = kDefaultTextcontentelems,
                                        .textelems = kDefaultTextelems,
                                        .position = kDefaultPoint,
                                        .dx = pixels(0),
                                        .dy = pixels(0),
                                        .rotate = {kUnitDegree, 0.0},
                                        .textLength = pixels(0),
                                        .lengthAdjust = kFirstKeyword};

inline constexpr _svg_stop kDefaultStop{.head = kDefaultHead,
                                        .graphics = kDefaultGraphics,
                                        .gradients = kDefaultGradients,
                                        .offset = pixels(0)};

inline constexpr _svg_gradient kDefaultGradient{.head = kDefaultHead,
                                                .graphics = kDefaultGraphics,
                                                .gradients = kDefaultGradients,
                                                .spreadMethod = kSpreadPad,
                                                .gradientUnits = kGradientBoundingBox,
                                                .parms = {.slots = {}}};

inline constexpr model::_svg_gradient_parms kDefaultLinear{.slots = {.g0 = percent(0, kAxisWidth),
                                                                     .g1 = percent(0, kAxisHeight),
                                                                     .g2 = percent(100, kAxisWidth),
                                                                     .g3 = percent(0, kAxisHeight),
                                                                     .g4 = pixels(0)}};

inline constexpr model::_svg_gradient_parms kDefaultRadial{.slots = {.g0 = percent(50, kAxisWidth),
                                                                     .g1 = percent(50, kAxisHeight),
                                                                     .g2 = percent(50, kAxisWidth),
                                                                     .g3 = percent(50, kAxisHeight),
                                                                     .g4 = percent(50)}};

inline constexpr _svg_style_props kDefaultStyleProps{
    .contentType = kContentTypeUnset, .media = 1, .pa = kDefaultPA};

inline constexpr _svg_cursor kDefaultCursor{
    .ta = kDefaultTA, .x = pixels(0, kAxisWidth), .y = pixels(0, kAxisHeight)};
inline constexpr _svg_script kDefaultScript{.type = 1};

}  // namespace egfsvg
