// Members that the reader's own walks call, called by themselves.
#include <gtest/gtest.h>

#include <string>

#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "tests/support/reader_harness.h"
#include "tests/unit/reader/attribute_support.h"

namespace egfsvg::test {
namespace {

TEST(ReaderMembers, CountersOfARead) {
  TextSource source("<svg><g ><rect /></g><use xlink:href=\"#q\"/><foo><!-- c --></svg>");
  CHandlerReader reader;
  EXPECT_EQ(readWith(reader, source.stream()).result, 0);
  // svg, g, rect, /g, use, the comment and /svg, in each pass.
  EXPECT_EQ(reader.firstPassTags, 7);
  EXPECT_EQ(reader.secondPassTags, 7);
  EXPECT_EQ(reader.pass, 2);
  EXPECT_EQ(reader.localRefCount, 1);
  EXPECT_EQ(reader.svgCount, 0);
  EXPECT_EQ(reader.groupCount, 0);
  EXPECT_EQ(reader.switchCount, 0);
  EXPECT_EQ(reader.defsCount, 0);
}

TEST(ReaderMembers, ACloseBehindASelfClosedGroupIsCounted) {
  TextSource source("<svg><g /></svg>");
  CHandlerReader reader;
  EXPECT_EQ(readWith(reader, source.stream()).result, 0);
  EXPECT_EQ(reader.firstPassTags, 3);
  EXPECT_EQ(reader.secondPassTags, 4);
}

TEST(ReaderMembers, StartValues) {
  CHandlerReader reader;
  EXPECT_EQ(reader.hasAttributes, 0);
  EXPECT_STREQ(reader.emptyText, "");
  EXPECT_EQ(reader.pass, 1);
  EXPECT_EQ(reader.xmlSpace, 0);
  EXPECT_EQ(reader.viewportWidth, 1.0);
  EXPECT_EQ(reader.viewportHeight, 1.0);
  EXPECT_EQ(reader.container, nullptr);
  EXPECT_EQ(reader.buffer.file, 0U);
}

TEST(ReaderMembers, TablesTakeTheirCountersAlong) {
  CHandlerReader reader;
  reader.svgCount = reader.groupCount = reader.switchCount = reader.defsCount = 3;
  reader.localRefCount = 3;
  reader.DestroySVGElemsTable();
  EXPECT_EQ(reader.svgCount, 0);
  EXPECT_EQ(reader.groupCount, 3);
  reader.DestroyGroupTable();
  EXPECT_EQ(reader.groupCount, 0);
  reader.DestroySwitchTable();
  EXPECT_EQ(reader.switchCount, 0);
  EXPECT_EQ(reader.defsCount, 3);
  reader.DestroyDefsTable();
  EXPECT_EQ(reader.defsCount, 0);
  reader.DestroySVGStyleTable();
  reader.DestroyLocalRefTable();
  reader.DestroyGradientTable();
  EXPECT_EQ(reader.localRefCount, 3);
}

TEST(ReaderMembers, NamesOfATagWithoutAttributes) {
  for (const int has : {0, 1}) {
    TextReader reader("xlink:href=\"#a\" id=\"a\">");
    reader->hasAttributes = has;
    EXPECT_EQ(reader->CreateLocalRefTable(kTagUse), 0);
    EXPECT_EQ(reader->localRefs.count, has);
    EXPECT_EQ(reader->buffer.getFileIndex() == 0, has == 0);
    reader->buffer.resetBuffer();
    EXPECT_EQ(reader->UpdateLocalRefTable(kTagRect, 7), 0);
    EXPECT_EQ(reader->buffer.getFileIndex() == 0, has == 0);
    if (has == 0) continue;
    EXPECT_EQ(reader->localRefs.at(0)->fileIndex, 7);
    EXPECT_EQ(reader->localRefs.at(0)->tagType, kTagRect);
  }
}

TEST(ReaderMembers, ASyntaxErrorEndsTheNames) {
  TextReader reader("xlink:href=\"#a\" x=1 xlink:href=\"#b\">");
  reader->hasAttributes = 1;
  EXPECT_EQ(reader->CreateLocalRefTable(kTagTref), 0);
  EXPECT_EQ(reader->localRefs.count, 1);
}

TEST(ReaderMembers, AnUnknownMarkupGroupIsPassedOver) {
  TextReader reader("<polyline points=\"1,2\"/><rect /></g><circle>");
  _svg_group group;
  initGroupObj(&group);
  group.head.type = kTagGroup;
  Receiver receiver({});
  _handlerEnumData record{};
  record.owner = &receiver;
  record.callback = &Receiver::receive;
  EXPECT_EQ(reader->EnumerateMarkupData(&record, &group), 1);
  EXPECT_TRUE(receiver.types.empty());
  EXPECT_EQ(reader->GetNextTag(nullptr), kTagCircle);
}

TEST(ReaderMembers, AContainerSlotIsFilledOnce) {
  CHandlerReader reader;
  _svg_common element{};
  _svg_container* const first = reader._initContainer(&reader.container);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(reader.container, first);
  *first = {&element, &element};
  EXPECT_EQ(reader._initContainer(&reader.container), first);
  EXPECT_EQ(first->current, nullptr);
  EXPECT_EQ(first->owner, nullptr);
}

TEST(ReaderMembers, PathRecordsGrowByOne) {
  CHandlerReader reader;
  _svg_path_data* data = reader.AddNewPathData(nullptr, 0);
  ASSERT_NE(data, nullptr);
  data->command = 3;
  data = reader.AddNewPathData(data, 1);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->command, 3);
  data[1].command = 5;
  freeAll(data);
}

TEST(ReaderMembers, BufferInitLeavesTheFile) {
  TextSource source("0123456789");
  cBuffer buffer(source.stream());
  buffer.readBuffer(4);
  buffer.bufferInit();
  EXPECT_EQ(buffer.blockPos, 0);
  EXPECT_EQ(buffer.blockLen, 0);
  EXPECT_EQ(buffer.fileIndex, 0);
  EXPECT_EQ(buffer.block, nullptr);
  EXPECT_EQ(buffer.file, source.stream());
  EXPECT_EQ(buffer.fileLength, 10);
}

TEST(ReaderMembers, WordsWithNothingToSet) {
  CHandlerReader reader;
  _svg_common head;
  initSVGCommon(&head);
  _svg_ta ta;
  initTA(&ta);
  head.externalResourcesRequired = 1;
  EXPECT_EQ(reader.SetExternResReqAtt(nullptr, Pair("true")), 0);
  EXPECT_EQ(reader.SetExternResReqAtt(&head, nullptr), 0);
  EXPECT_EQ(head.externalResourcesRequired, 1);
  EXPECT_EQ(reader.SetRequiredFeaturesAtt(nullptr, Pair("x")), 0);
  EXPECT_EQ(reader.SetRequiredFeaturesAtt(&ta.requiredFeatures, nullptr), 0);
  EXPECT_EQ(reader.SetRequiredExtensionsAtt(nullptr, Pair("x")), 0);
  EXPECT_EQ(reader.SetRequiredExtensionsAtt(&ta.requiredExtensions, nullptr), 0);
  EXPECT_EQ(reader.SetSystemLanguageAtt(nullptr, Pair("x")), 0);
  EXPECT_EQ(reader.SetSystemLanguageAtt(&ta.systemLanguage, nullptr), 0);
  EXPECT_EQ(reader._evaluateTestAtt(ta), 1);
  int word = 7;
  EXPECT_EQ(reader.SetZoomAndPanAtt(&word, Pair("magnify")), 0);
  EXPECT_EQ(reader.SetLengthAdjustAtt(&word, Pair("spacing")), 0);
  EXPECT_EQ(reader.SetMediaDescAtt(&word, Pair("print")), 0);
  EXPECT_EQ(word, 7);
}

}  // namespace
}  // namespace egfsvg::test
