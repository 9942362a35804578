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

void addFragment(LineBuilder& out, const char* format, std::initializer_list<FormatArg> args = {}) {
  out.takeBack(1).format(format, args);
}

void addSeparated(LineBuilder& out, const char* format, std::initializer_list<FormatArg> args) {
  const char* separator = separatorFor(out);
  out.takeBack(1).add(separator).format(format, args);
}

/// The reference is freed and its pointer kept, so a record goes through here once.
void addFill(_svg_pa_fill& fill, double opacity, LineBuilder& out) {
  if (hasColour(fill.packedColor)) {
    if (isInvisible(fill.fillOpacity, opacity)) {
      addFragment(out, "fill:none\"");
    } else if (fill.packedColor != kBlackPaint) {
      addFragment(out, "fill:#%6x\"", {fill.packedColor});
    }
  }
  if (fill.packedColor != kNoPaint && fill.fillUrl != nullptr) {
    addFragment(out, "fill:url(#grad%s)\"", {fill.fillUrl});
    RMM_Free(fill.fillUrl);
  }
  if (isPartial(fill.fillOpacity)) addSeparated(out, "fill-opacity:%.2f\"", {fill.fillOpacity});
}

void addStrokeColour(const _svg_pa_stroke& stroke, double opacity, LineBuilder& out) {
  addSeparated(out, "stroke:\"", {});
  if (isInvisible(stroke.strokeOpacity, opacity)) {
    addFragment(out, "none\"");
  } else if (stroke.strokeOpacity == 1.0) {
    addFragment(out, "#%6x\"", {stroke.packedColor});
  } else {
    addFragment(out, "#%6x; stroke-opacity:%.2f\"", {stroke.packedColor, stroke.strokeOpacity});
  }
}

/// Kept: a reference follows without separator and without "grad", even where there is no paint.
void addStroke(_svg_pa_stroke& stroke, double opacity, LineBuilder& out) {
  if (stroke.packedColor == kReferencePaint) return;
  if (stroke.packedColor != kNoPaint) addStrokeColour(stroke, opacity, out);
  if (stroke.strokeUrl == nullptr) return;
  addFragment(out, "stroke:url(#%s)\"", {stroke.strokeUrl});
  RMM_Free(stroke.strokeUrl);
}

void addDashes(const _svg_pa_stroke& stroke, LineBuilder& out) {
  if (stroke.strokeDashCount <= 0) return;
  addFragment(out, "; stroke-dasharray:");
  addDashList(stroke, out);
  out.add("\"");
}

/// A cap or join follows with a separator, unless nothing stands in the text.
void addFollowing(LineBuilder& out, const char* format,
                  std::initializer_list<FormatArg> args = {}) {
  const char* separator = out.text() == kEmptyStyle ? "" : kSeparator;
  out.takeBack(1).add(separator).format(format, args);
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
    addFragment(out, "; writing-mode:rl; glyph-orientation-horizontal:180\"");
  }
  if (mode != kWritingTopToBottom) return;
  if (glyphAngle == kUpright)
    addFragment(out, "; writing-mode:tb; glyph-orientation-vertical:90\"");
  if (glyphAngle == kTurned) {
    addFragment(out, "; writing-mode:tb; glyph-orientation-vertical:270\"");
  }
}

struct EventRow {
  char* _svg_event_graphical::*slot;
  const char* format;
};

constexpr EventRow kEvents[] = {{&_svg_event_graphical::onfocusout, "onfocusout=\"%s\" "},
                                {&_svg_event_graphical::onfocusin, "onfocusin=\"%s\" "},
                                {&_svg_event_graphical::onactivate, "onactivate=\"%s\" "},
                                {&_svg_event_graphical::onclick, "onclick=\"%s\" "},
                                {&_svg_event_graphical::onmousedown, "onmousedown=\"%s\" "},
                                {&_svg_event_graphical::onmouseup, "onmouseup=\"%s\" "},
                                {&_svg_event_graphical::onmouseover, "onmouseover=\"%s\" "},
                                {&_svg_event_graphical::onmousemove, "onmousemove=\"%s\" "},
                                {&_svg_event_graphical::onmouseout, "onmouseout=\"%s\" "},
                                {&_svg_event_graphical::onload, "onload=\"%s\" "}};

}  // namespace
}  // namespace egfsvg

void CHandlerWriter::GetStyle(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                              const _svg_pa_graphics& graphics, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  out.clear();
  out.add(kEmptyStyle);
  addFill(fill, graphics.opacity, out);
  addStroke(stroke, graphics.opacity, out);
  if (hasWidth(stroke, graphics)) {
    const double width = stroke.strokeWidth.value;
    addFragment(out, width < kThinnest ? "; stroke-width:%e\"" : "; stroke-width:%.6f\"", {width});
  }
  if (isPartial(graphics.opacity)) addFragment(out, "; opacity:%.2f\"", {graphics.opacity});
  if (fill.fillRule == kRuleEvenOdd) addFragment(out, "; fill-rule:evenodd\"");
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
    out.format("#%6x; opacity:%.5f", {fillColor, fillOpacity});
  }
  out.format("; stroke:#%6x; stroke-width:%.6f\"", {strokeColor, strokeWidth});
}

void CHandlerWriter::AddLineCapStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (stroke.strokeLinecap == kCapCodeRound) addFollowing(out, "stroke-linecap:round\"");
  if (stroke.strokeLinecap == kCapCodeSquare) addFollowing(out, "stroke-linecap:square\"");
}

void CHandlerWriter::AddLineJoinStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (stroke.strokeLinejoin == kJoinCodeBevel) addFollowing(out, "stroke-linejoin:bevel\"");
  if (stroke.strokeLinejoin == kJoinCodeRound) addFollowing(out, "stroke-linejoin:round\"");
  if (stroke.strokeLinejoin == kJoinCodeMiter && stroke.strokeMiterlimit != kDefaultMiterLimit) {
    addFollowing(out, "stroke-linejoin:miter; stroke-miterlimit:%d\"", {stroke.strokeMiterlimit});
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
    addFragment(out, "; baseline-shift:%s\"", {content.baselineShift});
  }
}

void CHandlerWriter::AddFontStyle(const _svg_pa_fontspec& font, egfsvg::LineBuilder& out) {
  constexpr std::int32_t kBold = 2;
  constexpr std::int32_t kItalic = 2;
  if (font.fontWeight == kBold) egfsvg::addFragment(out, "; font-weight:bold\"");
  if (font.fontStyle == kItalic) egfsvg::addFragment(out, "; font-style:italic\"");
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
  if (last != nullptr) out.format(last->format, {events.*last->slot});
}
