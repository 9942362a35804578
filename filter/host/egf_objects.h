#pragma once

#include <cstdint>

#include "host/egf_pens.h"
#include "host/egf_small.h"

// One record for each object class. Each begins with the head `_egf_obj`, and a pointer to the
// object is a pointer to its head. Arrays and texts that an object points to belong to it.

struct EGF_WIRE _egf_obj {
  std::int32_t objClass;     ///< `ObjectClass`, or a `HotspotMark` written over it
  std::uint8_t objAttr;      ///< `OutputBits`
  std::uint8_t objAttr2;     ///< `ViewportBits`
  std::uint8_t layoutClass;  ///< the class that it was allocated with; never changes
  std::uint8_t reserved7;
  ref32<_egf_obj> next;      ///< next sibling
  ref32<_egf_obj> parent;    ///< null for a root and for a loose object
  std::uint32_t hostFlags;   ///< as given to EEL_SetGroupFlags or EEL_SetObjectFlags
  std::uint16_t layerIndex;  ///< 65535 for none
  std::uint16_t reserved22;
};

struct EGF_WIRE _egf_text {
  _mpl_spacept_tag origin;    ///< anchor
  _mpl_spacerect_tag bounds;  ///< kept by EGF_CalcTextMer
  ref32<char> textString;
};

namespace egfsvg {

using PointArray = ref32<_mpl_spacept_tag>;

struct EGF_WIRE EgfGroup {
  _egf_obj head;
  _mpl_spacerect_tag groupMer;
  ref32<_egf_obj> firstChild;
  ref32<_egf_obj> lastChild;
  std::uint8_t groupFlags;
  std::uint8_t linkFlags;
  std::uint16_t reserved50;
  ref32<char> groupName;
};

/// Classes 3 and 9.
struct EGF_WIRE EgfPolygon {
  _egf_obj head;
  PointArray points;
  _mpl_spacerect_tag bounds;
  _egf_gdi_fillparms_tag pen;
  std::uint32_t trailingWord;
  std::int32_t pointCount;
  std::uint32_t subPathCount;
  ref32<std::uint16_t> subPathSizes;  ///< `subPathCount` sizes; null for a single subpath
  std::uint32_t reserved112[4];
  std::uint16_t gradPtCount;
  std::uint16_t reserved130;
  PointArray gradPts;
  std::uint32_t fillParmsNo;
  std::uint32_t fillGradientNo;
  std::uint32_t strokeGradientNo;
};

struct EGF_WIRE EgfEllipse {
  _egf_obj head;
  _mpl_spacept_tag center;
  _mpl_spacept_tag radiusPt;  ///< the point (cx + rx, cy + ry)
  std::int32_t startAngle;    ///< millionths of a degree
  std::int32_t endAngle;
  EgfEllipsePen pen;
  std::uint32_t reserved96;
  std::uint16_t gradPtCount;
  std::uint16_t reserved102;
  PointArray gradPts;
  std::uint32_t fillParmsNo;
  std::uint32_t fillGradientNo;
  std::uint32_t strokeGradientNo;
};

struct EGF_WIRE EgfLine {
  _egf_obj head;
  _mpl_spacept_tag startPt;
  _mpl_spacept_tag endPt;
  std::uint16_t gradPtCount;
  std::uint16_t reserved42;
  PointArray gradPts;
  EgfLinePen pen;
  std::uint32_t strokeParmsNo;
  std::uint32_t strokeGradientNo;
};

/// A line with arrowheads. Head points 0 and 1 are the base of the head at the end, 2 and 3 the
/// base of the head at the start.
struct EGF_WIRE EgfArrowLine {
  _egf_obj head;
  _mpl_spacept_tag startPt;
  _mpl_spacept_tag endPt;
  _mpl_spacept_tag headPts[4];
  std::uint32_t reserved72[3];
  EgfArrowPen pen;
  std::uint32_t strokeParmsNo;
};

struct EGF_WIRE EgfPolyline {
  _egf_obj head;
  _mpl_spacerect_tag bounds;
  PointArray points;
  std::uint16_t gradPtCount;
  std::uint16_t reserved46;
  PointArray gradPts;
  std::uint32_t reserved52[8];
  EgfPolylinePen pen;
  std::uint32_t pointCount;
  std::uint32_t strokeParmsNo;
  std::uint32_t strokeGradientNo;
};

struct EGF_WIRE EgfArc {
  _egf_obj head;
  _mpl_spacept_tag center;
  _mpl_spacept_tag radiusPt;  ///< the two radii themselves
  std::uint32_t reserved40[2];
  std::int32_t startAngle;  ///< millionths of a degree, counter-clockwise to `endAngle`
  std::int32_t endAngle;
  EgfArcPen pen;
  std::uint32_t arcParmsNo;
};

/// A figure of arcs, lines, polylines, curve chains and further paths, joined in order.
struct EGF_WIRE EgfPath {
  _egf_obj head;
  _mpl_spacerect_tag bounds;  ///< of all children, once `hasBounds` is not 0
  std::uint32_t hasBounds;
  std::uint32_t reserved44[4];
  std::uint32_t pathKind;
  std::uint32_t joinFlag;
  std::uint32_t gdiFillStyleNo;
  std::uint32_t fillParmsNo;
  std::uint32_t fillGradientNo;
  std::uint32_t strokeGradientNo;
  std::uint32_t reserved84;
  ref32<_egf_obj> firstChild;
  ref32<_egf_obj> lastChild;
  std::uint32_t reserved96[8];
  std::uint16_t gradPtCount;
  std::uint16_t reserved130;
  PointArray gradPts;
};

/// Class 10.
struct EGF_WIRE EgfTextObject {
  _egf_obj head;
  _egf_text text;
  _egf_textparms parms;
};

struct EGF_WIRE EgfAnnotation {
  _egf_obj head;
  _mpl_spacept_tag origin;
  _mpl_spacerect_tag bounds;  ///< kept by EGF_CalcAnnotnMer
  _egf_textparms parms;
  std::uint32_t hostWord248;
  ref32<char> annotText;  ///< lines joined by line feeds
  std::uint32_t hostWord256;
};

struct EGF_WIRE EgfCloud {
  _egf_obj head;
  _mpl_spacept_tag corners[4];
  _mpl_spacerect_tag bounds;
  EgfCloudPen pen;
  PointArray outline;  ///< arcs of 51 points each
  std::uint32_t outlineCount;
};

struct EGF_WIRE EgfDiamond {
  _egf_obj head;
  PointArray points;  ///< four
  _mpl_spacerect_tag bounds;
  _egf_gdi_fillparms_tag pen;
  std::uint8_t hostByte96;
  std::uint8_t reserved97[3];
};

/// Two lines that strike something out.
struct EGF_WIRE EgfCrossout {
  _egf_obj head;
  _mpl_spacept_tag startPt;
  _mpl_spacept_tag endPt;
  std::uint32_t reserved40[12];
  _mpl_spacept_tag startPt2;
  _mpl_spacept_tag endPt2;
  std::uint32_t reserved104[12];
  _mpl_spacerect_tag bounds;
  EgfLinePen pen;
};

/// A raster picture. Palette and raster belong to the object.
struct EGF_WIRE EgfImage {
  _egf_obj head;
  _mpl_spacerect_tag placement;
  HostHandle raster;
  HostHandle palette;
  std::uint32_t xResolution;  ///< dots per inch
  std::uint32_t yResolution;
  std::uint8_t rotation;  ///< `QuarterTurnBits`, `MirrorBits`
  std::uint8_t reserved57[3];
  std::uint32_t fillParmsNo;
};

/// A stand-in for a standard object of the host.
struct EGF_WIRE EgfStockObject {
  _egf_obj head;
  std::uint32_t reference;
  _mpl_spacept_tag place;
  std::int32_t angle;  ///< millionths of a degree
};

/// What a hotspot group leads to.
struct EGF_WIRE EgfHotspot {
  _egf_obj head;
  ref32<char> data;
  std::uint32_t dataLength;
  std::uint8_t hotspotFlags;
  std::uint8_t reserved33[3];
};

/// Kinds that are kept, placed and told of, and never drawn: icon, bookmark, metafile, complex
/// line, region, copy.
struct EGF_WIRE EgfOpaqueObject {
  _egf_obj head;
  _mpl_spacerect_tag placement;
};

/// The object seen as the record of its class.
template <class T>
T* as(_egf_obj* object) {
  return reinterpret_cast<T*>(object);
}
template <class T>
const T* as(const _egf_obj* object) {
  return reinterpret_cast<const T*>(object);
}

/// The head of an object's record.
template <class T>
_egf_obj* headOf(T* object) {
  return reinterpret_cast<_egf_obj*>(object);
}

}  // namespace egfsvg
