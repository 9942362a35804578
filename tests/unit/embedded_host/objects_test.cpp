#include "host/objects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/host_rasters.h"
#include "embedded_host/host_trees.h"
#include "host/egf_rows.h"
#include "host/memory.h"
#include "host/palettes.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

constexpr int kEveryClass[] = {1,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 24,
                               25, 26, 27, 29, 30, 32, 33, 34, 35, 69, 96};

TEST(AllocObject, GivesAZeroedObjectWithItsHeadSet) {
  for (const int objClass : kEveryClass) {
    const OwnedObject object(EEL_AllocObject(objClass, RMM_SITE));
    ASSERT_NE(object, nullptr) << objClass;
    EXPECT_EQ(object->objClass, objClass);
    EXPECT_EQ(object->objAttr, 1);
    EXPECT_EQ(object->objAttr2, 0);
    EXPECT_EQ(object->layoutClass, objClass);
    EXPECT_EQ(object->layerIndex, 65535);
    const std::size_t size = recordOf(kObjectRecords, objClass)->size;
    const auto* bytes = reinterpret_cast<const unsigned char*>(object.get());
    for (std::size_t i = 24; i < size; ++i) EXPECT_EQ(bytes[i], 0) << objClass << " byte " << i;
  }
}

// Records are zeroed in steps: all of a used place, and nothing of what stands beside it.
TEST(AllocObject, ZeroesUsedMemoryAndNothingBeside) {
  const auto used = [](std::size_t size) {
    void* const block = RMM_AllocName(1, size, RMM_SITE);
    std::memset(block, 0xff, size);
    return static_cast<unsigned char*>(block);
  };
  const auto holds = [](const unsigned char* bytes, std::size_t from, std::size_t to, int value) {
    return std::all_of(bytes + from, bytes + to, [value](int byte) { return byte == value; });
  };
  const std::uint64_t live = egfhost::memoryCounters().liveBlocks;
  for (const int objClass : kEveryClass) {
    const std::size_t size = recordOf(kObjectRecords, objClass)->size;
    std::vector<unsigned char*> blocks;
    for (int i = 0; i < 9; ++i) blocks.push_back(used(size));
    std::vector<_egf_obj*> objects;
    for (int i = 1; i < 9; i += 2) RMM_Free(blocks[i]);
    for (int i = 1; i < 9; i += 2) objects.push_back(EEL_AllocObject(objClass, RMM_SITE));
    for (int i = 0; i < 9; i += 2) EXPECT_TRUE(holds(blocks[i], 0, size, 0xff)) << objClass;
    for (_egf_obj* const object : objects) {
      EXPECT_TRUE(holds(reinterpret_cast<unsigned char*>(object), 24, size, 0)) << objClass;
      EEL_DestroyObject(object);
    }
    for (int i = 0; i < 9; i += 2) RMM_Free(blocks[i]);
  }
  EXPECT_EQ(egfhost::memoryCounters().badFrees, 0u);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, live);
}

TEST(AllocObject, KnowsNoOtherClass) {
  for (const int objClass : {-1, 0, 2, 13, 23, 28, 31, 36, 68, 70, 95, 97, 99, 100, 1000000}) {
    EXPECT_EQ(EEL_AllocObject(objClass, RMM_SITE), nullptr) << objClass;
  }
}

TEST(AllocObject, FailsWithItsFaultAndWithoutMemory) {
  egfhost::failAt("EEL_AllocObject", 1);
  EXPECT_EQ(EEL_AllocObject(3, RMM_SITE), nullptr);
  egfhost::failAllocation(1);
  EXPECT_EQ(EEL_AllocObject(3, RMM_SITE), nullptr);
}

TEST(ObjectClass, ReportsABoxAsAPolygon) {
  const OwnedObject object(box(0, 0, 1, 1));
  EXPECT_EQ(EGF_GetObjectClass(object.get()), 9);
  EXPECT_EQ(object->objClass, 3);
  EXPECT_EQ(EGF_GetObjectClass(nullptr), 0);
  for (const int objClass : kEveryClass) {
    const OwnedObject other(EEL_AllocObject(objClass, RMM_SITE));
    EXPECT_EQ(EGF_GetObjectClass(other.get()), objClass == 3 ? 9 : objClass);
  }
}

TEST(ObjectClass, ReportsAMarkThatStandsInTheHead) {
  const OwnedObject object(box(0, 0, 1, 1));
  object->objClass = kMarkRect;
  EXPECT_EQ(EGF_GetObjectClass(object.get()), 97);
  EXPECT_EQ(object->layoutClass, 3);
}

TEST(Flags, TellLinkGroupsFromOthers) {
  const struct {
    int flags;
    bool link;
  } rows[] = {{15, false}, {79, false}, {22, true}, {0, false}};
  for (const auto& row : rows) {
    const OwnedObject object(EEL_AllocObject(1, RMM_SITE));
    EEL_SetGroupFlags(object.get(), row.flags);
    const auto* bytes = reinterpret_cast<const unsigned char*>(object.get());
    EXPECT_EQ((bytes[49] & 3) != 0, row.link) << row.flags;
    EXPECT_EQ(bytes[48], 0) << row.flags;
    EXPECT_EQ(object->hostFlags, static_cast<std::uint32_t>(row.flags));
  }
}

TEST(Flags, MarkAViewportAndLeaveItsOutputBitsAlone) {
  const OwnedObject object(box(0, 0, 1, 1));
  object->objAttr = 0;
  EEL_SetObjectFlags(object.get(), 17);
  EXPECT_EQ(object->objAttr2 & 3, 1);
  EXPECT_EQ(object->objAttr & 3, 0);
  EEL_SetObjectFlags(object.get(), 0);
  EXPECT_EQ(object->objAttr2 & 3, 0);
}

std::vector<_egf_obj*> childrenOf(_egf_obj* container) {
  std::vector<_egf_obj*> children;
  _egf_obj* cursor = nullptr;
  while (EEL_GetNextObject(container, &cursor, kWalkMask) != nullptr) children.push_back(cursor);
  return children;
}

TEST(Children, AreWalkedInTheOrderOfAppending) {
  for (const int containerClass : {1, 33}) {
    const OwnedObject container(EEL_AllocObject(containerClass, RMM_SITE));
    EXPECT_TRUE(childrenOf(container.get()).empty());
    std::vector<_egf_obj*> appended;
    for (int i = 0; i < 5; ++i) {
      appended.push_back(line({0, 0}, {1.0 * i, 1}));
      EXPECT_EQ(EEL_AppendObject(container.get(), appended.back()), 0);
    }
    EXPECT_EQ(childrenOf(container.get()), appended);
    const std::size_t link = containerClass == 1 ? 40 : 88;
    EXPECT_EQ(readPacked<HostHandle>(container.get(), link), handleOf(appended[0]));
  }
}

TEST(Children, ComeAlsoWhenHidden) {
  const OwnedObject parent(group({box(0, 0, 1, 1), box(1, 1, 2, 2)}));
  childrenOf(parent.get())[0]->objAttr2 = 1;
  childrenOf(parent.get())[1]->objAttr = 0;
  EXPECT_EQ(childrenOf(parent.get()).size(), 2U);
  _egf_obj* cursor = nullptr;
  EXPECT_NE(EEL_GetNextObject(parent.get(), &cursor, 0), nullptr);
}

TEST(Children, BelongToContainersAlone) {
  const OwnedObject shape(box(0, 0, 1, 1));
  const OwnedObject loose(box(0, 0, 1, 1));
  EXPECT_NE(EEL_AppendObject(shape.get(), loose.get()), 0);
  EXPECT_NE(EEL_PutObject(shape.get(), loose.get(), 0), 0);
  EXPECT_NE(EEL_AppendObject(nullptr, loose.get()), 0);
  EXPECT_NE(EEL_AppendObject(shape.get(), nullptr), 0);
  _egf_obj* cursor = nullptr;
  EXPECT_EQ(EEL_GetNextObject(shape.get(), &cursor, kWalkMask), nullptr);
  EXPECT_EQ(EEL_GetNextObject(nullptr, &cursor, kWalkMask), nullptr);
  EXPECT_EQ(EEL_GetNextObject(shape.get(), nullptr, kWalkMask), nullptr);
}

TEST(Children, HaveOneParent) {
  const OwnedObject first(group({box(0, 0, 1, 1)}));
  const OwnedObject second(group({}));
  EXPECT_NE(EEL_AppendObject(second.get(), childrenOf(first.get())[0]), 0);
}

TEST(Destroy, TakesAChildFromItsParent) {
  for (const std::size_t gone : {0U, 1U, 2U}) {
    const OwnedObject parent(group({box(0, 0, 1, 1), box(1, 0, 1, 1), box(2, 0, 1, 1)}));
    std::vector<_egf_obj*> left = childrenOf(parent.get());
    EEL_DestroyObject(left[gone]);
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(gone));
    EXPECT_EQ(childrenOf(parent.get()), left);
    _egf_obj* last = box(3, 0, 1, 1);
    ASSERT_EQ(EEL_AppendObject(parent.get(), last), 0);
    EXPECT_EQ(childrenOf(parent.get()).back(), last);
  }
}

TEST(Destroy, AcceptsNull) { EEL_DestroyObject(nullptr); }

TEST(Destroy, FreesATreeOfAnyDepth) {
  _egf_obj* object = box(0, 0, 1, 1);
  for (int depth = 0; depth < 100000; ++depth) object = group({object});
  EEL_DestroyObject(object);
}

HostHandle palette(std::initializer_list<std::uint32_t> colours) {
  _sel_colour_list* list = SEL_CLOR_Alloc(256, RMM_SITE);
  for (const std::uint32_t colour : colours) SEL_CLOR_AddColour(list, colourOf(colour));
  return handleOf(list);
}

// One object of every class with all that its class can own.
std::vector<_egf_obj*> fullObjects() {
  const AreaPen pen{.gradPts = {{0, 0}, {5, 5}}};
  const LinePen thin{.gradPts = {{0, 0}, {5, 5}}};
  std::vector<_egf_obj*> all{
      group({box(0, 0, 1, 1), group({text({0, 0}, "inner")}, "b")}, "a group"),
      box(0, 0, 2, 3, pen),
      arc(1, 1, 2, 2, 0, 90),
      line({0, 0}, {1, 1}, thin),
      ellipse(1, 1, 2, 3, pen),
      arrowLine({0, 0}, {9, 0}, {.points = {{8, 1}, {8, -1}, {1, 1}, {1, -1}}}),
      polyline({{0, 0}, {1, 2}, {3, 4}}, thin),
      polyPath({{{0, 0}, {1, 0}, {1, 1}}, {{2, 2}, {3, 2}, {3, 3}, {2, 3}}}, pen),
      text({1, 2}, "some text"),
      annotation({1, 2}, "two\nlines"),
      edit<EgfImage>(image(0, 0, 4, 4, egfhost::createRaster(2, 2, 3)),
                     [](auto& record) {
                       record.palette = palette({1, 2, 3});
                     }),
      stockObject(7, {1, 1}, 45),
      cloud({{0, 0}, {9, 0}, {9, 9}, {0, 9}}, Points(102, Px{1, 1})),
      diamond({{0, 5}, {5, 0}, {10, 5}, {5, 10}}),
      crossout({0, 0}, {1, 1}, {0, 1}, {1, 0}),
      path({arc(0, 0, 1, 1, 0, 90), curve({{0, 0}, {1, 0}, {1, 1}, {0, 1}}),
            path({line({0, 0}, {1, 1})})}),
      hotspot("vcexample.org"),
  };
  for (const int objClass : {24, 25, 32, 34, 35, 69}) {
    all.push_back(opaqueObject(objClass, 0, 0, 1, 1));
  }
  return all;
}

std::size_t countOf(const _egf_obj* object, const FieldRow& row) {
  switch (row.count.kind) {
    case CountKind::kU16Field:
      return readPacked<std::uint16_t>(object, row.count.value);
    case CountKind::kU32Field:
      return readPacked<std::uint32_t>(object, row.count.value);
    default:
      return row.count.value;
  }
}

void expectSameList(HostHandle left, HostHandle right) {
  const auto* a = at<_sel_colour_list>(left);
  const auto* b = at<_sel_colour_list>(right);
  ASSERT_EQ(a->count, b->count);
  for (std::uint32_t i = 0; i < a->count; ++i) {
    EXPECT_EQ(colourWord(a->colours[i]), colourWord(b->colours[i]));
  }
}

// Equal contents in memory of its own; rasters alone are shared.
void expectDeepCopy(_egf_obj* original, _egf_obj* copy) {
  ASSERT_NE(original, copy);
  const RecordRow& record = *recordOf(kObjectRecords, original->layoutClass);
  for (const FieldRow& row : record.fields) {
    SCOPED_TRACE(std::string(record.name) + "." + row.name);
    const char* left = reinterpret_cast<const char*>(original) + row.offset;
    const char* right = reinterpret_cast<const char*>(copy) + row.offset;
    const auto from = readPacked<HostHandle>(left);
    const auto to = isOwned(row.kind) ? readPacked<HostHandle>(right) : 0;
    if (!isOwned(row.kind)) {
      EXPECT_EQ(std::memcmp(left, right, row.structSize), 0);
    } else if (row.kind == FieldKind::kRaster || from == 0) {
      EXPECT_EQ(from, to);
    } else if (row.kind == FieldKind::kPalette) {
      expectSameList(from, to);
    } else if (row.kind == FieldKind::kString) {
      EXPECT_STREQ(at<char>(from), at<char>(to));
    } else if (row.kind != FieldKind::kFirstChild) {
      EXPECT_EQ(
          std::memcmp(at<char>(from), at<char>(to), countOf(original, row) * entrySize(row.kind)),
          0);
    }
    const bool ownCopy = isOwned(row.kind) && row.kind != FieldKind::kRaster && from != 0;
    if (ownCopy) {
      EXPECT_NE(from, to);
    }
  }
  const auto left = childrenOf(original);
  const auto right = childrenOf(copy);
  ASSERT_EQ(left.size(), right.size());
  for (std::size_t i = 0; i < left.size(); ++i) {
    EXPECT_EQ(right[i]->parent.get(), copy);
    expectDeepCopy(left[i], right[i]);
  }
}

TEST(Put, StoresADeepCopyOfEveryClass) {
  const OwnedObject parent(group({}));
  for (_egf_obj* object : fullObjects()) {
    const OwnedObject source(object);
    ASSERT_EQ(EEL_PutObject(parent.get(), object, 0), 0) << object->objClass;
    expectDeepCopy(object, childrenOf(parent.get()).back());
  }
}

TEST(Put, GoesByTheLayoutAndNotByAMark) {
  const struct {
    _egf_obj* object;
    int mark;
  } rows[] = {
      {path({arc(5, 5, 2, 2, 0, 90), arc(5, 5, 2, 2, 90, 180)}), kMarkRect},
      {polygon({{0, 0}, {1, 0}, {1, 1}}), kMarkEllipse},
      {ellipse(0, 0, 1, 1, {.gradPts = {{0, 0}, {1, 1}}}), kMarkEllipse},
      {polyPath({{{0, 0}, {1, 0}}, {{2, 2}, {3, 2}}}), kMarkPolygon},
  };
  const OwnedObject parent(group({}));
  for (const auto& row : rows) {
    const OwnedObject source(row.object);
    row.object->objClass = row.mark;
    ASSERT_EQ(EEL_PutObject(parent.get(), row.object, 0), 0);
    _egf_obj* copy = childrenOf(parent.get()).back();
    EXPECT_EQ(copy->objClass, row.mark);
    expectDeepCopy(row.object, copy);
  }
}

TEST(Put, GrowsTheParentByTheObject) {
  const OwnedObject parent(group({}));
  const OwnedObject first(box(10, 20, 30, 40));
  const OwnedObject second(line({-5, 30}, {100, 30}));
  EEL_PutObject(parent.get(), first.get(), 0);
  EEL_PutObject(parent.get(), second.get(), 0);
  const _mpl_spacerect_tag mer = as<EgfGroup>(parent.get())->groupMer;
  EXPECT_EQ(mer.left, -5 * 4096.0F);
  EXPECT_EQ(mer.right, 100 * 4096.0F);
  EXPECT_EQ(mer.top, 20 * 4096.0F);
  EXPECT_EQ(mer.bottom, 60 * 4096.0F);
}

TEST(Put, OfHotspotDataNeitherGrowsNorShrinksTheParent) {
  const OwnedObject parent(group({box(10, 20, 30, 40)}));
  const _mpl_spacerect_tag before = as<EgfGroup>(parent.get())->groupMer;
  const OwnedObject data(hotspot("vcexample.org"));
  EXPECT_EQ(EEL_PutObject(parent.get(), data.get(), 0), 0);
  const _mpl_spacerect_tag after = as<EgfGroup>(parent.get())->groupMer;
  EXPECT_EQ(std::memcmp(&before, &after, sizeof before), 0);
}

TEST(Put, WithoutMemoryLeavesTheParentAsItWas) {
  for (_egf_obj* object : fullObjects()) {
    const OwnedObject source(object);
    const OwnedObject parent(group({box(0, 0, 1, 1)}));
    egfhost::countCalls();
    const OwnedObject scratch(group({}));
    EEL_PutObject(scratch.get(), object, 0);
    const std::uint64_t allocations = egfhost::callCount("RMM");
    egfhost::clearFaults();
    for (std::uint64_t n = 1; n < allocations; ++n) {  // the first made the scratch group
      egfhost::failAllocation(n);
      EXPECT_NE(EEL_PutObject(parent.get(), object, 0), 0) << object->objClass << " at " << n;
      egfhost::clearFaults();
      EXPECT_EQ(childrenOf(parent.get()).size(), 1U);
    }
  }
}

TEST(Put, FailsWithItsFault) {
  const OwnedObject parent(group({}));
  const OwnedObject object(box(0, 0, 1, 1));
  egfhost::failAt("EEL_PutObject", 1);
  EXPECT_NE(EEL_PutObject(parent.get(), object.get(), 0), 0);
  EXPECT_TRUE(childrenOf(parent.get()).empty());
}

TEST(Put, AnObjectIntoItself) {
  const OwnedObject parent(group({box(0, 0, 1, 1)}));
  EXPECT_EQ(EEL_PutObject(parent.get(), parent.get(), 0), 0);
  EXPECT_EQ(childrenOf(parent.get()).size(), 2U);
  EXPECT_EQ(childrenOf(childrenOf(parent.get())[1]).size(), 1U);
}

TEST(Rasters, AreSharedAndEndWithTheLastHolder) {
  const HostHandle raster = egfhost::createRaster(3, 2, 4);
  ASSERT_NE(raster, 0U);
  const OwnedObject first(image(0, 0, 1, 1, raster));
  {
    const OwnedObject parent(group({}));
    EEL_PutObject(parent.get(), first.get(), 0);
    EXPECT_EQ(at<egfhost::Raster>(raster)->references, 2U);
  }
  EXPECT_EQ(at<egfhost::Raster>(raster)->references, 1U);
}

TEST(Rasters, OfImpossibleSizesAreRefused) {
  const struct {
    std::uint32_t width, height, channels;
  } rows[] = {{0, 1, 3}, {1, 0, 3}, {1, 1, 0}, {0xffffffff, 0xffffffff, 4}, {65536, 65536, 1}};
  for (const auto& row : rows) {
    EXPECT_EQ(egfhost::createRaster(row.width, row.height, row.channels), 0U);
  }
}

TEST(Objects, TakeNoMoreMemoryThanTheirRecords) {
  const OwnedObject parent(group({}));
  const auto before = egfhost::memoryCounters();
  for (int i = 0; i < 1000; ++i) EEL_AppendObject(parent.get(), box(0, 0, 1, 1));
  const auto after = egfhost::memoryCounters();
  EXPECT_EQ(after.liveBlocks - before.liveBlocks, 2000U);
  EXPECT_EQ(after.liveBytes - before.liveBytes, 1000U * (148 + 32));
}

}  // namespace
}  // namespace egfsvg::test
