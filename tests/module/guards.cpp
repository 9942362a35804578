#include "tests/module/guards.h"

#include <dlfcn.h>

#include "host/framework.h"

namespace {
unsigned changes = 0;
}  // namespace

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* state) {
  static const auto hosts =
      reinterpret_cast<decltype(&AfxSetModuleState)>(dlsym(RTLD_NEXT, "AfxSetModuleState"));
  ++changes;
  return hosts(state);
}

namespace egfsvg::test {

unsigned moduleStateChanges() { return changes; }

}  // namespace egfsvg::test
