// What an element makes of its attributes, as data: one row an element kind, in which each
// attribute code leads to its action at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "model/codes.h"
#include "reader/attribute_action.h"
#include "reader/presentation_rows.h"

namespace egfsvg {

struct ActionRow {
  std::int32_t code;
  AttributeAction run;
  std::size_t offset = 0;  // of what it sets, in the record
};

/// Presentation codes from the first to the last.
struct CodeRange {
  std::int32_t first;
  std::int32_t last;
};

class ElementRow {
 public:
  constexpr ElementRow(GroupOffsets groups, std::span<const CodeRange> presentation,
                       std::span<const ActionRow> common, std::span<const ActionRow> own)
      : groups_(groups) {
    for (const CodeRange& range : presentation) {
      for (std::int32_t code = range.first; code <= range.last; ++code) addPresentation(code);
    }
    for (const auto& rows : {common, own}) {
      for (const ActionRow& row : rows) actionOf(row.code) = {row.run, row.offset};
    }
  }

  /// Does so for all attributes of the tag at hand, one by one. kAttNoMore; or kAttSyntaxError at a
  /// pair that cannot be read, and without memory.
  int applyAll(CHandlerReader& reader, void* record) const;
  /// Does what the code asks for; codes that the element does not accept do nothing.
  void apply(CHandlerReader& reader, void* record, std::int32_t code, _svg_attrib_pair* pair) const;

 private:
  void applyUsual(CHandlerReader& reader, void* record) const;
  [[gnu::noinline]] bool applyOther(CHandlerReader& reader, void* record, int& code) const;

  constexpr PlacedAction& actionOf(std::int32_t code) {
    return actions_[static_cast<std::size_t>(code)];
  }
  constexpr void addPresentation(std::int32_t code) {
    const PresentationRow& row = presentationRow(code);
    if (groups_.has(row.group)) {
      actionOf(code) = {row.set, groups_.offsetOf(row.group) + row.offset};
    }
  }

  GroupOffsets groups_;
  std::array<PlacedAction, kAttributeCodes> actions_{};  // none: not accepted
};

/// What the elements accept.
extern const ElementRow kSvgRow;
extern const ElementRow kGroupRow;
extern const ElementRow kDefsRow;
extern const ElementRow kSwitchRow;
extern const ElementRow kLinkRow;
extern const ElementRow kImageRow;
extern const ElementRow kTextRow;
extern const ElementRow kGradientRow;
extern const ElementRow kStopRow;
extern const ElementRow kRectRow;
extern const ElementRow kCircleRow;
extern const ElementRow kEllipseRow;
extern const ElementRow kLineRow;
extern const ElementRow kPolylineRow;
extern const ElementRow kPolygonRow;
extern const ElementRow kPathRow;

/// The setters' shared body.
template <class Record>
int applyAttribute(CHandlerReader& reader, const ElementRow& row, Record* record, int code,
                   _svg_attrib_pair* pair) {
  if (record != nullptr && pair != nullptr && pair->value != nullptr) {
    row.apply(reader, record, code, pair);
  }
  return 0;
}

/// Actions that every element shares.
void setIdentifier(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                   const ElementTarget&);
void setDescription(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                    const ElementTarget&);
void setExternalResources(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                          const ElementTarget&);
void setClass(CHandlerReader& reader, void* record, _svg_attrib_pair* pair, const ElementTarget&);
void setTransform(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                  const ElementTarget&);

/// The style attribute, applied as that of an element of a tag code.
template <std::int32_t Type>
void setStyle(CHandlerReader& reader, void* record, _svg_attrib_pair* pair, const ElementTarget&) {
  reader.SetLocalStyleAtt(record, pair->value, Type);
}
/// The same with the record's own type.
void setOwnStyle(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                 const ElementTarget&);

template <class Record>
void setRequiredFeatures(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                         const ElementTarget&) {
  reader.SetRequiredFeaturesAtt(&static_cast<Record*>(record)->ta.requiredFeatures, pair);
}
template <class Record>
void setRequiredExtensions(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                           const ElementTarget&) {
  reader.SetRequiredExtensionsAtt(&static_cast<Record*>(record)->ta.requiredExtensions, pair);
}
template <class Record>
void setSystemLanguage(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                       const ElementTarget&) {
  reader.SetSystemLanguageAtt(&static_cast<Record*>(record)->ta.systemLanguage, pair);
}

/// Attributes of every element that can stand in a switch.
template <class Record, AttributeAction Style>
inline constexpr ActionRow kElementActions[] = {
    {kAttId, setIdentifier},
    {kAttDesc, setDescription},
    {kAttExternalResourcesRequired, setExternalResources},
    {kAttClass, setClass},
    {kAttStyle, Style},
    {kAttTransform, setTransform},
    {kAttRequiredFeatures, setRequiredFeatures<Record>},
    {kAttRequiredExtensions, setRequiredExtensions<Record>},
    {kAttSystemLanguage, setSystemLanguage<Record>}};

template <class Record>
void setLink(CHandlerReader& reader, void* record, _svg_attrib_pair* pair, const ElementTarget&) {
  reader.SetLinkAtt(&static_cast<Record*>(record)->link, pair);
}

/// The properties of an image, and of the style attribute of a link.
inline constexpr CodeRange kImageProperties[] = {{kAttClip, kAttOpacity},
                                                 {kAttFilter, kAttFilter},
                                                 {kAttPointerEvents, kAttColorRendering},
                                                 {kAttImageRendering, kAttImageRendering},
                                                 {kAttShapeRendering, kAttShapeRendering}};

/// What the style attributes of `a` and `switch` may set: the properties of an image and of an
/// svg, in the records' own fields.
extern const ElementRow kLinkStyleRow;
extern const ElementRow kSwitchStyleRow;

}  // namespace egfsvg
