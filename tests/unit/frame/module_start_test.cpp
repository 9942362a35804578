#include "frame/module_start.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

TEST(ModuleStart, AttachesOnceAndCountsTheRest) {
  EXPECT_GE(DLLsvg::nRefCount, 2);
  EXPECT_EQ(DLLsvg::bAppDecld, 1);
  EXPECT_EQ(DLLsvg::bAppInited, 1);
  EXPECT_EQ(AfxGetStaticModuleState()->initialised, 1);
  EXPECT_STREQ(AfxGetStaticModuleState()->moduleName, "svg.dll");
  const int count = DLLsvg::nRefCount;
  AfxGetStaticModuleState()->moduleName = nullptr;
  const DLLsvg another;
  EXPECT_EQ(DLLsvg::nRefCount, count + 1);
  EXPECT_EQ(AfxGetStaticModuleState()->moduleName, nullptr);  // not attached a second time
  AfxGetStaticModuleState()->moduleName = "svg.dll";
}

TEST(ModuleStart, AttachmentWaitsForTheApplication) {
  const int count = DLLsvg::nRefCount;
  AfxGetStaticModuleState()->moduleName = nullptr;
  AfxGetStaticModuleState()->initialised = 0;
  DLLsvg::nRefCount = DLLsvg::bAppDecld = DLLsvg::bAppInited = 0;
  const DLLsvg first;
  EXPECT_EQ(AfxGetStaticModuleState()->initialised, 1);
  AfxGetStaticModuleState()->initialised = 0;
  const DLLsvg second;
  EXPECT_EQ(DLLsvg::bAppInited, 0);
  const DLLsvg application("svg");
  EXPECT_EQ(DLLsvg::bAppDecld, 1);
  EXPECT_EQ(DLLsvg::bAppInited, 0);
  EXPECT_EQ(AfxGetStaticModuleState()->moduleName, nullptr);
  const DLLsvg last;
  EXPECT_EQ(DLLsvg::nRefCount, 4);
  EXPECT_EQ(DLLsvg::bAppInited, 1);
  EXPECT_STREQ(AfxGetStaticModuleState()->moduleName, "svg.dll");
  EXPECT_EQ(AfxGetStaticModuleState()->initialised, 0);  // level 1 ran once, for the first
  AfxGetStaticModuleState()->initialised = 1;
  DLLsvg::nRefCount = count;
}

TEST(ModuleStart, TheApplicationIsOneOfTheFrameworks) {
  const CWinApp& application = theApp;
  EXPECT_EQ(typeid(application), typeid(CSvgaApp));
}

}  // namespace
