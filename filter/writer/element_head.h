// What the lines of all elements share: the opening, the reference to a style entity, a rotation.
#pragma once

#include "model/groups.h"
#include "model/numbers.h"
#include "writer/line_builder.h"

namespace egfsvg {

/// Lines of points and path segments are broken by the writer and go on behind four blanks.
inline constexpr const char* kContinuation = "    ";

/// Three blanks, the element's opening, its class when it has one, and a blank.
template <FormatText kName>
void startElement(const _svg_common& head, LineBuilder& out) {
  constexpr FormatText kStart = FormatText("   <") + kName;
  out.clear();
  if (head.classCount != 0) {
    out.format<kStart + FormatText(" class=\"%s\" ")>(head.classNames[0]);
  } else {
    out.format<kStart + FormatText(" ")>();
  }
}

/// References to style entities: of areas and paths, and of lines and polylines.
inline constexpr FormatText kAreaReference = "style=\"&st%s;\" %s";
inline constexpr FormatText kStrokeReference = "style=\"&stroke_st%s;\" %s";

/// The style text: the attributes alone, or behind the reference that the head names (`out` then
/// holds it).
template <FormatText kReference>
const LineBuilder& withReference(const _svg_common& head, const LineBuilder& attributes,
                                 LineBuilder& out) {
  if (head.styleRef == nullptr) return attributes;
  out.clear();
  return out.format<kReference>(head.styleRef, attributes);
}

/// A length as a whole number.
inline std::int32_t wholeOf(const _svg_value& value) { return shownInteger(value.value); }

/// The first transform entry, when it is a rotation, else null.
const transformEntry* rotationOf(const _svg_common& head);

}  // namespace egfsvg
