// The gradient element: its opening line, a line a stop, its close.

#include "writer/element_head.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

const char* suffixOf(const _svg_value& value) { return value.unit == kUnitPercent ? "%" : ""; }

void addLinear(const _svg_gradient& g, LineBuilder& line) {
  const auto& v = g.parms.linear;
  const char* suffix = suffixOf(v.x1);
  line.format<"       <linearGradient id=\"grad%s\" gradientUnits=\"userSpaceOnUse\" ">(g.head.id);
  line.format<"x1=\"%.1f%s\" y1=\"%.1f%s\" x2=\"%.1f%s\" y2=\"%.1f%s\" >">(
      v.x1.value, suffix, v.y1.value, suffix, v.x2.value, suffix, v.y2.value, suffix);
}

/// Kept: centre and radius are always percentages, whatever their units.
void addRadial(const _svg_gradient& g, LineBuilder& line) {
  const auto& c = g.parms.radial;
  const char* suffix = suffixOf(c.fx);
  line.format<"       <radialGradient id=\"grad%s\" gradientUnits=\"userSpaceOnUse\" ">(g.head.id);
  line.format<"fx=\"%.1f%s\" fy=\"%.1f%s\" cx=\"%.1f%s\" cy=\"%.1f%s\" r=\"%.1f%s\" >">(
      c.fx.value, suffix, c.fy.value, suffix, c.cx.value, "%", c.cy.value, "%", c.r.value, "%");
}

/// Each addition takes the place of the ">" and brings a new one.
void addSpreadAndTransform(const _svg_gradient& g, LineBuilder& line) {
  if (g.spreadMethod == kSpreadRepeat) line.takeBack(1).add("spreadMethod=\"repeat\" >");
  if (g.spreadMethod == kSpreadReflect) line.takeBack(1).add("spreadMethod=\"reflect\" >");
  if (g.head.transformCount == 0) return;
  const _svg_value* m = g.head.transforms[0].args;
  line.takeBack(1).format<"gradientTransform=\"matrix(%.4f,%.4f,%.4f,%.4f,%.4f,%.4f)\" >">(
      m[0].value, m[1].value, m[2].value, m[3].value, m[4].value, m[5].value);
}

void addStop(const _svg_stop& stop, LineBuilder& line) {
  const _svg_color& colour = stop.gradients.stopColor;
  line.format<"          <stop offset=\"%ld%s\" stop-color=\"rgb(%ld,%ld,%ld)\" />">(
      wholeOf(stop.offset), "%", colour.red, colour.green, colour.blue);
  if (stop.gradients.stopOpacity != 1.0) {
    line.takeBack(2).format<"stop-opacity=\"%.2f\" />">(stop.gradients.stopOpacity);
  }
}

}  // namespace
}  // namespace egfsvg

int CHandlerWriter::writeGradientTag(_svg_gradient* record, HostHandle stream) {
  using namespace egfsvg;
  const bool radial = record->head.type == kTagRadialGradient;
  line_.clear();
  radial ? addRadial(*record, line_) : addLinear(*record, line_);
  addSpreadAndTransform(*record, line_);
  if (line_.put(stream) == -1) return -1;
  for (std::int32_t i = 0; i < record->stopCount; ++i) {
    line_.clear();
    addStop(record->stops[i], line_);
    if (line_.put(stream) == -1) return -1;
  }
  return putLiteral(radial ? "       </radialGradient>" : "       </linearGradient>", stream);
}
