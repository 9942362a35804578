#include "cli/progress_bar.h"

#include <unistd.h>

#include <algorithm>

#include "embedded_host/host_progress.h"

namespace egfsvg {
namespace {

// Work that ends sooner shows no bar.
constexpr std::chrono::milliseconds kPatience{700};
constexpr int kWidth = 30;
constexpr int kWhole = 100;

void put(const std::string& text) {
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

}  // namespace

ProgressBar::ProgressBar(bool quiet)
    : wanted_(!quiet && ::isatty(STDERR_FILENO) == 1), start_(std::chrono::steady_clock::now()) {}

ProgressBar::~ProgressBar() {
  if (shown_) put("\r\x1b[K");
}

void ProgressBar::show(const std::string& caption, double done, double total) {
  if (!wanted_ || total <= 0) return;
  if (!shown_ && std::chrono::steady_clock::now() - start_ < kPatience) return;
  const int percent = std::clamp(static_cast<int>(kWhole * done / total), 0, kWhole);
  if (percent == percent_) return;
  percent_ = percent;
  shown_ = true;
  const auto filled = static_cast<std::size_t>(percent * kWidth / kWhole);
  put("\r\x1b[K[" + std::string(filled, '#') + std::string(kWidth - filled, ' ') + "] " +
      std::to_string(percent) + "% " + caption);
}

GaugeProgress::GaugeProgress(bool quiet) : bar_(quiet) {
  egfhost::setGaugeListener([this](const egfhost::GaugeEvent& event) {
    if (event.step == egfhost::GaugeStep::kHit) bar_.show(event.caption, event.hits, event.ticks);
  });
}

GaugeProgress::~GaugeProgress() { egfhost::setGaugeListener({}); }

}  // namespace egfsvg
