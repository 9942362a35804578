// Gradient definitions, read whole in the first pass: the record, its stops, the stops of a linked
// gradient, and fractions of the bounding box.

#include <cstring>
#include <memory>

#include "host/memory.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/reader_state.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {
namespace {

void releaseGradient(_svg_gradient* gradient) {
  if (gradient == nullptr) return;
  DestroyCommonElements(&gradient->head);
  DestroyGraphicsElements(&gradient->graphics);
  DestroyGrElements(gradient);
  RMM_Free(gradient);
}

void releaseStop(_svg_stop* stop) {
  DestroyCommonElements(&stop->head);
  DestroyGraphicsElements(&stop->graphics);
}

/// Own a gradient, and what a stop holds, while they are read: a host whose file fails may throw.
struct GradientRelease {
  void operator()(_svg_gradient* gradient) const { releaseGradient(gradient); }
};
using GradientOwner = std::unique_ptr<_svg_gradient, GradientRelease>;
struct StopRelease {
  void operator()(_svg_stop* stop) const { releaseStop(stop); }
};
using StopOwner = std::unique_ptr<_svg_stop, StopRelease>;

/// "#" and the id, or null. The caller owns it.
char* gradientKey(const char* id) {
  if (id == nullptr) return nullptr;
  const std::size_t length = std::strlen(id);
  char* key = allocateArray<char>(length + 2, RMM_SITE);
  if (key == nullptr) return nullptr;
  key[0] = '#';
  std::memcpy(key + 1, id, length + 1);
  return key;
}

/// Enters a complete gradient under its id, in place of an earlier one that nothing points at yet.
void enterGradient(Map<_svg_gradient>& table, _svg_gradient* gradient) {
  char* key = gradientKey(gradient->head.id);
  bool stored = false;
  releaseGradient(table.insert(key, gradient, &stored));
  if (!stored) freeAll(key);
}

/// Whether the table holds the record. Without memory for its key the entries are walked.
bool isEntered(const Map<_svg_gradient>& table, const _svg_gradient* gradient) {
  if (gradient->head.id == nullptr) return false;
  char* key = gradientKey(gradient->head.id);
  if (key != nullptr) {
    const bool entered = table.find(key) == gradient;
    freeAll(key);
    return entered;
  }
  for (std::int32_t i = 0; i < table.count; ++i) {
    if (table.entries[i].value == gradient) return true;
  }
  return false;
}

/// A percentage becomes a fraction; any other number is one already.
void asFraction(_svg_value& value) {
  if (value.unit == kUnitPercent) value.value /= 100.0;
  value.unit = kUnitBoundingBox;
}

/// The slots of a kind: a radial gradient has one more.
void asFractions(_svg_gradient* gradient) {
  auto& slots = gradient->parms.slots;
  for (_svg_value* value : {&slots.g0, &slots.g1, &slots.g2, &slots.g3}) asFraction(*value);
  if (gradient->head.type == kTagRadialGradient) asFraction(slots.g4);
}

/// Copies the texts that a copied stop shares with its source. False when memory ran out; the stop
/// then shares nothing any more.
bool ownTexts(_svg_stop* stop) {
  const _svg_stop source = *stop;
  stop->head.id = stop->head.desc = stop->head.styleRef = nullptr;
  stop->head.classNames = nullptr;
  stop->head.classCount = 0;
  stop->head.transforms = nullptr;
  stop->head.transformCount = 0;
  stop->graphics.clipPath = stop->graphics.cursor = nullptr;
  stop->graphics.filter = stop->graphics.mask = nullptr;
  stop->head.id = duplicateText(source.head.id, RMM_SITE);
  stop->graphics.cursor = duplicateText(source.graphics.cursor, RMM_SITE);
  return (stop->head.id != nullptr || source.head.id == nullptr) &&
         (stop->graphics.cursor != nullptr || source.graphics.cursor == nullptr);
}

}  // namespace
}  // namespace egfsvg

_svg_gradient* CHandlerReader::ParseGradientTagData(_svg_common* parent, _svg_gradient** out,
                                                    int type) {
  using namespace egfsvg;
  GradientOwner owner(allocateRecord<_svg_gradient>(RMM_SITE));
  _svg_gradient* const gradient = owner.get();
  if (gradient == nullptr) return nullptr;
  initGradientObj(gradient);
  type == kTagRadialGradient ? initRadialGrad(gradient) : initLinearGrad(gradient);
  gradient->head.parent = parent;
  gradient->head.type = type;
  InheritStyleAndTransform(gradient, type);
  SetStyleBasedOnTypeSelector(gradient, type);
  if (readGradientAttributes(gradient) != 0) return nullptr;
  (void)owner.release();
  // Entered once it is complete, so that the table never holds a record that is given up.
  if (gradient->head.id != nullptr) enterGradient(gradients, gradient);
  // Changes its transform list in place, so it goes before any stop takes the list over.
  if (gradient->gradientUnits == kGradientBoundingBox) SetBoundingBoxUnits(gradient);
  if (out != nullptr) *out = gradient;
  return gradient;
}

int CHandlerReader::readGradientAttributes(_svg_gradient* gradient) {
  using namespace egfsvg;
  if (hasAttributes == 0) return 0;
  ScratchPair scratch(state);
  if (!scratch.hasValue()) return -1;
  for (;;) {
    scratch.clear();
    const int code = GetNextAttribPair(&scratch.pair);
    if (code == kAttSyntaxError) return -1;
    if (code == kAttNoMore) return 0;
    SetGradientObjAttribute(gradient, code, &scratch.pair);
  }
}

/// A whole element with its stops. A gradient that nobody can name is freed again.
int CHandlerReader::ParseGradients(_svg_common* parent, int type) {
  using namespace egfsvg;
  const int start = buffer.getFileIndex();
  _svg_gradient* gradient = ParseGradientTagData(parent, nullptr, type);
  if (gradient == nullptr) return 0;
  const GradientOwner nameless(isEntered(gradients, gradient) ? nullptr : gradient);
  const int end = buffer.getFileIndex();
  if (isSVGTagClosed(start, end) == 0) readStops(gradient);
  SetLinkedStopTags(gradient);
  return 0;
}

void CHandlerReader::readStops(_svg_gradient* gradient) {
  using namespace egfsvg;
  for (int tag = GetNextTag(nullptr);
       tag != kTagEnd && tag != kTagEndLinearGradient && tag != kTagEndRadialGradient;
       tag = GetNextTag(nullptr)) {
    if (tag != kTagStop) continue;
    _svg_stop stop;
    initStopObj(&stop);
    StopOwner owner(&stop);
    // A malformed stop counts as far as it was read.
    ParseStopTagData(&stop, &gradient->head);
    if (AddStopTagToParent(gradient, &stop) != 0) return;
    (void)owner.release();
  }
}

/// The stop's texts belong to the array from then on.
int CHandlerReader::AddStopTagToParent(_svg_gradient* gradient, _svg_stop* stop) {
  void* grown = RMM_ReAllocName(gradient->stops, static_cast<std::size_t>(gradient->stopCount) + 1,
                                sizeof(_svg_stop), RMM_SITE);
  if (grown == nullptr) return -1;
  gradient->stops = static_cast<_svg_stop*>(grown);
  gradient->stops[gradient->stopCount++] = *stop;
  return 0;
}

/// Only stops are taken over, and only from a gradient that stands earlier in the source.
int CHandlerReader::SetLinkedStopTags(_svg_gradient* gradient) {
  using namespace egfsvg;
  if (gradient->stopCount > 0 || gradient->link.value == nullptr) return 0;
  const _svg_gradient* target = gradients.find(gradient->link.value);
  if (target == nullptr) return -1;
  if (target->stopCount == 0) return 0;
  auto* stops = allocateArray<_svg_stop>(static_cast<std::size_t>(target->stopCount), RMM_SITE);
  if (stops == nullptr) return -1;
  gradient->stops = stops;
  for (std::int32_t i = 0; i < target->stopCount; ++i) {
    stops[i] = target->stops[i];
    stops[i].head.parent = &gradient->head;  // the target may be replaced by one of the same id
    gradient->stopCount = i + 1;
    if (!ownTexts(&stops[i])) return -1;
  }
  return 0;
}

/// Kept: of a translation the first argument alone becomes a fraction.
void CHandlerReader::SetBoundingBoxUnits(_svg_gradient* gradient) {
  egfsvg::asFractions(gradient);
  for (std::int32_t i = 0; i < gradient->head.transformCount; ++i) {
    const transformEntry& entry = gradient->head.transforms[i];
    if (entry.kind == egfsvg::kTranslate) entry.args[0].unit = egfsvg::kUnitBoundingBox;
  }
}
