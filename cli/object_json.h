// Drawing objects and style records as JSON, by their field rows.
#pragma once

#include "cli/json_writer.h"
#include "host/egf_fields.h"
#include "host/egf_objects.h"

namespace egfsvg {

struct RecordRow;

// An object with everything below it, children in drawing order.
void writeObject(JsonWriter& json, const _egf_obj& root);

// The fields of a style record or a dash record as one JSON object.
void writeStyleRecord(JsonWriter& json, const void* bytes, const RecordRow& record);

// "0xAARRGGBB".
void writeColour(JsonWriter& json, _sel_RGB_type colour);

}  // namespace egfsvg
