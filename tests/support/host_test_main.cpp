// The main of the test programs that use the host.
#include <gtest/gtest.h>

#include "tests/support/fresh_host.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  auto& listeners = testing::UnitTest::GetInstance()->listeners();
  // Before the printer, so that what it finds is printed as a failure of the test.
  testing::TestEventListener* printer = listeners.Release(listeners.default_result_printer());
  listeners.Append(new egfsvg::test::FreshHost);
  listeners.Append(printer);
  return RUN_ALL_TESTS();
}
