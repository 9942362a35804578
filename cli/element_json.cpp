#include "cli/element_json.h"

#include <array>
#include <string>

#include "model/elements.h"
#include "model/fields.h"

namespace egfsvg {
namespace {

using Address = const char*;

void writeValue(JsonWriter& json, Address entry) {
  const auto value = readField<_svg_value>(entry, 0);
  json.beginObject();
  json.member("unit", value.unit);
  json.member("value", value.value);
  json.member("axis", value.axis);
  json.endObject();
}

void writeAngle(JsonWriter& json, Address entry) {
  const auto angle = readField<_svg_angle>(entry, 0);
  json.beginObject();
  json.member("unit", angle.unit);
  json.member("value", angle.value);
  json.endObject();
}

void writeColor(JsonWriter& json, Address entry) {
  const auto color = readField<_svg_color>(entry, 0);
  json.beginArray();
  for (const std::int32_t part : {color.red, color.green, color.blue, color.colorExtra}) {
    json.value(part);
  }
  json.endArray();
}

// A gradient stands for itself by the key it is found under.
void writeGradientKey(JsonWriter& json, Address entry) {
  const auto* gradient = readField<const _svg_gradient*>(entry, 0);
  if (gradient == nullptr) return json.null();
  json.value("#" + std::string(gradient->head.id == nullptr ? "" : gradient->head.id));
}

void writeChild(JsonWriter& json, Address entry) {
  const auto type = readField<std::int32_t>(entry, 0);
  json.beginObject();
  json.member("type", type);
  json.key("record");
  writeElementRecord(json, entry + kChildRecordOffset, childFields(type));
  json.endObject();
}

// What stands in one entry of a field, by its shape.
void writeEntry(JsonWriter& json, Address entry, const ElementField& field) {
  switch (field.shape) {
    case ElementShape::kInteger:
      return json.value(readField<std::int32_t>(entry, 0));
    case ElementShape::kFlag:
      return json.value(readField<std::uint8_t>(entry, 0));
    case ElementShape::kNumber:
      return json.value(readField<double>(entry, 0));
    case ElementShape::kValue:
      return writeValue(json, entry);
    case ElementShape::kAngle:
      return writeAngle(json, entry);
    case ElementShape::kColor:
      return writeColor(json, entry);
    case ElementShape::kText:
      return json.value(readField<const char*>(entry, 0));
    case ElementShape::kName:
      return json.value(std::string_view(entry));
    case ElementShape::kPresence:
      return json.value(readField<const void*>(entry, 0) != nullptr);
    case ElementShape::kGradientKey:
      return writeGradientKey(json, entry);
    case ElementShape::kRecord:
      return writeElementRecord(json, entry, *field.record);
    case ElementShape::kChild:
      return writeChild(json, entry);
  }
}

void writeEntries(JsonWriter& json, Address first, std::int64_t count, const ElementField& field) {
  json.beginArray();
  for (std::int64_t i = 0; i < count; ++i) writeEntry(json, first + i * field.entrySize, field);
  json.endArray();
}

void writeFields(JsonWriter& json, Address record, const ElementRecord& fields, bool withChain);

// The records that follow, each by the rows of the one that they stand in.
void writeChain(JsonWriter& json, Address first, const ElementRecord& fields,
                std::uint32_t linkOffset) {
  json.beginArray();
  for (Address record = first; record != nullptr; record = readField<Address>(record, linkOffset)) {
    json.beginObject();
    writeFields(json, record, fields, false);
    json.endObject();
  }
  json.endArray();
}

void writeField(JsonWriter& json, Address record, const ElementField& field,
                const ElementRecord& fields) {
  const Address place = record + field.offset;
  switch (field.repeat) {
    case ElementRepeat::kOnce:
      return writeEntry(json, place, field);
    case ElementRepeat::kInline:
      return writeEntries(json, place, field.count, field);
    case ElementRepeat::kChain:
      return writeChain(json, readField<Address>(place, 0), fields, field.offset);
    case ElementRepeat::kPointer:
    case ElementRepeat::kArray:
      break;
  }
  const auto target = readField<Address>(place, 0);
  if (target == nullptr) return json.null();
  if (field.repeat == ElementRepeat::kPointer) return writeEntry(json, target, field);
  writeEntries(json, target, readField<std::int32_t>(record, field.count), field);
}

void writeFields(JsonWriter& json, Address record, const ElementRecord& fields, bool withChain) {
  for (const ElementField& field : fields) {
    if (field.repeat == ElementRepeat::kChain && !withChain) continue;
    if (field.onlyFor != kTagNone && !field.standsIn(readField<std::int32_t>(record, 0))) continue;
    json.key(field.key);
    writeField(json, record, field, fields);
  }
}

}  // namespace

void writeElement(JsonWriter& json, _handlerObject& object) {
  json.beginObject();
  json.member("type", object.type);
  json.member("size", object.size);
  json.key("record");
  writeElementRecord(json, object.payload<char>(), payloadFields(object.type));
  json.endObject();
}

void writeElementRecord(JsonWriter& json, const void* record, const ElementRecord& fields) {
  json.beginObject();
  writeFields(json, static_cast<Address>(record), fields, true);
  json.endObject();
}

}  // namespace egfsvg
