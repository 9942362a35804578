// The vocabularies of the filter as enums: tags, attributes, style properties, units. The numbers
// are part of the design: they key parsers, setters and the cascade together.
#pragma once

#include <cstdint>

namespace egfsvg {

/// What a tag is, as the scanner returns it and `_svg_common::type` stores it.
enum TagCode : std::int32_t {
  kTagNone = 0,
#define EGFSVG_TAG(name, code, text) kTag##name = code,
#include "model/tags.def"
#undef EGFSVG_TAG
  kTagFont = 13,             // no scanner token; a name for rules alone
  kTagEntityReference = 34,  // "&name;" between tags
  kTagCloud = 101,           // markup groups: a g whose class names the kind
  kTagCrossout = 102,
  kTagDiamond = 103,
  kTagAnnotation = 104,
};

/// The end of the source, where a tag was asked for.
inline constexpr std::int32_t kTagEnd = -1;

/// Attribute codes. Presentation properties take 101 to 160, shared with style properties.
enum AttributeCode : std::int32_t {
  kAttUnknown = -1,
  kAttNoMore = 0,        // the tag or the text has ended
  kAttSyntaxError = -2,  // the pair could not be read
#define EGFSVG_ATTRIBUTE(name, code, text) kAtt##name = code,
#include "model/attributes.def"
#undef EGFSVG_ATTRIBUTE
  kAttTitle = 17,  // setters know these five, but no name reaches them
  kAttMedia = 18,
  kAttRequiredFeatures = 43,
  kAttRequiredExtensions = 44,
  kAttSystemLanguage = 45,
  kAttFont = 101,  // shorthands of rules alone
  kAttMarker = 139,
};

/// Units of `_svg_value` and `_svg_angle`.
enum UnitCode : std::int32_t {
  kUnitUnset = -1,
  kUnitEm = 1,
  kUnitEx = 2,
  kUnitPixel = 3,  // and every plain number
  kUnitPoint = 4,
  kUnitPica = 5,
  kUnitCentimetre = 6,
  kUnitMillimetre = 7,
  kUnitInch = 8,
  kUnitPercent = 9,
  kUnitDegree = 10,
  kUnitRadian = 11,
  kUnitGrad = 12,
  kUnitSpace = 13,  // already host space units
  kUnitBoundingBox = 14,
};

/// Which viewport side a percentage refers to.
enum AxisCode : std::int32_t { kAxisNone = 0, kAxisWidth = 1, kAxisHeight = 2 };

/// Codes of the `display` property that logic asks for.
enum DisplayCode : std::int32_t { kDisplayInline = 1, kDisplayNone = 17 };

/// Codes of the `visibility` property.
enum VisibilityCode : std::int32_t { kVisible = 1, kHidden = 2, kCollapse = 3 };

/// Groups of the presentation block, as inheritance names them.
enum GroupCode : std::int32_t {
  kGroupFill = 1,
  kGroupStroke = 2,
  kGroupGraphics = 3,
  kGroupContainers = 4,
  kGroupFlood = 5,
  kGroupFont = 6,
  kGroupGradients = 7,
  kGroupImages = 8,
  kGroupLighting = 9,
  kGroupMarkers = 10,
  kGroupTextContent = 11,
  kGroupTextElements = 12,
  kGroupViewports = 13,
};

/// Spread methods and units of a gradient.
enum SpreadCode : std::int32_t { kSpreadPad = 1, kSpreadReflect = 2, kSpreadRepeat = 3 };
enum GradientUnitsCode : std::int32_t { kGradientUserSpace = 1, kGradientBoundingBox = 2 };

/// Kinds of a transform entry.
enum TransformKind : std::int32_t {
  kRotate = 1,
  kSkewX = 2,
  kSkewY = 3,
  kMatrix = 4,
  kTranslate = 5,
  kScale = 6,
};

}  // namespace egfsvg
