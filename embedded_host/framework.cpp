#include "host/framework.h"

#include "embedded_host/host_framework.h"

namespace {

// All that the framework keeps for the process.
struct FrameworkState {
  AFX_MODULE_STATE filterModule;
  egfhost::ExceptionCounts exceptions;
};

constinit FrameworkState state{};
// Asked for by every entry point; the library is there from the start of the process.
[[gnu::tls_model("initial-exec")]] constinit thread_local AFX_MODULE_STATE* currentModule = nullptr;

}  // namespace

CException::CException() { ++state.exceptions.made; }

CException::~CException() { ++state.exceptions.deleted; }

void CException::Delete() { delete this; }

CWinApp::CWinApp() = default;

CWinApp::~CWinApp() = default;

RegDllInitLevel1::RegDllInitLevel1() { state.filterModule.initialised = 1; }

RegDllInitLevel2::RegDllInitLevel2(const char* moduleName) {
  state.filterModule.moduleName = moduleName;
}

AFX_MODULE_STATE* AfxGetStaticModuleState() { return &state.filterModule; }

AFX_MODULE_STATE* AfxGetModuleState() { return currentModule; }

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* next) {
  AFX_MODULE_STATE* const before = currentModule;
  currentModule = next;
  return before;
}

namespace egfhost {

ExceptionCounts exceptionCounts() { return state.exceptions; }

}  // namespace egfhost
