// The style form: one style="..." text that text elements, entities and rules use. Each fragment
// takes the place of the closing quote and ends with a new one.

#include <string_view>

#include "model/rmm_allocator.h"
#include "writer/paint_tests.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

constexpr std::string_view kEmptyStyle = "style=\"\"";
constexpr const char* kSeparator = "; ";

/// What a fragment starts with: nothing, or a separator once something stands in the text.
const char* separatorFor(const LineBuilder& out) {
  return out.length() > static_cast<std::int32_t>(kEmptyStyle.size()) ? kSeparator : "";
}

void addFragment(LineBuilder& out, const char* text) { out.takeBack(1).add(text); }

template <FormatText kFormat, class... Args>
void addFragment(LineBuilder& out, const Args&... args) {
  out.takeBack(1).format<kFormat>(args...);
}

template <FormatText kFormat, class... Args>
void addSeparated(LineBuilder& out, const Args&... args) {
  const char* separator = separatorFor(out);
  out.takeBack(1).add(separator).template format<kFormat>(args...);
}

/// The reference is freed and its pointer kept, so a record goes through here once.
void addFill(_svg_pa_fill& fill, double opacity, LineBuilder& out) {
  if (hasColour(fill.packedColor)) {
    if (isInvisible(fill.fillOpacity, opacity)) {
      addFragment<"fill:none\"">(out);
    } else if (fill.packedColor != kBlackPaint) {
      addFragment<"fill:#%6x\"">(out, fill.packedColor);
    }
  }
  if (fill.packedColor != kNoPaint && fill.fillUrl != nullptr) {
    addFragment<"fill:url(#grad%s)\"">(out, fill.fillUrl);
    RMM_Free(fill.fillUrl);
  }
  if (isPartial(fill.fillOpacity)) addSeparated<"fill-opacity:%.2f\"">(out, fill.fillOpacity);
}

void addStrokeColour(const _svg_pa_stroke& stroke, double opacity, LineBuilder& out) {
  addSeparated<"stroke:\"">(out);
  if (isInvisible(stroke.strokeOpacity, opacity)) {
    addFragment<"none\"">(out);
  } else if (stroke.strokeOpacity == 1.0) {
    addFragment<"#%6x\"">(out, stroke.packedColor);
  } else {
    addFragment<"#%6x; stroke-opacity:%.2f\"">(out, stroke.packedColor, stroke.strokeOpacity);
  }
}

/// Kept: a reference follows without separator and without "grad", even where there is no paint.
void addStroke(_svg_pa_stroke& stroke, double opacity, LineBuilder& out) {
  if (stroke.packedColor == kReferencePaint) return;
  if (stroke.packedColor != kNoPaint) addStrokeColour(stroke, opacity, out);
  if (stroke.strokeUrl == nullptr) return;
  addFragment<"stroke:url(#%s)\"">(out, stroke.strokeUrl);
  RMM_Free(stroke.strokeUrl);
}

void addWidth(double width, LineBuilder& out) {
  if (width < kThinnest) {
    addFragment<"; stroke-width:%e\"">(out, width);
  } else {
    addFragment<"; stroke-width:%.6f\"">(out, width);
  }
}

void addDashes(const _svg_pa_stroke& stroke, LineBuilder& out) {
  if (stroke.strokeDashCount <= 0) return;
  addFragment<"; stroke-dasharray:">(out);
  addDashList(stroke, out);
  out.add("\"");
}

/// A cap or join follows with a separator, unless nothing stands in the text.
template <FormatText kFormat, class... Args>
void addFollowing(LineBuilder& out, const Args&... args) {
  const char* separator = out.text() == kEmptyStyle ? "" : kSeparator;
  out.takeBack(1).add(separator).template format<kFormat>(args...);
}

struct TextRow {
  std::int32_t code;
  const char* text;
};

constexpr TextRow kAnchors[] = {{2, "; text-anchor:middle\""}, {3, "; text-anchor:end\""}};
constexpr TextRow kDecorations[] = {{2, "; text-decoration:underline\""},
                                    {4, "; text-decoration:line-through\""},
                                    {6, "; text-decoration:underline line-through\""}};
constexpr TextRow kPointerEvents[] = {
    {2, " pointer-events=\"visibleFill\" "}, {3, " pointer-events=\"visibleStroke\" "},
    {4, " pointer-events=\"visible\" "},     {5, " pointer-events=\"painted\" "},
    {6, " pointer-events=\"fill\" "},        {7, " pointer-events=\"stroke\" "},
    {8, " pointer-events=\"all\" "},         {9, " pointer-events=\"none\" "}};

template <std::size_t kRows>
const char* textFor(const TextRow (&rows)[kRows], std::int32_t code) {
  for (const TextRow& row : rows) {
    if (row.code == code) return row.text;
  }
  return nullptr;
}

constexpr std::int32_t kWritingRightToLeft = 2;
constexpr std::int32_t kWritingTopToBottom = 3;
constexpr double kUpright = 90.0;
constexpr double kTurned = 270.0;

void addWritingMode(std::int32_t mode, double glyphAngle, LineBuilder& out) {
  if (mode == kWritingRightToLeft) {
    addFragment<"; writing-mode:rl; glyph-orientation-horizontal:180\"">(out);
  }
  if (mode != kWritingTopToBottom) return;
  if (glyphAngle == kUpright)
    addFragment<"; writing-mode:tb; glyph-orientation-vertical:90\"">(out);
  if (glyphAngle == kTurned) {
    addFragment<"; writing-mode:tb; glyph-orientation-vertical:270\"">(out);
  }
}

struct EventRow {
  char* _svg_event_graphical::*slot;
  const char* name;
};

constexpr EventRow kEvents[] = {
    {&_svg_event_graphical::onfocusout, "onfocusout"},
    {&_svg_event_graphical::onfocusin, "onfocusin"},
    {&_svg_event_graphical::onactivate, "onactivate"},
    {&_svg_event_graphical::onclick, "onclick"},
    {&_svg_event_graphical::onmousedown, "onmousedown"},
    {&_svg_event_graphical::onmouseup, "onmouseup"},
    {&_svg_event_graphical::onmouseover, "onmouseover"},
    {&_svg_event_graphical::onmousemove, "onmousemove"},
    {&_svg_event_graphical::onmouseout, "onmouseout"},
    {&_svg_event_graphical::onload, "onload"},
};

}  // namespace
}  // namespace egfsvg

void CHandlerWriter::GetStyle(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                              const _svg_pa_graphics& graphics, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  out.clear();
  out.add(kEmptyStyle);
  addFill(fill, graphics.opacity, out);
  addStroke(stroke, graphics.opacity, out);
  if (hasWidth(stroke, graphics)) addWidth(stroke.strokeWidth.value, out);
  if (isPartial(graphics.opacity)) addFragment<"; opacity:%.2f\"">(out, graphics.opacity);
  if (fill.fillRule == kRuleEvenOdd) addFragment<"; fill-rule:evenodd\"">(out);
  addDashes(stroke, out);
}

/// Kept: an older form that nothing calls.
void CHandlerWriter::GetTextStyle(double fillOpacity, std::int32_t fillColor,
                                  std::int32_t strokeColor, double strokeWidth, int,
                                  egfsvg::LineBuilder& out) {
  out.clear();
  out.add("style=\"fill:");
  if (fillOpacity <= 0.0) {
    out.add("none");
  } else {
    out.format<"#%6x; opacity:%.5f">(fillColor, fillOpacity);
  }
  out.format<"; stroke:#%6x; stroke-width:%.6f\"">(strokeColor, strokeWidth);
}

void CHandlerWriter::AddLineCapStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (stroke.strokeLinecap == kCapCodeRound) addFollowing<"stroke-linecap:round\"">(out);
  if (stroke.strokeLinecap == kCapCodeSquare) addFollowing<"stroke-linecap:square\"">(out);
}

void CHandlerWriter::AddLineJoinStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (stroke.strokeLinejoin == kJoinCodeBevel) addFollowing<"stroke-linejoin:bevel\"">(out);
  if (stroke.strokeLinejoin == kJoinCodeRound) addFollowing<"stroke-linejoin:round\"">(out);
  if (stroke.strokeLinejoin == kJoinCodeMiter && stroke.strokeMiterlimit != kDefaultMiterLimit) {
    addFollowing<"stroke-linejoin:miter; stroke-miterlimit:%d\"">(out, stroke.strokeMiterlimit);
  }
}

void CHandlerWriter::AddTextElemsTextContentElemsStyle(const _svg_pa_textelems& elements,
                                                       const _svg_pa_textcontentelems& content,
                                                       egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (const char* anchor = textFor(kAnchors, elements.textAnchor)) addFragment(out, anchor);
  addWritingMode(elements.writingMode, content.glyphOrientationVertical.value, out);
  if (const char* line = textFor(kDecorations, content.textDecoration)) addFragment(out, line);
  if (content.baselineShift != nullptr) {
    addFragment<"; baseline-shift:%s\"">(out, content.baselineShift);
  }
}

void CHandlerWriter::AddFontStyle(const _svg_pa_fontspec& font, egfsvg::LineBuilder& out) {
  constexpr std::int32_t kBold = 2;
  constexpr std::int32_t kItalic = 2;
  if (font.fontWeight == kBold) egfsvg::addFragment<"; font-weight:bold\"">(out);
  if (font.fontStyle == kItalic) egfsvg::addFragment<"; font-style:italic\"">(out);
}

/// Attributes behind the style's closing quote. Kept: of the events only the last one set is
/// written.
void CHandlerWriter::AddGraphicalEventAttrib(const _svg_pa_graphics& graphics,
                                             _svg_event_graphical events,
                                             egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (graphics.visibility == kHidden) out.add(" visibility=\"hidden\" ");
  if (const char* text = textFor(kPointerEvents, graphics.pointerEvents)) out.add(text);
  const EventRow* last = nullptr;
  for (const EventRow& row : kEvents) {
    if (events.*row.slot != nullptr) last = &row;
  }
  if (last != nullptr) out.format<"%s=\"%s\" ">(last->name, events.*last->slot);
}
