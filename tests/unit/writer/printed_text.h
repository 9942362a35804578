// What a record's fields print as, made by snprintf: the other side of the comparison.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "model/lifecycle.h"
#include "tests/support/writer_harness.h"

namespace egfsvg::test {

inline constexpr int kRecords = 3000;

inline std::string print(const char* format, ...) {
  char text[2000];
  va_list args;
  va_start(args, format);
  std::vsnprintf(text, sizeof text, format, args);
  va_end(args);
  return text;
}

inline long whole(const _svg_value& value) {
  if (std::isnan(value.value)) return std::numeric_limits<std::int32_t>::min();
  return static_cast<long>(std::fmax(-2147483648.0, std::fmin(2147483647.0, value.value)));
}

class Random {
 public:
  double number() {
    static const double kSpecial[] = {0.0,          -0.0,  1.0,      -1.0,      0.125,    0.005,
                                      0.375,        1e-7,  1e-6,     9.9e-7,    1.000001, 0.9999999,
                                      -0.001,       4.0,   1e15,     -1e18,     99.995,   0.5,
                                      2147483648.0, 1e300, INFINITY, -INFINITY, NAN,      1e-310};
    if (pick(2) == 0) return kSpecial[pick(std::size(kSpecial))];
    return std::uniform_real_distribution<double>(-1000.0, 1000.0)(engine_);
  }
  double opacity() {
    const double kOpacities[] = {0.0, 1.0, 1.0, 0.5, 0.125, 0.004, 1.5, 51 / 255.0};
    return kOpacities[pick(8)];
  }
  std::int32_t paint() {
    const std::int32_t kPaints[] = {-1, -2, 0, 0xff, 0xffffff, 0x00ff00, 0x012345, 0xabcdef};
    return kPaints[pick(8)];
  }
  std::size_t pick(std::size_t count) { return engine_() % count; }
  _svg_value value() { return pixels(number()); }

 private:
  std::mt19937 engine_{20};
};

/// What a shape's groups are made of, and what they own.
struct Paints {
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_value dashes[3];

  explicit Paints(Random& random, bool references = true) {
    initFill(&fill);
    initStroke(&stroke);
    initGraphics(&graphics);
    fill.packedColor = random.paint();
    fill.fillOpacity = random.opacity();
    fill.fillRule = static_cast<std::int32_t>(random.pick(4)) - 1;
    stroke.packedColor = random.paint();
    stroke.strokeOpacity = random.opacity();
    stroke.strokeWidth = random.value();
    stroke.strokeLinecap = static_cast<std::int32_t>(random.pick(5)) - 1;
    stroke.strokeLinejoin = static_cast<std::int32_t>(random.pick(5)) - 1;
    stroke.strokeMiterlimit = random.pick(2) == 0 ? 4 : 7;
    graphics.opacity = random.opacity();
    for (_svg_value& dash : dashes) dash = random.value();
    stroke.strokeDashArray = dashes;
    stroke.strokeDashCount = static_cast<std::int32_t>(random.pick(4));
    if (references && random.pick(3) == 0) fill.fillUrl = const_cast<char*>("12");
    if (references && random.pick(3) == 0) stroke.strokeUrl = const_cast<char*>("345");
  }

  std::string dashList() const {
    std::string list;
    for (int i = 0; i < stroke.strokeDashCount; ++i) {
      list += print(i == 0 ? "%.6f" : ",%.6f", dashes[i].value);
    }
    return list;
  }
  bool hasWidth() const {
    const double width = stroke.strokeWidth.value;
    return width != -1.0 && width != 1.0 && stroke.strokeOpacity != 0.0 && graphics.opacity != 0.0;
  }
  std::string attributes() const {
    std::string all;
    const std::int32_t paint = fill.packedColor, line = stroke.packedColor;
    const double opacity = graphics.opacity, width = stroke.strokeWidth.value;
    if (paint != -1 && paint != -2) {
      if (opacity == 0.0 || fill.fillOpacity == 0.0) {
        all += "fill=\"none\" ";
      } else if (paint != 0) {
        all += print("fill=\"#%06x\" ", static_cast<unsigned>(paint));
      }
    }
    if (paint != -1 && fill.fillUrl != nullptr) all += "fill=\"url(#grad12)\" ";
    if (fill.fillOpacity < 1.0 && fill.fillOpacity != 0.0) {
      all += print("fill-opacity=\"%.2f\" ", fill.fillOpacity);
    }
    if (line != -1 && line != -2) {
      const auto word = static_cast<unsigned>(line);
      if (stroke.strokeOpacity == 0.0 || opacity == 0.0) {
        all += "stroke=\"none\" ";
      } else if (stroke.strokeOpacity == 1.0) {
        all += print("stroke=\"#%06x\" ", word);
      } else {
        all += print("stroke=\"#%06x\" stroke-opacity=\"%.2f\" ", word, stroke.strokeOpacity);
      }
    }
    if (line != -1 && stroke.strokeUrl != nullptr) all += "stroke=\"url(#grad345)\" ";
    if (hasWidth()) {
      all += print(width < 0.000001 ? "stroke-width=\"%e\" " : "stroke-width=\"%.6f\" ", width);
    }
    if (opacity < 1.0 && opacity != 0.0) all += print("opacity=\"%.2f\" ", opacity);
    if (fill.fillRule == 2) all += "fill-rule=\"evenodd\" ";
    if (stroke.strokeDashCount > 0) all += "stroke-dasharray=\"" + dashList() + "\" ";
    return all;
  }
  std::string joined() const {
    if (stroke.strokeLinejoin == 3) return "stroke-linejoin=\"bevel\" ";
    if (stroke.strokeLinejoin == 2) return "stroke-linejoin=\"round\" ";
    if (stroke.strokeLinejoin != 1 || stroke.strokeMiterlimit == 4) return "";
    return print("stroke-linejoin=\"miter\" stroke-miterlimit=\"%d\" ", stroke.strokeMiterlimit);
  }
  std::string capped() const {
    if (stroke.strokeLinecap == 2) return "stroke-linecap=\"round\" ";
    return stroke.strokeLinecap == 3 ? "stroke-linecap=\"square\" " : "";
  }
  /// What follows the paints in a property list: of a text, an entity, a rule.
  enum Ends { kNone, kJoin, kJoinAndCap };
  /// The property list. Only without references.
  std::string properties(Ends ends) const {
    std::string all;
    const auto add = [&](const std::string& property) {
      all += (all.empty() ? "" : "; ") + property;
    };
    const double opacity = graphics.opacity, width = stroke.strokeWidth.value;
    if (fill.packedColor >= 0) {
      if (opacity == 0.0 || fill.fillOpacity == 0.0) {
        add("fill:none");
      } else if (fill.packedColor != 0) {
        add(print("fill:#%06x", static_cast<unsigned>(fill.packedColor)));
      }
    }
    if (fill.fillOpacity < 1.0 && fill.fillOpacity != 0.0) {
      add(print("fill-opacity:%.2f", fill.fillOpacity));
    }
    if (stroke.packedColor >= 0) {
      const auto word = static_cast<unsigned>(stroke.packedColor);
      if (stroke.strokeOpacity == 0.0 || opacity == 0.0) {
        add("stroke:none");
      } else if (stroke.strokeOpacity == 1.0) {
        add(print("stroke:#%06x", word));
      } else {
        add(print("stroke:#%06x; stroke-opacity:%.2f", word, stroke.strokeOpacity));
      }
    }
    if (hasWidth()) {
      all += print(width < 0.000001 ? "; stroke-width:%e" : "; stroke-width:%.6f", width);
    }
    if (opacity < 1.0 && opacity != 0.0) all += print("; opacity:%.2f", opacity);
    if (fill.fillRule == 2) all += "; fill-rule:evenodd";
    if (stroke.strokeDashCount > 0) all += "; stroke-dasharray:" + dashList();
    if (ends == kNone) return all;
    if (stroke.strokeLinejoin == 3) add("stroke-linejoin:bevel");
    if (stroke.strokeLinejoin == 2) add("stroke-linejoin:round");
    if (stroke.strokeLinejoin == 1 && stroke.strokeMiterlimit != 4) {
      add(print("stroke-linejoin:miter; stroke-miterlimit:%d", stroke.strokeMiterlimit));
    }
    if (ends == kJoinAndCap && stroke.strokeLinecap == 2) add("stroke-linecap:round");
    if (ends == kJoinAndCap && stroke.strokeLinecap == 3) add("stroke-linecap:square");
    return all;
  }
};

template <class Record>
void expectText(std::int32_t type, const Record& record, const std::string& expected) {
  WriterHarness harness;
  ASSERT_EQ(harness.write(type, record), 0);
  ASSERT_EQ(harness.text(), expected);
}

}  // namespace egfsvg::test
