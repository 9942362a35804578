#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

// "hello\n" as gzip form: a stored block, its checksum 0x363a3020, its length 6.
const std::string kHello(
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\x01\x06\x00\xf9\xffhello\n\x20\x30\x3a\x36\x06\x00"
    "\x00"
    "\x00",
    29);
constexpr int kUntouched = 77;

class CheckCompressionTest : public WholeFileTest {
 protected:
  int check(const std::string& bytes) { return checkFile(folder.write("drawing", bytes)); }
  int checkFile(const std::string& path) {
    const QV_FILEID source = idOf(path);
    compressed = kUntouched;
    temporary = {};
    return iSVG_checkCompression(&source, &temporary, &compressed);
  }
  // What the temporary file holds; it is removed.
  std::string takeTemporary() {
    const std::string path = pathOf(temporary);
    const std::string text = readFile(path);
    std::filesystem::remove(path);
    return text;
  }

  QV_FILEID temporary{};
  int compressed = 0;
};

TEST_F(CheckCompressionTest, ShortFilesAreRefused) {
  for (const std::string bytes : {"", "\x1f", "\x1f\x8b", "<s"}) {
    EXPECT_EQ(-1, check(bytes)) << bytes.size();
    EXPECT_EQ(kUntouched, compressed);
  }
  EXPECT_EQ(-1, checkFile(folder.file("none")));
}

TEST_F(CheckCompressionTest, PlainFiles) {
  const std::string kRows[] = {"<sv",
                               "<svg/>",
                               std::string("\x1f\x8b\x07\0\0", 5),
                               std::string("\x1f\x8b\x00", 3),
                               "\x1f\x8c\x08 and more",
                               "\x1e\x8b\x08 and more",
                               " \x1f\x8b\x08"};
  for (const std::string& bytes : kRows) {
    EXPECT_EQ(0, check(bytes)) << bytes;
    EXPECT_EQ(0, compressed) << bytes;
  }
}

TEST_F(CheckCompressionTest, CompressedFilesAreUnpacked) {
  struct Row {
    std::string bytes;
    std::string text;
  };
  const Row kRows[] = {{kHello, "hello\n"},
                       {kHello + kHello, "hello\nhello\n"},
                       {kHello + std::string(100, '\0'), "hello\n"}};
  for (const Row& row : kRows) {
    ASSERT_EQ(0, check(row.bytes));
    EXPECT_EQ(1, compressed);
    EXPECT_EQ(std::string(FLR_GetTempPath()), temporary.path);
    EXPECT_TRUE(std::string(temporary.baseName).ends_with(".svg"));
    EXPECT_EQ(row.text, takeTemporary());
  }
}

TEST_F(CheckCompressionTest, DamagedFilesLeaveNothingAndAreTold) {
  std::string wrongSum = kHello;
  wrongSum[21] = '\x21';
  const std::string kRows[] = {wrongSum, kHello.substr(0, 28), kHello.substr(0, 18),
                               kHello.substr(0, 3), kHello + kHello.substr(0, 20)};
  for (const std::string& bytes : kRows) {
    egfhost::clearMessages();
    EXPECT_EQ(-1, check(bytes)) << bytes.size();
    EXPECT_EQ(kUntouched, compressed);
    EXPECT_EQ(before, temporaries());
    ASSERT_EQ(1u, egfhost::recordedMessages().size());
    const egfhost::Message& message = egfhost::recordedMessages().front();
    EXPECT_EQ(egfhost::MessageKind::kShown, message.kind);
    EXPECT_EQ(1108, message.number);
    EXPECT_EQ(20, message.severity);
    EXPECT_EQ(folder.file("drawing"), message.text);
  }
}

TEST_F(CheckCompressionTest, ABombStopsAtTheCap) {
  constexpr std::uintmax_t kCap = 1 << 20;
  const std::string zeros = folder.write("zeros", "");
  std::filesystem::resize_file(zeros, kCap + 1);
  ASSERT_EQ(0, ZLIB_CompressFile(zeros.c_str(), folder.file("bomb").c_str()));
  egfhost::setLargestInflated(kCap);
  EXPECT_EQ(-1, checkFile(folder.file("bomb")));
  EXPECT_EQ(egfhost::CompressionFailure::kTooLarge, egfhost::compressionFailure());
  egfhost::setLargestInflated(0);
}

TEST_F(CheckCompressionTest, MissingArguments) {
  const QV_FILEID source = idOf(folder.write("drawing", "<svg/>"));
  EXPECT_EQ(-1, iSVG_checkCompression(nullptr, &temporary, &compressed));
  EXPECT_EQ(-1, iSVG_checkCompression(&source, nullptr, &compressed));
  EXPECT_EQ(-1, iSVG_checkCompression(&source, &temporary, nullptr));
}

TEST_F(CheckCompressionTest, AFailingHost) {
  struct Row {
    const char* call;
    egfhost::FaultKind kind;
  };
  using egfhost::FaultKind;
  const Row kRows[] = {{"FLR_OpenFile", FaultKind::kFail},
                       {"FLR_OpenFile", FaultKind::kThrow},
                       {"FLR_Read", FaultKind::kFail},
                       {"FLR_Read", FaultKind::kCutShort},
                       {"FLR_Read", FaultKind::kThrow},
                       {"FLR_GetUniqueFname", FaultKind::kFail},
                       {"FLR_GetUniqueFname", FaultKind::kThrow},
                       {"ZLIB_UnCompressFile", FaultKind::kFail},
                       {"ZLIB_UnCompressFile", FaultKind::kThrow}};
  for (const Row& row : kRows) {
    ASSERT_TRUE(egfhost::armFault(row.call, 1, row.kind)) << row.call;
    EXPECT_EQ(-1, check(kHello)) << row.call;
    EXPECT_EQ(1u, egfhost::faultsStruck()) << row.call;
    egfhost::clearFaults();
    EXPECT_EQ(before, temporaries()) << row.call;
    EXPECT_EQ(openBefore, openFiles());
  }
}

}  // namespace
}  // namespace egfsvg::test
