// A block left behind, or freed twice, fails a test by itself.
#include "model/transform_list.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "embedded_host/host_faults.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

/// What a record's list must hold: kind and arguments of each function.
using Expected = std::vector<std::pair<int, std::vector<double>>>;

void append(_svg_common& head, Expected& expected, int kind, const std::vector<double>& numbers) {
  transformEntry* entry = appendTransform(&head, kind, static_cast<std::int32_t>(numbers.size()));
  ASSERT_NE(entry, nullptr);
  for (std::size_t i = 0; i < numbers.size(); ++i) entry->args[i] = pixels(numbers[i]);
  expected.emplace_back(kind, numbers);
}

void expectList(const _svg_common& head, const Expected& expected) {
  ASSERT_EQ(head.transformCount, static_cast<std::int32_t>(expected.size()));
  for (std::int32_t i = 0; i < head.transformCount; ++i) {
    const auto& [kind, numbers] = expected[static_cast<std::size_t>(i)];
    ASSERT_EQ(head.transforms[i].kind, kind);
    ASSERT_EQ(head.transforms[i].argCount, static_cast<std::int32_t>(numbers.size()));
    for (std::size_t k = 0; k < numbers.size(); ++k) {
      ASSERT_EQ(head.transforms[i].args[k].value, numbers[k]);
    }
  }
}

TEST(TransformList, IsOneBlockThatRecordsShare) {
  _svg_common first{}, second{};
  Expected one;
  append(first, one, kScale, {2, 3});
  ASSERT_TRUE(shareTransforms(second, first));
  EXPECT_EQ(second.transforms, first.transforms);
  releaseTransforms(first);
  EXPECT_EQ(first.transforms, nullptr);
  expectList(second, one);
  releaseTransforms(second);
  releaseTransforms(second);
}

TEST(TransformList, OfSeparateBlocksIsCopied) {
  _svg_common apart{}, copy{};
  apart.transforms = allocateArray<transformEntry>(2, RMM_SITE);
  apart.transforms[0] = {kRotate, allocateArray<_svg_value>(1, RMM_SITE), 1};
  apart.transforms[0].args[0] = pixels(7);
  apart.transforms[1] = {kSkewX, nullptr, 4};
  apart.transformCount = 2;
  ASSERT_TRUE(shareTransforms(copy, apart));
  EXPECT_NE(copy.transforms[0].args, apart.transforms[0].args);
  EXPECT_EQ(copy.transforms[0].args[0].value, 7);
  EXPECT_EQ(copy.transforms[1].args, nullptr);
  EXPECT_EQ(copy.transforms[1].argCount, 4);
  Expected unused;
  append(apart, unused, kScale, {1, 2});
  EXPECT_EQ(apart.transforms[0].args[0].value, 7);
  releaseTransforms(apart);
  releaseTransforms(copy);
}

TEST(TransformList, IsAsItWasWithoutMemory) {
  _svg_common head{}, other{};
  Expected list;
  append(head, list, kTranslate, {1, 2});
  ASSERT_TRUE(shareTransforms(other, head));
  _svg_common copy{};
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  EXPECT_EQ(appendTransform(&head, kScale, 2), nullptr);
  EXPECT_FALSE(copyTransforms(copy, head));
  egfhost::clearFaults();
  EXPECT_EQ(copy.transforms, nullptr);
  expectList(head, list);
  expectList(other, list);
  releaseTransforms(head);
  releaseTransforms(other);
}

TEST(TransformList, HasItsLimit) {
  _svg_common head{};
  Expected list;
  for (int i = 0; i < kMaxTransforms; ++i) append(head, list, kSkewX, {double(i)});
  EXPECT_EQ(appendTransform(&head, kSkewX, 1), nullptr);
  expectList(head, list);
  releaseTransforms(head);
}

// Any order of adding, sharing, copying and letting go, against lists of vectors.
TEST(TransformList, RandomHolders) {
  std::mt19937 random(20);
  constexpr std::size_t kRecords = 12;
  std::vector<_svg_common> heads(kRecords);
  std::vector<Expected> expected(kRecords);
  for (int step = 0; step < 20000; ++step) {
    const std::size_t at = random() % kRecords;
    const std::size_t from = random() % kRecords;
    const unsigned action = random() % 8;
    if (action < 4 && expected[at].size() < 20) {
      std::vector<double> numbers(1 + random() % 6);
      for (double& number : numbers) number = double(random() % 1000);
      append(heads[at], expected[at], int(random() % 6), numbers);
    } else if (action < 7 && expected[at].empty() && !expected[from].empty()) {
      const bool shares = action < 6;
      ASSERT_TRUE(shares ? shareTransforms(heads[at], heads[from])
                         : copyTransforms(heads[at], heads[from]));
      expected[at] = expected[from];
    } else {
      releaseTransforms(heads[at]);
      expected[at].clear();
    }
    expectList(heads[at], expected[at]);
    expectList(heads[from], expected[from]);
  }
  for (_svg_common& head : heads) releaseTransforms(head);
}

}  // namespace
}  // namespace egfsvg
