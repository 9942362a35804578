// The parsers of svg, g, use and switch: records that their table keeps until the read ends.
#include <cstring>

#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_rows.h"
#include "reader/release.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

struct MarkupClass {
  const char* name;
  int type;
};
constexpr MarkupClass kMarkupClasses[] = {
    {"QV7.5_Cloud", kTagCloud},
    {"QV7.5_Crossout", kTagCrossout},
    {"QV7.5_Diamond", kTagDiamond},
    {"QV7.5_Anno", kTagAnnotation},
};

/// Exact with case; kTagNone for any other name.
int markupType(const char* name, std::size_t length) {
  for (const MarkupClass& row : kMarkupClasses) {
    if (std::strlen(row.name) == length && std::memcmp(row.name, name, length) == 0) {
      return row.type;
    }
  }
  return kTagNone;
}

std::size_t tokenLength(const char* text) {
  std::size_t length = 0;
  while (text[length] != '\0' && !isWhite(text[length]) && text[length] != ',' &&
         text[length] != ';') {
    ++length;
  }
  return length;
}

template <class Record>
Record* takeRecord(ReaderState&) {
  return allocateRecord<Record>(RMM_SITE);
}
/// Groups come and go: the block of one that has closed serves the next.
template <>
_svg_group* takeRecord(ReaderState& state) {
  return reinterpret_cast<_svg_group*>(state.groups.take(sizeof(_svg_group)).memory);
}

/// A new record with its defaults, type, parent and number, and what it takes from its parent. Null
/// without memory.
template <class Record>
Owned<Record> openRecord(CHandlerReader& reader, void (*init)(Record*), _svg_common* parent,
                         int type, std::int32_t index, int inheritsAs) {
  auto* block = takeRecord<Record>(reader.state);
  if (block == nullptr) {
    reader.state.outOfMemory = true;
    return nullptr;
  }
  init(block);
  Owned<Record> record(block);
  record->head.parent = parent;
  record->head.type = type;
  record->head.index = index;
  reader.InheritStyleAndTransform(record.get(), inheritsAs);
  if (reader.styles.count != 0) reader.SetStyleBasedOnTypeSelector(record.get(), type);
  return record;
}

/// False at a syntax error.
bool readOwnAttributes(CHandlerReader& reader, const ElementRow& row, _svg_common* record) {
  if (reader.hasAttributes == 0 || row.applyAll(reader, record) == kAttNoMore) return true;
  reportElement(reader, Diagnostic::kSyntaxError, record->type, RMM_SITE);
  return false;
}

/// Hands the record over to its table, under its number, which none has had before. Null without
/// memory.
template <class Record>
Record* enter(CHandlerReader& reader, Map<Record>& table, Owned<Record> record) {
  if (table.appendNumbered(record.get())) return record.release();
  reader.state.outOfMemory = true;
  return nullptr;
}

/// What a `use` gives the svg or symbol that it draws: its size, as far as it has one.
void takeUseSize(_svg_svg& record, const _svg_group& use) {
  const auto isSet = [](const _svg_value& value) {
    return value.unit != kUnitUnset || value.value != 0.0;
  };
  if (isSet(use.width)) record.width = use.width;
  if (isSet(use.height)) record.height = use.height;
}

/// The viewport of an svg whose attributes are read: a root stands at the origin and may take the
/// size of the first view; a view box comes from the size, or scales to it.
void settleViewport(CHandlerReader& reader, _svg_svg* record, const _svg_common* parent) {
  bool takesFirstView = false;
  if (parent == nullptr) {
    if (record->width.unit == kUnitPercent || record->height.unit == kUnitPercent) {
      reader.SetInitialViewport(record);
      takesFirstView = true;
    }
    record->x.value = 0.0;
    record->y.value = 0.0;
  }
  if (record->viewBox == nullptr) {
    if (!takesFirstView) reader.SetViewBoxToVPort(record);
  } else if (parent != nullptr) {
    reader.SetUniformScaling(record);
  }
}

}  // namespace

bool CHandlerReader::mayNest(int tag) {
  if (state.nesting < state.limits.maxNesting) return true;
  char name[kElementNameSize];
  reportLimit(*this, Diagnostic::kNestingLimit, elementName(tag, name), RMM_SITE);
  return false;
}

_svg_common* CHandlerReader::ParseSVGTagData(_svg_common* parent, _svg_svg** slot, int isSymbol) {
  const int type = isSymbol != 0 ? kTagSymbol : kTagSvg;
  if (!mayNest(type)) return nullptr;
  Owned<_svg_svg> record = openRecord(*this, initSVGObj, parent, type, svgCount, kTagSvg);
  if (record == nullptr) return nullptr;
  if (!readOwnAttributes(*this, kSvgRow, &record->head)) return nullptr;
  if (parent != nullptr && parent->type == kTagUse) {
    const _svg_common* use = _getParentObj(parent);
    if (use != nullptr) takeUseSize(*record, *reinterpret_cast<const _svg_group*>(use));
  }
  settleViewport(*this, record.get(), parent);
  _svg_svg* entered = enter(*this, svgs, std::move(record));
  if (entered == nullptr) return nullptr;
  ++svgCount;
  ++state.nesting;
  viewportWidth = entered->width.value;
  viewportHeight = entered->height.value;
  *slot = entered;
  return &entered->head;
}

_svg_common* CHandlerReader::ParseGroupTagData(_svg_common* parent, _svg_group** slot, int isUse) {
  const int type = isUse != 0 ? kTagUse : kTagGroup;
  if (isUse == 0 && !mayNest(type)) return nullptr;
  Owned<_svg_group> record = openRecord(*this, initGroupObj, parent, type, groupCount, kTagGroup);
  if (record == nullptr) return nullptr;
  if (!readOwnAttributes(*this, kGroupRow, &record->head)) return nullptr;
  // A markup group stands outside the table: its owner is the caller.
  if (isUse == 0 && record->head.classCount > 0 && _setMarkupGroupType(record.get()) == 1) {
    *slot = record.release();
    return &(*slot)->head;
  }
  _svg_group* entered = enter(*this, groups, std::move(record));
  if (entered == nullptr) return nullptr;
  ++groupCount;
  if (isUse == 0) ++state.nesting;
  *slot = entered;
  return &entered->head;
}

_svg_common* CHandlerReader::ParseSwitchTagData(_svg_common* parent, _svg_switch** slot) {
  Owned<_svg_switch> record =
      openRecord(*this, initSwitch, parent, kTagSwitch, switchCount, kTagSwitch);
  if (record == nullptr) return parent;
  if (!readOwnAttributes(*this, kSwitchRow, &record->head)) return parent;
  _svg_switch* entered = enter(*this, switches, std::move(record));
  if (entered == nullptr) return parent;
  ++switchCount;
  *slot = entered;
  return &entered->head;
}

/// 1 when one of the class names is a markup kind, which becomes the group's type.
int CHandlerReader::_setMarkupGroupType(_svg_group* group) {
  for (std::int32_t i = 0; i < group->head.classCount; ++i) {
    const char* at = group->head.classNames[i];
    for (at += SkipSeparators(at, 0); *at != '\0'; at += SkipSeparators(at, 0)) {
      const std::size_t length = tokenLength(at);
      const int type = markupType(at, length);
      if (type != kTagNone) {
        group->head.type = type;
        return 1;
      }
      at += length;
    }
  }
  return 0;
}
