// Rules, gradients and texts of random records against the same lines made by snprintf.

#include "tests/unit/writer/printed_text.h"

namespace egfsvg {
namespace {

using namespace test;

TEST(PrintedStyles, EntitiesAndRules) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random, false);
    _svg_style_props style;
    initStyleProps(&style);
    style.selector = const_cast<char*>("st8");
    style.pa.fill = paints.fill;
    style.pa.stroke = paints.stroke;
    style.pa.graphics = paints.graphics;
    expectText(17, style, "   <!ENTITY st8 \"" + paints.properties(Paints::kJoin) + "\" >");
    expectText(37, style, "      .st8 { " + paints.properties(Paints::kJoinAndCap) + " }");
  }
}

std::string stopLine(const _svg_stop& stop) {
  const _svg_color& c = stop.gradients.stopColor;
  const double opacity = stop.gradients.stopOpacity;
  return print("          <stop offset=\"%ld%%\" stop-color=\"rgb(%ld,%ld,%ld)\" ",
               whole(stop.offset), long{c.red}, long{c.green}, long{c.blue}) +
         (opacity != 1.0 ? print("stop-opacity=\"%.2f\" />", opacity) : "/>");
}

/// Gives the gradient random geometry; the attributes that it is written with.
std::string geometry(Random& random, _svg_gradient& gradient) {
  const auto place = [&] {
    return _svg_value{random.pick(2) == 0 ? kUnitPercent : kUnitPixel, random.number(), 0};
  };
  if (gradient.head.type == kTagLinearGradient) {
    auto& v = gradient.parms.linear;
    for (_svg_value* each : {&v.x1, &v.y1, &v.x2, &v.y2}) *each = place();
    const char* s = v.x1.unit == kUnitPercent ? "%" : "";
    return print("x1=\"%.1f%s\" y1=\"%.1f%s\" x2=\"%.1f%s\" y2=\"%.1f%s\" ", v.x1.value, s,
                 v.y1.value, s, v.x2.value, s, v.y2.value, s);
  }
  auto& v = gradient.parms.radial;
  for (_svg_value* each : {&v.fx, &v.fy, &v.cx, &v.cy, &v.r}) *each = place();
  const char* s = v.fx.unit == kUnitPercent ? "%" : "";
  return print("fx=\"%.1f%s\" fy=\"%.1f%s\" cx=\"%.1f%%\" cy=\"%.1f%%\" r=\"%.1f%%\" ", v.fx.value,
               s, v.fy.value, s, v.cx.value, v.cy.value, v.r.value);
}

TEST(PrintedStyles, Gradients) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const bool linear = random.pick(2) == 0;
    const char* name = linear ? "linear" : "radial";
    _svg_gradient gradient;
    initGradientObj(&gradient);
    gradient.head.type = linear ? kTagLinearGradient : kTagRadialGradient;
    gradient.head.id = const_cast<char*>("31");
    std::string expected =
        print("       <%sGradient id=\"grad31\" gradientUnits=\"userSpaceOnUse\" ", name);
    expected += geometry(random, gradient);
    gradient.spreadMethod = static_cast<std::int32_t>(random.pick(6)) - 1;
    if (gradient.spreadMethod == 3) expected += "spreadMethod=\"repeat\" ";
    if (gradient.spreadMethod == 2) expected += "spreadMethod=\"reflect\" ";
    _svg_value m[6];
    for (_svg_value& each : m) each = random.value();
    transformEntry entry{kMatrix, m, 6};
    gradient.head.transforms = &entry;
    gradient.head.transformCount = static_cast<std::int32_t>(random.pick(2));
    if (gradient.head.transformCount != 0) {
      expected += print("gradientTransform=\"matrix(%.4f,%.4f,%.4f,%.4f,%.4f,%.4f)\" ", m[0].value,
                        m[1].value, m[2].value, m[3].value, m[4].value, m[5].value);
    }
    expected += ">";
    _svg_stop stops[3];
    gradient.stops = stops;
    gradient.stopCount = static_cast<std::int32_t>(random.pick(4));
    for (int j = 0; j < gradient.stopCount; ++j) {
      initStopObj(&stops[j]);
      stops[j].offset = random.value();
      stops[j].gradients.stopColor = {static_cast<std::int32_t>(random.pick(256)),
                                      static_cast<std::int32_t>(random.pick(256)), -7, 0};
      stops[j].gradients.stopOpacity = random.opacity();
      expected += "|" + stopLine(stops[j]);
    }
    expectText(29, gradient, expected + print("|       </%sGradient>", name));
  }
}

struct Fragment {
  std::int32_t code;
  const char* text;
};

template <std::size_t N>
std::string chosen(const Fragment (&rows)[N], std::int32_t code) {
  for (const Fragment& row : rows) {
    if (row.code == code) return row.text;
  }
  return "";
}

constexpr Fragment kAnchors[] = {{2, "; text-anchor:middle"}, {3, "; text-anchor:end"}};
constexpr Fragment kDecorations[] = {{2, "; text-decoration:underline"},
                                     {4, "; text-decoration:line-through"},
                                     {6, "; text-decoration:underline line-through"}};
constexpr Fragment kPointers[] = {
    {2, " pointer-events=\"visibleFill\" "}, {3, " pointer-events=\"visibleStroke\" "},
    {4, " pointer-events=\"visible\" "},     {5, " pointer-events=\"painted\" "},
    {6, " pointer-events=\"fill\" "},        {7, " pointer-events=\"stroke\" "},
    {8, " pointer-events=\"all\" "},         {9, " pointer-events=\"none\" "}};

/// Gives the text random properties of its own; their part of the style, behind that of the paints.
std::string textStyle(Random& random, _svg_text& text) {
  const auto code = [&](std::size_t count) {
    return static_cast<std::int32_t>(random.pick(count));
  };
  const double kAngles[] = {90.0, 270.0, 0.0};
  text.textelems.textAnchor = code(5);
  text.textelems.writingMode = code(5);
  text.textcontentelems.glyphOrientationVertical.value = kAngles[random.pick(3)];
  text.textcontentelems.textDecoration = code(8);
  if (random.pick(2) == 0) text.textcontentelems.baselineShift = const_cast<char*>("-80%");
  text.fontspec.fontWeight = code(4);
  text.fontspec.fontStyle = code(4);
  std::string style = chosen(kAnchors, text.textelems.textAnchor);
  const double angle = text.textcontentelems.glyphOrientationVertical.value;
  if (text.textelems.writingMode == 2) {
    style += "; writing-mode:rl; glyph-orientation-horizontal:180";
  }
  if (text.textelems.writingMode == 3 && angle != 0.0) {
    style += print("; writing-mode:tb; glyph-orientation-vertical:%d", static_cast<int>(angle));
  }
  style += chosen(kDecorations, text.textcontentelems.textDecoration);
  if (text.textcontentelems.baselineShift != nullptr) style += "; baseline-shift:-80%";
  if (text.fontspec.fontWeight == 2) style += "; font-weight:bold";
  if (text.fontspec.fontStyle == 2) style += "; font-style:italic";
  return style;
}

/// The attributes behind the style.
std::string textEvents(Random& random, _svg_text& text) {
  text.graphics.visibility = static_cast<std::int32_t>(random.pick(4));
  text.graphics.pointerEvents = static_cast<std::int32_t>(random.pick(11));
  std::string all = text.graphics.visibility == 2 ? " visibility=\"hidden\" " : "";
  all += chosen(kPointers, text.graphics.pointerEvents);
  _svg_event_graphical& e = text.events;
  char** const slots[] = {&e.onfocusout,  &e.onfocusin, &e.onactivate,  &e.onclick,
                          &e.onmousedown, &e.onmouseup, &e.onmouseover, &e.onmousemove,
                          &e.onmouseout,  &e.onload};
  const char* const names[] = {"onfocusout",  "onfocusin", "onactivate",  "onclick",
                               "onmousedown", "onmouseup", "onmouseover", "onmousemove",
                               "onmouseout",  "onload"};
  std::string last;
  for (std::size_t i = 0; i < std::size(slots); ++i) {
    if (random.pick(6) != 0) continue;
    *slots[i] = const_cast<char*>("f(1)");
    last = print("%s=\"f(1)\" ", names[i]);
  }
  return all + last;
}

TEST(PrintedStyles, Texts) {
  Random random;
  for (int i = 0; i < kRecords; ++i) {
    const Paints paints(random, false);
    _svg_text text;
    initText(&text);
    text.fill = paints.fill;
    text.stroke = paints.stroke;
    text.graphics = paints.graphics;
    text.fontspec.fontFamily = const_cast<char*>("A <b> 100%");
    text.fontspec.fontSize = random.value();
    text.position = {random.value(), random.value()};
    text.content = const_cast<char*>("50% <x>");
    _svg_value m[6];
    for (_svg_value& each : m) each = random.value();
    transformEntry entry{random.pick(2) == 0 ? kMatrix : kRotate, m, 6};
    text.head.transforms = &entry;
    text.head.transformCount = 1;
    std::string expected =
        print("   <text x=\"%.2f\" y=\"%.2f\" font-family=\"A b 100%%\" font-size=\"%.2f\"",
              text.position.x.value, text.position.y.value, text.fontspec.fontSize.value);
    if (entry.kind == kMatrix) {
      expected += print(" transform=\"matrix(%.6f,%.6f,%.6f,%.6f,%.6f,%.6f)\"", m[0].value,
                        m[1].value, m[2].value, m[3].value, m[4].value, m[5].value);
    }
    std::string style = paints.properties(Paints::kNone);
    style += textStyle(random, text);
    expected += "\n    style=\"" + style + "\"" + textEvents(random, text);
    expectText(kTagText, text, expected + ">\n     50% <x>\n   </text>");
  }
}

TEST(PrintedStyles, ReferencesInTexts) {
  Random random;
  for (int i = 0; i < 200; ++i) {
    _svg_text text;
    initText(&text);
    const std::int32_t fill = random.paint(), stroke = random.paint();
    text.fill.packedColor = fill;
    text.stroke.packedColor = stroke;
    text.fill.fillUrl = duplicateText("4", RMM_SITE);
    text.stroke.strokeUrl = duplicateText("5", RMM_SITE);
    std::string style = fill > 0 ? print("fill:#%06x", static_cast<unsigned>(fill)) : "";
    if (fill != -1) style += "fill:url(#grad4)";
    if (stroke >= 0) {
      style += style.empty() ? "stroke:" : "; stroke:";
      style += print("#%06x", static_cast<unsigned>(stroke));
    }
    if (stroke != -2) style += "stroke:url(#5)";
    expectText(kTagText, text,
               "   <text x=\"0.00\" y=\"0.00\" font-family=\"\" font-size=\"12.00\"\n    style=\"" +
                   style + "\">\n     \n   </text>");
    // What was written was freed with it.
    if (fill == -1) RMM_Free(text.fill.fillUrl);
    if (stroke == -2) RMM_Free(text.stroke.strokeUrl);
  }
}

}  // namespace
}  // namespace egfsvg
