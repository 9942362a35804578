// Attributes and values for the tests of the reader's setters.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "model/lifecycle.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg::test {

// A pair over its own text.
class Pair {
 public:
  explicit Pair(std::string value, const char* name = "") : text_(std::move(value)) {
    std::strncpy(pair_.name, name, kAttribNameSize - 1);
    pair_.value = text_.data();
    pair_.valueSize = static_cast<std::int32_t>(text_.size()) + 1;
  }
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  operator _svg_attrib_pair*() { return &pair_; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  _svg_attrib_pair pair_{};
};

// A block in which more than the text may be looked at; what stands there must not count.
inline std::string withRoomBehind(const std::string& text) {
  return text + '\0' + std::string(64, '7');
}

// Equal within a relative 1e-12.
inline bool sameNumber(double expected, double actual) {
  if (expected == actual) return true;
  return std::fabs(expected - actual) <= 1e-12 * std::fabs(expected);
}

inline testing::AssertionResult isValue(const _svg_value& value, double number, int unit) {
  if (sameNumber(number, value.value) && value.unit == unit) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << value.value << " unit " << value.unit << ", expected " << number << " unit " << unit;
}

inline testing::AssertionResult isColor(const _svg_color& color, int red, int green, int blue) {
  if (color.red == red && color.green == green && color.blue == blue && color.colorExtra == 0) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << "(" << color.red << ", " << color.green << ", " << color.blue << ", "
         << color.colorExtra << "), expected (" << red << ", " << green << ", " << blue << ", 0)";
}

// The text, or "null".
inline std::string textOf(const char* text) { return text == nullptr ? "null" : text; }

// An element of its own, set up and released.
template <class Record, void (*Init)(Record*), int Type>
struct Element {
  Element() {
    Init(&record);
    record.head.type = Type;
  }
  ~Element() { svg_DestroyObjectAtt(&record, Type); }
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  Record* operator->() { return &record; }
  Record* get() { return &record; }

  Record record;
};

using Rect = Element<_svg_rect, initRect, kTagRect>;
using Circle = Element<_svg_circle, initCircle, kTagCircle>;
using Ellipse = Element<_svg_ellipse, initEllipse, kTagEllipse>;
using Line = Element<_svg_line, initLine, kTagLine>;
using Polyline = Element<_svg_polyline, initPolyline, kTagPolyline>;
using Polygon = Element<_svg_polygon, initPolygon, kTagPolygon>;
using Path = Element<_svg_path, initPath, kTagPath>;
using Image = Element<_svg_image, initImage, kTagImage>;
using Link = Element<_svg_a, initA, kTagLink>;
using Svg = Element<_svg_svg, initSVGObj, kTagSvg>;
using Group = Element<_svg_group, initGroupObj, kTagGroup>;

// Records that have no row in svg_DestroyObjectAtt, or more to release.
struct Text : Element<_svg_text, initText, kTagText> {
  ~Text() { DestroyTextElements(&record); }
};
struct Defs {
  Defs() {
    initDefsObj(&record);
    record.head.type = kTagDefs;
  }
  ~Defs() {
    DestroyCommonElements(&record.head);
    DestroyPAElements(&record.pa);
  }
  _svg_defs* operator->() { return &record; }
  _svg_defs* get() { return &record; }
  _svg_defs record;
};
struct Switch {
  Switch() {
    initSwitch(&record);
    record.head.type = kTagSwitch;
  }
  ~Switch() {
    DestroyCommonElements(&record.head);
    DestroyPAElements(&record.pa);
  }
  _svg_switch* operator->() { return &record; }
  _svg_switch* get() { return &record; }
  _svg_switch record;
};
struct Gradient {
  explicit Gradient(int type = kTagLinearGradient) {
    initGradientObj(&record);
    type == kTagLinearGradient ? initLinearGrad(&record) : initRadialGrad(&record);
    record.head.type = type;
  }
  ~Gradient() {
    DestroyCommonElements(&record.head);
    DestroyGraphicsElements(&record.graphics);
    DestroyGrElements(&record);
  }
  _svg_gradient* operator->() { return &record; }
  _svg_gradient* get() { return &record; }
  _svg_gradient record;
};
struct Stop {
  Stop() {
    initStopObj(&record);
    record.head.type = kTagStop;
  }
  ~Stop() {
    DestroyCommonElements(&record.head);
    DestroyGraphicsElements(&record.graphics);
  }
  _svg_stop* operator->() { return &record; }
  _svg_stop* get() { return &record; }
  _svg_stop record;
};

}  // namespace egfsvg::test
