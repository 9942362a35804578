#pragma once

#include "host/egf_codes.h"
#include "host/egf_pens.h"
#include "host/egf_styles.h"

// Constant records that formatters copy whole before they set what they know. Pools compare bytes,
// so every byte of a pooled record comes from here or from a field.

namespace egfsvg {

inline constexpr std::uint32_t kStyleMask = 0x12f;
inline constexpr std::uint32_t kLayerMask = 0xffff;
inline constexpr std::uint16_t kLineHostWord = 0xffff;
inline constexpr _sel_RGB_type kHostBlack = colourOf(0xffffff);

/// The word behind the pen of a polygon or a box.
inline constexpr std::uint32_t kPolygonTrailingWord = 1000;

inline constexpr _egf_gdi_fillparms_tag kPolygonPen{.strokeColor = kHostBlack,
                                                    .fillStyle = kFillPartial,
                                                    .joinStyle = kJoinRound,
                                                    .modeFlags = 3,
                                                    .styleMask = kStyleMask,
                                                    .layerMask = kLayerMask};

inline constexpr _egf_gdi_fillparms_tag kDiamondPen{.strokeColor = kHostBlack,
                                                    .fillStyle = kFillPartial,
                                                    .modeFlags = 2,
                                                    .styleMask = kStyleMask,
                                                    .layerMask = kLayerMask};

inline constexpr EgfEllipsePen kEllipsePen{.strokeColor = kHostBlack,
                                           .fillColor = kHostBlack,
                                           .styleMask = kStyleMask,
                                           .layerMask = kLayerMask,
                                           .ellipseRotation = -1};

inline constexpr EgfLinePen kLinePen{.strokeColor = kHostBlack, .hostWord22 = kLineHostWord};

inline constexpr EgfArcPen kArcPen{
    .strokeColor = kHostBlack, .hostWord22 = kLineHostWord, .arcFlags = 1};

inline constexpr EgfPolylinePen kPolylinePen{
    .strokeColor = kHostBlack, .layerMask = kLayerMask, .hostDouble36 = 10.0, .hostWord44 = 2884};

inline constexpr EgfCloudPen kCloudPen{.hostWord26 = kLineHostWord};

inline constexpr _egf_textparms kTextParms{.textColor = kHostBlack,
                                           .typeface = "Arial",
                                           .fontSize = {kMeasureDevice, 20.0},
                                           .charWidth = 10.0,
                                           .textFlags = 0x20,
                                           .charSet = 1,
                                           .hostWord184 = 0xffff};

inline constexpr _egf_gdiplus_fillparms_tag kFillParms{.startCap = kCapUnset,
                                                       .endCap = kCapUnset,
                                                       .strokeFillStyle = kFillOpaque,
                                                       .wrapMode = _egf_wrapmode_tag::kTile,
                                                       .gradientAngle = 90 * kMillionths,
                                                       .strokeAlpha = 255,
                                                       .fillAlpha = 255,
                                                       .gradientFlags = 1,
                                                       .miterLimit = 10.0F,
                                                       .hostWord52 = 255};

inline constexpr _egf_gdiplus_stroke_parms_tag kStrokeParms{.capStyle = kCapUnset,
                                                            .strokeFillStyle = kFillOpaque,
                                                            .strokeAlpha = 255,
                                                            .wrapMode = _egf_wrapmode_tag::kTile,
                                                            .gradientFlags = 1,
                                                            .gradientAngle = 90 * kMillionths,
                                                            .miterLimit = 10.0F};

inline constexpr _egf_gdiplus_gradientparms_tag kGradientParms{.gradMatrix = kIdentityMatrix};

}  // namespace egfsvg
