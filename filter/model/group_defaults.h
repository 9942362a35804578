// Default values of the heads and groups. Records are copied whole from these before a field is
// set, so that padding is equal too.
#pragma once

#include "model/groups.h"
#include "model/paint_codes.h"

namespace egfsvg {

inline constexpr double kDefaultFontSize = 12.0;  // pixels
inline constexpr std::int32_t kDefaultStrokeWord = 0xffffff;
inline constexpr std::int32_t kFirstKeyword = 1;  // the default of nearly every keyword property

inline constexpr _svg_common kDefaultHead{.type = kTagNone, .index = -1};

inline constexpr _svg_viewbox kDefaultViewbox{.x = pixels(0, kAxisWidth),
                                              .y = pixels(0, kAxisHeight),
                                              .height = pixels(0, kAxisHeight),
                                              .width = pixels(0, kAxisWidth)};

inline constexpr _svg_point kDefaultPoint{.x = pixels(0, kAxisWidth), .y = pixels(0, kAxisHeight)};

inline constexpr _svg_pa_fill kDefaultFill{
    .packedColor = 0, .fillColor = kSvgBlack, .fillRule = kFirstKeyword, .fillOpacity = 1.0};

inline constexpr _svg_pa_stroke kDefaultStroke{.packedColor = kDefaultStrokeWord,
                                               .strokeColor = kSvgWhite,
                                               .strokePresent = 0,
                                               .strokeWidth = pixels(1),
                                               .strokeLinecap = kFirstKeyword,
                                               .strokeLinejoin = kFirstKeyword,
                                               .strokeMiterlimit = kDefaultMiterLimit,
                                               .strokeDashOffset = pixels(0),
                                               .strokeOpacity = 1.0};

inline constexpr _svg_pa_graphics kDefaultGraphics{.clipRule = kFirstKeyword,
                                                   .color = kSvgBlack,
                                                   .colorInterpolation = kFirstKeyword,
                                                   .colorRendering = kFirstKeyword,
                                                   .display = kDisplayInline,
                                                   .imageRendering = kFirstKeyword,
                                                   .opacity = 1.0,
                                                   .visibility = kVisible,
                                                   .pointerEvents = kFirstKeyword,
                                                   .shapeRendering = kFirstKeyword,
                                                   .textRendering = kFirstKeyword};

inline constexpr _svg_pa_containers kDefaultContainers{};
inline constexpr _svg_pa_feflood kDefaultFeflood{.floodColor = kSvgBlack, .floodOpacity = 1.0};

inline constexpr _svg_pa_fontspec kDefaultFontspec{.fontStyle = kFirstKeyword,
                                                   .fontVariant = kFirstKeyword,
                                                   .fontWeight = kFirstKeyword,
                                                   .fontStretch = kFirstKeyword,
                                                   .fontSize = pixels(kDefaultFontSize),
                                                   .fontSizeAdjust = pixels(0)};

inline constexpr _svg_pa_gradients kDefaultGradients{.stopColor = kSvgBlack, .stopOpacity = 1.0};
inline constexpr _svg_pa_images kDefaultImages{};
inline constexpr _svg_pa_lighting kDefaultLighting{.lightingColor = kSvgBlack};
inline constexpr _svg_pa_markers kDefaultMarkers{};

inline constexpr _svg_pa_textcontentelems kDefaultTextcontentelems{
    .alignmentBaseline = kFirstKeyword,
    .direction = kFirstKeyword,
    .glyphOrientationHorizontal = {kUnitDegree, 0.0},
    .glyphOrientationVertical = {kUnitDegree, 90.0},
    .kerning = pixels(0),
    .letterSpacing = pixels(0),
    .textDecoration = kFirstKeyword,
    .unicodeBidi = kFirstKeyword,
    .wordSpacing = pixels(0)};

inline constexpr _svg_pa_textelems kDefaultTextelems{
    .dominantBaseline = kFirstKeyword, .textAnchor = kFirstKeyword, .writingMode = kFirstKeyword};

inline constexpr _svg_pa_viewports kDefaultViewports{
    .clipRect = {pixels(0), pixels(0), pixels(0), pixels(0)}, .overflow = kFirstKeyword};

inline constexpr _svg_pa kDefaultPA{.fill = kDefaultFill,
                                    .stroke = kDefaultStroke,
                                    .graphics = kDefaultGraphics,
                                    .containers = kDefaultContainers,
                                    .feflood = kDefaultFeflood,
                                    .fontspec = kDefaultFontspec,
                                    .gradients = kDefaultGradients,
                                    .images = kDefaultImages,
                                    .lighting = kDefaultLighting,
                                    .markers = kDefaultMarkers,
                                    .textcontentelems = kDefaultTextcontentelems,
                                    .textelems = kDefaultTextelems,
                                    .viewports = kDefaultViewports};

inline constexpr _svg_ta kDefaultTA{.requiredFeatures = {.passes = 1},
                                    .requiredExtensions = {.passes = 1},
                                    .systemLanguage = {.passes = 1}};

}  // namespace egfsvg
