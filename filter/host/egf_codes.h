#pragma once

#include <cstdint>

namespace egfsvg {

/// Object classes, as `objClass` holds them.
enum ObjectClass : std::int32_t {
  kClassNone = 0,
  kClassGroup = 1,
  kClassBox = 3,
  kClassArc = 4,
  kClassLine = 5,
  kClassEllipse = 6,
  kClassArrowLine = 7,
  kClassPolyline = 8,
  kClassPolygon = 9,
  kClassText = 10,
  kClassAnnotation = 11,
  kClassImage = 12,
  kClassIcon = 24,
  kClassBookmark = 25,
  kClassStockObject = 26,
  kClassCloud = 27,
  kClassDiamond = 29,
  kClassCrossout = 30,
  kClassMetafile = 32,
  kClassPath = 33,
  kClassComplexLine = 34,
  kClassRegion = 35,
  kClassCopy = 69,
  kClassHotspot = 96,
};

/// Marks that a hotspot group writes over the `objClass` of its shapes. The layout class in the
/// head still tells what the object is.
enum HotspotMark : std::int32_t { kMarkRect = 97, kMarkEllipse = 99, kMarkPolygon = 100 };

/// `fillStyle`, the top three bits of `textFlags`, `strokeFillStyle`.
enum FillStyle : std::uint8_t {
  kFillNone = 0,
  kFillOpaque = 1,
  kFillOpaqueAlternate = 2,
  kFillPartial = 3,
  kFillDefault = 7,
  kFillLinear = 9,
  kFillRadial = 10,
};

/// `rasterOp` of lines, polylines and arcs.
enum RasterCode : std::uint8_t { kRasterOpaque = 0, kRasterPartial = 1, kRasterNone = 7 };

enum CapStyle : std::uint8_t { kCapRound = 0, kCapSquare = 1, kCapUnset = 3, kCapButt = 10 };

enum JoinStyle : std::uint8_t {
  kJoinRound = 0,
  kJoinUnset = 3,
  kJoinBevel = 11,
  kJoinMiter = 13,
};

/// `lineStyle`: 0 is solid, any other value the number of a dash record.
inline constexpr std::uint32_t kLineSolid = 0;

/// `layerIndex` of an object on no layer.
inline constexpr std::uint16_t kNoLayer = 65535;

/// `pathKind` of a class 33 figure that closes itself.
inline constexpr std::uint32_t kPathClosedFigure = 1;

/// Style tables of a document, by the number that `ISL_GetProperty` takes.
enum StyleClass : std::int32_t {
  kStyleGradient = 0xA5,
  kStyleStroke = 0xA6,
  kStyleArc = 0xA7,
  kStyleFill = 0xA8,
  kStylePen = 0xAA,
};

/// Units of `__meas` and of dash records, by code.
enum MeasureUnit : std::uint32_t {
  kMeasureDevice = 0,
  kMeasureInch = 1,
  kMeasureCentimetre = 2,
  kMeasureMillimetre = 3,
  kMeasureMetre = 4,
  kMeasureFoot = 5,
  kMeasurePoint = 6,
  kMeasureTwip = 7,
  kMeasurePixel200 = 14,
};

/// Flags of `EEL_SetGroupFlags` and `EEL_SetObjectFlags`. Bit 0x10 of a group's flags makes it a
/// link group; bit 0x10 of an object's flags marks it as not for output.
enum ObjectFlags : int {
  kGroupPlain = 15,
  kObjectViewport = 17,
  kGroupHotspot = 22,
  kGroupNestedSvg = 79,
};

/// `fontFlags` of `_egf_textparms`.
enum FontFlags : std::uint32_t {
  kFontBold = 0x01,
  kFontLight = 0x02,
  kFontLineThrough = 0x20,
  kFontUnderline = 0x40,
  kFontItalic = 0x80,
};

/// Mask that the walkers hand to `EEL_GetNextObject`; it filters nothing.
inline constexpr int kWalkMask = 0x7a3d;

}  // namespace egfsvg
