// The wire format's offsets and sizes, typed here once more from the format's own tables.

#include "host/egf_rows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "host/egf_bits.h"
#include "host/egf_templates.h"

namespace egfsvg {
namespace {

struct Place {
  std::int32_t number;  // object class or style class
  const char* field;
  std::size_t offset;
  std::size_t size;
};

std::string named(const Place& place) {
  return "record " + std::to_string(place.number) + " field " + place.field;
}

const FieldRow* findField(const RecordRow& record, const char* name) {
  for (const FieldRow& row : record.fields) {
    if (std::strcmp(row.name, name) == 0) return &row;
  }
  return nullptr;
}

void expectPlace(std::span<const RecordRow> records, const Place& place) {
  const RecordRow* record = recordOf(records, place.number);
  ASSERT_NE(record, nullptr) << named(place);
  const FieldRow* row = findField(*record, place.field);
  ASSERT_NE(row, nullptr) << named(place);
  EXPECT_EQ(row->structOffset, place.offset) << named(place);
  EXPECT_EQ(row->offset, place.offset) << named(place);
  EXPECT_EQ(row->structSize, place.size) << named(place);
}

TEST(Records, ObjectFieldsStandAtTheirOffsets) {
  const Place places[] = {
      {1, "objClass", 0, 4},
      {1, "objAttr", 4, 1},
      {1, "objAttr2", 5, 1},
      {1, "layerIndex", 20, 2},
      {1, "groupMer", 24, 16},
      {1, "firstChild", 40, 4},
      {1, "groupFlags", 48, 1},
      {1, "linkFlags", 49, 1},
      {1, "groupName", 52, 4},
      // Box and polygon.
      {3, "points", 24, 4},
      {3, "pointCount", 100, 4},
      {9, "points", 24, 4},
      {9, "bounds", 28, 16},
      {9, "lineWidth", 44, 12},
      {9, "strokeColor", 56, 4},
      {9, "fillColor", 60, 4},
      {9, "lineStyle", 64, 4},
      {9, "fillStyle", 68, 1},
      {9, "joinStyle", 69, 1},
      {9, "modeFlags", 70, 1},
      {9, "styleMask", 72, 4},
      {9, "layerMask", 84, 4},
      {9, "scaleFactor", 88, 8},
      {9, "trailingWord", 96, 4},
      {9, "pointCount", 100, 4},
      {9, "subPathCount", 104, 4},
      {9, "subPathSizes", 108, 4},
      {9, "gradPtCount", 128, 2},
      {9, "gradPts", 132, 4},
      {9, "fillParmsNo", 136, 4},
      {9, "fillGradientNo", 140, 4},
      {9, "strokeGradientNo", 144, 4},
      // Ellipse.
      {6, "center", 24, 8},
      {6, "radiusPt", 32, 8},
      {6, "startAngle", 40, 4},
      {6, "endAngle", 44, 4},
      {6, "lineWidth", 48, 12},
      {6, "strokeColor", 60, 4},
      {6, "fillColor", 64, 4},
      {6, "lineStyle", 68, 4},
      {6, "fillStyle", 72, 1},
      {6, "joinStyle", 73, 1},
      {6, "modeFlags", 74, 1},
      {6, "styleMask", 76, 4},
      {6, "layerMask", 80, 4},
      {6, "scaleFactor", 84, 8},
      {6, "ellipseRotation", 92, 4},
      {6, "gradPtCount", 100, 2},
      {6, "gradPts", 104, 4},
      {6, "fillParmsNo", 108, 4},
      {6, "fillGradientNo", 112, 4},
      {6, "strokeGradientNo", 116, 4},
      // Line.
      {5, "startPt", 24, 8},
      {5, "endPt", 32, 8},
      {5, "gradPtCount", 40, 2},
      {5, "gradPts", 44, 4},
      {5, "lineWidth", 48, 12},
      {5, "strokeColor", 60, 4},
      {5, "lineStyle", 64, 4},
      {5, "rasterOp", 68, 1},
      {5, "capStyle", 69, 1},
      {5, "hostWord22", 70, 2},
      {5, "scaleFactor", 72, 8},
      {5, "strokeParmsNo", 80, 4},
      {5, "strokeGradientNo", 84, 4},
      // Line with arrowheads.
      {7, "startPt", 24, 8},
      {7, "endPt", 32, 8},
      {7, "headPts", 40, 32},
      {7, "lineWidth", 84, 12},
      {7, "strokeColor", 96, 4},
      {7, "rasterOp", 104, 1},
      {7, "headFlags", 106, 1},
      {7, "strokeParmsNo", 120, 4},
      // Polyline.
      {8, "points", 40, 4},
      {8, "gradPtCount", 44, 2},
      {8, "gradPts", 48, 4},
      {8, "lineWidth", 84, 12},
      {8, "strokeColor", 96, 4},
      {8, "lineStyle", 100, 4},
      {8, "rasterOp", 104, 1},
      {8, "capStyle", 105, 1},
      {8, "joinStyle", 106, 1},
      {8, "layerMask", 108, 4},
      {8, "scaleFactor", 112, 8},
      {8, "hostDouble36", 120, 8},
      {8, "hostWord44", 128, 4},
      {8, "pointCount", 136, 4},
      {8, "strokeParmsNo", 140, 4},
      {8, "strokeGradientNo", 144, 4},
      {8, "bounds", 24, 16},
      // Arc.
      {4, "center", 24, 8},
      {4, "radiusPt", 32, 8},
      {4, "startAngle", 48, 4},
      {4, "endAngle", 52, 4},
      {4, "lineWidth", 56, 12},
      {4, "strokeColor", 68, 4},
      {4, "lineStyle", 72, 4},
      {4, "rasterOp", 76, 1},
      {4, "capStyle", 77, 1},
      {4, "hostWord22", 78, 2},
      {4, "arcFlags", 88, 1},
      {4, "arcParmsNo", 92, 4},
      // Path.
      {33, "pathKind", 60, 4},
      {33, "joinFlag", 64, 4},
      {33, "gdiFillStyleNo", 68, 4},
      {33, "fillParmsNo", 72, 4},
      {33, "fillGradientNo", 76, 4},
      {33, "strokeGradientNo", 80, 4},
      {33, "firstChild", 88, 4},
      {33, "gradPtCount", 128, 2},
      {33, "gradPts", 132, 4},
      // Text: _egf_text at 24, _egf_textparms at 52.
      {10, "origin", 24, 8},
      {10, "bounds", 32, 16},
      {10, "textString", 48, 4},
      {10, "textColor", 52, 4},
      {10, "fontFlags", 56, 4},
      {10, "typeface", 60, 84},
      {10, "fontSize", 144, 12},
      {10, "charWidth", 160, 8},
      {10, "textRotation", 168, 4},
      {10, "justification", 172, 1},
      {10, "textDirection", 173, 1},
      {10, "textFlags", 174, 1},
      {10, "backColor", 176, 4},
      {10, "textColor2", 184, 4},
      {10, "orientation", 188, 4},
      {10, "skewAngle", 192, 4},
      {10, "charSet", 196, 1},
      {10, "letterSpacing", 204, 8},
      {10, "kerning", 216, 8},
      {10, "hostWord184", 236, 4},
      // Annotation: _egf_textparms at 48.
      {11, "origin", 24, 8},
      {11, "bounds", 32, 16},
      {11, "textColor", 48, 4},
      {11, "textDirection", 169, 1},
      {11, "textFlags", 170, 1},
      {11, "trailingWord", 244, 4},
      {11, "hostWord248", 248, 4},
      {11, "annotText", 252, 4},
      {11, "hostWord256", 256, 4},
      // Crossout, cloud, diamond.
      {30, "startPt", 24, 8},
      {30, "endPt", 32, 8},
      {30, "startPt2", 88, 8},
      {30, "endPt2", 96, 8},
      {30, "bounds", 152, 16},
      {30, "lineWidth", 168, 12},
      {30, "strokeColor", 180, 4},
      {30, "lineStyle", 184, 4},
      {30, "rasterOp", 188, 1},
      {30, "capStyle", 189, 1},
      {30, "hostWord22", 190, 2},
      {30, "scaleFactor", 192, 8},
      {27, "corners", 24, 32},
      {27, "bounds", 56, 16},
      {27, "lineWidth", 72, 12},
      {27, "strokeColor", 84, 4},
      {27, "fillColor", 88, 4},
      {27, "lineStyle", 92, 4},
      {27, "fillStyle", 96, 1},
      {27, "hostWord26", 98, 2},
      {27, "outline", 108, 4},
      {27, "outlineCount", 112, 4},
      {29, "points", 24, 4},
      {29, "bounds", 28, 16},
      {29, "lineWidth", 44, 12},
      {29, "fillStyle", 68, 1},
      {29, "modeFlags", 70, 1},
      {29, "scaleFactor", 88, 8},
      {29, "hostByte96", 96, 1},
      // Image, stock object, hotspot.
      {12, "placement", 24, 16},
      {12, "raster", 40, 4},
      {26, "reference", 24, 4},
      {26, "place", 28, 8},
      {26, "angle", 36, 4},
      {96, "data", 24, 4},
      {96, "dataLength", 28, 4},
      {96, "hotspotFlags", 32, 1},
  };
  for (const Place& place : places) expectPlace(kObjectRecords, place);
}

TEST(Records, StyleFieldsStandAtTheirOffsets) {
  const Place places[] = {
      {0xAA, "lineWidth", 0, 12},      {0xAA, "strokeColor", 12, 4},
      {0xAA, "fillColor", 16, 4},      {0xAA, "lineStyle", 20, 4},
      {0xAA, "fillStyle", 24, 1},      {0xAA, "joinStyle", 25, 1},
      {0xAA, "modeFlags", 26, 1},      {0xAA, "styleMask", 28, 4},
      {0xAA, "layerMask", 40, 4},      {0xAA, "scaleFactor", 44, 8},
      {0xA8, "startCap", 0, 1},        {0xA8, "endCap", 1, 1},
      {0xA8, "strokeFillStyle", 8, 4}, {0xA8, "wrapMode", 16, 4},
      {0xA8, "gradientAngle", 24, 4},  {0xA8, "strokeAlpha", 29, 1},
      {0xA8, "fillAlpha", 30, 1},      {0xA8, "gradientFlags", 31, 1},
      {0xA8, "gradientKind", 36, 1},   {0xA8, "angleIsSet", 40, 4},
      {0xA8, "miterLimit", 44, 4},     {0xA8, "hostWord52", 52, 4},
      {0xA6, "capStyle", 0, 1},        {0xA6, "strokeFillStyle", 1, 1},
      {0xA6, "strokeAlpha", 9, 1},     {0xA6, "wrapMode", 12, 4},
      {0xA6, "gradientKind", 24, 4},   {0xA6, "gradientFlags", 28, 4},
      {0xA6, "angleIsSet", 36, 4},     {0xA6, "gradientAngle", 40, 4},
      {0xA6, "miterLimit", 48, 4},     {0xA7, "strokeAlpha", 36, 1},
      {0xA5, "gradMatrix", 0, 24},     {0xA5, "gradReflect", 24, 1},
      {0xA5, "stopCount", 25, 1},      {0xA5, "stopAlpha", 27, 17},
      {0xA5, "stopColors", 44, 64},    {0xA5, "stopPositions", 108, 96},
  };
  for (const Place& place : places) expectPlace(kStyleRecords, place);
}

TEST(Records, SizesAreThoseOfTheFormat) {
  const struct {
    std::size_t actual;
    std::size_t expected;
    const char* name;
  } sizes[] = {
      {sizeof(_mpl_spacept_tag), 8, "point"},
      {sizeof(_mpl_spacerect_tag), 16, "rectangle"},
      {sizeof(__meas), 12, "measure"},
      {sizeof(_sel_RGB_type), 4, "colour"},
      {sizeof(_egf_matrix_tag), 24, "matrix"},
      {sizeof(_egf_wrapmode_tag), 4, "wrap mode"},
      {sizeof(_egf_obj), 24, "head"},
      {sizeof(_egf_text), 28, "text"},
      {sizeof(_egf_textparms), 200, "text parameters"},
      {sizeof(_egf_gdi_fillparms_tag), 52, "pen"},
      {sizeof(_egf_gdiplus_fillparms_tag), 56, "fill parameters"},
      {sizeof(_egf_gdiplus_stroke_parms_tag), 52, "stroke parameters"},
      {sizeof(_egf_gdiplus_gradientparms_tag), 204, "gradient parameters"},
      {sizeof(_egf_dash_record), 536, "dash record"},
      {sizeof(EgfGroup), 56, "group"},
      {sizeof(EgfPolygon), 148, "polygon"},
      {sizeof(EgfEllipse), 120, "ellipse"},
      {sizeof(EgfLine), 88, "line"},
      {sizeof(EgfArrowLine), 124, "arrow line"},
      {sizeof(EgfPolyline), 148, "polyline"},
      {sizeof(EgfArc), 96, "arc"},
      {sizeof(EgfStockObject), 40, "stock object"},
      {sizeof(EgfPath), 136, "path"},
      {sizeof(EgfTextObject), 252, "text object"},
      {sizeof(EgfAnnotation), 260, "annotation"},
      {sizeof(EgfCloud), 116, "cloud"},
      {sizeof(EgfDiamond), 100, "diamond"},
      {sizeof(EgfCrossout), 200, "crossout"},
      {sizeof(EgfHotspot), 36, "hotspot"},
      {sizeof(EgfTreeBlock), 3100, "tree block"},
      // Pen blocks in 32-bit words.
      {sizeof(EgfEllipsePen) / 4, 12, "ellipse pen"},
      {sizeof(EgfLinePen) / 4, 8, "line pen"},
      {sizeof(EgfArcPen) / 4, 9, "arc pen"},
      {sizeof(EgfPolylinePen) / 4, 13, "polyline pen"},
      {sizeof(EgfCloudPen) / 4, 9, "cloud pen"},
  };
  for (const auto& row : sizes) EXPECT_EQ(row.actual, row.expected) << row.name;
}

TEST(Records, BlocksHoldTheirFieldsWhereWalkersLookForThem) {
  EXPECT_EQ(offsetof(EgfTreeBlock, header.references), 4U);
  EXPECT_EQ(offsetof(EgfTreeBlock, userData), 8U);
  EXPECT_EQ(offsetof(EgfTreeBlock, document), 12U);
  EXPECT_EQ(offsetof(EgfTreeBlock, body), 24U);
  EXPECT_EQ(offsetof(EgfTreeBlock, body.pageHeader), 32U);
  EXPECT_EQ(offsetof(EgfPageHeader, firstDash), 3052U);
  EXPECT_EQ(offsetof(EgfPageHeader, layerCount), 3056U);
  EXPECT_EQ(offsetof(EgfPageHeader, layerTable), 3060U);
  EXPECT_EQ(offsetof(EgfPageHeader, nextDashNumber), 3064U);
  EXPECT_EQ(kTreeBlockWord, 0x6000);
  EXPECT_EQ(kLayerBlockWord >> 10, 8);
  EXPECT_EQ(offsetof(EgfLayerBlock, body.shown), 8U);
  EXPECT_EQ(offsetof(EgfLayerBlock, body.suppressed), 12U);
  EXPECT_EQ(offsetof(_egf_dash_record, name), 4U);
  EXPECT_EQ(offsetof(_egf_dash_record, segments), 32U);
  EXPECT_EQ(offsetof(_egf_dash_record, unit), 360U);
  EXPECT_EQ(offsetof(_egf_dash_record, segmentCount), 364U);
  EXPECT_EQ(offsetof(_egf_dash_record, next), 532U);
}

TEST(Records, HeadKeepsTheHostsOwnBytesBetweenTheNamedFields) {
  EXPECT_EQ(offsetof(_egf_obj, layoutClass), 6U);
  EXPECT_EQ(offsetof(_egf_obj, next), 8U);
  EXPECT_EQ(offsetof(_egf_obj, parent), 12U);
  EXPECT_EQ(offsetof(_egf_obj, hostFlags), 16U);
  EXPECT_EQ(offsetof(EgfGroup, lastChild), offsetof(EgfGroup, firstChild) + 4);
  EXPECT_EQ(offsetof(EgfPath, lastChild), offsetof(EgfPath, firstChild) + 4);
}

TEST(Records, ColourIsOneWord) {
  const struct {
    std::uint32_t word;
    std::uint8_t blue, green, red, extra;
  } rows[] = {
      {0x00ff0000, 0, 0, 255, 0},
      {0x00ffffff, 255, 255, 255, 0},
      {0x00000000, 0, 0, 0, 0},
      {0x04010203, 3, 2, 1, 4},
  };
  for (const auto& row : rows) {
    const _sel_RGB_type colour = colourOf(row.word);
    EXPECT_EQ(colour.blue, row.blue);
    EXPECT_EQ(colour.green, row.green);
    EXPECT_EQ(colour.red, row.red);
    EXPECT_EQ(colour.extra, row.extra);
    EXPECT_EQ(colourWord(colour), row.word);
    std::uint32_t bytes;
    std::memcpy(&bytes, &colour, sizeof bytes);
    EXPECT_EQ(bytes, row.word);
  }
}

template <class Record>
std::uint32_t wordAt(const Record& record, std::size_t offset) {
  return readPacked<std::uint32_t>(&record, offset);
}

TEST(Templates, PensHoldTheirConstantWords) {
  EXPECT_EQ(wordAt(kPolygonPen, 12), 0x00ffffffU);
  EXPECT_EQ(wordAt(kPolygonPen, 24), 0x00030003U);  // fillStyle 3, joinStyle 0, modeFlags 3
  EXPECT_EQ(wordAt(kPolygonPen, 28), 0x12fU);
  EXPECT_EQ(wordAt(kPolygonPen, 40), 0xffffU);
  EXPECT_EQ(readPacked<double>(&kPolygonPen, 44), 0.0);
  EXPECT_EQ(wordAt(kDiamondPen, 24), 0x00020003U);
  EXPECT_EQ(wordAt(kEllipsePen, 12), 0x00ffffffU);
  EXPECT_EQ(wordAt(kEllipsePen, 16), 0x00ffffffU);
  EXPECT_EQ(wordAt(kEllipsePen, 28), 0x12fU);
  EXPECT_EQ(wordAt(kEllipsePen, 32), 0xffffU);
  EXPECT_EQ(wordAt(kEllipsePen, 44), 0xffffffffU);
  EXPECT_EQ(wordAt(kLinePen, 20), 0xffff0000U);
  EXPECT_EQ(wordAt(kPolylinePen, 24), 0xffffU);
  EXPECT_EQ(readPacked<double>(&kPolylinePen, 36), 10.0);
  EXPECT_EQ(wordAt(kPolylinePen, 44), 2884U);
  EXPECT_EQ(wordAt(kPolylinePen, 48), 0U);
  EXPECT_EQ(wordAt(kArcPen, 20), 0xffff0000U);
  EXPECT_EQ(wordAt(kArcPen, 32), 1U);
  EXPECT_EQ(wordAt(kCloudPen, 24), 0xffff0000U);
}

TEST(Templates, TextParametersHoldTheirConstantWords) {
  EXPECT_EQ(wordAt(kTextParms, 0), 0x00ffffffU);
  EXPECT_STREQ(reinterpret_cast<const char*>(&kTextParms) + 8, "Arial");
  EXPECT_EQ(wordAt(kTextParms, 92), 0U);
  EXPECT_EQ(readPacked<double>(&kTextParms, 96), 20.0);
  EXPECT_EQ(readPacked<double>(&kTextParms, 108), 10.0);
  EXPECT_EQ(wordAt(kTextParms, 120), 0x00200000U);
  EXPECT_EQ(wordAt(kTextParms, 144), 1U);
  EXPECT_EQ(wordAt(kTextParms, 184), 0xffffU);
}

TEST(Templates, ExtendedRecordsHoldTheirConstantWords) {
  EXPECT_EQ(wordAt(kFillParms, 0), 0x0303U);
  EXPECT_EQ(wordAt(kFillParms, 8), 1U);
  EXPECT_EQ(wordAt(kFillParms, 16), 0U);
  EXPECT_EQ(wordAt(kFillParms, 24), 90000000U);
  EXPECT_EQ(wordAt(kFillParms, 28), 0x01ffff00U);  // 0, strokeAlpha, fillAlpha, gradientFlags 1
  EXPECT_EQ(wordAt(kFillParms, 40), 0U);
  EXPECT_EQ(readPacked<float>(&kFillParms, 44), 10.0F);
  EXPECT_EQ(wordAt(kFillParms, 52), 255U);
  EXPECT_EQ(wordAt(kStrokeParms, 0), 0x0103U);
  EXPECT_EQ(wordAt(kStrokeParms, 8), 0xff00U);  // byte 8 is 0, strokeAlpha 255
  EXPECT_EQ(wordAt(kStrokeParms, 28), 1U);
  EXPECT_EQ(wordAt(kStrokeParms, 40), 90000000U);
  EXPECT_EQ(readPacked<float>(&kStrokeParms, 48), 10.0F);
  const float identity[] = {1, 0, 0, 1, 0, 0};
  EXPECT_EQ(std::memcmp(&kGradientParms, identity, sizeof identity), 0);
  EXPECT_EQ(wordAt(kGradientParms, 24), 0U);
}

TEST(Bits, FieldsOfABytePutAndGiveTheirBitsAlone) {
  EXPECT_EQ(FigureBits::with(0x03, kFigureClosed), 0x03);
  EXPECT_EQ(FigureBits::with(0x07, kFigureClosed), 0x03);
  EXPECT_EQ(FigureBits::with(0xff, kFigureOpen), 0xf9);
  EXPECT_EQ(FigureBits::get(0x02), kFigureClosed);
  EXPECT_EQ(FillRuleBits::with(0x02, 1), 0x03);
  EXPECT_EQ(CurveBits::get(0x08), 1U);
  EXPECT_EQ(CurveChildBits::with(0xff, kCurveChild), 0xe9);
  EXPECT_EQ(CurveChildBits::with(0, kCurveChild), 0x08);
  EXPECT_EQ(GroupViewportBits::with(0xff, 1), 0x7f);  // the low six bits and 0x40
  EXPECT_EQ(ArcDirectionBits::kMask, 0x0c);
  EXPECT_EQ(ClosedHeadBits::kMask, 0x0c);
  EXPECT_EQ(BothHeadsBits::kMask, 0x30);
  EXPECT_EQ(TextFillBits::kMask, 0xe0);
  EXPECT_EQ(VerticalBits::kMask, 0x18);
  EXPECT_EQ(BackgroundBits::get(0x80), 2U);
}

}  // namespace
}  // namespace egfsvg
