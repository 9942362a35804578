// References drawn in place: the target's tag is read again where it lies, as if it stood at the
// reference.
#include "frame/result_codes.h"
#include "reader/nested_walk.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"
#include "reader/tag_table.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

/// Counts an open reference, and leads back to where it stood.
class OpenReference {
 public:
  OpenReference(CHandlerReader& reader, long returnIndex)
      : reader_(reader), returnIndex_(returnIndex) {
    ++reader.state.referenceDepth;
  }
  ~OpenReference() { --reader_.state.referenceDepth; }
  OpenReference(const OpenReference&) = delete;
  OpenReference& operator=(const OpenReference&) = delete;

  void leadBack() { reader_.buffer.setFileIndex(returnIndex_); }

 private:
  CHandlerReader& reader_;
  const long returnIndex_;
};

/// So many bytes of a source that are read again cost what an object does.
constexpr std::uint64_t kBytesPerObject = 1024;

/// False, with a message the first time, when no more may come through references.
bool hasBudget(CHandlerReader& reader) {
  ReaderState& state = reader.state;
  const std::uint32_t most = state.limits.maxReferencedObjects;
  if (state.referencedObjects < most && state.rereadBytes / kBytesPerObject < most) return true;
  if (!state.budgetIsSpent) {
    reportLimit(reader, Diagnostic::kReferencedObjectsLimit, "use", RMM_SITE);
  }
  state.budgetIsSpent = true;
  return false;
}

bool mayRefer(CHandlerReader& reader) {
  if (!hasBudget(reader)) return false;
  if (reader.state.referenceDepth < reader.state.limits.maxReferenceDepth) return true;
  reportLimit(reader, Diagnostic::kReferenceDepthLimit, "use", RMM_SITE);
  return false;
}

/// Counts what a walk takes of the source. A reference inside it leads back to where it stood.
class RereadCount {
 public:
  explicit RereadCount(CHandlerReader& reader)
      : reader_(reader), from_(reader.buffer.getFileIndex()) {}

  void step() {
    const std::int32_t at = reader_.buffer.getFileIndex();
    if (at > from_) reader_.state.rereadBytes += static_cast<std::uint64_t>(at - from_);
    from_ = at;
  }

 private:
  CHandlerReader& reader_;
  std::int32_t from_;
};

/// Draws the target of a `use`, whose group is its parent.
class ReferenceWalk : public NestedWalk {
 public:
  ReferenceWalk(const Delivery& delivery, _svg_common* use) : NestedWalk(delivery, use) {}

  /// From the target's tag, which has been taken.
  int run(int tag, int tagIndex) {
    tag_ = tag;
    tagIndex_ = tagIndex;
    RereadCount reread(reader());
    do {
      tagIsGiven_ = false;
      if (const Work work = works().find(tag_)) (this->*work)();
      if (reader().state.outOfMemory) return kOutOfMemory;
      if (!tagIsGiven_) tag_ = isInside() ? reader().GetNextTag(&tagIndex_) : kTagEnd;
      ++reader().secondPassTags;
      reader().stepGauge();
      reread.step();
    } while (keepGoing_ == kGoOn && tag_ != kTagEnd && hasBudget(reader()));
    closeAll();
    return nestedResult(keepGoing_);
  }

 private:
  using Work = void (ReferenceWalk::*)();

  void leaf() { keepGoing_ = delivery_.sendLeaf(*leafKind(tag_), parent_); }
  void svg() { openSvg(); }
  void group() { openGroup(); }
  void use() { drawUse(); }
  void define() { reader().EnumerateTemplateData(parent_, tagIndex_, tag_); }
  void endSvg() { close(kTagEndSvg); }
  void endGroup() { close(kTagEndGroup); }

  static const TagTable<Work>& works() {
    using Self = ReferenceWalk;
    static constexpr TagRow<Work> kRows[] = {
        {kTagPath, &Self::leaf},        {kTagRect, &Self::leaf},
        {kTagCircle, &Self::leaf},      {kTagEllipse, &Self::leaf},
        {kTagLine, &Self::leaf},        {kTagPolyline, &Self::leaf},
        {kTagPolygon, &Self::leaf},     {kTagImage, &Self::leaf},
        {kTagSvg, &Self::svg},          {kTagSymbol, &Self::svg},
        {kTagGroup, &Self::group},      {kTagUse, &Self::use},
        {kTagMarker, &Self::define},    {kTagEndSvg, &Self::endSvg},
        {kTagEndSymbol, &Self::endSvg}, {kTagEndGroup, &Self::endGroup},
    };
    static constexpr TagTable<Work> kTable(kRows);
    return kTable;
  }
};

/// Draws what an entity declares. The first tag that has no place in a drawing ends it.
class EntityWalk : public NestedWalk {
 public:
  using NestedWalk::NestedWalk;

  int run() {
    RereadCount reread(reader());
    tag_ = reader().GetNextTag(&tagIndex_);
    reread.step();
    while (keepGoing_ == kGoOn && tag_ != kTagEnd && hasBudget(reader())) {
      tagIsGiven_ = false;
      if (!take()) break;
      if (reader().state.outOfMemory) return kOutOfMemory;
      if (!tagIsGiven_) tag_ = reader().GetNextTag(&tagIndex_);
      ++reader().secondPassTags;
      reread.step();
    }
    closeAll();
    return nestedResult(keepGoing_);
  }

 private:
  bool take() {
    const LeafKind* kind = leafKind(tag_);
    if (kind != nullptr && tag_ != kTagImage) {
      keepGoing_ = delivery_.sendLeaf(*kind, parent_);
    } else if (tag_ == kTagGroup) {
      openGroup();
    } else if (tag_ == kTagMarker) {
      reader().EnumerateTemplateData(parent_, tagIndex_, tag_);
    } else if (tag_ == kTagEndGroup && isInside()) {
      close(kTagEndGroup);
    } else {
      return false;
    }
    return true;
  }
};

}  // namespace

/// `use->link` says where the target lies and where to return to.
int CHandlerReader::EnumerateLocalRefData(_handlerEnumData* record, _svg_group* use,
                                          QV_FILEID* file) {
  const _svg_localref* target = use->link.reference;
  // A target that was never met has no place.
  if (target == nullptr || target->tagType == kTagNone || !mayRefer(*this)) return kOk;
  OpenReference reference(*this, use->link.returnIndex);
  int result = kOk;
  int tagIndex = 0;
  if (buffer.setFileIndex(target->fileIndex) == use->link.returnIndex &&
      GetNextTag(&tagIndex) == target->tagType) {
    result =
        ReferenceWalk(Delivery(*this, record, file), &use->head).run(target->tagType, tagIndex);
  }
  if (result != kOutOfMemory) reference.leadBack();
  return result;
}

int CHandlerReader::EnumeratePtrData(_handlerEnumData* record, _svg_common* parent,
                                     _svg_localref* target) {
  if (!mayRefer(*this)) return kOk;
  OpenReference reference(*this, buffer.getFileIndex());
  buffer.setFileIndex(target->fileIndex);
  int result = kOk;
  if (GetNextTag(nullptr) == target->tagType) {
    result = EntityWalk(Delivery(*this, record, nullptr), parent).run();
  }
  if (result != kOutOfMemory) reference.leadBack();
  return result;
}
