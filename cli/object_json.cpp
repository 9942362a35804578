#include "cli/object_json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

#include "host/egf_rows.h"
#include "host/palettes.h"
#include "render/object_walk.h"

namespace egfsvg {
namespace {

using Address = const char*;

// Entries of a counted field. A count that is negative counts as none.
std::size_t entriesOf(Address record, const FieldRow& row) {
  switch (row.count.kind) {
    case CountKind::kOne:
      return 1;
    case CountKind::kConstant:
      return row.count.value;
    case CountKind::kU8Field:
      return readPacked<std::uint8_t>(record, row.count.value);
    case CountKind::kU16Field:
      return readPacked<std::uint16_t>(record, row.count.value);
    case CountKind::kU32Field:
      break;
  }
  return static_cast<std::size_t>(std::max(0, readPacked<std::int32_t>(record, row.count.value)));
}

void writeMeasure(JsonWriter& json, Address place) {
  const auto measure = readPacked<__meas>(place);
  json.beginObject();
  json.member("unit", measure.unit);
  json.member("value", measure.value);
  json.endObject();
}

void writePoint(JsonWriter& json, Address place) {
  const auto point = readPacked<_mpl_spacept_tag>(place);
  json.beginArray();
  json.value(point.x);
  json.value(point.y);
  json.endArray();
}

void writeRect(JsonWriter& json, Address place) {
  const auto rect = readPacked<_mpl_spacerect_tag>(place);
  json.beginObject();
  json.member("left", rect.left);
  json.member("right", rect.right);
  json.member("top", rect.top);
  json.member("bottom", rect.bottom);
  json.endObject();
}

void writeMatrix(JsonWriter& json, Address place) {
  const auto matrix = readPacked<_egf_matrix_tag>(place);
  json.beginObject();
  json.member("m11", matrix.m11);
  json.member("m12", matrix.m12);
  json.member("m21", matrix.m21);
  json.member("m22", matrix.m22);
  json.member("dx", matrix.dx);
  json.member("dy", matrix.dy);
  json.endObject();
}

template <class Number>
void writeNumber(JsonWriter& json, Address place) {
  json.value(readPacked<Number>(place));
}

void writeColourAt(JsonWriter& json, Address place) {
  writeColour(json, readPacked<_sel_RGB_type>(place));
}

// A colour list by its handle.
void writePalette(JsonWriter& json, HostHandle handle) {
  const auto* list = at<_sel_colour_list>(handle);
  if (list == nullptr) return json.null();
  json.beginArray();
  for (std::uint32_t i = 0; i < list->count; ++i) writeColour(json, list->colours[i]);
  json.endArray();
}

// How the kinds are written. One entry, or an array of entries in the record or behind its
// reference.
enum class Place : std::uint8_t { kEntry, kEntries, kReference };

struct KindRow {
  FieldKind kind;
  Place place;
  void (*write)(JsonWriter& json, Address entry);
};

constexpr std::array kKinds{
    KindRow{FieldKind::kU8, Place::kEntry, writeNumber<std::uint8_t>},
    KindRow{FieldKind::kU16, Place::kEntry, writeNumber<std::uint16_t>},
    KindRow{FieldKind::kU32, Place::kEntry, writeNumber<std::uint32_t>},
    KindRow{FieldKind::kI32, Place::kEntry, writeNumber<std::int32_t>},
    KindRow{FieldKind::kFloat, Place::kEntry, writeNumber<float>},
    KindRow{FieldKind::kDouble, Place::kEntry, writeNumber<double>},
    KindRow{FieldKind::kMeasure, Place::kEntry, writeMeasure},
    KindRow{FieldKind::kColour, Place::kEntry, writeColourAt},
    KindRow{FieldKind::kPoint, Place::kEntry, writePoint},
    KindRow{FieldKind::kRadii, Place::kEntry, writePoint},
    KindRow{FieldKind::kRect, Place::kEntry, writeRect},
    KindRow{FieldKind::kMatrix, Place::kEntry, writeMatrix},
    KindRow{FieldKind::kWrapMode, Place::kEntry, writeNumber<std::uint32_t>},
    KindRow{FieldKind::kStyleNo, Place::kEntry, writeNumber<std::uint32_t>},
    KindRow{FieldKind::kHandle, Place::kEntry, writeNumber<std::uint32_t>},
    KindRow{FieldKind::kPoints, Place::kEntries, writePoint},
    KindRow{FieldKind::kBytes, Place::kEntries, writeNumber<std::uint8_t>},
    KindRow{FieldKind::kColours, Place::kEntries, writeColourAt},
    KindRow{FieldKind::kPositions, Place::kEntries, writeNumber<std::int16_t>},
    KindRow{FieldKind::kDoubles, Place::kEntries, writeNumber<double>},
    KindRow{FieldKind::kPointArray, Place::kReference, writePoint},
    KindRow{FieldKind::kU16Array, Place::kReference, writeNumber<std::uint16_t>},
};

// Kinds that writeValueOf or the walk over children take care of themselves.
constexpr std::array kOtherKinds{FieldKind::kText,   FieldKind::kString,  FieldKind::kData,
                                 FieldKind::kRaster, FieldKind::kPalette, FieldKind::kFirstChild};

consteval bool isEveryKindWritten() {
  for (int kind = 0; kind <= static_cast<int>(FieldKind::kFirstChild); ++kind) {
    bool written = false;
    for (const KindRow& row : kKinds) written = written || static_cast<int>(row.kind) == kind;
    for (const FieldKind other : kOtherKinds) written = written || static_cast<int>(other) == kind;
    if (!written) return false;
  }
  return true;
}
static_assert(isEveryKindWritten());

void writeEntries(JsonWriter& json, Address first, std::size_t count, const FieldRow& row,
                  const KindRow& kind) {
  json.beginArray();
  for (std::size_t i = 0; i < count; ++i) kind.write(json, first + i * entrySize(row.kind));
  json.endArray();
}

void writeByKind(JsonWriter& json, Address record, const FieldRow& row, const KindRow& kind) {
  const Address place = record + row.offset;
  switch (kind.place) {
    case Place::kEntry:
      return kind.write(json, place);
    case Place::kEntries: {
      const std::size_t room = row.structSize / entrySize(row.kind);
      return writeEntries(json, place, std::min(entriesOf(record, row), room), row, kind);
    }
    case Place::kReference:
      break;
  }
  const Address first = at<char>(readPacked<HostHandle>(place));
  if (first == nullptr) return json.null();
  writeEntries(json, first, entriesOf(record, row), row, kind);
}

// Characters in the record itself, up to their zero.
std::string_view textIn(Address place, std::size_t room) {
  return {place, static_cast<std::size_t>(std::find(place, place + room, '\0') - place)};
}

void writeValueOf(JsonWriter& json, Address record, const FieldRow& row) {
  const Address place = record + row.offset;
  switch (row.kind) {
    case FieldKind::kText:
      return json.value(textIn(place, row.structSize));
    case FieldKind::kString:
      return json.value(static_cast<const char*>(at<char>(readPacked<HostHandle>(place))));
    case FieldKind::kData: {
      const Address data = at<char>(readPacked<HostHandle>(place));
      return data == nullptr ? json.null()
                             : json.value(std::string_view(data, entriesOf(record, row)));
    }
    case FieldKind::kRaster:
      return json.value(readPacked<HostHandle>(place) != 0);
    case FieldKind::kPalette:
      return writePalette(json, readPacked<HostHandle>(place));
    default:
      break;
  }
  for (const KindRow& kind : kKinds) {
    if (kind.kind == row.kind) return writeByKind(json, record, row, kind);
  }
}

void writeFields(JsonWriter& json, Address bytes, const RecordRow& record) {
  for (const FieldRow& row : record.fields) {
    if (row.kind == FieldKind::kFirstChild) continue;
    json.key(row.name);
    writeValueOf(json, bytes, row);
  }
}

const RecordRow* layoutOf(const _egf_obj& object) {
  return recordOf(kObjectRecords, object.layoutClass);
}

bool hasChildren(const RecordRow* layout) {
  return layout != nullptr &&
         std::any_of(layout->fields.begin(), layout->fields.end(),
                     [](const FieldRow& row) { return row.kind == FieldKind::kFirstChild; });
}

// Begins an object; true when it has a list of children, which is open then.
bool beginObjectFields(JsonWriter& json, const _egf_obj& object) {
  const RecordRow* layout = layoutOf(object);
  json.beginObject();
  if (layout != nullptr) writeFields(json, reinterpret_cast<Address>(&object), *layout);
  // A mark may stand over the class.
  if (object.objClass != object.layoutClass) {
    json.member("layoutClass", object.layoutClass);
  }
  if (!hasChildren(layout)) return false;
  json.key("children");
  const bool empty = egfrender::firstChildOf(object) == nullptr;
  json.beginArray(empty ? JsonLayout::kInline : JsonLayout::kLines);
  return true;
}

}  // namespace

void writeObject(JsonWriter& json, const _egf_obj& root) {
  egfrender::walkObjects(
      root, [&](const _egf_obj& object) { return beginObjectFields(json, object); },
      [&](const _egf_obj& object) {
        if (hasChildren(layoutOf(object))) json.endArray();
        json.endObject();
      });
}

void writeStyleRecord(JsonWriter& json, const void* bytes, const RecordRow& record) {
  json.beginObject();
  writeFields(json, static_cast<Address>(bytes), record);
  json.endObject();
}

void writeColour(JsonWriter& json, _sel_RGB_type colour) {
  constexpr int kBase = 16;
  std::array<char, 10> text{'0', 'x', '0', '0', '0', '0', '0', '0', '0', '0'};
  std::array<char, 8> digits;
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), colourWord(colour), kBase);
  std::copy_backward(digits.data(), end, text.end());
  json.value(std::string_view(text.data(), text.size()));
}

}  // namespace egfsvg
