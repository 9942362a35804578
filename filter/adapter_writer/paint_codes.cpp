// Codes of the host as SVG's: joins, caps, fill rules, spread methods.

#include "model/paint_codes.h"
#include "adapter_writer/svg_adapterwriter.h"
#include "host/egf_codes.h"
#include "model/codes.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

template <class Parms>
void setJoin(_svg_pa_stroke& stroke, int join, const Parms* parms) {
  stroke.strokeLinejoin = join;
  if (join != kJoinCodeMiter || parms == nullptr) return;
  stroke.strokeMiterlimit = shownInteger(double{parms->miterLimit});
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int CAdapterWriter::_setSvgLineJoin(int joinStyle) {
  switch (joinStyle) {
    case kJoinRound:
      return kJoinCodeRound;
    case kJoinBevel:
      return kJoinCodeBevel;
    default:
      return kJoinCodeMiter;
  }
}

void CAdapterWriter::_setSvgLineJoin(_svg_pa_stroke& stroke, int joinStyle,
                                     const _egf_gdiplus_fillparms_tag* parms) {
  setJoin(stroke, _setSvgLineJoin(joinStyle), parms);
}

/// Kept: a line's join that is not set is not written, where an area's is a miter.
void CAdapterWriter::_setSvgLineJoin(_svg_pa_stroke& stroke, int joinStyle,
                                     const _egf_gdiplus_stroke_parms_tag* parms) {
  setJoin(stroke, joinStyle == kJoinUnset ? kUnsetCode : _setSvgLineJoin(joinStyle), parms);
}

int CAdapterWriter::_setSvgLineCap(int capStyle) {
  switch (capStyle) {
    case kCapSquare:
      return kCapCodeSquare;
    case kCapRound:
      return kCapCodeRound;
    default:
      return kCapCodeButt;
  }
}

int CAdapterWriter::_setFillMode(int fillMode) {
  return fillMode == 1 ? kRuleEvenOdd : kRuleNonzero;
}

/// Kept: what does not flip repeats; a gradient that ends is drawn to its bounds anyway.
int CAdapterWriter::_setSpreadMethod(_egf_wrapmode_tag wrapMode) {
  return wrapMode == _egf_wrapmode_tag::kFlip ? kSpreadReflect : kSpreadRepeat;
}
