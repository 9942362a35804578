#include "tests/support/fresh_host.h"

#include "embedded_host/host.h"

namespace egfsvg::test {
namespace {

std::uint64_t liveExceptions() {
  const egfhost::ExceptionCounts counts = egfhost::exceptionCounts();
  return counts.made - counts.deleted;
}

}  // namespace

void FreshHost::OnTestStart(const testing::TestInfo&) {
  egfhost::resetForTest();
  sites_ = egfhost::liveSites();
  badFrees_ = egfhost::memoryCounters().badFrees;
  liveExceptions_ = liveExceptions();
}

void FreshHost::OnTestEnd(const testing::TestInfo& test) {
  egfhost::resetForTest();
  if (test.result()->Skipped()) return;
  const auto left = egfhost::liveSitesSince(sites_);
  EXPECT_TRUE(left.empty()) << "blocks left behind:\n" << egfhost::describeSites(left);
  EXPECT_EQ(egfhost::memoryCounters().badFrees, badFrees_) << "a free of what is no live block";
  EXPECT_EQ(liveExceptions(), liveExceptions_) << "a CException was not deleted";
}

}  // namespace egfsvg::test
