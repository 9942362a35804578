// Every test finds the host as it is at its start, and leaves no block of the host's memory behind.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "embedded_host/host_memory.h"

namespace egfsvg::test {

// Before a test: settings, budgets and faults as at the start. After it: a failure for each site
// that holds more blocks than before, for a free of what is no live block, and for a CException
// that nobody deleted.
class FreshHost : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo& test) override;
  void OnTestEnd(const testing::TestInfo& test) override;

 private:
  std::vector<egfhost::SiteUse> sites_;
  std::uint64_t badFrees_ = 0;
  std::uint64_t liveExceptions_ = 0;
};

}  // namespace egfsvg::test
