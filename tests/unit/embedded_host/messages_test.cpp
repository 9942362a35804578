#include "host/messages.h"

#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_window.h"
#include "host/diagnostics.h"
#include "host/memory.h"
#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using MessageTest = HostTest;

TEST_F(MessageTest, LoggedShownAndNoticedAreRecorded) {
  MSG_LogMsg_Named(-1, 33984, "Icon", 0, "a.cpp", 12);
  MSG_LogMsg_Named(-1, 1273, nullptr, 0, nullptr, 0);
  MSG_DispInfo(1108, 20, "x.css", 0);
  EXPECT_EQ(1, MessageBoxA(GetActiveWindow(), "Mind!", nullptr, kMessageBoxInformation));
  const std::vector<Message>& all = recordedMessages();
  ASSERT_EQ(4u, all.size());
  EXPECT_EQ(MessageKind::kLogged, all[0].kind);
  EXPECT_EQ(-1, all[0].severity);
  EXPECT_EQ(33984, all[0].number);
  EXPECT_EQ("Icon", all[0].text);
  EXPECT_EQ("a.cpp", all[0].file);
  EXPECT_EQ(12, all[0].line);
  EXPECT_EQ("", all[1].text);
  EXPECT_EQ(MessageKind::kShown, all[2].kind);
  EXPECT_EQ(20, all[2].severity);
  EXPECT_EQ("x.css", all[2].text);
  EXPECT_EQ(MessageKind::kNotice, all[3].kind);
  EXPECT_EQ("Mind!", all[3].text);
  EXPECT_EQ(1u, countMessages(1273));
  EXPECT_EQ(4u, messageCount());
  clearMessages();
  EXPECT_TRUE(recordedMessages().empty());
  EXPECT_EQ(0u, messageCount());
}

TEST_F(MessageTest, WordsBehindNumbers) {
  struct Row {
    int number;
    const char* argument;
    const char* text;
  };
  const Row kRows[] = {{1108, "a.png", "file \"a.png\" could not be read"},
                       {1273, "", "there is not enough memory"},
                       {34040, "", "an element stands outside the drawing and was left out"},
                       {60000, "blink", "element \"blink\" is not known and was left out"},
                       {60000, "%s", "element \"%s\" is not known and was left out"},
                       {5, "x", "message 5"}};
  for (const Row& row : kRows) EXPECT_EQ(row.text, messageText(row.number, row.argument));
}

TEST_F(MessageTest, StringsAreCutToTheBuffer) {
  for (const int number : {2350, 2329, 3614}) {
    char whole[kMessageStringSize];
    const int length = MSG_LoadStringEx(0, number, whole, kMessageStringSize);
    EXPECT_GT(length, 0);
    EXPECT_EQ(static_cast<std::size_t>(length), std::strlen(whole));
    char cut[5];
    EXPECT_EQ(4, MSG_LoadStringEx(0, number, cut, 5));
    EXPECT_EQ(std::string(whole, 4), cut);
  }
  char none[8] = "x";
  EXPECT_EQ(0, MSG_LoadStringEx(0, 1, none, 8));
  EXPECT_STREQ("", none);
  EXPECT_EQ(0, MSG_LoadStringEx(0, 2350, none, 0));
}

TEST_F(MessageTest, ListenersHearEveryMessage) {
  std::vector<int> heard;
  setMessageListener([&heard](const Message& message) { heard.push_back(message.number); });
  for (int i = 0; i < 100003; ++i) MSG_LogMsg_Named(-1, i, "", 0, "", 0);
  EXPECT_EQ(100003u, heard.size());
  EXPECT_EQ(100000u, recordedMessages().size());
  EXPECT_EQ(100003u, messageCount());
}

TEST_F(MessageTest, TheModeWord) {
  EXPECT_EQ(0, MSG_GetCurMode());
  setModeWord(5);
  EXPECT_EQ(5, MSG_GetCurMode());
  setModeWord(0);
}

TEST_F(MessageTest, DiagnosticsAreLoggedWhenAskedForAndLimitsAlways) {
  using egfsvg::Diagnostic;
  struct Row {
    std::uint32_t setting;
    Diagnostic diagnostic;
    bool logged;
  };
  const Row kRows[] = {
      {0, Diagnostic::kUnknownElement, false}, {1, Diagnostic::kUnknownElement, true},
      {0, Diagnostic::kNestingLimit, true},    {1, Diagnostic::kNestingLimit, true},
      {0, Diagnostic::kSyntaxError, false},    {1, Diagnostic::kSyntaxError, true}};
  for (const Row& row : kRows) {
    clearMessages();
    setSetting("diagnostics", row.setting);
    egfsvg::logDiagnostic(row.diagnostic, 123, "x y", RMM_SITE);
    ASSERT_EQ(row.logged ? 1u : 0u, recordedMessages().size());
    if (!row.logged) continue;
    EXPECT_EQ(static_cast<int>(row.diagnostic), recordedMessages()[0].number);
    EXPECT_EQ("123 x y", recordedMessages()[0].text);
  }
}

TEST_F(MessageTest, DiagnosticTextsComeApart) {
  struct Row {
    std::uint32_t offset;
    std::string subject;
    std::string text;
  };
  const Row kRows[] = {{0, "g", "0 g"},
                       {4294967294u, "a b", "4294967294 a b"},
                       {egfsvg::kNoSourceOffset, "x", "- x"},
                       {7, "", "7 "},
                       {8, std::string(500, 's'), "8 " + std::string(213, 's')}};
  setSetting("diagnostics", 1);
  for (const Row& row : kRows) {
    clearMessages();
    egfsvg::logDiagnostic(egfsvg::Diagnostic::kBadValue, row.offset, row.subject.c_str(), RMM_SITE);
    ASSERT_EQ(1u, recordedMessages().size());
    const std::string& text = recordedMessages()[0].text;
    EXPECT_EQ(row.text, text);
    EXPECT_EQ(row.offset, splitDiagnosticText(text).offset);
    EXPECT_EQ(text.substr(text.find(' ') + 1), splitDiagnosticText(text).subject);
  }
}

TEST_F(MessageTest, DiagnosticNumbersAreInTheirRanges) {
  int before = egfsvg::kFirstDiagnostic - 1;
  for (const egfsvg::DiagnosticRow& row : egfsvg::kDiagnosticRows) {
    const int number = static_cast<int>(row.diagnostic);
    EXPECT_GT(number, before) << row.name;
    EXPECT_LT(number, egfsvg::kEndOfDiagnostics);
    EXPECT_NE(nullptr, std::strstr(row.text, "%s")) << row.name;
    EXPECT_EQ(&row, egfsvg::diagnosticRow(number));
    before = number;
  }
}

TEST_F(MessageTest, CursorsChangeAndGoBack) {
  const HostHandle wait = LoadCursorA(0, kWaitCursor);
  const HostHandle before = SetCursor(wait);
  EXPECT_EQ(kArrowCursor, before);
  EXPECT_EQ(wait, currentCursor());
  const HostHandle classBefore = SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, wait);
  EXPECT_EQ(wait, frameClassCursor());
  EXPECT_EQ(wait, SetClassLongA(COM_GetFrameWnd(), kClassLongCursor, classBefore));
  EXPECT_EQ(wait, SetCursor(before));
  EXPECT_EQ(0u, SetClassLongA(0, kClassLongCursor, wait));
  EXPECT_EQ(kArrowCursor, frameClassCursor());
}

}  // namespace
}  // namespace egfhost
