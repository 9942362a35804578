#include "host/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "host/diagnostics.h"
#include "host/documents.h"
#include "host/memory.h"
#include "tests/support/files.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using egfsvg::test::readFile;
using egfsvg::test::TempDir;

class FilesTest : public HostTest {
 protected:
  QV_FILEID idOf(const std::string& path) {
    QV_FILEID id;
    EXPECT_TRUE(fileIdOf(path, &id));
    return id;
  }

  HostHandle openIn(const std::string& path, int mode) {
    const QV_FILEID id = idOf(path);
    HostHandle stream = 77;
    const int result = FLR_OpenFile(&id, mode, &stream);
    EXPECT_EQ(result < 0, stream == 0) << path;
    return stream;
  }

  std::string readAll(HostHandle stream, std::uint32_t step) {
    std::string text;
    std::string piece(step, '\0');
    for (;;) {
      const std::int32_t got = FLR_Read(stream, piece.data(), step);
      if (got <= 0) return text;
      text.append(piece, 0, static_cast<std::size_t>(got));
    }
  }

  std::size_t filesIn(const TempDir& where) {
    const std::filesystem::directory_iterator files(where.path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  TempDir folder;
};

TEST_F(FilesTest, SeekAndReadPositions) {
  const HostHandle stream = openFile(folder.write("ten", "0123456789"));
  struct Row {
    std::int32_t low;
    std::int32_t high;
    int origin;
    std::int64_t position;
    std::uint32_t count;
    std::string read;
  };
  const Row kRows[] = {{0, 0, 3, 10, 20, ""},         {4, 0, 1, 4, 20, "456789"},
                       {-3, -1, 3, 7, 2, "78"},       {0, 0, 1, 0, 10, "0123456789"},
                       {10, 0, 1, 10, 1, ""},         {500, 0, 1, 500, 5, ""},
                       {0, 1, 1, 0x100000000, 1, ""}, {9, 0, 1, 9, 0, ""}};
  for (const Row& row : kRows) {
    char buffer[32];
    EXPECT_EQ(row.position, FLR_Seek(stream, row.low, row.high, row.origin));
    const std::int32_t got = FLR_Read(stream, buffer, row.count);
    ASSERT_GE(got, 0);
    EXPECT_EQ(row.read, std::string(buffer, static_cast<std::size_t>(got)));
  }
  EXPECT_LT(FLR_Seek(stream, -1, -1, 1), 0);
  EXPECT_LT(FLR_Seek(stream, -11, -1, 3), 0);
  EXPECT_LT(FLR_Seek(stream, 0, 0, 2), 0);
  EXPECT_EQ(0, FLR_Close(stream));
  EXPECT_NE(0, FLR_Close(stream));
}

TEST_F(FilesTest, FilesAndMemoryReadAlike) {
  std::string content;
  for (int i = 0; i < 100000; ++i) content += std::to_string(i) + ' ';
  const std::string path = folder.write("long", content);
  for (const std::uint32_t step : {1000u, 4096u, 65536u, 1000000u}) {
    const HostHandle file = openFile(path);
    const HostHandle memory = openMemory("long", content);
    EXPECT_EQ(0, FLR_Buffer(file));
    EXPECT_EQ(0, FLR_Buffer(memory));
    EXPECT_EQ(content, readAll(file, step));
    EXPECT_EQ(content, readAll(memory, step));
    EXPECT_EQ(static_cast<std::int64_t>(content.size()), FLR_Seek(memory, 0, 0, kFileOriginEnd));
    FLR_Close(file);
    FLR_Close(memory);
  }
}

TEST_F(FilesTest, SmallReadsAreServedFromTheBuffer) {
  const std::string content(1000000, 'x');
  const HostHandle stream = openFile(folder.write("big", content));
  FLR_Buffer(stream);
  const std::uint64_t before = fileCounters().systemReads;
  EXPECT_EQ(content.size(), readAll(stream, 10).size());
  // Windows of 8, 16 ... 256 KiB: 6 up to 504 KiB, 2 more, and the end of the file.
  EXPECT_LE(fileCounters().systemReads - before, 18u);
  FLR_Close(stream);
}

TEST_F(FilesTest, RandomReadsGiveTheRightBytes) {
  std::string content(300000, '\0');
  std::uint32_t state = 1;
  for (char& each : content) each = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  const HostHandle stream = openFile(folder.write("random", content));
  char buffer[9000];
  for (int i = 0; i < 3000; ++i) {
    state = state * 1664525 + 1013904223;
    const std::uint32_t at = state % 300000;
    const std::uint32_t count = (state >> 16) % sizeof buffer;
    FLR_Seek(stream, static_cast<std::int32_t>(at), 0, kFileOriginStart);
    const std::int32_t got = FLR_Read(stream, buffer, count);
    const std::string expected = content.substr(at, count);
    ASSERT_EQ(static_cast<std::int32_t>(expected.size()), got);
    ASSERT_EQ(0, std::memcmp(buffer, expected.data(), expected.size()));
  }
  FLR_Close(stream);
}

TEST_F(FilesTest, OnlyRegularFilesOpen) {
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  struct Row {
    std::string path;
    const char* why;
  };
  const Row kRows[] = {{pipe, "is not a regular file"},
                       {folder.path().string(), "is a folder"},
                       {"/dev/null", "is not a regular file"},
                       {folder.file("none"), "No such file or directory"},
                       {"http://www.example.com/a.svg", "network addresses are not opened"},
                       {"\\\\server\\share\\a.svg", "network addresses are not opened"}};
  allowAllFiles(true);
  for (const Row& row : kRows) {
    std::string why;
    EXPECT_EQ(0u, openFile(row.path, &why));
    EXPECT_EQ(row.path + ": " + row.why, why);
    EXPECT_EQ(0u, openIn(row.path, kFileModeRead));
  }
}

TEST_F(FilesTest, NothingOutsideTheAllowedFoldersOpens) {
  const TempDir other;
  const std::string secret = other.write("secret", "s");
  const std::string inside = folder.write("in/a", "a");
  std::filesystem::create_symlink(secret, folder.file("link"));
  std::filesystem::create_symlink(inside, folder.file("good"));
  EXPECT_EQ(0u, openIn(inside, kFileModeRead));
  ASSERT_TRUE(allowFolder(folder.path().string(), FileAccess::kRead));
  struct Row {
    std::string path;
    bool opens;
  };
  const Row kRows[] = {{inside, true},
                       {folder.file("good"), true},
                       {folder.file("in/../in/a"), true},
                       {secret, false},
                       {folder.file("link"), false},
                       {folder.file("../" + other.path().filename().string() + "/secret"), false},
                       {folder.path().string() + "x", false}};
  egfhost::setSetting("diagnostics", 1);
  for (const Row& row : kRows) {
    clearMessages();
    const HostHandle stream = openIn(row.path, kFileModeRead);
    EXPECT_EQ(row.opens, stream != 0) << row.path;
    const QV_FILEID id = idOf(row.path);
    EXPECT_EQ(row.opens, FLR_FileExists(&id) != 0) << row.path;
    if (stream != 0) FLR_Close(stream);
  }
  EXPECT_EQ(0u, openIn(folder.file("new"), kFileModeWriteNew));
  clearMessages();
  openIn(secret, kFileModeRead);
  ASSERT_EQ(1u, recordedMessages().size());
  EXPECT_EQ(static_cast<int>(egfsvg::Diagnostic::kForbiddenFile), recordedMessages()[0].number);
  allowAllFiles(true);
  FLR_Close(openIn(secret, kFileModeRead));
}

TEST_F(FilesTest, AnOutputAppearsWholeWhenItIsClosed) {
  const std::string path = folder.write("out", "old");
  const HostHandle stream = openOutput(path);
  ASSERT_NE(0u, stream);
  EXPECT_EQ(3u, FLR_Write(stream, "abc", 3));
  EXPECT_NE(-1, FLR_PutLine("line", stream));
  EXPECT_EQ("old", readFile(path));
  EXPECT_EQ(0, FLR_Close(stream));
  EXPECT_EQ("abcline\n", readFile(path));
  EXPECT_EQ(1u, filesIn(folder));
}

TEST_F(FilesTest, AnOutputHasTheUsualPermissions) {
  const mode_t mask = umask(027);
  FLR_Close(openOutput(folder.file("out")));
  umask(mask);
  struct stat status;
  ASSERT_EQ(0, stat(folder.file("out").c_str(), &status));
  EXPECT_EQ(0640u, status.st_mode & 0777u);
}

TEST_F(FilesTest, AnOutputThatFailsLeavesTheOldFile) {
  const std::string path = folder.write("out", "old");
  const char* const kFailing[] = {"FLR_Close", "FLR_Write"};
  for (const char* const call : kFailing) {
    const HostHandle stream = openOutput(path);
    failAt(call, 1);
    const bool wrote = FLR_Write(stream, "new", 3) != kFileWriteFailed;
    EXPECT_EQ(std::string_view(call) != "FLR_Write", wrote);
    if (wrote) {
      EXPECT_NE(0, FLR_Close(stream)) << call;
    } else {
      discardOutput(stream);
    }
    EXPECT_EQ("old", readFile(path));
    EXPECT_EQ(1u, filesIn(folder));
  }
}

TEST_F(FilesTest, AnOutputOnAFullDeviceFails) {
  // The device refuses every byte.
  allowAllFiles(true);
  const HostHandle target = openIn("/dev/full", kFileModeRead);
  EXPECT_EQ(0u, target);
  std::string why;
  EXPECT_EQ(0u, openOutput("/dev/full", &why));
  EXPECT_EQ("/dev/full: is not a regular file", why);
  EXPECT_EQ(0u, openOutput(folder.file("none/out"), &why));
  EXPECT_EQ(folder.file("none/out") + ": No such file or directory", why);
}

TEST_F(FilesTest, AStreamThatIsDroppedUnclosedLeavesNothing) {
  const HostHandle stream = openOutput(folder.file("out"));
  FLR_Write(stream, "abc", 3);
  discardOutput(stream);
  EXPECT_EQ(0u, filesIn(folder));
}

TEST_F(FilesTest, TemporaryFilesAreNewAndPrivate) {
  QV_FILEID id = idOf(FLR_GetTempPath());
  ASSERT_EQ(0, FLR_GetUniqueFname(&id, "img"));
  EXPECT_EQ(0, FLR_FileExists(&id));
  HostHandle stream = 0;
  ASSERT_GE(FLR_OpenFile(&id, kFileModeTemporary, &stream), 0);
  EXPECT_NE(0, FLR_FileExists(&id));
  HostHandle second = 0;
  EXPECT_LT(FLR_OpenFile(&id, kFileModeTemporary, &second), 0);
  char name[kFileFullNameSize];
  ASSERT_EQ(0, FLR_FullFileName(name, id.path, &id));
  struct stat status;
  ASSERT_EQ(0, stat(name, &status));
  EXPECT_EQ(0600u, status.st_mode & 0777u);
  EXPECT_EQ(2u, FLR_Write(stream, "xy", 2));
  EXPECT_EQ(0, FLR_Close(stream));
  EXPECT_EQ("xy", readFile(name));
  EXPECT_EQ(0, FLR_DeleteFile(&id));
  EXPECT_EQ(0, FLR_FileExists(&id));
  EXPECT_NE(0, FLR_DeleteFile(&id));
}

TEST_F(FilesTest, TheTemporaryFolderComesAndGoes) {
  const std::string first = FLR_GetTempPath();
  EXPECT_TRUE(std::filesystem::is_directory(first));
  EXPECT_EQ('/', first.back());
  EXPECT_EQ(first, FLR_GetTempPath());
  struct stat status;
  ASSERT_EQ(0, stat(first.c_str(), &status));
  EXPECT_EQ(0700u, status.st_mode & 0777u);
  removeTemporaryFolder();
  EXPECT_FALSE(std::filesystem::exists(first));
  EXPECT_NE(first, FLR_GetTempPath());
}

TEST_F(FilesTest, UniqueNamesEndWithTheExtensionAndDiffer) {
  QV_FILEID first = idOf(folder.file("x"));
  QV_FILEID second = first;
  ASSERT_EQ(0, FLR_GetUniqueFname(&first, "svg"));
  ASSERT_EQ(0, FLR_GetUniqueFname(&second, "svg"));
  EXPECT_STRNE(first.baseName, second.baseName);
  EXPECT_TRUE(std::string_view(first.baseName).ends_with(".svg"));
  EXPECT_EQ(std::string_view::npos, std::string_view(first.baseName).find('/'));
}

TEST_F(FilesTest, NamesAreSplitAndJoined) {
  struct Row {
    const char* full;
    const char* path;
    const char* base;
    const char* joined;
  };
  const Row kRows[] = {{"/a/b/c.svg", "/a/b", "c.svg", "/a/b/c.svg"},
                       {"c.svg", ".", "c.svg", "./c.svg"},
                       {"/c.svg", "/", "c.svg", "/c.svg"},
                       {"a/", "a", "", "a/"},
                       {"", ".", "", "./"}};
  for (const Row& row : kRows) {
    QV_FILEID id{};
    ASSERT_EQ(0, FLR_SplitPath(row.full, id.path, id.baseName));
    EXPECT_STREQ(row.path, id.path);
    EXPECT_STREQ(row.base, id.baseName);
    char full[kFileFullNameSize];
    EXPECT_EQ(0, FLR_FullFileName(full, id.path, &id));
    EXPECT_STREQ(row.joined, full);
  }
}

TEST_F(FilesTest, LongNamesAreCutAndRefused) {
  const std::string name(300, 'n');
  const std::string path(2000, 'p');
  QV_FILEID id{};
  EXPECT_NE(0, FLR_SplitPath(name.c_str(), id.path, id.baseName));
  EXPECT_EQ(257u, std::strlen(id.baseName));
  EXPECT_NE(0, FLR_SplitPath((path + "/n").c_str(), id.path, id.baseName));
  EXPECT_EQ(1027u, std::strlen(id.path));
  EXPECT_FALSE(fileIdOf(name, &id));
  // Fields without a terminating zero are read to their end and no further.
  std::memset(&id, 'x', sizeof id);
  char full[kFileFullNameSize];
  EXPECT_NE(0, FLR_FullFileName(full, path.c_str(), &id));
  EXPECT_EQ(static_cast<std::size_t>(kFileFullNameSize - 1), std::strlen(full));
  EXPECT_EQ(0u, FLR_FileExists(&id));
}

TEST_F(FilesTest, AFileTellsItsParts) {
  const std::string path = folder.write("name.svg", "12");
  const HostHandle stream = openFile(path);
  const HostHandle file = FLR_GetStorage(stream);
  for (const HostHandle each : {stream, file}) {
    char base[kFileBaseNameSize];
    char directory[kFilePathSize];
    char full[kFileFullNameSize];
    EXPECT_EQ(0, FLR_GetBaseFilename(each, base));
    EXPECT_STREQ("name.svg", base);
    EXPECT_EQ(0, FLR_GetPath(each, directory));
    EXPECT_EQ(folder.path().string(), directory);
    EXPECT_NE(0, FLR_GetFullFilename(each, full));
    EXPECT_EQ(path, full);
    EXPECT_EQ(0, FLR_GetVRefNum(each));
    EXPECT_EQ(0, FLR_GetShareWriteFlag(each));
    EXPECT_EQ(0, FLR_GetDemandLoadFlag(each));
  }
  char none[kFileFullNameSize] = "x";
  EXPECT_NE(0, FLR_GetBaseFilename(0, none));
  EXPECT_STREQ("", none);
  EXPECT_EQ(0, FLR_GetFullFilename(4096, none));
  FLR_Close(stream);
}

TEST_F(FilesTest, AFileObjectOutlivesItsStreamByItsReferences) {
  const HostHandle first = openFile(folder.write("a", "abc"));
  const HostHandle file = FLR_GetStorage(first);
  EXPECT_EQ(0, OBJ_AddReferenceTrace(file, RMM_SITE));
  FLR_Close(first);
  for (int i = 0; i < 2; ++i) {
    HostHandle stream = 0;
    ASSERT_GE(FLR_Open(file, kFileModeRead, &stream), 0);
    EXPECT_EQ("abc", readAll(stream, 2));
    EXPECT_EQ(file, FLR_GetStorage(stream));
    FLR_Close(stream);
  }
  EXPECT_EQ(0, OBJ_DestroyObjectTrace(file, RMM_SITE));
  HostHandle stream = 5;
  EXPECT_LT(FLR_Open(file, kFileModeRead, &stream), 0);
  EXPECT_EQ(0u, stream);
}

TEST_F(FilesTest, MemoryOutputs) {
  std::string text = "before ";
  const HostHandle stream = openMemoryOutput("out.svg", &text);
  FLR_PutLine("one", stream);
  FLR_Write(stream, "two", 3);
  FLR_Seek(stream, 0, 0, kFileOriginStart);
  FLR_Write(stream, "O", 1);
  EXPECT_EQ(0, FLR_Close(stream));
  EXPECT_EQ("before One\ntwo", text);
  const HostHandle discarded = openMemoryOutput("out.svg", &text);
  FLR_PutLine("three", discarded);
  discardOutput(discarded);
  EXPECT_EQ("before One\ntwo", text);
}

TEST_F(FilesTest, OutputsCanBeWrittenOutOfOrder) {
  const std::string path = folder.file("out");
  const HostHandle stream = openOutput(path);
  const std::string big(100000, 'b');
  FLR_Write(stream, "head", 4);
  FLR_Write(stream, big.data(), static_cast<std::uint32_t>(big.size()));
  FLR_Write(stream, "tail", 4);
  EXPECT_EQ(1, FLR_Seek(stream, 1, 0, kFileOriginStart));
  FLR_Write(stream, "EA", 2);
  EXPECT_EQ(100008, FLR_Seek(stream, 0, 0, kFileOriginEnd));
  FLR_Write(stream, "!", 1);
  char byte;
  EXPECT_LT(FLR_Read(stream, &byte, 1), 0);
  EXPECT_EQ(0, FLR_Close(stream));
  EXPECT_EQ("hEAd" + big + "tail!", readFile(path));
}

TEST_F(FilesTest, InjectedFailures) {
  const std::string path = folder.write("a", "0123456789");
  char buffer[16];
  HostHandle stream = openFile(path);
  armFault("FLR_Read", 2, FaultKind::kCutShort);
  EXPECT_EQ(4, FLR_Read(stream, buffer, 4));
  EXPECT_EQ(2, FLR_Read(stream, buffer, 4));
  EXPECT_EQ(4, FLR_Read(stream, buffer, 10));
  failAt("FLR_Read", 1);
  EXPECT_LT(FLR_Read(stream, buffer, 1), 0);
  failAt("FLR_Seek", 1);
  EXPECT_LT(FLR_Seek(stream, 0, 0, 1), 0);
  const QV_FILEID id = idOf(path);
  HostHandle second = 0;
  failAt("FLR_OpenFile", 1);
  EXPECT_LT(FLR_OpenFile(&id, 1, &second), 0);
  failAt("FLR_Open", 1);
  EXPECT_LT(FLR_Open(stream, 1, &second), 0);
  failAt("FLR_FileExists", 1);
  EXPECT_EQ(0, FLR_FileExists(&id));
  failAt("FLR_DeleteFile", 1);
  EXPECT_NE(0, FLR_DeleteFile(&id));
  FLR_Close(stream);
  std::string text;
  stream = openMemoryOutput("o", &text);
  failAt("FLR_PutLine", 2);
  EXPECT_NE(-1, FLR_PutLine("1", stream));
  EXPECT_EQ(-1, FLR_PutLine("2", stream));
  EXPECT_NE(-1, FLR_PutLine("3", stream));
  EXPECT_EQ(-1, FLR_PutLine(nullptr, stream));
  EXPECT_EQ(-1, FLR_PutLine("4", 0));
  FLR_Close(stream);
  EXPECT_EQ("1\n3\n", text);
}

TEST_F(FilesTest, AllocationFailuresWhileOpening) {
  const std::string path = folder.write("a", "abc");
  for (std::uint64_t n = 1; n <= 2; ++n) {
    failAllocation(n);
    EXPECT_EQ(0u, openFile(path)) << n;
    failAllocation(n);
    EXPECT_EQ(0u, openOutput(folder.file("out"))) << n;
    failAllocation(n);
    EXPECT_EQ(0u, openMemory("m", "abc")) << n;
  }
  clearFaults();
  EXPECT_EQ(1u, filesIn(folder));
}

TEST_F(FilesTest, LinesCanBeWatchedAndAnswered) {
  std::string text;
  const HostHandle stream = openMemoryOutput("o", &text);
  std::vector<std::string> lines;
  setLineHook([&lines](std::string_view line) -> std::optional<int> {
    lines.emplace_back(line);
    if (line == "b") return -2;
    return std::nullopt;
  });
  EXPECT_EQ(0, FLR_PutLine("a", stream));
  EXPECT_EQ(-2, FLR_PutLine("b", stream));
  setLineHook({});
  FLR_Close(stream);
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), lines);
  EXPECT_EQ("a\n", text);
}

TEST_F(FilesTest, WrongHandlesFail) {
  char buffer[8];
  for (const HostHandle wrong : {0u, 16u, 4096u, 123456u, 0xffffffffu}) {
    EXPECT_LT(FLR_Read(wrong, buffer, 1), 0);
    EXPECT_EQ(kFileWriteFailed, FLR_Write(wrong, buffer, 1));
    EXPECT_LT(FLR_Seek(wrong, 0, 0, 1), 0);
    EXPECT_NE(0, FLR_Close(wrong));
    EXPECT_NE(0, FLR_Buffer(wrong));
    EXPECT_EQ(0u, FLR_GetStorage(wrong));
  }
}

}  // namespace
}  // namespace egfhost
