#include "cli/module.h"

#include <dlfcn.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/failure.h"

namespace egfsvg {
namespace {

constexpr const char* kModuleName = "svg.so";
constexpr const char* kModuleVariable = "EGFSVG_MODULE";

[[noreturn]] void fail(const std::string& what) {
  throw Failure(ExitCode::kInternal, "the filter cannot be loaded: " + what + "; set " +
                                         kModuleVariable + " to the path of " + kModuleName);
}

std::string modulePath() {
  if (const char* named = std::getenv(kModuleVariable); named != nullptr && *named != '\0') {
    return named;
  }
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  for (const auto& place : {folder, folder.parent_path() / "lib" / "egfsvg"}) {
    if (std::filesystem::exists(place / kModuleName, error)) return (place / kModuleName).string();
  }
  fail((folder / kModuleName).string() + " is missing");
}

template <class Function>
void find(void* library, const char* name, Function& function) {
  void* symbol = ::dlsym(library, name);
  if (symbol == nullptr) fail(std::string("it lacks ") + name);
  function = reinterpret_cast<Function>(symbol);
}

FilterModule load() {
  void* library = ::dlopen(modulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) fail(::dlerror());
  FilterModule module{};
  find(library, "SVGA_OpenReader", module.openReader);
  find(library, "SVGA_PreprocessSource", module.preprocessSource);
  find(library, "SVGA_QueryProperty", module.queryProperty);
  find(library, "SVGA_ReadData", module.readData);
  find(library, "SVGA_UnloadData", module.unloadData);
  find(library, "SVGA_CloseReader", module.closeReader);
  find(library, "SVGH_OpenReader", module.openHandler);
  find(library, "SVGH_EnumerateData", module.enumerateData);
  find(library, "SVGH_QueryProperty", module.queryHandler);
  find(library, "SVGH_CloseReader", module.closeHandler);
  find(library, "SVGH_PreprocessSource", module.preprocessHandler);
  find(library, "iSVG_CreateDynaLoadResource", module.createResource);
  find(library, "iSVG_WriteFile", module.writeFile);
  return module;
}

}  // namespace

const FilterModule& filterModule() {
  static const FilterModule module = load();
  return module;
}

}  // namespace egfsvg
