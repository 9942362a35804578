// The rows that describe the element records, checked against the records themselves.
#include "model/fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "model/lifecycle.h"

namespace egfsvg {
namespace {

using namespace element_rows;  // NOLINT: the tables under test

std::size_t sizeOfEntry(const ElementField& field);

// Bytes from a record's start to the end of its last field.
std::size_t extent(ElementRecord fields) {
  std::size_t end = 0;
  for (const ElementField& field : fields) {
    std::size_t size = 0;
    switch (field.repeat) {
      case ElementRepeat::kOnce:
        size = sizeOfEntry(field);
        break;
      case ElementRepeat::kInline:
        size = std::size_t{field.count} * field.entrySize;
        break;
      default:
        size = sizeof(void*);
    }
    end = std::max(end, field.offset + size);
  }
  return end;
}

std::size_t sizeOfEntry(const ElementField& field) {
  switch (field.shape) {
    case ElementShape::kInteger:
      return sizeof(std::int32_t);
    case ElementShape::kFlag:
      return 1;
    case ElementShape::kNumber:
      return sizeof(double);
    case ElementShape::kValue:
      return sizeof(_svg_value);
    case ElementShape::kAngle:
      return sizeof(_svg_angle);
    case ElementShape::kColor:
      return sizeof(_svg_color);
    case ElementShape::kRecord:
      return extent(*field.record);
    default:
      return sizeof(void*);
  }
}

void expectDistinctAndOrdered(ElementRecord fields) {
  std::set<std::string> keys;
  std::uint32_t last = 0;
  for (const ElementField& field : fields) {
    if (field.onlyFor == kTagNone) {
      EXPECT_TRUE(keys.insert(field.key).second) << field.key;
    }
    if (field.shape == ElementShape::kRecord && field.repeat != ElementRepeat::kChain) {
      ASSERT_NE(field.record, nullptr) << field.key;
      SCOPED_TRACE(field.key);
      expectDistinctAndOrdered(*field.record);
    }
    last = std::max(last, field.offset);
  }
}

struct RecordSize {
  ElementRecord fields;
  std::size_t size;
};

TEST(Fields, ReachTheEndOfTheirRecord) {
  const RecordSize rows[] = {{kHeadFields, sizeof(_svg_common)},
                             {kFillFields, sizeof(_svg_pa_fill)},
                             {kStrokeFields, sizeof(_svg_pa_stroke)},
                             {kGraphicsFields, sizeof(_svg_pa_graphics)},
                             {kPAFields, sizeof(_svg_pa)},
                             {kTAFields, sizeof(_svg_ta)},
                             {kEventFields, sizeof(_svg_event)},
                             {kRectFields, sizeof(_svg_rect)},
                             {kCircleFields, sizeof(_svg_circle)},
                             {kEllipseFields, sizeof(_svg_ellipse)},
                             {kLineFields, sizeof(_svg_line)},
                             {kPolylineFields, sizeof(_svg_polyline)},
                             {kPolygonFields, sizeof(_svg_polygon)},
                             {kPathFields, sizeof(_svg_path)},
                             {kSvgFields, sizeof(_svg_svg)},
                             {kImageFields, sizeof(_svg_image)},
                             {kAFields, sizeof(_svg_a)},
                             {kTextFields, sizeof(_svg_text)},
                             {kStopFields, sizeof(_svg_stop)},
                             {kCloudFields, sizeof(_svg_markup_cloud)},
                             {kCrossoutFields, sizeof(_svg_markup_crossout)},
                             {kDiamondFields, sizeof(_svg_markup_diamond)},
                             {kAnnoFields, sizeof(_svg_markup_anno)},
                             {kPathDataFields, sizeof(_svg_path_data)},
                             {kGradientFields, sizeof(_svg_gradient)}};
  for (const RecordSize& row : rows) {
    // What is left over is padding alone.
    EXPECT_LE(extent(row.fields), row.size) << row.fields.front().key;
    EXPECT_GT(extent(row.fields) + alignof(double), row.size) << row.fields.back().key;
    expectDistinctAndOrdered(row.fields);
  }
}

const ElementField* field(ElementRecord fields, const char* key) {
  for (const ElementField& row : fields) {
    if (std::strcmp(row.key, key) == 0) return &row;
  }
  return nullptr;
}

TEST(Fields, LeadToTheValuesOfARect) {
  _svg_rect rect;
  initRect(&rect);
  rect.width = {8, 2.5, 1};
  rect.stroke.strokePresent = 1;
  const ElementRecord fields = payloadFields(6);
  const auto width = readField<_svg_value>(&rect, field(fields, "width")->offset);
  EXPECT_EQ(width.unit, 8);
  EXPECT_EQ(width.value, 2.5);
  const ElementField* stroke = field(fields, "stroke");
  const ElementField* present = field(*stroke->record, "strokePresent");
  EXPECT_EQ(present->shape, ElementShape::kFlag);
  EXPECT_EQ(readField<std::uint8_t>(&rect, stroke->offset + present->offset), 1);
  const ElementField* head = field(fields, "head");
  EXPECT_EQ(readField<std::int32_t>(&rect, head->offset + field(*head->record, "index")->offset),
            -1);
}

TEST(Fields, ArraysNameTheirCount) {
  _svg_polyline polyline;
  initPolyline(&polyline);
  std::vector<_svg_point> points(3, _svg_point{{3, 1.0, 0}, {3, 2.0, 0}});
  polyline.points = points.data();
  polyline.pointCount = 3;
  const ElementField* row = field(payloadFields(10), "points");
  EXPECT_EQ(row->repeat, ElementRepeat::kArray);
  EXPECT_EQ(readField<std::int32_t>(&polyline, row->count), 3);
  const auto* first = readField<const char*>(&polyline, row->offset);
  const ElementField* y = field(*row->record, "y");
  EXPECT_EQ(readField<_svg_value>(first + 2 * row->entrySize, y->offset).value, 2.0);
}

TEST(Fields, AGradientShowsTheSideOfItsType) {
  const struct {
    std::int32_t type;
    const char* key;
    const char* missing;
  } rows[] = {{30, "x2", "r"}, {31, "r", "x2"}};
  for (const auto& row : rows) {
    int sides = 0;
    for (const ElementField& parms : kGradientFields) {
      if (std::strcmp(parms.key, "parms") != 0 || !parms.standsIn(row.type)) continue;
      ++sides;
      EXPECT_NE(field(*parms.record, row.key), nullptr);
      EXPECT_EQ(field(*parms.record, row.missing), nullptr);
    }
    EXPECT_EQ(sides, 1);
  }
}

TEST(Fields, PayloadsAndChildren) {
  for (std::int32_t type : {3, 5, 6, 7, 8, 9, 10, 11, 12, 14, 16, 21, 101, 102, 103, 104}) {
    EXPECT_FALSE(payloadFields(type).empty()) << type;
  }
  for (std::int32_t type : {1000, 1001, 0, 4, 15, 105}) {
    EXPECT_TRUE(payloadFields(type).empty()) << type;
  }
  EXPECT_EQ(payloadFields(101).data(), kPolylineFields.data());
  EXPECT_EQ(childFields(101).data(), kCloudFields.data());
  EXPECT_EQ(payloadFields(104).data(), kTextFields.data());
  EXPECT_EQ(childFields(104).data(), kAnnoFields.data());
  EXPECT_TRUE(childFields(21).empty());
  EXPECT_EQ(kChildRecordOffset, offsetof(_svg_objects, rect));
}

TEST(Fields, LinksAndRuns) {
  const ElementField* runs = field(kTextFields, "runs");
  EXPECT_EQ(runs->repeat, ElementRepeat::kChain);
  EXPECT_EQ(runs->offset, offsetof(_svg_text, next));
  const ElementField* parent = field(kHeadFields, "hasParent");
  EXPECT_EQ(parent->shape, ElementShape::kPresence);
  EXPECT_EQ(field(kFillFields, "fillGradient")->shape, ElementShape::kGradientKey);
  EXPECT_EQ(field(kAFields, "objects")->shape, ElementShape::kChild);
  EXPECT_EQ(field(kHeadFields, "classNames")->entrySize, 256U);
  EXPECT_EQ(field(kSvgFields, "viewBox")->repeat, ElementRepeat::kPointer);
  EXPECT_EQ(kLinkFields.size(), 2U);
}

}  // namespace
}  // namespace egfsvg
