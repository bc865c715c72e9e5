// Text out and inspection through the exports: the copy-out contract of mathexpr_as_text, what
// reading leaves alone, and the classes that the inspection exports report.
#include <gtest/gtest.h>

#include <cstring>

#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

int32_t QUILLON_CALL TypeByName(const char* name) {
  switch (name[0]) {
    case 's': return 15;  // series
    case 'k': return 43;  // class 2
    case 'v': return 42;
    default: return 199;
  }
}

class TextExports : public NoLeakTest {
 protected:
  void SetUp() override {
    NoLeakTest::SetUp();
    table = mathsymtable_create(TypeByName, 1);
  }
  void TearDown() override {
    mathsymtable_destroy(table);
    NoLeakTest::TearDown();
  }
  mathsymtable* table = nullptr;
};

TEST_F(TextExports, CopyOutByCapacity) {
  mathexpr* e = mathexpr_create(table, "a+b");
  struct Row {
    int32_t capacity;
    const char* written;  // what the buffer holds, '#' where nothing was written
  };
  const Row rows[] = {{0, "#####"}, {2, "a+###"}, {3, "a+b##"}, {4, "a+b\0#"}};
  for (const Row& row : rows) {
    char buffer[5];
    std::memset(buffer, '#', sizeof buffer);
    int32_t length = -1;
    mathexpr_as_text(e, buffer, row.capacity, &length, 0);
    EXPECT_EQ(length, 3);
    EXPECT_EQ(std::string(buffer, 5), std::string(row.written, 5)) << "capacity " << row.capacity;
  }
  int32_t length = -1;
  mathexpr_as_text(e, nullptr, 100, &length, 0);
  EXPECT_EQ(length, 3) << "a NULL buffer only learns the length";
  mathexpr_destroy(e);
}

TEST_F(TextExports, ReadingLeavesTheExpressionAsItWas) {
  mathexpr* e = mathexpr_create(table, "a - b/c");
  mathexpr_evaluate(e, 3);
  const std::string before = Structure(e);
  char text[64];
  mathexpr_as_text(e, text, sizeof text, nullptr, 1);
  EXPECT_STREQ(text, "a - b/c");
  EXPECT_EQ(Structure(e), before);
  mathexpr_destroy(e);
}

TEST_F(TextExports, TextReadsBackToTheSameTree) {
  const char* texts[] = {"-3+x+x*y", "a-(b-c)", "2*x/(y*z^2)", "@sqrt(x)+{1,2}", "-@sin(x)^2", "x(-1)*s(-2)"};
  for (const char* text : texts) {
    mathexpr* e = mathexpr_create(table, text);
    mathexpr_evaluate(e, 3);
    char printed[128];
    mathexpr_as_text(e, printed, sizeof printed, nullptr, 0);
    mathexpr* again = mathexpr_create(table, printed);
    mathexpr_evaluate(again, 3);
    EXPECT_EQ(Structure(again), Structure(e)) << text << " printed as " << printed;
    mathexpr_destroy(again);
    mathexpr_destroy(e);
  }
}

TEST_F(TextExports, ErrorsPrintInTheirBrackets) {
  mathexpr* e = mathexpr_create(table, "");
  char text[64];
  mathexpr_as_text(e, text, sizeof text, nullptr, 0);
  EXPECT_STREQ(text, "<\"syntax error: expression ends unexpectedly\">");
  EXPECT_EQ(mathexpr_get_priority(e), 0);
  EXPECT_EQ(mathexpr_is_numeric(e), 0u);
  mathexpr_destroy(e);
}

TEST_F(TextExports, NumericAttributesAndPriority) {
  struct Row {
    const char* text;
    uint32_t numeric;
    int32_t priority;
    uint32_t functionAttributes;
    uint32_t symbolBits;
  };
  const Row rows[] = {
      {"1 + 2", 1, 2, 55, 0},
      {"x", 0, 0, 0, 1},
      {"rnd", 0, 1, 128, 0},
      {"s(-1) * 2", 0, 4, 55, 4},
      {"s + k(1)", 0, 5, 55, 6},
      {"k(1)", 0, 3, 0, 2},
      {"@trend", 0, 4, 64, 0},
      {"@sin[1](k(1))", 0, 0, 0x80000000u, 2},
      {"v(2) + 1", 0, 2, 55, 8},
  };
  for (const Row& row : rows) {
    mathexpr* e = mathexpr_create(table, row.text);
    int32_t nodes = -1;
    uint32_t attributes = 1, symbols = 1;
    mathexpr_get_attributes(e, &nodes, &attributes, &symbols);
    EXPECT_EQ(mathexpr_is_numeric(e), row.numeric) << row.text;
    EXPECT_EQ(mathexpr_get_priority(e), row.priority) << row.text;
    EXPECT_EQ(attributes, row.functionAttributes) << row.text;
    EXPECT_EQ(symbols, row.symbolBits) << row.text;
    EXPECT_GT(nodes, 0) << row.text;
    mathexpr_destroy(e);
  }
}

}  // namespace
}  // namespace quillon::testing
