#include "frame/live_objects.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"

namespace {

struct Counts {
  int made = 0, ended = 0;
  bool raise = false;
};
Counts counts;

class Thing {
 public:
  Thing() {
    if (counts.raise) throw std::runtime_error("constructor");
    ++counts.made;
  }
  virtual ~Thing() { ++counts.ended; }
  static void operator delete(void* block) { RMM_Free(block); }
};

class OtherThing {
 public:
  virtual ~OtherThing() = default;
  static void operator delete(void* block) { RMM_Free(block); }
};

}  // namespace

template <>
struct egfsvg::LiveClass<Thing> {
  static constexpr LiveKind kKind = LiveKind::kAdapterReader;
  static constexpr const char* kFile = "thing.h";
  static constexpr int kLine = 12;
};
template <>
struct egfsvg::LiveClass<OtherThing> {
  static constexpr LiveKind kKind = LiveKind::kHandlerReader;
  static constexpr const char* kFile = "other_thing.h";
  static constexpr int kLine = 34;
};

namespace {

using egfsvg::handleOf;
using egfsvg::liveObject;
using egfsvg::makeLiveObject;

TEST(LiveObjects, AreKnownByTheirHandleWhileTheyLive) {
  counts = {};
  auto thing = makeLiveObject<Thing>();
  ASSERT_NE(thing, nullptr);
  const HostHandle handle = handleOf(thing.get());
  EXPECT_NE(handle, 0U);
  EXPECT_EQ(liveObject<Thing>(handle), thing.get());
  EXPECT_EQ(liveObject<OtherThing>(handle), nullptr);
  EXPECT_EQ(liveObject<Thing>(0), nullptr);
  EXPECT_EQ(liveObject<Thing>(77), nullptr);
  EXPECT_EQ(liveObject<Thing>(handle + 1), nullptr);
  thing.reset();
  EXPECT_EQ(liveObject<Thing>(handle), nullptr);
  EXPECT_EQ(counts.made, 1);
  EXPECT_EQ(counts.ended, 1);
}

TEST(LiveObjects, CarryTheSiteOfTheirClass) {
  const auto before = egfhost::liveSites();
  auto thing = makeLiveObject<Thing>();
  bool found = false;
  for (const auto& site : egfhost::liveSitesSince(before)) {
    found |= site.file == "thing.h" && site.line == 12 && site.bytes == sizeof(Thing);
  }
  EXPECT_TRUE(found);
}

TEST(LiveObjects, SeveralAtATime) {
  auto first = makeLiveObject<Thing>();
  auto second = makeLiveObject<OtherThing>();
  auto third = makeLiveObject<Thing>();
  const HostHandle firstHandle = handleOf(first.get());
  first.reset();
  EXPECT_EQ(liveObject<Thing>(firstHandle), nullptr);
  EXPECT_EQ(liveObject<OtherThing>(handleOf(second.get())), second.get());
  EXPECT_EQ(liveObject<Thing>(handleOf(third.get())), third.get());
}

TEST(LiveObjects, AnyFailedAllocationGivesNone) {
  for (std::uint64_t n = 1; n <= 2; ++n) {
    counts = {};
    ASSERT_TRUE(egfhost::failAllocation(n));
    EXPECT_EQ(makeLiveObject<Thing>(), nullptr);
    egfhost::clearFaults();
    EXPECT_EQ(counts.made, counts.ended);
  }
}

TEST(LiveObjects, AThrowingConstructorGivesItsMemoryBack) {
  counts = {};
  counts.raise = true;
  EXPECT_THROW(makeLiveObject<Thing>(), std::runtime_error);
  counts.raise = false;
}

}  // namespace
