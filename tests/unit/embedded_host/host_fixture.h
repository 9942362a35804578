// What tests of the host start from. Blocks left behind are the business of the fresh host that
// every test gets.
#pragma once

#include <gtest/gtest.h>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_files.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_progress.h"
#include "embedded_host/host_settings.h"

namespace egfhost {

// No policy, messages, hooks or counts from an earlier test.
class HostTest : public testing::Test {
 protected:
  void SetUp() override { forget(); }
  void TearDown() override { forget(); }

 private:
  static void forget() {
    resetFilePolicy();
    clearMessages();
    setLineHook({});
    setMessageListener({});
    setGaugeListener({});
    clearGaugeCounts();
  }
};

}  // namespace egfhost
