// Random gradients against the elements that arithmetic of its own and snprintf make of them.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <random>

#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr int kGradients = 1000;
constexpr double kPerUnit = 1.0 / 4096;

std::string print(const char* format, ...) {
  char text[500];
  va_list args;
  va_start(args, format);
  std::vsnprintf(text, sizeof text, format, args);
  va_end(args);
  return text;
}

struct RandomGradient {
  explicit RandomGradient(unsigned seed) : engine(seed) {
    const double kViews[][2] = {{96, 96}, {200, 200}, {200, 100}};
    const double* view = kViews[pick(3)];
    kx = 96.0 / view[0];
    ky = 96.0 / view[1];
    drawing.emplace(view[0], view[1]);
    sized = pick(2) == 0;
    radial = pick(2) == 0;
    ramp.stopCount = static_cast<std::uint8_t>(pick(12));
    ramp.gradReflect = static_cast<std::uint8_t>(pick(2) == 0 ? 0 : pick(4));
    for (int i = 0; i < ramp.stopCount; ++i) {
      const std::uint32_t kWords[] = {0, 0xffffff, 0xff0000, 0x80123456, 0x00abcdef};
      ramp.stopColors[i] = colourOf(kWords[pick(5)]);
      ramp.stopAlpha[i] = static_cast<std::uint8_t>(pick(2) == 0 ? 255 : pick(256));
      writePacked<std::int16_t>(ramp.stopPositions, static_cast<std::size_t>(i) * 2,
                                static_cast<std::int16_t>(pick(1001)));
    }
    if (pick(2) == 0) ramp.gradMatrix = {1.5F, -0.25F, 0.0F, 2.0F, 4096.0F * 3, -5000.0F};
    parms.gradientKind = radial ? static_cast<std::uint8_t>(1 + pick(3)) : 0;
    const _egf_wrapmode_tag kWraps[] = {_egf_wrapmode_tag::kTile, _egf_wrapmode_tag::kFlip,
                                        _egf_wrapmode_tag::kRadial};
    parms.wrapMode = kWraps[pick(3)];
    parms.angleIsSet = static_cast<std::uint32_t>(pick(3));
    const std::int32_t kAngles[] = {0, 90000000, 30000000, 45999999, -60000000, 135000000};
    parms.gradientAngle = kAngles[pick(6)];
    for (Px& point : points) {
      point = {static_cast<double>(pick(800)) * 0.37 - 100, static_cast<double>(pick(4)) * 25};
    }
  }
  std::size_t pick(std::size_t count) { return engine() % count; }

  /// The root's viewport: a box of 200 by 100 device pixels that is not for output.
  void addViewport() {
    if (!sized) return;
    drawing->tree.nameRoot("setInitialViewPort");
    drawing->tree.add(
        edit<EgfPolygon>(box(0, 0, 200, 100), [](EgfPolygon& r) { r.head.objAttr = 0; }));
  }
  double at(double factor, double pixels) const {
    return factor * double{spaceUnits(pixels)} * kPerUnit;
  }

  std::mt19937 engine;
  std::optional<DrawingWriter> drawing;
  double kx, ky;
  bool sized, radial;
  _egf_gdiplus_gradientparms_tag ramp = kGradientParms;
  _egf_gdiplus_fillparms_tag parms = kFillParms;
  Points points{2};
};

std::string vectorText(const RandomGradient& g) {
  double x1 = g.at(g.kx, g.points[0].x), y1 = g.at(g.ky, g.points[0].y);
  double x2 = g.at(g.kx, g.points[1].x), y2 = g.at(g.ky, g.points[1].y);
  const double a = static_cast<double>(g.parms.gradientAngle / 1000000) * 3.1415926534 / 180.0;
  if (g.parms.angleIsSet == 1 && a != 0.0 && a != 1.5707963267 && y1 != y2) {
    const double base = std::fabs(std::atan((y2 - y1) / (x2 - x1)));
    if (a != base) {
      const double length = std::cos(std::fabs(a - base)) * (y2 - y1) / std::sin(base);
      x2 = std::cos(a) * length + x1;
      y2 = std::sin(a) * length + y1;
    }
  }
  const char* suffix = g.sized ? "%" : "";
  if (g.sized) {
    // Both sides of the viewport are scaled like x, and whole.
    const auto width = static_cast<double>(static_cast<int>(200 * g.kx));
    const auto height = static_cast<double>(static_cast<int>(100 * g.kx));
    x1 = std::fabs(x1 / width) * 100.0;
    x2 = std::fabs(x2 / width) * 100.0;
    y1 = std::fabs(y1 / height) * 100.0;
    y2 = std::fabs(y2 / height) * 100.0;
  }
  return print("x1=\"%.1f%s\" y1=\"%.1f%s\" x2=\"%.1f%s\" y2=\"%.1f%s\" ", x1, suffix, y1, suffix,
               x2, suffix, y2, suffix);
}

std::string stopText(const RandomGradient& g, int index, int offset) {
  const std::uint32_t word = colourWord(g.ramp.stopColors[index]) & 0xffffff;
  const std::uint32_t rgb = word == 0 ? 0xffffff : word == 0xffffff ? 0 : word;
  std::string line = print("          <stop offset=\"%d%%\" stop-color=\"rgb(%u,%u,%u)\" ", offset,
                           rgb >> 16, rgb >> 8 & 0xff, rgb & 0xff);
  const int alpha = g.ramp.stopAlpha[index];
  if (alpha != 255) line += print("stop-opacity=\"%.2f\" ", alpha / 255.0);
  return line + "/>";
}

Lines elementOf(const RandomGradient& g) {
  const char* kind = g.radial ? "radial" : "linear";
  std::string head =
      print("       <%sGradient id=\"grad1\" gradientUnits=\"userSpaceOnUse\" ", kind);
  head += !g.radial ? vectorText(g)
                    : print("fx=\"%.1f\" fy=\"%.1f\" cx=\"50.0%%\" cy=\"50.0%%\" r=\"50.0%%\" ",
                            g.at(g.kx, g.points[0].x), g.at(g.kx, g.points[0].y));
  const int count = g.ramp.stopCount - 2;
  const int reflect = g.ramp.gradReflect;
  const bool flips = g.parms.wrapMode == _egf_wrapmode_tag::kFlip;
  const bool pads = g.radial && count >= 1 && reflect == 0;
  const bool repeats = !flips || (g.radial && count >= 1);
  if (!pads) head += repeats ? "spreadMethod=\"repeat\" " : "spreadMethod=\"reflect\" ";
  if (g.ramp.gradMatrix.m11 != 1.0F && count >= 1) {
    head += print("gradientTransform=\"matrix(1.5000,-0.2500,0.0000,2.0000,%.4f,%.4f)\" ",
                  g.kx * 4096.0 * 3 * kPerUnit, g.kx * -5000.0 * kPerUnit);
  }
  Lines lines{head + ">"};
  for (int i = 0; i < count; ++i) {
    const int index = g.radial ? count - i : i + 1;
    const int percent = g.ramp.stopPositions[index] / 10;
    const int offset = !g.radial ? percent : reflect == 0 ? 100 - percent : percent * (reflect + 1);
    lines.push_back(stopText(g, index, offset));
  }
  lines.push_back(print("       </%sGradient>", kind));
  return lines;
}

TEST(PrintedGradients, Fills) {
  for (unsigned seed = 0; seed < kGradients; ++seed) {
    RandomGradient g(seed);
    g.addViewport();
    const HostHandle document = g.drawing->document();
    AreaPen pen{.fillStyle = kFillLinear, .gradPts = g.points};
    pen.fillParmsNo = appendStyle(document, kStyleFill, g.parms);
    pen.fillGradientNo = appendStyle(document, kStyleGradient, g.ramp);
    g.drawing->tree.add(polygon({{0, 0}, {9, 0}, {5, 5}}, pen));
    ASSERT_EQ(g.drawing->write(), 0);
    ASSERT_EQ(g.drawing->gradients(), elementOf(g)) << seed;
  }
}

}  // namespace
}  // namespace egfsvg
