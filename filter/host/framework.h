// The host framework, as far as the module needs it: the exception that ends at an entry point, the
// module state and its guard, and start-up.
#pragma once

#include "host/wire.h"

// Thrown by address (`throw new ...`); whoever catches it calls Delete once.
class EGFHOST_API CException {
 public:
  CException();
  CException(const CException&) = delete;
  CException& operator=(const CException&) = delete;

  void Delete();

 protected:
  virtual ~CException();
};

// What the framework keeps for a module.
struct AFX_MODULE_STATE {
  const char* moduleName;  // null until the module is attached
  int initialised;         // 1 after level 1
};

extern "C" {

// The state of the filter module.
EGFHOST_API AFX_MODULE_STATE* AfxGetStaticModuleState();

// The state that is current for the calling thread.
EGFHOST_API AFX_MODULE_STATE* AfxGetModuleState();

// Makes a state current for the calling thread and returns the one before. Never throws.
EGFHOST_API AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* state);

}  // extern "C"

// Makes a module state current while it lives, and puts back what it found.
class AFX_MAINTAIN_STATE2 {
 public:
  explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state) : previous_(AfxSetModuleState(state)) {}
  ~AFX_MAINTAIN_STATE2() { AfxSetModuleState(previous_); }
  AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
  AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

 private:
  AFX_MODULE_STATE* previous_;
};

// The application object's base.
class EGFHOST_API CWinApp {
 public:
  CWinApp();
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;
  virtual ~CWinApp();
};

// Level 1 sets up the library's module state; level 2 attaches the module under its name, a
// literal.
struct EGFHOST_API RegDllInitLevel1 {
  RegDllInitLevel1();
};
struct EGFHOST_API RegDllInitLevel2 {
  explicit RegDllInitLevel2(const char* moduleName);
};
