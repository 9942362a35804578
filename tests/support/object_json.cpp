#include "tests/support/object_json.h"

#include <algorithm>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "embedded_host/host_documents.h"
#include "embedded_host/host_trees.h"
#include "host/egf.h"
#include "host/egf_rows.h"
#include "host/memory.h"
#include "host/objects.h"
#include "host/palettes.h"
#include "host/style_tables.h"

namespace egfsvg::test {
namespace {

using Json = nlohmann::json;

[[noreturn]] void refuse(const std::string& what) {
  throw std::runtime_error("object JSON: " + what);
}

template <class T>
T* needed(T* block) {
  if (block == nullptr) refuse("the host gave no memory");
  return block;
}

void* newBlock(std::size_t count, std::size_t size) {
  return needed(RMM_CallocName(std::max<std::size_t>(count, 1), size, RMM_SITE));
}

_sel_RGB_type colourFrom(const Json& json) {
  return colourOf(static_cast<std::uint32_t>(std::stoul(json.get<std::string>(), nullptr, 16)));
}

template <class Number>
void putNumber(char* place, const Json& json) {
  writePacked<Number>(place, 0, json.get<Number>());
}

void putMeasure(char* place, const Json& json) {
  writePacked<__meas>(place, 0,
                      {json.at("unit").get<std::uint32_t>(), json.at("value").get<double>()});
}

void putColour(char* place, const Json& json) { writePacked(place, 0, colourFrom(json)); }

void putPoint(char* place, const Json& json) {
  writePacked<_mpl_spacept_tag>(place, 0, {json.at(0).get<float>(), json.at(1).get<float>()});
}

void putRect(char* place, const Json& json) {
  writePacked<_mpl_spacerect_tag>(place, 0,
                                  {json.at("left").get<float>(), json.at("right").get<float>(),
                                   json.at("top").get<float>(), json.at("bottom").get<float>()});
}

void putMatrix(char* place, const Json& json) {
  writePacked<_egf_matrix_tag>(
      place, 0,
      {json.at("m11").get<float>(), json.at("m12").get<float>(), json.at("m21").get<float>(),
       json.at("m22").get<float>(), json.at("dx").get<float>(), json.at("dy").get<float>()});
}

// How one entry of a kind is stored.
struct PutRow {
  FieldKind kind;
  void (*put)(char* place, const Json& json);
};

constexpr std::array kPuts{
    PutRow{FieldKind::kU8, putNumber<std::uint8_t>},
    PutRow{FieldKind::kU16, putNumber<std::uint16_t>},
    PutRow{FieldKind::kU32, putNumber<std::uint32_t>},
    PutRow{FieldKind::kI32, putNumber<std::int32_t>},
    PutRow{FieldKind::kFloat, putNumber<float>},
    PutRow{FieldKind::kDouble, putNumber<double>},
    PutRow{FieldKind::kMeasure, putMeasure},
    PutRow{FieldKind::kColour, putColour},
    PutRow{FieldKind::kPoint, putPoint},
    PutRow{FieldKind::kRadii, putPoint},
    PutRow{FieldKind::kRect, putRect},
    PutRow{FieldKind::kMatrix, putMatrix},
    PutRow{FieldKind::kWrapMode, putNumber<std::uint32_t>},
    PutRow{FieldKind::kStyleNo, putNumber<std::uint32_t>},
    PutRow{FieldKind::kHandle, putNumber<std::uint32_t>},
    PutRow{FieldKind::kPoints, putPoint},
    PutRow{FieldKind::kBytes, putNumber<std::uint8_t>},
    PutRow{FieldKind::kColours, putColour},
    PutRow{FieldKind::kPositions, putNumber<std::int16_t>},
    PutRow{FieldKind::kDoubles, putNumber<double>},
    PutRow{FieldKind::kPointArray, putPoint},
    PutRow{FieldKind::kU16Array, putNumber<std::uint16_t>},
};

void putEntry(char* place, const Json& json, FieldKind kind) {
  for (const PutRow& row : kPuts) {
    if (row.kind == kind) return row.put(place, json);
  }
  refuse("a kind of field that cannot be read");
}

void putEntries(char* first, const Json& json, FieldKind kind) {
  for (std::size_t i = 0; i < json.size(); ++i) {
    putEntry(first + i * entrySize(kind), json[i], kind);
  }
}

HostHandle newText(const Json& json) {
  const auto text = json.get<std::string>();
  auto* copy = static_cast<char*>(newBlock(text.size() + 1, 1));
  std::copy(text.begin(), text.end(), copy);
  return handleOf(copy);
}

HostHandle newPalette(const Json& json) {
  auto* list = needed(SEL_CLOR_Alloc(kImagePaletteCapacity, RMM_SITE));
  for (const Json& colour : json) SEL_CLOR_AddColour(list, colourFrom(colour));
  return handleOf(list);
}

HostHandle newArray(const Json& json, FieldKind kind) {
  auto* entries = static_cast<char*>(newBlock(json.size(), entrySize(kind)));
  putEntries(entries, json, kind);
  return handleOf(entries);
}

// A field of a record from its value.
void putField(char* record, const FieldRow& row, const Json& json) {
  char* place = record + row.offset;
  switch (row.kind) {
    case FieldKind::kText: {
      const auto text = json.get<std::string>();
      if (text.size() >= row.structSize) refuse(std::string(row.name) + " is too long");
      std::fill(place, place + row.structSize, '\0');
      std::copy(text.begin(), text.end(), place);
      return;
    }
    case FieldKind::kString:
    case FieldKind::kData:
      if (!json.is_null()) writePacked(place, 0, newText(json));
      return;
    case FieldKind::kPalette:
      if (!json.is_null()) writePacked(place, 0, newPalette(json));
      return;
    case FieldKind::kPointArray:
    case FieldKind::kU16Array:
      if (!json.is_null()) writePacked(place, 0, newArray(json, row.kind));
      return;
    case FieldKind::kRaster:
      // Pixels are not printed.
      return;
    default:
      return row.count.kind == CountKind::kOne ? putEntry(place, json, row.kind)
                                               : putEntries(place, json, row.kind);
  }
}

const FieldRow* fieldNamed(const RecordRow& record, const std::string& key) {
  for (const FieldRow& row : record.fields) {
    if (key == row.name && row.kind != FieldKind::kFirstChild) return &row;
  }
  return nullptr;
}

void putFields(char* bytes, const RecordRow& record, const Json& json) {
  for (const auto& [key, value] : json.items()) {
    if (key == "children" || key == "layoutClass") continue;
    const FieldRow* row = fieldNamed(record, key);
    if (row == nullptr) refuse(std::string(record.name) + " has no field " + key);
    try {
      putField(bytes, *row, value);
    } catch (const Json::exception& fault) {
      refuse(key + ": " + fault.what());
    }
  }
}

struct DestroyTree {
  void operator()(_egf_obj* object) const { EEL_DestroyObject(object); }
};
using Owned = std::unique_ptr<_egf_obj, DestroyTree>;

Owned objectFrom(const Json& json) {
  const int layout = json.value("layoutClass", json.value("objClass", 0));
  const RecordRow* record = recordOf(kObjectRecords, layout);
  if (record == nullptr) refuse("no class " + std::to_string(layout));
  Owned object(needed(EEL_AllocObject(layout, RMM_SITE)));
  putFields(reinterpret_cast<char*>(object.get()), *record, json);
  return object;
}

// Children are read without recursion: trees may be deep.
Owned treeFrom(const Json& json) {
  Owned root = objectFrom(json);
  std::vector<std::pair<_egf_obj*, const Json*>> open{{root.get(), &json}};
  while (!open.empty()) {
    const auto [parent, content] = open.back();
    open.pop_back();
    const auto children = content->find("children");
    if (children == content->end()) continue;
    for (const Json& child : *children) {
      Owned object = objectFrom(child);
      open.emplace_back(object.get(), &child);
      EEL_AppendObject(parent, object.release());
    }
  }
  return root;
}

Json parse(std::string_view text) {
  try {
    return Json::parse(text);
  } catch (const Json::exception& fault) {
    refuse(fault.what());
  }
}

void readStyles(const Json& styles, HostHandle document) {
  for (const auto& [key, records] : styles.items()) {
    const RecordRow* record = recordOf(kStyleRecords, std::stoi(key));
    if (record == nullptr) refuse("no style table " + key);
    const HostHandle table = ISL_GetProperty(document, static_cast<std::uint32_t>(record->number));
    std::uint32_t number = 0;
    for (const Json& style : records) {
      std::vector<char> bytes(record->size);
      putFields(bytes.data(), *record, style);
      const auto size = static_cast<std::uint32_t>(bytes.size());
      if (STYLE_AppendUnique(table, size, bytes.data()) != ++number) {
        refuse("style " + std::to_string(number) + " of table " + key + " is not new");
      }
    }
  }
}

void readDashes(const Json& dashes, EgfPageHeader* header) {
  for (const Json& dash : dashes) {
    _egf_dash_record* record = needed(EGF_CreateDashRecord());
    putFields(reinterpret_cast<char*>(record), kDashRecord, dash);
    EGF_AppendDashRecord(header, record);
    if (record->number != dash.at("number").get<std::uint32_t>()) {
      refuse("dash records are numbered from 1");
    }
  }
}

}  // namespace

_egf_obj* readObject(std::string_view json) { return treeFrom(parse(json)).release(); }

HostHandle readDump(std::string_view json, HostHandle document) {
  const Json dump = parse(json);
  readStyles(dump.at("styles"), document);
  Owned root = treeFrom(dump.at("pages").at(0).at("root"));
  const HostHandle tree = egfhost::createPage(document);
  if (tree == 0) refuse("the host gave no memory");
  auto* body = blockBody<EgfTreeBody>(at<EgfBlockHeader>(tree));
  EEL_DestroyObject(body->root.get());
  body->root = root.release();
  readDashes(dump.at("dashes"), egfhost::pageHeaderOf(tree));
  return tree;
}

}  // namespace egfsvg::test
