// The second pass: walks the tags and hands out each finished element. Between two callbacks only
// the chain of open containers stays in memory.
#include <cstring>
#include <string_view>

#include "frame/result_codes.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/delivery.h"
#include "reader/plain_attributes.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"
#include "reader/tag_table.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr char kPageMarker[] = "Page_";
constexpr std::size_t kPageNumberAt = sizeof kPageMarker - 1;  // in "Page 1" and in "Page_1"

/// The five that need no declaration; they stand for characters, which are nothing here.
bool isPredefinedEntity(const char* name) {
  for (const char* known : {"lt", "gt", "amp", "quot", "apos"}) {
    if (std::strcmp(name, known) == 0) return true;
  }
  return false;
}

/// One read of a source.
class Enumeration {
 public:
  Enumeration(CHandlerReader& reader, _handlerEnumData* record, QV_FILEID* file)
      : reader_(reader),
        delivery_(reader, record, file),
        pageNumber_(saturatingInteger(record->pageName + kPageNumberAt)) {}
  ~Enumeration() { freeAll(entityName_); }
  Enumeration(const Enumeration&) = delete;
  Enumeration& operator=(const Enumeration&) = delete;

  /// From the first tag to the last: kOk, kNothingToRead, kOutOfMemory, or what a callback
  /// returned. `finished` says that the read has come to its end, not to an abrupt one.
  int run(bool& finished);

 private:
  using Work = void (*)(Enumeration&);
  template <void (Enumeration::*Step)()>
  static void does(Enumeration& self) {
    (self.*Step)();
  }
  static const TagTable<Work>& works();

  void openSvg();
  void leaf() { keepGoing_ = delivery_.sendLeaf(*leafKind(tag_), parent_); }
  void group();
  void define() { reader_.EnumerateTemplateData(parent_, tagIndex_, tag_); }
  void link() { keepGoing_ = delivery_.sendLink(parent_); }
  void comment();
  void use();
  void passClipPath();
  void entityReference();
  void choose();
  void closeSvg();
  void closeGroup();

  void nextTag();
  bool standsOnOtherPage();
  void skipPage();
  void openGroup();
  bool goUp();
  void restoreViewport();
  void takeNested(int result);
  void reportEnd();

  CHandlerReader& reader_;
  Delivery delivery_;
  const std::int32_t pageNumber_;
  int keepGoing_ = kGoOn;
  int tag_ = kTagEnd;
  int tagIndex_ = 0;
  bool tagIsGiven_ = false;  // the work of a tag has given the next one
  char* entityName_ = nullptr;
  _svg_common* parent_ = nullptr;  // top of the chain of open containers
  int svgDepth_ = 0;
};

const TagTable<Enumeration::Work>& Enumeration::works() {
  using Self = Enumeration;
  static constexpr TagRow<Work> kRows[] = {
      {kTagSvg, does<&Self::openSvg>},
      {kTagPath, does<&Self::leaf>},
      {kTagRect, does<&Self::leaf>},
      {kTagCircle, does<&Self::leaf>},
      {kTagEllipse, does<&Self::leaf>},
      {kTagLine, does<&Self::leaf>},
      {kTagPolyline, does<&Self::leaf>},
      {kTagPolygon, does<&Self::leaf>},
      {kTagImage, does<&Self::leaf>},
      {kTagGroup, does<&Self::group>},
      {kTagDefs, does<&Self::define>},
      {kTagEntity, does<&Self::define>},
      {kTagSymbol, does<&Self::define>},
      {kTagMarker, does<&Self::define>},
      {kTagPattern, does<&Self::define>},
      {kTagLink, does<&Self::link>},
      {kTagComment, does<&Self::comment>},
      {kTagUse, does<&Self::use>},
      {kTagClipPath, does<&Self::passClipPath>},
      {kTagEntityReference, does<&Self::entityReference>},
      {kTagSwitch, does<&Self::choose>},
      {kTagEndSvg, does<&Self::closeSvg>},
      {kTagEndGroup, does<&Self::closeGroup>},
  };
  static constexpr TagTable<Work> kTable(kRows);
  return kTable;
}

int Enumeration::run(bool& finished) {
  finished = false;
  tag_ = reader_.GetNextTag(&tagIndex_);
  if (tag_ == kTagEnd) return kNothingToRead;
  do {
    tagIsGiven_ = false;
    if (const Work work = works().find(tag_)) work(*this);
    if (!tagIsGiven_) nextTag();
    if (reader_.state.outOfMemory) return kOutOfMemory;
    ++reader_.secondPassTags;
  } while (keepGoing_ == kGoOn && tag_ != kTagEnd);
  reportEnd();
  finished = true;
  return nestedResult(keepGoing_);
}

void Enumeration::nextTag() {
  freeAll(entityName_);
  tag_ = reader_.takeTagOrReference(&tagIndex_, &entityName_);
}

void Enumeration::reportEnd() {
  if (keepGoing_ != kGoOn || parent_ == nullptr) return;
  reportElement(reader_, Diagnostic::kSourceEnds, parent_->type, RMM_SITE);
}

/// Of an enumeration inside this one, which gives kOk on plain success.
void Enumeration::takeNested(int result) {
  if (result != kOk) keepGoing_ = result;
  if (reader_.state.stopped) keepGoing_ = kStopQuietly;
}

void Enumeration::openSvg() {
  _svg_svg* svg = nullptr;
  _svg_common* opened = reader_.ParseSVGTagData(parent_, &svg, 0);
  if (opened == nullptr) {
    keepGoing_ = kStopQuietly;
    return;
  }
  parent_ = opened;
  ++svgDepth_;
  keepGoing_ = delivery_.sendSvg(*svg);
}

bool holdsMarker(const char* first, const char* end) {
  if (findByte(first, end, kPageMarker[0]) == end) return false;
  const std::string_view text(first, static_cast<std::size_t>(end - first));
  return text.find(kPageMarker) != text.npos;
}

/// True when the attributes of the group at hand are plain and no id among them names a page.
/// Nothing is taken.
bool namesNoPage(CHandlerReader& reader) {
  const cBuffer& source = reader.buffer;
  if (source.block == nullptr) return false;
  const char* at = source.unread();
  GuessedWalk walk(reader.state.guesses, kTagGroup);
  PlainAttribute found;
  for (;; at = found.next) {
    for (; walk.scan(at); at = walk.quote() + 1) {
      if (walk.code() == kAttId && holdsMarker(walk.value(), walk.quote())) return false;
    }
    const int code = scanPlain(at, source.unreadEnd(), found);
    if (code == kAttNoMore) return true;
    if (code == kAttOdd) return false;
    if (code == kAttId && holdsMarker(found.value, found.value + found.valueLength)) return false;
  }
}

/// A page is told by an id that holds the marker.
bool Enumeration::standsOnOtherPage() {
  if (reader_.hasAttributes == 0 || namesNoPage(reader_)) return false;
  bool isOther = false;
  readAttributesQuietly(reader_, [&](int code, const _svg_attrib_pair* pair) {
    if (code != kAttId || std::strstr(pair->value, kPageMarker) == nullptr) return;
    // Kept: the number is read at one place of the value, wherever the marker stands in it.
    isOther |= saturatingInteger(pair->value + kPageNumberAt) != pageNumber_;
  });
  return isOther;
}

void Enumeration::group() {
  const std::int32_t attributes = reader_.buffer.getFileIndex();
  if (standsOnOtherPage()) return skipPage();
  if (reader_.buffer.getFileIndex() != attributes) reader_.buffer.setFileIndex(attributes);
  openGroup();
}

/// Passes over another page. What its defs name is taken in all the same.
void Enumeration::skipPage() {
  for (int depth = 1; depth > 0;) {
    int index = 0;
    const int tag = reader_.GetNextTag(&index);
    if (tag == kTagEnd) return;
    if (tag == kTagDefs) reader_.EnumerateDefTagData(parent_, index);
    if (tag == kTagGroup) ++depth;
    if (tag == kTagEndGroup) --depth;
  }
}

void Enumeration::openGroup() {
  _svg_group* record = nullptr;
  _svg_common* opened = reader_.ParseGroupTagData(parent_, &record, 0);
  if (opened == nullptr) {
    keepGoing_ = kStopQuietly;
  } else if (opened->type != kTagGroup) {
    keepGoing_ = delivery_.sendMarkup(Owned<_svg_group>(record));
  } else {
    parent_ = opened;
    keepGoing_ = delivery_.sendGroup();
    if (!isTagClosed(reader_, tagIndex_)) return;
    tag_ = kTagEndGroup;
    tagIsGiven_ = true;
  }
}

void Enumeration::comment() {
  if (reader_.FindCommentEnd() == 0) return;
  keepGoing_ = kStopQuietly;
  reportElement(reader_, Diagnostic::kSyntaxError, kTagComment, RMM_SITE);
}

void Enumeration::use() {
  _svg_group* record = nullptr;
  if (reader_.ParseGroupTagData(parent_, &record, 1) == nullptr) {
    keepGoing_ = kStopQuietly;
    return;
  }
  takeNested(delivery_.drawTarget(*record));
  reader_.closeContainer(&record->head);
}

/// An entity reference ends the look for the closer and is the next tag.
void Enumeration::passClipPath() {
  reportElement(reader_, Diagnostic::kUnsupportedFeature, tag_, RMM_SITE);
  do {
    nextTag();
    tagIsGiven_ = tag_ == kTagEntityReference || tag_ == kTagEnd;
  } while (!tagIsGiven_ && tag_ != kTagEndClipPath && tag_ != kTagEndSvg);
}

void Enumeration::entityReference() {
  _svg_localref* found = reader_.localRefs.find(entityName_);
  if (found != nullptr) {
    takeNested(reader_.EnumeratePtrData(delivery_.record(), parent_, found));
  } else if (!isPredefinedEntity(entityName_)) {
    report(reader_, Diagnostic::kUnresolvedEntity, entityName_, RMM_SITE);
  }
}

void Enumeration::choose() {
  _svg_switch* record = nullptr;
  _svg_common* const opened = reader_.ParseSwitchTagData(parent_, &record);
  if (record == nullptr) return;
  takeNested(reader_.EnumerateSwitchTagData(delivery_.record(), opened, delivery_.file()));
}

/// False, and the end, when nothing is open.
bool Enumeration::goUp() {
  if (parent_ == nullptr) {
    keepGoing_ = kStopQuietly;
    reportElement(reader_, Diagnostic::kSyntaxError, tag_, RMM_SITE);
    return false;
  }
  parent_ = reader_.closeContainer(parent_);
  return true;
}

void Enumeration::closeSvg() {
  if (!goUp()) return;
  --svgDepth_;
  keepGoing_ = delivery_.sendCloser(kTagEndSvg);
  if (svgDepth_ > 0) restoreViewport();
}

/// Kept: the record at that depth is looked up, which is no ancestor when siblings came before.
void Enumeration::restoreViewport() {
  const _svg_svg* outer = reader_.svgs.at(svgDepth_ - 1);
  if (outer == nullptr) return;
  reader_.xmlSpace = outer->xmlSpace;
  reader_.viewportWidth = outer->width.value;
  reader_.viewportHeight = outer->height.value;
}

void Enumeration::closeGroup() {
  if (goUp()) keepGoing_ = delivery_.sendCloser(kTagEndGroup);
}

}  // namespace

/// What an earlier read has left is released; limits and settings are taken from the host.
void CHandlerReader::beginRead() {
  destroyTables();
  if (container != nullptr) *container = {};
  state.beginRead();
}

void CHandlerReader::endRead() {
  destroyTables();
  if (container != nullptr) *container = {};
  state.reporting = false;
  FinishGasGauge();
}

int CHandlerReader::EnumerateData(_handlerEnumData* record, QV_FILEID* file) {
  beginRead();
  const bool opened = buffer.setFileHandle(record->source) == 0;
  // Without a block nothing could be told from an empty source.
  if (opened && buffer.block == nullptr) return kOutOfMemory;
  StartGasGauge(record->source, file == nullptr ? nullptr : file->baseName);
  ParseStyleSheetsAndReferences();
  pass = 2;
  state.beginSecondPass();
  buffer.resetBuffer();
  bool finished = false;
  const int result = Enumeration(*this, record, file).run(finished);
  if (finished) endRead();
  return result;
}
