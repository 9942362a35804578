// A progress bar on standard error, when that is a terminal and the work takes a while.
#pragma once

#include <chrono>
#include <string>

namespace egfsvg {

class ProgressBar {
 public:
  // Draws nothing when quiet or when standard error is no terminal.
  explicit ProgressBar(bool quiet);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  // done of total, both counted in the same unit.
  void show(const std::string& caption, double done, double total);

 private:
  bool shown_ = false;
  bool wanted_;
  int percent_ = -1;
  std::chrono::steady_clock::time_point start_;
};

// Shows the host's gauge on a bar while it lives.
class GaugeProgress {
 public:
  explicit GaugeProgress(bool quiet);
  GaugeProgress(const GaugeProgress&) = delete;
  GaugeProgress& operator=(const GaugeProgress&) = delete;
  ~GaugeProgress();

 private:
  ProgressBar bar_;
};

}  // namespace egfsvg
