// viewBox, preserveAspectRatio, and what they make of an svg's own box.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "model/characters.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "reader/lengths.h"
#include "reader/number_scan.h"
#include "reader/pair_text.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

/// Bits of a stored preserveAspectRatio: one alignment and one way to fit. "none" has no alignment.
enum AspectBits : int {
  kAlignNone = 0,
  kXMinYMin = 1,
  kXMidYMin = 2,
  kXMaxYMin = 4,
  kXMinYMid = 8,
  kXMidYMid = 16,
  kXMaxYMid = 32,
  kXMinYMax = 64,
  kXMidYMax = 128,
  kXMaxYMax = 256,
  kSlice = 512,
  kMeet = 1024,
};
constexpr int kAlignXMin = kXMinYMin | kXMinYMid | kXMinYMax;
constexpr int kAlignXMid = kXMidYMin | kXMidYMid | kXMidYMax;
constexpr int kAlignYMin = kXMinYMin | kXMidYMin | kXMaxYMin;
constexpr int kAlignYMid = kXMinYMid | kXMidYMid | kXMaxYMid;
constexpr int kAlignAny = kXMaxYMax * 2 - 1;

struct AspectRow {
  const char* word;
  int bits;
};
constexpr AspectRow kAlignments[] = {{"none", kAlignNone},    {"xminymin", kXMinYMin},
                                     {"xmidymin", kXMidYMin}, {"xmaxymin", kXMaxYMin},
                                     {"xminymid", kXMinYMid}, {"xmidymid", kXMidYMid},
                                     {"xmaxymid", kXMaxYMid}, {"xminymax", kXMinYMax},
                                     {"xmidymax", kXMidYMax}, {"xmaxymax", kXMaxYMax}};
constexpr AspectRow kFits[] = {{"meet", kMeet}, {"slice", kSlice}};

template <std::size_t Count>
int aspectBits(const AspectRow (&rows)[Count], const char* first, const char* last, int otherwise) {
  for (const AspectRow& row : rows) {
    if (equalsNoCase(first, static_cast<std::size_t>(last - first), row.word)) return row.bits;
  }
  return otherwise;
}

const char* skipWhite(const char* at) {
  while (isWhite(*at)) ++at;
  return at;
}

const char* wordEnd(const char* first) {
  const char* at = first;
  while (*at != '\0' && !isWhite(*at)) ++at;
  return at;
}

/// A box along one axis.
struct Extent {
  double start;
  double size;

  double middle() const { return start + size / 2.0; }
  double end() const { return start + size; }
};

enum class Alignment { kMin, kMid, kMax };

Alignment alignmentOf(int lowestBit, int minBits, int midBits) {
  if ((lowestBit & minBits) != 0) return Alignment::kMin;
  return (lowestBit & midBits) != 0 ? Alignment::kMid : Alignment::kMax;
}

/// How far the scaled viewBox moves on one axis, before scaling.
double translation(const Extent& port, const Extent& box, double scale, Alignment alignment) {
  switch (alignment) {
    case Alignment::kMin:
      return (port.start - box.start * scale) / scale;
    case Alignment::kMid:
      return (port.middle() - scale * box.middle()) / scale;
    default:
      return (port.end() - box.end() * scale) / scale;
  }
}

struct Scaling {
  double scaleX = 1.0;
  double scaleY = 1.0;
  double moveX = 0.0;
  double moveY = 0.0;

  bool isFinite() const {
    return std::isfinite(scaleX) && std::isfinite(scaleY) && std::isfinite(moveX) &&
           std::isfinite(moveY);
  }
};

void chooseScales(Scaling& result, double x, double y, int aspect) {
  if (aspect == 0) {
    result.scaleX = x;
    result.scaleY = y;
  } else if ((aspect & (kMeet | kSlice)) != 0) {
    const bool meet = (aspect & kMeet) != 0;
    result.scaleX = result.scaleY = meet ? std::min(x, y) : std::max(x, y);
  }
}

/// A box without a size, on either side, is not scaled at all.
Scaling uniformScaling(const Extent (&port)[2], const Extent (&box)[2], int aspect) {
  const double x = static_cast<float>(port[0].size / box[0].size);
  const double y = static_cast<float>(port[1].size / box[1].size);
  Scaling result;
  if (!std::isfinite(x) || !std::isfinite(y) || x == 0.0 || y == 0.0) return result;
  chooseScales(result, x, y, aspect);
  const int alignment = aspect & kAlignAny;
  if (alignment != 0) {
    const int lowest = alignment & -alignment;
    result.moveX =
        translation(port[0], box[0], result.scaleX, alignmentOf(lowest, kAlignXMin, kAlignXMid));
    result.moveY =
        translation(port[1], box[1], result.scaleY, alignmentOf(lowest, kAlignYMin, kAlignYMid));
  }
  return result.isFinite() ? result : Scaling{};
}

}  // namespace

}  // namespace egfsvg

// Numbers that the text does not give stay 0 pixels; axes stay 0. More than four are passed over.
int CHandlerReader::SetViewboxAtt(_svg_viewbox** out, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (out == nullptr || pair == nullptr || pair->value == nullptr) return 0;
  auto* box = allocateRecord<_svg_viewbox>(RMM_SITE);
  if (box == nullptr) return -1;
  *box = {kDefaultValue, kDefaultValue, kDefaultValue, kDefaultValue};
  freeAll(*out);
  *out = box;
  const char* last = pair->value + std::strlen(pair->value);
  const char* at = pair->value;
  for (_svg_value* slot : {&box->x, &box->y, &box->width, &box->height}) {
    at = skipListSeparators(at, last);
    if (at == last) break;
    const char* end = plainListNumber(at, last).end;
    parseLength(slot, at, end);
    at = end;
  }
  return 0;
}

int CHandlerReader::SetPreserveAspectAtt(int* out, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (out == nullptr || pair == nullptr || pair->value == nullptr) return -1;
  const char* align = skipWhite(pair->value);
  const char* alignEnd = wordEnd(align);
  const char* fit = skipWhite(alignEnd);
  *out = aspectBits(kAlignments, align, alignEnd, kXMinYMin) |
         aspectBits(kFits, fit, wordEnd(fit), kMeet);
  return 0;
}

int CHandlerReader::SetViewBoxToVPort(_svg_svg* record) {
  if (record == nullptr) return -1;
  auto* box = egfsvg::allocateRecord<_svg_viewbox>(RMM_SITE);
  if (box == nullptr) return -1;
  initSVGViewbox(*box);
  box->width.value = SVGPixelValue(&record->width);
  box->height.value = SVGPixelValue(&record->height);
  egfsvg::freeAll(record->viewBox);
  record->viewBox = box;
  return 0;
}

// Lengths of the record and of its viewBox become pixels on the way.
int CHandlerReader::SetUniformScaling(_svg_svg* record) {
  using namespace egfsvg;
  if (record == nullptr || record->viewBox == nullptr) return 0;
  _svg_viewbox& view = *record->viewBox;
  const Extent port[2] = {{SVGPixelValue(&record->x), SVGPixelValue(&record->width)},
                          {SVGPixelValue(&record->y), SVGPixelValue(&record->height)}};
  const Extent box[2] = {{SVGPixelValue(&view.x), SVGPixelValue(&view.width)},
                         {SVGPixelValue(&view.y), SVGPixelValue(&view.height)}};
  const Scaling scaling = uniformScaling(port, box, record->preserveAspectRatio);
  TextPair text("transform");
  text.add("scale(").addFixed(scaling.scaleX).add(" ").addFixed(scaling.scaleY).add(")");
  SetTransformAtt(&record->head, text.pair());
  text.clear();
  text.add("translate(").addFixed(scaling.moveX).add(" ").addFixed(scaling.moveY).add(")");
  SetTransformAtt(&record->head, text.pair());
  return 0;
}

// Kept: both numbers are taken for percentages as soon as one is.
int CHandlerReader::SetInitialViewport(_svg_svg* record) {
  using namespace egfsvg;
  constexpr double kWidthPerPercent = 120.0;
  constexpr double kHeightPerPercent = 72.0;
  if (record == nullptr) return 0;
  record->width.value *= kWidthPerPercent;
  record->height.value *= kHeightPerPercent;
  record->width.unit = record->height.unit = kUnitPixel;
  TextPair text("class");
  text.add("defaultInitialViewPort");
  SetSVGAttribute(record, kAttClass, text.pair());
  return 0;
}
