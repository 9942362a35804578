// What tests of whole files start from: files that may be read and written, and the temporary
// folder, which must be as it was at the end.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "dyna/svgdyna.h"
#include "embedded_host/host.h"
#include "tests/support/files.h"

namespace egfsvg::test {

class WholeFileTest : public testing::Test {
 protected:
  void SetUp() override {
    egfhost::resetForTest();
    egfhost::allowFolder(folder.path().string(), egfhost::FileAccess::kWrite);
    before = temporaries();
    openBefore = openFiles();
  }
  void TearDown() override {
    EXPECT_EQ(before, temporaries());
    egfhost::resetForTest();
  }

  // Files opened and not yet closed, on some scale of its own.
  static std::uint64_t openFiles() {
    const egfhost::FileCounters counters = egfhost::fileCounters();
    return counters.opens - counters.closes;
  }

  static std::set<std::string> temporaries() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(FLR_GetTempPath())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  QV_FILEID idOf(const std::string& path) const {
    QV_FILEID id{};
    EXPECT_TRUE(egfhost::fileIdOf(path, &id));
    return id;
  }
  static std::string pathOf(const QV_FILEID& id) { return std::string(id.path) + id.baseName; }

  TempDir folder;
  std::set<std::string> before;
  std::uint64_t openBefore = 0;
};

}  // namespace egfsvg::test
