#include "adapter_reader/style_numbers.h"

#include <gtest/gtest.h>

#include "embedded_host/host_documents.h"
#include "embedded_host/host_faults.h"
#include "host/egf_templates.h"

namespace egfsvg::test {
namespace {

TEST(StyleNumbers, WithoutADocumentThePageAsksTheHostOnce) {
  StyleNumbers numbers;
  numbers.beginPage();
  egfhost::countCalls();
  EXPECT_EQ(numbers.number(0, kPolygonPen), 0U);
  EXPECT_EQ(numbers.number(0, kPolygonPen), 0U);
  EXPECT_EQ(egfhost::callCount("OBJ_GetRootTrace"), 1U);
  EXPECT_EQ(egfhost::callCount("ISL_GetProperty"), 1U);
  egfhost::clearFaults();
}

TEST(StyleNumbers, ATableThatIsMissingIsAskedForAgain) {
  const HostHandle document = egfhost::createDocument();
  StyleNumbers numbers;
  numbers.beginPage();
  ASSERT_TRUE(egfhost::failAt("ISL_GetProperty", 1));
  EXPECT_EQ(numbers.number(document, kPolygonPen), 0U);
  EXPECT_EQ(numbers.number(document, kPolygonPen), 1U);
  egfhost::clearFaults();
  egfhost::destroyDocument(document);
}

}  // namespace
}  // namespace egfsvg::test
