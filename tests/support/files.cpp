#include "tests/support/files.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace egfsvg::test {

namespace fs = std::filesystem;

TempDir::TempDir() {
  std::string pattern = (fs::temp_directory_path() / "egfsvg-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder: " + pattern);
  path_ = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TempDir::write(std::string_view name, std::string_view content) const {
  const fs::path target = path_ / name;
  fs::create_directories(target.parent_path());
  writeFile(target, content);
  return target.string();
}

void writeFile(const fs::path& path, std::string_view content) {
  std::ofstream out(path, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  if (!out) throw std::runtime_error("can't write " + path.string());
}

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("can't read " + path.string());
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string sourcePath(std::string_view relative) {
  return (fs::path(EGFSVG_SOURCE_DIR) / relative).string();
}

}  // namespace egfsvg::test
