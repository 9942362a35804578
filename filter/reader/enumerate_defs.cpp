// A defs element in the second pass: nothing is sent, but where its children lie is recorded.
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/delivery.h"
#include "reader/release.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr std::uint32_t kMaxNestedDefs = 64;

/// Walks the children of one defs.
class DefsWalk {
 public:
  DefsWalk(CHandlerReader& reader, _svg_common* owner)
      : reader_(reader), owner_(owner), nesting_(reader.state.nesting) {
    ++reader.state.definitionDepth;
  }
  ~DefsWalk() {
    for (; opened_ > 0; --opened_) owner_ = reader_.closeContainer(owner_);
    reader_.state.nesting = nesting_;
    --reader_.state.definitionDepth;
  }
  DefsWalk(const DefsWalk&) = delete;
  DefsWalk& operator=(const DefsWalk&) = delete;

  void run() {
    int index = 0;
    for (int tag = reader_.GetNextTag(&index); tag != kTagEnd && tag != kTagEndDefs;
         tag = reader_.GetNextTag(&index)) {
      if (!take(tag, index)) return;
      reader_.stepGauge();
    }
  }

 private:
  bool take(int tag, int index) {
    switch (tag) {
      case kTagGroup:
        return openGroup(index);
      case kTagSvg:
      case kTagSymbol:
        return openSvg(index);
      case kTagDefs:
        reader_.EnumerateDefTagData(owner_, index);
        return true;
      case kTagEndSvg:
      case kTagEndGroup:
      case kTagEndSymbol:
        return goUp();
      default:
        if (isTarget(tag)) reader_.UpdateLocalRefTable(tag, index);
        return true;
    }
  }

  static bool isTarget(int tag) {
    return (tag >= kTagPath && tag <= kTagText) || tag == kTagImage || tag == kTagUse ||
           tag == kTagMarker;
  }

  bool openGroup(int index) {
    _svg_group* group = nullptr;
    return enter(reader_.ParseGroupTagData(owner_, &group, 0), index);
  }

  bool openSvg(int index) {
    _svg_svg* svg = nullptr;
    return enter(reader_.ParseSVGTagData(owner_, &svg, 0), index);
  }

  /// The tag is taken once more for its id.
  bool enter(_svg_common* opened, int index) {
    if (opened == nullptr) return false;
    owner_ = opened;
    ++opened_;
    reader_.buffer.setFileIndex(index);
    reader_.UpdateLocalRefTable(reader_.GetNextTag(nullptr), index);
    // Kept: one that closes itself stays open to the end of the defs; it does not count as nested.
    if (isTagClosed(reader_, index) && reader_.state.nesting > 0) --reader_.state.nesting;
    return true;
  }

  /// What stood open before this defs is not this walk's to close.
  bool goUp() {
    if (owner_ == nullptr) return false;
    if (opened_ > 0) {
      owner_ = reader_.closeContainer(owner_);
      --opened_;
    } else {
      owner_ = owner_->parent;
    }
    return true;
  }

  CHandlerReader& reader_;
  _svg_common* owner_;
  int opened_ = 0;  // records that this walk has opened, the last of them the owner
  const std::uint32_t nesting_;
};

void passAttributes(CHandlerReader& reader) {
  if (reader.hasAttributes == 0) return;
  readAttributesQuietly(reader, [](int, const _svg_attrib_pair*) {});
}

/// Past a defs that is nested too deeply, and those in it.
void passDefs(CHandlerReader& reader, int index) {
  int depth = 0;
  int tag = kTagDefs;
  do {
    if (tag == kTagEndDefs) --depth;
    if (tag == kTagDefs) {
      passAttributes(reader);
      if (!isTagClosed(reader, index)) ++depth;
    }
  } while (depth > 0 && (tag = reader.GetNextTag(&index)) != kTagEnd);
}

}  // namespace

/// At a defs whose attributes are still to be read.
void CHandlerReader::EnumerateDefTagData(_svg_common* parent, int index) {
  if (state.definitionDepth >= kMaxNestedDefs) {
    reportLimit(*this, Diagnostic::kNestingLimit, "defs", RMM_SITE);
    return passDefs(*this, index);
  }
  Owned<_svg_defs> record(allocateZeroed<_svg_defs>(RMM_SITE));
  if (record == nullptr) {
    state.outOfMemory = true;
    return;
  }
  ParseDefsTagData(record.get(), parent);
  if (!isTagClosed(*this, index)) DefsWalk(*this, parent).run();
}
