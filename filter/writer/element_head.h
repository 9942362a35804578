// What the lines of all elements share: the opening, the reference to a style entity, a rotation.
#pragma once

#include "model/groups.h"
#include "model/numbers.h"
#include "writer/line_builder.h"

namespace egfsvg {

/// Lines of points and path segments are broken by the writer and go on behind four blanks.
inline constexpr const char* kContinuation = "    ";

/// References to style entities: of areas and paths, and of lines and polylines.
inline constexpr const char* kAreaReference = "style=\"&st%s;\" %s";
inline constexpr const char* kStrokeReference = "style=\"&stroke_st%s;\" %s";

/// Three blanks, the element's opening, its class when it has one, and a blank.
void startElement(const char* name, const _svg_common& head, LineBuilder& out);

/// The style text: the attributes alone, or behind the reference that the head names in the form of
/// `format` (`out` then holds it).
const LineBuilder& withReference(const _svg_common& head, const LineBuilder& attributes,
                                 const char* format, LineBuilder& out);

/// A length as a whole number.
inline std::int32_t wholeOf(const _svg_value& value) { return shownInteger(value.value); }

/// The first transform entry, when it is a rotation, else null.
const transformEntry* rotationOf(const _svg_common& head);

}  // namespace egfsvg
