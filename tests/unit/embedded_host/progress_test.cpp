#include "host/progress.h"

#include <string>
#include <vector>

#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using ProgressTest = HostTest;

TEST_F(ProgressTest, ABarAndItsLevelAreToldAndCounted) {
  std::vector<std::string> told;
  setGaugeListener([&told](const GaugeEvent& event) {
    told.push_back(std::to_string(static_cast<int>(event.step)) + " " + event.caption + " " +
                   std::to_string(event.hits) + "/" + std::to_string(event.ticks));
  });
  const HostHandle bar = SEL_UPDATE_Start(kGaugeMessage, "a.svg", 0, 1, 0);
  const HostHandle level = SEL_UPDATE_StartLevel(bar, kGaugeLevelTicks, 1);
  EXPECT_EQ(0, SEL_UPDATE_Hit(level));
  EXPECT_EQ(0, SEL_UPDATE_Hit(level));
  EXPECT_EQ(0, SEL_UPDATE_End(level));
  EXPECT_EQ(0, SEL_UPDATE_End(bar));
  EXPECT_EQ((std::vector<std::string>{"0 a.svg 0/0", "1 a.svg 0/100", "2 a.svg 1/100",
                                      "2 a.svg 2/100", "3 a.svg 2/100", "4 a.svg 0/0"}),
            told);
  const GaugeCounts counts = gaugeCounts();
  EXPECT_EQ(1u, counts.starts);
  EXPECT_EQ(1u, counts.levels);
  EXPECT_EQ(2u, counts.hits);
  EXPECT_EQ(1u, counts.levelEnds);
  EXPECT_EQ(1u, counts.ends);
}

TEST_F(ProgressTest, WrongHandlesAndFailures) {
  EXPECT_EQ(0u, SEL_UPDATE_StartLevel(0, 100, 1));
  EXPECT_NE(0, SEL_UPDATE_Hit(0));
  EXPECT_NE(0, SEL_UPDATE_End(123));
  failAllocation(1);
  EXPECT_EQ(0u, SEL_UPDATE_Start(kGaugeMessage, nullptr, 0, 1, 0));
  failAt("SEL_UPDATE_Start", 1);
  EXPECT_EQ(0u, SEL_UPDATE_Start(kGaugeMessage, nullptr, 0, 1, 0));
  const HostHandle bar = SEL_UPDATE_Start(kGaugeMessage, nullptr, 0, 1, 0);
  failAt("SEL_UPDATE_StartLevel", 1);
  EXPECT_EQ(0u, SEL_UPDATE_StartLevel(bar, 100, 1));
  EXPECT_EQ(0, SEL_UPDATE_End(bar));
  EXPECT_NE(0, SEL_UPDATE_End(bar));
}

}  // namespace
}  // namespace egfhost
