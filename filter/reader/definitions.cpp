// Elements that define without drawing: passed over, after what can be pointed at is recorded.
#include <cstring>

#include "frame/result_codes.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/delivery.h"
#include "reader/release.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr std::size_t kEntityNameSize = 256;
constexpr int kEntityOpenerLength = 8;  // "<!ENTITY"

/// Past an element that may close itself: the stretch up to the next tag tells.
void passUnlessClosed(CHandlerReader& reader, int index, int closer) {
  int next = 0;
  if (reader.GetNextTag(&next) == kTagEnd) next = reader.buffer.getFileIndex();
  reader.buffer.setFileIndex(index);
  if (reader.isSVGTagClosed(index, next) == 0) passTo(reader, closer);
}

/// Tags that may stand in a drawing that an entity holds.
bool isEntityDrawing(int tag) {
  switch (tag) {
    case kTagImage:
    case kTagTspan:
    case kTagTref:
    case kTagAltGlyph:
    case kTagTextPath:
    case kTagMarker:
    case kTagClipPath:
    case kTagLinearGradient:
    case kTagRadialGradient:
    case kTagStop:
    case kTagPattern:
    case kTagEndGroup:
    case kTagEndText:
    case kTagEndTspan:
    case kTagEndTextPath:
    case kTagEndAltGlyph:
      return true;
    default:
      return (tag >= kTagPath && tag <= kTagGroup) ||
             (tag >= kTagEndMarker && tag <= kTagEndPattern);
  }
}

/// The declaration between its opener and its first tag, without quotes and white space.
void readEntityName(CHandlerReader& reader, int first, int last, char (&name)[kEntityNameSize]) {
  const long back = reader.buffer.setFileIndex(first);
  std::size_t length = 0;
  for (int left = last - first; left > 0; --left) {
    const int byte = reader.buffer.nextByte();
    if (byte == cBuffer::kSourceEnd) break;
    const char c = static_cast<char>(byte);
    if (c == '"' || c == '\'' || isWhite(c)) continue;
    if (length < kEntityNameSize - 1) name[length++] = c;
  }
  name[length] = '\0';
  reader.buffer.setFileIndex(back);
}

/// Enters the drawing that the declaration at `index` holds, whose first tag stands at `tagIndex`.
void enterEntity(CHandlerReader& reader, int index, int tagIndex) {
  char name[kEntityNameSize];
  readEntityName(reader, index + kEntityOpenerLength, tagIndex, name);
  if (name[0] == '\0') return;
  Owned<_svg_localref> entry(allocateZeroed<_svg_localref>(RMM_SITE));
  char* key = entry == nullptr ? nullptr : duplicateText(name, RMM_SITE);
  if (key == nullptr) {
    reader.state.outOfMemory = true;
    return;
  }
  entry->fileIndex = index;
  entry->tagType = kTagEntity;
  entry->refCount = 1;
  bool stored = false;
  const Owned<_svg_localref> former(reader.localRefs.insert(key, entry.get(), &stored));
  if (stored) {
    entry.release();
  } else {
    freeAll(key);
    reader.state.outOfMemory = true;
  }
}

/// Past the drawing of an entity, which is not drawn where it is declared.
void passEntity(CHandlerReader& reader, int index) {
  int last = kTagEntity;
  for (;;) {
    int tagIndex = 0;
    const int tag = reader.GetNextTag(&tagIndex);
    if (tag == kTagComment) {
      reader.FindCommentEnd();
      continue;
    }
    if (tag == kTagSvg || tag == kTagEntity) reader.buffer.setFileIndex(tagIndex);
    if (!isEntityDrawing(tag)) return;
    if (last == kTagEntity) enterEntity(reader, index, tagIndex);
    last = tag;
  }
}

}  // namespace

int CHandlerReader::EnumerateTemplateData(_svg_common* parent, int index, int tag) {
  switch (tag) {
    case kTagDefs:
      EnumerateDefTagData(parent, index);
      break;
    case kTagSymbol:
      UpdateLocalRefTable(tag, index);
      passTo(*this, kTagEndSymbol);
      break;
    case kTagMarker:
      reportElement(*this, Diagnostic::kUnsupportedFeature, tag, RMM_SITE);
      passUnlessClosed(*this, index, kTagEndMarker);
      break;
    case kTagPattern:
      reportElement(*this, Diagnostic::kUnsupportedFeature, tag, RMM_SITE);
      passUnlessClosed(*this, index, kTagEndPattern);
      break;
    case kTagEntity:
      passEntity(*this, index);
      break;
    default:
      break;
  }
  return kOk;
}
