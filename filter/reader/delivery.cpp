#include "reader/delivery.h"

#include <cstring>

#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/reports.h"

namespace egfsvg {

namespace {

/// Kept: the size that is told for an open svg.
constexpr std::size_t kSvgSize = 4;

/// Forgets the open container when its record is about to go.
class ContainerEnd {
 public:
  explicit ContainerEnd(CHandlerReader& reader) : reader_(reader) {}
  ~ContainerEnd() {
    if (reader_.container != nullptr) *reader_.container = {};
  }
  ContainerEnd(const ContainerEnd&) = delete;
  ContainerEnd& operator=(const ContainerEnd&) = delete;

 private:
  CHandlerReader& reader_;
};

bool passesTests(CHandlerReader& reader, const _svg_ta& tests, bool* tested) {
  if (tested == nullptr) return true;
  *tested = reader._evaluateTestAtt(tests) != 0;
  return *tested;
}

}  // namespace

int Delivery::call(Envelope& envelope) {
  const int type = envelope.object()->type;
  const int result = record_->callback(envelope.object());
  if (result == kGoOn) return result;
  if (result == kStopQuietly) reader_.state.stopped = true;
  reportElement(reader_, Diagnostic::kStoppedByHost, type, RMM_SITE);
  return result;
}

int Delivery::send(Envelope& envelope) {
  if (reader_.state.referenceDepth > 0) ++reader_.state.referencedObjects;
  return call(envelope);
}

int Delivery::sendParsed(const LeafKind& kind, _svg_common* parent, bool* tested, Broken broken) {
  Envelope envelope(reader_, record_->owner, kind.tag, kind.size, kind.tag);
  if (!envelope.isReady()) return kStopQuietly;
  void* const record = envelope.payload<char>();
  kind.init(record);
  envelope.fill();
  const bool isWhole = kind.parse(reader_, record, parent) == kOk;
  if (reader_.state.outOfMemory || (!isWhole && broken == Broken::kDropped)) return kStopQuietly;
  kind.checkStroke(record);
  if (!passesTests(reader_, kind.tests(record), tested)) return kGoOn;
  const int result = send(envelope);
  return isWhole || result != kGoOn ? result : int{kStopQuietly};
}

int Delivery::sendLeaf(const LeafKind& kind, _svg_common* parent) {
  return sendParsed(kind, parent, nullptr, Broken::kDropped);
}

int Delivery::sendIfPassing(const LeafKind& kind, _svg_common* parent, bool& passes) {
  return sendParsed(kind, parent, &passes, Broken::kDropped);
}

int Delivery::sendEvenBroken(const LeafKind& kind, _svg_common* parent) {
  return sendParsed(kind, parent, nullptr, Broken::kSent);
}

int Delivery::sendSvg(const _svg_svg& svg) {
  Envelope envelope(reader_, record_->owner, kTagSvg, kSvgSize, kTagNone);
  if (!envelope.isReady()) return kStopQuietly;
  *envelope.payload<_svg_svg>() = svg;
  return send(envelope);
}

int Delivery::sendGroup() {
  Envelope envelope(reader_, record_->owner, kTagGroup, sizeof(_svg_group), kTagNone);
  if (!envelope.isReady()) return kStopQuietly;
  initGroupObj(envelope.payload<_svg_group>());
  return send(envelope);
}

int Delivery::sendMarkup(Owned<_svg_group> group) {
  _svg_common* const parent = group->head.parent;
  reader_._setContainerElem(&reader_.container, &group->head, group->head.type);
  const int result = reader_.EnumerateMarkupData(record_, group.get());
  reader_._setContainerElem(&reader_.container, parent, -1);
  return result;
}

int Delivery::sendLink(_svg_common* parent, bool* tested) {
  Envelope envelope(reader_, record_->owner, kTagLink, sizeof(_svg_a), kTagLink);
  if (!envelope.isReady()) return kStopQuietly;
  auto* link = envelope.payload<_svg_a>();
  initA(link);
  envelope.fill();
  const ContainerEnd end(reader_);
  const bool parsed = reader_.ParseATagData(parent, &link, file_) != nullptr;
  if (!parsed || reader_.state.outOfMemory) return kStopQuietly;
  return passesTests(reader_, link->ta, tested) ? send(envelope) : int{kGoOn};
}

int Delivery::sendCloser(int type) {
  const std::size_t size = type == kTagEndSvg ? sizeof(_svg_svg) : sizeof(_svg_group);
  Envelope envelope(reader_, record_->owner, type, size, kTagNone);
  if (!envelope.isReady()) return kStopQuietly;
  std::memset(envelope.payload<char>(), 0, size);
  return call(envelope);
}

int Delivery::drawTarget(_svg_group& use) {
  _svg_localref* const found = reader_.localRefs.find(use.link.value);
  if (found == nullptr || found->tagType == kTagNone) {
    report(reader_, Diagnostic::kUnresolvedReference, use.link.value, RMM_SITE);
  }
  use.link.reference = found;
  use.link.returnIndex = reader_.buffer.getFileIndex();
  freeAll(use.link.value);
  return found == nullptr ? int{kOk} : reader_.EnumerateLocalRefData(record_, &use, file_);
}

bool isTagClosed(CHandlerReader& reader, int index) {
  return reader.isSVGTagClosed(index, reader.buffer.getFileIndex()) != 0;
}

void passTo(CHandlerReader& reader, int closer) {
  for (int tag = kTagNone; tag != closer && tag != kTagEnd;) tag = reader.GetNextTag(nullptr);
}

int nestedResult(int keepGoing) {
  return keepGoing == kGoOn || keepGoing == kStopQuietly ? int{kOk} : keepGoing;
}

}  // namespace egfsvg
