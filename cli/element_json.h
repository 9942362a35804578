// Element records as JSON, by their field rows.
#pragma once

#include <cstdint>

#include "cli/json_writer.h"
#include "frame/entry_records.h"
#include "model/field_rows.h"

namespace egfsvg {

// {"type":6,"size":N,"record":{...}}: what crossed the callback.
void writeElement(JsonWriter& json, _handlerObject& object);

// The fields of a record as one JSON object.
void writeElementRecord(JsonWriter& json, const void* record, const ElementRecord& fields);

}  // namespace egfsvg
