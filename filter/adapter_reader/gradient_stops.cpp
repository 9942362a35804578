#include "adapter_reader/gradient_stops.h"

#include <algorithm>
#include <cmath>

#include "host/memory.h"

namespace egfsvg {
namespace {

constexpr double kChannelTop = 255.0;
constexpr int kMostWeighed = 256;  // of more stops an even selection is weighed, to bound the work

bool sameStop(const _svg_stop& a, const _svg_stop& b) {
  const _svg_color& x = a.gradients.stopColor;
  const _svg_color& y = b.gradients.stopColor;
  return a.offset.value == b.offset.value && a.gradients.stopOpacity == b.gradients.stopOpacity &&
         x.red == y.red && x.green == y.green && x.blue == y.blue;
}

/// How far a channel at `t` between two values lies from the straight line.
double bend(double first, double middle, double last, double t) {
  return std::fabs(first + (last - first) * t - middle);
}

/// What the ramp loses with the middle stop: its largest channel difference from the straight line
/// between its neighbours, times the width of that line.
double lossWithout(const _svg_stop& a, const _svg_stop& b, const _svg_stop& c) {
  const double width = c.offset.value - a.offset.value;
  if (!(width > 0.0)) return 0.0;
  const double t = std::clamp((b.offset.value - a.offset.value) / width, 0.0, 1.0);
  const _svg_pa_gradients& p = a.gradients;
  const _svg_pa_gradients& q = b.gradients;
  const _svg_pa_gradients& r = c.gradients;
  const double most =
      std::max(std::max(bend(p.stopColor.red, q.stopColor.red, r.stopColor.red, t),
                        bend(p.stopColor.green, q.stopColor.green, r.stopColor.green, t)),
               std::max(bend(p.stopColor.blue, q.stopColor.blue, r.stopColor.blue, t),
                        kChannelTop * bend(p.stopOpacity, q.stopOpacity, r.stopOpacity, t)));
  return most * width;
}

}  // namespace

GradientStops::GradientStops(const _svg_gradient& gradient, int room)
    : stops_(gradient.stops), count_(gradient.stopCount), kept_(RMM_SITE) {
  if (count_ <= room) return;
  const int weighed = std::min(gradient.stopCount, kMostWeighed);
  for (std::int64_t i = 0; i < weighed; ++i) {
    if (!kept_.push(&gradient.stops[i * (gradient.stopCount - 1) / (weighed - 1)])) {
      ready_ = false;
      return;
    }
  }
  dropEqual();
  while (kept_.count() > room) dropLeast();
  count_ = kept_.count();
}

void GradientStops::dropEqual() {
  const _svg_stop** end =
      std::unique(kept_.begin(), kept_.end(),
                  [](const _svg_stop* a, const _svg_stop* b) { return sameStop(*a, *b); });
  kept_.cutTo(static_cast<std::int32_t>(end - kept_.begin()));
}

void GradientStops::dropLeast() {
  int least = 1;
  double smallest = HUGE_VAL;
  for (int i = 1; i + 1 < kept_.count(); ++i) {
    const double loss = lossWithout(*kept_[i - 1], *kept_[i], *kept_[i + 1]);
    if (loss < smallest) {
      smallest = loss;
      least = i;
    }
  }
  std::copy(kept_.begin() + least + 1, kept_.end(), kept_.begin() + least);
  kept_.cutTo(kept_.count() - 1);
}

}  // namespace egfsvg
