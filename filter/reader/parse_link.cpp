// The parser of `a`, which holds its children, and of the markup groups among them.
#include <cstring>

#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "model/put_object.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/leaf_kinds.h"
#include "reader/markup_forms.h"
#include "reader/release.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr std::uint32_t kMaxGroupsInLink = 64;

/// Reads the children of one `a`.
class LinkChildren {
 public:
  LinkChildren(CHandlerReader& reader, _svg_a** slot, QV_FILEID* file)
      : reader_(reader), slot_(slot), file_(file), owner_(&(*slot)->head) {}

  /// 0 at the end of the `a` or of the source, -1 when its groups do not match.
  int read() {
    const std::uint32_t nesting = reader_.state.nesting;
    const int result = readAll();
    reader_.state.nesting = nesting;
    settleParents();
    return result;
  }

 private:
  int readAll() {
    for (int tag = reader_.GetNextTag(nullptr); tag != kTagEnd && tag != kTagEndLink;
         tag = reader_.GetNextTag(nullptr)) {
      if (!take(tag)) return -1;
    }
    return 0;
  }

  bool take(int tag) {
    if (const LeafKind* kind = leafKind(tag)) return takeLeaf(*kind);
    switch (tag) {
      case kTagGroup:
        return takeGroup();
      case kTagEndGroup:
        return leaveGroup();
      case kTagCData:
        takeCData();
        return true;
      default:
        return true;
    }
  }

  Owned<_svg_objects> newObject(int type) {
    Owned<_svg_objects> object(allocateZeroed<_svg_objects>(RMM_SITE));
    if (object == nullptr) {
      reader_.state.outOfMemory = true;
    } else {
      object->type = type;
    }
    return object;
  }

  bool put(Owned<_svg_objects> object) {
    if (SVG_A_PutObject(slot_, object.get()) != 0) {
      reader_.state.outOfMemory = true;
      return false;
    }
    object.release();
    return true;
  }

  /// A child with a syntax error stays as far as it was read.
  bool takeLeaf(const LeafKind& kind) {
    Owned<_svg_objects> object = newObject(kind.tag);
    if (object == nullptr) return false;
    kind.init(&object->head);
    kind.parse(reader_, &object->head, owner_);
    return put(std::move(object));
  }

  bool takeGroup() {
    if (groups_ >= kMaxGroupsInLink) {
      reportLimit(reader_, Diagnostic::kNestingLimit, "g", RMM_SITE);
      ++passedOver_;
      return true;
    }
    _svg_group* group = nullptr;
    _svg_common* opened = reader_.ParseGroupTagData(owner_, &group, 0);
    if (opened == nullptr) return false;
    if (opened->type != kTagGroup) return takeMarkup(Owned<_svg_group>(group));
    owner_ = opened;
    ++groups_;
    return true;
  }

  bool takeMarkup(Owned<_svg_group> group) {
    _svg_common* const parent = group->head.parent;
    const int type = group->head.type;
    reader_._setContainerElem(&reader_.container, &group->head, type);
    Owned<_svg_objects> object = newObject(type);
    if (object == nullptr) return false;
    reader_.ParseMarkupGroupsData(object.get(), group.get());
    reader_._setContainerElem(&reader_.container, parent, -1);
    // An annotation is not read here, and an object without content would cost the whole link. Its
    // text becomes a child of its own; its end closes nothing.
    if (type == kTagAnnotation) {
      object->type = kTagNone;
      ++passedOver_;
      return true;
    }
    return put(std::move(object));
  }

  bool leaveGroup() {
    if (passedOver_ > 0) {
      --passedOver_;
      return true;
    }
    if (groups_ > 0) --groups_;
    owner_ = reader_.leaveContainer(owner_);
    return owner_ != nullptr;
  }

  void takeCData() {
    unsigned long length = 0;
    char* text = reader_.ParseCDATA(&length);
    if (text == nullptr) return;
    freeAll((*slot_)->cdata);
    (*slot_)->cdata = text;
    (*slot_)->cdataLength = static_cast<std::int32_t>(length);
  }

  /// Members of markup groups have the group beside them as parent, now that it stays in place.
  void settleParents() {
    for (std::int32_t i = 0; i < (*slot_)->objectCount; ++i) {
      _svg_objects& object = (*slot_)->objects[i];
      const MarkupForm* form = markupForm(object.type);
      if (form != nullptr) form->setParents(object);
    }
  }

  CHandlerReader& reader_;
  _svg_a** slot_;
  QV_FILEID* file_;
  _svg_common* owner_;
  std::uint32_t groups_ = 0;      // open groups
  std::uint32_t passedOver_ = 0;  // open groups that own nothing: annotations, and past the limit
};

}  // namespace

_svg_common* CHandlerReader::ParseATagData(_svg_common* parent, _svg_a** slot, QV_FILEID* file) {
  _svg_a* record = *slot;
  record->head.parent = parent;
  record->head.type = kTagLink;
  InheritStyleAndTransform(record, kTagLink);
  SetStyleBasedOnTypeSelector(record, kTagLink);
  if (hasAttributes != 0) {
    const int ended = readAttributes(*this, [this, record](int code, _svg_attrib_pair* pair) {
      SetLinkObjAttribute(record, code, pair);
    });
    if (ended == kAttSyntaxError) {
      reportElement(*this, Diagnostic::kSyntaxError, kTagLink, RMM_SITE);
      DestroyPAElements(&record->pa);
      DestroyTAElements(&record->ta);
      return nullptr;
    }
  }
  _setContainerElem(&container, &record->head, kTagLink);
  _setLinkObjectData(slot, file);
  return &record->head;
}

int CHandlerReader::_setLinkObjectData(_svg_a** slot, QV_FILEID* file) {
  return LinkChildren(*this, slot, file).read();
}
