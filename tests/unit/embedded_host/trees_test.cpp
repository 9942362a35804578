#include <gtest/gtest.h>

#include <string>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_trees.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

class OwnedTree {
 public:
  explicit OwnedTree(HostHandle tree) : tree_(tree) {}
  ~OwnedTree() { egfhost::freeTree(tree_); }
  OwnedTree(const OwnedTree&) = delete;
  OwnedTree& operator=(const OwnedTree&) = delete;
  HostHandle handle() const { return tree_; }

 private:
  HostHandle tree_;
};

TEST(Trees, CarryTheirHeaderSizeInTheFirstWord) {
  const OwnedTree tree(EEL_CreateEdtDesc(0, 0));
  ASSERT_NE(tree.handle(), 0U);
  const char* block = at<char>(tree.handle());
  const unsigned headerSize = readPacked<std::uint16_t>(block) >> 10;
  EXPECT_EQ(headerSize, 24U);
  EXPECT_EQ(readPacked<std::uint32_t>(block, 4), 1U);  // references
  EXPECT_EQ(readPacked<std::uint32_t>(block, 8), 0U);  // user data
  const char* body = block + headerSize;
  EXPECT_EQ(readPacked<HostHandle>(body), handleOf(egfhost::rootOf(tree.handle())));
  EXPECT_EQ(reinterpret_cast<const char*>(egfhost::pageHeaderOf(tree.handle())), body + 8);
}

TEST(Trees, StartWithAnEmptyDrawnGroup) {
  const OwnedTree tree(egfhost::createTree(77));
  _egf_obj* root = egfhost::rootOf(tree.handle());
  EXPECT_EQ(root->objClass, 1);
  EXPECT_NE(root->objAttr & 3, 0);
  EXPECT_EQ(root->layerIndex, 65535);
  _egf_obj* cursor = nullptr;
  EXPECT_EQ(EEL_GetNextObject(root, &cursor, kWalkMask), nullptr);
  EXPECT_EQ(readPacked<HostHandle>(at<char>(tree.handle()), 12), 77U);
}

TEST(Trees, AreToldFromOtherBlocks) {
  const OwnedTree tree(egfhost::createTree(0));
  const OwnedObject object(box(0, 0, 1, 1));
  EXPECT_TRUE(egfhost::isTree(tree.handle()));
  EXPECT_FALSE(egfhost::isTree(handleOf(object.get())));
  EXPECT_FALSE(egfhost::isTree(0));
}

TEST(Trees, KeepLayersByIndex) {
  const OwnedTree tree(egfhost::createTree(0));
  const struct {
    const char* name;
    bool shown;
    bool suppressed;
  } rows[] = {{"base", true, false}, {"hidden", false, false}, {"off", true, true}};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(egfhost::addLayer(tree.handle(), rows[i].name, rows[i].shown, rows[i].suppressed), i);
  }
  const char* header = reinterpret_cast<const char*>(egfhost::pageHeaderOf(tree.handle()));
  EXPECT_EQ(readPacked<std::uint32_t>(header, 3056), 3U);
  const char* table = at<char>(readPacked<HostHandle>(header, 3060));
  for (unsigned i = 0; i < 3; ++i) {
    const char* block = at<char>(readPacked<HostHandle>(table, i * 4));
    const char* body = block + (readPacked<std::uint16_t>(block) >> 10);
    EXPECT_EQ(readPacked<std::int32_t>(body), rows[i].shown ? 1 : 0);
    EXPECT_EQ(readPacked<std::int32_t>(body, 4), rows[i].suppressed ? 1 : 0);
    EXPECT_STREQ(egfhost::layerOf(tree.handle(), i)->name, rows[i].name);
  }
  EXPECT_EQ(egfhost::layerOf(tree.handle(), 3), nullptr);
}

TEST(Trees, CutLayerNames) {
  const OwnedTree tree(egfhost::createTree(0));
  egfhost::addLayer(tree.handle(), std::string(100, 'x').c_str(), true, false);
  EXPECT_EQ(std::string(egfhost::layerOf(tree.handle(), 0)->name), std::string(63, 'x'));
}

TEST(Trees, OfNothingHaveNothing) {
  EXPECT_EQ(egfhost::rootOf(0), nullptr);
  EXPECT_EQ(egfhost::pageHeaderOf(0), nullptr);
  EXPECT_EQ(egfhost::addLayer(0, "a", true, false), -1);
  EXPECT_EQ(egfhost::layerOf(0, 0), nullptr);
  egfhost::freeTree(0);
}

TEST(Trees, WithoutMemoryAreNotMade) {
  for (std::uint64_t n = 1; n <= 2; ++n) {
    egfhost::failAllocation(n);
    EXPECT_EQ(EEL_CreateEdtDesc(0, 0), 0U) << n;
    egfhost::clearFaults();
  }
  egfhost::failAt("EEL_CreateEdtDesc", 1);
  EXPECT_EQ(EEL_CreateEdtDesc(0, 0), 0U);
  egfhost::clearFaults();
  const OwnedTree tree(egfhost::createTree(0));
  for (std::uint64_t n = 1; n <= 2; ++n) {
    egfhost::failAllocation(n);
    EXPECT_EQ(egfhost::addLayer(tree.handle(), "a", true, false), -1) << n;
    egfhost::clearFaults();
    EXPECT_EQ(egfhost::layerOf(tree.handle(), 0), nullptr);
  }
}

TEST(Trees, FreeAllThatHangsOnThem) {
  // The test's own end counts the blocks.
  TreeBuilder tree;
  tree.dash({5, -3});
  tree.dash({1, -1});
  tree.add(onLayer(group({box(0, 0, 1, 1), text({0, 0}, "letters")}, "name"), tree.layer("base")));
  tree.nameRoot("root");
  tree.nameRoot("root again");
}

}  // namespace
}  // namespace egfsvg::test
