#pragma once

#include <array>
#include <span>

#include "host/egf_codes.h"
#include "host/egf_object_rows.h"
#include "host/egf_style_rows.h"

// The one table of the wire format: every named field of every record, flat, in the order of its
// offset. The layout of the structs, the dump of a record and the copying and freeing of what an
// object owns all follow from it.

namespace egfsvg {

/// A record by its number: an object class or a style class.
struct RecordRow {
  std::int32_t number;
  const char* name;
  std::size_t size;        ///< bytes, the fixed number of the wire format
  std::size_t structSize;  ///< as compiled
  std::span<const FieldRow> fields;
};

/// Every class that `EEL_AllocObject` knows, by class number.
inline constexpr std::array kObjectRecords{
    RecordRow{kClassGroup, "group", 56, sizeof(EgfGroup), kEgfGroupFields},
    RecordRow{kClassBox, "box", 148, sizeof(EgfPolygon), kEgfPolygonFields},
    RecordRow{kClassArc, "arc", 96, sizeof(EgfArc), kEgfArcFields},
    RecordRow{kClassLine, "line", 88, sizeof(EgfLine), kEgfLineFields},
    RecordRow{kClassEllipse, "ellipse", 120, sizeof(EgfEllipse), kEgfEllipseFields},
    RecordRow{kClassArrowLine, "arrow line", 124, sizeof(EgfArrowLine), kEgfArrowLineFields},
    RecordRow{kClassPolyline, "polyline", 148, sizeof(EgfPolyline), kEgfPolylineFields},
    RecordRow{kClassPolygon, "polygon", 148, sizeof(EgfPolygon), kEgfPolygonFields},
    RecordRow{kClassText, "text", 252, sizeof(EgfTextObject), kEgfTextFields},
    RecordRow{kClassAnnotation, "annotation", 260, sizeof(EgfAnnotation), kEgfAnnotationFields},
    RecordRow{kClassImage, "image", 64, sizeof(EgfImage), kEgfImageFields},
    RecordRow{kClassIcon, "icon", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassBookmark, "bookmark", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassStockObject, "stock object", 40, sizeof(EgfStockObject), kEgfStockObjectFields},
    RecordRow{kClassCloud, "cloud", 116, sizeof(EgfCloud), kEgfCloudFields},
    RecordRow{kClassDiamond, "diamond", 100, sizeof(EgfDiamond), kEgfDiamondFields},
    RecordRow{kClassCrossout, "crossout", 200, sizeof(EgfCrossout), kEgfCrossoutFields},
    RecordRow{kClassMetafile, "metafile", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassPath, "path", 136, sizeof(EgfPath), kEgfPathFields},
    RecordRow{kClassComplexLine, "complex line", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassRegion, "region", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassCopy, "copy", 40, sizeof(EgfOpaqueObject), kEgfOpaqueFields},
    RecordRow{kClassHotspot, "hotspot", 36, sizeof(EgfHotspot), kEgfHotspotFields},
};

/// Every style class.
inline constexpr std::array kStyleRecords{
    RecordRow{kStyleGradient, "gradient parameters", 204, sizeof(_egf_gdiplus_gradientparms_tag),
              kGradientParmsFields},
    RecordRow{kStyleStroke, "stroke parameters", 52, sizeof(_egf_gdiplus_stroke_parms_tag),
              kStrokeParmsFields},
    RecordRow{kStyleArc, "arc parameters", 40, sizeof(_egf_gdiplus_arcparms_tag), kArcParmsFields},
    RecordRow{kStyleFill, "fill parameters", 56, sizeof(_egf_gdiplus_fillparms_tag),
              kFillParmsFields},
    RecordRow{kStylePen, "pen", 52, sizeof(_egf_gdi_fillparms_tag), kPenFields},
};

inline constexpr RecordRow kTextParmsRecord{0, "text parameters", 200, sizeof(_egf_textparms),
                                            kTextParmsFields};
inline constexpr RecordRow kDashRecord{0, "dash", 536, sizeof(_egf_dash_record), kDashFields};

/// The row of an object class or a style class in its table, null for an unknown number.
constexpr const RecordRow* recordOf(std::span<const RecordRow> records, std::int32_t number) {
  for (const RecordRow& record : records) {
    if (record.number == number) return &record;
  }
  return nullptr;
}

/// True when the compiler laid the record out as its rows say: size, offsets, field sizes, and
/// fields in order that do not overlap.
consteval bool isLaidOutAsTold(const RecordRow& record) {
  std::size_t end = 0;
  for (const FieldRow& row : record.fields) {
    if (row.offset != row.structOffset || row.structSize != fieldSize(row)) return false;
    if (row.offset < end) return false;
    end = row.offset + row.structSize;
  }
  return end <= record.size && record.size == record.structSize;
}

consteval bool areLaidOutAsTold(std::span<const RecordRow> records) {
  for (const RecordRow& record : records) {
    if (!isLaidOutAsTold(record)) return false;
  }
  return true;
}

static_assert(areLaidOutAsTold(kObjectRecords));
static_assert(areLaidOutAsTold(kStyleRecords));
static_assert(isLaidOutAsTold(kTextParmsRecord));
static_assert(isLaidOutAsTold(kDashRecord));
static_assert(offsetof(_egf_dash_record, next) == 532);
static_assert(offsetof(EgfPageHeader, firstDash) == 3052);
static_assert(offsetof(EgfPageHeader, layerCount) == 3056);
static_assert(offsetof(EgfPageHeader, layerTable) == 3060);
static_assert(offsetof(EgfPageHeader, nextDashNumber) == 3064);
static_assert(sizeof(EgfPageHeader) == 3068);
static_assert(offsetof(EgfTreeBlock, body) == kTreeBlockWord >> kHeaderSizeShift);
static_assert(offsetof(EgfTreeBody, pageHeader) == 8);
static_assert(sizeof(EgfTreeBlock) == 3100);
static_assert(offsetof(EgfLayerBlock, body) == kLayerBlockWord >> kHeaderSizeShift);

}  // namespace egfsvg
