// Style tables as texts, for the tests of style sheets.
#pragma once

#include <string>

#include "model/lifecycle.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {

/// The table in its order: a line "key{name:value;...}" for each rule.
inline std::string rulesOf(const CHandlerReader& reader) {
  std::string text;
  for (std::int32_t i = 0; i < reader.styles.count; ++i) {
    text += std::string(reader.styles.entries[i].key) + "{";
    for (const AttNode* node = reader.styles.entries[i].value; node != nullptr; node = node->next) {
      EXPECT_EQ(node->valueLength, static_cast<int>(std::strlen(node->value)) + 1);
      text += std::string(node->name) + ":" + node->value + ";";
    }
    text += "}\n";
  }
  return text;
}

/// The table after the first pass over a drawing.
inline std::string firstPassRules(const std::string& drawing, bool plainStyle = false) {
  TextReader reader(drawing);
  reader->state.settings.plainStyle = plainStyle;
  reader->ParseStyleSheetsAndReferences();
  return rulesOf(*reader);
}

}  // namespace egfsvg::test
