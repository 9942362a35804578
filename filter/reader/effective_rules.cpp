#include "reader/effective_rules.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "model/characters.h"
#include "model/codes.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"
#include "reader/paints.h"
#include "reader/presentation_table.h"

namespace egfsvg {

namespace {

/// Fields of a record as bits: one for each presentation code, and the references of the paints.
using Fields = std::uint64_t;

constexpr Fields fieldOf(std::int32_t code) { return Fields{1} << (code - kFirstPresentation); }
constexpr Fields kFillReference = fieldOf(kLastPresentation + 1);
constexpr Fields kStrokeReference = fieldOf(kLastPresentation + 2);

/// What one declaration does to which fields.
struct Effect {
  Fields sets = 0;     // whatever stood there
  Fields asks = 0;     // takes them over from the parent, if that has them
  Fields gathers = 0;  // adds to what stood there
  Fields reads = 0;    // to set the others
};

Fields colourRead(const char* value) {
  return equalsNoCase(value, "currentcolor") ? fieldOf(kAttColor) : 0;
}

/// A paint that is found makes a fill of opacity 0 opaque. That is left out here: whatever hides
/// such a paint does so too, or sets the opacity. One that is not found hides the fill as "none".
Effect fillEffect(const char* value, const Map<_svg_gradient>& gradients) {
  const Fields none = kFillReference | fieldOf(kAttFillOpacity);
  if (equalsNoCase(value, "none")) return {.sets = none};
  if (!isReference(value)) {
    return {.sets = kFillReference | fieldOf(kAttFill), .reads = colourRead(value)};
  }
  return {.sets = referencedGradient(gradients, value) == nullptr ? none : kFillReference};
}

Effect strokeEffect(const char* value) {
  if (isReference(value)) return {.sets = kStrokeReference};
  return {.sets = kStrokeReference | fieldOf(kAttStroke), .reads = colourRead(value)};
}

/// One length alone, and "none", are passed over.
Effect dashEffect(const char* value) {
  constexpr std::string_view kNone = "none";
  const std::size_t length = std::strlen(value);
  const bool many = std::strpbrk(value, ", ") != nullptr;
  const bool none = length >= kNone.size() && equalsNoCase(value, kNone.size(), kNone.data());
  return many && !none ? Effect{.sets = fieldOf(kAttStrokeDasharray)} : Effect{};
}

/// Limits of 1 or less are passed over.
Effect miterEffect(const char* value) {
  const bool limits = isDigit(value[0]) && saturatingInteger(value) > 1;
  return limits ? Effect{.sets = fieldOf(kAttStrokeMiterlimit)} : Effect{};
}

/// An unknown word goes to another field than a known one.
Effect imageRenderingEffect(const char* value) {
  const bool known = equalsNoCase(value, "auto") || equalsNoCase(value, "optimizespeed") ||
                     equalsNoCase(value, "optimizequality");
  return {.sets = fieldOf(known ? kAttImageRendering : kAttColorRendering)};
}

Effect inheritEffect(std::int32_t code) {
  const bool asks = inheritWordOf(code) == InheritWord::kAsksTheParent;
  return asks ? Effect{.asks = fieldOf(code)} : Effect{};
}

Effect effectOf(const AttNode& node, const Map<_svg_gradient>& gradients) {
  const std::int32_t code = node.code;
  const bool number = inheritWordOf(code) == InheritWord::kIsANumber;
  if (!number && equalsNoCase(node.value, "inherit")) return inheritEffect(code);
  switch (code) {
    case kAttFont:
    case kAttMarker:
    case kAttClip:
    case kAttFilter:
    case kAttEnableBackground:
      return {};
    case kAttFill:
      return fillEffect(node.value, gradients);
    case kAttStroke:
      return strokeEffect(node.value);
    case kAttStrokeDasharray:
      return dashEffect(node.value);
    case kAttStrokeMiterlimit:
      return miterEffect(node.value);
    case kAttImageRendering:
      return imageRenderingEffect(node.value);
    case kAttBaselineShift:
      return {.gathers = fieldOf(code)};
    default:
      return {.sets = fieldOf(code)};
  }
}

/// Is told the declarations of a rule from the last to the first.
class Observer {
 public:
  /// Whether the declaration matters, given those behind it. One that does not is forgotten.
  bool sees(const Effect& effect) {
    const Fields changed = effect.sets | (effect.asks & ~asked_) | effect.gathers;
    if ((changed & open_) == 0) return false;
    open_ = (open_ & ~effect.sets) | effect.reads;
    asked_ |= effect.asks;
    return true;
  }

 private:
  Fields open_ = ~Fields{0};  // what stands in them by now is seen
  Fields asked_ = 0;          // will be asked of the parent, so that asking before makes no odds
};

}  // namespace

AttNode** effectiveDeclarations(AttNode* chain, const Map<_svg_gradient>& gradients) {
  GrowingArray<AttNode*> nodes(RMM_SITE);
  for (AttNode* node = chain; node != nullptr; node = node->next) {
    if (!isPresentation(node->code) || !nodes.push(node)) return nullptr;
  }
  if (!nodes.push(nullptr)) return nullptr;
  Observer observer;
  std::int32_t first = nodes.count() - 1;
  for (std::int32_t i = first - 1; i >= 0; --i) {
    if (observer.sees(effectOf(*nodes[i], gradients))) nodes[--first] = nodes[i];
  }
  std::copy(nodes.begin() + first, nodes.end(), nodes.begin());
  nodes.cutTo(nodes.count() - first);
  return nodes.release();
}

}  // namespace egfsvg
