#include "frame/module_start.h"

constinit int DLLsvg::nRefCount = 0;
constinit int DLLsvg::bAppDecld = 0;
constinit int DLLsvg::bAppInited = 0;

DLLsvg::DLLsvg() { _wuInitLibrary(); }

DLLsvg::DLLsvg(const char*) {
  _wuInitLibrary();
  bAppDecld = 1;
}

void DLLsvg::_wuInitLibrary() {
  ++nRefCount;
  if (nRefCount == 1) {
    const RegDllInitLevel1 level1;
  } else if (bAppDecld != 0 && bAppInited == 0) {
    const RegDllInitLevel2 level2("svg.dll");
    bAppInited = 1;
  }
}

CSvgaApp theApp;

namespace {

// The second one attaches the module even when every other source was constructed before this one.
const DLLsvg application("svg");
const DLLsvg library;

}  // namespace
