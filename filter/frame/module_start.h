// Start-up of the module: the application object, and the one-time attachment to the framework.
#pragma once

#include "host/framework.h"

/// The application object's class. It adds nothing to its base.
class CSvgaApp : public CWinApp {};

extern CSvgaApp theApp;

/// Each source that needs the framework holds one at file scope. The order of construction across
/// sources is not known, so the counters are set before any of them runs.
class DLLsvg {
 public:
  DLLsvg();
  /// Used once, beside `theApp`: declares the application.
  explicit DLLsvg(const char* moduleName);

  static void _wuInitLibrary();

  static int nRefCount;   // objects constructed so far
  static int bAppDecld;   // 1 once the application is declared
  static int bAppInited;  // 1 once the module is attached to the framework
};
