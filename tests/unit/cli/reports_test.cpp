#include "cli/reports.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded_host/host_settings.h"
#include "host/diagnostics.h"
#include "host/platform_window.h"
#include "tests/support/files.h"

namespace egfsvg {
namespace {

// Runs the work with a listener and gives what stood on standard error.
template <class Work>
std::string heard(bool quiet, Work work) {
  const test::TempDir folder;
  const std::string path = folder.write("a.svg", "<svg>\n  <foo/>\n</svg>\n");
  egfhost::setSetting("diagnostics", 1);
  testing::internal::CaptureStderr();
  {
    Reports reports("a.svg", path, quiet);
    work(reports);
    reports.finish();
  }
  return testing::internal::GetCapturedStderr();
}

void diagnose(Diagnostic diagnostic, std::uint32_t offset, const char* subject) {
  logDiagnostic(diagnostic, offset, subject, "test", 1);
}

TEST(Reports, PlacesDiagnostics) {
  EXPECT_EQ(heard(false,
                  [](Reports& reports) {
                    diagnose(Diagnostic::kUnknownElement, 8, "foo");
                    diagnose(Diagnostic::kUnreadableFile, kNoSourceOffset, "x.png");
                    EXPECT_FALSE(reports.limitHit());
                    EXPECT_FALSE(reports.endedEarly());
                  }),
            "egfsvg: a.svg:2:3: warning: element \"foo\" is not known and was left out\n"
            "egfsvg: a.svg: warning: file \"x.png\" could not be opened and was left out\n");
}

TEST(Reports, TellsTheSameThingOnce) {
  const std::string text = heard(false, [](Reports& reports) {
    for (int i = 0; i < 5; ++i) diagnose(Diagnostic::kUnknownElement, 8, "foo");
    diagnose(Diagnostic::kUnknownElement, 8, "bar");
    ASSERT_EQ(reports.told().size(), 2U);
    EXPECT_EQ(reports.told().rbegin()->second, 5U);
  });
  EXPECT_EQ(text,
            "egfsvg: a.svg:2:3: warning: element \"foo\" is not known and was left out\n"
            "egfsvg: a.svg:2:3: warning: element \"bar\" is not known and was left out\n");
}

TEST(Reports, CountsWhatDrawsNothingWithoutAWarning) {
  EXPECT_EQ(heard(false,
                  [](Reports& reports) {
                    diagnose(Diagnostic::kUnknownElement, 8, "title");
                    diagnose(Diagnostic::kUnknownElement, 8, "rdf:RDF");
                    diagnose(Diagnostic::kUnknownAttribute, 8, "inkscape:label");
                    diagnose(Diagnostic::kUnknownAttribute, 8, "version");
                    diagnose(Diagnostic::kUnknownAttribute, 8, "data-x");
                    EXPECT_EQ(reports.told().size(), 5U);
                    diagnose(Diagnostic::kUnknownElement, 8, "svg:rect");
                  }),
            "egfsvg: a.svg:2:3: warning: element \"svg:rect\" is not known and was left out\n");
}

TEST(Reports, StopsAfterFiftyLines) {
  const std::string text = heard(false, [](Reports&) {
    for (int i = 0; i < 70; ++i) {
      diagnose(Diagnostic::kUnknownElement, 0, ("e" + std::to_string(i)).c_str());
    }
  });
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 51);
  EXPECT_NE(text.find("20 more kinds of warnings"), std::string::npos);
}

TEST(Reports, NamesTheOptionThatRaisesALimit) {
  struct Row {
    Diagnostic limit;
    const char* option;
  };
  for (const Row& row : {Row{Diagnostic::kNestingLimit, "--max-nesting"},
                         Row{Diagnostic::kReferenceDepthLimit, "--max-reference-depth"},
                         Row{Diagnostic::kReferencedObjectsLimit, "--max-referenced-objects"},
                         Row{Diagnostic::kSourceBytesLimit, "--max-source-bytes"}}) {
    // Limits are told even when all else is quiet, and once.
    const std::string text = heard(true, [&](Reports& reports) {
      diagnose(row.limit, 8, "g");
      diagnose(row.limit, 9, "g");
      EXPECT_TRUE(reports.limitHit());
    });
    EXPECT_NE(text.find("a.svg:2:3: "), std::string::npos) << text;
    EXPECT_NE(text.find(std::string("raise the limit with ") + row.option), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
  }
}

TEST(Reports, CountsACutNameAsAWarning) {
  const std::string text = heard(false, [](Reports& reports) {
    diagnose(Diagnostic::kNameLengthLimit, 8, "g");
    EXPECT_FALSE(reports.limitHit());
  });
  EXPECT_EQ(text.find("egfsvg: a.svg:2:3: "), 0U) << text;
}

TEST(Reports, KnowsThatAReadEndedEarly) {
  heard(false, [](Reports& reports) {
    diagnose(Diagnostic::kSourceEnds, 8, "g");
    EXPECT_TRUE(reports.endedEarly());
  });
}

TEST(Reports, ShowsNoticesAndMessages) {
  EXPECT_EQ(heard(false,
                  [](Reports&) {
                    MessageBoxA(0, "Something was left out.", nullptr, kMessageBoxInformation);
                  }),
            "egfsvg: a.svg: Something was left out.\n");
  const std::string text = heard(false, [](Reports&) {
    MSG_LogMsg_Named(kMessageSeverity, kMessageNoOpenContainer, nullptr, 0, "test", 1);
  });
  EXPECT_EQ(text.find("egfsvg: a.svg: warning: "), 0U);
}

TEST(Reports, IsQuietWhenAsked) {
  EXPECT_EQ(heard(true,
                  [](Reports&) {
                    diagnose(Diagnostic::kUnknownElement, 8, "foo");
                    MessageBoxA(0, "Notice.", nullptr, kMessageBoxInformation);
                  }),
            "");
}

TEST(Reports, ListensOnlyWhileItLives) {
  heard(false, [](Reports&) {});
  testing::internal::CaptureStderr();
  diagnose(Diagnostic::kUnknownElement, 8, "foo");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace egfsvg
