#include "reader/nested_walk.h"

#include "frame/result_codes.h"

namespace egfsvg {

NestedWalk::NestedWalk(const Delivery& delivery, _svg_common* parent)
    : delivery_(delivery),
      keepGoing_(kGoOn),
      tag_(kTagEnd),
      parent_(parent),
      nesting_(delivery.reader().state.nesting) {}

NestedWalk::~NestedWalk() {
  for (; opened_ > 0; --opened_) parent_ = reader().closeContainer(parent_);
  reader().state.nesting = nesting_;
}

void NestedWalk::stopQuietly() { keepGoing_ = kStopQuietly; }

bool NestedWalk::enter(_svg_common* opened, const _svg_ta& tests, bool* tested) {
  parent_ = opened;
  ++opened_;
  if (tested != nullptr) *tested = reader()._evaluateTestAtt(tests) != 0;
  if (silentFrom_ == 0 && tested != nullptr && !*tested) silentFrom_ = opened_;
  return silentFrom_ == 0;
}

void NestedWalk::openSvg(bool* tested) {
  _svg_svg* svg = nullptr;
  _svg_common* opened = reader().ParseSVGTagData(parent_, &svg, tag_ == kTagSymbol);
  if (opened == nullptr) return stopQuietly();
  ++svgDepth_;
  if (enter(opened, svg->ta, tested)) keepGoing_ = delivery_.sendSvg(*svg);
}

void NestedWalk::openGroup(bool* tested) {
  _svg_group* group = nullptr;
  _svg_common* opened = reader().ParseGroupTagData(parent_, &group, 0);
  if (opened == nullptr) return stopQuietly();
  if (opened->type != kTagGroup) {
    if (tested != nullptr) *tested = reader()._evaluateTestAtt(group->ta) != 0;
    keepGoing_ = delivery_.sendMarkup(Owned<_svg_group>(group));
    return;
  }
  ++groupDepth_;
  if (enter(opened, group->ta, tested)) keepGoing_ = delivery_.sendGroup();
  if (!isTagClosed(reader(), tagIndex_)) return;
  tag_ = kTagEndGroup;
  tagIsGiven_ = true;
}

/// What was not opened here is not closed here.
void NestedWalk::close(int closer) {
  if (opened_ == 0) return;
  const bool isSent = silentFrom_ == 0;
  if (silentFrom_ == opened_) silentFrom_ = 0;
  parent_ = reader().closeContainer(parent_);
  --opened_;
  --(closer == kTagEndSvg ? svgDepth_ : groupDepth_);
  if (isSent) keepGoing_ = delivery_.sendCloser(closer);
  if (closer != kTagEndSvg || svgDepth_ <= 0) return;
  const _svg_svg* outer = reader().svgs.at(svgDepth_ - 1);
  if (outer != nullptr) reader().xmlSpace = outer->xmlSpace;
}

void NestedWalk::drawUse(bool* tested) {
  _svg_group* use = nullptr;
  if (reader().ParseGroupTagData(parent_, &use, 1) == nullptr) return stopQuietly();
  if (tested != nullptr) *tested = reader()._evaluateTestAtt(use->ta) != 0;
  if (tested == nullptr || *tested) {
    const int result = delivery_.drawTarget(*use);
    if (result != kOk) keepGoing_ = result;
    if (reader().state.stopped) stopQuietly();
  }
  reader().closeContainer(&use->head);
}

void NestedWalk::closeAll() {
  const auto isHeard = [this] {
    const bool refused = reader().state.stopped || reader().state.outOfMemory;
    return !refused && nestedResult(keepGoing_) == kOk;
  };
  while (opened_ > 0 && isHeard()) {
    const bool isSvg = parent_->type == kTagSvg || parent_->type == kTagSymbol;
    close(isSvg ? kTagEndSvg : kTagEndGroup);
  }
}

}  // namespace egfsvg
