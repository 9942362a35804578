#include "host/compression.h"

#include <filesystem>
#include <string>

#include "embedded_host/host_compression.h"
#include "tests/support/files.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using egfsvg::test::readFile;
using egfsvg::test::TempDir;

// "hello\n" as gzip form, by a packer of its own: stored block, checksum 0x363a3020.
const std::string kHello(
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\x01\x06\x00\xf9\xffhello\n\x20\x30\x3a\x36\x06\x00"
    "\x00"
    "\x00",
    29);

class CompressionTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    allowFolder(folder.path().string(), FileAccess::kWrite);
  }

  int inflate(const std::string& bytes) {
    return ZLIB_UnCompressFile(folder.write("in.svgz", bytes).c_str(), target.c_str(), 0);
  }
  bool leftNothing() const { return !std::filesystem::exists(target); }

  TempDir folder;
  std::string target = folder.file("out");
};

TEST_F(CompressionTest, KnownBytesInflate) {
  ASSERT_EQ(0, inflate(kHello));
  EXPECT_EQ("hello\n", readFile(target));
  EXPECT_EQ(CompressionFailure::kNone, compressionFailure());
}

TEST_F(CompressionTest, SeveralMembersAreOneText) {
  ASSERT_EQ(0, inflate(kHello + kHello + kHello));
  EXPECT_EQ("hello\nhello\nhello\n", readFile(target));
}

TEST_F(CompressionTest, PaddingBehindTheLastMemberIsIgnored) {
  ASSERT_EQ(0, inflate(kHello + std::string(512, '\0')));
  EXPECT_EQ("hello\n", readFile(target));
}

TEST_F(CompressionTest, DamageIsReportedAndLeavesNothing) {
  std::string wrongSum = kHello;
  wrongSum[21] = '\x21';
  std::string wrongLength = kHello;
  wrongLength[25] = '\x07';
  std::string wrongBlock = kHello;
  wrongBlock[10] = '\x07';
  struct Row {
    std::string bytes;
    CompressionFailure failure;
  };
  const Row kRows[] = {{wrongSum, CompressionFailure::kDamaged},
                       {wrongLength, CompressionFailure::kDamaged},
                       {wrongBlock, CompressionFailure::kDamaged},
                       {"plain text", CompressionFailure::kDamaged},
                       {"", CompressionFailure::kCutOff},
                       {kHello.substr(0, 28), CompressionFailure::kCutOff},
                       {kHello.substr(0, 18), CompressionFailure::kCutOff},
                       {kHello.substr(0, 3), CompressionFailure::kCutOff},
                       {kHello + kHello.substr(0, 20), CompressionFailure::kCutOff}};
  for (const Row& row : kRows) {
    EXPECT_EQ(-1, inflate(row.bytes)) << row.bytes.size();
    EXPECT_EQ(row.failure, compressionFailure()) << row.bytes.size();
    EXPECT_TRUE(leftNothing());
  }
}

TEST_F(CompressionTest, RoundTripsAreExactAndRepeatable) {
  std::string big;
  for (int i = 0; i < 60000; ++i) big += "line " + std::to_string(i * 7919 % 60013) + "\n";
  for (const std::string& text : {std::string(), std::string("a"), big, std::string(65536, 'x')}) {
    const std::string source = folder.write("plain", text);
    const std::string packed = folder.file("packed");
    const std::string again = folder.file("again");
    ASSERT_EQ(0, ZLIB_CompressFile(source.c_str(), packed.c_str()));
    ASSERT_EQ(0, ZLIB_CompressFile(source.c_str(), again.c_str()));
    const std::string bytes = readFile(packed);
    EXPECT_EQ(bytes, readFile(again));
    // gzip, deflate, no flags (so no name), time 0.
    EXPECT_EQ(std::string("\x1f\x8b\x08\0\0\0\0\0", 8), bytes.substr(0, 8));
    ASSERT_EQ(0, ZLIB_UnCompressFile(packed.c_str(), target.c_str(), 0));
    EXPECT_EQ(text, readFile(target));
  }
}

TEST_F(CompressionTest, ABombStopsAtTheCap) {
  EXPECT_EQ(1073741824, kBuiltInLargestInflated);
  constexpr std::uintmax_t kCap = 1 << 20;
  const std::string zeros = folder.write("zeros", "");
  const std::string packed = folder.file("packed");
  setLargestInflated(kCap);
  for (const std::uintmax_t size : {kCap, kCap + 1, 8 * kCap}) {
    std::filesystem::resize_file(zeros, size);
    ASSERT_EQ(0, ZLIB_CompressFile(zeros.c_str(), packed.c_str()));
    const bool fits = size <= kCap;
    EXPECT_EQ(fits ? 0 : -1, ZLIB_UnCompressFile(packed.c_str(), target.c_str(), 0));
    EXPECT_EQ(fits ? CompressionFailure::kNone : CompressionFailure::kTooLarge,
              compressionFailure());
    EXPECT_EQ(!fits, leftNothing());
    std::filesystem::remove(target);
  }
  setLargestInflated(0);
}

TEST_F(CompressionTest, FilesThatCannotBeUsed) {
  const std::string source = folder.write("in", "x");
  const TempDir other;
  struct Row {
    std::string source;
    std::string target;
    CompressionFailure failure;
  };
  const Row kRows[] = {
      {folder.file("none"), target, CompressionFailure::kUnreadable},
      {source, folder.file("none/out"), CompressionFailure::kUnwritable},
      {other.write("secret", "s"), target, CompressionFailure::kUnreadable},
      {source, other.file("out"), CompressionFailure::kUnwritable},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(-1, ZLIB_CompressFile(row.source.c_str(), row.target.c_str()));
    EXPECT_EQ(row.failure, compressionFailure());
    EXPECT_FALSE(std::string_view(describe(row.failure)).empty());
  }
  EXPECT_EQ(-1, ZLIB_CompressFile(nullptr, target.c_str()));
  failAt("ZLIB_CompressFile", 1);
  EXPECT_EQ(-1, ZLIB_CompressFile(source.c_str(), target.c_str()));
  failAt("ZLIB_UnCompressFile", 1);
  EXPECT_EQ(-1, ZLIB_UnCompressFile(source.c_str(), target.c_str(), 0));
  EXPECT_TRUE(leftNothing());
}

}  // namespace
}  // namespace egfhost
