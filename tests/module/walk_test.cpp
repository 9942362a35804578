// A reader walked from open to close by a program that knows the host alone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded_host/host.h"
#include "tests/module/loaded_module.h"

namespace egfsvg::test {
namespace {

constexpr const char* kTwoPages =
    "<?xml version=\"1.0\"?>\n"
    "<!-- User agent resolution:120 dpi -->\n"
    "<svg width=\"100\" height=\"50\">"
    "<g id=\"Page_1\"><rect x=\"1\" y=\"2\" width=\"30\" height=\"20\"/></g>"
    "<g id=\"Page_2\"><circle cx=\"20\" cy=\"20\" r=\"10\"/>"
    "<line x1=\"1\" y1=\"1\" x2=\"40\" y2=\"30\" stroke=\"red\"/></g>"
    "</svg>";

TEST(Module, ExportsItsEntryPointsAlone) {
  for (const char* name :
       {"SVGA_OpenReader", "SVGA_PreprocessSource", "SVGA_QueryProperty", "SVGA_ReadData",
        "SVGA_UnloadData", "SVGA_CloseReader", "SVGA_EnumerateDataCallback", "SVGH_OpenReader",
        "SVGH_PreprocessSource", "SVGH_QueryProperty", "SVGH_EnumerateData", "SVGH_CloseReader",
        "SVG_A_PutObject"}) {
    EXPECT_NE(exportedName(name), nullptr) << name;
  }
  for (const char* name : {"initRect", "_Z8initRectP9_svg_rect", "GetAttType", "theApp"}) {
    EXPECT_EQ(exportedName(name), nullptr) << name;
  }
}

TEST(Module, IsAttachedWhenItIsLoaded) {
  module();
  EXPECT_EQ(AfxGetStaticModuleState()->initialised, 1);
  EXPECT_STREQ(AfxGetStaticModuleState()->moduleName, "svg.dll");
}

TEST(Module, WalksAReader) {
  const Drawing drawing(kTwoPages);
  _adapterOpenReader open = drawing.opening();
  ASSERT_EQ(module().SVGA_OpenReader(&open), 0);
  ASSERT_NE(open.reader, 0U);
  EXPECT_EQ(open.source, drawing.source());

  _adapterQuery query{};
  query.reader = open.reader;
  query.source = drawing.source();
  query.property = 3;
  query.value = 77;
  EXPECT_EQ(module().SVGA_QueryProperty(&query), 0);
  EXPECT_EQ(query.kind, 9);
  EXPECT_EQ(query.value, 2);

  _adapterPreprocess preprocess{open.reader, drawing.source()};
  EXPECT_EQ(module().SVGA_PreprocessSource(&preprocess), 0);

  for (int page = 0; page < 2; ++page) {
    _adapterReadData read = drawing.reading(open.reader);
    read.pageIndex = page;
    EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), 0);
  }
  EXPECT_GT(drawing.topObjects(), 0);

  _adapterUnloadData unload{open.reader, 0};
  EXPECT_EQ(module().SVGA_UnloadData(&unload), 0);
  _adapterCloseReader close{open.reader};
  EXPECT_EQ(module().SVGA_CloseReader(&close), 0);
  EXPECT_EQ(close.reader, open.reader);  // the caller forgets the handle
}

struct Received {
  std::vector<int> types;
  std::int32_t result = 1;
  void* owner = nullptr;
};
Received received;

std::int32_t receive(_handlerObject* object) {
  received.types.push_back(object->type);
  received.owner = object->owner;
  return received.result;
}

std::int32_t enumerate(HostHandle reader, const Drawing& drawing, void* owner) {
  _handlerEnumData record{};
  record.reader = reader;
  record.source = drawing.source();
  std::string("Page 2").copy(record.pageName, sizeof record.pageName - 1);
  record.owner = owner;
  record.callback = receive;
  return module().SVGH_EnumerateData(&record, nullptr);
}

TEST(Module, WalksTheLowerLayerByItself) {
  const Drawing drawing(kTwoPages);
  _handlerOpenReader open{0, drawing.source()};
  ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
  _handlerPreprocess preprocess{};
  preprocess.reader = open.reader;
  preprocess.source = drawing.source();
  EXPECT_EQ(module().SVGH_PreprocessSource(&preprocess), 0);
  EXPECT_STREQ(preprocess.text, "120");

  received = {};
  int owner = 0;
  EXPECT_EQ(enumerate(open.reader, drawing, &owner), 0);
  EXPECT_EQ(received.types, (std::vector<int>{3, 14, 7, 9, 1001, 1000}));
  EXPECT_EQ(received.owner, &owner);
  _handlerCloseReader close{open.reader};
  EXPECT_EQ(module().SVGH_CloseReader(&close), 0);
}

TEST(Module, TheCallbacksResultEndsTheRead) {
  const struct { std::int32_t callback, result; } rows[] = {{0, 0}, {2, 2}, {-5214, -5214}};
  for (const auto& row : rows) {
    const Drawing drawing(kTwoPages);
    _handlerOpenReader open{0, drawing.source()};
    ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
    received = {};
    received.result = row.callback;
    int owner = 0;
    EXPECT_EQ(enumerate(open.reader, drawing, &owner), row.result);
    EXPECT_EQ(received.types, std::vector<int>{3});
    _handlerCloseReader close{open.reader};
    EXPECT_EQ(module().SVGH_CloseReader(&close), 0);
  }
}

TEST(Module, AnUnknownPropertyLeavesTheCallersWords) {
  const Drawing drawing(kTwoPages);
  const OpenReader reader(drawing);
  _adapterQuery query{};
  query.reader = reader.handle();
  query.source = drawing.source();
  query.property = 4;
  query.kind = 55;
  query.value = 77;
  query.rest[255] = 99;
  EXPECT_EQ(module().SVGA_QueryProperty(&query), -5216);
  EXPECT_EQ(query.property, 4);
  EXPECT_EQ(query.kind, 55);
  EXPECT_EQ(query.value, 77);
  EXPECT_EQ(query.rest[255], 99);
}

TEST(Module, SeveralReadersMayBeOpen) {
  const Drawing first(kTwoPages);
  const Drawing second("<svg></svg>");
  OpenReader one(first);
  OpenReader two(second);
  EXPECT_NE(one.handle(), two.handle());
  EXPECT_EQ(one.close(), 0);
  _adapterReadData read = second.reading(two.handle());
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), 0);
  EXPECT_EQ(two.close(), 0);
}

}  // namespace
}  // namespace egfsvg::test
