#include "tests/testing/line_changes.h"

#include <gtest/gtest.h>

namespace tillora::testing {
namespace {

TEST(LineChangesTest, EqualTextsHaveNone) { EXPECT_EQ(lineChanges("a\nb\n", "a\nb\n"), ""); }

TEST(LineChangesTest, EachIsShownBelowTheLastLineOfBoth) {
  EXPECT_EQ(lineChanges("a\nb\nc\nd\n", "a\nx\nc\nd\n"), "  a\n- b\n+ x\n");
  EXPECT_EQ(lineChanges("a\nb\nc\n", "a\nb\nnew\nc\nend\n"), "  b\n+ new\n  c\n+ end\n");
  EXPECT_EQ(lineChanges("first\na\n", "a\n"), "- first\n");
  EXPECT_EQ(lineChanges("", "a\n"), "+ a\n");
  EXPECT_EQ(lineChanges("a\n", ""), "- a\n");
}

}  // namespace
}  // namespace tillora::testing
