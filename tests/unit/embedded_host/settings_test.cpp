#include "host/settings.h"

#include <string>

#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using SettingsTest = HostTest;
using egfsvg::Setting;

TEST_F(SettingsTest, EveryWordIsZeroAtTheStart) {
  const std::uint32_t* const words = CFG_GetDefaults(0, 0);
  for (std::uint32_t i = 0; i < egfsvg::kSettingsWords; ++i) ASSERT_EQ(0u, words[i]) << i;
}

TEST_F(SettingsTest, NamesStandForWords) {
  struct Row {
    const char* name;
    std::uint32_t word;
  };
  const Row kRows[] = {
      {"seventhStyleTable", 1568}, {"uprightText", 1601},          {"trueCurves", 1602},
      {"namespaces", 1603},        {"hideUnderNone", 1604},        {"maxNesting", 1605},
      {"maxReferenceDepth", 1606}, {"maxReferencedObjects", 1607}, {"maxSourceBytes", 1608},
      {"plainStyle", 1609},        {"compactNumbers", 1610},       {"useAnywhere", 1611},
      {"diagnostics", 1612}};
  std::uint32_t value = 40;
  for (const Row& row : kRows) {
    ASSERT_TRUE(setSetting(row.name, ++value)) << row.name;
    EXPECT_EQ(value, CFG_GetDefaults(0, 0)[row.word]) << row.name;
    EXPECT_EQ(value, getSetting(row.name));
  }
  EXPECT_EQ(14u, settingRows().size());
  EXPECT_FALSE(setSetting("nothing", 1));
  EXPECT_FALSE(setSetting("textLanguage", 1));
  EXPECT_FALSE(setSettingText("namespaces", "x"));
  EXPECT_EQ(0u, getSetting("nothing"));
  resetSettings();
  EXPECT_EQ(0u, getSetting("diagnostics"));
}

TEST_F(SettingsTest, LimitsFallBackToTheBuiltInOnes) {
  EXPECT_EQ(1024u, egfsvg::maxNesting());
  EXPECT_EQ(64u, egfsvg::maxReferenceDepth());
  EXPECT_EQ(1000000u, egfsvg::maxReferencedObjects());
  EXPECT_EQ(0x7fffffffu, egfsvg::maxSourceBytes());
  setSetting("maxNesting", 3);
  setSetting("maxReferenceDepth", 4);
  setSetting("maxReferencedObjects", 5);
  setSetting("maxSourceBytes", 6);
  EXPECT_EQ(3u, egfsvg::maxNesting());
  EXPECT_EQ(4u, egfsvg::maxReferenceDepth());
  EXPECT_EQ(5u, egfsvg::maxReferencedObjects());
  EXPECT_EQ(6u, egfsvg::maxSourceBytes());
}

TEST_F(SettingsTest, TheTextLanguageIsACopyInTheCage) {
  EXPECT_EQ(nullptr, egfsvg::textLanguage());
  std::string language = "de";
  ASSERT_TRUE(setSettingText("textLanguage", language.c_str()));
  language = "xx";
  EXPECT_STREQ("de", egfsvg::textLanguage());
  ASSERT_TRUE(setSettingText("textLanguage", "auto"));
  EXPECT_STREQ("auto", egfsvg::textLanguage());
  failAllocation(1);
  EXPECT_FALSE(setSettingText("textLanguage", "fr"));
  EXPECT_STREQ("auto", egfsvg::textLanguage());
  ASSERT_TRUE(setSettingText("textLanguage", ""));
  EXPECT_EQ(nullptr, egfsvg::textLanguage());
  EXPECT_FALSE(egfsvg::settingOn(Setting::kTextLanguage));
}

}  // namespace
}  // namespace egfhost
