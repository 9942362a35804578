// Every check of every entry point, in its order, and who is deleted when.
#include <gtest/gtest.h>

#include <cstring>

#include "adapter_reader/svg_adapterreader.h"
#include "embedded_host/host.h"
#include "tests/module/loaded_module.h"

namespace egfsvg::test {
namespace {

constexpr std::int32_t kMissing = -5202;
constexpr HostHandle kStranger = 77;  // no object stands there

constexpr const char* kSvg = "<svg><rect width=\"5\" height=\"5\"/></svg>";

std::int32_t neverCalled(_handlerObject*) {
  ADD_FAILURE() << "called back";
  return 1;
}

_handlerEnumData wholeEnumeration(HostHandle reader, const Drawing& drawing, void* owner) {
  _handlerEnumData record{};
  record.reader = reader;
  record.source = drawing.source();
  record.pageName[0] = 'P';
  record.owner = owner;
  record.callback = neverCalled;
  return record;
}

TEST(FailureCodes, NullRecords) {
  const auto& entry = module();
  QV_FILEID file{};
  EXPECT_EQ(entry.SVGA_OpenReader(nullptr), kMissing);
  EXPECT_EQ(entry.SVGA_PreprocessSource(nullptr), kMissing);
  EXPECT_EQ(entry.SVGA_QueryProperty(nullptr), kMissing);
  EXPECT_EQ(entry.SVGA_ReadData(nullptr, &file), kMissing);
  EXPECT_EQ(entry.SVGA_UnloadData(nullptr), kMissing);
  EXPECT_EQ(entry.SVGA_CloseReader(nullptr), kMissing);
  EXPECT_EQ(entry.SVGA_EnumerateDataCallback(nullptr), kMissing);
  EXPECT_EQ(entry.SVGH_OpenReader(nullptr), kMissing);
  EXPECT_EQ(entry.SVGH_PreprocessSource(nullptr), kMissing);
  EXPECT_EQ(entry.SVGH_QueryProperty(nullptr), kMissing);
  EXPECT_EQ(entry.SVGH_EnumerateData(nullptr, &file), kMissing);
  EXPECT_EQ(entry.SVGH_CloseReader(nullptr), kMissing);
}

TEST(FailureCodes, OpenClearsTheHandleFirst) {
  _adapterOpenReader adapter{kStranger, 0};
  EXPECT_EQ(module().SVGA_OpenReader(&adapter), kMissing);
  EXPECT_EQ(adapter.reader, 0U);
  _handlerOpenReader handler{kStranger, 0};
  EXPECT_EQ(module().SVGH_OpenReader(&handler), kMissing);
  EXPECT_EQ(handler.reader, 0U);
}

TEST(FailureCodes, AdapterRecordsFieldByField) {
  const Drawing drawing(kSvg);
  const OpenReader reader(drawing);
  for (HostHandle handle : {HostHandle{0}, kStranger, reader.handle() + 4}) {
    _adapterPreprocess preprocess{handle, drawing.source()};
    EXPECT_EQ(module().SVGA_PreprocessSource(&preprocess), kMissing);
    _adapterQuery query{};
    query.reader = handle;
    query.property = 3;
    EXPECT_EQ(module().SVGA_QueryProperty(&query), kMissing);
    _adapterReadData read = drawing.reading(handle);
    EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), kMissing);
    _adapterUnloadData unload{handle, 0};
    EXPECT_EQ(module().SVGA_UnloadData(&unload), kMissing);
    _adapterCloseReader close{handle};
    EXPECT_EQ(module().SVGA_CloseReader(&close), kMissing);
  }
  _adapterPreprocess preprocess{reader.handle(), 0};
  EXPECT_EQ(module().SVGA_PreprocessSource(&preprocess), kMissing);
  _adapterReadData read = drawing.reading(reader.handle());
  read.source = 0;
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), kMissing);
  read = drawing.reading(reader.handle());
  read.container = 0;
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), kMissing);
}

TEST(FailureCodes, HandlerRecordsFieldByField) {
  const Drawing drawing(kSvg);
  _handlerOpenReader open{0, drawing.source()};
  ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
  int owner = 0;
  for (HostHandle handle : {HostHandle{0}, kStranger}) {
    _handlerPreprocess preprocess{};
    preprocess.reader = handle;
    preprocess.source = drawing.source();
    EXPECT_EQ(module().SVGH_PreprocessSource(&preprocess), kMissing);
    _handlerQuery query{};
    query.reader = handle;
    query.property = 3;
    EXPECT_EQ(module().SVGH_QueryProperty(&query), kMissing);
    _handlerEnumData enumeration = wholeEnumeration(handle, drawing, &owner);
    EXPECT_EQ(module().SVGH_EnumerateData(&enumeration, nullptr), kMissing);
    _handlerCloseReader close{handle};
    EXPECT_EQ(module().SVGH_CloseReader(&close), kMissing);
  }
  _handlerPreprocess preprocess{};
  preprocess.reader = open.reader;
  EXPECT_EQ(module().SVGH_PreprocessSource(&preprocess), kMissing);
  _handlerEnumData enumeration = wholeEnumeration(open.reader, drawing, &owner);
  enumeration.source = 0;
  EXPECT_EQ(module().SVGH_EnumerateData(&enumeration, nullptr), kMissing);
  enumeration = wholeEnumeration(open.reader, drawing, &owner);
  enumeration.pageName[0] = '\0';
  EXPECT_EQ(module().SVGH_EnumerateData(&enumeration, nullptr), kMissing);
  enumeration = wholeEnumeration(open.reader, drawing, nullptr);
  EXPECT_EQ(module().SVGH_EnumerateData(&enumeration, nullptr), kMissing);
  enumeration = wholeEnumeration(open.reader, drawing, &owner);
  enumeration.callback = nullptr;
  EXPECT_EQ(module().SVGH_EnumerateData(&enumeration, nullptr), kMissing);
  _handlerCloseReader close{open.reader};
  EXPECT_EQ(module().SVGH_CloseReader(&close), 0);
}

TEST(FailureCodes, TheCallbackNeedsAnOwnerAndKnowsItsTypes) {
  _handlerObject object{nullptr, 6, 0};
  EXPECT_EQ(module().SVGA_EnumerateDataCallback(&object), kMissing);
  const Drawing drawing(kSvg);
  const OpenReader reader(drawing);
  for (int type : {0, 4, 13, 15, 105, 2000}) {
    object = {at<void>(reader.handle()), type, 0};
    EXPECT_EQ(module().SVGA_EnumerateDataCallback(&object), -5214) << type;
  }
}

TEST(FailureCodes, AQueryNeedsNoSource) {
  const Drawing drawing(kSvg);
  const OpenReader reader(drawing);
  _adapterQuery query{};
  query.reader = reader.handle();
  query.property = 4;
  EXPECT_EQ(module().SVGA_QueryProperty(&query), -5216);
}

TEST(FailureCodes, NothingToRead) {
  const Drawing drawing("");
  const OpenReader reader(drawing);
  _adapterReadData read = drawing.reading(reader.handle());
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), -5217);
}

TEST(FailureCodes, ALayerDoesNotTakeTheOthersHandle) {
  const Drawing drawing(kSvg);
  const OpenReader reader(drawing);
  _handlerCloseReader wrong{reader.handle()};
  EXPECT_EQ(module().SVGH_CloseReader(&wrong), kMissing);
}

TEST(FailureCodes, AClosedHandleIsMissing) {
  const Drawing drawing(kSvg);
  OpenReader reader(drawing);
  const HostHandle handle = reader.handle();
  ASSERT_EQ(reader.close(), 0);
  _adapterCloseReader again{handle};
  EXPECT_EQ(module().SVGA_CloseReader(&again), kMissing);
  _adapterReadData read = drawing.reading(handle);
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), kMissing);
}

// The class's type information stays inside the module.
__attribute__((no_sanitize("vptr"))) HostHandle& handlerOf(const OpenReader& reader) {
  return at<CAdapterReader>(reader.handle())->handler;
}

TEST(FailureCodes, AReaderWhoseCloseFailedIsStillOpen) {
  const Drawing drawing(kSvg);
  OpenReader reader(drawing);
  _handlerCloseReader handler{handlerOf(reader)};
  ASSERT_EQ(module().SVGH_CloseReader(&handler), 0);
  EXPECT_EQ(reader.close(), kMissing);  // what the lower close gives
  EXPECT_EQ(reader.close(), kMissing);  // reached again
  _adapterUnloadData unload{reader.handle(), 0};
  EXPECT_EQ(module().SVGA_UnloadData(&unload), 0);

  handlerOf(reader) = 0;
  _adapterPreprocess preprocess{reader.handle(), drawing.source()};
  EXPECT_EQ(module().SVGA_PreprocessSource(&preprocess), -5218);
  _adapterQuery query{};
  query.reader = reader.handle();
  EXPECT_EQ(module().SVGA_QueryProperty(&query), -5218);
  _adapterReadData read = drawing.reading(reader.handle());
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), -5218);
  EXPECT_EQ(reader.close(), -5218);

  _handlerOpenReader open{0, drawing.source()};
  ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
  handlerOf(reader) = open.reader;
  EXPECT_EQ(reader.close(), 0);
}

// Either there is a reader, or there is none and nothing is left of it.
TEST(FailureCodes, OpenWithoutMemory) {
  const Drawing drawing(kSvg);
  int refusals = 0;
  for (std::uint64_t n = 1;; ++n) {
    const auto before = egfhost::memoryCounters().liveBlocks;
    _adapterOpenReader open{kStranger, drawing.source()};
    ASSERT_TRUE(egfhost::failAllocation(n));
    const std::int32_t result = module().SVGA_OpenReader(&open);
    const bool struck = egfhost::faultsStruck() != 0;
    egfhost::clearFaults();
    if (result == 0) {
      _adapterCloseReader close{open.reader};
      EXPECT_EQ(module().SVGA_CloseReader(&close), 0);
    } else {
      ++refusals;
      EXPECT_EQ(result, -5203);
      EXPECT_EQ(open.reader, 0U);
    }
    EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before) << n;
    EXPECT_TRUE(n != 1 || result == -5203);  // the reader's own block
    if (!struck) break;
    ASSERT_LT(n, 100U);
  }
  EXPECT_GE(refusals, 2);  // the block of either layer
}

TEST(FailureCodes, OpenTheLowerLayerWithoutMemory) {
  const Drawing drawing(kSvg);
  _handlerOpenReader open{kStranger, drawing.source()};
  ASSERT_TRUE(egfhost::failAllocation(1, egfhost::FaultSpan::kForEver));
  EXPECT_EQ(module().SVGH_OpenReader(&open), -5203);
  EXPECT_EQ(open.reader, 0U);
}

}  // namespace
}  // namespace egfsvg::test
