#include "bench/svg_module.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace egfsvg::bench {
namespace {

template <class Function>
void find(void* module, const char* name, Function& entry) {
  entry = reinterpret_cast<Function>(dlsym(module, name));
  if (entry == nullptr) throw std::runtime_error(std::string("no ") + name + " in the module");
}

}  // namespace

SvgModule::SvgModule(const char* path) {
  void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw std::runtime_error(dlerror());
  find(module, "SVGA_OpenReader", openAdapter);
  find(module, "SVGA_PreprocessSource", preprocess);
  find(module, "SVGA_ReadData", readData);
  find(module, "SVGA_UnloadData", unloadData);
  find(module, "SVGA_CloseReader", closeAdapter);
  find(module, "SVGH_OpenReader", openHandler);
  find(module, "SVGH_EnumerateData", enumerate);
  find(module, "SVGH_CloseReader", closeHandler);
  find(module, "iSVG_WriteFile", writeFile);
}

}  // namespace egfsvg::bench
