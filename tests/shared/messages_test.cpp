// Failure messages: formatting by code and parameters, the field tokenizer, the record, and the
// writers with their silent and break flags.
#include <gtest/gtest.h>

#include <cstring>

#include "quillon/errors.h"

namespace quillon {
namespace {

struct FormatCase {
  int32_t code;
  const char* params;
  char separator;
  const char* expected;
};

TEST(FormatMessage, FillsMarksFromFields) {
  const FormatCase cases[] = {
      {0, "", ';', "no outstanding errors"},
      {502, "abc", ';', "object name 'abc' already in use"},
      {509, "x;series", ';', "object 'x' is not a series"},
      // Missing parameters: every "%" past the last field vanishes.
      {509, "x", ';', "object 'x' is not a "},
      {905, "", ';', "pattern '' and pattern '' are incompatible"},
      // Extra parameters are ignored.
      {502, "a;b;c", ';', "object name 'a' already in use"},
      // A separator inside quotes does not split; the quotes stay.
      {509, "\"a;b\";c", ';', "object '\"a;b\"' is not a c"},
      {509, "a,b", ',', "object 'a' is not a b"},
      {509, "a;b", ',', "object 'a;b' is not a "},
      // A trailing separator leaves one more, empty, field.
      {1917, "f;", ';', "bad data field 'f' (line , col )"},
      {7, "abc", ';', ""},
      {2100, "a", ';', "a"},
      {1929, "working array", ';', "unable to allocate memory for working array"},
  };
  for (const FormatCase& c : cases)
    EXPECT_EQ(FormatMessage(c.code, c.params, c.separator), c.expected)
        << "code " << c.code << " params " << c.params;
}

// The table keeps its out-of-order rows; a lookup must not assume sorted codes.
TEST(MessageTemplate, FindsOutOfOrderRows) {
  EXPECT_STREQ(MessageTemplate(1107), "can't decode series data");
  EXPECT_STREQ(MessageTemplate(1108), "can't decode query data: '%'");
  EXPECT_STREQ(MessageTemplate(1610), "No server name provided");
  EXPECT_STREQ(MessageTemplate(1611), "page '%' could not be found");
  EXPECT_STREQ(MessageTemplate(1921), "syntax error: %");
  EXPECT_STREQ(MessageTemplate(1922), "syntax error: found '%' when expecting %");
  EXPECT_STREQ(MessageTemplate(305), "SECURITY_UID_INVALID");
  EXPECT_STREQ(MessageTemplate(2102), "");
}

TEST(ErrorRecord, SetFormatAndClear) {
  ErrorRecord record;
  record.Set(db_exception(101, "data.bin"));
  EXPECT_EQ(record.Format(), "access denied to file 'data.bin' by operating system");
  record.Set(1915, "in.csv|12", '|');
  EXPECT_EQ(record.Format(), "unexpected end of file in 'in.csv' (line 12)");
  record.Clear();
  EXPECT_EQ(record.code, 0);
  EXPECT_EQ(record.params, "");
  EXPECT_EQ(record.separator, ';');
  EXPECT_EQ(record.Format(), "no outstanding errors");
}

TEST(FieldTokenizer, SplitsOutsideQuotesAndThrowsPastEnd) {
  FieldTokenizer fields("a::\"b::c\"::", "::");
  EXPECT_EQ(fields.Next(), "a");
  EXPECT_EQ(fields.Next(), "\"b::c\"");
  EXPECT_FALSE(fields.AtEnd());
  EXPECT_EQ(fields.Next(), "");
  EXPECT_TRUE(fields.AtEnd());
  try {
    fields.Next();
    FAIL() << "no exception past the end";
  } catch (const db_exception& e) {
    EXPECT_EQ(e.code, kCodeTextIncomplete);
    EXPECT_EQ(e.Message(), "text string incomplete");
  }
  EXPECT_TRUE(FieldTokenizer("", ";").AtEnd());
}

// Writers and flags are process-wide: each test puts them back.
class MessageWriters : public ::testing::Test {
 protected:
  static inline std::string written;
  static inline int32_t answer = 0;
  static int32_t Record(const char* text) {
    written += text != nullptr ? text : "<null>";
    written += '\n';
    return answer;
  }
  void SetUp() override {
    written.clear();
    answer = 0;
    SetMessageWriter1(Record);
    SetMessageWriter2(Record);
    ClearBreak();
  }
  void TearDown() override {
    SetMessageWriter1(nullptr);
    SetMessageWriter2(nullptr);
    SilentOff();
    ClearBreak();
    SetBreakFlagLocation(nullptr);
  }
};

TEST_F(MessageWriters, WriterAnswerSetsBreakUntilCleared) {
  EXPECT_EQ(WriteMessage1("one"), 0);
  answer = 1;
  EXPECT_EQ(WriteMessage2(std::string("two")), 1);
  answer = 0;
  EXPECT_EQ(WriteMessage1("three"), 1) << "the break flag stays set";
  ClearBreak();
  EXPECT_EQ(WriteMessage1(nullptr), 0);
  EXPECT_EQ(written, "one\ntwo\nthree\n<null>\n");
}

TEST_F(MessageWriters, SilentSkipsWritersAndReportsZero) {
  int32_t hostFlag = 1;
  SetBreakFlagLocation(&hostFlag);
  SilentOn();
  answer = 1;
  EXPECT_EQ(WriteMessage1("hidden"), 0);
  EXPECT_EQ(written, "");
  SilentOff();
  EXPECT_EQ(WriteMessage1("shown"), 1);
  EXPECT_EQ(written, "shown\n");
}

TEST_F(MessageWriters, UserBreakWritesClearsAndThrows) {
  int32_t hostFlag = 1;
  SetBreakFlagLocation(&hostFlag);
  try {
    UserBreak();
    FAIL() << "no exception";
  } catch (const db_exception& e) {
    EXPECT_EQ(e.code, kCodeUserBreak);
    EXPECT_EQ(e.Message(), "operation aborted by user");
  }
  EXPECT_EQ(written, "Aborted by user\n");
  EXPECT_EQ(hostFlag, 0);
}

TEST(HostQuery, AnswersByKeywordWithTheirBufferSizes) {
  static std::string asked;
  SetHostQuery([](char* buffer, int32_t size, const char* keyword) -> int32_t {
    asked += std::string(keyword) + ":" + std::to_string(size) + " ";
    if (std::strcmp(keyword, "DATESTYLE") == 0) {
      const int32_t value = 3;
      std::memcpy(buffer, &value, sizeof value);
      return 1;
    }
    if (std::strcmp(keyword, "PAGEFREQ") == 0) return 0;
    std::memset(buffer, 'x', size);  // no terminator: the answer stops at the buffer's end
    return 1;
  });
  EXPECT_EQ(QueryHostInteger(HostKey::DateStyle), 3);
  EXPECT_EQ(QueryHostText(HostKey::AppInfo), std::string(160, 'x'));
  EXPECT_EQ(QueryHostText(HostKey::GetTempDir, 7), std::string(7, 'x'));
  EXPECT_EQ(QueryHostText(HostKey::PageFreq), "");
  EXPECT_EQ(asked, "DATESTYLE:4 APPINFO:160 GETTEMPDIR:7 PAGEFREQ:120 ");
  SetHostQuery(nullptr);
  EXPECT_EQ(QueryHostInteger(HostKey::GetMaxAlphaLen), 0);
}

}  // namespace
}  // namespace quillon
