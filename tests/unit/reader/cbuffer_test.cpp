#include "reader/cbuffer.h"

#include <gtest/gtest.h>

#include <string>

#include "embedded_host/host_faults.h"
#include "embedded_host/host_files.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_settings.h"
#include "host/diagnostics.h"
#include "host/framework.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

std::string numbered(std::size_t length) {
  std::string text(length, '\0');
  for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char>('!' + i % 90);
  return text;
}

/// The text read, or "(null)".
std::string taken(cBuffer& buffer, int count) {
  const char* text = buffer.readBuffer(count);
  return text == nullptr ? "(null)" : text;
}

TEST(CBuffer, ReadsUpToTheEndAndThenNothing) {
  TextSource source("0123456789");
  cBuffer buffer;
  EXPECT_EQ(buffer.setFileHandle(source.stream()), 0);
  EXPECT_EQ(taken(buffer, 7), "0123456");
  EXPECT_EQ(taken(buffer, 7), "789");
  EXPECT_EQ(taken(buffer, 1), "(null)");
  EXPECT_EQ(buffer.getFileIndex(), 10);
  EXPECT_EQ(taken(buffer, 1), "(null)");
  EXPECT_EQ(buffer.getFileIndex(), 10);
}

TEST(CBuffer, SeeksToTheEnd) {
  TextSource source("0123456789");
  cBuffer buffer(source.stream());
  EXPECT_EQ(buffer.fileLength, 10);
  EXPECT_EQ(taken(buffer, 3), "012");
  EXPECT_EQ(buffer.setFileIndex(10), 3);
  EXPECT_EQ(buffer.getFileIndex(), 10);
  EXPECT_EQ(taken(buffer, 1), "(null)");
}

TEST(CBuffer, UnloadsOutsideTheFile) {
  for (const long offset : {11L, -1L, 1L << 40}) {
    TextSource source("0123456789");
    cBuffer buffer(source.stream());
    EXPECT_EQ(taken(buffer, 3), "012");
    EXPECT_EQ(buffer.setFileIndex(offset), -1);
    EXPECT_EQ(buffer.getFileIndex(), 0);
    EXPECT_EQ(buffer.block, nullptr);
    EXPECT_EQ(taken(buffer, 1), "(null)");
    EXPECT_EQ(buffer.nextByte(), cBuffer::kSourceEnd);
    EXPECT_EQ(buffer.getFileIndex(), 0);
    buffer.resetBuffer();
    EXPECT_EQ(taken(buffer, 1), "0");
  }
}

TEST(CBuffer, KeepsTheFormerFileOverAnEmptyOne) {
  TextSource source("0123456789");
  TextSource empty("");
  cBuffer buffer;
  EXPECT_EQ(buffer.setFileHandle(source.stream()), 0);
  EXPECT_EQ(buffer.setFileHandle(empty.stream()), -1);
  EXPECT_EQ(buffer.file, source.stream());
  EXPECT_EQ(buffer.fileLength, 0);
  EXPECT_EQ(taken(buffer, 1), "(null)");
}

TEST(CBuffer, CrossesBlocksInOrder) {
  const std::string text = numbered(5000);
  TextSource source(text);
  cBuffer buffer(source.stream());
  EXPECT_EQ(taken(buffer, 4090), text.substr(0, 4090));
  EXPECT_EQ(taken(buffer, 10), text.substr(4090, 10));
  EXPECT_EQ(buffer.getFileIndex(), 4100);
  EXPECT_EQ(buffer.setFileIndex(4095), 4100);
  EXPECT_EQ(buffer.nextByte(), text[4095]);
  EXPECT_EQ(buffer.nextByte(), text[4096]);
  EXPECT_EQ(buffer.getFileIndex(), 4097);
}

TEST(CBuffer, ReadsWholeFilesOfManySizes) {
  for (const std::size_t size : {1UL, 4095UL, 4096UL, 4097UL, 8192UL, 20000UL}) {
    const std::string text = numbered(size);
    TextSource source(text);
    cBuffer buffer(source.stream());
    std::string seen;
    for (int byte = buffer.nextByte(); byte >= 0; byte = buffer.nextByte()) {
      seen += static_cast<char>(byte);
    }
    EXPECT_EQ(seen, text);
    buffer.resetBuffer();
    EXPECT_EQ(taken(buffer, static_cast<int>(size) + 5), text);
  }
}

TEST(CBuffer, SetFileIndexGivesTheFormerIndex) {
  TextSource source(numbered(200));
  cBuffer buffer(source.stream());
  EXPECT_EQ(taken(buffer, 7).size(), 7U);
  EXPECT_EQ(buffer.setFileIndex(100), 7);
  EXPECT_EQ(buffer.setFileIndex(99), 100);
}

TEST(CBuffer, StepsInsideABlockReadNothing) {
  TextSource source(numbered(4000));
  cBuffer buffer(source.stream());
  const auto reads = egfhost::fileCounters().reads;
  for (int i = 0; i < 100; ++i) {
    buffer.nextByte();
    buffer.setFileIndex(buffer.getFileIndex() - 1);
    buffer.setFileIndex(i * 30);
  }
  EXPECT_EQ(egfhost::fileCounters().reads, reads);
}

TEST(CBuffer, BacksUp) {
  const std::string text = numbered(6000);
  struct Row {
    int at, count, index;
  };
  for (const Row& row : {Row{10, 3, 7}, Row{10, 10, 0}, Row{10, 11, 0}, Row{10, 0, 10},
                         Row{10, -4, 10}, Row{4100, 3, 4097}, Row{4100, 50, 4050}}) {
    TextSource source(text);
    cBuffer buffer(source.stream());
    buffer.readBuffer(row.at);
    buffer.backupBuffer(row.count);
    EXPECT_EQ(buffer.getFileIndex(), row.index) << row.at << " back " << row.count;
    EXPECT_EQ(buffer.nextByte(), text[static_cast<std::size_t>(row.index)]);
  }
}

TEST(CBuffer, NeedsNoFile) {
  cBuffer buffer;
  EXPECT_EQ(buffer.readBuffer(1), nullptr);
  buffer.resetBuffer();
  EXPECT_EQ(buffer.setFileIndex(0), 0);
  EXPECT_EQ(buffer.nextByte(), cBuffer::kSourceEnd);
}

TEST(CBuffer, FillBufferIsCutToABlock) {
  const std::string text = numbered(9000);
  TextSource source(text);
  cBuffer buffer(source.stream());
  buffer.fillBuffer(9000);
  EXPECT_EQ(buffer.blockLen, 4096);
  buffer.fillBuffer(-5);
  EXPECT_EQ(buffer.blockLen, 0);
  buffer.resetBuffer();
  EXPECT_EQ(taken(buffer, 2), text.substr(0, 2));
}

TEST(CBuffer, EndsWhereTheHostGivesNothing) {
  for (const std::uint64_t call : {1UL, 2UL}) {
    const std::string text = numbered(5000);
    TextSource source(text);
    ASSERT_TRUE(egfhost::failAt("FLR_Read", call, egfhost::FaultSpan::kForEver));
    cBuffer buffer(source.stream());
    EXPECT_EQ(buffer.fileLength, 5000);
    EXPECT_EQ(taken(buffer, 4999), call == 1 ? "(null)" : text.substr(0, 4096));
    EXPECT_EQ(taken(buffer, 1), "(null)");
    EXPECT_EQ(buffer.getFileIndex(), call == 1 ? 0 : 4096);
    egfhost::clearFaults();
  }
}

TEST(CBuffer, ShortReadsLoseNothing) {
  const std::string text = numbered(5000);
  TextSource source(text);
  ASSERT_TRUE(egfhost::armFault("FLR_Read", 1, egfhost::FaultKind::kCutShort));
  cBuffer buffer(source.stream());
  EXPECT_EQ(buffer.blockLen, 2048);
  EXPECT_EQ(taken(buffer, 5000), text);
}

TEST(CBuffer, LivesWithoutMemory) {
  for (std::uint64_t call = 1; call <= 2; ++call) {
    TextSource source(numbered(10));
    ASSERT_TRUE(egfhost::failAllocation(call, egfhost::FaultSpan::kForEver));
    cBuffer buffer(source.stream());
    EXPECT_EQ(buffer.readBuffer(3), nullptr);
    egfhost::clearFaults();
  }
}

TEST(CBuffer, TooLargeASourceCountsAsEmpty) {
  ASSERT_TRUE(egfhost::setSetting("maxSourceBytes", 9));
  TextSource source("0123456789");
  cBuffer buffer;
  egfhost::clearMessages();
  EXPECT_EQ(buffer.setFileHandle(source.stream()), -1);
  EXPECT_EQ(egfhost::countMessages(static_cast<int>(Diagnostic::kSourceBytesLimit)), 1U);
  ASSERT_TRUE(egfhost::setSetting("maxSourceBytes", 10));
  EXPECT_EQ(buffer.setFileHandle(source.stream()), 0);
}

TEST(SourceCursor, WalksAndTellsTheBuffer) {
  const std::string text = numbered(9000);
  TextSource source(text);
  cBuffer buffer(source.stream());
  {
    SourceCursor cursor(buffer);
    for (std::size_t i = 0; i < 5000; ++i) {
      ASSERT_EQ(cursor.peek(), text[i]);
      ASSERT_EQ(cursor.fileIndex(), static_cast<int>(i));
      ASSERT_EQ(cursor.next(), text[i]);
    }
  }
  EXPECT_EQ(buffer.getFileIndex(), 5000);
  EXPECT_EQ(buffer.nextByte(), text[5000]);
}

TEST(SourceCursor, StandsStillWhereTheHostThrows) {
  TextSource source(numbered(5000));
  cBuffer buffer(source.stream());
  ASSERT_TRUE(egfhost::throwAt("FLR_Read", 1));
  try {
    SourceCursor cursor(buffer);
    while (cursor.next() >= 0) continue;
    FAIL() << "nothing was thrown";
  } catch (CException* exception) {
    exception->Delete();
  }
  EXPECT_EQ(buffer.getFileIndex(), 4096);
  EXPECT_EQ(buffer.nextByte(), cBuffer::kSourceEnd);
}

}  // namespace
}  // namespace egfsvg::test
