// What tests of the host start from. Blocks left behind are the business of the fresh host that
// every test gets.
#pragma once

#include <gtest/gtest.h>

#include "embedded_host/host.h"

namespace egfhost {

// No policy, messages, hooks or counts from an earlier test.
class HostTest : public testing::Test {
 protected:
  void SetUp() override { resetForTest(); }
  void TearDown() override { resetForTest(); }
};

}  // namespace egfhost
