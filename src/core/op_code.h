// Operator codes: the numbers of the operator tokens and their spellings. The lexer makes them,
// the catalogue indexes its operator arrays by them, and the parser and printer spell them.
#pragma once

#include <cstdint>

namespace quillon {

// ORDER OPCODE: kTokenSpellings below follows this enum; hosts see the numbers through the
// catalogue's token fields, so they never change.
enum OpCode : int32_t {
  TokNone = 0,
  TokOpenParen = 1,
  TokCloseParen = 2,
  TokOpenBrace = 3,
  TokCloseBrace = 4,
  TokOpenBracket = 5,
  TokCloseBracket = 6,
  TokSemicolon = 7,
  TokComma = 8,
  TokQuestion = 9,
  TokAt = 10,  // spelled, never lexed
  TokHash = 11,  // spelled, never lexed
  TokPlus = 12,
  TokMinus = 13,
  TokStar = 14,
  TokSlash = 15,
  TokBackslash = 16,
  TokPercent = 17,
  TokQuote = 18,
  TokBang = 19,
  TokCaret = 20,
  TokColon = 21,
  TokTilde = 22,
  TokEqual = 23,
  TokPlusEqual = 24,
  TokMinusEqual = 25,
  TokStarEqual = 26,
  TokSlashEqual = 27,
  TokPlusPlus = 28,  // spelled, never lexed
  TokMinusMinus = 29,  // spelled, never lexed
  TokEqualEqual = 30,
  TokBangEqual = 31,
  TokLess = 32,
  TokLessEqual = 33,
  TokGreater = 34,
  TokGreaterEqual = 35,
  TokLessGreater = 36,
  TokAssign = 37,
  TokAmp = 38,
  TokAmpAmp = 39,
  TokBar = 40,
  TokBarBar = 41,
  TokAnd = 42,
  TokOr = 43,
};

inline constexpr int32_t kOpCodeCount = 44;

// ORDER OPCODE
inline constexpr const char* kTokenSpellings[kOpCodeCount] = {
    "",   "(",  ")",  "{",  "}",  "[",  "]",  ";",  ",",  "?",  "@",  "#",  "+",  "-",  "*",
    "/",  "\\", "%",  "'",  "!",  "^",  ":",  "~",  "=",  "+=", "-=", "*=", "/=", "++", "--",
    "==", "!=", "<",  "<=", ">",  ">=", "<>", ":=", "&",  "&&", "|",  "||", "and", "or",
};

// The text of an operator token; empty for a code outside the table.
inline const char* TokenSpelling(int32_t code) {
  return code >= 0 && code < kOpCodeCount ? kTokenSpellings[code] : "";
}

}  // namespace quillon
