// The attributes of a tag kept as a chain, for replay.
#include <cstring>
#include <memory>

#include "frame/result_codes.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/attribute_loop.h"
#include "reader/reference_key.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

struct ChainReleaser {
  void operator()(AttNode* chain) const { DestroyAttElements(chain); }
};
using Chain = std::unique_ptr<AttNode, ChainReleaser>;

/// Null without memory.
AttNode* newNode(int code, const _svg_attrib_pair& pair) {
  Chain node(allocateZeroed<AttNode>(RMM_SITE));
  if (node == nullptr) return nullptr;
  const std::size_t length = std::strlen(pair.value);
  node->code = code;
  std::memcpy(node->name, pair.name, sizeof node->name);
  node->value = duplicateText(pair.value, length, RMM_SITE);
  node->valueLength = static_cast<std::int32_t>(length + 1);
  return node->value == nullptr ? nullptr : node.release();
}

}  // namespace

/// `list` gets the chain, null for a tag without attributes; `idRef` "#" and the id, when there is
/// one. Both are the caller's. Without memory the chain ends early, and the reader knows.
int CHandlerReader::CreateAttribList(AttNode** list, char** idRef) {
  Chain chain;
  AttNode* last = nullptr;
  readAttributesQuietly(*this, [&](int code, const _svg_attrib_pair* pair) {
    AttNode* node = state.outOfMemory ? nullptr : newNode(code, *pair);
    if (node == nullptr) {
      state.outOfMemory = true;
      return;
    }
    if (last == nullptr) {
      chain.reset(node);
    } else {
      last->next = node;
    }
    last = node;
    if (code != kAttId) return;
    const ReferenceKey key(pair->value);
    freeAll(*idRef);
    *idRef = duplicateText(key.text(), RMM_SITE);
  });
  *list = chain.release();
  return kOk;
}
