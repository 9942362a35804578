#include "frame/entry_point.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "embedded_host/host_framework.h"

namespace {

class DerivedException : public CException {};

struct Guarded {
  AFX_MODULE_STATE outer{"outer", 1};
  AFX_MODULE_STATE* before = AfxSetModuleState(&outer);
  ~Guarded() { AfxSetModuleState(before); }
};

TEST(EntryPoint, GivesTheResultAndMakesTheModuleCurrent) {
  Guarded guarded;
  const auto result = egfsvg::entryPoint([] {
    EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
    return std::int32_t{42};
  });
  EXPECT_EQ(result, 42);
  EXPECT_EQ(AfxGetModuleState(), &guarded.outer);
}

TEST(EntryPoint, GuardsNestAndRestoreWhatTheyFound) {
  Guarded guarded;
  AFX_MODULE_STATE inner{"inner", 1};
  egfsvg::entryPoint([&] {
    AfxSetModuleState(&inner);
    egfsvg::entryPoint([&] {
      EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
      return 0;
    });
    EXPECT_EQ(AfxGetModuleState(), &inner);
    return 0;
  });
  EXPECT_EQ(AfxGetModuleState(), &guarded.outer);
}

TEST(EntryPoint, DeletesAFrameworkExceptionOnce) {
  Guarded guarded;
  const auto before = egfhost::exceptionCounts();
  const auto raise = []() -> std::int32_t { throw new CException; };
  EXPECT_EQ(egfsvg::entryPoint(raise), -5201);
  const auto raiseDerived = []() -> std::int32_t { throw new DerivedException; };
  EXPECT_EQ(egfsvg::entryPoint(raiseDerived), -5201);
  const auto after = egfhost::exceptionCounts();
  EXPECT_EQ(after.made - before.made, 2U);
  EXPECT_EQ(after.deleted - before.deleted, 2U);
  EXPECT_EQ(AfxGetModuleState(), &guarded.outer);
}

TEST(EntryPoint, TheInnermostOneCatches) {
  const auto result = egfsvg::entryPoint([] {
    const std::int32_t inner = egfsvg::entryPoint([]() -> std::int32_t { throw new CException; });
    EXPECT_EQ(inner, -5201);
    return std::int32_t{7};
  });
  EXPECT_EQ(result, 7);
}

TEST(EntryPoint, OtherExceptionsPassWithTheStateRestored) {
  Guarded guarded;
  EXPECT_THROW(egfsvg::entryPoint([]() -> std::int32_t { throw std::runtime_error("passes"); }),
               std::runtime_error);
  EXPECT_EQ(AfxGetModuleState(), &guarded.outer);
  EXPECT_THROW(egfsvg::entryPoint([]() -> std::int32_t { throw 5; }), int);
  EXPECT_EQ(AfxGetModuleState(), &guarded.outer);
}

}  // namespace
