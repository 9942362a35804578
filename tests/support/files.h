// Files for tests: a folder that is gone after the test, and whole files as strings.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace egfsvg::test {

// A new empty folder; it and what is in it are removed at the end.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }

  // Writes a file of the folder, with the folders on its way, and gives its whole path.
  std::string write(std::string_view name, std::string_view content) const;

  // The path of a file of the folder that need not exist.
  std::string file(std::string_view name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// Both throw std::runtime_error with the path when the system refuses.
void writeFile(const std::filesystem::path& path, std::string_view content);
std::string readFile(const std::filesystem::path& path);

// A path below the root of the source tree: sourcePath("examples/shapes.svg").
std::string sourcePath(std::string_view relative);

}  // namespace egfsvg::test
