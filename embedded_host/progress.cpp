#include "host/progress.h"

#include <utility>

#include "embedded_host/bounded_text.h"
#include "embedded_host/fault.h"
#include "embedded_host/handles.h"
#include "embedded_host/host_progress.h"

namespace egfhost {

namespace {

// A bar, or a level of one.
class Gauge : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kGauge;

  Gauge(std::string caption, int ticks, bool level)
      : HostObject(kKind), caption_(std::move(caption)), ticks_(ticks), level_(level) {}

  const std::string& caption() const { return caption_; }
  int ticks() const { return ticks_; }
  int hits() const { return hits_; }
  bool isLevel() const { return level_; }
  void hit() { ++hits_; }

 private:
  std::string caption_;
  int ticks_;
  int hits_ = 0;
  bool level_;
};

// All that progress keeps.
struct ProgressState {
  GaugeCounts counts{};
  GaugeListener listener;
};

ProgressState& state() {
  static ProgressState progress;
  return progress;
}

void tell(GaugeStep step, const Gauge& gauge) {
  if (state().listener) state().listener({step, gauge.caption(), gauge.hits(), gauge.ticks()});
}

HostHandle start(std::string caption, int ticks, bool level) {
  const Gauge* const gauge = makeHostObject<Gauge>(RMM_SITE, std::move(caption), ticks, level);
  if (gauge == nullptr) return 0;
  ++(level ? state().counts.levels : state().counts.starts);
  tell(level ? GaugeStep::kStartLevel : GaugeStep::kStart, *gauge);
  return gauge->handle();
}

}  // namespace

void setGaugeListener(GaugeListener listener) { state().listener = std::move(listener); }

GaugeCounts gaugeCounts() { return state().counts; }

void clearGaugeCounts() { state().counts = GaugeCounts{}; }

}  // namespace egfhost

using egfhost::FaultCall;
using egfhost::Gauge;

HostHandle SEL_UPDATE_Start(int, const char* caption, int, int, int) {
  if (egfhost::faultFails(FaultCall::SEL_UPDATE_Start)) return 0;
  return egfhost::hostCall(HostHandle{0},
                           [&] { return egfhost::start(egfhost::textOrEmpty(caption), 0, false); });
}

HostHandle SEL_UPDATE_StartLevel(HostHandle bar, int ticks, int) {
  if (egfhost::faultFails(FaultCall::SEL_UPDATE_StartLevel)) return 0;
  const Gauge* const found = egfhost::hostObjectAs<Gauge>(bar);
  if (found == nullptr) return 0;
  return egfhost::hostCall(HostHandle{0},
                           [&] { return egfhost::start(found->caption(), ticks, true); });
}

int SEL_UPDATE_Hit(HostHandle level) {
  if (egfhost::faultFails(FaultCall::SEL_UPDATE_Hit)) return -1;
  Gauge* const found = egfhost::hostObjectAs<Gauge>(level);
  if (found == nullptr) return -1;
  return egfhost::hostCall(-1, [&] {
    found->hit();
    ++egfhost::state().counts.hits;
    egfhost::tell(egfhost::GaugeStep::kHit, *found);
    return 0;
  });
}

int SEL_UPDATE_End(HostHandle levelOrBar) {
  Gauge* const found = egfhost::hostObjectAs<Gauge>(levelOrBar);
  if (found == nullptr) return -1;
  const int result = egfhost::hostCall(0, [&] {
    ++(found->isLevel() ? egfhost::state().counts.levelEnds : egfhost::state().counts.ends);
    egfhost::tell(found->isLevel() ? egfhost::GaugeStep::kEndLevel : egfhost::GaugeStep::kEnd,
                  *found);
    return 0;
  });
  egfhost::endHostObject(found);
  return result;
}
