// Where the targets of references lie: names in the first pass, places when they are met.
#include <cstring>

#include "frame/result_codes.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/reference_key.h"
#include "reader/release.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

/// The entry of the element with that id, or null.
_svg_localref* entryOf(CHandlerReader& reader, const char* id) {
  const ReferenceKey key(id);
  return key.text() == nullptr ? nullptr : reader.localRefs.find(key.text(), key.length());
}

/// Enters a name that is not there yet. Without memory it is left out.
void enterName(CHandlerReader& reader, const char* name) {
  Owned<_svg_localref> entry(allocateZeroed<_svg_localref>(RMM_SITE));
  if (entry == nullptr) return;
  entry->refCount = 1;
  char* key = duplicateText(name, RMM_SITE);
  bool stored = false;
  reader.localRefs.insert(key, entry.get(), &stored);
  if (!stored) return freeAll(key);
  entry.release();
  ++reader.localRefCount;
}

/// Tags that a `use` can draw.
bool isDrawable(int tag) {
  return (tag >= kTagPath && tag <= kTagGroup) || tag == kTagSvg || tag == kTagImage ||
         tag == kTagUse || tag == kTagSymbol;
}

}  // namespace

/// First pass, at each `use` and `tref`.
int CHandlerReader::CreateLocalRefTable(int) {
  if (hasAttributes == 0) return kOk;
  readAttributesQuietly(*this, [this](int code, const _svg_attrib_pair* pair) {
    if (code != kAttXlinkHref) return;
    if (_svg_localref* entry = localRefs.find(pair->value)) {
      ++entry->refCount;
    } else {
      enterName(*this, pair->value);
    }
  });
  return kOk;
}

/// At an element that may be a target, with its attributes still to be read.
int CHandlerReader::UpdateLocalRefTable(int tag, int index) {
  if (hasAttributes == 0) return kOk;
  readAttributesQuietly(*this, [this, tag, index](int code, const _svg_attrib_pair* pair) {
    if (code != kAttId) return;
    _svg_localref* entry = entryOf(*this, pair->value);
    if (entry == nullptr) return;
    entry->fileIndex = index;
    entry->tagType = tag;
  });
  return kOk;
}

/// Walks the source once more for targets that stand anywhere in it. Of several elements with one
/// id the first counts.
void CHandlerReader::locateTargetsAnywhere() {
  buffer.resetBuffer();
  int index = 0;
  for (int tag = GetNextTag(&index); tag != kTagEnd; tag = GetNextTag(&index)) {
    if (tag == kTagComment) FindCommentEnd();
    if (!isDrawable(tag) || hasAttributes == 0) continue;
    readAttributesQuietly(*this, [this, tag, index](int code, const _svg_attrib_pair* pair) {
      if (code != kAttId) return;
      _svg_localref* entry = entryOf(*this, pair->value);
      if (entry == nullptr || entry->tagType != kTagNone) return;
      entry->fileIndex = index;
      entry->tagType = tag;
    });
  }
}
