// The lexer from text to token sequences, with its odd rules, and the ownership of token values.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "core/enode.h"
#include "language/lexer.h"
#include "language/token.h"

namespace quillon {
namespace {

// One token as a short text: B:1, I:12, R:0.5, R:NA, S:text, D:year sep period subperiod,
// N:name, W:letter (W:#code for others), O:spelling, U:char, End.
std::string Describe(const Token& token, char current) {
  char buffer[64];
  switch (token.Kind()) {
    case TokenBoolean:
      return token.Boolean() ? "B:1" : "B:0";
    case TokenInteger:
      return "I:" + std::to_string(token.Integer());
    case TokenReal:
      if (IsNA(token.Real())) return "R:NA";
      std::snprintf(buffer, sizeof buffer, "R:%.17g", token.Real());
      return buffer;
    case TokenString:
      return "S:" + std::string(token.String().c_str());
    case TokenDate:
      std::snprintf(buffer, sizeof buffer, "D:%d %c %d %d", token.Date().year,
                    token.Date().separator, token.Date().period, token.Date().subperiod);
      return buffer;
    case TokenIdentifier:
      return "N:" + std::string(token.Identifier());
    case TokenWildcard:
      if (token.Wildcard() > ' ') return std::string("W:") + token.Wildcard();
      return "W:#" + std::to_string(token.Wildcard());
    case TokenOperator:
      return std::string("O:") + TokenSpelling(token.Operator());
    case TokenUnknown:
      return std::string("U:") + current;
    case TokenEnd:
      return "End";
    default:
      return "none";
  }
}

// The tokens of a text up to End or the first Unknown, blank-separated.
std::string Lex(const std::string& text) {
  StringLexer lexer(SharedText(text.c_str(), static_cast<int32_t>(text.size())));
  Token token;
  std::string out;
  for (int i = 0; i < 100; ++i) {
    lexer.NextToken(token);
    out += (out.empty() ? "" : " ") + Describe(token, lexer.current);
    if (token.Kind() == TokenEnd || token.Kind() == TokenUnknown) break;
  }
  return out;
}

struct LexCase {
  const char* text;
  const char* tokens;
};

const LexCase kBlanksAndComments[] = {
    {"", "End"},
    {" \t\r\n ", "End"},
    {"// note", "End"},
    {"x // note\n y", "N:x N:y End"},
    {"/* a */ x", "N:x End"},
    {"/*abc*/x", "N:x End"},
    {"/**/x", "N:x End"},
    {"/* 2*3 */ x", "O:* O:/ N:x End"},  // ends at the first '*' and drops "*3"
    {"/* a/ b", "N:b End"},              // ends before the first '/' and drops "a/"
    {"/* open", "End"},
    {"a/b /=c", "N:a O:/ N:b O:/= N:c End"},
};

const LexCase kNumbers[] = {
    {".", "R:NA End"},
    {". 5", "R:NA I:5 End"},
    {".5", "R:0.5 End"},
    {"5.", "R:5 End"},
    {"1.0", "R:1 End"},
    {"1e5", "R:100000 End"},
    {"2d3 2D-2", "R:2000 R:0.02 End"},
    {"1E+2e", "R:100 N:e End"},
    {"3e", "R:3 End"},
    {"1..5", "R:1 R:0.5 End"},
    {"1+2", "I:1 O:+ I:2 End"},
    {"007", "I:7 End"},
    {"2147483647", "I:2147483647 End"},
    {"2147483648", "R:2147483648 End"},
    {"3000000000", "R:3000000000 End"},
    {"0x1F+2", "O:+ I:2 End"},  // the hexadecimal number gives no token
    {"0XffG", "N:G End"},
    {"0x1F 2", "U: "},          // and blanks are not skipped behind it
    {"0x", "End"},
};

const LexCase kDates[] = {
    {"1995Q3", "D:1995 Q 3 -1 End"},
    {"1995M12", "D:1995 M 12 -1 End"},
    {"1995S1", "D:1995 S 1 -1 End"},
    {"1995:3", "D:1995 : 3 -1 End"},
    {"1995:3:14", "D:1995 : 3 14 End"},
    {"1995Q3:4", "D:1995 Q 3 -1 O:: I:4 End"},
    {"1995:3:", "D:1995 : 3 -1 End"},
    {"1Q2", "D:1 Q 2 -1 End"},
    {"1995Q", "D:1995 Q 0 -1 End"},
    {"1:=2", "I:1 O::= I:2 End"},
    {"1995q3", "I:1995 N:q3 End"},
    {"1.5Q2", "R:1.5 N:Q2 End"},
    {"3000000000Q1", "R:3000000000 N:Q1 End"},
};

const LexCase kNames[] = {
    {"x:=1", "N:x: O:= I:1 End"},
    {"x := 1", "N:x O::= I:1 End"},
    {"a\\b.c$d_e:f", "N:a\\b.c$d_e:f End"},
    {"_x @sqrt(y)", "N:_x N:@sqrt O:( N:y O:) End"},
    {"True FALSE", "B:1 B:0 End"},
    {"@INF @inf", "R:inf R:inf End"},
    {"NA na", "R:NA R:NA End"},
    {"a OR b and c", "N:a O:or N:b O:and N:c End"},
    {"order andy nan @infinity", "N:order N:andy N:nan N:@infinity End"},
    {"$x", "U:$"},
};

const LexCase kStringsAndWildcards[] = {
    {"\"a\"\"b\"", "S:a\"b End"},
    {"\"abc", "S:abc End"},
    {"\"\"", "S: End"},
    {"\"\"\"\"", "S:\" End"},
    {"\"a\nb\" x", "S:a\nb N:x End"},
    {"\"a\"b", "S:a N:b End"},
    {"#S12", "W:S I:12 End"},
    {"#1", "W:#0 I:1 End"},
    {"# x", "W:#0 N:x End"},
    {"`a1", "W:a N:a1 End"},  // the character itself is not consumed
    {"`^n5", "W:#10 I:5 End"},
    {"`^t`^r`^q", "W:#9 W:#13 W:q End"},
    {"`", "W:#0 End"},
};

const LexCase kOperators[] = {
    {"( ) { } [ ] ; , ? % ' ! ^ : ~ \\", "O:( O:) O:{ O:} O:[ O:] O:; O:, O:? O:% O:' O:! O:^ "
                                         "O:: O:~ O:\\ End"},
    {"+ += - -= * *= / /= = == != := & && | ||",
     "O:+ O:+= O:- O:-= O:* O:*= O:/ O:/= O:= O:== O:!= O::= O:& O:&& O:| O:|| End"},
    {"++ --", "O:+ O:+ O:- O:- End"},
    {"< = <  > > = <>", "O:<= O:<> O:>= O:<> End"},
    {"< x > y <\t=", "O:< N:x O:> N:y O:< O:= End"},  // only blanks are skipped
    {"> >", "O:> O:> End"},
    {"! =", "O:! O:= End"},
    {"x @", "N:x N:@ End"},
    {"\x80", "U:\x80"},
    {"\x7f", "U:\x7f"},
};

void ExpectRows(const LexCase* rows, size_t count) {
  for (size_t i = 0; i < count; ++i) EXPECT_EQ(Lex(rows[i].text), rows[i].tokens) << rows[i].text;
}

TEST(LexerTest, BlanksAndComments) { ExpectRows(kBlanksAndComments, std::size(kBlanksAndComments)); }
TEST(LexerTest, Numbers) { ExpectRows(kNumbers, std::size(kNumbers)); }
TEST(LexerTest, Dates) { ExpectRows(kDates, std::size(kDates)); }
TEST(LexerTest, Names) { ExpectRows(kNames, std::size(kNames)); }
TEST(LexerTest, StringsAndWildcards) {
  ExpectRows(kStringsAndWildcards, std::size(kStringsAndWildcards));
}
TEST(LexerTest, Operators) { ExpectRows(kOperators, std::size(kOperators)); }

TEST(LexerTest, NamesAndNumbersStopAt300Characters) {
  EXPECT_EQ(Lex(std::string(301, 'a')), "N:" + std::string(300, 'a') + " N:a End");
  EXPECT_EQ(Lex("x" + std::string(299, '1') + ":2"), "N:x" + std::string(299, '1') + " O:: I:2 End");
  EXPECT_EQ(Lex(std::string(300, '0') + "12"), "I:0 I:12 End");
  EXPECT_EQ(Lex(std::string(299, '0') + "1.5"), "I:1 R:0.5 End");
  EXPECT_EQ(Lex(std::string(300, '0') + "Q1"), "D:0 Q 1 -1 End");
}

TEST(LexerTest, StringsHaveNoLengthLimit) {
  std::string body;
  for (int i = 0; i < 1000; ++i) body += static_cast<char>('a' + i % 26);
  body.insert(299, "\"\"").insert(650, "\"\"");
  std::string want = body;
  want.erase(299, 1).erase(649, 1);
  EXPECT_EQ(Lex("\"" + body + "\" 1"), "S:" + want + " I:1 End");
  EXPECT_EQ(Lex("\"" + std::string(300, 'z') + "\""), "S:" + std::string(300, 'z') + " End");
}

TEST(LexerTest, UnknownAndEndAreNotConsumed) {
  StringLexer lexer(SharedText("$"));
  Token token;
  lexer.NextToken(token);
  lexer.NextToken(token);
  EXPECT_EQ(token.Kind(), TokenUnknown);
  EXPECT_EQ(lexer.current, '$');
  lexer.Reset(SharedText("x"));
  lexer.NextToken(token);
  EXPECT_EQ(token.Kind(), TokenIdentifier);
  lexer.NextToken(token);
  lexer.NextToken(token);
  EXPECT_EQ(token.Kind(), TokenEnd);
  EXPECT_EQ(lexer.GetChar(), 0);
}

// Each lexer collects in its own buffer, so parses on two threads cannot mix their names.
TEST(LexerTest, LexersOnTwoThreadsKeepTheirOwnScratch) {
  auto run = [](char letter, bool* clean) {
    const std::string name(250, letter);
    const std::string text = name + " " + name + " " + name;
    for (int round = 0; round < 300; ++round) {
      StringLexer lexer{SharedText(text.c_str())};
      Token token;
      for (int i = 0; i < 3; ++i) {
        lexer.NextToken(token);
        if (token.Kind() != TokenIdentifier || token.Identifier() != name) *clean = false;
      }
    }
  };
  bool cleanA = true, cleanB = true;
  std::thread a(run, 'a', &cleanA), b(run, 'b', &cleanB);
  a.join();
  b.join();
  EXPECT_TRUE(cleanA);
  EXPECT_TRUE(cleanB);
}

TEST(TokenTest, CopiesShareTextsAndDuplicateDatesAndNames) {
  Token text;
  text.SetString(SharedText("abc"));
  Token textCopy(text);
  EXPECT_TRUE(textCopy.String().SharesBodyWith(text.String()));
  EXPECT_EQ(text.String().RefCount(), 2);

  Token name;
  name.SetIdentifier("alpha", 5);
  Token nameCopy = name;
  EXPECT_NE(nameCopy.Identifier(), name.Identifier());
  EXPECT_STREQ(nameCopy.Identifier(), "alpha");

  Token date;
  date.SetDate({.year = 2001, .period = 2, .subperiod = -1, .separator = 'Q'});
  Token dateCopy;
  dateCopy = date;
  EXPECT_NE(&dateCopy.Date(), &date.Date());
  EXPECT_EQ(dateCopy.Date().year, 2001);

  textCopy = std::move(nameCopy);  // releases the copy's text reference
  EXPECT_EQ(text.String().RefCount(), 1);
  EXPECT_STREQ(textCopy.Identifier(), "alpha");
  EXPECT_EQ(nameCopy.Kind(), TokenNone);
  date.SetInteger(4);
  EXPECT_EQ(date.Integer(), 4);
}

}  // namespace
}  // namespace quillon
