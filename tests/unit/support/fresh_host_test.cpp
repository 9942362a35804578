#include "tests/support/fresh_host.h"

#include <gtest/gtest-spi.h>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_settings.h"
#include "host/framework.h"
#include "host/memory.h"

namespace egfsvg::test {
namespace {

const testing::TestInfo& thisTest() {
  return *testing::UnitTest::GetInstance()->current_test_info();
}

TEST(FreshHost, TellsTheSiteOfABlockLeftBehind) {
  static FreshHost host;
  host.OnTestStart(thisTest());
  static void* block = RMM_AllocName(1, 8, "left.cpp", 12);
  EXPECT_NONFATAL_FAILURE(host.OnTestEnd(thisTest()), "left.cpp");
  RMM_Free(block);
  host.OnTestEnd(thisTest());
}

TEST(FreshHost, TellsAnExceptionNobodyDeleted) {
  static FreshHost host;
  host.OnTestStart(thisTest());
  static auto* exception = new CException;
  EXPECT_NONFATAL_FAILURE(host.OnTestEnd(thisTest()), "CException");
  exception->Delete();
  host.OnTestEnd(thisTest());
}

TEST(FreshHost, PutsSettingsBudgetsAndFaultsBack) {
  FreshHost host;
  ASSERT_TRUE(egfhost::setSetting("hideUnderNone", 1));
  egfhost::setByteBudget(1);
  ASSERT_TRUE(egfhost::failAllocation(1, egfhost::FaultSpan::kForEver));
  host.OnTestStart(thisTest());
  EXPECT_EQ(egfhost::getSetting("hideUnderNone"), 0u);
  void* block = RMM_AllocName(1, 8, RMM_SITE);
  EXPECT_NE(block, nullptr);
  RMM_Free(block);
}

}  // namespace
}  // namespace egfsvg::test
