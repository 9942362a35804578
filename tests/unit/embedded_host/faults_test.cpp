#include "embedded_host/host_faults.h"

#include <string>

#include "embedded_host/host_framework.h"
#include "host/files.h"
#include "host/memory.h"
#include "host/progress.h"
#include "host/resolution.h"
#include "host/style_tables.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using FaultTest = HostTest;

// Calls the named host call once, on nothing.
void callOnNothing(const std::string& name) {
  double factor = 0;
  char byte = 0;
  if (name == "FLR_Read") FLR_Read(0, &byte, 1);
  if (name == "FLR_Seek") FLR_Seek(0, 0, 0, 1);
  if (name == "MPL_GetResXFactor") MPL_GetResXFactor(1, 1, 0, &factor);
  if (name == "SEL_UPDATE_Hit") SEL_UPDATE_Hit(0);
  if (name == "STYLE_AppendUnique") STYLE_AppendUnique(0, 1, &byte);
}

TEST_F(FaultTest, NamedCallsThrowAtTheirNthCall) {
  for (const char* const name :
       {"FLR_Read", "FLR_Seek", "MPL_GetResXFactor", "SEL_UPDATE_Hit", "STYLE_AppendUnique"}) {
    const ExceptionCounts before = exceptionCounts();
    ASSERT_TRUE(throwAt(name, 2));
    callOnNothing(name);
    CException* caught = nullptr;
    try {
      callOnNothing(name);
    } catch (CException* exception) {
      caught = exception;
    }
    ASSERT_NE(nullptr, caught) << name;
    EXPECT_EQ(before.deleted, exceptionCounts().deleted);
    caught->Delete();
    EXPECT_EQ(before.made + 1, exceptionCounts().made);
    EXPECT_EQ(before.deleted + 1, exceptionCounts().deleted);
    callOnNothing(name);
    EXPECT_EQ(3u, callCount(name));
    EXPECT_EQ(1u, faultsStruck());
    clearFaults();
  }
}

TEST_F(FaultTest, ReleaseCallsAndUnknownNamesCannotThrow) {
  for (const char* const name : {"RMM", "FLR_Close", "FLR_DeleteFile", "RMM_Free", "nothing", ""}) {
    EXPECT_FALSE(throwAt(name, 1)) << name;
  }
  EXPECT_FALSE(failAt("FLR_Read", 0));
  EXPECT_FALSE(failAt("nothing", 1));
  EXPECT_EQ(0u, callCount("nothing"));
}

TEST_F(FaultTest, CountingChangesNothing) {
  countCalls();
  char byte = 0;
  const HostHandle stream = openMemory("m", "ab");
  EXPECT_EQ(1, FLR_Read(stream, &byte, 1));
  EXPECT_EQ(1, FLR_Read(stream, &byte, 1));
  FLR_Close(stream);
  EXPECT_EQ(2u, callCount("FLR_Read"));
  EXPECT_EQ(1u, callCount("FLR_Close"));
  EXPECT_EQ(0u, faultsStruck());
  clearFaults();
  EXPECT_EQ(0u, callCount("FLR_Read"));
}

TEST_F(FaultTest, AFaultForEverStrikesUntilItIsCleared) {
  const HostHandle stream = openMemory("m", "abcdef");
  char byte = 0;
  failAt("FLR_Read", 2, FaultSpan::kForEver);
  EXPECT_EQ(1, FLR_Read(stream, &byte, 1));
  EXPECT_LT(FLR_Read(stream, &byte, 1), 0);
  EXPECT_LT(FLR_Read(stream, &byte, 1), 0);
  EXPECT_EQ(2u, faultsStruck());
  clearFaults();
  EXPECT_EQ(1, FLR_Read(stream, &byte, 1));
  FLR_Close(stream);
}

TEST_F(FaultTest, TheGuardPutsBackWhatItFound) {
  AFX_MODULE_STATE* const before = AfxGetModuleState();
  AFX_MODULE_STATE other{};
  {
    const AFX_MAINTAIN_STATE2 outer(&other);
    EXPECT_EQ(&other, AfxGetModuleState());
    try {
      const AFX_MAINTAIN_STATE2 inner(AfxGetStaticModuleState());
      EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
      throw 1;
    } catch (int) {
      EXPECT_EQ(&other, AfxGetModuleState());
    }
  }
  EXPECT_EQ(before, AfxGetModuleState());
}

}  // namespace
}  // namespace egfhost
