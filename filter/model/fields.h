// The field rows of every element record, found by type. A printer needs nothing else: it walks the
// rows, prints each field by its shape under its key and follows nested rows.
//
// Null pointers print as null. A kChain field is the array of the records that follow, each by the
// rows of the record that it stands in, without its own kChain field. A kChild entry is printed
// with its type and the record behind it.
#pragma once

#include "model/container_fields.h"
#include "model/gradient_fields.h"
#include "model/shape_fields.h"

namespace egfsvg {

/// A type and the rows of its record.
struct ElementType {
  std::int32_t type;
  const ElementRecord* fields;
};

inline constexpr ElementRecord kNoFields{};

/// What stands behind the envelope of a callback.
/// The closers carry nothing; a markup form carries its drawing alone where there is no group.
inline constexpr ElementType kPayloadTypes[] = {{kTagSvg, &element_rows::kSvgFields},
                                                {kTagPath, &element_rows::kPathFields},
                                                {kTagRect, &element_rows::kRectFields},
                                                {kTagCircle, &element_rows::kCircleFields},
                                                {kTagEllipse, &element_rows::kEllipseFields},
                                                {kTagLine, &element_rows::kLineFields},
                                                {kTagPolyline, &element_rows::kPolylineFields},
                                                {kTagPolygon, &element_rows::kPolygonFields},
                                                {kTagText, &element_rows::kTextFields},
                                                {kTagGroup, &element_rows::kGroupFields},
                                                {kTagImage, &element_rows::kImageFields},
                                                {kTagLink, &element_rows::kAFields},
                                                {kTagCloud, &element_rows::kPolylineFields},
                                                {kTagCrossout, &element_rows::kCrossoutFields},
                                                {kTagDiamond, &element_rows::kDiamondFields},
                                                {kTagAnnotation, &element_rows::kTextFields},
                                                {kTagEndSvg, &kNoFields},
                                                {kTagEndGroup, &kNoFields}};

/// What stands behind the type of an `a`'s child.
inline constexpr ElementType kChildTypes[] = {
    {kTagPath, &element_rows::kPathFields},       {kTagRect, &element_rows::kRectFields},
    {kTagCircle, &element_rows::kCircleFields},   {kTagEllipse, &element_rows::kEllipseFields},
    {kTagLine, &element_rows::kLineFields},       {kTagPolyline, &element_rows::kPolylineFields},
    {kTagPolygon, &element_rows::kPolygonFields}, {kTagText, &element_rows::kTextFields},
    {kTagGroup, &element_rows::kGroupFields},     {kTagImage, &element_rows::kImageFields},
    {kTagCloud, &element_rows::kCloudFields},     {kTagCrossout, &element_rows::kCrossoutFields},
    {kTagDiamond, &element_rows::kDiamondFields}, {kTagAnnotation, &element_rows::kAnnoFields}};

/// The rows for a type; empty for one that has no row.
template <std::size_t N>
constexpr ElementRecord fieldsOf(const ElementType (&rows)[N], std::int32_t type) {
  for (const ElementType& row : rows) {
    if (row.type == type) return *row.fields;
  }
  return {};
}

constexpr ElementRecord payloadFields(std::int32_t type) { return fieldsOf(kPayloadTypes, type); }
constexpr ElementRecord childFields(std::int32_t type) { return fieldsOf(kChildTypes, type); }

/// Where the record of an `a`'s child starts in its entry; the type stands first.
inline constexpr std::uint32_t kChildRecordOffset = offsetof(_svg_objects, head);

}  // namespace egfsvg
