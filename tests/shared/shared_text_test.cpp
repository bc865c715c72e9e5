// SharedText: copy-on-write sharing, element operations and the text operations.
#include "shared/shared_text.h"

#include <gtest/gtest.h>

#include "quillon/db_exception.h"

namespace quillon {
namespace {

TEST(SharedText, EmptyTextHoldsOnlyTheTerminator) {
  SharedText empty;
  EXPECT_EQ(empty.Length(), 1);
  EXPECT_EQ(empty.TextLength(), 0);
  EXPECT_STREQ(empty.c_str(), "");
}

TEST(SharedText, WritingThroughOneHandleLeavesTheOtherAlone) {
  SharedText a("abc");
  SharedText b = a;
  EXPECT_TRUE(a.SharesBodyWith(b));
  EXPECT_EQ(a.RefCount(), 2);
  b.Set<char>(0, 'x');
  EXPECT_STREQ(a.c_str(), "abc");
  EXPECT_STREQ(b.c_str(), "xbc");
  EXPECT_EQ(a.RefCount(), 1);
  EXPECT_EQ(b.RefCount(), 1);
}

TEST(SharedText, SubstringOfTheWholeTextEndsUnique) {
  SharedText a("hello");
  SharedText whole = a.Substring(0, 5);
  EXPECT_FALSE(whole.SharesBodyWith(a));
  EXPECT_EQ(a.RefCount(), 1);
  EXPECT_STREQ(a.Substring(1, 3).c_str(), "ell");
}

TEST(SharedText, ComparisonAndEquality) {
  EXPECT_LT(SharedText("ab").Compare(SharedText("abc")), 0);
  EXPECT_GT(SharedText("abc").Compare(SharedText("ab")), 0);
  EXPECT_EQ(SharedText("ab").Compare(SharedText("ab")), 0);
  EXPECT_GT(SharedText("\xe9").Compare(SharedText("z")), 0) << "bytes compare as unsigned";
  EXPECT_TRUE(SharedText("Log").EqualsNoCase("LOG", 3));
  EXPECT_FALSE(SharedText("Log").EqualsNoCase("LOGS", 4));
  EXPECT_TRUE(SharedText("abc").Equals("abc", 3));
}

TEST(SharedText, FindAndConcatenation) {
  SharedText text("a+b+c");
  EXPECT_EQ(text.Find("+", 1, 0), 1);
  EXPECT_EQ(text.Find("+", 1, 2), 3);
  EXPECT_EQ(text.Find("+", 1, 4), 5);
  EXPECT_EQ(text.Find("", 0, 0), 5);
  EXPECT_STREQ(("<" + text + ">").c_str(), "<a+b+c>");
  EXPECT_STREQ((text + text).c_str(), "a+b+ca+b+c");
  EXPECT_STREQ(text.Wrap("((", ")").c_str(), "((a+b+c)");
}

TEST(SharedText, CopyOutTerminatesOnlyWhenThereIsRoom) {
  SharedText text("abcd");
  struct Row {
    int32_t capacity;
    const char* expected;
  };
  for (const Row row : {Row{0, ""}, Row{2, "ab"}, Row{4, "abcd"}, Row{8, "abcd"}}) {
    char buffer[10];
    std::memset(buffer, '#', sizeof buffer);
    int32_t length = -1;
    text.CopyOut(buffer, row.capacity, &length);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(std::string(buffer, std::strlen(row.expected)), row.expected);
    EXPECT_EQ(buffer[std::strlen(row.expected)], row.capacity > 4 ? '\0' : '#') << row.capacity;
  }
}

TEST(SharedText, ArraysResizeSpliceAndFill) {
  SharedText array = SharedText::Array(4, 4);
  array.Fill(static_cast<uint32_t>(-1));
  EXPECT_EQ(array.Get<int32_t>(3), -1);
  const int32_t values[] = {1, 2, 3, 4};
  array.Splice(0, 4, values, 4);
  const int32_t two[] = {7, 8};
  array.Splice(1, 1, two, 2);
  ASSERT_EQ(array.Length(), 5);
  EXPECT_EQ(array.Get<int32_t>(1), 7);
  EXPECT_EQ(array.Get<int32_t>(2), 8);
  EXPECT_EQ(array.Get<int32_t>(4), 4);
  array.Splice(0, 3, nullptr, 0);
  ASSERT_EQ(array.Length(), 2);
  EXPECT_EQ(array.Get<int32_t>(0), 3);
  array.Resize(0);
  EXPECT_EQ(array.Length(), 0);
  array.Resize(3);
  EXPECT_EQ(array.Length(), 3);
}

TEST(SharedText, ArrayThatCannotBeAllocatedRaises1929) {
  try {
    SharedText::Array(0x20000000, 16);
    FAIL() << "no exception";
  } catch (const db_exception& e) {
    EXPECT_EQ(e.code, 1929);
    EXPECT_EQ(e.params, "working array");
    EXPECT_EQ(e.separator, ';');
  }
}

// Texts and growth that cannot be had used to hand on an empty block, which the next write
// dereferenced; now every such allocation raises the layer's exception.
TEST(SharedText, TextThatCannotBeAllocatedRaises1929InsteadOfWritingThroughNull) {
  SharedText grown("abc");
  const struct {
    const char* name;
    void (*attempt)(SharedText& grown);
    const char* params;
  } rows[] = {
      {"room for a huge text", [](SharedText&) { SharedText::WithRoom(kMaxTextLength + 1); }, "text"},
      {"copy of a huge text", [](SharedText&) { SharedText(nullptr, kMaxTextLength + 1); }, "text"},
      {"resize past the limit", [](SharedText& text) { text.Resize(kMaxTextLength + 2); }, "text"},
      {"array resize past the limit",
       [](SharedText&) {
         SharedText array = SharedText::Array(4, 16);
         array.Resize(0x10000000);
       },
       "working array"},
  };
  for (const auto& row : rows) {
    try {
      row.attempt(grown);
      ADD_FAILURE() << row.name << ": no exception";
    } catch (const db_exception& e) {
      EXPECT_EQ(e.code, 1929) << row.name;
      EXPECT_EQ(e.params, row.params) << row.name;
    }
  }
  EXPECT_STREQ(grown.c_str(), "abc") << "a failed resize leaves the text as it was";
}

}  // namespace
}  // namespace quillon
